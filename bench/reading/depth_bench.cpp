// How the time that a page takes to read grows with the depth of its elements.
#include <sys/resource.h>

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "bench/measuring.h"
#include "bench/options.h"
#include "bench/process_state.h"
#include "bench/reading/page_input.h"
#include "bench/reading/page_reader.h"
#include "bench/text_table.h"

namespace {

using namespace bench;

constexpr test::time_limit limit(20);  // of a run

constexpr const char* usage =
    "usage: depth_bench [--quick] [--repeat N] [--cpu-time] [--folder DIR]\n"
    "\n"
    "  --quick       shallow pages: shows that it works, measures little\n"
    "  --repeat N    runs of each reader on each page (5); one of those that take seconds\n"
    "  --cpu-time    the clock counts processor time instead of time that passes\n"
    "  --folder DIR  where pages are written for a moment (/dev/shm, or else $TMPDIR, /tmp)\n";

/// A page of nested elements.
struct deep_page {
  std::size_t levels;
  std::string path;

  /// A root, a head, a title, a body and a block besides the levels.
  std::size_t elements() const { return levels + 5; }
};

/// What was found for one reader at one depth.
struct depth_outcome {
  outcome reading;              ///< with the phases read and destroy
  std::string destroy_failure;  ///< why the tree couldn't be destroyed; else empty
  std::uint64_t elements = 0;   ///< that the reader made
};

/// Reads once in a child process. Without `destroying` the child ends with the tree in its memory.
test::child_outcome<timing> run_once(page_reader& subject, const std::string& path,
                                     const std::string& warm_up_path, clock_kind clock,
                                     bool destroying) {
  const auto run = [&] {
    limit_memory();
    subject.read(warm_up_path);
    subject.destroy();
    bool done = false;
    timing time = measure_phases(clock, {[&] { done = subject.read(path); },
                                         [&] {
                                           if (destroying) subject.destroy();
                                         }});
    time.done = done;
    return time;
  };
  return test::run_in_child(run, limit);
}

/// How many elements the reader makes of the page; 0 if that can't be told.
std::uint64_t count_elements(page_reader& subject, const std::string& path) {
  const auto count = [&] {
    limit_memory();
    return subject.read(path) ? subject.summarize().elements : 0;
  };
  return test::run_in_child(count, limit).made.value_or(0);
}

depth_outcome measure(page_reader& subject, const std::string& path,
                      const std::string& warm_up_path, const options& chosen) {
  depth_outcome of = {{subject.name()}, {}, 0};
  for (std::size_t run = 0; run < chosen.repeat; ++run) {
    auto one = run_once(subject, path, warm_up_path, chosen.clock, of.destroy_failure.empty());
    if (!one.made && of.destroy_failure.empty()) {
      // Reading and destroying failed: reading alone tells which of them it was.
      of.destroy_failure = one.failure;
      one = run_once(subject, path, warm_up_path, chosen.clock, false);
    }
    if (!one.made || !one.made->done) {
      of.reading.failure = one.made ? "failed" : one.failure;
      return of;
    }
    of.reading.timings.push_back(*one.made);
    // A slow run is believed the first time.
    if (one.made->phases[0] > 2) break;
  }
  of.elements = count_elements(subject, path);
  return of;
}

/// Nanoseconds for each level, or the failure.
std::string cell(const std::string& failure, const outcome& of, std::size_t phase,
                 std::size_t levels) {
  if (!failure.empty()) return failure;
  return fixed(1e9 * median_of_phase(of, phase) / static_cast<double>(levels), 1);
}

void print_rows(const text_table& table, const std::vector<deep_page>& pages,
                const std::vector<depth_outcome>& outcomes) {
  const std::string& name = outcomes.front().reading.name;
  std::vector<std::string> read = {name, "read"};
  std::vector<std::string> destroy = {name, "destroy"};
  for (std::size_t at = 0; at < pages.size(); ++at) {
    const auto& [reading, destroy_failure, elements] = outcomes[at];
    read.push_back(cell(reading.failure, reading, 0, pages[at].levels));
    destroy.push_back(
        cell(reading.failure.empty() ? destroy_failure : "-", reading, 1, pages[at].levels));
  }
  table.print_row(read);
  if (name != bare_reader_name) table.print_row(destroy);
}

void print_lost_levels(const std::vector<deep_page>& pages,
                       const std::vector<depth_outcome>& outcomes) {
  for (std::size_t at = 0; at < pages.size(); ++at) {
    const outcome& of = outcomes[at].reading;
    if (of.name != bare_reader_name && of.failure.empty() &&
        outcomes[at].elements < pages[at].elements()) {
      std::printf("%-11s has %s elements of the %s\n", of.name.c_str(),
                  grouped(outcomes[at].elements).c_str(), grouped(pages[at].elements()).c_str());
    }
  }
}

int print_whole_table(const options& chosen) {
  const page_folder folder(chosen.folder);
  std::vector<std::size_t> depths = {1'000, 10'000, 100'000, 1'000'000};
  if (chosen.quick) depths = {100, 1'000};
  std::vector<deep_page> pages;
  std::vector<column> columns = {{"", "levels", -11}, {"", "", -8}};
  for (const std::size_t levels : depths) {
    const page_target target = folder.page("depth" + std::to_string(levels) + ".htm");
    const auto made = test::run_in_child([&] {
      return make_input({input_kind::depth, levels}, target);
    });
    if (!made.made.value_or(false)) {
      std::fprintf(stderr, "depth_bench: %s can't be made\n", target.path().c_str());
      return 1;
    }
    pages.push_back({levels, target.path()});
    columns.push_back({"", grouped(levels), 11});
  }
  rlimit stack = {};
  getrlimit(RLIMIT_STACK, &stack);
  std::printf(
      "Pages of inline elements in each other: nanoseconds for each level, medians of %zu\n"
      "runs in processes of their own, on a stack of %s KiB\n\n",
      chosen.repeat, grouped(stack.rlim_cur / 1024).c_str());
  const text_table table(columns);
  table.print_head();
  bool ours_complete = true;
  std::vector<std::vector<depth_outcome>> all;
  for (const auto& reader : all_readers()) {
    std::vector<depth_outcome> outcomes;
    for (const deep_page& page : pages) {
      outcomes.push_back(measure(*reader, page.path, pages.front().path, chosen));
      const depth_outcome& of = outcomes.back();
      if (reader->name() == vellomark_reader_name) {
        ours_complete = ours_complete && of.reading.failure.empty() && of.destroy_failure.empty() &&
                        of.elements == page.elements();
      }
    }
    print_rows(table, pages, outcomes);
    all.push_back(std::move(outcomes));
  }
  std::printf("\n");
  for (const std::vector<depth_outcome>& outcomes : all) print_lost_levels(pages, outcomes);
  std::printf(
      "A text in place of a number says why a process didn't come to its end: which signal\n"
      "ended it, or that it was stopped after %lld seconds. SIGSEGV is a stack that was too\n"
      "small. A reader whose run died while destroying was measured without it.\n",
      static_cast<long long>(limit.count()));
  if (!ours_complete) std::fprintf(stderr, "depth_bench: the library has lost levels or died\n");
  return ours_complete ? 0 : 1;
}

}  // namespace

int main(int count, char** words) {
  return run_program({"depth_bench", usage, 5}, count, words, print_whole_table);
}
