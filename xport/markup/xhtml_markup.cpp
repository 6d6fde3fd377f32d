#include "xport/markup/xhtml_markup.h"

#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_element.h"

namespace Xport {

constinit const std::type_info* const xhtml_markup::own_classes[6] = {
    &typeid(void),          &typeid(xhtml_doctype_declaration),    &typeid(xhtml_element),
    &typeid(xhtml_comment), &typeid(xhtml_processing_instruction), &typeid(xhtml_pcdata)};

xhtml_markup::xhtml_markup() : xhtml_markup(node_type::none, sizeof(xhtml_markup)) {}

xhtml_markup::xhtml_markup(const xhtml_markup& other) : xhtml_markup() {
  parent_ = other.parent_;
  copy_children(other);
}

xhtml_markup::xhtml_markup(const xhtml_markup& other, std::size_t bytes)
    : xhtml_markup(other.type_, bytes) {
  parent_ = other.parent_;
}

xhtml_markup::~xhtml_markup() {
  if (!holds_text()) delete_children();
}

// A tree with nodes outside its pool must be visited before the pool is destroyed.
void xhtml_markup::note_heap_node() noexcept {
  xhtml_element* const element = as_element();
  if (element != nullptr && element->pool() != nullptr) element->pool()->note_heap_node();
}

// Walks the source along its own links; `into` is the node at the same place in the copy. All
// nodes of the copy are made in one place. A clone by a derived class includes the children.
void xhtml_markup::copy_children(const xhtml_markup& source) {
  xhtml_element* const element = as_element();
  const node_place where = element != nullptr ? node_place(*element) : node_place();
  xhtml_markup* into = this;
  const xhtml_markup* from = source.first_child();
  while (from != nullptr) {
    const bool own = from->is_own_class();
    xhtml_markup* const copy = own ? where.make_copy(*from) : from->clone();
    if (copy != nullptr) into->link(copy, nullptr);
    if (own && from->first_child() != nullptr) {
      from = from->first_child();
      into = copy;
      continue;
    }
    while (from->next_ == nullptr && from->parent_ != &source) {
      from = from->parent_;
      into = into->parent_;
    }
    from = from->next_;
  }
}

// Descends to a leaf, deletes it, and continues with its next sibling or else its parent. So
// each parent is a leaf when it is deleted. A node of a derived class deletes its own children.
void xhtml_markup::delete_children() noexcept {
  xhtml_markup* parent = this;
  while (true) {
    xhtml_markup* const node = parent->first_child_;
    if (node == nullptr) {
      if (parent == this) return;
      parent = parent->parent_;
      delete parent->take_first_child();
    } else if (node->first_child() != nullptr && node->is_own_class()) {
      parent = node;
    } else {
      delete parent->take_first_child();
    }
  }
}

// Keeps the list consistent, since the destructor of a derived class may read it.
xhtml_markup* xhtml_markup::take_first_child() noexcept {
  xhtml_markup* const taken = first_child_;
  first_child_ = taken->next_;
  if (first_child_ != nullptr) first_child_->previous_ = taken->previous_;
  return taken;
}

markup_iterator xhtml_markup::adopt_child(xhtml_markup*) { return end(); }

void xhtml_markup::insert_range(const_markup_iterator, const_markup_iterator,
                                const_markup_iterator) {}

void xhtml_markup::insert_copies(const_markup_iterator, std::size_t, const xhtml_markup&) {}

markup_iterator xhtml_markup::insert_text(const_markup_iterator, ustring_view) { return end(); }

markup_iterator xhtml_markup::insert_copy(const_markup_iterator, const xhtml_markup&) {
  return end();
}

markup_iterator xhtml_markup::append_text(ustring_view) { return end(); }

markup_iterator xhtml_markup::append_copy(const xhtml_markup&) { return end(); }

xhtml_markup& xhtml_markup::operator<<(const xhtml_markup&) { return *this; }

xhtml_markup& xhtml_markup::operator<<(ustring_view) { return *this; }

markup_iterator xhtml_markup::push_back_text(ustring_view) { return end(); }

markup_iterator xhtml_markup::push_back_copy(const xhtml_markup&) { return end(); }

markup_iterator xhtml_markup::push_front_text(ustring_view) { return end(); }

markup_iterator xhtml_markup::push_front_copy(const xhtml_markup&) { return end(); }

bool xhtml_markup::set_attribute(attr_id, ustring_view) { return false; }

ustring xhtml_markup::get_attribute(attr_id) const { return {}; }

const attribute_map* xhtml_markup::attributes() const { return nullptr; }

attribute_map* xhtml_markup::attributes() { return nullptr; }

std::int32_t xhtml_markup::node_kind() const { return static_cast<std::int32_t>(type_); }

bool xhtml_markup::set_style(css_property_id, ustring_view) { return false; }

ustring xhtml_markup::get_style(css_property_id) const { return {}; }

const style_map* xhtml_markup::style_properties() const { return nullptr; }

style_map* xhtml_markup::style_properties() { return nullptr; }

tag_id xhtml_markup::tag() const { return tag_id::invalid_tag; }

ustring xhtml_markup::tag_name() const { return {}; }

void xhtml_markup::write(xhtml_writer&) const {}

bool xhtml_markup::accepts_text() const { return false; }

std::uint32_t xhtml_markup::content_flags() const { return content_none; }

xhtml_markup* xhtml_markup::clone() const { return nullptr; }

bool xhtml_markup::is_empty_element() const { return false; }

ustring xhtml_markup::end_tag_text() const { return {}; }

const Tag_trait_handle* xhtml_markup::tag_trait() const { return nullptr; }

bool xhtml_markup::is_end_tag() const { return false; }

std::uint32_t xhtml_markup::category_flags() const { return category_none; }

void xhtml_markup::trim_trailing_space() {}

bool xhtml_markup::can_contain(const xhtml_markup&) const { return false; }

markup_iterator xhtml_markup::begin() { return markup_iterator(first_child(), this); }

const_markup_iterator xhtml_markup::begin() const {
  return const_markup_iterator(first_child(), this);
}

}  // namespace Xport
