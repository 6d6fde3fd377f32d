#include "bench/reading/read_comparison.h"

#include <unistd.h>

#include <cstdio>

#include "bench/child_process.h"
#include "bench/page_check.h"
#include "bench/process_state.h"

namespace bench {

namespace {

constexpr unsigned seconds_for_a_run = 120;
constexpr double seconds_for_all_runs = 60;
constexpr std::size_t least_runs = 3;

void complain(const page_input& input, const std::string& name, const char* what) {
  std::fprintf(stderr, "read_bench: %s: %s: %s\n", input.label().c_str(), name.c_str(), what);
}

/// Counts for one reader, or notes why that can't be done.
read_outcome count(page_reader& subject, const std::string& path) {
  const auto counted = run_in_child(
      [&] {
        limit_memory();
        return measure_read_counts(subject, path);
      },
      seconds_for_a_run);
  read_outcome of = {subject.name(), counted.failure, {}, counted.made.value_or(read_counting{})};
  if (of.failure.empty() && !of.counts.done) of.failure = "failed";
  return of;
}

/// One run by the clock, for who hasn't failed and has time left.
void take_turn(page_reader& subject, const std::string& path, const std::string& warm_up_path,
               clock_kind clock, read_outcome& of, double& spent) {
  if (!of.failure.empty() || (spent > seconds_for_all_runs && of.timings.size() >= least_runs)) {
    return;
  }
  const double start = seconds_now(clock_kind::wall);
  const auto time = run_in_child(
      [&] {
        limit_memory();
        return measure_read_time(subject, path, warm_up_path, clock);
      },
      seconds_for_a_run);
  spent += seconds_now(clock_kind::wall) - start;
  if (time.made && time.made->done) {
    of.timings.push_back(*time.made);
  } else {
    of.failure = time.made ? "failed" : time.failure;
  }
}

/// Whether all trees of an XML page are the library's. Says what differs.
bool check_trees(const input_outcome& page,
                 const std::vector<std::unique_ptr<page_reader>>& readers) {
  const tree_summary* ours = nullptr;
  for (const read_outcome& of : page.readers) {
    if (of.name == vellomark_reader_name) ours = &of.counts.tree;
  }
  bool all_right = true;
  for (const read_outcome& of : page.readers) {
    for (const auto& reader : readers) {
      const bool compared = reader->name() == of.name && reader->needs_well_formed();
      if (compared && of.failure.empty() && of.counts.tree.fingerprint != ours->fingerprint) {
        complain(page.input, of.name, "the tree isn't that of the library");
        all_right = false;
      }
    }
  }
  return all_right;
}

/// Whether the library writes what it read. For pages that the library saved.
bool check_rewriting(const page_input& input, const page_target& page, const std::string& folder) {
  const page_target copy = {folder, "rewritten.htm"};
  const std::optional<bool> equal = in_child_process([&] {
    return rewrite_page(page.path(), copy.path()) && same_bytes(page.path(), copy.path());
  });
  unlink(copy.path().c_str());
  if (!equal.value_or(false)) {
    complain(input, vellomark_reader_name, "the page that was read isn't the one that is written");
  }
  return equal.value_or(false);
}

/// Whether those could be measured without which there is no table.
bool check_failures(const input_outcome& page) {
  bool all_right = true;
  for (const read_outcome& of : page.readers) {
    if (!of.failure.empty()) {
      complain(page.input, of.name, of.failure.c_str());
      all_right = all_right && of.name != vellomark_reader_name && of.name != pugixml_reader_name &&
                  of.name != bare_reader_name;
    }
  }
  return all_right;
}

}  // namespace

std::optional<input_outcome> compare_reading(const page_input& input, std::size_t repetitions,
                                             clock_kind clock, const std::string& folder) {
  const page_target page_file = {folder, "page.htm"};
  const page_target small_file = {folder, "small.htm"};
  const std::string path = page_file.path();
  const std::string warm_up_path = small_file.path();
  const std::optional<bool> made = in_child_process(
      [&] { return make_input(input, page_file) && make_input(input.small(), small_file); });
  if (!made.value_or(false)) {
    complain(input, path, "can't be made");
    return std::nullopt;
  }
  auto readers = all_readers();
  if (!input.well_formed()) {
    std::erase_if(readers, [](const auto& reader) { return reader->needs_well_formed(); });
  }
  input_outcome page = {input, {}};
  for (const auto& reader : readers) {
    page.readers.push_back(count(*reader, path));
  }
  bool all_right = check_trees(page, readers);
  if (input.well_formed()) all_right = check_rewriting(input, page_file, folder) && all_right;
  std::vector<double> spent(readers.size());
  for (std::size_t repetition = 0; repetition < repetitions && all_right; ++repetition) {
    for (std::size_t turn = 0; turn < readers.size(); ++turn) {
      const std::size_t at = (repetition + turn) % readers.size();
      take_turn(*readers[at], path, warm_up_path, clock, page.readers[at], spent[at]);
    }
  }
  unlink(path.c_str());
  unlink(warm_up_path.c_str());
  if (!check_failures(page) || !all_right) {
    return std::nullopt;
  }
  return page;
}

}  // namespace bench
