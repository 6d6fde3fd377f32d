#include "bench/reading/read_measure.h"

#include "bench/allocation_counter.h"
#include "bench/process_state.h"

namespace bench {

read_timing measure_read_time(page_reader& subject, const std::string& path,
                              const std::string& warm_up_path, clock_kind clock) {
  subject.read(warm_up_path);
  subject.destroy();
  const std::uint64_t resident = resident_bytes();

  const double start = seconds_now(clock);
  const bool done = subject.read(path);
  const double finished = seconds_now(clock);
  subject.destroy();
  const double end = seconds_now(clock);

  const std::uint64_t peak = peak_resident_bytes();
  return {done, finished - start, end - finished, end - start,
          peak > resident ? peak - resident : 0};
}

read_counting measure_read_counts(page_reader& subject, const std::string& path) {
  start_counting_allocations();
  const bool done = subject.read(path);
  const allocation_counts finished = counted_allocations();
  const tree_summary tree = done ? subject.summarize() : tree_summary{};
  const allocation_counts before = counted_allocations();
  subject.destroy();
  const allocation_counts end = counted_allocations();
  return {done, finished.allocations + (end.allocations - before.allocations), finished.live_bytes,
          tree};
}

}  // namespace bench
