#include "bench/reading/read_comparison.h"

#include <unistd.h>

#include <cstdio>

#include "bench/allocation_counter.h"
#include "bench/process_state.h"
#include "bench/reading/page_reader.h"

namespace bench {

namespace {

constexpr turn_limits limits = {test::time_limit(120), 60, 3};

/// What doesn't depend on the clock, from a run of its own.
struct counting {
  bool done;
  std::uint64_t allocations;
  std::int64_t live_bytes;
  tree_summary tree;
};

counting count(page_reader& subject, const std::string& path) {
  limit_memory();
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

/// Reads a page and destroys the tree in this process, by the clock. The page at `warm_up_path` is
/// read first, so that libraries have bound their symbols, read their code and filled their tables.
timing measure(page_reader& subject, const std::string& path, const std::string& warm_up_path,
               clock_kind clock) {
  limit_memory();
  subject.read(warm_up_path);
  subject.destroy();
  bool done = false;
  timing time =
      measure_phases(clock, {[&] { done = subject.read(path); }, [&] { subject.destroy(); }});
  time.done = done;
  return time;
}

void complain(const page_input& input, const std::string& name, const char* what) {
  std::fprintf(stderr, "read_bench: %s: %s: %s\n", input.label().c_str(), name.c_str(), what);
}

/// Whether all trees of an XML page are the library's. Says which are not.
bool check_trees(const read_outcome& page,
                 const std::vector<std::unique_ptr<page_reader>>& readers) {
  std::uint64_t ours = 0;
  for (std::size_t at = 0; at < readers.size(); ++at) {
    if (readers[at]->name() == vellomark_reader_name) ours = page.trees[at].fingerprint;
  }
  bool all_right = true;
  for (std::size_t at = 0; at < readers.size(); ++at) {
    const bool compared = readers[at]->needs_well_formed() && page.readers[at].failure.empty();
    if (compared && page.trees[at].fingerprint != ours) {
      complain(page.input, readers[at]->name(), "the tree isn't that of the library");
      all_right = false;
    }
  }
  return all_right;
}

/// Whether the library writes what it read. For pages that the library saved.
bool check_rewriting(const page_input& input, const std::string& page, const std::string& copy) {
  const auto equal =
      test::run_in_child([&] { return rewrite_page(page, copy) && same_bytes(page, copy); });
  unlink(copy.c_str());
  if (equal.made.value_or(false)) return true;
  complain(input, vellomark_reader_name, "the page that was read isn't the one that is written");
  return false;
}

/// Whether those were measured without which there is no table. Says who failed.
bool check_failures(const read_outcome& page) {
  bool all_right = true;
  for (const outcome& of : page.readers) {
    if (of.failure.empty()) continue;
    complain(page.input, of.name, of.failure.c_str());
    all_right = all_right && of.name != vellomark_reader_name && of.name != pugixml_reader_name &&
                of.name != bare_reader_name;
  }
  return all_right;
}

}  // namespace

std::optional<read_outcome> compare_readers(const page_input& input, std::size_t repetitions,
                                            clock_kind clock, const page_folder& folder) {
  const page_target page_file = folder.page("page.htm");
  const page_target small_file = folder.page("small.htm");
  const std::string path = page_file.path();
  const std::string warm_up_path = small_file.path();
  const auto made = test::run_in_child(
      [&] { return make_input(input, page_file) && make_input(input.small(), small_file); });
  if (!made.made.value_or(false)) {
    complain(input, path, "can't be made");
    return std::nullopt;
  }
  auto readers = all_readers();
  if (!input.well_formed())
    std::erase_if(readers, [](const auto& reader) { return reader->needs_well_formed(); });
  read_outcome page = {input, {}, {}};
  for (const auto& reader : readers) {
    const auto counted = test::run_in_child([&] { return count(*reader, path); }, limits.run);
    const counting counts = counted.made.value_or(counting{});
    const std::string failure = counted.made && !counts.done ? "failed" : counted.failure;
    page.readers.push_back({reader->name(), failure, {}, counts.allocations, counts.live_bytes});
    page.trees.push_back(counts.tree);
  }
  bool all_right = check_trees(page, readers);
  if (input.well_formed())
    all_right = check_rewriting(input, path, folder.page("rewritten.htm").path()) && all_right;
  if (all_right) {
    const auto run = [&](std::size_t at) {
      return measure(*readers[at], path, warm_up_path, clock);
    };
    measure_in_turns(page.readers, repetitions, run, limits);
  }
  unlink(path.c_str());
  unlink(warm_up_path.c_str());
  if (!check_failures(page) || !all_right) return std::nullopt;
  return page;
}

}  // namespace bench
