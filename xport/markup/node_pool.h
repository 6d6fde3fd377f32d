#ifndef XPORT_MARKUP_NODE_POOL_H
#define XPORT_MARKUP_NODE_POOL_H

#include <cstddef>

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

  node_pool() = default;
  node_pool(const node_pool&) = delete;
  node_pool& operator=(const node_pool&) = delete;

  /// Gives all memory back. Objects in it are not destroyed.
  ~node_pool();

  /// Memory of at least `bytes`, which is above 0. Raises std::bad_alloc.
  void* allocate(std::size_t bytes);

  /// Takes back what allocate(bytes) gave.
  void release(void* memory, std::size_t bytes) noexcept;

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
  struct piece {
    piece* next;
  };
  struct alignas(granule) large_block {
    large_block* next;
    large_block* previous;
  };

  void* allocate_from_new_piece(std::size_t rounded);
  void* allocate_large(std::size_t bytes);

  char* next_ = nullptr;
  char* end_ = nullptr;
  free_block* free_[largest_small / granule + 1] = {};
  piece* pieces_ = nullptr;
  large_block* large_ = nullptr;
  std::size_t piece_size_ = first_piece;
  bool holds_adopted_ = false;
};

}  // namespace Xport

#endif
