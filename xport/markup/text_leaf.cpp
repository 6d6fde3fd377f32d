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

text_leaf::text_leaf(node_type type, ustring_view text) : xhtml_markup(type, sizeof(text_leaf)) {
  store(text);
}

text_leaf::text_leaf(node_type type, ustring_view text, const place& where)
    : xhtml_markup(type, where.bytes) {
  parent_ = &where.parent;
  in_pool_ = where.parent.pool() != nullptr;
  store(text);
}

text_leaf::text_leaf(const text_leaf& other) : xhtml_markup(other, sizeof(text_leaf)) {
  store(other.text());
}

text_leaf::~text_leaf() {
  if (text_outside_) release_outside();
}

xhtml_markup& text_leaf::operator<<(ustring_view text) {
  const std::size_t size = checked_size(size_ + text.size());
  if (size > room()) {
    // `text` may be part of this one's, which goes on living until it is copied.
    const std::size_t capacity = std::max(size, std::size_t{size_} * 2);
    char16* const grown = allocate(capacity);
    std::copy(units(), units() + size_, grown);
    std::copy(text.begin(), text.end(), grown + size_);
    if (text_outside_) release_outside();
    text_outside_ = true;
    storage_.outside = {grown, capacity};
  } else {
    std::copy(text.begin(), text.end(), units() + size_);
  }
  size_ = static_cast<std::uint32_t>(size);
  return *this;
}

node_pool* text_leaf::text_pool() const {
  return in_pool_ ? static_cast<const xhtml_element*>(parent_)->pool() : nullptr;
}

std::size_t text_leaf::room() const {
  if (text_outside_) return storage_.outside.capacity;
  constexpr std::size_t head = sizeof(text_leaf) - sizeof(outside_text);
  return (granules_ * node_pool::granule - head) / sizeof(char16);
}

void text_leaf::store(ustring_view text) {
  const std::size_t size = checked_size(text.size());
  if (size > room()) {
    storage_.outside = {allocate(size), size};
    text_outside_ = true;
  }
  std::copy(text.begin(), text.end(), units());
  size_ = static_cast<std::uint32_t>(size);
}

char16* text_leaf::allocate(std::size_t capacity) {
  const std::size_t bytes = capacity * sizeof(char16);
  node_pool* const pool = text_pool();
  return static_cast<char16*>(pool != nullptr ? pool->allocate(bytes) : ::operator new(bytes));
}

void text_leaf::release_outside() noexcept {
  const outside_text& outside = storage_.outside;
  if (node_pool* const pool = text_pool())
    pool->release(outside.units, outside.capacity * sizeof(char16));
  else
    ::operator delete(outside.units);
}

}  // namespace Xport
