#ifndef BENCH_REPORT_COMPARISON_H
#define BENCH_REPORT_COMPARISON_H

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "bench/contender.h"
#include "bench/measuring.h"
#include "bench/process_state.h"

namespace bench {

/// All that was measured on one page.
struct report_outcome {
  workload_plan plan;
  std::vector<outcome> contenders;   ///< with pugixml and the bare loop among them
  std::vector<write_counts> writes;  ///< of each contender while it saved
};

/// All contenders, in the order of the table.
std::vector<std::unique_ptr<contender>> all_contenders();

/// Builds, saves and destroys in this process, by the clock. A page of a few items is made first,
/// so that libraries have bound their symbols and read their code.
timing measure_report(contender& subject, const workload_plan& plan, clock_kind clock,
                      const page_target& target);

/// Measures every contender on one page: first a run that counts, then `repetitions` by the clock.
///
/// The pages of the counting runs are compared: the library's and the bare loop's byte for byte,
/// all others by their trees. If they differ, nothing is measured. Then, and after a run that
/// failed, the result is empty and standard error says why.
std::optional<report_outcome> compare_reports(const workload_plan& plan, std::size_t repetitions,
                                              clock_kind clock, const page_folder& folder);

}  // namespace bench

#endif
