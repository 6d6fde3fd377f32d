#ifndef TESTS_MARKUP_WRITER_KIT_H
#define TESTS_MARKUP_WRITER_KIT_H

#include <cstdint>
#include <stdexcept>

#include "tests/support/golden.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_element.h"
#include "xport/markup/xhtml_writer.h"
#include "xport/stream/ustring_stream.h"

namespace test {

inline void add(xhtml_element& parent, ustring_view text) {
  if (parent.append_text(text) == parent.end()) throw std::logic_error("text was refused");
}

inline void add(xhtml_element& parent, const xhtml_markup& node) {
  if (parent.append_copy(node) == parent.end()) throw std::logic_error("node was refused");
}

/// An element with the children, nodes and texts, none of which may be refused.
template <class... Children>
xhtml_element make(tag_id tag, const Children&... children) {
  xhtml_element element(tag, {}, {});
  (add(element, children), ...);
  return element;
}

/// A comment with just this text: nothing is cut off it.
inline xhtml_comment comment(ustring_view text) {
  xhtml_comment node{ustring_view()};
  node << text;
  return node;
}

/// An instruction with just this text.
inline xhtml_processing_instruction instruction(ustring_view text) {
  xhtml_processing_instruction node{ustring_view()};
  node << text;
  return node;
}

/// What a writer wrote for a node, and its column and level afterwards.
struct outcome {
  ustring text;
  std::uint64_t column;
  int indent_level;
};

/// Writes `node` with a writer that `set_up` has changed.
template <class SetUp>
outcome write_with(const xhtml_markup& node, SetUp set_up) {
  ustring_stream stream;
  xhtml_writer writer(stream);
  set_up(writer);
  node.write(writer);
  return {stream.str(), writer.column, writer.indent_level};
}

inline testing::AssertionResult is_outcome(const outcome& actual, ustring_view text,
                                           std::uint64_t column) {
  if (actual.column != column)
    return testing::AssertionFailure()
           << "column " << actual.column << " instead of " << column << " after\n"
           << printable(actual.text);
  return same_units(actual.text, text);
}

}  // namespace test

#endif
