#include "bench/options.h"

#include "bench/command_line.h"

namespace bench {

const char* const usage =
    "usage: report_bench [--quick] [--repeat N] [--cpu-time] [--folder DIR]\n"
    "       report_bench --run NAME table|lines ITEMS [--cpu-time] [--folder DIR]\n"
    "\n"
    "  --quick       small pages, 3 repetitions: shows that it works, measures little\n"
    "  --repeat N    repetitions of the largest page (7); smaller ones get 3 N\n"
    "  --cpu-time    the clock counts processor time instead of time that passes, which\n"
    "                helps on a machine that does other work\n"
    "  --folder DIR  where pages are written for a moment (/dev/shm, or else $TMPDIR, /tmp)\n"
    "  --run         one contender makes one page in this process, for a profiler\n";

std::optional<options> read_options(int count, char** words) {
  options read;
  for (int at = 1; at < count; ++at) {
    const std::string word = words[at];
    const int left = count - at - 1;
    if (word == "--quick") {
      read.quick = true;
    } else if (word == "--repeat" && left >= 1) {
      const std::optional<std::size_t> number = positive_number(words[++at]);
      if (!number) {
        return std::nullopt;
      }
      read.repeat = *number;
    } else if (word == "--cpu-time") {
      read.clock = clock_kind::cpu;
    } else if (word == "--folder" && left >= 1) {
      read.folder = words[++at];
    } else if (word == "--run" && left >= 3) {
      read.run_name = words[++at];
      const std::string kind = words[++at];
      const std::optional<std::size_t> items = positive_number(words[++at]);
      if ((kind != "table" && kind != "lines") || !items) {
        return std::nullopt;
      }
      read.run_plan = {kind == "table" ? page_kind::table : page_kind::lines, *items};
    } else {
      return std::nullopt;
    }
  }
  if (read.repeat == 0) {
    read.repeat = read.quick ? 3 : 7;
  }
  if (read.folder.empty()) {
    read.folder = default_folder();
  }
  return read;
}

}  // namespace bench
