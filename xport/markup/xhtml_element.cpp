#include "xport/markup/xhtml_element.h"

#include <algorithm>
#include <memory>
#include <stdexcept>
#include <vector>

#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_writer.h"
#include "xport/vocabulary/tag_table.h"

namespace Xport {

xhtml_element::xhtml_element(tag_id tag, ustring_view id, ustring_view class_name)
    : xhtml_element(tag, id, class_name, nullptr) {}

xhtml_element::xhtml_element(tag_id tag, ustring_view id, ustring_view class_name, node_pool* pool)
    : xhtml_markup(node_type::element, sizeof(xhtml_element)), attributes_(pool), style_(pool) {
  set_trait(Tag_trait_handle(tag_table[tag]));
  if (!id.empty()) xhtml_element::set_attribute(attr_id::id, id);
  if (!class_name.empty()) xhtml_element::set_attribute(attr_id::class_, class_name);
}

xhtml_element::xhtml_element(const Tag_trait& record, const node_place& where)
    : xhtml_markup(node_type::element, sizeof(xhtml_element), where),
      attributes_(where.pool()),
      style_(where.pool()) {
  set_trait(Tag_trait_handle(&record));
}

xhtml_element::xhtml_element(const xhtml_element& other, const node_place& where)
    : xhtml_markup(node_type::element, sizeof(xhtml_element), where),
      attributes_(other.attributes_, where.pool()),
      style_(other.style_, where.pool()) {
  set_trait(other.trait_);
}

xhtml_element::xhtml_element(const xhtml_element& other, without_children)
    : xhtml_markup(other, sizeof(xhtml_element)),
      attributes_(other.attributes_),
      style_(other.style_) {
  set_trait(other.trait_);
}

// Delegates, so that an exception destroys the children that were already copied.
xhtml_element::xhtml_element(const xhtml_element& other)
    : xhtml_element(other, without_children()) {
  copy_children(other);
}

// Deleting children uses the pool, which is found through the attributes: children first.
xhtml_element::~xhtml_element() { delete_children(); }

void xhtml_element::clear_children() noexcept { delete_children(); }

// can_contain() for two classes of our own.
inline bool xhtml_element::takes(const xhtml_markup& node) const {
  switch (node.type()) {
    case node_type::pcdata:
      return takes_text(rules());
    case node_type::comment:
    case node_type::processing_instruction:
      return true;
    case node_type::doctype:
      return rules().id == tag_id::doc_root;
    case node_type::element:
      return takes_element(rules(), node.as_element()->rules());
    case node_type::none:
      return false;
  }
  return false;
}

// Nodes of derived classes may return anything, so the order of the calls matters.
bool xhtml_element::can_contain(const xhtml_markup& node) const {
  if (is_own_class() && node.is_own_class()) return takes(node);
  if (node.category_flags() == category_text) return accepts_text();
  const std::int32_t kind = node.node_kind();
  if (kind == static_cast<std::int32_t>(node_type::comment) ||
      kind == static_cast<std::int32_t>(node_type::processing_instruction))
    return true;
  if (tag() == tag_id::doc_root && kind == static_cast<std::int32_t>(node_type::doctype))
    return true;
  if (node.tag_trait() == nullptr) return false;
  return takes_element(rules(), node.tag(), node.category_flags());
}

// can_contain(), without a virtual call if both classes are our own.
inline bool xhtml_element::fits(const xhtml_markup& node) const {
  return is_own_class() && node.is_own_class() ? takes(node) : can_contain(node);
}

markup_iterator xhtml_element::adopt_child(xhtml_markup* node) {
  if (node == nullptr || !fits(*node)) return end();
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
  if (is_own_class()) return put_text(position, text);
  return accepts_text() ? insert_copy(position, xhtml_pcdata(text)) : end();
}

markup_iterator xhtml_element::insert_copy(const_markup_iterator position,
                                           const xhtml_markup& node) {
  if (!fits(node) || !has_position(position) || !keeps_order(tag_of(*this), position, node.tag()))
    return end();
  xhtml_markup* const copy = copy_tree(node);
  if (copy == nullptr) return end();
  link(copy, position.cell());
  return markup_iterator(copy, this);
}

// insert_text of our own class: makes the text in place.
markup_iterator xhtml_element::put_text(const const_markup_iterator& position, ustring_view text) {
  if (!takes_text(rules()) || !has_position(position)) return end();
  xhtml_markup* const node = node_place(*this).make_leaf<xhtml_pcdata>(text);
  link(node, position.cell());
  return markup_iterator(node, this);
}

markup_iterator xhtml_element::append_element(tag_id tag) {
  if (!is_own_class()) return append_copy(xhtml_element(tag, {}, {}));
  const Tag_trait* const record = tag_table[tag];
  if (record == nullptr || !takes_element(rules(), *record) || !keeps_order(rules().id, end(), tag))
    return end();
  xhtml_element* const node = node_place(*this).make<xhtml_element>(*record);
  link(node, nullptr);
  return markup_iterator(node, this);
}

markup_iterator append_element(xhtml_markup& parent, tag_id tag) {
  xhtml_element* const element = parent.as_element();
  return element != nullptr ? element->append_element(tag)
                            : parent.append_copy(xhtml_element(tag, {}, {}));
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
  if (is_own_class())
    put_text(end(), text);
  else if (accepts_text())
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

bool xhtml_element::has_position(const const_markup_iterator& position) const {
  return position.owner() == this &&
         (position.cell() == nullptr || position.cell()->parent_ == this);
}

bool xhtml_element::has_child(tag_id tag) const {
  return std::any_of(begin(), end(),
                     [tag](const xhtml_markup& child) { return child.tag() == tag; });
}

// The only rules of order: one `head` before one `body` in `html`, one `title` in `head`.
bool xhtml_element::keeps_order(tag_id parent, const const_markup_iterator& position,
                                tag_id child) const {
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

// A deep copy of `node`, not linked yet. Null if the clone() of a derived class returns null.
xhtml_markup* xhtml_element::copy_tree(const xhtml_markup& node) {
  if (!node.is_own_class()) return node.clone();
  std::unique_ptr<xhtml_markup> copy(node_place(*this).make_copy(node));
  copy->copy_children(node);
  return copy.release();
}

}  // namespace Xport
