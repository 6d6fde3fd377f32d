#include "xport/markup/leaf_nodes.h"

#include <algorithm>
#include <limits>
#include <new>
#include <stdexcept>

#include "xport/markup/xhtml_element.h"
#include "xport/markup/xhtml_writer.h"

namespace Xport {

namespace {

std::size_t checked_size(std::size_t size) {
  if (size > std::numeric_limits<std::uint32_t>::max()) throw std::length_error("text too long");
  return size;
}

// `token` without its delimiters, if it has them, and without white space at its ends. Each
// delimiter is removed only if the token is longer than the delimiter's limit.
ustring_view body_of(ustring_view token, ustring_view head, std::size_t head_limit,
                     ustring_view tail, std::size_t tail_limit, const character_classes& classes) {
  if (token.size() > head_limit && token.starts_with(head)) token.remove_prefix(head.size());
  if (token.size() > tail_limit && token.ends_with(tail)) token.remove_suffix(tail.size());
  return classes.trim(token);
}

ustring_view name_in(ustring_view token) {
  if (token.starts_with(u'<')) {
    token.remove_prefix(1);
    if (token.starts_with(u'/')) token.remove_prefix(1);
  }
  if (token.ends_with(u'>')) token.remove_suffix(1);
  return token;
}

}  // namespace

text_leaf::text_leaf(node_type type, ustring_view text, const node_place& where)
    : xhtml_markup(type, std::max(where.bytes(), sizeof(text_leaf)), where) {
  static_assert(sizeof(text_leaf) == bytes_before_text + sizeof(inside_text_) + sizeof(std::size_t),
                "an inline text uses the last fields, which must have no gap");
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

void xhtml_pcdata::write(xhtml_writer& writer) const { writer.write(*this); }

xhtml_comment::xhtml_comment(ustring_view token)
    : text_leaf(node_type::comment, body(token, character_classes())) {}

ustring_view xhtml_comment::body(ustring_view token, const character_classes& classes) {
  return body_of(token, u"<--", 3, u"-->", 4, classes);
}

void xhtml_comment::write(xhtml_writer& writer) const { writer.write(*this); }

xhtml_processing_instruction::xhtml_processing_instruction(ustring_view token)
    : text_leaf(node_type::processing_instruction, body(token, character_classes())) {}

// The limit for the end is longer than the delimiter, unlike the one for the start.
ustring_view xhtml_processing_instruction::body(ustring_view token,
                                                const character_classes& classes) {
  return body_of(token, u"<?", 2, u"?>", 4, classes);
}

void xhtml_processing_instruction::write(xhtml_writer& writer) const { writer.write(*this); }

void xhtml_doctype_declaration::write(xhtml_writer& writer) const { writer.write(*this); }

xhtml_end_tag::xhtml_end_tag(ustring_view token)
    : tag_(xhtml_strict::tag_from_name(name_in(token))), source_(token) {}

}  // namespace Xport
