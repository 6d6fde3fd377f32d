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

/// A parser with its input and its messages of all levels. Its readers are called one by
/// one, outside parse_children.
template <class Parser = xhtml_parser>
class parser_on {
 public:
  explicit parser_on(ustring_view text)
      : buffer_(ustring(text)), input_(&buffer_), parser_(&input_) {
    parser_.messages = &messages_;
    parser_.message_mask = 15;
  }

  Parser* operator->() { return &parser_; }
  Parser& operator*() { return parser_; }

  std::string messages() const { return printable(messages_.str()); }

  /// Consumes and returns the rest of the input.
  std::string rest() {
    ustring units;
    unit_input input(&buffer_);
    for (; !input.at_end(); input.advance()) units += input.peek();
    return printable(units);
  }

 private:
  std::basic_stringbuf<char16> buffer_;
  std::basic_istream<char16> input_;
  ustring_stream messages_;
  Parser parser_;
};

/// Deletes what a reader returned and shows it: a node as outline_of_one does, an end tag as its
/// text, "null", or "none" for a node of no kind.
inline std::string shown(xhtml_markup* node) {
  const std::unique_ptr<xhtml_markup> owned(node);
  if (node == nullptr) return "null";
  if (node->is_end_tag()) return printable(node->tag_name());
  return node->node_kind() == 0 ? "none" : outline_of_one(*node);
}

}  // namespace test

#endif
