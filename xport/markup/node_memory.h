#ifndef XPORT_MARKUP_NODE_MEMORY_H
#define XPORT_MARKUP_NODE_MEMORY_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <new>

#include "xport/text/char16.h"

// Under the address sanitizer, the free memory of a pool is poisoned. Otherwise a pool would
// hide the use of a deleted node.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VELLOMARK_POISON_POOL_MEMORY 1
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define VELLOMARK_POISON_POOL_MEMORY 1
#endif

#if defined(VELLOMARK_POISON_POOL_MEMORY)
#include <sanitizer/asan_interface.h>
#endif

namespace Xport {

class xhtml_element;
class xhtml_markup;
class xhtml_parser;

/// The memory of one tree: its nodes, their texts and their attributes.
///
/// A pool allocates memory from the system in large pieces and frees them all at once, so a
/// tree of millions of nodes is built without a system allocation for each and is destroyed
/// without visiting any. Released memory is kept for later requests of the same size. A pool
/// must be used by one thread at a time.
class node_pool {
 public:
  /// Sizes are rounded up to whole granules, and memory is aligned to one.
  static constexpr std::size_t granule = 8;

  /// Larger requests get memory of their own, which release() frees.
  static constexpr std::size_t largest_small = 512;

  static constexpr std::size_t round_up(std::size_t bytes) {
    return (bytes + granule - 1) / granule * granule;
  }

  /// The head of a block of memory that records its origin.
  struct sized_block {
    node_pool* pool;      ///< null for the general heap
    std::uint32_t words;  ///< its size, with this head, in units of 4 bytes; 0 for an empty block
    std::uint32_t uses;   ///< the number of its owners; 0 for an empty block, which is never freed

    std::size_t bytes() const { return std::size_t{words} * 4; }
  };

  /// The number of blocks that can be offered for sharing at a time.
  static constexpr std::size_t offered_blocks = 16;

  node_pool() = default;
  node_pool(const node_pool&) = delete;
  node_pool& operator=(const node_pool&) = delete;

  /// Frees all memory. Objects in it are not destroyed.
  ~node_pool();

  /// At least `bytes` of memory; `bytes` must be above 0. Throws std::bad_alloc.
  void* allocate(std::size_t bytes) {
    if (bytes > largest_small) return allocate_large(bytes);
    const std::size_t rounded = round_up(bytes);
    if (free_[rounded / granule] != nullptr || static_cast<std::size_t>(end_ - next_) < rounded)
      return allocate_small(rounded);
    char* const memory = next_;
    next_ += rounded;
    unpoison(memory, rounded);
    return memory;
  }

  /// Releases memory that allocate(bytes) returned.
  void release(void* memory, std::size_t bytes) noexcept;

  /// The same for a pool that may be null, which means the heap.
  static void* allocate(node_pool* pool, std::size_t bytes) {
    return pool != nullptr ? pool->allocate(bytes) : ::operator new(bytes);
  }
  static void release(node_pool* pool, void* memory, std::size_t bytes) noexcept {
    if (pool != nullptr)
      pool->release(memory, bytes);
    else
      ::operator delete(memory);
  }

  /// The empty block of `pool`; that of the general heap for null.
  static sized_block* empty_block(node_pool* pool) {
    return pool != nullptr ? &pool->empty_block_ : &empty_heap_block_;
  }

  /// The block that is offered at `place`, below offered_blocks; null if there is none. Whoever
  /// releases a block takes back its offer.
  sized_block*& offered_block(std::size_t place) { return offered_[place]; }

  /// Whether the tree has nodes outside the pool: adopted ones, or clones of derived
  /// classes. Only then must it be visited before the pool is destroyed.
  bool holds_heap_nodes() const { return holds_heap_nodes_; }
  void note_heap_node() { holds_heap_nodes_ = true; }

 private:
  static constexpr std::size_t first_piece = 4 * 1024;
  static constexpr std::size_t largest_piece = 16 * 1024 * 1024;

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

#if defined(VELLOMARK_POISON_POOL_MEMORY)
  static void poison(const void* memory, std::size_t bytes) {
    __asan_poison_memory_region(memory, bytes);
  }
  static void unpoison(const void* memory, std::size_t bytes) {
    __asan_unpoison_memory_region(memory, bytes);
  }
#else
  static void poison(const void*, std::size_t) {}
  static void unpoison(const void*, std::size_t) {}
#endif

  void* allocate_small(std::size_t rounded);
  void* allocate_large(std::size_t bytes);

  static sized_block empty_heap_block_;

  char* next_ = nullptr;
  char* end_ = nullptr;
  sized_block empty_block_{this, 0, 0};
  sized_block* offered_[offered_blocks] = {};
  free_block* free_[largest_small / granule + 1] = {};
  piece* pieces_ = nullptr;
  large_block* large_ = nullptr;
  std::size_t piece_size_ = first_piece;
  bool holds_heap_nodes_ = false;
};

/// Where a node is made: on the heap or in the memory of a tree.
///
/// A node in the memory of a tree never leaves that tree. Only elements and the parser make
/// such nodes, and they link or delete them before other code can see them. So every node that
/// other code owns may be deleted or adopted by any element of any tree.
class node_place {
 public:
  /// The heap. A node made there has no parent.
  constexpr node_place() = default;

  /// The pool, null for the heap.
  node_pool* pool() const { return pool_; }

  /// The parent of a node in the pool, set from the start because the node finds its pool
  /// through it; null for the heap.
  xhtml_markup* parent() const { return parent_; }

  /// The memory of the node if it differs from the size of its class; otherwise 0.
  std::size_t bytes() const { return bytes_; }

  /// Makes a node. Its constructor gets `arguments` and this place. Throws std::bad_alloc.
  template <class Node, class... Arguments>
  Node* make(const Arguments&... arguments) const {
    return make_in<Node>(sizeof(Node), *this, arguments...);
  }

  /// Makes a leaf with `text`. In a pool the node has room for all of it, unless it is long.
  /// Throws std::bad_alloc, and std::length_error for a text of 2^32 units or more.
  template <class Leaf>
  Leaf* make_leaf(ustring_view text) const {
    node_place where = *this;
    if (pool_ != nullptr) where.bytes_ = Leaf::bytes_with(text);
    return make_in<Leaf>(std::max(sizeof(Leaf), where.bytes_), where, text);
  }

  /// Makes a copy of `node`, a leaf or an element whose class is exactly that of its type(),
  /// without its children. Throws like make_leaf().
  xhtml_markup* make_copy(const xhtml_markup& node) const;

 private:
  friend class xhtml_element;
  friend class xhtml_markup;
  friend class xhtml_parser;

  /// For the content of `parent`: its pool, or the heap if it has none.
  explicit inline node_place(xhtml_element& parent);

  template <class Node, class... Arguments>
  static Node* make_in(std::size_t bytes, const node_place& where, const Arguments&... arguments) {
    void* const memory = node_pool::allocate(where.pool_, bytes);
    try {
      return ::new (memory) Node(arguments..., where);
    } catch (...) {
      node_pool::release(where.pool_, memory, bytes);
      throw;
    }
  }

  node_pool* pool_ = nullptr;
  xhtml_markup* parent_ = nullptr;
  std::size_t bytes_ = 0;
};

}  // namespace Xport

#endif
