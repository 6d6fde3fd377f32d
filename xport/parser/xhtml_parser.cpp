#include "xport/parser/xhtml_parser.h"

#include <typeinfo>

#include "xport/markup/leaf_nodes.h"
#include "xport/parser/plain_reader.h"
#include "xport/vocabulary/tag_table.h"

namespace Xport {

namespace {

bool takes_content(const xhtml_markup& node) {
  if (node.is_own_class()) {
    const xhtml_element* const element = node.as_element();
    return element != nullptr && element->rules().id != tag_id::invalid_tag &&
           !takes_nothing(element->rules());
  }
  return !node.is_empty_element() && node.tag() != tag_id::invalid_tag &&
         node.category_flags() != category_text;
}

}  // namespace

xhtml_parser::~xhtml_parser() {
  if (owns_input) delete input;
}

xhtml_markup* xhtml_parser::parse_children(xhtml_markup* parent) {
  if (!takes_content(*parent)) return nullptr;
  const operation_classes scope(classes_);
  const bool own = is_exactly(*this, typeid(xhtml_parser)) && parent->is_own_class();
  return own ? fill(*parent->as_element()) : fill_by_calls(*parent);
}

// Calls parse_children for each element that is adopted. `current` is the node that is to be
// placed; while it is null, the next one has yet to be read.
xhtml_markup* xhtml_parser::fill_by_calls(xhtml_markup& parent) {
  held_node current(read_next(&parent));
  while (current != nullptr) {
    xhtml_markup* child = nullptr;
    const bool finished =
        current->is_end_tag() ? close(parent, current) : adopt(parent, current, child, false);
    if (finished) break;
    if (child != nullptr) current.reset(parse_children(child));
    if (current == nullptr) current.reset(read_next(&parent));
  }
  return current.release();
}

// fill_by_calls() for a parser and a receiver of our own classes. Fills all open elements in
// one call, so that a deep page takes no machine stack, and makes nodes in the tree's own
// memory. `parent` is the innermost open element; the others are its parents up to `receiver`,
// so the tree itself is the stack.
xhtml_markup* xhtml_parser::fill(xhtml_element& receiver) {
  const node_place content(receiver);
  plain_reader plain(*this, receiver, content);
  xhtml_element* parent = &receiver;
  const auto go_up = [&parent] {
    parent = const_cast<xhtml_element*>(parent->parent()->as_element());
  };
  const auto next_node = [&] {
    const place_scope scope(*this, content);
    return xhtml_parser::read_next(parent);
  };
  held_node current(next_node());
  while (true) {
    xhtml_markup* child = nullptr;
    const bool finished =
        current == nullptr ||
        (current->type() == node_type::none && current->is_end_tag()
             ? close(*parent, current)
             : adopt(*parent, current, child, parent == &receiver && content.pool() != nullptr));
    if (finished) {
      if (parent == &receiver) return current.release();
      go_up();
    } else if (child != nullptr && takes_content(*child)) {
      parent = child->as_element();
    }
    if (current == nullptr) {
      parent = plain.read(parent);
      current.reset(next_node());
    }
  }
}

// Offers `current` to `parent`. If `parent` adopts it, `child` points to it. Returns true if
// the node ends `parent`; the caller then offers it to the parent of `parent`. With
// `leaves_pool`, such a node is moved to the heap before code outside the tree sees it.
bool xhtml_parser::adopt(xhtml_markup& parent, held_node& current, xhtml_markup*& child,
                         bool leaves_pool) {
  if (reports(level_trace_elements) &&
      current->node_kind() == static_cast<std::int32_t>(node_type::element))
    report_encounter(*current, level_trace_elements);
  xhtml_markup* const adopted = parent.adopt_child(current.get()).cell();
  if (adopted != nullptr) current.release();
  if (tag_of(parent) == tag_id::pre) {
    // read_preformatted has consumed the end tag.
    current.reset(new xhtml_end_tag(u"<pre>"));
    return false;
  }
  child = adopted;
  if (adopted != nullptr) return false;
  bool passes_up = false;
  if (current->tag() != tag_id::invalid_tag) {
    const xhtml_markup* const above = parent.parent();
    if (above != nullptr && leaves_pool) current.reset(node_place().make_copy(*current));
    passes_up = above != nullptr && above->can_contain(*current);
    report_refusal(parent, *current, passes_up);
  }
  if (!passes_up) current.reset();
  return passes_up;
}

// Handles the end tag `current`. Returns true if it ends `parent`. `current` is then null if
// it is the tag of `parent`, and stays if it is the tag of the parent above.
bool xhtml_parser::close(xhtml_markup& parent, held_node& current) {
  report_encounter(*current, level_trace_end_tags);
  trim_last_text(parent);
  if (is_matching_end_tag(&parent, current.get())) {
    current.reset();
    return true;
  }
  const xhtml_markup* const above = parent.parent();
  const bool passes_up = above != nullptr && above->tag() == current->tag();
  report_mismatch(parent, *current, passes_up);
  if (!passes_up) current.reset();
  return passes_up;
}

bool xhtml_parser::is_matching_end_tag(const xhtml_markup* parent, const xhtml_markup* node) {
  return node->is_end_tag() && node->tag() == parent->tag();
}

void xhtml_parser::trim_last_text(xhtml_markup& parent) {
  xhtml_markup* const last = parent.last_child();
  if (last == nullptr || tag_of(parent) == tag_id::style) return;
  if (!last->is_own_class()) {
    if (last->category_flags() == category_text) last->trim_trailing_space();
  } else if (last->type() == node_type::pcdata) {
    last->as_text()->trim_right(*classes_);
  }
}

xhtml_markup* xhtml_parser::read_next(xhtml_markup* parent) {
  if (input == nullptr || !input->good()) return nullptr;
  const char16 unit = units().peek();
  if (unit == end_unit) return nullptr;
  if (unit == u'<' && tag_of(*parent) != tag_id::pre) return read_markup(parent);
  return read_pcdata(parent, {});
}

}  // namespace Xport
