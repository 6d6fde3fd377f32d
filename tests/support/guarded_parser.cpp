#include "tests/support/guarded_parser.h"

#include <istream>
#include <memory>
#include <sstream>
#include <vector>

#include "tests/support/unit_buffers.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/stream/byte_order.h"
#include "xport/stylesheet/stylesheet_reader.h"

namespace test {
namespace {

// A reader that ends looks at the end of its text a few times only.
constexpr std::size_t most_looks = 1000;

// What a stylesheet is read from: the text after a byte-order mark.
ustring ordered(ustring_view text) {
  std::basic_istream<char16>* stream = new std::basic_istringstream<char16>(ustring(text));
  detect_byte_order(stream, true);
  const std::unique_ptr<std::basic_istream<char16>> owner(stream);
  ustring rest;
  for (unit_input in(stream->rdbuf()); !in.at_end(); in.advance()) rest += in.peek();
  return rest;
}

}  // namespace

bool is_endless_stylesheet(ustring_view text) {
  counting_end_buffer buffer(ordered(text), most_looks);
  std::basic_istream<char16> stream(&buffer);
  std::vector<std::unique_ptr<xhtml_stylesheet_item>> items;
  try {
    read_stylesheet(stream, items);
    return false;
  } catch (const looked_too_often&) {
    return true;
  }
}

// The text is read as that of an element without rules of its own. Then it is passed to the
// reader of `style` as a prefix, which finds no more text.
xhtml_markup* guarded_parser::read_pcdata(xhtml_markup* parent, const ustring& prefix) {
  if (parent->tag() != tag_id::style) return xhtml_parser::read_pcdata(parent, prefix);
  ustring start = prefix;
  if (start.empty()) {
    if (skip_leading_space()) start = u' ';
    const char16 unit = unit_input(input->rdbuf()).peek();
    if (start.empty() && (unit == u'<' || unit == end_unit)) {
      last_tag = tag_id::invalid_tag;
      return read_next(parent);
    }
  }
  xhtml_element plain(tag_id::span, {}, {});
  const bool normalizes = normalize_text;
  normalize_text = false;
  xhtml_markup* const node = xhtml_parser::read_pcdata(&plain, start);
  normalize_text = normalizes;
  const ustring text(node->as_text()->text());
  delete node;
  if (!is_endless_stylesheet(text)) return xhtml_parser::read_pcdata(parent, text);
  met_endless_ = true;
  return new xhtml_pcdata(text);
}

}  // namespace test
