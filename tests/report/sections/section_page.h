#ifndef TESTS_REPORT_SECTIONS_SECTION_PAGE_H
#define TESTS_REPORT_SECTIONS_SECTION_PAGE_H

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <string>

#include "platform/file_system.h"
#include "report/vellomark_obj.h"
#include "tests/support/fake_services.h"
#include "tests/support/golden.h"
#include "tests/support/temp_folder.h"
#include "xport/text/char16.h"

namespace sections_test {

using Xport::ustring;
using Xport::ustring_view;

/// The lines one below the other, each with its line feed.
inline ustring lines(std::initializer_list<ustring_view> all) {
  ustring text;
  for (const ustring_view line : all) (text += line) += u'\n';
  return text;
}

/// A block with these lines of text.
inline ustring block(std::initializer_list<ustring_view> texts = {}) {
  ustring written = u"    <p>\n";
  for (const ustring_view text : texts) ((written += u"      <a>") += text) += u"</a><br/>\n";
  return written += u"    </p>\n";
}

/// A heading of the path, of style 1 to 4, and the block behind it.
inline ustring heading(char16_t style, ustring_view text) {
  const ustring number(1, style);
  return u"    <h" + number + u" class='Style" + number + u"'>\n      " + ustring(text) +
         u"\n    </h" + number + u">\n" + block();
}

/// The block with which a section begins, and its own heading.
inline ustring section(ustring_view name) {
  const ustring text(name);
  return block() + u"    <h4 class='Style4' id='#" + text + u"'>\n      " + text + u"\n    </h4>\n";
}

/// A table of one cell.
inline ustring table(ustring_view cell) {
  return u"    <table border='1' class='main' width='100%'>\n"
         u"      <tr>\n"
         u"        <td valign='top'>\n"
         u"          " +
         ustring(cell) +
         u"\n"
         u"        </td>\n"
         u"      </tr>\n"
         u"    </table>\n";
}

/// The units of a page file behind its byte-order mark.
inline ustring page_text(const std::filesystem::path& file) {
  const std::string bytes = test::bytes_of(file);
  ustring text;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
    text.push_back(static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) |
                                         static_cast<unsigned char>(bytes[i + 1]) << 8));
  EXPECT_EQ(text.substr(0, 1), u"\uFEFF");
  return text.empty() ? text : text.substr(1);
}

/// What stands between the tags of the body.
inline ustring body_of(const ustring& page) {
  const ustring_view open = u"\n  <body>\n";
  const std::size_t from = page.find(open);
  const std::size_t to = page.rfind(u"  </body>\n</html>\n");
  if (from == ustring::npos || to == ustring::npos) return page;
  return page.substr(from + open.size(), to - from - open.size());
}

/// How often `part` stands in `text`.
inline std::size_t count_of(ustring_view part, ustring_view text) {
  std::size_t found = 0;
  for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + part.size()))
    ++found;
  return found;
}

/// Adds a section whose path has the styles 1, 2, 3 ... and that has these lines.
inline void add_section(IVellomark& report, std::initializer_list<const char16_t*> path,
                        const char16_t* name, std::initializer_list<const char16_t*> texts = {}) {
  std::int32_t style = 1;
  for (const char16_t* const text : path) report.AddSectionHeading(text, style++);
  report.BeginSection(name, nullptr);
  for (const char16_t* const text : texts) report.AddText(text, true);
}

/// A report that is saved on the disk. Its browser only notes.
class section_test : public ::testing::Test {
 protected:
  /// The folder of the pages.
  std::filesystem::path pages() const { return folder.path() / "out" / "Vellomark"; }

  /// Saves page.htm.
  bool save() { return report.Save(folder.text(u"/out").c_str(), u"page.htm"); }

  /// Saves page.htm and gives what stands in its body behind the empty block with
  /// which Save begins on a new page.
  ustring saved() {
    EXPECT_TRUE(save());
    const ustring body = body_of(page_text(pages() / "page.htm"));
    const ustring first = block();
    EXPECT_EQ(body.substr(0, first.size()), first);
    return body.substr(first.size());
  }

  test::temp_folder folder;
  test::recording_opener browser;
  VellomarkObj report{platform::file_system::native(), browser};
};

}  // namespace sections_test

#endif
