#ifndef TESTS_REPORT_REPORT_PAGE_H
#define TESTS_REPORT_REPORT_PAGE_H

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <stdexcept>
#include <string>

#include "platform/file_system.h"
#include "report/vellomark_obj.h"
#include "tests/report/page_text.h"
#include "tests/support/fake_services.h"
#include "tests/support/temp_folder.h"

namespace test {

/// Adds texts to the page, or cells to its table.
inline void add_texts(IVellomark& report, std::initializer_list<const char16_t*> texts) {
  for (const char16_t* const text : texts) report.AddText(text, false);
}

/// Adds a section whose path has the styles 1, 2, 3 ... and that has these lines.
inline void add_section(IVellomark& report, std::initializer_list<const char16_t*> path,
                        const char16_t* name, std::initializer_list<const char16_t*> texts = {}) {
  std::int32_t style = 1;
  for (const char16_t* const text : path) report.AddSectionHeading(text, style++);
  report.BeginSection(name, nullptr);
  for (const char16_t* const text : texts) report.AddText(text, true);
}

/// Closes a table. Returns the text of the exception that CloseTable throws, empty if none.
inline std::string thrown_by_close(IVellomark& report) {
  try {
    report.CloseTable();
  } catch (const std::out_of_range& error) {
    return error.what();
  }
  return {};
}

/// A report whose files are in memory and whose browser only records the URLs.
class report_test : public ::testing::Test {
 protected:
  void cells(std::initializer_list<const char16_t*> texts) { add_texts(report, texts); }

  /// Saves under a name and returns the whole page without its byte-order mark.
  ustring saved_page() {
    EXPECT_TRUE(report.Save(u"/out", u"page.htm"));
    const ustring page = files.units(u"/out/Vellomark/page.htm");
    EXPECT_EQ(page.substr(0, 1), u"\uFEFF");
    return page.substr(1);
  }

  /// Saves and returns the content of the body without the empty block that Save adds.
  ustring body() {
    const ustring page = saved_page();
    const ustring head = page_head();
    const ustring tail = block() + page_tail();
    if (page.size() < head.size() + tail.size()) return page;
    EXPECT_TRUE(same_units(page.substr(0, head.size()), head));
    EXPECT_TRUE(same_units(page.substr(page.size() - tail.size()), tail));
    return page.substr(head.size(), page.size() - head.size() - tail.size());
  }

  memory_files files;
  recording_opener browser;
  VellomarkObj report{files, browser};
};

/// A report that is saved on the disk. Its browser only records the URLs.
class disk_test : public ::testing::Test {
 protected:
  /// The folder of the pages.
  std::filesystem::path pages() const { return folder.path() / "out" / "Vellomark"; }

  /// Saves page.htm.
  bool save() { return report.Save(folder.text(u"/out").c_str(), u"page.htm"); }

  /// The page that was saved last.
  ustring saved_page() const { return page_text(pages() / "page.htm"); }

  /// Saves page.htm and returns the content of its body.
  ustring body() {
    EXPECT_TRUE(save());
    return body_of(saved_page());
  }

  /// The same without the empty block that Save adds to a new page before all else.
  ustring saved() {
    const ustring all = body();
    const ustring first = block();
    EXPECT_EQ(all.substr(0, first.size()), first);
    return all.substr(first.size());
  }

  temp_folder folder;
  recording_opener browser;
  VellomarkObj report{platform::file_system::native(), browser};
};

}  // namespace test

#endif
