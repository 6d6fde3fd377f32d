#include "bench/measuring.h"

#include <algorithm>
#include <ctime>
#include <iterator>

#include "bench/process_state.h"

namespace bench {

namespace {

template <typename part>
std::vector<double> values_of(const outcome& of, part value) {
  std::vector<double> values;
  std::transform(of.timings.begin(), of.timings.end(), std::back_inserter(values), value);
  return values;
}

double together(const timing& time) { return time.together; }

}  // namespace

double seconds_now(clock_kind clock) {
  timespec now = {};
  clock_gettime(clock == clock_kind::wall ? CLOCK_MONOTONIC : CLOCK_PROCESS_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

timing measure_phases(clock_kind clock, std::initializer_list<std::function<void()>> phases,
                      std::size_t times) {
  timing result;
  const std::uint64_t resident = resident_bytes();
  const double start = seconds_now(clock);
  double before = start;
  for (; times != 0; --times) {
    std::size_t phase = 0;
    for (const std::function<void()>& run : phases) {
      run();
      const double after = seconds_now(clock);
      result.phases[phase++] += after - before;
      before = after;
    }
  }
  result.together = before - start;
  const std::uint64_t peak = peak_resident_bytes();
  result.peak_bytes = peak > resident ? peak - resident : 0;
  return result;
}

void measure_in_turns(std::vector<outcome>& contenders, std::size_t repetitions,
                      const std::function<timing(std::size_t)>& run, const turn_limits& limits) {
  std::vector<double> spent(contenders.size());
  for (std::size_t repetition = 0; repetition < repetitions; ++repetition) {
    for (std::size_t turn = 0; turn < contenders.size(); ++turn) {
      const std::size_t at = (repetition + turn) % contenders.size();
      outcome& of = contenders[at];
      const bool used_up = spent[at] > limits.all_runs && of.timings.size() >= limits.least_runs;
      if (!of.failure.empty() || used_up) continue;
      const double start = seconds_now(clock_kind::wall);
      const auto time = test::run_in_child([&] { return run(at); }, limits.run);
      spent[at] += seconds_now(clock_kind::wall) - start;
      if (time.made && time.made->done) {
        of.timings.push_back(*time.made);
      } else {
        of.failure = time.made ? "failed" : time.failure;
      }
    }
  }
}

const outcome& find(const std::vector<outcome>& contenders, const std::string& name) {
  return *std::find_if(contenders.begin(), contenders.end(),
                       [&](const outcome& of) { return of.name == name; });
}

double median(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  const std::size_t half = values.size() / 2;
  return values.size() % 2 != 0 ? values[half] : (values[half - 1] + values[half]) / 2;
}

double median_of_phase(const outcome& of, std::size_t phase) {
  return median(values_of(of, [phase](const timing& time) { return time.phases[phase]; }));
}

double median_together(const outcome& of) { return median(values_of(of, together)); }

double median_peak(const outcome& of) {
  return median(
      values_of(of, [](const timing& time) { return static_cast<double>(time.peak_bytes); }));
}

double spread(const outcome& of) {
  std::vector<double> values = values_of(of, together);
  std::sort(values.begin(), values.end());
  const std::size_t last = values.size() - 1;
  return (values[last - last / 4] - values[last / 4]) / 2 / median(values);
}

}  // namespace bench
