#ifndef BENCH_READING_PAGE_INPUT_H
#define BENCH_READING_PAGE_INPUT_H

#include <cstddef>
#include <optional>
#include <string>

#include "bench/contender.h"

namespace bench {

/// What a page that is read consists of.
enum class input_kind {
  table,  ///< one table of cells, as the library saves it
  lines,  ///< one block of text lines, as the library saves it
  soup,   ///< tag soup
  depth   ///< `b` and `i` in turn, each inside the one before
};

/// Which page is read, and how large it is.
struct page_input {
  input_kind kind;
  std::size_t size;  ///< cells, lines, bytes of UTF-16, or nested elements

  /// "table 1,000,000", "soup 50 MB".
  std::string label() const;

  /// Whether the page is XML.
  bool well_formed() const { return kind != input_kind::soup; }

  /// A page of the same kind that takes no time.
  page_input small() const;
};

/// The kind that is called `name` on the command line: table, lines, soup or depth.
std::optional<input_kind> input_kind_of(const std::string& name);

/// Writes the page as UTF-16LE with a mark. False if that failed. Leaves a used heap, so a process
/// that measures calls this in a child.
bool make_input(const page_input& input, const page_target& target);

}  // namespace bench

#endif
