#include "tests/parser/parse_kit.h"

#include <istream>
#include <sstream>

#include "tests/support/derived_nodes.h"
#include "tests/support/tree_check.h"
#include "tests/support/unit_buffers.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/stream/ustring_stream.h"

namespace test {
namespace {

// The element at the end of `path` below `root`.
xhtml_markup* receiver_in(xhtml_markup& root, const std::vector<tag_id>& path) {
  xhtml_markup* receiver = &root;
  for (const tag_id tag : path) receiver = &*append_element(*receiver, tag);
  return receiver;
}

// The same, with an element of a derived class at the end of `path`.
xhtml_markup* derived_receiver_in(xhtml_markup& root, std::vector<tag_id> path) {
  const tag_id last = path.back();
  path.pop_back();
  xhtml_markup& parent = *receiver_in(root, path);
  return &*parent.append_copy(derived_element(last, {}, {}));
}

template <class Parser = xhtml_parser>
parse_result parse_with(xhtml_markup& root, xhtml_markup* receiver,
                        std::basic_streambuf<char16>& buffer, const parse_case& how) {
  std::basic_istream<char16> input(&buffer);
  ustring_stream messages;
  Parser parser(&input);
  parser.normalize_text = how.normalize_text;
  parser.message_mask = how.message_mask;
  parser.preserve_newlines = how.preserve_newlines;
  if (how.message_mask != 0) parser.messages = &messages;
  load_default_references(parser.references);
  rebuild_reference_indexes(parser);

  const std::unique_ptr<xhtml_markup> returned(parser.parse_children(receiver));
  EXPECT_TRUE(is_intact(root));
  parse_result result;
  result.children = outline_of_children(*receiver);
  if (returned) result.returned = printable(returned->tag_name());
  result.messages = printable(messages.str());
  result.line = parser.line;
  result.last_tag = parser.last_tag;
  unit_input rest(&buffer);
  for (; !rest.at_end(); rest.advance()) {
    const char16 unit = rest.peek();
    result.rest += printable({&unit, 1});
  }
  return result;
}

parse_result parse_into(xhtml_markup& root, std::basic_streambuf<char16>& buffer,
                        const parse_case& how) {
  return parse_with(root, receiver_in(root, how.path), buffer, how);
}

// A derived parser, or a derived receiver, recurses: its texts are of little depth.
constexpr std::size_t longest_for_derived = 10'000;

}  // namespace

parse_result parse(ustring_view text, const parse_case& how) {
  xhtml_doc doc(0);
  std::basic_stringbuf<char16> whole((ustring(text)));
  const parse_result result = parse_into(*doc.root(), whole, how);

  xhtml_doc other(0);
  const bool is_long = text.size() > 100'000;
  dribble_buffer pieces(text, is_long ? 1000 : 1);
  const parse_result dribbled = parse_into(*other.root(), pieces, how);
  EXPECT_EQ(result.children, dribbled.children) << "in pieces";
  EXPECT_EQ(result.messages, dribbled.messages) << "in pieces";
  EXPECT_EQ(result, dribbled) << "in pieces";
  if (is_long) return result;

  xhtml_element root(tag_id::doc_root, {}, {});
  dribble_buffer few(text, 3);
  EXPECT_EQ(result, parse_into(root, few, how)) << "into an element on the heap";

  xhtml_element last(tag_id::doc_root, {}, {});
  unbuffered_buffer unbuffered((ustring(text)));
  EXPECT_EQ(result, parse_into(last, unbuffered, how)) << "with no unit at hand";
  if (text.size() > longest_for_derived) return result;

  xhtml_doc by_calls(0);
  dribble_buffer some(text, 5);
  xhtml_markup* const receiver = receiver_in(*by_calls.root(), how.path);
  EXPECT_EQ(result, parse_with<derived_parser>(*by_calls.root(), receiver, some, how))
      << "by a derived parser";

  if (how.path.empty()) return result;
  xhtml_doc with_derived(0);
  dribble_buffer again(text, 5);
  xhtml_markup* const derived = derived_receiver_in(*with_derived.root(), how.path);
  EXPECT_EQ(result, parse_with(*with_derived.root(), derived, again, how))
      << "into a derived element";
  return result;
}

std::string in_div(ustring_view text) { return parse(text).children; }

std::string in_p(ustring_view text) {
  parse_case how;
  how.path = {tag_id::html, tag_id::body, tag_id::p};
  return parse(text, how).children;
}

std::string in_body(ustring_view text) {
  parse_case how;
  how.path = {tag_id::html, tag_id::body};
  return parse(text, how).children;
}

std::string in_root(ustring_view text) {
  parse_case how;
  how.path = {};
  return parse(text, how).children;
}

std::string messages_of(ustring_view text, std::uint32_t mask, const std::vector<tag_id>& path) {
  parse_case how;
  how.message_mask = mask;
  how.path = path;
  return parse(text, how).messages;
}

std::string message(unsigned line, const std::string& text) {
  return "line #" + std::to_string(line) + ":\n" + text + "\n";
}

}  // namespace test
