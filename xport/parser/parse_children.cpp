#include <algorithm>
#include <typeinfo>

#include "xport/markup/containment.h"
#include "xport/markup/xhtml_end_tag.h"
#include "xport/parser/xhtml_parser.h"

namespace Xport {

namespace {

bool takes_content(const xhtml_markup& node) {
  if (node.type() == node_type::element) {
    const Tag_trait& rules = static_cast<const xhtml_element&>(node).rules();
    return rules.id != tag_id::invalid_tag && !takes_nothing(rules);
  }
  return !node.is_empty_element() && node.tag() != tag_id::invalid_tag &&
         node.category_flags() != category_text;
}

// For nodes of the tree that is being filled.
xhtml_markup* parent_of(const xhtml_markup& node) {
  return const_cast<xhtml_markup*>(node.parent());
}

}  // namespace

// Nodes are made where they were made before, once this is gone.
class xhtml_parser::tree_scope {
 public:
  explicit tree_scope(xhtml_parser& parser) : parser_(parser), before_(parser.nodes_) {}
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
  const tree_scope scope(*this);
  // What readers of a derived class make mustn't be passed by.
  const bool own_readers = typeid(*this) == typeid(xhtml_parser);
  xhtml_markup* parent = receiver;
  held_node current(read_child(parent));
  while (true) {
    const bool finished = current == nullptr || (current->is_end_tag() ? close(*parent, current)
                                                                       : place(parent, current));
    if (finished) {
      if (parent == receiver) return node_maker::move_to_heap(current.release());
      parent = parent_of(*parent);
    }
    while (own_readers && current == nullptr && parent != receiver && take_plain_end_tag(*parent))
      parent = parent_of(*parent);
    if (current == nullptr) current.reset(read_child(parent));
  }
}

// The next node, made where the content of `parent` lives: that is on the heap for an
// element from there, which a derived class may have put into a tree with a pool.
xhtml_markup* xhtml_parser::read_child(xhtml_markup* parent) {
  const bool is_element = parent->type() == node_type::element;
  nodes_ = node_maker(is_element ? static_cast<xhtml_element*>(parent) : nullptr);
  return read_next(parent);
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

// Takes the end tag of `parent` where it is next, spelled as the element's name is and
// whole in the input's window. That is how most elements end; it spares a node. False,
// with nothing taken, for all else.
bool xhtml_parser::take_plain_end_tag(xhtml_markup& parent) {
  if (parent.type() != node_type::element || reports(level_trace_end_tags) || !input->good())
    return false;
  const Tag_trait& rules = static_cast<xhtml_element&>(parent).rules();
  if (rules.id == tag_id::pre) return false;
  unit_input in = units();
  const ustring_view window = in.window();
  const std::size_t length = rules.name.size() + 3;
  if (window.size() < length || window[0] != u'<' || window[1] != u'/' ||
      window[length - 1] != u'>' ||
      !std::equal(rules.name.begin(), rules.name.end(), window.begin() + 2))
    return false;
  in.advance(length);
  last_tag = rules.id;
  trim_last_text(parent);
  return true;
}

void xhtml_parser::trim_last_text(xhtml_markup& parent) {
  if (parent.type() != node_type::element) return;
  xhtml_element& element = static_cast<xhtml_element&>(parent);
  xhtml_markup* const last = element.last_child();
  if (last != nullptr && last->type() == node_type::pcdata && element.rules().id != tag_id::style)
    static_cast<xhtml_pcdata*>(last)->trim_trailing_space(classes_);
}

}  // namespace Xport
