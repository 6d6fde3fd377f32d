#include "xport/markup/xhtml_element.h"

#include <algorithm>
#include <new>
#include <stdexcept>
#include <vector>

#include "xport/markup/containment.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/markup/make_node.h"
#include "xport/markup/xhtml_writer.h"

namespace Xport {

xhtml_element::xhtml_element(tag_id tag, ustring_view id, ustring_view class_name)
    : xhtml_element(tag, id, class_name, nullptr) {}

xhtml_element::xhtml_element(tag_id tag, ustring_view id, ustring_view class_name, node_pool* pool)
    : xhtml_markup(node_type::element, sizeof(xhtml_element)),
      trait_(tag_table[tag]),
      attributes_(pool),
      style_(pool) {
  if (!id.empty()) xhtml_element::set_attribute(attr_id::id, id);
  if (!class_name.empty()) xhtml_element::set_attribute(attr_id::class_, class_name);
}

xhtml_element::xhtml_element(const Tag_trait& record, const place& where)
    : xhtml_markup(node_type::element, sizeof(xhtml_element)),
      trait_(&record),
      attributes_(where.parent.pool()),
      style_(where.parent.pool()) {
  parent_ = &where.parent;
  in_pool_ = pool() != nullptr;
}

xhtml_element::xhtml_element(const xhtml_element& other, on_heap)
    : xhtml_markup(other, sizeof(xhtml_element)),
      trait_(other.trait_),
      attributes_(other.attributes_),
      style_(other.style_) {}

xhtml_element::xhtml_element(const xhtml_element& other) : xhtml_element(other, on_heap()) {
  copy_children(other);
}

xhtml_element::xhtml_element(const xhtml_element& other, const place& where)
    : xhtml_markup(other, sizeof(xhtml_element)),
      trait_(other.trait_),
      attributes_(other.attributes_, where.parent.pool()),
      style_(other.style_, where.parent.pool()) {
  parent_ = &where.parent;
  in_pool_ = pool() != nullptr;
}

xhtml_element::~xhtml_element() { clear_children(); }

// Goes down to a leaf, takes it away, and goes on beside or above it; so a parent
// is a leaf by the time it goes.
void xhtml_element::clear_children() noexcept {
  xhtml_element* parent = this;
  while (true) {
    xhtml_markup* const node = parent->first_child_;
    if (node == nullptr) {
      if (parent == this) return;
      parent = static_cast<xhtml_element*>(parent->parent_);
      xhtml_markup* const emptied = parent->first_child_;
      parent->first_child_ = emptied->next_;
      dispose(emptied, parent->pool());
    } else if (node->type_ == node_type::element &&
               static_cast<xhtml_element*>(node)->first_child_ != nullptr) {
      parent = static_cast<xhtml_element*>(node);
    } else {
      parent->first_child_ = node->next_;
      dispose(node, parent->pool());
    }
  }
}

markup_iterator xhtml_element::adopt_child(xhtml_markup* node) {
  if (node == nullptr || !can_contain(*node)) return end();
  if (pool() != nullptr && !node->in_pool_) pool()->note_adopted();
  link(node, nullptr);
  return markup_iterator(node, this);
}

void xhtml_element::insert_range(const_markup_iterator position, const_markup_iterator first,
                                 const_markup_iterator last) {
  if (first.owner() != last.owner()) return;
  std::vector<const xhtml_markup*> nodes;
  for (; first != last && first.cell() != nullptr; ++first) nodes.push_back(first.cell());
  for (const xhtml_markup* node : nodes) position = ++insert_copy(position, *node);
}

void xhtml_element::insert_copies(const_markup_iterator position, std::size_t count,
                                  const xhtml_markup& node) {
  for (; count != 0; --count) position = ++insert_copy(position, node);
}

markup_iterator xhtml_element::insert_text(const_markup_iterator position, ustring_view text) {
  if (!takes_text(rules()) || !has_position(position)) return end();
  xhtml_markup* const node = make_leaf<xhtml_pcdata>(text);
  link(node, position.cell());
  return markup_iterator(node, this);
}

markup_iterator xhtml_element::insert_copy(const_markup_iterator position,
                                           const xhtml_markup& node) {
  if (!can_contain(node) || !has_position(position) || !keeps_order(position, node.tag()))
    return end();
  xhtml_markup* const copy = copy_tree(node);
  link(copy, position.cell());
  return markup_iterator(copy, this);
}

markup_iterator xhtml_element::append_element(tag_id tag) {
  const Tag_trait* const record = tag_table[tag];
  if (record == nullptr || !takes_element(rules(), *record) || !keeps_order(end(), tag))
    return end();
  xhtml_element* const node =
      make_node<xhtml_element>(sizeof(xhtml_element), *record, place{*this});
  link(node, nullptr);
  return markup_iterator(node, this);
}

markup_iterator append_element(xhtml_markup& parent, tag_id tag) {
  return parent.type() == node_type::element
             ? static_cast<xhtml_element&>(parent).append_element(tag)
             : parent.end();
}

markup_iterator xhtml_element::append_text(ustring_view text) { return insert_text(end(), text); }

markup_iterator xhtml_element::append_copy(const xhtml_markup& node) {
  return insert_copy(end(), node);
}

xhtml_markup& xhtml_element::operator<<(const xhtml_markup& node) {
  append_copy(node);
  return *this;
}

xhtml_markup& xhtml_element::operator<<(ustring_view text) {
  append_text(text);
  return *this;
}

markup_iterator xhtml_element::push_back_text(ustring_view text) { return append_text(text); }

markup_iterator xhtml_element::push_back_copy(const xhtml_markup& node) {
  return append_copy(node);
}

markup_iterator xhtml_element::push_front_text(ustring_view text) {
  return insert_text(begin(), text);
}

markup_iterator xhtml_element::push_front_copy(const xhtml_markup& node) {
  return insert_copy(begin(), node);
}

bool xhtml_element::set_attribute(attr_id attribute, ustring_view value) {
  if (!rules().allowed_attributes.contains(attribute)) return false;
  attributes_.insert_or_assign(attribute, value);
  return true;
}

ustring xhtml_element::get_attribute(attr_id attribute) const {
  return ustring(attributes_[attribute]);
}

bool xhtml_element::set_style(css_property_id property, ustring_view value) {
  if (trait_.get() == nullptr) return false;
  style_.insert_or_assign(property, value);
  return true;
}

ustring xhtml_element::get_style(css_property_id property) const {
  return ustring(style_[property]);
}

void xhtml_element::write(xhtml_writer& writer) const { writer.write(*this); }

bool xhtml_element::accepts_text() const { return takes_text(rules()); }

xhtml_markup* xhtml_element::clone() const { return new xhtml_element(*this); }

bool xhtml_element::is_empty_element() const { return takes_nothing(rules()); }

ustring xhtml_element::end_tag_text() const {
  if (trait_.get() == nullptr) throw std::domain_error("pTag_trait invlaid");
  if (takes_nothing(rules())) return {};
  ustring text(u"</");
  text += rules().name;
  text += u'>';
  return text;
}

bool xhtml_element::can_contain(const xhtml_markup& node) const {
  switch (node.type()) {
    case node_type::pcdata:
      return takes_text(rules());
    case node_type::comment:
    case node_type::processing_instruction:
      return true;
    case node_type::doctype:
      return rules().id == tag_id::doc_root;
    case node_type::element:
      return takes_element(rules(), static_cast<const xhtml_element&>(node).rules());
    case node_type::none:
      return false;
  }
  return false;
}

bool xhtml_element::has_position(const const_markup_iterator& position) const {
  return position.owner() == this &&
         (position.cell() == nullptr || position.cell()->parent_ == this);
}

bool xhtml_element::has_child(tag_id tag) const {
  return std::any_of(begin(), end(),
                     [tag](const xhtml_markup& child) { return child.tag() == tag; });
}

// The few rules of order that are held: one `head` before one `body` in `html`,
// one `title` in `head`.
bool xhtml_element::keeps_order(const const_markup_iterator& position, tag_id child) const {
  const tag_id parent = rules().id;
  if (parent != tag_id::html && parent != tag_id::head) return true;
  const auto is = [](tag_id tag) {
    return [tag](const xhtml_markup& sibling) { return sibling.tag() == tag; };
  };
  if (parent == tag_id::head) return child != tag_id::title || !has_child(tag_id::title);
  if (child == tag_id::body)
    return !has_child(tag_id::body) && std::none_of(position, end(), is(tag_id::head));
  if (child == tag_id::head)
    return !has_child(tag_id::head) && std::none_of(begin(), position, is(tag_id::body));
  return true;
}

// Links `node` in front of `before`, behind the last child if that is null.
void xhtml_element::link(xhtml_markup* node, const xhtml_markup* before) noexcept {
  node->parent_ = this;
  if (first_child_ == nullptr) {
    node->next_ = nullptr;
    node->previous_ = node;
    first_child_ = node;
  } else if (before == nullptr) {
    xhtml_markup* const last = first_child_->previous_;
    node->next_ = nullptr;
    node->previous_ = last;
    last->next_ = node;
    first_child_->previous_ = node;
  } else {
    xhtml_markup* const behind = const_cast<xhtml_markup*>(before);
    node->next_ = behind;
    node->previous_ = behind->previous_;
    (behind == first_child_ ? first_child_ : behind->previous_->next_) = node;
    behind->previous_ = node;
  }
}

// A copy of `node` without its children, made below this element and not yet
// linked.
xhtml_markup* xhtml_element::copy_node(const xhtml_markup& node) {
  const auto text = [&node] { return static_cast<const text_leaf&>(node).text(); };
  switch (node.type_) {
    case node_type::element:
      return make_node<xhtml_element>(sizeof(xhtml_element),
                                      static_cast<const xhtml_element&>(node), place{*this});
    case node_type::pcdata:
      return make_leaf<xhtml_pcdata>(text());
    case node_type::comment:
      return make_leaf<xhtml_comment>(text());
    case node_type::processing_instruction:
      return make_leaf<xhtml_processing_instruction>(text());
    case node_type::doctype:
      return make_leaf<xhtml_doctype_declaration>(text());
    case node_type::none:
      break;
  }
  return nullptr;
}

xhtml_markup* xhtml_element::copy_tree(const xhtml_markup& node) {
  xhtml_markup* const copy = copy_node(node);
  if (node.type_ != node_type::element) return copy;
  try {
    static_cast<xhtml_element*>(copy)->copy_children(static_cast<const xhtml_element&>(node));
  } catch (...) {
    dispose(copy, pool());
    throw;
  }
  return copy;
}

// Walks the source by its own links, with `into` at the same place in the copy.
void xhtml_element::copy_children(const xhtml_element& source) {
  xhtml_element* into = this;
  const xhtml_markup* from = source.first_child_;
  while (from != nullptr) {
    xhtml_markup* const copy = into->copy_node(*from);
    into->link(copy, nullptr);
    if (from->type_ == node_type::element &&
        static_cast<const xhtml_element*>(from)->first_child_ != nullptr) {
      from = static_cast<const xhtml_element*>(from)->first_child_;
      into = static_cast<xhtml_element*>(copy);
      continue;
    }
    while (from->next_ == nullptr && from->parent_ != &source) {
      from = from->parent_;
      into = static_cast<xhtml_element*>(into->parent_);
    }
    from = from->next_;
  }
}

void xhtml_element::dispose(xhtml_markup* node, node_pool* pool) noexcept {
  if (!node->in_pool_) {
    delete node;
    return;
  }
  const std::size_t bytes = node->granules_ * node_pool::granule;
  node->~xhtml_markup();
  pool->release(node, bytes);
}

}  // namespace Xport
