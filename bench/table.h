#ifndef BENCH_TABLE_H
#define BENCH_TABLE_H

#include <string>
#include <vector>

#include "bench/measure.h"

namespace bench {

/// All that was measured of one contender on one page.
struct outcome {
  std::string name;
  std::vector<timing> timings;  ///< one of each repetition, at least one
  counting counts;
};

/// All that was measured on one page.
struct page_outcome {
  workload_plan plan;
  std::vector<outcome> contenders;  ///< with pugixml and the bare loop among them
};

/// Prints the table of ratios to standard output, with the meaning of its
/// columns below.
void print_table(const std::vector<page_outcome>& pages);

}  // namespace bench

#endif
