#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "bench/comparison.h"
#include "bench/options.h"
#include "bench/process_state.h"
#include "bench/scratch_folder.h"

namespace {

using namespace bench;

int print_whole_table(const options& chosen, const std::string& folder) {
  std::vector<workload_plan> plans;
  if (chosen.quick) {
    plans = {{page_kind::table, 500}, {page_kind::table, 2'000}, {page_kind::lines, 1'000}};
  } else {
    plans = {{page_kind::table, 10'000},
             {page_kind::table, 100'000},
             {page_kind::table, 1'000'000},
             {page_kind::lines, 300'000}};
  }
  std::vector<page_outcome> pages;
  for (const workload_plan& plan : plans) {
    const bool large = plan.items >= 1'000'000 || chosen.quick;
    std::optional<page_outcome> page =
        compare(plan, large ? chosen.repeat : 3 * chosen.repeat, chosen.clock, folder);
    if (!page) {
      return 1;
    }
    pages.push_back(std::move(*page));
  }
  std::printf(
      "Reports built, saved and destroyed: ratios of medians over %zu to %zu runs, by %s\n\n",
      pages.back().contenders.front().timings.size(),
      pages.front().contenders.front().timings.size(),
      chosen.clock == clock_kind::wall ? "a steady clock" : "processor time");
  print_table(pages);
  std::printf("pugixml %s, libxml2 %s, tinyxml2 %s; pages written to %s (%s).\n",
              pugixml_version().c_str(), libxml2_version().c_str(), tinyxml2_version().c_str(),
              chosen.folder.c_str(), file_system_of(chosen.folder).c_str());
  return 0;
}

int run_one(const options& chosen, const std::string& folder) {
  for (const auto& subject : all_contenders()) {
    if (subject->name() == chosen.run_name) {
      const timing time =
          measure_time(*subject, chosen.run_plan, chosen.clock, {folder, "page.htm"});
      std::printf("%s, %s: build %.1f ms, save %.1f ms, destroy %.1f ms, peak %.1f MiB\n",
                  chosen.run_plan.label().c_str(), chosen.run_name.c_str(), 1e3 * time.build,
                  1e3 * time.save, 1e3 * time.destroy,
                  static_cast<double>(time.peak_bytes) / 1024 / 1024);
      return time.saved ? 0 : 1;
    }
  }
  std::fprintf(stderr, "report_bench: nobody is called \"%s\"\n", chosen.run_name.c_str());
  return 2;
}

}  // namespace

int main(int count, char** words) {
  const std::optional<options> chosen = read_options(count, words);
  if (!chosen) {
    std::fputs(usage, stderr);
    return 2;
  }
  const scratch_folder folder(chosen->folder, "report_bench");
  if (!folder.made()) {
    std::fprintf(stderr, "report_bench: no folder can be made in %s\n", chosen->folder.c_str());
    return 1;
  }
  return chosen->run_name.empty() ? print_whole_table(*chosen, folder.path())
                                  : run_one(*chosen, folder.path());
}
