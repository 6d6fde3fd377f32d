#include "bench/clock.h"

#include <ctime>

namespace bench {

double seconds_now(clock_kind clock) {
  timespec now = {};
  clock_gettime(clock == clock_kind::wall ? CLOCK_MONOTONIC : CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

}  // namespace bench
