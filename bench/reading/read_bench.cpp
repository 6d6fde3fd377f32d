// Reads pages with the library and with other parsers, and prints a table of ratios.
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "bench/process_state.h"
#include "bench/reading/read_comparison.h"
#include "bench/reading/read_options.h"
#include "bench/reading/read_table.h"
#include "bench/scratch_folder.h"

namespace {

using namespace bench;

int print_whole_table(const read_options& chosen) {
  const scratch_folder folder(chosen.folder, "read_bench");
  if (!folder.made()) {
    std::fprintf(stderr, "read_bench: no folder can be made in %s\n", chosen.folder.c_str());
    return 1;
  }
  std::vector<page_input> inputs = {
      {input_kind::table, 1'000'000}, {input_kind::lines, 300'000}, {input_kind::soup, 50'000'000}};
  if (chosen.quick) {
    inputs = {{input_kind::table, 2'000}, {input_kind::lines, 1'000}, {input_kind::soup, 200'000}};
  }
  std::vector<input_outcome> pages;
  for (const page_input& input : inputs) {
    std::optional<input_outcome> page =
        compare_reading(input, chosen.repeat, chosen.clock, folder.path());
    if (!page) {
      return 1;
    }
    pages.push_back(std::move(*page));
  }
  std::printf("Pages read and their trees destroyed: ratios of medians over %zu runs, by %s\n\n",
              chosen.repeat,
              chosen.clock == clock_kind::wall ? "a steady clock" : "processor time");
  print_read_table(pages);
  std::printf("%s; pages read from %s (%s).\n", peer_versions().c_str(), chosen.folder.c_str(),
              file_system_of(chosen.folder).c_str());
  return 0;
}

/// The page is made in a folder beside its place, since the library adds one to the path.
int make_page(const read_options& chosen) {
  const std::filesystem::path place = std::filesystem::absolute(chosen.path);
  const scratch_folder folder(place.parent_path().string(), "read_bench");
  const page_target target = {folder.path(), "page.htm"};
  std::error_code failed;
  if (folder.made() && make_input(chosen.input, target)) {
    std::filesystem::rename(target.path(), place, failed);
    if (!failed) {
      return 0;
    }
  }
  std::fprintf(stderr, "read_bench: %s can't be made\n", chosen.path.c_str());
  return 1;
}

int read_once(const read_options& chosen) {
  for (const auto& reader : all_readers()) {
    if (reader->name() == chosen.reader) {
      const double start = seconds_now(chosen.clock);
      const bool done = reader->read(chosen.path);
      const double finished = seconds_now(chosen.clock);
      reader->destroy();
      const double end = seconds_now(chosen.clock);
      std::printf("%s, %s: read %.1f ms, destroy %.1f ms%s\n", chosen.path.c_str(),
                  chosen.reader.c_str(), 1e3 * (finished - start), 1e3 * (end - finished),
                  done ? "" : ", failed");
      return done ? 0 : 1;
    }
  }
  std::fprintf(stderr, "read_bench: nobody is called \"%s\"\n", chosen.reader.c_str());
  return 2;
}

}  // namespace

int main(int count, char** words) {
  const std::optional<read_options> chosen = read_read_options(count, words);
  if (!chosen) {
    std::fputs(read_usage, stderr);
    return 2;
  }
  switch (chosen->what) {
    case read_options::action::make:
      return make_page(*chosen);
    case read_options::action::once:
      return read_once(*chosen);
    case read_options::action::table:
      break;
  }
  return print_whole_table(*chosen);
}
