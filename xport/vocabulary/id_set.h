#ifndef XPORT_VOCABULARY_ID_SET_H
#define XPORT_VOCABULARY_ID_SET_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>

namespace Xport {

/// An ordered set of the numbers 0 to Count - 1 of an enumeration, kept as bits. It can be
/// built at compile time, and contains() costs one shift.
template <class Id, std::size_t Count>
class id_set {
 public:
  constexpr id_set() = default;
  constexpr id_set(std::initializer_list<Id> ids) {
    for (Id id : ids) insert(id);
  }

  /// Adds `id`, which must lie in 0 to Count - 1.
  constexpr void insert(Id id) { words_[word(id)] |= bit(id); }

  /// Removes `id`, which must lie in 0 to Count - 1.
  constexpr void erase(Id id) { words_[word(id)] &= ~bit(id); }

  /// Adds all of `other`.
  constexpr void insert(const id_set& other) {
    for (std::size_t i = 0; i < word_count; ++i) words_[i] |= other.words_[i];
  }

  /// Removes all of `other`.
  constexpr void erase(const id_set& other) {
    for (std::size_t i = 0; i < word_count; ++i) words_[i] &= ~other.words_[i];
  }

  /// Whether `id` is in the set; false for any number outside 0 to Count - 1.
  constexpr bool contains(Id id) const {
    return static_cast<std::uint32_t>(id) < Count && (words_[word(id)] & bit(id)) != 0;
  }

  constexpr bool empty() const {
    for (std::uint64_t bits : words_)
      if (bits != 0) return false;
    return true;
  }

  /// The number of ids in the set.
  constexpr std::size_t size() const {
    std::size_t count = 0;
    for (std::uint64_t bits : words_)
      for (; bits != 0; bits &= bits - 1) ++count;
    return count;
  }

  friend constexpr bool operator==(const id_set&, const id_set&) = default;

 private:
  static constexpr std::size_t word_count = (Count + 63) / 64;
  static constexpr std::size_t word(Id id) { return static_cast<std::uint32_t>(id) / 64; }
  static constexpr std::uint64_t bit(Id id) {
    return std::uint64_t{1} << (static_cast<std::uint32_t>(id) % 64);
  }

  std::uint64_t words_[word_count] = {};
};

}  // namespace Xport

#endif
