#include "xport/markup/node_pool.h"

#include <algorithm>
#include <limits>
#include <new>

// Under the address sanitizer, memory that nobody holds is poisoned, so that the
// pool hides no use of a dead node.
#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VELLOMARK_POISON_FREE_MEMORY 1
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define VELLOMARK_POISON_FREE_MEMORY 1
#endif
#if defined(VELLOMARK_POISON_FREE_MEMORY)
#include <sanitizer/asan_interface.h>
#endif

namespace Xport {

namespace {

#if defined(VELLOMARK_POISON_FREE_MEMORY)
void poison(const void* memory, std::size_t bytes) { __asan_poison_memory_region(memory, bytes); }
void unpoison(const void* memory, std::size_t bytes) {
  __asan_unpoison_memory_region(memory, bytes);
}
#else
void poison(const void*, std::size_t) {}
void unpoison(const void*, std::size_t) {}
#endif

}  // namespace

node_pool::~node_pool() {
  while (pieces_ != nullptr) {
    piece* const next = pieces_->next;
    ::operator delete(pieces_);
    pieces_ = next;
  }
  while (large_ != nullptr) {
    large_block* const next = large_->next;
    ::operator delete(large_);
    large_ = next;
  }
}

void* node_pool::allocate(std::size_t bytes) {
  if (bytes > largest_small) return allocate_large(bytes);
  const std::size_t rounded = round_up(bytes);
  if (free_block* const block = free_[rounded / granule]) {
    unpoison(block, rounded);
    free_[rounded / granule] = block->next;
    return block;
  }
  if (static_cast<std::size_t>(end_ - next_) < rounded) return allocate_from_new_piece(rounded);
  char* const memory = next_;
  next_ += rounded;
  unpoison(memory, rounded);
  return memory;
}

void node_pool::release(void* memory, std::size_t bytes) noexcept {
  if (bytes > largest_small) {
    large_block* const block = static_cast<large_block*>(memory) - 1;
    (block->previous != nullptr ? block->previous->next : large_) = block->next;
    if (block->next != nullptr) block->next->previous = block->previous;
    ::operator delete(block);
    return;
  }
  const std::size_t rounded = round_up(bytes);
  free_[rounded / granule] = new (memory) free_block{free_[rounded / granule]};
  poison(memory, rounded);
}

void* node_pool::allocate_from_new_piece(std::size_t rounded) {
  void* const memory = ::operator new(piece_size_);
  pieces_ = new (memory) piece{pieces_};
  next_ = reinterpret_cast<char*>(pieces_ + 1);
  end_ = static_cast<char*>(memory) + piece_size_;
  piece_size_ = std::min(piece_size_ * 2, largest_piece);
  poison(next_, static_cast<std::size_t>(end_ - next_));
  char* const first = next_;
  next_ += rounded;
  unpoison(first, rounded);
  return first;
}

void* node_pool::allocate_large(std::size_t bytes) {
  if (bytes > std::numeric_limits<std::size_t>::max() - sizeof(large_block)) throw std::bad_alloc();
  void* const memory = ::operator new(sizeof(large_block) + bytes);
  large_block* const block = new (memory) large_block{large_, nullptr};
  if (large_ != nullptr) large_->previous = block;
  large_ = block;
  return block + 1;
}

}  // namespace Xport
