#include "fuzz/report/plain_template.h"

#include <sstream>

#include "tests/support/guarded_parser.h"
#include "tests/support/text.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/parser/read_document.h"

namespace test {

namespace {

using Xport::tag_id;
using Xport::ustring;
using Xport::xhtml_markup;

using piece = std::vector<const xhtml_markup*>;

const xhtml_markup* first_child(const xhtml_markup& node) { return node.begin().cell(); }

bool is_marker(const xhtml_markup& node) {
  return node.get_attribute(Xport::attr_id::id) == u"Template" && first_child(node) != nullptr;
}

bool has_endless_style(const xhtml_markup& node) {
  for (const xhtml_markup& child : node) {
    if (node.tag() == tag_id::style && child.type() == Xport::node_type::pcdata &&
        is_endless_stylesheet(written(child)))
      return true;
    if (has_endless_style(child)) return true;
  }
  return false;
}

void collect_fields(const xhtml_markup& node, std::vector<ustring>& fields) {
  if (is_marker(node)) fields.push_back(written(*first_child(node)));
  for (const xhtml_markup& child : node) collect_fields(child, fields);
}

const xhtml_markup* find_body(const xhtml_markup& node) {
  if (node.tag() == tag_id::body) return &node;
  for (const xhtml_markup& child : node)
    if (const xhtml_markup* const found = find_body(child)) return found;
  return nullptr;
}

std::vector<piece> cut(const xhtml_markup& body, const std::vector<ustring>& fields) {
  std::vector<piece> pieces(1);
  for (const xhtml_markup& block : body) {
    if (block.type() != Xport::node_type::element) continue;
    const xhtml_markup* const marker = block.tag() == tag_id::p ? first_child(block) : nullptr;
    const std::size_t cuts = pieces.size() - 1;
    if (marker != nullptr && is_marker(*marker) && cuts < fields.size() &&
        written(*first_child(*marker)) == fields[cuts])
      pieces.emplace_back();
    else
      pieces.back().push_back(&block);
  }
  return pieces;
}

// The content of a page's body that consists of these nodes and an empty block.
ustring text_of(const piece& nodes) {
  Xport::xhtml_doc doc(1);
  for (const xhtml_markup* const node : nodes) doc.body()->append_copy(*node);
  append_element(*doc.body(), tag_id::p);
  const ustring page = written(*doc.root());
  const Xport::ustring_view open = u"  <body>\n";
  const std::size_t from = page.find(open) + open.size();
  return page.substr(from, page.size() - page_end.size() - from);
}

}  // namespace

plain_template::plain_template(const ustring& page) {
  std::basic_istringstream<Xport::char16> stream(page);
  Xport::xhtml_doc doc(0);
  guarded_parser parser(&stream);
  parse_page(parser, *doc.root());
  is_endless = has_endless_style(*doc.root());
  collect_fields(*doc.root(), fields);
  const xhtml_markup* const body = find_body(*doc.root());
  if (body == nullptr) return;
  for (const piece& each : cut(*body, fields)) pieces.push_back(text_of(each));
}

ustring empty_block() { return u"    <p>\n    </p>\n"; }

}  // namespace test
