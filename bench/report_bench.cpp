// Makes report pages with the library and with XML libraries, and prints a table of ratios.
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "bench/options.h"
#include "bench/report_comparison.h"
#include "bench/text_table.h"

namespace {

using namespace bench;

constexpr const char* usage =
    "usage: report_bench [--quick] [--repeat N] [--cpu-time] [--folder DIR]\n"
    "       report_bench --run NAME table|lines|small NUMBER [--cpu-time] [--folder DIR]\n"
    "\n"
    "  --quick       small pages, 3 repetitions: shows that it works, measures little\n"
    "  --repeat N    repetitions of the largest page (7); smaller ones get 3 N\n"
    "  --cpu-time    the clock counts processor time instead of time that passes, which\n"
    "                helps on a machine that does other work\n"
    "  --folder DIR  where pages are written for a moment (/dev/shm, or else $TMPDIR, /tmp)\n"
    "  --run         one contender makes one page in this process, for a profiler\n";

/// What --run asks for.
struct single_run {
  std::string name;
  workload_plan plan;
};

const text_table table({{"", "page", -15},
                        {"", "made by", -9},
                        {"build", "p = 1", 6, true},
                        {"save", "p = 1", 6},
                        {"destroy", "p = 1", 7},
                        {"together", "p = 1", 8},
                        {"spread", "+-", 6},
                        {"x bare", "loop", 6, true},
                        {"x time", "growth", 6},
                        {"allocs/", "item", 8, true},
                        {"heap/", "node", 6},
                        {"peak/", "node", 6},
                        {"write", "calls", 6, true},
                        {"KiB per", "call", 7},
                        {"page", "KiB", 9}});

constexpr const char* meaning =
    "\n"
    "build, save, destroy, together: medians; 1 is pugixml's whole time for the same page.\n"
    "spread: half the distance between the quartiles of together.\n"
    "x bare loop: together, where 1 is a loop that writes the library's bytes without a tree.\n"
    "x time growth: together per item, where 1 is that of the smallest page of the kind.\n"
    "allocs/item: heap blocks asked for in all phases, per cell or line.\n"
    "heap/node: heap bytes that the finished tree holds, block headers included, per node.\n"
    "peak/node: growth of resident bytes until the end, the saving included, per node.\n"
    "write calls, page: as the kernel counts them while the page is saved.\n"
    "Each page is the same tree for all, as UTF-16LE with a mark; the others put a cell on one\n"
    "line where the library takes three, so their pages are smaller. tinyxml2 writes UTF-8 only:\n"
    "it prints to memory, and the benchmark converts that.\n";

double time_per_item(const report_outcome& page, const std::string& name) {
  return median_together(find(page.contenders, name)) / static_cast<double>(page.plan.items);
}

/// The smallest page of the same kind: what growth is measured against.
const report_outcome& smallest(const std::vector<report_outcome>& pages, page_kind kind) {
  const report_outcome* found = nullptr;
  for (const report_outcome& page : pages) {
    if (page.plan.kind == kind && (found == nullptr || page.plan.items < found->plan.items))
      found = &page;
  }
  return *found;
}

void print_row(const std::vector<report_outcome>& pages, const report_outcome& page,
               std::size_t at) {
  const outcome& of = page.contenders[at];
  const double unit = median_together(find(page.contenders, pugixml_name));
  const double floor = median_together(find(page.contenders, bare_loop_name));
  const double together = median_together(of);
  const double growth =
      time_per_item(page, of.name) / time_per_item(smallest(pages, page.plan.kind), of.name);
  const auto nodes = static_cast<double>(page.plan.nodes());
  const auto items = static_cast<double>(page.plan.items);
  const auto calls = static_cast<double>(page.writes[at].calls);
  const double written = static_cast<double>(page.writes[at].bytes) / 1024;
  table.print_row(
      {page.plan.label(), of.name, fixed(median_of_phase(of, 0) / unit, 3),
       fixed(median_of_phase(of, 1) / unit, 3), fixed(median_of_phase(of, 2) / unit, 3),
       fixed(together / unit, 3), fixed(100 * spread(of), 1) + "%", fixed(together / floor, 2),
       fixed(growth, 2), fixed(static_cast<double>(of.allocations) / items, 4),
       fixed(static_cast<double>(of.live_bytes) / nodes, 1), fixed(median_peak(of) / nodes, 1),
       fixed(calls, 0), fixed(calls > 0 ? written / calls : 0, 1), fixed(written, 0)});
}

int print_whole_table(const options& chosen) {
  const page_folder folder(chosen.folder);
  std::vector<workload_plan> plans = {{page_kind::table, 10'000},
                                      {page_kind::table, 100'000},
                                      {page_kind::table, 1'000'000},
                                      {page_kind::lines, 300'000},
                                      workload_plan::small(1'000)};
  if (chosen.quick)
    plans = {{page_kind::table, 500},
             {page_kind::table, 2'000},
             {page_kind::lines, 1'000},
             workload_plan::small(10)};
  std::vector<report_outcome> pages;
  for (const workload_plan& plan : plans) {
    const bool large = plan.items >= 1'000'000 || chosen.quick;
    std::optional<report_outcome> page =
        compare_reports(plan, large ? chosen.repeat : 3 * chosen.repeat, chosen.clock, folder);
    if (!page) return 1;
    pages.push_back(std::move(*page));
  }
  std::printf(
      "Reports built, saved and destroyed: ratios of medians over %zu to %zu runs, by %s\n\n",
      pages.back().contenders.front().timings.size(),
      pages.front().contenders.front().timings.size(),
      chosen.clock == clock_kind::wall ? "a steady clock" : "processor time");
  table.print_head();
  for (const report_outcome& page : pages) {
    std::printf("\n");
    for (std::size_t at = 0; at < page.contenders.size(); ++at) print_row(pages, page, at);
  }
  std::printf("%spugixml %s, libxml2 %s, tinyxml2 %s; pages written to %s (%s).\n", meaning,
              pugixml_version().c_str(), libxml2_version().c_str(), tinyxml2_version().c_str(),
              chosen.folder.c_str(), file_system_of(chosen.folder).c_str());
  return 0;
}

int run_one(const options& chosen, const single_run& single) {
  const page_folder folder(chosen.folder);
  for (const auto& subject : all_contenders()) {
    if (subject->name() != single.name) continue;
    const timing time =
        measure_report(*subject, single.plan, chosen.clock, folder.page("page.htm"));
    std::printf("%s, %s: build %.1f ms, save %.1f ms, destroy %.1f ms, peak %.1f MiB\n",
                single.plan.label().c_str(), single.name.c_str(), 1e3 * time.phases[0],
                1e3 * time.phases[1], 1e3 * time.phases[2],
                static_cast<double>(time.peak_bytes) / 1024 / 1024);
    return time.done ? 0 : 1;
  }
  std::fprintf(stderr, "report_bench: nobody is called \"%s\"\n", single.name.c_str());
  return 2;
}

}  // namespace

int main(int count, char** words) {
  std::optional<single_run> single;
  const auto read_run = [&single](std::span<char* const> of) -> std::size_t {
    if (of.size() < 4 || of[0] != std::string("--run")) return 0;
    const std::string kind = of[2];
    const std::optional<std::size_t> items = positive_number(of[3]);
    if (!items) return 0;
    if (kind == "table")
      single = {of[1], {page_kind::table, *items}};
    else if (kind == "lines")
      single = {of[1], {page_kind::lines, *items}};
    else if (kind == "small")
      single = {of[1], workload_plan::small(*items)};
    else
      return 0;
    return 4;
  };
  return run_program({"report_bench", usage, 7, read_run}, count, words,
                     [&single](const options& chosen) {
                       return single ? run_one(chosen, *single) : print_whole_table(chosen);
                     });
}
