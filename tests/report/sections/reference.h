#ifndef TESTS_REPORT_SECTIONS_REFERENCE_H
#define TESTS_REPORT_SECTIONS_REFERENCE_H

#include <cstddef>
#include <cstdint>
#include <list>
#include <vector>

#include "xport/text/char16.h"

namespace sections_test {

/// A line of text or a table of one cell.
struct plain_element {
  bool is_table;
  Xport::ustring text;
};

/// A section as the host makes it.
struct plain_section {
  Xport::ustring name;
  std::vector<plain_element> elements;
  std::vector<Xport::ustring> headings;
  std::vector<std::int32_t> styles;
};

/// How many leading headings two paths share.
std::size_t shared_headings(const std::vector<Xport::ustring>& a,
                            const std::vector<Xport::ustring>& b);

/// What the body of a new page has after Save, found by a plain search through all
/// the sections that are left.
Xport::ustring plain_body(std::list<plain_section> sections);

}  // namespace sections_test

#endif
