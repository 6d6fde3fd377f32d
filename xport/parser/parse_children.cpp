#include "xport/markup/xhtml_end_tag.h"
#include "xport/parser/xhtml_parser.h"

namespace Xport {

namespace {

bool takes_content(const xhtml_markup& node) {
  return !node.is_empty_element() && node.tag() != tag_id::invalid_tag &&
         node.category_flags() != category_text;
}

// For nodes of the tree that is being filled.
xhtml_markup* parent_of(const xhtml_markup& node) {
  return const_cast<xhtml_markup*>(node.parent());
}

}  // namespace

// Nodes are made for the tree of `receiver` while this lives.
class xhtml_parser::tree_scope {
 public:
  tree_scope(xhtml_parser& parser, xhtml_markup* receiver)
      : parser_(parser), before_(parser.nodes_) {
    if (receiver->type() == node_type::element)
      parser.nodes_ = node_maker(static_cast<xhtml_element*>(receiver));
  }
  tree_scope(const tree_scope&) = delete;
  tree_scope& operator=(const tree_scope&) = delete;
  ~tree_scope() { parser_.nodes_ = before_; }

 private:
  xhtml_parser& parser_;
  node_maker before_;
};

// `parent` is the innermost open element. Those above it are its parents up to
// `receiver`: the tree itself is the stack. The node in hand, `current`, is null where
// the next one has yet to be read, or the input has ended.
xhtml_markup* xhtml_parser::parse_children(xhtml_markup* receiver) {
  if (!takes_content(*receiver)) return nullptr;
  const tree_scope scope(*this, receiver);
  xhtml_markup* parent = receiver;
  held_node current(read_next(parent));
  while (true) {
    const bool finished = current == nullptr || (current->is_end_tag() ? close(*parent, current)
                                                                       : place(parent, current));
    if (finished) {
      if (parent == receiver) return node_maker::move_to_heap(current.release());
      parent = parent_of(*parent);
    }
    if (current == nullptr) current.reset(read_next(parent));
  }
}

// Puts `current` into `parent`, and goes down into it if it takes content. True if the
// node ends `parent`, whose own parent has to deal with it.
bool xhtml_parser::place(xhtml_markup*& parent, held_node& current) {
  if (current->type() == node_type::element) report_encounter(*current, level_trace_elements);
  const bool preformatted = parent->tag() == tag_id::pre;
  const bool adopted = parent->adopt_child(current.get()).cell() != nullptr;
  xhtml_markup* const node = adopted ? current.release() : current.get();
  if (preformatted) {
    // The reader of the text has used the end tag up.
    current.reset(new xhtml_end_tag(u"<pre>"));
    return false;
  }
  if (adopted) {
    if (takes_content(*node)) parent = node;
    return false;
  }
  bool passes_up = false;
  if (node->tag() != tag_id::invalid_tag) {
    const xhtml_markup* const above = parent->parent();
    passes_up = above != nullptr && above->can_contain(*node);
    report_refusal(*parent, *node, passes_up);
  }
  if (!passes_up) current.reset();
  return passes_up;
}

// Deals with an end tag. True if it ends `parent`: then none is left in hand if it is
// the tag of `parent`, and it stays if it is that of its parent.
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

void xhtml_parser::trim_last_text(xhtml_markup& parent) {
  if (parent.tag() == tag_id::style) return;
  markup_iterator last = parent.end();
  --last;
  if (last->type() == node_type::pcdata)
    static_cast<xhtml_pcdata&>(*last).trim_trailing_space(classes_);
}

}  // namespace Xport
