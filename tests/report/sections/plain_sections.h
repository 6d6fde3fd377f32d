#ifndef TESTS_REPORT_SECTIONS_PLAIN_SECTIONS_H
#define TESTS_REPORT_SECTIONS_PLAIN_SECTIONS_H

#include <cstddef>
#include <cstdint>
#include <list>
#include <vector>

#include "tests/support/names.h"
#include "xport/text/char16.h"

namespace test {

/// A line of text or a table of one cell.
struct plain_element {
  bool is_table;
  ustring text;
};

/// A section as the host makes it.
struct plain_section {
  ustring name;
  std::vector<plain_element> elements;
  std::vector<ustring> headings;
  std::vector<std::int32_t> styles;
};

/// How many leading headings two paths share.
std::size_t shared_headings(const std::vector<ustring>& a, const std::vector<ustring>& b);

/// What the body of a new page has after Save, found by a plain search through all
/// the sections that are left.
ustring plain_body(std::list<plain_section> sections);

}  // namespace test

#endif
