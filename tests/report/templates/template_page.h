#ifndef TESTS_REPORT_TEMPLATES_TEMPLATE_PAGE_H
#define TESTS_REPORT_TEMPLATES_TEMPLATE_PAGE_H

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "report/vellomark_obj.h"
#include "tests/report/sections/section_page.h"
#include "tests/support/fake_input.h"
#include "tests/support/fake_services.h"
#include "tests/support/golden.h"
#include "tests/support/temp_folder.h"
#include "xport/text/char16.h"

namespace templates_test {

using sections_test::block;
using sections_test::body_of;
using sections_test::count_of;
using sections_test::page_text;
using test::same_units;
using Xport::ustring;
using Xport::ustring_view;

using texts = std::vector<ustring>;

/// The source of a template page with this body.
inline ustring page(ustring_view body) {
  return u"<html><head><title>A template</title></head><body>" + ustring(body) + u"</body></html>";
}

/// The source of a block of text.
inline ustring content(ustring_view text) { return u"<p>" + ustring(text) + u"</p>"; }

/// The source of a marker as it stands in a block.
inline ustring span(ustring_view text) {
  return u"<span id=\"Template\">" + ustring(text) + u"</span>";
}

/// The source of a field in its right place.
inline ustring marker(ustring_view field) { return content(span(field)); }

/// The body x, marker A, y, marker B, z.
inline ustring two_fields() {
  return content(u"x") + marker(u"A") + content(u"y") + marker(u"B") + content(u"z");
}

/// A block of text as a page shows it.
inline ustring shown(ustring_view text) {
  return u"    <p>\n      " + ustring(text) + u"\n    </p>\n";
}

/// The units as a file that begins with the little-endian mark.
inline std::string marked_bytes(ustring_view text) {
  return test::file_bytes(u"\uFEFF" + ustring(text));
}

/// The field texts that the report lists.
inline texts fields_of(IVellomark& report) {
  zov_shared_array<CZovString> fields;
  report.GetTemplateFields(fields);
  texts listed;
  for (const CZovString& field : fields) listed.emplace_back(field.c_str(), field.size());
  return listed;
}

/// A report and its templates on the disk. Its browser only notes.
class template_test : public ::testing::Test {
 protected:
  /// Loads a file of these bytes.
  void load_bytes(const std::string& bytes) {
    test::make_file(folder.path() / "template.htm", bytes);
    report.LoadTemplate(folder.text(u"/template.htm").c_str());
  }

  /// Loads a file with the little-endian mark and these units.
  void load_source(ustring_view source) { load_bytes(marked_bytes(source)); }

  /// Loads a page with this body.
  void load(ustring_view body) { load_source(page(body)); }

  texts fields() { return fields_of(report); }

  /// SetTemplateField with a new value.
  bool set(const char16_t* name, const char16_t* value = u"value") {
    return report.SetTemplateField(name, true, value);
  }

  /// Saves and gives what stands in the body.
  ustring saved() {
    EXPECT_TRUE(report.Save(folder.text(u"/out").c_str(), u"page.htm"));
    return body_of(saved_page());
  }

  /// The page that was saved last.
  ustring saved_page() const { return page_text(folder.path() / "out" / "Vellomark" / "page.htm"); }

  test::temp_folder folder;
  test::recording_opener browser;
  VellomarkObj report{platform::file_system::native(), browser};
};

}  // namespace templates_test

#endif
