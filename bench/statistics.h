#ifndef BENCH_STATISTICS_H
#define BENCH_STATISTICS_H

#include <algorithm>
#include <iterator>
#include <vector>

namespace bench {

/// The middle of `values`, of which there is at least one; the mean of the two in the
/// middle of an even number.
double median(std::vector<double> values);

/// Half the distance between the quartiles of `values`, in parts of their median.
double spread(std::vector<double> values);

/// One member of each of `runs`, as numbers for the functions above.
template <typename run, typename part>
std::vector<double> values_of(const std::vector<run>& runs, part run::*member) {
  std::vector<double> values;
  values.reserve(runs.size());
  std::transform(runs.begin(), runs.end(), std::back_inserter(values),
                 [member](const run& of) { return static_cast<double>(of.*member); });
  return values;
}

}  // namespace bench

#endif
