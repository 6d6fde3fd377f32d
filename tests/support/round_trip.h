#ifndef TESTS_SUPPORT_ROUND_TRIP_H
#define TESTS_SUPPORT_ROUND_TRIP_H

#include <cstdint>
#include <string>

#include "tests/support/names.h"
#include "xport/markup/xhtml_element.h"
#include "xport/text/char16.h"

namespace test {

/// How a tree is written and read back.
struct round_trip_options {
  bool normalize_text = false;        ///< of the parser
  bool preserve_newlines = false;     ///< of the parser
  bool double_quotes = false;         ///< of the writer
  bool spaced_equals = false;         ///< of the writer
  std::uint64_t max_line_length = 0;  ///< of the writer
  std::int32_t indent_step = 2;       ///< of the writer
};

/// The rule of the writer or the reader by which the tree that was read into `root` may
/// differ from the tree of its own page; null if it must be the same.
const char* round_trip_exemption(const xhtml_element& root, const round_trip_options& options);

/// Writes the tree below `root`, a document's root that a page was read into, reads what was
/// written, and so on a few times. Returns what is wrong, empty if nothing is:
/// - each tree that is read is intact;
/// - without an exemption the first of them is that of `root` but for white space next to
///   tags and in comments, and for style texts, which are rewritten each time;
/// - without an exemption the fourth is the third, white space included.
std::string round_trip_fault(const xhtml_element& root, const round_trip_options& options);

}  // namespace test

#endif
