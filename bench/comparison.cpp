#include "bench/comparison.h"

#include <unistd.h>

#include <cstdio>

#include "bench/child_process.h"
#include "bench/page_check.h"

namespace bench {

namespace {

page_target page_of(const std::string& folder, std::size_t contender_index) {
  return {folder, "page" + std::to_string(contender_index) + ".htm"};
}

/// Compares the pages that the counting runs left: the library's and the bare
/// loop's byte for byte, all others by their trees. Says what differs.
bool check_pages(const std::vector<outcome>& made, const workload_plan& plan,
                 const std::string& folder) {
  std::string bare_page;
  for (std::size_t at = 0; at < made.size(); ++at) {
    if (made[at].name == bare_loop_name) {
      bare_page = page_of(folder, at).path();
    }
  }
  bool all_right = true;
  for (std::size_t at = 0; at < made.size(); ++at) {
    const std::string page = page_of(folder, at).path();
    const bool bytewise = made[at].name == vellomark_name;
    const std::optional<bool> equal = in_child_process([&] {
      return bytewise ? same_bytes(page, bare_page)
                      : tree_fingerprint(page) != 0 &&
                            tree_fingerprint(page) == tree_fingerprint(bare_page);
    });
    if (!equal.value_or(false)) {
      std::fprintf(stderr, "report_bench: %s: the page of %s isn't the required one\n",
                   plan.label().c_str(), made[at].name.c_str());
      all_right = false;
    }
  }
  return all_right;
}

/// Says which run failed, and tells whether it did not.
bool succeeded(bool saved, const contender& subject, const workload_plan& plan) {
  if (!saved) {
    std::fprintf(stderr, "report_bench: %s: %s failed\n", plan.label().c_str(),
                 subject.name().c_str());
  }
  return saved;
}

}  // namespace

std::optional<page_outcome> compare(const workload_plan& plan, std::size_t repetitions,
                                    clock_kind clock, const std::string& folder) {
  const auto contenders = all_contenders();
  page_outcome page = {plan, {}};
  bool all_right = true;
  for (std::size_t at = 0; at < contenders.size(); ++at) {
    contender& subject = *contenders[at];
    const auto counts =
        in_child_process([&] { return measure_counts(subject, plan, page_of(folder, at)); });
    // Nobody works without the heap: a count of zero is a counter that wasn't asked.
    const bool counted = counts && counts->saved && counts->allocations != 0;
    all_right = succeeded(counted, subject, plan) && all_right;
    page.contenders.push_back({subject.name(), {}, counts.value_or(counting{})});
  }
  all_right = all_right && check_pages(page.contenders, plan, folder);
  for (std::size_t at = 0; at < contenders.size(); ++at) {
    unlink(page_of(folder, at).path().c_str());
  }
  for (std::size_t repetition = 0; repetition < repetitions && all_right; ++repetition) {
    for (std::size_t turn = 0; turn < contenders.size(); ++turn) {
      const std::size_t at = (repetition + turn) % contenders.size();
      contender& subject = *contenders[at];
      const auto time =
          in_child_process([&] { return measure_time(subject, plan, clock, page_of(folder, at)); });
      all_right = succeeded(time && time->saved, subject, plan) && all_right;
      page.contenders[at].timings.push_back(time.value_or(timing{}));
    }
  }
  if (!all_right) {
    return std::nullopt;
  }
  return page;
}

}  // namespace bench
