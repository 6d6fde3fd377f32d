#include "tests/support/allocation_failure.h"

#include <atomic>
#include <cstdlib>

namespace {

std::atomic<std::size_t> live{0};
std::atomic<std::size_t> calls{0};
std::atomic<std::size_t> countdown{0};
std::atomic<bool> all_fail{false};

}  // namespace

namespace test {

std::size_t live_allocations() { return live; }

std::size_t allocation_calls() { return calls; }

void fail_allocation(std::size_t number) {
  countdown = number;
  all_fail = false;
}

void fail_all_allocations() { all_fail = true; }

}  // namespace test

// Replaces all forms, so that none of them is paired with one of a sanitizer.
void* operator new(std::size_t bytes) {
  ++calls;
  if (all_fail || (countdown != 0 && --countdown == 0)) throw std::bad_alloc();
  void* const memory = std::malloc(bytes != 0 ? bytes : 1);
  if (memory == nullptr) throw std::bad_alloc();
  ++live;
  return memory;
}

void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept {
  try {
    return operator new(bytes);
  } catch (const std::bad_alloc&) {
    return nullptr;
  }
}

void* operator new[](std::size_t bytes) { return operator new(bytes); }

void* operator new[](std::size_t bytes, const std::nothrow_t& tag) noexcept {
  return operator new(bytes, tag);
}

void operator delete(void* memory) noexcept {
  if (memory != nullptr) --live;
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept { operator delete(memory); }
void operator delete(void* memory, const std::nothrow_t&) noexcept { operator delete(memory); }
void operator delete[](void* memory) noexcept { operator delete(memory); }
void operator delete[](void* memory, std::size_t) noexcept { operator delete(memory); }
void operator delete[](void* memory, const std::nothrow_t&) noexcept { operator delete(memory); }
