// Fills template pages with the library and with XML parsers, and prints how long it takes.
#include <cstdint>
#include <cstdio>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "bench/measuring.h"
#include "bench/options.h"
#include "bench/page_file.h"
#include "bench/templates/fillers.h"
#include "bench/text_table.h"
#include "bench/workload.h"

namespace {

using namespace bench;

constexpr const char* usage =
    "usage: template_bench [--quick] [--repeat N] [--cpu-time] [--folder DIR]\n"
    "       template_bench --once FIELDS [--folder DIR]\n"
    "\n"
    "  --quick       small pages: shows that it works, measures little\n"
    "  --repeat N    runs of each contender on each page (15)\n"
    "  --cpu-time    the clock counts processor time instead of time that passes\n"
    "  --folder DIR  where pages are written for a moment (/dev/shm, or else $TMPDIR, /tmp)\n"
    "  --once        the library fills one page in this process, for a profiler\n";

struct filler {
  const char* name;
  bool (*fill)(const std::string& path, const page_target& target);
};

// The second is the unit of the table.
constexpr filler fillers[] = {{"vellomark", fill_with_vellomark},
                              {"pugixml", fill_with_pugixml},
                              {"libxml2", fill_with_libxml2}};
constexpr std::size_t unit = 1;

// A template page with `fields` markers. Before each stand a heading, a block of text with inline
// elements and a list, about 450 units in all. Its head is that of a report, so that all pages made
// of it can be equal.
std::u16string make_template(std::size_t fields) {
  std::string page = std::string("<!DOCTYPE ") + doctype_name + " PUBLIC '" + doctype_public_id +
                     "' '" + doctype_system_id + "'>\n<html xmlns='" + xml_namespace +
                     "'>\n<head>\n<title>" + page_title + "</title>\n<style type='text/css'>" +
                     page_stylesheet + "</style>\n</head>\n<body>\n";
  for (std::size_t field = 0; field < fields; ++field) {
    const std::string number = std::to_string(field);
    page += "<h2 class='chapter'>Chapter " + number +
            "</h2>\n"
            "<p>What stands in front of the field, with <b>a word in bold</b>, another <i>in "
            "italics</i>\nand a <a href='#c" +
            number +
            "'>link</a> to something else on the same page, and some more words.</p>\n"
            "<ul>\n<li class='first'>a first entry of the list</li>\n<li>a second one, which is "
            "a bit longer</li>\n<li>and a third</li>\n</ul>\n"
            "<p><span id='Template'>Field " +
            number + "</span></p>\n";
  }
  return widen(page + "<p>The end</p>\n</body>\n</html>\n");
}

std::string write_template(std::size_t fields, const page_folder& folder) {
  const std::string path = folder.page("template" + std::to_string(fields) + ".htm").path();
  if (!write_page(make_template(fields), path)) throw std::runtime_error(path + " can't be made");
  return path;
}

// Measures all on a page of that many fields. Throws std::runtime_error if one of them fails or
// fills another page.
std::vector<outcome> compare(std::size_t fields, const options& chosen, const page_folder& folder) {
  const std::string path = write_template(fields, folder);
  const std::string small_path = write_template(3, folder);
  std::vector<outcome> contenders;
  std::vector<page_target> targets;
  for (const filler& by : fillers) {
    contenders.push_back({by.name});
    targets.push_back(folder.page(std::string(by.name) + ".htm"));
  }
  measure_in_turns(contenders, chosen.repeat, [&](std::size_t at) {
    // A small page first, so that symbols are bound and code is read.
    fillers[at].fill(small_path, targets[at]);
    bool done = false;
    timing time =
        measure_phases(chosen.clock, {[&] { done = fillers[at].fill(path, targets[at]); }});
    time.done = done;
    return time;
  });
  const std::uint64_t page = tree_fingerprint(targets[unit].path());
  for (std::size_t at = 0; at < contenders.size(); ++at) {
    const outcome& of = contenders[at];
    if (!of.failure.empty()) throw std::runtime_error(of.name + ": " + of.failure);
    if (page == 0 || tree_fingerprint(targets[at].path()) != page)
      throw std::runtime_error(of.name + " has filled another page");
  }
  return contenders;
}

int print_whole_table(const options& chosen) {
  const page_folder folder(chosen.folder);
  std::vector<std::size_t> sizes = {10, 1'000, 10'000};
  if (chosen.quick) sizes = {3, 30};
  std::printf("Templates read, filled and saved: ratios of medians over %zu runs\n\n",
              chosen.repeat);
  std::vector<column> columns = {{"", "fields", -11}};
  for (const filler& by : fillers) columns.push_back({"", by.name, 12});
  columns.push_back({"", "growth", 12});
  const text_table table(columns);
  table.print_head();
  double first = 0;
  for (const std::size_t fields : sizes) {
    const std::vector<outcome> contenders = compare(fields, chosen, folder);
    const double per_field = median_together(contenders.front()) / static_cast<double>(fields);
    if (first == 0) first = per_field;
    std::vector<std::string> cells = {grouped(fields)};
    for (const outcome& of : contenders)
      cells.push_back(fixed(median_together(of) / median_together(contenders[unit]), 3));
    cells.push_back(fixed(per_field / first, 2));
    table.print_row(cells);
  }
  std::printf("\nThe last column is the library's time for a field, 1 on the first page.\n");
  return 0;
}

}  // namespace

int main(int count, char** words) {
  std::optional<std::size_t> once;
  const auto read_once = [&once](std::span<char* const> of) -> std::size_t {
    if (of.size() < 2 || of[0] != std::string("--once")) return 0;
    once = positive_number(of[1]);
    return once ? 2 : 0;
  };
  return run_program({"template_bench", usage, 15, read_once}, count, words,
                     [&once](const options& chosen) {
                       if (!once) return print_whole_table(chosen);
                       const page_folder folder(chosen.folder);
                       const std::string path = write_template(*once, folder);
                       return fill_with_vellomark(path, folder.page("page.htm")) ? 0 : 1;
                     });
}
