#ifndef BENCH_CLOCK_H
#define BENCH_CLOCK_H

namespace bench {

/// What a clock counts.
enum class clock_kind {
  wall,  ///< time that passes, steadily
  cpu    ///< time that the process spends on a processor, the kernel's share included
};

/// Seconds since some moment that stays the same while the process lives.
double seconds_now(clock_kind clock);

}  // namespace bench

#endif
