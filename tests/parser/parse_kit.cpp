#include "tests/parser/parse_kit.h"

#include <istream>
#include <sstream>

#include "tests/support/derived_nodes.h"
#include "tests/support/dribble_buffer.h"
#include "tests/support/tree_check.h"
#include "tests/support/unit_buffers.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/stream/ustring_stream.h"

namespace test {

namespace {

using Xport::node_type;
using Xport::tag_id;
using Xport::xhtml_element;
using Xport::xhtml_markup;

std::string head_of(const xhtml_element& element) {
  std::string text = printable(element.tag_name());
  std::string attributes;
  for (const auto& [id, value] : *element.attributes())
    attributes += (attributes.empty() ? "" : " ") +
                  printable(Xport::xhtml_strict::attribute_name(id)) + "=\"" + printable(value) +
                  "\"";
  if (!attributes.empty()) text += "[" + attributes + "]";
  std::string style;
  for (const auto& [id, value] : *element.style_properties())
    style += printable(Xport::xhtml_strict::css_property_name(id)) + ":" + printable(value) + ";";
  if (!style.empty()) text += "{" + style + "}";
  return text;
}

std::string leaf_text(const xhtml_markup& node) {
  if (node.as_text() == nullptr) return printable(node.tag_name());
  const std::string text = printable(node.as_text()->text());
  switch (node.type()) {
    case node_type::doctype:
      return "!" + text + "!";
    case node_type::comment:
      return "#" + text + "#";
    case node_type::processing_instruction:
      return "?" + text + "?";
    default:
      return "'" + text + "'";
  }
}

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

template <class Parser = Xport::xhtml_parser>
parse_result parse_with(xhtml_markup& root, xhtml_markup* receiver,
                        std::basic_streambuf<Xport::char16>& buffer, const parse_case& how) {
  std::basic_istream<Xport::char16> input(&buffer);
  Xport::ustring_stream messages;
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
  result.children = outline_with_attributes(*receiver);
  if (returned) result.returned = printable(returned->tag_name());
  result.messages = printable(messages.str());
  result.line = parser.line;
  result.last_tag = parser.last_tag;
  Xport::unit_input rest(&buffer);
  for (; !rest.at_end(); rest.advance()) {
    const Xport::char16 unit = rest.peek();
    result.rest += printable({&unit, 1});
  }
  return result;
}

parse_result parse_into(xhtml_markup& root, std::basic_streambuf<Xport::char16>& buffer,
                        const parse_case& how) {
  return parse_with(root, receiver_in(root, how.path), buffer, how);
}

// A derived parser, or a derived receiver, recurses: its texts are of little depth.
constexpr std::size_t longest_for_derived = 10'000;

}  // namespace

std::string node_with_attributes(const xhtml_markup& node) {
  return node.type() == node_type::element ? head_of(*node.as_element()) : leaf_text(node);
}

std::string outline_with_attributes(const xhtml_markup& node) {
  std::string text;
  const xhtml_markup* parent = &node;
  Xport::const_markup_iterator at = node.begin();
  while (true) {
    if (at.cell() == nullptr) {
      if (parent == &node) return text;
      text += ")";
      at = ++Xport::const_markup_iterator(parent, parent->parent());
      parent = parent->parent();
      continue;
    }
    if (at != parent->begin()) text += " ";
    text += node_with_attributes(*at);
    if (at->begin().cell() == nullptr) {
      ++at;
      continue;
    }
    text += "(";
    parent = at.cell();
    at = parent->begin();
  }
}

parse_result parse(Xport::ustring_view text, const parse_case& how) {
  Xport::xhtml_doc doc(0);
  std::basic_stringbuf<Xport::char16> whole((Xport::ustring(text)));
  const parse_result result = parse_into(*doc.root(), whole, how);

  Xport::xhtml_doc other(0);
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
  unbuffered_buffer unbuffered((Xport::ustring(text)));
  EXPECT_EQ(result, parse_into(last, unbuffered, how)) << "with no unit at hand";
  if (text.size() > longest_for_derived) return result;

  Xport::xhtml_doc by_calls(0);
  dribble_buffer some(text, 5);
  xhtml_markup* const receiver = receiver_in(*by_calls.root(), how.path);
  EXPECT_EQ(result, parse_with<derived_parser>(*by_calls.root(), receiver, some, how))
      << "by a derived parser";

  if (how.path.empty()) return result;
  Xport::xhtml_doc with_derived(0);
  dribble_buffer again(text, 5);
  xhtml_markup* const derived = derived_receiver_in(*with_derived.root(), how.path);
  EXPECT_EQ(result, parse_with(*with_derived.root(), derived, again, how))
      << "into a derived element";
  return result;
}

std::string in_div(Xport::ustring_view text) { return parse(text).children; }

std::string in_p(Xport::ustring_view text) {
  parse_case how;
  how.path = {tag_id::html, tag_id::body, tag_id::p};
  return parse(text, how).children;
}

std::string in_body(Xport::ustring_view text) {
  parse_case how;
  how.path = {tag_id::html, tag_id::body};
  return parse(text, how).children;
}

std::string in_root(Xport::ustring_view text) {
  parse_case how;
  how.path = {};
  return parse(text, how).children;
}

std::string messages_of(Xport::ustring_view text, std::uint32_t mask,
                        const std::vector<tag_id>& path) {
  parse_case how;
  how.message_mask = mask;
  how.path = path;
  return parse(text, how).messages;
}

std::string message(unsigned line, const std::string& text) {
  return "line #" + std::to_string(line) + ":\n" + text + "\n";
}

}  // namespace test
