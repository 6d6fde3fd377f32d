#include "xport/markup/text_map.h"

#include <cstring>
#include <limits>
#include <new>
#include <stdexcept>

namespace Xport {

text_map_base::text_map_base(const text_map_base& other, node_pool* pool) : text_map_base(pool) {
  if (other.empty()) return;
  block_ = make_block(other.block_->bytes);
  std::memcpy(block_ + 1, other.block_ + 1, other.block_->bytes - sizeof(block));
}

std::size_t text_map_base::size() const {
  std::size_t count = 0;
  for (const entry_head* entry = first(); entry != last(); entry = entry->next()) ++count;
  return count;
}

void text_map_base::clear() noexcept {
  if (empty()) return;
  node_pool* const source = pool();
  if (source != nullptr)
    source->release(block_, block_->bytes);
  else
    ::operator delete(block_);
  block_ = node_pool::empty_block(source);
}

const text_map_base::entry_head* text_map_base::lower_bound(std::int32_t key) const {
  const entry_head* entry = first();
  while (entry != last() && entry->key < key) entry = entry->next();
  return entry;
}

const text_map_base::entry_head* text_map_base::find(std::int32_t key) const {
  const entry_head* const entry = lower_bound(key);
  return entry != last() && entry->key == key ? entry : nullptr;
}

void text_map_base::assign(std::int32_t key, ustring_view value) {
  if (value.size() > std::numeric_limits<std::uint32_t>::max())
    throw std::length_error("attribute value too long");
  const entry_head* const from = lower_bound(key);
  const bool present = from != last() && from->key == key;
  replace(from, present ? from->next() : from, &key, value);
}

bool text_map_base::erase(std::int32_t key) {
  const entry_head* const entry = find(key);
  if (entry == nullptr) return false;
  if (size() == 1)
    clear();
  else
    replace(entry, entry->next(), nullptr, {});
  return true;
}

text_map_base::block* text_map_base::make_block(std::size_t bytes) {
  node_pool* const source = pool();
  void* const memory = source != nullptr ? source->allocate(bytes) : ::operator new(bytes);
  return new (memory) block{source, bytes};
}

// Makes a block with the entries from `from` up to `to` left out and, if there is
// a key, an entry for it in their place.
void text_map_base::replace(const entry_head* from, const entry_head* to, const std::int32_t* key,
                            ustring_view value) {
  const auto bytes_between = [](const entry_head* begin, const entry_head* end) {
    return static_cast<std::size_t>(reinterpret_cast<const char*>(end) -
                                    reinterpret_cast<const char*>(begin));
  };
  const std::size_t head = bytes_between(first(), from);
  const std::size_t tail = bytes_between(to, last());
  const std::size_t entry = key != nullptr ? bytes_of(value.size()) : 0;

  block* const changed = make_block(sizeof(block) + head + entry + tail);
  char* out = reinterpret_cast<char*>(changed + 1);
  if (head != 0) std::memcpy(out, first(), head);
  out += head;
  if (key != nullptr) {
    const entry_head* const added =
        new (out) entry_head{*key, static_cast<std::uint32_t>(value.size())};
    if (!value.empty())
      std::memcpy(out + sizeof(entry_head), value.data(), added->length * sizeof(char16));
    out += entry;
  }
  if (tail != 0) std::memcpy(out, to, tail);
  clear();
  block_ = changed;
}

}  // namespace Xport
