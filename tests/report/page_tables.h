#ifndef TESTS_REPORT_PAGE_TABLES_H
#define TESTS_REPORT_PAGE_TABLES_H

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <string>
#include <vector>

#include "tests/support/text.h"
#include "xport/text/char16.h"

namespace report_test {

/// A cell as a page shows it: its content on one line, and its `rowspan`, which
/// is empty if there is none.
struct page_cell {
  Xport::ustring content;
  Xport::ustring rowspan = {};

  friend bool operator==(const page_cell&, const page_cell&) = default;
};

using page_row = std::vector<page_cell>;
using page_table = std::vector<page_row>;
using page_tables = std::vector<page_table>;

/// For the messages of failed comparisons.
inline void PrintTo(const page_cell& cell, std::ostream* out) {
  *out << '"' << test::printable(cell.content) << '"';
  if (!cell.rowspan.empty()) *out << " x " << test::printable(cell.rowspan);
}

/// The tables of a written page. Reads what stands at the start of each line,
/// which is enough where every table, row and cell has lines of its own.
inline page_tables tables_of(Xport::ustring_view text) {
  using Xport::ustring_view;
  page_tables tables;
  bool in_cell = false;
  while (!text.empty()) {
    const std::size_t end = text.find(u'\n');
    ustring_view line = text.substr(0, end);
    text = end == ustring_view::npos ? ustring_view() : text.substr(end + 1);
    line.remove_prefix(std::min(line.find_first_not_of(u' '), line.size()));
    const auto starts_with = [line](ustring_view tag) { return line.substr(0, tag.size()) == tag; };
    if (starts_with(u"<table ")) {
      tables.emplace_back();
    } else if (starts_with(u"<tr>")) {
      tables.back().emplace_back();
    } else if (starts_with(u"<td ")) {
      in_cell = true;
      page_cell cell;
      const ustring_view name = u" rowspan='";
      if (const std::size_t at = line.find(name); at != ustring_view::npos) {
        const std::size_t from = at + name.size();
        cell.rowspan = line.substr(from, line.find(u'\'', from) - from);
      }
      tables.back().back().push_back(cell);
    } else if (starts_with(u"</td>")) {
      in_cell = false;
    } else if (in_cell) {
      tables.back().back().back().content += line;
    }
  }
  return tables;
}

}  // namespace report_test

#endif
