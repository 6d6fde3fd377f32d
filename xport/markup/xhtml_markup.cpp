#include "xport/markup/xhtml_markup.h"

#include "xport/markup/xhtml_element.h"

namespace Xport {

namespace {

// What the end of a list and an invalid position lead to. It has nothing that
// could be changed, so that all threads may share it.
const xhtml_markup& no_node() {
  static const xhtml_markup node;
  return node;
}

const xhtml_markup* first_child(const xhtml_markup& node) {
  return node.type() == node_type::element ? static_cast<const xhtml_element&>(node).first_child()
                                           : nullptr;
}

}  // namespace

const xhtml_markup& const_markup_iterator::operator*() const {
  return cell_ != nullptr ? *cell_ : no_node();
}

const_markup_iterator& const_markup_iterator::operator++() {
  forward();
  return *this;
}

const_markup_iterator const_markup_iterator::operator++(int) {
  const_markup_iterator before(*this);
  forward();
  return before;
}

const_markup_iterator& const_markup_iterator::operator--() {
  backward();
  return *this;
}

const_markup_iterator const_markup_iterator::operator--(int) {
  const_markup_iterator before(*this);
  backward();
  return before;
}

void const_markup_iterator::forward() {
  if (owner_ != nullptr) cell_ = cell_ != nullptr ? cell_->next_ : first_child(*owner_);
}

void const_markup_iterator::backward() {
  if (owner_ == nullptr) return;
  const xhtml_markup* const first = first_child(*owner_);
  if (cell_ == nullptr)
    cell_ = first != nullptr ? first->previous_ : nullptr;
  else
    cell_ = cell_ != first ? cell_->previous_ : nullptr;
}

xhtml_markup::xhtml_markup() : xhtml_markup(node_type::none, sizeof(xhtml_markup)) {}

xhtml_markup::xhtml_markup(const xhtml_markup& other) : xhtml_markup() { parent_ = other.parent_; }

xhtml_markup::xhtml_markup(node_type type, std::size_t bytes)
    : type_(type),
      granules_(static_cast<std::uint16_t>(node_pool::round_up(bytes) / node_pool::granule)) {}

xhtml_markup::xhtml_markup(const xhtml_markup& other, std::size_t bytes)
    : parent_(other.parent_),
      type_(other.type_),
      granules_(static_cast<std::uint16_t>(node_pool::round_up(bytes) / node_pool::granule)) {}

xhtml_markup::~xhtml_markup() = default;

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

markup_iterator xhtml_markup::begin() {
  return markup_iterator(const_cast<xhtml_markup*>(first_child(*this)), this);
}

const_markup_iterator xhtml_markup::begin() const {
  return const_markup_iterator(first_child(*this), this);
}

}  // namespace Xport
