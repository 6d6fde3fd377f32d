#include "bench/statistics.h"

namespace bench {

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t half = values.size() / 2;
  return values.size() % 2 != 0 ? values[half] : (values[half - 1] + values[half]) / 2;
}

double spread(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t last = values.size() - 1;
  return (values[last - last / 4] - values[last / 4]) / 2 / median(values);
}

}  // namespace bench
