// How the time that a deferred section takes grows with their number.
#include <vellomark/vellomark.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "bench/child_process.h"

namespace {

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
constexpr std::size_t counts[] = {1'000, 10'000, 100'000};
constexpr int repetitions = 5;

std::u16string text_of(const char* name, std::size_t number) {
  const std::string narrow = std::string(name) + " " + std::to_string(number);
  return std::u16string(narrow.begin(), narrow.end());
}

// Every section meets the texts of its levels in another order than the one in
// which sections are made, so that the next one is hardly ever the first left.
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

// Seconds that Save takes.
double time_of_save(const arrangement& how, std::size_t count, const std::u16string& folder) {
  const boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
  add_sections(*report, how, count);
  const auto start = std::chrono::steady_clock::now();
  const bool saved = report->Save(folder.c_str(), u"sections.htm");
  const auto end = std::chrono::steady_clock::now();
  return saved ? std::chrono::duration<double>(end - start).count() : -1;
}

std::optional<double> median_per_section(const arrangement& how, std::size_t count,
                                         const std::u16string& folder) {
  std::vector<double> times;
  for (int run = 0; run < repetitions; ++run) {
    const std::optional<double> time =
        bench::in_child_process([&] { return time_of_save(how, count, folder); });
    if (!time || *time < 0) return std::nullopt;
    times.push_back(*time);
  }
  std::sort(times.begin(), times.end());
  return times[times.size() / 2] / static_cast<double>(count);
}

}  // namespace

int main(int count, char** words) {
  const std::filesystem::path folder =
      (count > 1 ? std::filesystem::path(words[1]) : std::filesystem::temp_directory_path()) /
      "section_bench";
  std::filesystem::create_directories(folder);
  std::printf("Time of Save for each section, as a ratio to that at %zu sections\n\n", counts[0]);
  std::printf("%-28s", "headings above a section");
  for (const std::size_t sections : counts) std::printf("%10zu", sections);
  std::printf("\n");
  bool complete = true;
  for (const arrangement& how : arrangements) {
    std::printf("%-28s", how.name);
    std::optional<double> unit;
    for (const std::size_t sections : counts) {
      const std::optional<double> time = median_per_section(how, sections, folder.u16string());
      if (!unit) unit = time;
      complete = complete && time;
      std::printf("%10.2f", time && unit ? *time / *unit : -1.0);
      std::fflush(stdout);
    }
    std::printf("\n");
  }
  std::filesystem::remove_all(folder);
  return complete ? 0 : 1;
}
