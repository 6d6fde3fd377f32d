#ifndef TESTS_MARKUP_WRITER_RANDOM_TREE_H
#define TESTS_MARKUP_WRITER_RANDOM_TREE_H

#include <cstdint>
#include <random>

#include "tests/markup/plain_writer.h"
#include "tests/support/names.h"
#include "xport/markup/xhtml_element.h"
#include "xport/markup/xhtml_writer.h"

namespace test {

/// Makes random trees, texts and writer options. The same seed makes the same on
/// every machine: only the engine of the standard library is used.
class random_source {
 public:
  explicit random_source(std::uint32_t seed) : engine_(seed) {}

  /// A number from 0 to `limit` - 1.
  std::uint32_t below(std::uint32_t limit) { return static_cast<std::uint32_t>(engine_() % limit); }
  bool one_in(std::uint32_t n) { return below(n) == 0; }

  /// Words, blanks, tabs, line feeds, other scripts, lone surrogates, markup.
  ustring text();

  /// Fills `element` with up to `budget` nodes of all kinds; what is refused is left out.
  void fill(xhtml_element& element, int depth, int& budget);

  /// An element of any number, the document root among them, filled.
  xhtml_element tree();

  /// Sets the same options and state in both writers.
  void set_up(xhtml_writer& writer, plain_writer& plain);

 private:
  void decorate(xhtml_element& element);
  tag_id tag_for(const xhtml_element& parent);

  std::mt19937 engine_;
};

}  // namespace test

#endif
