#ifndef BENCH_MEASURING_H
#define BENCH_MEASURING_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <limits>
#include <string>
#include <vector>

#include "tests/support/child_process.h"

namespace bench {

/// What a clock counts.
enum class clock_kind {
  wall,  ///< time that passes, steadily
  cpu    ///< time that the process spends on a processor, the kernel's share included
};

/// Seconds since some moment that stays the same while the process lives.
double seconds_now(clock_kind clock);

/// One run by the clock.
struct timing {
  bool done = true;                   ///< false if the work failed
  std::array<double, 3> phases = {};  ///< seconds of each phase, in order
  double together = 0;           ///< seconds from the start of the first to the end of the last
  std::uint64_t peak_bytes = 0;  ///< resident memory at its highest, above that at the start
};

/// Runs up to three phases in this process, one after the other and all of them `times` times, by
/// the clock. Whether they did their work is for the caller to add.
timing measure_phases(clock_kind clock, std::initializer_list<std::function<void()>> phases,
                      std::size_t times = 1);

/// What was measured of one contender on one page.
struct outcome {
  std::string name;
  std::string failure = {};          ///< why it couldn't be measured; else empty
  std::vector<timing> timings = {};  ///< of each run
  std::uint64_t allocations = 0;     ///< heap blocks asked for in all phases
  std::int64_t live_bytes = 0;       ///< heap held by the finished tree
};

/// When a contender takes no more turns.
struct turn_limits {
  test::time_limit run = {};                                  ///< of one run; zero is no limit
  double all_runs = std::numeric_limits<double>::infinity();  ///< seconds of all its runs ...
  std::size_t least_runs = 0;  ///< ... unless it had fewer than these
};

/// Lets `run(i)` measure each contender `repetitions` times and adds the timings to
/// `contenders[i]`. Every run is a process of its own. In each repetition all take their turn,
/// starting with another one each time, so that a drift of the machine hits all alike. A contender
/// that has failed, here or before, takes no more turns.
void measure_in_turns(std::vector<outcome>& contenders, std::size_t repetitions,
                      const std::function<timing(std::size_t)>& run,
                      const turn_limits& limits = {});

/// The contender of that name, which must be there.
const outcome& find(const std::vector<outcome>& contenders, const std::string& name);

/// The middle of `values`, of which there is at least one; the mean of the two in the middle of an
/// even number.
double median(std::vector<double> values);

double median_of_phase(const outcome& of, std::size_t phase);
double median_together(const outcome& of);
double median_peak(const outcome& of);

/// Half the distance between the quartiles of the times together, as a part of their median.
double spread(const outcome& of);

}  // namespace bench

#endif
