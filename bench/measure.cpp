#include "bench/measure.h"

#include <unistd.h>

#include "bench/allocation_counter.h"
#include "bench/process_state.h"

namespace bench {

namespace {

void warm_up(contender& subject, page_kind kind, const page_target& target) {
  const workload work({kind, 2 * table_columns});
  subject.build(work);
  subject.save(work, target);
  subject.destroy();
}

}  // namespace

timing measure_time(contender& subject, const workload_plan& plan, clock_kind clock,
                    const page_target& target) {
  const workload work(plan);
  warm_up(subject, plan.kind, target);
  // Cutting off the pages of an older file would count as saving.
  unlink(target.path().c_str());
  const std::uint64_t resident = resident_bytes();

  const double start = seconds_now(clock);
  subject.build(work);
  const double built = seconds_now(clock);
  const bool saved = subject.save(work, target);
  const double written = seconds_now(clock);
  subject.destroy();
  const double end = seconds_now(clock);

  const std::uint64_t peak = peak_resident_bytes();
  unlink(target.path().c_str());
  return {saved,         built - start, written - built,
          end - written, end - start,   peak > resident ? peak - resident : 0};
}

counting measure_counts(contender& subject, const workload_plan& plan, const page_target& target) {
  const workload work(plan);
  unlink(target.path().c_str());

  start_counting_allocations();
  subject.build(work);
  const allocation_counts built = counted_allocations();
  const write_counts before = written_so_far();
  const allocation_counts reading = counted_allocations();
  const bool saved = subject.save(work, target);
  subject.destroy();
  const allocation_counts end = counted_allocations();
  const write_counts after = written_so_far();

  return {saved, built.allocations + (end.allocations - reading.allocations), built.live_bytes,
          after.calls - before.calls, after.bytes - before.bytes};
}

}  // namespace bench
