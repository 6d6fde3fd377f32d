#include "xport/markup/node_pool.h"

#include <algorithm>
#include <limits>
#include <new>

namespace Xport {

node_pool::sized_block node_pool::empty_heap_block_{nullptr, 0};

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
  pool_memory_free(memory, rounded);
}

// Memory that was released, or the start of a new piece.
void* node_pool::allocate_small(std::size_t rounded) {
  if (free_block* const released = free_[rounded / granule]) {
    pool_memory_taken(released, rounded);
    free_[rounded / granule] = released->next;
    return released;
  }
  void* const memory = ::operator new(piece_size_);
  pieces_ = new (memory) piece{pieces_};
  end_ = static_cast<char*>(memory) + piece_size_;
  piece_size_ = std::min(piece_size_ * 2, largest_piece);
  char* const first = reinterpret_cast<char*>(pieces_ + 1);
  next_ = first + rounded;
  pool_memory_free(next_, static_cast<std::size_t>(end_ - next_));
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
