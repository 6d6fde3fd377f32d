#ifndef TESTS_REPORT_PAGE_TEXT_H
#define TESTS_REPORT_PAGE_TEXT_H

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <initializer_list>
#include <string>

#include "tests/support/golden.h"
#include "tests/support/names.h"
#include "tests/support/temp_folder.h"
#include "tests/support/text.h"
#include "tests/support/utf8.h"
#include "xport/text/char16.h"

// How the parts of a page look when they are written, and how a written page is read.

namespace test {

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

/// Every page after the content of its body.
inline ustring page_tail() { return lines({u"  </body>", u"</html>"}); }

/// A line of text in a block.
inline ustring text_line(ustring_view text) {
  return u"      <a>" + ustring(text) + u"</a><br/>\n";
}

/// A picture in a block, and the line end after it.
inline ustring image(ustring_view link) {
  return u"      <img src='" + ustring(link) + u"'/>\n      <br/>\n";
}

/// A block with this content.
inline ustring paragraph(ustring_view content) {
  return u"    <p>\n" + ustring(content) + u"    </p>\n";
}

/// A block with these lines of text.
inline ustring block(std::initializer_list<ustring_view> texts = {}) {
  ustring content;
  for (const ustring_view text : texts) content += text_line(text);
  return paragraph(content);
}

/// A heading of style 1 to 4 without the block that follows it.
inline ustring title(char16_t style, ustring_view text) {
  const ustring number(1, style);
  return u"    <h" + number + u" class='Style" + number + u"'>\n      " + ustring(text) +
         u"\n    </h" + number + u">\n";
}

/// A heading of style 1 to 4 and the empty block that follows it.
inline ustring heading(char16_t style, ustring_view text) { return title(style, text) + block(); }

/// The block with which a section begins, and the section's own heading.
inline ustring section(ustring_view name) {
  const ustring text(name);
  return block() + u"    <h4 class='Style4' id='#" + text + u"'>\n      " + text + u"\n    </h4>\n";
}

/// A cell of a table and its `rowspan`, if it has one.
struct shown_cell {
  shown_cell(ustring_view its_text, ustring_view its_rowspan = {})
      : text(its_text), rowspan(its_rowspan) {}
  shown_cell(const char16_t* its_text, ustring_view its_rowspan = {})
      : text(its_text), rowspan(its_rowspan) {}

  ustring_view text;
  ustring_view rowspan;
};

/// A table of these rows.
inline ustring table(std::initializer_list<std::initializer_list<shown_cell>> rows) {
  ustring text = u"    <table border='1' class='main' width='100%'>\n";
  for (const auto& row : rows) {
    text += u"      <tr>\n";
    for (const shown_cell& cell : row) {
      text += u"        <td ";
      if (!cell.rowspan.empty()) text += u"rowspan='" + ustring(cell.rowspan) + u"' ";
      text += u"valign='top'>\n          " + ustring(cell.text) + u"\n        </td>\n";
    }
    text += u"      </tr>\n";
  }
  return text += u"    </table>\n";
}

/// A table of one cell.
inline ustring table(ustring_view cell) { return table({{cell}}); }

/// The units of a page file after its byte-order mark.
inline ustring page_text(const std::filesystem::path& file) {
  const ustring text = file_units(bytes_of(file));
  EXPECT_EQ(text.substr(0, 1), u"\uFEFF");
  return text.empty() ? text : text.substr(1);
}

/// The text between the tags of the body.
inline ustring body_of(const ustring& page) {
  const ustring_view open = u"\n  <body>\n";
  const std::size_t from = page.find(open);
  const std::size_t to = page.rfind(u"  </body>\n</html>\n");
  if (from == ustring::npos || to == ustring::npos) return page;
  return page.substr(from + open.size(), to - from - open.size());
}

/// How often `part` occurs in `text`.
inline std::size_t count_of(ustring_view part, ustring_view text) {
  std::size_t found = 0;
  for (std::size_t at = text.find(part); at != text.npos; at = text.find(part, at + part.size()))
    ++found;
  return found;
}

/// The tables of a written page in a line: cells with a blank between them, rows with " | ",
/// tables with " || ". A cell with a `rowspan` is followed by "*" and its value. Reads the start
/// of each line, which is enough where every table, row and cell has lines of its own.
inline std::string tables_of(ustring_view page) {
  std::string tables;
  std::string table;
  std::string row;
  std::string cell;
  std::string rowspan;
  bool in_cell = false;
  while (!page.empty()) {
    const std::size_t end = std::min(page.find(u'\n'), page.size());
    std::string line = printable(page.substr(0, end));
    page.remove_prefix(std::min(end + 1, page.size()));
    line.erase(0, line.find_first_not_of(' '));
    if (line.starts_with("<table ")) {
      tables += tables.empty() ? "" : " || ";
      table.clear();
    } else if (line == "</table>") {
      tables += table;
    } else if (line == "<tr>") {
      row.clear();
    } else if (line == "</tr>") {
      table += (table.empty() ? "" : " | ") + row;
    } else if (line.starts_with("<td ")) {
      in_cell = true;
      cell.clear();
      rowspan.clear();
      const std::string name = " rowspan='";
      if (const std::size_t at = line.find(name); at != line.npos) {
        const std::size_t from = at + name.size();
        rowspan = "*" + line.substr(from, line.find('\'', from) - from);
      }
    } else if (line == "</td>") {
      in_cell = false;
      row += (row.empty() ? "" : " ") + cell + rowspan;
    } else if (in_cell) {
      cell += line;
    }
  }
  return tables;
}

}  // namespace test

#endif
