#ifndef BENCH_COMPARISON_H
#define BENCH_COMPARISON_H

#include <cstddef>
#include <optional>
#include <string>

#include "bench/table.h"

namespace bench {

/// Measures every contender on one page, each run in a process of its own: first
/// one that counts, then `repetitions` by the clock, in which all take their turn
/// each time so that a drift of the machine hits all alike.
///
/// The pages of the counting runs are compared: the library's and the bare loop's
/// byte for byte, all others by their trees. Nothing is measured of contenders
/// that don't make the same page: then, and after a run that failed, the result
/// is empty and standard error says why.
std::optional<page_outcome> compare(const workload_plan& plan, std::size_t repetitions,
                                    clock_kind clock, const std::string& folder);

}  // namespace bench

#endif
