// How the time that a page takes to read grows with the depth of its elements.
#include <sys/resource.h>

#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "bench/child_process.h"
#include "bench/clock.h"
#include "bench/command_line.h"
#include "bench/process_state.h"
#include "bench/reading/page_input.h"
#include "bench/reading/page_reader.h"
#include "bench/scratch_folder.h"
#include "bench/statistics.h"

namespace {

using namespace bench;

constexpr unsigned seconds_for_a_run = 20;
constexpr std::size_t usual_repetitions = 5;

constexpr const char* usage =
    "usage: depth_bench [--quick] [--repeat N] [--folder DIR]\n"
    "\n"
    "  --quick       shallow pages: shows that it works, measures little\n"
    "  --repeat N    runs of each reader on each page (5); one of those that take seconds\n"
    "  --folder DIR  where pages are written for a moment (/dev/shm, or else $TMPDIR, /tmp)\n";

struct depth_run {
  bool done;
  double read;
  double destroy;
};

/// What was found for one reader at one depth.
struct depth_outcome {
  std::string failure;  ///< of reading; else empty
  std::string destroy_failure;
  std::uint64_t elements = 0;
  double read = 0;     ///< seconds, the median
  double destroy = 0;  ///< seconds, the median
};

/// Reads once in a child process. Without `destroying` the child ends with the tree in its
/// memory.
child_outcome<depth_run> run_once(page_reader& subject, const std::string& path,
                                  const std::string& warm_up_path, bool destroying) {
  return run_in_child(
      [&] {
        limit_memory();
        subject.read(warm_up_path);
        subject.destroy();
        const double start = seconds_now(clock_kind::wall);
        const bool done = subject.read(path);
        const double finished = seconds_now(clock_kind::wall);
        if (destroying) subject.destroy();
        return depth_run{done, finished - start, seconds_now(clock_kind::wall) - finished};
      },
      seconds_for_a_run);
}

/// How many elements the reader makes of the page; 0 if that can't be told.
std::uint64_t count_elements(page_reader& subject, const std::string& path) {
  const auto counted = run_in_child(
      [&] {
        limit_memory();
        return subject.read(path) ? subject.summarize().elements : 0;
      },
      seconds_for_a_run);
  return counted.made.value_or(0);
}

depth_outcome measure(page_reader& subject, const std::string& path,
                      const std::string& warm_up_path, std::size_t repetitions) {
  depth_outcome of;
  std::vector<depth_run> runs;
  for (std::size_t run = 0; run < repetitions; ++run) {
    auto one = run_once(subject, path, warm_up_path, of.destroy_failure.empty());
    if (!one.made && of.destroy_failure.empty()) {
      // Reading and destroying failed: reading alone tells which of them it was.
      of.destroy_failure = one.failure;
      one = run_once(subject, path, warm_up_path, false);
    }
    if (!one.made || !one.made->done) {
      of.failure = one.made ? "failed" : one.failure;
      return of;
    }
    runs.push_back(*one.made);
    // A slow one is believed the first time.
    if (one.made->read > 2) break;
  }
  of.read = median(values_of(runs, &depth_run::read));
  of.destroy = median(values_of(runs, &depth_run::destroy));
  of.elements = count_elements(subject, path);
  return of;
}

void print_cell(const std::string& failure, double seconds, std::size_t levels) {
  if (failure.empty()) {
    std::printf(" %11.1f", 1e9 * seconds / static_cast<double>(levels));
  } else {
    std::printf(" %11s", failure.c_str());
  }
}

void print_rows(const page_reader& reader, const std::vector<std::size_t>& depths,
                const std::vector<depth_outcome>& outcomes) {
  std::printf("%-11s %-8s", reader.name().c_str(), "read");
  for (std::size_t at = 0; at < depths.size(); ++at) {
    print_cell(outcomes[at].failure, outcomes[at].read, depths[at]);
  }
  if (reader.name() != bare_reader_name) {
    std::printf("\n%-11s %-8s", reader.name().c_str(), "destroy");
    for (std::size_t at = 0; at < depths.size(); ++at) {
      const depth_outcome& of = outcomes[at];
      print_cell(of.failure.empty() ? of.destroy_failure : "-", of.destroy, depths[at]);
    }
  }
  std::printf("\n");
  std::fflush(stdout);
}

/// The page has a root, a head, a title, a body and a block besides the levels.
void print_lost_levels(const std::string& name, const std::vector<std::size_t>& depths,
                       const std::vector<depth_outcome>& outcomes) {
  for (std::size_t at = 0; at < depths.size(); ++at) {
    if (outcomes[at].failure.empty() && outcomes[at].elements < depths[at] + 5) {
      std::printf("%-11s has %s elements of the %s\n", name.c_str(),
                  grouped(outcomes[at].elements).c_str(), grouped(depths[at] + 5).c_str());
    }
  }
}

int print_whole_table(bool quick, std::size_t repetitions, const std::string& folder) {
  std::vector<std::size_t> depths = {1'000, 10'000, 100'000, 1'000'000};
  if (quick) depths = {100, 1'000};
  std::vector<std::string> paths;
  for (const std::size_t levels : depths) {
    const page_target target = {folder, "depth" + std::to_string(levels) + ".htm"};
    paths.push_back(target.path());
    const auto made = in_child_process([&] {
      return make_input({input_kind::depth, levels}, target);
    });
    if (!made.value_or(false)) {
      std::fprintf(stderr, "depth_bench: %s can't be made\n", target.path().c_str());
      return 1;
    }
  }
  rlimit stack = {};
  getrlimit(RLIMIT_STACK, &stack);
  std::printf(
      "Pages of inline elements in each other: nanoseconds for each level, medians of %zu\n"
      "runs in processes of their own, on a stack of %s KiB\n\n%-11s %-8s",
      repetitions, grouped(stack.rlim_cur / 1024).c_str(), "levels", "");
  for (const std::size_t levels : depths) std::printf(" %11s", grouped(levels).c_str());
  std::printf("\n");
  bool ours_complete = true;
  std::vector<std::vector<depth_outcome>> all;
  const auto readers = all_readers();
  for (const auto& reader : readers) {
    std::vector<depth_outcome> outcomes;
    for (const std::string& path : paths) {
      outcomes.push_back(measure(*reader, path, paths.front(), repetitions));
      const depth_outcome& of = outcomes.back();
      if (reader->name() == vellomark_reader_name) {
        ours_complete = ours_complete && of.failure.empty() && of.destroy_failure.empty() &&
                        of.elements == depths[outcomes.size() - 1] + 5;
      }
    }
    print_rows(*reader, depths, outcomes);
    all.push_back(std::move(outcomes));
  }
  std::printf("\n");
  for (std::size_t at = 0; at < readers.size(); ++at) {
    if (readers[at]->name() != bare_reader_name) {
      print_lost_levels(readers[at]->name(), depths, all[at]);
    }
  }
  std::printf(
      "A text in place of a number says how a process ended that didn't come to its end: by\n"
      "which signal, or that it was stopped after %u seconds. SIGSEGV is a stack that was too\n"
      "small. A reader whose run died while destroying was measured without it.\n",
      seconds_for_a_run);
  if (!ours_complete) {
    std::fprintf(stderr, "depth_bench: the library has lost levels or died\n");
  }
  return ours_complete ? 0 : 1;
}

}  // namespace

int main(int count, char** words) {
  bool quick = false;
  std::size_t repetitions = usual_repetitions;
  std::string parent = default_folder();
  for (int at = 1; at < count; ++at) {
    const std::string word = words[at];
    if (word == "--quick") {
      quick = true;
    } else if (word == "--repeat" && at + 1 < count && positive_number(words[at + 1])) {
      repetitions = *positive_number(words[++at]);
    } else if (word == "--folder" && at + 1 < count) {
      parent = words[++at];
    } else {
      std::fputs(usage, stderr);
      return 2;
    }
  }
  const scratch_folder folder(parent, "depth_bench");
  if (!folder.made()) {
    std::fprintf(stderr, "depth_bench: no folder can be made in %s\n", parent.c_str());
    return 1;
  }
  return print_whole_table(quick, repetitions, folder.path());
}
