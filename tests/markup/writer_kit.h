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

inline void add(Xport::xhtml_element& parent, Xport::ustring_view text) {
  if (parent.append_text(text) == parent.end()) throw std::logic_error("text was refused");
}

inline void add(Xport::xhtml_element& parent, const Xport::xhtml_markup& node) {
  if (parent.append_copy(node) == parent.end()) throw std::logic_error("node was refused");
}

/// An element with the children, nodes and texts, none of which may be refused.
template <class... Children>
Xport::xhtml_element make(Xport::tag_id tag, const Children&... children) {
  Xport::xhtml_element element(tag, {}, {});
  (add(element, children), ...);
  return element;
}

/// A comment with just this text: nothing is cut off it.
inline Xport::xhtml_comment comment(Xport::ustring_view text) {
  Xport::xhtml_comment node{Xport::ustring_view()};
  node << text;
  return node;
}

/// An instruction with just this text.
inline Xport::xhtml_processing_instruction instruction(Xport::ustring_view text) {
  Xport::xhtml_processing_instruction node{Xport::ustring_view()};
  node << text;
  return node;
}

/// What a writer made of a node, and where it believed to stand afterwards.
struct outcome {
  Xport::ustring text;
  std::uint64_t column;
  int indent_level;
};

/// Writes `node` with a writer that `set_up` has changed.
template <class SetUp>
outcome write_with(const Xport::xhtml_markup& node, SetUp set_up) {
  Xport::ustring_stream stream;
  Xport::xhtml_writer writer(stream);
  set_up(writer);
  node.write(writer);
  return {stream.str(), writer.column, writer.indent_level};
}

inline testing::AssertionResult is_outcome(const outcome& actual, Xport::ustring_view text,
                                           std::uint64_t column) {
  if (actual.column != column)
    return testing::AssertionFailure()
           << "column " << actual.column << " and not " << column << " behind\n"
           << printable(actual.text);
  return same_units(actual.text, text);
}

}  // namespace test

#endif
