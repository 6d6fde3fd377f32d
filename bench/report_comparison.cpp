#include "bench/report_comparison.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>

#include "bench/allocation_counter.h"

namespace bench {

namespace {

void warm_up(contender& subject, const workload_plan& plan, const page_target& target) {
  const workload work({plan.kind, std::min<std::size_t>(plan.items, 40)});
  subject.build(work);
  subject.save(work, target);
  subject.destroy();
}

/// What doesn't depend on the clock, from a run of its own, so that counting costs the timed runs
/// nothing.
struct counting {
  bool saved;
  std::uint64_t allocations;
  std::int64_t live_bytes;
  write_counts writes;
};

/// Runs the three phases in this process and counts. The page stays on disk.
counting count(contender& subject, const workload_plan& plan, const page_target& target) {
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

  return {saved,
          built.allocations + (end.allocations - reading.allocations),
          built.live_bytes,
          {after.calls - before.calls, after.bytes - before.bytes}};
}

void complain(const workload_plan& plan, const std::string& name, const char* what) {
  std::fprintf(stderr, "report_bench: %s: %s: %s\n", plan.label().c_str(), name.c_str(), what);
}

/// Whether nobody failed. Says who did.
bool all_succeeded(const report_outcome& page) {
  bool all_right = true;
  for (const outcome& of : page.contenders) {
    if (of.failure.empty()) continue;
    complain(page.plan, of.name, of.failure.c_str());
    all_right = false;
  }
  return all_right;
}

/// Whether all have written the same page. Says who has not.
bool check_pages(const report_outcome& page, const std::vector<page_target>& targets) {
  std::string bare_page;
  for (std::size_t at = 0; at < targets.size(); ++at) {
    if (page.contenders[at].name == bare_loop_name) bare_page = targets[at].path();
  }
  bool all_right = true;
  for (std::size_t at = 0; at < targets.size(); ++at) {
    const std::string path = targets[at].path();
    const std::string& name = page.contenders[at].name;
    const auto equal = test::run_in_child([&] {
      if (name == vellomark_name) return same_bytes(path, bare_page);
      const std::uint64_t tree = tree_fingerprint(path);
      return tree != 0 && tree == tree_fingerprint(bare_page);
    });
    if (!equal.made.value_or(false)) {
      complain(page.plan, name, "the page isn't the required one");
      all_right = false;
    }
  }
  return all_right;
}

}  // namespace

std::vector<std::unique_ptr<contender>> all_contenders() {
  std::vector<std::unique_ptr<contender>> all;
  all.push_back(make_vellomark_report());
  all.push_back(make_pugixml_tree());
  all.push_back(make_rapidxml_tree());
  all.push_back(make_libxml2_tree());
  all.push_back(make_tinyxml2_tree());
  all.push_back(make_bare_loop());
  return all;
}

timing measure_report(contender& subject, const workload_plan& plan, clock_kind clock,
                      const page_target& target) {
  const workload work(plan);
  warm_up(subject, plan, target);
  bool saved = true;
  // Truncating an older file would count as saving.
  unlink(target.path().c_str());
  timing time = measure_phases(
      clock,
      {[&] { subject.build(work); }, [&] { saved = subject.save(work, target) && saved; },
       [&] { subject.destroy(); }},
      plan.pages);
  time.done = saved;
  unlink(target.path().c_str());
  return time;
}

std::optional<report_outcome> compare_reports(const workload_plan& plan, std::size_t repetitions,
                                              clock_kind clock, const page_folder& folder) {
  const auto contenders = all_contenders();
  report_outcome page = {plan, {}, {}};
  std::vector<page_target> targets;
  for (const auto& subject : contenders) {
    targets.push_back(folder.page("page" + std::to_string(targets.size()) + ".htm"));
    const auto counted = test::run_in_child([&] { return count(*subject, plan, targets.back()); });
    const counting counts = counted.made.value_or(counting{});
    // Nobody works without the heap: a count of zero is a counter that wasn't asked.
    const bool done = counts.saved && counts.allocations != 0;
    page.contenders.push_back(
        {subject->name(), done ? "" : "failed", {}, counts.allocations, counts.live_bytes});
    page.writes.push_back(counts.writes);
  }
  const bool equal = all_succeeded(page) && check_pages(page, targets);
  for (const page_target& target : targets) unlink(target.path().c_str());
  if (!equal) return std::nullopt;
  measure_in_turns(page.contenders, repetitions, [&](std::size_t at) {
    return measure_report(*contenders[at], plan, clock, targets[at]);
  });
  if (!all_succeeded(page)) return std::nullopt;
  return page;
}

}  // namespace bench
