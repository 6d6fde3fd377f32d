// Reads pages with the library and with other parsers, and prints a table of ratios.
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "bench/options.h"
#include "bench/process_state.h"
#include "bench/reading/page_reader.h"
#include "bench/reading/read_comparison.h"
#include "bench/text_table.h"

namespace {

using namespace bench;

constexpr const char* usage =
    "usage: read_bench [--quick] [--repeat N] [--cpu-time] [--folder DIR]\n"
    "       read_bench --make table|lines|soup|depth SIZE FILE\n"
    "       read_bench --once FILE [READER]\n"
    "\n"
    "  --quick       small pages, 3 repetitions: shows that it works, measures little\n"
    "  --repeat N    runs of each reader on each page (7)\n"
    "  --cpu-time    the clock counts processor time instead of time that passes\n"
    "  --folder DIR  where pages are written for a moment (/dev/shm, or else $TMPDIR, /tmp)\n"
    "  --make        writes one of the pages to a file; SIZE is the number of cells, of lines,\n"
    "                of bytes or of levels\n"
    "  --once        reads a file in this process, for a profiler; READER is a name from the\n"
    "                table (vellomark)\n";

const text_table table({{"", "page", -15},
                        {"", "read by", -11},
                        {"read", "u = 1", 7, true},
                        {"destroy", "u = 1", 7},
                        {"together", "u = 1", 8},
                        {"spread", "+-", 6},
                        {"", "runs", 4},
                        {"x", "ours", 6, true},
                        {"x bare", "read", 6},
                        {"allocs/", "node", 8, true},
                        {"heap/", "node", 6},
                        {"peak/", "node", 6},
                        {"", "elements", 9, true},
                        {"", "texts", 9}});

constexpr const char* meaning =
    "\n"
    "read: from the file on disk to the tree, the conversion to UTF-8 included for those that\n"
    "take nothing else. destroy: freeing the tree. Medians; u, the unit, is the whole time\n"
    "of pugixml for pages, and that of the library for soup, which isn't XML.\n"
    "spread: half the distance between the quartiles of together. runs: the number that was "
    "measured.\n"
    "x ours: together, where 1 is the library's.\n"
    "x bare read: together, where 1 is a loop that reads the file and looks at each unit.\n"
    "allocs/node: heap blocks asked for while reading and destroying, per element or text.\n"
    "heap/node: heap bytes that the finished tree holds, block headers included.\n"
    "peak/node: growth of resident bytes until the end.\n"
    "elements, texts: what each parser made of the page; all per-node figures are by its own "
    "count.\n";

void print_row(const read_outcome& page, std::size_t at) {
  const outcome& of = page.readers[at];
  if (!of.failure.empty()) {
    table.print_row({page.input.label(), of.name, of.failure});
    return;
  }
  const double ours = median_together(find(page.readers, vellomark_reader_name));
  const double bare = median_together(find(page.readers, bare_reader_name));
  const double unit =
      page.input.well_formed() ? median_together(find(page.readers, pugixml_reader_name)) : ours;
  const double together = median_together(of);
  std::vector<std::string> cells = {page.input.label(),
                                    of.name,
                                    fixed(median_of_phase(of, 0) / unit, 3),
                                    fixed(median_of_phase(of, 1) / unit, 3),
                                    fixed(together / unit, 3),
                                    fixed(100 * spread(of), 1) + "%",
                                    std::to_string(of.timings.size()),
                                    fixed(together / ours, 2),
                                    fixed(together / bare, 1)};
  const tree_summary& tree = page.trees[at];
  const auto nodes = static_cast<double>(tree.nodes());
  if (tree.nodes() == 0) {
    cells.insert(cells.end(), 5, "-");
  } else {
    cells.insert(cells.end(),
                 {fixed(static_cast<double>(of.allocations) / nodes, 4),
                  fixed(static_cast<double>(of.live_bytes) / nodes, 1),
                  fixed(median_peak(of) / nodes, 1), grouped(tree.elements), grouped(tree.texts)});
  }
  table.print_row(cells);
}

int print_whole_table(const options& chosen) {
  const page_folder folder(chosen.folder);
  std::vector<page_input> inputs = {
      {input_kind::table, 1'000'000}, {input_kind::lines, 300'000}, {input_kind::soup, 50'000'000}};
  if (chosen.quick)
    inputs = {{input_kind::table, 2'000}, {input_kind::lines, 1'000}, {input_kind::soup, 200'000}};
  std::vector<read_outcome> pages;
  for (const page_input& input : inputs) {
    std::optional<read_outcome> page = compare_readers(input, chosen.repeat, chosen.clock, folder);
    if (!page) return 1;
    pages.push_back(std::move(*page));
  }
  std::printf("Pages read and their trees destroyed: ratios of medians over %zu runs, by %s\n\n",
              chosen.repeat,
              chosen.clock == clock_kind::wall ? "a steady clock" : "processor time");
  table.print_head();
  for (const read_outcome& page : pages) {
    std::printf("\n");
    for (std::size_t at = 0; at < page.readers.size(); ++at) print_row(page, at);
  }
  std::printf("%s%s; pages read from %s (%s).\n", meaning, peer_versions().c_str(),
              chosen.folder.c_str(), file_system_of(chosen.folder).c_str());
  return 0;
}

/// What --make asks for.
struct made_file {
  page_input input;
  std::string path;
};

/// Makes the page in a folder beside its place, since the library adds a folder to the path.
int make_page(const made_file& asked) {
  const std::filesystem::path place = std::filesystem::absolute(asked.path);
  const page_folder folder(place.parent_path().string());
  const page_target target = folder.page("page.htm");
  if (!make_input(asked.input, target)) {
    std::fprintf(stderr, "read_bench: %s can't be made\n", asked.path.c_str());
    return 1;
  }
  std::filesystem::rename(target.path(), place);
  return 0;
}

/// What --once asks for.
struct single_read {
  std::string path;
  std::string reader;
};

int read_once(const single_read& asked, clock_kind clock) {
  for (const auto& reader : all_readers()) {
    if (reader->name() != asked.reader) continue;
    bool done = false;
    const timing time = measure_phases(
        clock, {[&] { done = reader->read(asked.path); }, [&] { reader->destroy(); }});
    std::printf("%s, %s: read %.1f ms, destroy %.1f ms%s\n", asked.path.c_str(),
                asked.reader.c_str(), 1e3 * time.phases[0], 1e3 * time.phases[1],
                done ? "" : ", failed");
    return done ? 0 : 1;
  }
  std::fprintf(stderr, "read_bench: nobody is called \"%s\"\n", asked.reader.c_str());
  return 2;
}

}  // namespace

int main(int count, char** words) {
  std::optional<made_file> made;
  std::optional<single_read> once;
  const auto read_own = [&](std::span<char* const> of) -> std::size_t {
    const std::string option = of[0];
    if (option == "--make" && of.size() == 4) {
      const std::optional<input_kind> kind = input_kind_of(of[1]);
      const std::optional<std::size_t> size = positive_number(of[2]);
      if (!kind || !size) return 0;
      made = {{*kind, *size}, of[3]};
      return of.size();
    }
    if (option == "--once" && (of.size() == 2 || of.size() == 3)) {
      once = {of[1], of.size() == 3 ? of[2] : vellomark_reader_name};
      return of.size();
    }
    return 0;
  };
  return run_program({"read_bench", usage, 7, read_own}, count, words, [&](const options& chosen) {
    if (made) return make_page(*made);
    return once ? read_once(*once, chosen.clock) : print_whole_table(chosen);
  });
}
