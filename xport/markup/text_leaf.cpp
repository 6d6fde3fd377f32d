#include "xport/markup/text_leaf.h"

#include <algorithm>
#include <limits>
#include <new>
#include <stdexcept>

#include "xport/markup/xhtml_element.h"

namespace Xport {

namespace {

std::size_t checked_size(std::size_t size) {
  if (size > std::numeric_limits<std::uint32_t>::max()) throw std::length_error("text too long");
  return size;
}

}  // namespace

text_leaf::text_leaf(node_type type, ustring_view text, const node_place& where)
    : xhtml_markup(type, std::max(where.bytes(), sizeof(text_leaf)), where) {
  static_assert(sizeof(text_leaf) == bytes_before_text + sizeof(inside_text_) + sizeof(std::size_t),
                "a text inside takes the last fields, without a gap");
  store(text);
}

text_leaf::text_leaf(const text_leaf& other) : xhtml_markup(other, sizeof(text_leaf)) {
  store(other.text());
}

text_leaf::~text_leaf() {
  if (text_outside_) release_outside();
}

xhtml_markup& text_leaf::operator<<(ustring_view text) {
  const std::size_t size = checked_size(text_size_ + text.size());
  if (size > room()) {
    // `text` may alias our own text: copy it before releasing that.
    const std::size_t capacity = std::max(size, std::size_t{text_size_} * 2);
    char16* const grown = allocate(capacity);
    std::copy(units(), units() + text_size_, grown);
    std::copy(text.begin(), text.end(), grown + text_size_);
    if (text_outside_) release_outside();
    text_outside_ = true;
    outside_text_ = grown;
    outside_capacity_ = capacity;
  } else {
    std::copy(text.begin(), text.end(), units() + text_size_);
  }
  text_size_ = static_cast<std::uint32_t>(size);
  return *this;
}

node_pool* text_leaf::text_pool() const {
  return in_pool_ ? parent_->as_element()->pool() : nullptr;
}

std::size_t text_leaf::room() const {
  if (text_outside_) return outside_capacity_;
  return (granules_ * node_pool::granule - bytes_before_text) / sizeof(char16);
}

void text_leaf::store(ustring_view text) {
  const std::size_t size = checked_size(text.size());
  if (size > room()) {
    outside_text_ = allocate(size);
    outside_capacity_ = size;
    text_outside_ = true;
  }
  std::copy(text.begin(), text.end(), units());
  text_size_ = static_cast<std::uint32_t>(size);
}

char16* text_leaf::allocate(std::size_t capacity) {
  return static_cast<char16*>(node_pool::allocate(text_pool(), capacity * sizeof(char16)));
}

void text_leaf::release_outside() noexcept {
  node_pool::release(text_pool(), outside_text_, outside_capacity_ * sizeof(char16));
}

}  // namespace Xport
