#include "xport/markup/node_memory.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <random>
#include <vector>

#include "tests/support/allocation_failure.h"
#include "tests/support/names.h"

namespace test {
namespace {

bool is_aligned(const void* memory) {
  return reinterpret_cast<std::uintptr_t>(memory) % node_pool::granule == 0;
}

/// A block that is filled with a byte of its own.
struct block {
  unsigned char* memory;
  std::size_t bytes;
  unsigned char mark;

  bool is_untouched() const {
    for (std::size_t i = 0; i < bytes; ++i)
      if (memory[i] != mark) return false;
    return true;
  }
};

block take(node_pool& pool, std::size_t bytes, unsigned mark) {
  const auto filled = static_cast<unsigned char>(mark);
  void* const memory = pool.allocate(bytes);
  std::memset(memory, filled, bytes);
  return {static_cast<unsigned char*>(memory), bytes, filled};
}

TEST(NodePool, RoundsUpToGranules) {
  EXPECT_EQ(node_pool::round_up(1), 8u);
  EXPECT_EQ(node_pool::round_up(8), 8u);
  EXPECT_EQ(node_pool::round_up(9), 16u);
  EXPECT_EQ(node_pool::round_up(512), 512u);
}

TEST(NodePool, ReturnsMemoryOfEverySizeAlignedAndApart) {
  node_pool pool;
  std::vector<block> blocks;
  for (unsigned size = 1; size <= 2000; ++size) {
    blocks.push_back(take(pool, size, size));
    ASSERT_TRUE(is_aligned(blocks.back().memory)) << size;
  }
  for (const block& b : blocks) ASSERT_TRUE(b.is_untouched()) << b.bytes;
}

TEST(NodePool, ReusesReleasedMemoryForTheSameSize) {
  for (std::size_t size = 1; size <= node_pool::largest_small; ++size) {
    node_pool pool;
    void* const first = pool.allocate(size);
    void* const second = pool.allocate(size);
    pool.release(first, size);
    EXPECT_NE(pool.allocate(size + node_pool::granule), first);
    EXPECT_EQ(pool.allocate(size), first);
    pool.release(second, size);
    pool.release(first, size);
    EXPECT_EQ(pool.allocate(node_pool::round_up(size)), first) << "sizes count in granules";
    EXPECT_EQ(pool.allocate(size), second);
  }
}

TEST(NodePool, FreesLargeMemoryOnRelease) {
  node_pool pool;
  std::vector<void*> blocks;
  for (int i = 0; i < 10; ++i) blocks.push_back(pool.allocate(node_pool::largest_small + 1));
  const std::size_t with_all = live_allocations();
  // From the middle, the end and the start of the pool's list.
  for (const std::size_t i : {4u, 0u, 9u, 5u, 1u, 8u, 2u, 3u, 7u, 6u})
    pool.release(blocks[i], node_pool::largest_small + 1);
  EXPECT_EQ(live_allocations(), with_all - 10);
}

TEST(NodePool, FreesAllMemoryWhenItIsDestroyed) {
  const std::size_t before = live_allocations();
  {
    node_pool pool;
    for (std::size_t size = 1; size < 5000; size += 3) pool.allocate(size);
    EXPECT_GT(live_allocations(), before);
  }
  EXPECT_EQ(live_allocations(), before);
}

TEST(NodePool, AllocatesNothingBeforeItIsUsed) {
  const std::size_t calls = allocation_calls();
  { const node_pool pool; }
  EXPECT_EQ(allocation_calls(), calls);
}

TEST(NodePool, AllocatesLargePieces) {
  const std::size_t calls = allocation_calls();
  node_pool pool;
  for (int i = 0; i < 1000000; ++i) std::memset(pool.allocate(64), i & 0xFF, 64);
  EXPECT_LT(allocation_calls() - calls, 50u);
}

TEST(NodePool, DoesNotGrowWhereMemoryComesBack) {
  node_pool pool;
  pool.allocate(8);
  const std::size_t calls = allocation_calls();
  for (int i = 0; i < 100000; ++i) pool.release(pool.allocate(88), 88);
  EXPECT_EQ(allocation_calls(), calls);
}

TEST(NodePool, KeepsBlocksApartInAnyOrder) {
  std::mt19937 random(2);
  node_pool pool;
  std::vector<block> blocks;
  for (unsigned step = 0; step < 40000; ++step) {
    if (blocks.empty() || random() % 5 < 3) {
      const std::size_t bytes = 1 + random() % (random() % 8 == 0 ? 3000 : 200);
      blocks.push_back(take(pool, bytes, step));
      ASSERT_TRUE(is_aligned(blocks.back().memory));
    } else {
      const std::size_t at = random() % blocks.size();
      ASSERT_TRUE(blocks[at].is_untouched());
      pool.release(blocks[at].memory, blocks[at].bytes);
      blocks[at] = blocks.back();
      blocks.pop_back();
    }
  }
  for (const block& b : blocks) ASSERT_TRUE(b.is_untouched());
}

TEST(NodePool, RefusesSizesThatNoMachineHas) {
  node_pool pool;
  const volatile std::size_t all = SIZE_MAX;
  EXPECT_THROW(pool.allocate(all), std::bad_alloc);
  EXPECT_THROW(pool.allocate(all - 15), std::bad_alloc);
  take(pool, 8, 1);
}

TEST(NodePool, StaysWholeWhenTheSystemHasNoMemory) {
  const std::size_t before = live_allocations();
  {
    node_pool pool;
    const std::size_t failures = fail_each_allocation(
        [&pool] {
          for (int i = 0; i < 1000; ++i) take(pool, 100, 7);
          take(pool, 1000, 7);
        },
        [&pool] { take(pool, 8, 7); });
    EXPECT_GT(failures, 1u);
  }
  EXPECT_EQ(live_allocations(), before);
}

TEST(NodePool, RemembersThatNodesWereAdopted) {
  node_pool pool;
  EXPECT_FALSE(pool.holds_heap_nodes());
  pool.note_heap_node();
  EXPECT_TRUE(pool.holds_heap_nodes());
}

}  // namespace
}  // namespace test
