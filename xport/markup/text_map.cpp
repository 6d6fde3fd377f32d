#include "xport/markup/text_map.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <new>
#include <stdexcept>

namespace Xport {

namespace {

std::size_t bytes_between(const void* from, const void* to) {
  return static_cast<std::size_t>(static_cast<const char*>(to) - static_cast<const char*>(from));
}

constexpr std::uint32_t most_uses = std::numeric_limits<std::uint32_t>::max();

void check_length(ustring_view value) {
  if (value.size() > std::numeric_limits<std::uint32_t>::max())
    throw std::length_error("attribute value too long");
}

}  // namespace

text_map_base::text_map_base(const text_map_base& other, node_pool* pool) : text_map_base(pool) {
  copy_entries(other);
}

void text_map_base::copy_entries(const text_map_base& other) {
  if (other.empty()) return;
  if (pool() != nullptr && other.pool() == pool() && other.block_->uses != most_uses) {
    block_ = other.block_;
    ++block_->uses;
    return;
  }
  block_ = make_block(other.block_->bytes());
  std::memcpy(block_ + 1, other.block_ + 1, other.block_->bytes() - sizeof(block));
}

std::size_t text_map_base::size() const {
  std::size_t count = 0;
  for (const entry_head* entry = first(); entry != last(); entry = entry->next()) ++count;
  return count;
}

void text_map_base::clear() noexcept {
  if (empty()) return;
  node_pool* const source = pool();
  if (--block_->uses == 0) {
    if (source != nullptr) {
      block*& offered = offer(*source, first()->key, first()->value());
      if (offered == block_) offered = nullptr;
    }
    node_pool::release(source, block_, block_->bytes());
  }
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

void text_map_base::additions::insert(std::int32_t key, const ustring_view* value) {
  std::size_t at = count;
  while (at != 0 && entries[at - 1].key > key) --at;
  if (at != 0 && entries[at - 1].key == key) return;
  if (count == most_additions) throw std::length_error("too many different keys");
  std::copy_backward(entries + at, entries + count, entries + count + 1);
  entries[at] = {key, value};
  ++count;
}

void text_map_base::assign(std::int32_t key, ustring_view value) {
  check_length(value);
  if (empty()) {
    const addition only{key, &value};
    fill({&only, 1}, sizeof(block) + bytes_of(value.size()));
    return;
  }
  const entry_head* const from = lower_bound(key);
  const bool present = from != last() && from->key == key;
  replace(from, present ? from->next() : from, &key, value);
}

void text_map_base::add_missing(additions& added) {
  const entry_head* entry = first();
  std::size_t count = 0;
  std::size_t bytes = empty() ? sizeof(block) : block_->bytes();
  for (std::size_t i = 0; i < added.count; ++i) {
    const addition& next = added.entries[i];
    while (entry != last() && entry->key < next.key) entry = entry->next();
    if (entry != last() && entry->key == next.key) continue;
    check_length(*next.value);
    bytes += bytes_of(next.value->size());
    added.entries[count++] = next;
  }
  if (count == 0) return;
  if (empty()) return fill({added.entries, count}, bytes);

  block* const changed = make_block(bytes);
  char* out = reinterpret_cast<char*>(changed + 1);
  const entry_head* run = first();
  for (const addition& next : std::span(added.entries, count)) {
    entry = run;
    while (entry != last() && entry->key < next.key) entry = entry->next();
    out = put_run(out, run, entry);
    out = put_entry(out, next.key, *next.value);
    run = entry;
  }
  put_run(out, run, last());
  clear();
  block_ = changed;
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

// Where the pool's maps offer a block with this first entry to others. The place depends on nothing
// else, so that clear() finds it again, and keeps the blocks that a page uses in turn apart.
inline text_map_base::block*& text_map_base::offer(node_pool& pool, std::int32_t key,
                                                   ustring_view value) {
  const std::size_t ends = value.empty() ? 0U : std::size_t{value.front()} + value.back();
  const std::size_t mark = static_cast<std::size_t>(key) * 3 + value.size() + ends;
  return pool.offered_block(mark % node_pool::offered_blocks);
}

// Whether `other` holds `entries`, which take `bytes` with the head of a block, and may have one
// more owner.
inline bool text_map_base::can_share(const block& other, std::span<const addition> entries,
                                     std::size_t bytes) {
  if (other.bytes() != bytes || other.uses == most_uses) return false;
  const auto* at = reinterpret_cast<const entry_head*>(&other + 1);
  for (const addition& entry : entries) {
    if (at->key != entry.key || at->length != entry.value->size()) return false;
    if (!std::equal(entry.value->begin(), entry.value->end(), at->value().begin())) return false;
    at = at->next();
  }
  return true;
}

// Fills the empty map with `entries`, which take `bytes` with the head of a block.
inline void text_map_base::fill(std::span<const addition> entries, std::size_t bytes) {
  block** offered = nullptr;
  if (pool() != nullptr) {
    offered = &offer(*pool(), entries.front().key, *entries.front().value);
    if (*offered != nullptr && can_share(**offered, entries, bytes)) {
      block_ = *offered;
      ++block_->uses;
      return;
    }
  }
  block_ = make_block(bytes);
  char* out = reinterpret_cast<char*>(block_ + 1);
  for (const addition& entry : entries) out = put_entry(out, entry.key, *entry.value);
  if (offered != nullptr) *offered = block_;
}

text_map_base::block* text_map_base::make_block(std::size_t bytes) {
  constexpr std::size_t most = std::size_t{std::numeric_limits<std::uint32_t>::max()} * 4;
  if (bytes > most) throw std::bad_alloc();
  node_pool* const source = pool();
  return new (node_pool::allocate(source, bytes))
      block{source, static_cast<std::uint32_t>(bytes / 4), 1};
}

// Copies the entries from `from` up to, but not including, `to`. Returns the end of the copies.
char* text_map_base::put_run(char* out, const entry_head* from, const entry_head* to) {
  const std::size_t bytes = bytes_between(from, to);
  if (bytes != 0) std::memcpy(out, from, bytes);
  return out + bytes;
}

char* text_map_base::put_entry(char* out, std::int32_t key, ustring_view value) {
  new (out) entry_head{key, static_cast<std::uint32_t>(value.size())};
  if (!value.empty())
    std::memcpy(out + sizeof(entry_head), value.data(), value.size() * sizeof(char16));
  return out + bytes_of(value.size());
}

// Makes a block without the entries from `from` up to `to`. If `key` isn't null, an entry for
// it takes their place.
void text_map_base::replace(const entry_head* from, const entry_head* to, const std::int32_t* key,
                            ustring_view value) {
  const std::size_t entry = key != nullptr ? bytes_of(value.size()) : 0;
  const std::size_t kept = bytes_between(first(), from) + bytes_between(to, last());
  block* const changed = make_block(sizeof(block) + kept + entry);
  char* out = put_run(reinterpret_cast<char*>(changed + 1), first(), from);
  if (key != nullptr) out = put_entry(out, *key, value);
  put_run(out, to, last());
  clear();
  block_ = changed;
}

}  // namespace Xport
