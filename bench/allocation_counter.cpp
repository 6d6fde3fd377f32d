#include "bench/allocation_counter.h"

#include <malloc.h>
#include <sys/mman.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <cstdlib>

// The C library's own functions under their second names.
extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
}

namespace {

bool counting = false;
bench::allocation_counts counts = {0, 0};

/// The bytes of a block in the heap: the usable ones and the word before them.
std::int64_t block_bytes(void* block) {
  return static_cast<std::int64_t>(malloc_usable_size(block) + sizeof(std::size_t));
}

void* taken(void* block) {
  if (counting && block != nullptr) {
    ++counts.allocations;
    counts.live_bytes += block_bytes(block);
  }
  return block;
}

void given_back(void* block) {
  if (counting && block != nullptr) {
    counts.live_bytes -= block_bytes(block);
  }
}

}  // namespace

// These replace the C library's functions of the same names for the whole process.
extern "C" {

void* malloc(std::size_t size) noexcept { return taken(__libc_malloc(size)); }

void* calloc(std::size_t count, std::size_t size) noexcept {
  return taken(__libc_calloc(count, size));
}

void* realloc(void* block, std::size_t size) noexcept {
  if (!counting) {
    return __libc_realloc(block, size);
  }
  const std::int64_t before = block == nullptr ? 0 : block_bytes(block);
  void* const resized = __libc_realloc(block, size);
  if (resized != nullptr || size == 0) {
    counts.live_bytes -= before;
  }
  return taken(resized);
}

void free(void* block) noexcept {
  given_back(block);
  __libc_free(block);
}

void* memalign(std::size_t alignment, std::size_t size) noexcept {
  return taken(__libc_memalign(alignment, size));
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
  return taken(__libc_memalign(alignment, size));
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) noexcept {
  if (alignment % sizeof(void*) != 0 || (alignment & (alignment - 1)) != 0 || alignment == 0) {
    return EINVAL;
  }
  void* const made = memalign(alignment, size);
  if (made == nullptr) {
    return ENOMEM;
  }
  *block = made;
  return 0;
}

void* mmap(void* address, std::size_t size, int protection, int flags, int file,
           off_t offset) noexcept {
  const long result = syscall(SYS_mmap, address, size, protection, flags, file, offset);
  if (counting && result != -1 && (flags & MAP_ANONYMOUS) != 0) {
    ++counts.allocations;
    counts.live_bytes += static_cast<std::int64_t>(size);
  }
  return reinterpret_cast<void*>(result);
}

int munmap(void* address, std::size_t size) noexcept {
  const long result = syscall(SYS_munmap, address, size);
  if (counting && result == 0) {
    counts.live_bytes -= static_cast<std::int64_t>(size);
  }
  return static_cast<int>(result);
}

}  // extern "C"

namespace bench {

void start_counting_allocations() {
  counts = {0, 0};
  counting = true;
}

allocation_counts counted_allocations() { return counts; }

}  // namespace bench
