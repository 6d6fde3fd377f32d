#include "bench/reading/read_options.h"

#include "bench/command_line.h"
#include "bench/reading/page_reader.h"

namespace bench {

namespace {

bool understand_input(const char* kind, const char* size, page_input& input) {
  const std::optional<input_kind> known = input_kind_of(kind);
  const std::optional<std::size_t> number = positive_number(size);
  if (!known || !number) {
    return false;
  }
  input = {*known, *number};
  return true;
}

}  // namespace

const char* const read_usage =
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

std::optional<read_options> read_read_options(int count, char** words) {
  read_options read;
  read.reader = vellomark_reader_name;
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
    } else if (word == "--make" && left == 3) {
      read.what = read_options::action::make;
      if (!understand_input(words[at + 1], words[at + 2], read.input)) {
        return std::nullopt;
      }
      read.path = words[at + 3];
      at += 3;
    } else if (word == "--once" && (left == 1 || left == 2)) {
      read.what = read_options::action::once;
      read.path = words[++at];
      if (left == 2) read.reader = words[++at];
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
