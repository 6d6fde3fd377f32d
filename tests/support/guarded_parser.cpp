#include "tests/support/guarded_parser.h"

#include <istream>
#include <memory>
#include <sstream>
#include <vector>

#include "tests/support/counting_end_buffer.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/stream/byte_order.h"
#include "xport/stylesheet/stylesheet_reader.h"

namespace test {

namespace {

// A text that is done with has been looked at behind its end a few times only.
constexpr std::size_t most_looks = 1000;

// What a stylesheet is read from: the text behind a byte-order mark.
Xport::ustring ordered(Xport::ustring_view text) {
  std::basic_istream<Xport::char16>* stream =
      new std::basic_istringstream<Xport::char16>(Xport::ustring(text));
  Xport::detect_byte_order(stream, true);
  const std::unique_ptr<std::basic_istream<Xport::char16>> owner(stream);
  Xport::ustring rest;
  for (Xport::unit_input in(stream->rdbuf()); !in.at_end(); in.advance()) rest += in.peek();
  return rest;
}

}  // namespace

bool is_endless_stylesheet(Xport::ustring_view text) {
  counting_end_buffer buffer(ordered(text), most_looks);
  std::basic_istream<Xport::char16> stream(&buffer);
  std::vector<std::unique_ptr<Xport::xhtml_stylesheet_item>> items;
  try {
    Xport::read_stylesheet(stream, items);
    return false;
  } catch (const looked_too_often&) {
    return true;
  }
}

// The text is read as that of an element without rules of its own. Then the reader of
// `style` is given it as what was taken already, and finds no more of it.
Xport::xhtml_markup* guarded_parser::read_pcdata(Xport::xhtml_markup* parent,
                                                 const Xport::ustring& prefix) {
  if (parent->tag() != Xport::tag_id::style) return xhtml_parser::read_pcdata(parent, prefix);
  Xport::ustring start = prefix;
  if (start.empty()) {
    if (skip_leading_space()) start = u' ';
    const Xport::char16 unit = Xport::unit_input(input->rdbuf()).peek();
    if (start.empty() && (unit == u'<' || unit == Xport::end_unit)) {
      last_tag = Xport::tag_id::invalid_tag;
      return read_next(parent);
    }
  }
  Xport::xhtml_element plain(Xport::tag_id::span, {}, {});
  const bool normalizes = normalize_text;
  normalize_text = false;
  Xport::xhtml_markup* const node = xhtml_parser::read_pcdata(&plain, start);
  normalize_text = normalizes;
  const Xport::ustring text(node->as_text()->text());
  delete node;
  if (!is_endless_stylesheet(text)) return xhtml_parser::read_pcdata(parent, text);
  met_endless_ = true;
  return new Xport::xhtml_pcdata(text);
}

}  // namespace test
