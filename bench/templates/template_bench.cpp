// Fills template pages with the library and with XML parsers, and prints how long it takes.
#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>
#include <string>
#include <vector>

#include "bench/child_process.h"
#include "bench/clock.h"
#include "bench/command_line.h"
#include "bench/page_check.h"
#include "bench/page_file.h"
#include "bench/scratch_folder.h"
#include "bench/statistics.h"
#include "bench/templates/template_filler.h"
#include "bench/templates/template_page.h"

namespace {

using namespace bench;

constexpr const char* usage =
    "usage: template_bench [--quick] [--repeat N] [--folder DIR]\n"
    "       template_bench --once FIELDS [--folder DIR]\n"
    "\n"
    "  --quick       small pages: shows that it works, measures little\n"
    "  --repeat N    runs of each contender on each page (15)\n"
    "  --folder DIR  where pages are written for a moment (/dev/shm, or else $TMPDIR, /tmp)\n"
    "  --once        the library fills one page in this process, for a profiler\n";

struct filler {
  const char* name;
  bool (*fill)(const std::string& path, const page_target& target);
};

// The second is the unit of the table.
constexpr std::array<filler, 3> fillers = {{{"vellomark", fill_with_vellomark},
                                            {"pugixml", fill_with_pugixml},
                                            {"libxml2", fill_with_libxml2}}};
constexpr std::size_t unit = 1;

struct filled {
  bool done;
  double seconds;
};

// A small page first, so that symbols are bound and code is read.
std::optional<double> fill_once(const filler& by, const std::string& path,
                                const std::string& small_path, const page_target& target) {
  const auto run = in_child_process([&] {
    by.fill(small_path, target);
    const double start = seconds_now(clock_kind::wall);
    const bool done = by.fill(path, target);
    return filled{done, seconds_now(clock_kind::wall) - start};
  });
  if (!run || !run->done) return std::nullopt;
  return run->seconds;
}

class template_table {
 public:
  template_table(std::string folder, std::size_t repeat)
      : folder_(std::move(folder)), repeat_(repeat) {}

  bool print(const std::vector<std::size_t>& sizes) {
    if (!make_page(small_fields)) return false;
    std::printf("Templates read, filled and saved: ratios of medians over %zu runs\n\n%-11s",
                repeat_, "fields");
    for (const filler& by : fillers) std::printf(" %12s", by.name);
    std::printf(" %12s\n", "growth");
    double first = 0;
    for (const std::size_t fields : sizes) {
      const std::optional<std::vector<double>> medians = measure(fields);
      if (!medians) return false;
      const double per_field = medians->front() / static_cast<double>(fields);
      if (first == 0) first = per_field;
      std::printf("%-11s", grouped(fields).c_str());
      for (const double seconds : *medians) std::printf(" %12.3f", seconds / (*medians)[unit]);
      std::printf(" %12.2f\n", per_field / first);
      std::fflush(stdout);
    }
    std::printf("\nThe last column is the library's time for a field, 1 on the first page.\n");
    return true;
  }

 private:
  static constexpr std::size_t small_fields = 3;

  std::string path_of(std::size_t fields) const {
    return folder_ + "/template" + std::to_string(fields) + ".htm";
  }

  bool make_page(std::size_t fields) const {
    return write_page(make_template(fields), path_of(fields));
  }

  // The medians in the order of the contenders, who take turns; nothing if one of them fails
  // or makes another page.
  std::optional<std::vector<double>> measure(std::size_t fields) const {
    if (!make_page(fields)) return std::nullopt;
    std::array<std::vector<double>, fillers.size()> times;
    for (std::size_t run = 0; run < repeat_; ++run) {
      for (std::size_t turn = 0; turn < fillers.size(); ++turn) {
        const std::size_t at = (run + turn) % fillers.size();
        const std::optional<double> seconds =
            fill_once(fillers[at], path_of(fields), path_of(small_fields), target_of(at));
        if (!seconds) return std::nullopt;
        times[at].push_back(*seconds);
      }
    }
    std::vector<double> medians;
    for (std::size_t at = 0; at < fillers.size(); ++at) {
      const std::uint64_t page = tree_fingerprint(target_of(at).path());
      if (page == 0 || page != tree_fingerprint(target_of(unit).path())) return std::nullopt;
      medians.push_back(median(times[at]));
    }
    return medians;
  }

  page_target target_of(std::size_t at) const {
    return {folder_, std::string(fillers[at].name) + ".htm"};
  }

  std::string folder_;
  std::size_t repeat_;
};

}  // namespace

int main(int count, char** words) {
  std::vector<std::size_t> sizes = {10, 1'000, 10'000};
  std::size_t repeat = 15;
  std::optional<std::size_t> once;
  std::string parent = default_folder();
  for (int at = 1; at < count; ++at) {
    const std::string word = words[at];
    const std::optional<std::size_t> number =
        at + 1 < count ? positive_number(words[at + 1]) : std::nullopt;
    if (word == "--quick") {
      sizes = {3, 30};
      repeat = 3;
    } else if (word == "--repeat" && number) {
      repeat = *number;
      ++at;
    } else if (word == "--once" && number) {
      once = number;
      ++at;
    } else if (word == "--folder" && at + 1 < count) {
      parent = words[++at];
    } else {
      std::fputs(usage, stderr);
      return 2;
    }
  }
  const scratch_folder folder(parent, "template_bench");
  bool done = folder.made();
  if (done && once) {
    const std::string path = folder.path() + "/template.htm";
    done = write_page(make_template(*once), path) &&
           fill_with_vellomark(path, {folder.path(), "page.htm"});
  } else if (done) {
    done = template_table(folder.path(), repeat).print(sizes);
  }
  if (!done) std::fprintf(stderr, "template_bench: somebody failed, or filled another page\n");
  return done ? 0 : 1;
}
