#include "xport/markup/node_memory.h"

#include <algorithm>
#include <cerrno>
#include <limits>
#include <memory>

#ifdef __linux__
#include <sys/mman.h>
#endif

#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_element.h"

namespace Xport {

namespace {

// Half of the time of building a large tree goes into memory that is new to the process, which the
// system provides page by page. With huge pages that takes a small part of it. This is advice: if
// the system refuses it, nothing is lost.
void advise_huge_pages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t bytes) {
#ifdef MADV_HUGEPAGE
  constexpr std::size_t page = 64 * 1024;  // a multiple of all but the rarest page sizes
  constexpr std::size_t worthwhile = 4 * 1024 * 1024;
  if (bytes < worthwhile || std::align(page, worthwhile / 2, memory, bytes) == nullptr) return;
  const int before = errno;
  ::madvise(memory, bytes / page * page, MADV_HUGEPAGE);
  errno = before;
#endif
}

}  // namespace

node_pool::sized_block node_pool::empty_heap_block_{nullptr, 0, 0};

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
  poison(memory, rounded);
}

// Returns released memory, or the start of a new piece.
void* node_pool::allocate_small(std::size_t rounded) {
  if (free_block* const released = free_[rounded / granule]) {
    unpoison(released, rounded);
    free_[rounded / granule] = released->next;
    return released;
  }
  void* const memory = ::operator new(piece_size_);
  advise_huge_pages(memory, piece_size_);
  pieces_ = new (memory) piece{pieces_};
  end_ = static_cast<char*>(memory) + piece_size_;
  piece_size_ = std::min(piece_size_ * 2, largest_piece);
  char* const first = reinterpret_cast<char*>(pieces_ + 1);
  next_ = first + rounded;
  poison(next_, static_cast<std::size_t>(end_ - next_));
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

xhtml_markup* node_place::make_copy(const xhtml_markup& node) const {
  switch (node.type()) {
    case node_type::element:
      return make<xhtml_element>(*node.as_element());
    case node_type::pcdata:
      return make_leaf<xhtml_pcdata>(node.as_text()->text());
    case node_type::comment:
      return make_leaf<xhtml_comment>(node.as_text()->text());
    case node_type::processing_instruction:
      return make_leaf<xhtml_processing_instruction>(node.as_text()->text());
    case node_type::doctype:
      return make_leaf<xhtml_doctype_declaration>(node.as_text()->text());
    case node_type::none:
      break;
  }
  return nullptr;
}

// A node in a pool finds its pool through its parent.
void xhtml_markup::operator delete(xhtml_markup* node, std::destroying_delete_t, std::size_t,
                                   std::align_val_t alignment) {
  if (node->in_pool_) {
    node_pool* const pool = node->parent_->as_element()->pool();
    const std::size_t bytes = node->granules_ * node_pool::granule;
    node->~xhtml_markup();
    pool->release(node, bytes);
    return;
  }
  void* const memory = dynamic_cast<void*>(node);
  node->~xhtml_markup();
  if (static_cast<std::size_t>(alignment) > __STDCPP_DEFAULT_NEW_ALIGNMENT__)
    ::operator delete(memory, alignment);
  else
    ::operator delete(memory);
}

void* xhtml_markup::operator new(std::size_t bytes) { return ::operator new(bytes); }

void* xhtml_markup::operator new(std::size_t bytes, std::align_val_t alignment) {
  return ::operator new(bytes, alignment);
}

void* xhtml_markup::operator new(std::size_t bytes, const std::nothrow_t& tag) noexcept {
  return ::operator new(bytes, tag);
}

void* xhtml_markup::operator new(std::size_t bytes, std::align_val_t alignment,
                                 const std::nothrow_t& tag) noexcept {
  return ::operator new(bytes, alignment, tag);
}

void xhtml_markup::operator delete(void* memory) { ::operator delete(memory); }

void xhtml_markup::operator delete(void* memory, std::align_val_t alignment) {
  ::operator delete(memory, alignment);
}

void xhtml_markup::operator delete(void* memory, const std::nothrow_t&) {
  ::operator delete(memory);
}

void xhtml_markup::operator delete(void* memory, std::align_val_t alignment,
                                   const std::nothrow_t&) {
  ::operator delete(memory, alignment);
}

}  // namespace Xport
