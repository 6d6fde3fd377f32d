#ifndef TESTS_REPORT_TEMPLATES_TEMPLATE_PAGE_H
#define TESTS_REPORT_TEMPLATES_TEMPLATE_PAGE_H

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "tests/report/report_page.h"
#include "tests/support/names.h"
#include "tests/support/utf8.h"

namespace test {

using texts = std::vector<ustring>;

/// The source of a template page with this body.
inline ustring page(ustring_view body) {
  return u"<html><head><title>A template</title></head><body>" + ustring(body) + u"</body></html>";
}

/// The source of a block of text.
inline ustring content(ustring_view text) { return u"<p>" + ustring(text) + u"</p>"; }

/// The source of a marker inside a block.
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

/// The field texts that the report lists.
inline texts fields_of(IVellomark& report) {
  zov_shared_array<CZovString> fields;
  report.GetTemplateFields(fields);
  texts listed;
  for (const CZovString& field : fields) listed.emplace_back(field.c_str(), field.size());
  return listed;
}

/// A report and its templates on the disk.
class template_test : public disk_test {
 protected:
  /// Loads a file of these bytes.
  void load_bytes(const std::string& bytes) {
    make_file(folder.path() / "template.htm", bytes);
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
};

}  // namespace test

#endif
