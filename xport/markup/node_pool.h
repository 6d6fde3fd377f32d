#ifndef XPORT_MARKUP_NODE_POOL_H
#define XPORT_MARKUP_NODE_POOL_H

#include <cstddef>

#include "xport/markup/pool_poison.h"

namespace Xport {

/// The memory of one tree: its nodes, their texts and their attributes.
///
/// Memory is taken from the system in large pieces and given back all at once
/// with the pool, so that a tree of millions of nodes is built without asking
/// the system for each and is dropped without visiting any. What is released in
/// between is kept for later requests of the same size. One pool serves one
/// thread at a time.
class node_pool {
 public:
  /// Sizes are rounded up to whole granules, and memory is aligned to one.
  static constexpr std::size_t granule = 8;

  /// Larger requests get memory of their own, which release() gives back.
  static constexpr std::size_t largest_small = 512;

  static constexpr std::size_t round_up(std::size_t bytes) {
    return (bytes + granule - 1) / granule * granule;
  }

  /// The head of a block of memory that knows where it comes from.
  struct sized_block {
    node_pool* pool;    ///< null for the general heap
    std::size_t bytes;  ///< with this head; 0 for an empty block, which is never released
  };

  node_pool() = default;
  node_pool(const node_pool&) = delete;
  node_pool& operator=(const node_pool&) = delete;

  /// Gives all memory back. Objects in it are not destroyed.
  ~node_pool();

  /// Memory of at least `bytes`, which is above 0. Raises std::bad_alloc.
  void* allocate(std::size_t bytes) {
    if (bytes > largest_small) return allocate_large(bytes);
    const std::size_t rounded = round_up(bytes);
    if (free_[rounded / granule] != nullptr || static_cast<std::size_t>(end_ - next_) < rounded)
      return allocate_small(rounded);
    char* const memory = next_;
    next_ += rounded;
    pool_memory_taken(memory, rounded);
    return memory;
  }

  /// Takes back what allocate(bytes) gave.
  void release(void* memory, std::size_t bytes) noexcept;

  /// The empty block of this pool and, for null, of the general heap.
  static sized_block* empty_block(node_pool* pool) {
    return pool != nullptr ? &pool->empty_block_ : &empty_heap_block_;
  }

  /// Whether the tree has taken in nodes from outside the pool. Only then must
  /// it be visited before the pool goes.
  bool holds_adopted() const { return holds_adopted_; }
  void note_adopted() { holds_adopted_ = true; }

 private:
  static constexpr std::size_t first_piece = 4 * 1024;
  static constexpr std::size_t largest_piece = 4 * 1024 * 1024;

  struct free_block {
    free_block* next;
  };
  struct alignas(granule) piece {
    piece* next;
  };
  struct alignas(granule) large_block {
    large_block* next;
    large_block* previous;
  };

  void* allocate_small(std::size_t rounded);
  void* allocate_large(std::size_t bytes);

  static sized_block empty_heap_block_;

  char* next_ = nullptr;
  char* end_ = nullptr;
  sized_block empty_block_{this, 0};
  free_block* free_[largest_small / granule + 1] = {};
  piece* pieces_ = nullptr;
  large_block* large_ = nullptr;
  std::size_t piece_size_ = first_piece;
  bool holds_adopted_ = false;
};

}  // namespace Xport

#endif
