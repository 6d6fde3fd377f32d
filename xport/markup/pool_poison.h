#ifndef XPORT_MARKUP_POOL_POISON_H
#define XPORT_MARKUP_POOL_POISON_H

#include <cstddef>

// Under the address sanitizer, memory of a pool that nobody holds is poisoned, so
// that pools hide no use of a dead node.
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

#if defined(VELLOMARK_POISON_POOL_MEMORY)
inline void pool_memory_taken(const void* memory, std::size_t bytes) {
  __asan_unpoison_memory_region(memory, bytes);
}
inline void pool_memory_free(const void* memory, std::size_t bytes) {
  __asan_poison_memory_region(memory, bytes);
}
#else
inline void pool_memory_taken(const void*, std::size_t) {}
inline void pool_memory_free(const void*, std::size_t) {}
#endif

}  // namespace Xport

#endif
