#ifndef BENCH_ALLOCATION_COUNTER_H
#define BENCH_ALLOCATION_COUNTER_H

#include <cstdint>

namespace bench {

/// What the process has asked of the heap since counting began.
struct allocation_counts {
  std::uint64_t allocations;  ///< successful calls that returned a block, resizing included
  std::int64_t live_bytes;    ///< blocks with their headers that aren't freed yet
};

/// Starts counting from zero. Until then the counters cost one test per call. The counters aren't
/// locked, so they are for programs of one thread.
///
/// Every block of the program and of all its libraries is counted, `new` included, since the
/// program's own malloc replaces the C library's. Memory that a library maps itself counts as one
/// allocation.
void start_counting_allocations();

/// The counts so far.
allocation_counts counted_allocations();

}  // namespace bench

#endif
