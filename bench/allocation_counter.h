#ifndef BENCH_ALLOCATION_COUNTER_H
#define BENCH_ALLOCATION_COUNTER_H

#include <cstdint>

namespace bench {

/// What the process asked of the heap since counting began.
struct allocation_counts {
  std::uint64_t allocations;  ///< successful calls that gave a new block, a resize included
  std::int64_t live_bytes;    ///< whole blocks with their headers, less those given back
};

/// Starts counting from zero. Until then the counters cost one test per call.
/// For one thread: the counters aren't locked.
///
/// Every block of the program and of all its libraries is seen, `new` included,
/// since the program's own malloc takes the place of the C library's. Memory
/// that a library maps by itself counts as one allocation.
void start_counting_allocations();

/// The counts so far.
allocation_counts counted_allocations();

}  // namespace bench

#endif
