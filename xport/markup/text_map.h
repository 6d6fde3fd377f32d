#ifndef XPORT_MARKUP_TEXT_MAP_H
#define XPORT_MARKUP_TEXT_MAP_H

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <span>

#include "xport/markup/node_memory.h"
#include "xport/text/char16.h"
#include "xport/vocabulary/xhtml_strict.h"

namespace Xport {

/// The part of text_map that doesn't depend on the type of its keys.
///
/// An ordered map from numbers to texts in one block of memory, which holds the entries in
/// ascending order of their keys, each as a head and its code units. Empty maps share an
/// empty block. A change never modifies a block but replaces it: elements have few attributes, and
/// a new value may be part of an old one.
///
/// Maps of one pool share a block if one is a copy of the other, or if they are filled with the
/// same entries soon after each other: the cells of a table mostly have the same attributes.
class text_map_base {
 public:
  /// The number of different keys that one call of insert_missing() can add.
  static constexpr std::size_t most_additions = 8;

  bool empty() const { return block_->words == 0; }

  /// The number of entries. Takes linear time.
  std::size_t size() const;

  /// Removes all entries.
  void clear() noexcept;

  /// The pool that the memory comes from; null for the heap.
  node_pool* pool() const { return block_->pool; }

 protected:
  struct entry_head {
    std::int32_t key;
    std::uint32_t length;

    ustring_view value() const { return {reinterpret_cast<const char16*>(this + 1), length}; }
    const entry_head* next() const {
      return reinterpret_cast<const entry_head*>(reinterpret_cast<const char*>(this) +
                                                 bytes_of(length));
    }
  };
  using block = node_pool::sized_block;

  explicit text_map_base(node_pool* pool) : block_(node_pool::empty_block(pool)) {}
  text_map_base(const text_map_base& other, node_pool* pool);
  text_map_base& operator=(const text_map_base&) = delete;
  ~text_map_base() { clear(); }

  const entry_head* first() const { return reinterpret_cast<const entry_head*>(block_ + 1); }
  const entry_head* last() const {
    return empty() ? first()
                   : reinterpret_cast<const entry_head*>(reinterpret_cast<const char*>(block_) +
                                                         block_->bytes());
  }

  /// The first entry whose key isn't less than `key`.
  const entry_head* lower_bound(std::int32_t key) const;
  const entry_head* find(std::int32_t key) const;

  /// The new entries of one change in ascending order of their keys. Of equal keys only the
  /// first is kept.
  struct addition {
    std::int32_t key;
    const ustring_view* value;
  };
  struct additions {
    std::size_t count = 0;
    addition entries[most_additions];

    void insert(std::int32_t key, const ustring_view* value);
  };

  void copy_entries(const text_map_base& other);
  void assign(std::int32_t key, ustring_view value);
  void add_missing(additions& added);
  bool erase(std::int32_t key);

  /// The bytes of a head and its `length` units, padded so that the next head is aligned.
  static constexpr std::size_t bytes_of(std::size_t length) {
    return sizeof(entry_head) + (length + length % 2) * sizeof(char16);
  }

 private:
  static char* put_run(char* out, const entry_head* from, const entry_head* to);
  static char* put_entry(char* out, std::int32_t key, ustring_view value);
  static block*& offer(node_pool& pool, std::int32_t key, ustring_view value);
  static bool can_share(const block& other, std::span<const addition> entries, std::size_t bytes);

  block* make_block(std::size_t bytes);
  void fill(std::span<const addition> entries, std::size_t bytes);
  void replace(const entry_head* from, const entry_head* to, const std::int32_t* key,
               ustring_view value);

  block* block_;  // never null
};

/// An ordered map from `Key`, an enumeration, to text. Iterators visit the keys in ascending
/// order, which is the order of output. A text that the map returns is valid until the map is
/// changed. Every change except clear() may throw std::bad_alloc; storing a text of 2^32 units
/// or more throws std::length_error. The map is then unchanged.
template <class Key>
class text_map : public text_map_base {
 public:
  struct value_type {
    Key first;
    ustring_view second;
  };

  class const_iterator {
   public:
    using iterator_category = std::input_iterator_tag;
    using value_type = text_map::value_type;
    using difference_type = std::ptrdiff_t;
    using pointer = const value_type*;
    using reference = value_type;

    explicit const_iterator(const entry_head* entry) : entry_(entry) {}
    value_type operator*() const { return {static_cast<Key>(entry_->key), entry_->value()}; }
    const_iterator& operator++() {
      entry_ = entry_->next();
      return *this;
    }
    friend bool operator==(const const_iterator&, const const_iterator&) = default;

   private:
    const entry_head* entry_;
  };

  /// An empty map whose memory comes from `pool`, or from the heap if `pool` is null.
  explicit text_map(node_pool* pool = nullptr) : text_map_base(pool) {}

  /// A copy on the heap.
  text_map(const text_map& other) : text_map_base(other, nullptr) {}

  /// A copy whose memory comes from `pool`, or from the heap if `pool` is null.
  text_map(const text_map& other, node_pool* pool) : text_map_base(other, pool) {}

  const_iterator begin() const { return const_iterator(first()); }
  const_iterator end() const { return const_iterator(last()); }

  bool contains(Key key) const { return find(static_cast<std::int32_t>(key)) != nullptr; }

  /// The text stored for `key`, empty if there is none. The result is const, so that an
  /// assignment to it, which wouldn't change the map, doesn't compile.
  const ustring_view operator[](Key key) const {
    const entry_head* const entry = find(static_cast<std::int32_t>(key));
    return entry != nullptr ? entry->value() : ustring_view();
  }

  /// Stores `value` for `key` and replaces a value that is already there.
  void insert_or_assign(Key key, ustring_view value) {
    assign(static_cast<std::int32_t>(key), value);
  }

  /// Stores those of `entries`, in any order, whose keys the map doesn't hold yet; of equal
  /// keys it stores the first. Rebuilds the map once for all of them, and not at all if no
  /// key is new. Also throws std::length_error for more than `most_additions` different keys.
  void insert_missing(std::span<const value_type> entries) {
    additions added;
    for (const value_type& entry : entries)
      added.insert(static_cast<std::int32_t>(entry.first), &entry.second);
    add_missing(added);
  }

  /// Gives this map, which must be empty, the entries of `other`.
  void copy_entries(const text_map& other) { text_map_base::copy_entries(other); }

  /// Removes the entry for `key`. Returns false if there is none.
  bool erase(Key key) { return text_map_base::erase(static_cast<std::int32_t>(key)); }
};

using attribute_map = text_map<attr_id>;
using style_map = text_map<css_property_id>;

}  // namespace Xport

#endif
