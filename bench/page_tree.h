#ifndef BENCH_PAGE_TREE_H
#define BENCH_PAGE_TREE_H

#include "bench/workload.h"

namespace bench {

/// Builds the tree of a page below `html` through the calls of an XML library: `to` has
/// add(parent, name), which returns the new element, text(parent, text) and
/// attribute(element, name, value).
template <typename node, typename library>
void build_page(const library& to, node html, const workload& work) {
  const node head = to.add(html, "head");
  to.text(to.add(head, "title"), page_title);
  const node style = to.add(head, "style");
  to.attribute(style, "type", "text/css");
  to.text(style, page_stylesheet);
  const node body = to.add(html, "body");
  const node heading = to.add(body, "h1");
  to.attribute(heading, "class", "Style1");
  to.text(heading, page_heading);
  const node block = to.add(body, "p");
  if (work.kind() == page_kind::table) {
    const node table = to.add(body, "table");
    to.attribute(table, "border", "1");
    to.attribute(table, "class", "main");
    to.attribute(table, "width", "100%");
    node row = table;
    for (std::size_t item = 0; item < work.items(); ++item) {
      if (item % table_columns == 0) row = to.add(table, "tr");
      const node cell = to.add(row, "td");
      to.attribute(cell, "valign", "top");
      to.text(cell, work.narrow(item));
    }
    to.add(body, "p");
  } else {
    for (std::size_t item = 0; item < work.items(); ++item) {
      to.text(to.add(block, "a"), work.narrow(item));
      to.add(block, "br");
    }
  }
  to.add(body, "p");
}

/// What a doctype declaration holds: the name and the identifiers.
inline std::string doctype_text() {
  return std::string(doctype_name) + " PUBLIC \"" + doctype_public_id + "\" \"" +
         doctype_system_id + "\"";
}

}  // namespace bench

#endif
