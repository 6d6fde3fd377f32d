#ifndef BENCH_MEASURE_H
#define BENCH_MEASURE_H

#include <cstdint>

#include "bench/clock.h"
#include "bench/contender.h"

namespace bench {

/// Seconds of one run by the clock, and the memory it took.
struct timing {
  bool saved;
  double build;
  double save;
  double destroy;
  double together;           ///< from the start of building to the end of destruction
  std::uint64_t peak_bytes;  ///< resident memory at its highest, above that at the start
};

/// What doesn't depend on the clock, from a run of its own, so that counting
/// costs the timed runs nothing.
struct counting {
  bool saved;
  std::uint64_t allocations;    ///< in all three phases
  std::int64_t live_bytes;      ///< heap held by the finished tree
  std::uint64_t write_calls;    ///< while saving
  std::uint64_t written_bytes;  ///< while saving
};

/// Runs the three phases in this process, by the clock. A page of a few items is
/// made first, so that libraries have bound their symbols and read their code.
timing measure_time(contender& subject, const workload_plan& plan, clock_kind clock,
                    const page_target& target);

/// Runs the three phases in this process and counts. The page stays on disk.
counting measure_counts(contender& subject, const workload_plan& plan, const page_target& target);

}  // namespace bench

#endif
