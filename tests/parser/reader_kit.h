#ifndef TESTS_PARSER_READER_KIT_H
#define TESTS_PARSER_READER_KIT_H

#include <istream>
#include <memory>
#include <sstream>
#include <string>

#include "tests/parser/parse_kit.h"
#include "xport/stream/unit_input.h"
#include "xport/stream/ustring_stream.h"

namespace test {

/// A parser with its input and its messages, of all levels, whose readers are called one by
/// one, outside parse_children.
template <class Parser = Xport::xhtml_parser>
class parser_on {
 public:
  explicit parser_on(Xport::ustring_view text)
      : buffer_(Xport::ustring(text)), input_(&buffer_), parser_(&input_) {
    parser_.messages = &messages_;
    parser_.message_mask = 15;
  }

  Parser* operator->() { return &parser_; }
  Parser& operator*() { return parser_; }

  std::string messages() const { return printable(messages_.str()); }

  /// What is left of the input; takes it.
  std::string rest() {
    Xport::ustring units;
    Xport::unit_input input(&buffer_);
    for (; !input.at_end(); input.advance()) units += input.peek();
    return printable(units);
  }

 private:
  std::basic_stringbuf<Xport::char16> buffer_;
  std::basic_istream<Xport::char16> input_;
  Xport::ustring_stream messages_;
  Parser parser_;
};

/// What a reader gave, which goes: a node as node_with_attributes shows it, an end tag as its
/// text, "null", or "none" for a node of no kind.
inline std::string shown(Xport::xhtml_markup* node) {
  const std::unique_ptr<Xport::xhtml_markup> owned(node);
  if (node == nullptr) return "null";
  if (node->is_end_tag()) return printable(node->tag_name());
  return node->node_kind() == 0 ? "none" : node_with_attributes(*node);
}

}  // namespace test

#endif
