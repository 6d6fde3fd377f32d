#ifndef TESTS_REPORT_REPORT_PAGE_H
#define TESTS_REPORT_REPORT_PAGE_H

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "report/vellomark_obj.h"
#include "tests/support/fake_services.h"
#include "tests/support/golden.h"
#include "tests/support/text.h"
#include "xport/text/char16.h"

namespace report_test {

using test::same_units;
using Xport::ustring;
using Xport::ustring_view;

/// The lines one below the other, each with its line feed.
inline ustring lines(std::initializer_list<ustring_view> all) {
  ustring text;
  for (const ustring_view line : all) (text += line) += u'\n';
  return text;
}

/// Every page up to its body, by the layout rules.
inline ustring page_head() {
  return lines({
      u"<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Strict//EN\"",
      u"     \"http://www.w3.org/TR/xhtml1/DTD/xhtml1-strict.dtd\">",
      u"",
      u"<html xmlns='http://www.w3.org/1999/xhtml'>",
      u"  <head>",
      u"    <title>",
      u"      Report",
      u"    </title>",
      u"    <style type='text/css'>",
      u"      .Style1 { ",
      u"         text-align: center;",
      u"      }",
      u"      ",
      u"      .Style2 { ",
      u"         text-align: left;",
      u"      }",
      u"      ",
      u"      .Style3 { ",
      u"         text-align: left;",
      u"         font-weight: bold;",
      u"      }",
      u"      ",
      u"      .Style4 { ",
      u"         text-align: left;",
      u"         font-weight: bold;",
      u"         font-style: italic;",
      u"      }",
      u"      ",
      u"      table.main { ",
      u"         width: 100%;",
      u"      }",
      u"      ",
      u"      .main td { ",
      u"         width: 10%;",
      u"      }",
      u"      ",
      u"      ",
      u"    </style>",
      u"  </head>",
      u"  <body>",
  });
}

/// Every page behind its body's content.
inline ustring page_tail() { return lines({u"  </body>", u"</html>"}); }

/// A block without content.
inline ustring empty_block() { return lines({u"    <p>", u"    </p>"}); }

/// A report whose files are in memory and whose browser only notes.
class report_test : public ::testing::Test {
 protected:
  /// The whole page as a Save to a name writes it, without the byte-order mark.
  ustring saved_page() {
    EXPECT_TRUE(report.Save(u"/out", u"page.htm"));
    const ustring page = files.units(u"/out/Vellomark/page.htm");
    EXPECT_EQ(page.substr(0, 1), u"\uFEFF");
    return page.substr(1);
  }

  /// What is in the body, without the empty block with which Save begins.
  ustring body() {
    const ustring page = saved_page();
    const ustring head = page_head();
    const ustring tail = empty_block() + page_tail();
    if (page.size() < head.size() + tail.size()) return page;
    EXPECT_TRUE(same_units(page.substr(0, head.size()), head));
    EXPECT_TRUE(same_units(page.substr(page.size() - tail.size()), tail));
    return page.substr(head.size(), page.size() - head.size() - tail.size());
  }

  test::memory_files files;
  test::recording_opener browser;
  VellomarkObj report{files, browser};
};

}  // namespace report_test

#endif
