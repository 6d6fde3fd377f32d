// How the time that Save takes for a deferred section grows with the number of sections.
#include <vellomark/vellomark.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "bench/measuring.h"
#include "bench/options.h"
#include "bench/text_table.h"
#include "bench/workload.h"
#include "tests/support/temp_folder.h"

namespace {

using namespace bench;

constexpr const char* usage =
    "usage: section_bench [--quick] [--repeat N] [--cpu-time] [--folder DIR]\n"
    "\n"
    "  --quick       few sections, 3 repetitions: shows that it works, measures little\n"
    "  --repeat N    runs for each number of sections (5)\n"
    "  --cpu-time    the clock counts processor time instead of time that passes\n"
    "  --folder DIR  where pages are written for a moment (/dev/shm, or else $TMPDIR, /tmp)\n";

// One way to number the headings above the sections.
struct arrangement {
  const char* name;
  std::size_t depth;
  std::size_t choices;  // texts on each level; 0 for a path of its own for each section
};

constexpr arrangement arrangements[] = {
    {"1 heading, 10 texts", 1, 10},
    {"2 headings, 30 texts", 2, 30},
    {"4 headings, 10 texts", 4, 10},
    {"4 headings, all different", 4, 0},
};

std::u16string text_of(const char* name, std::size_t number) {
  return widen(std::string(name) + " " + std::to_string(number));
}

// The texts of the levels come in random order, so that the section to write next is hardly ever
// the first one left.
void add_sections(IVellomark& report, const arrangement& how, std::size_t count) {
  report.SetSectionMode(true);
  std::uint64_t random = 1;
  for (std::size_t section = 0; section < count; ++section) {
    for (std::size_t level = 0; level < how.depth; ++level) {
      random = random * 6364136223846793005u + 1442695040888963407u;
      const std::size_t number = how.choices != 0 ? (random >> 33) % how.choices : section;
      report.AddSectionHeading(text_of("Heading", number).c_str(), 1);
    }
    report.BeginSection(text_of("Section", section).c_str(), nullptr);
    report.AddText(u"One line of text", true);
  }
}

// Seconds that Save takes for a section, the median; nothing if Save failed.
std::optional<double> time_per_section(const arrangement& how, std::size_t count,
                                       const options& chosen, const std::u16string& folder) {
  std::vector<outcome> library = {{how.name}};
  measure_in_turns(library, chosen.repeat, [&](std::size_t) {
    const boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
    add_sections(*report, how, count);
    bool saved = false;
    timing time = measure_phases(chosen.clock,
                                 {[&] { saved = report->Save(folder.c_str(), u"sections.htm"); }});
    time.done = saved;
    return time;
  });
  if (!library.front().failure.empty()) return std::nullopt;
  return median_together(library.front()) / static_cast<double>(count);
}

int print_whole_table(const options& chosen) {
  const test::temp_folder folder(chosen.folder);
  std::vector<std::size_t> counts = {1'000, 10'000, 100'000};
  if (chosen.quick) counts = {100, 1'000};
  std::printf("Time of Save for each section, as a ratio to that at %zu sections\n\n", counts[0]);
  std::vector<column> columns = {{"", "headings above a section", -28}};
  for (const std::size_t sections : counts) columns.push_back({"", grouped(sections), 9});
  const text_table table(columns);
  table.print_head();
  bool complete = true;
  for (const arrangement& how : arrangements) {
    std::vector<std::string> cells = {how.name};
    std::optional<double> unit;
    for (const std::size_t sections : counts) {
      const std::optional<double> time = time_per_section(how, sections, chosen, folder.text());
      if (!unit) unit = time;
      complete = complete && time;
      cells.push_back(time ? fixed(*time / *unit, 2) : "failed");
    }
    table.print_row(cells);
  }
  return complete ? 0 : 1;
}

}  // namespace

int main(int count, char** words) {
  return run_program({"section_bench", usage, 5}, count, words, print_whole_table);
}
