#include "bench/reading/read_table.h"

#include <algorithm>
#include <cstdio>

#include "bench/statistics.h"

namespace bench {

namespace {

double median_of(const read_outcome& of, double read_timing::*part) {
  return median(values_of(of.timings, part));
}

double time_of(const input_outcome& page, const std::string& name) {
  const auto of = std::find_if(page.readers.begin(), page.readers.end(),
                               [&](const read_outcome& each) { return each.name == name; });
  return median_of(*of, &read_timing::together);
}

void print_head() {
  std::printf("%-15s %-11s | %7s %7s %8s %6s %4s | %6s %6s | %8s %6s %6s | %9s %9s\n", "", "",
              "read", "destroy", "together", "spread", "", "x", "x bare", "allocs/", "heap/",
              "peak/", "", "");
  std::printf("%-15s %-11s | %7s %7s %8s %6s %4s | %6s %6s | %8s %6s %6s | %9s %9s\n", "page",
              "read by", "u = 1", "u = 1", "u = 1", "+-", "runs", "ours", "read", "node", "node",
              "node", "elements", "texts");
}

void print_row(const input_outcome& page, const read_outcome& of) {
  std::printf("%-15s %-11s | ", page.input.label().c_str(), of.name.c_str());
  if (!of.failure.empty()) {
    std::printf("%s\n", of.failure.c_str());
    return;
  }
  const double unit =
      time_of(page, page.input.well_formed() ? pugixml_reader_name : vellomark_reader_name);
  const double together = median_of(of, &read_timing::together);
  std::printf("%7.3f %7.3f %8.3f %5.1f%% %4zu | %6.2f %6.1f",
              median_of(of, &read_timing::read) / unit, median_of(of, &read_timing::destroy) / unit,
              together / unit, 100 * spread(values_of(of.timings, &read_timing::together)),
              of.timings.size(), together / time_of(page, vellomark_reader_name),
              together / time_of(page, bare_reader_name));
  const auto nodes = static_cast<double>(of.counts.tree.nodes());
  if (of.counts.tree.nodes() == 0) {
    std::printf(" | %8s %6s %6s | %9s %9s\n", "-", "-", "-", "-", "-");
    return;
  }
  std::printf(" | %8.4f %6.1f %6.1f | %9s %9s\n",
              static_cast<double>(of.counts.allocations) / nodes,
              static_cast<double>(of.counts.live_bytes) / nodes,
              median(values_of(of.timings, &read_timing::peak_bytes)) / nodes,
              grouped(of.counts.tree.elements).c_str(), grouped(of.counts.tree.texts).c_str());
}

}  // namespace

void print_read_table(const std::vector<input_outcome>& pages) {
  print_head();
  for (const input_outcome& page : pages) {
    std::printf("\n");
    for (const read_outcome& of : page.readers) {
      print_row(page, of);
    }
  }
  std::printf(
      "\n"
      "read: from the file on disk to the tree, the conversion to UTF-8 included for those that\n"
      "take nothing else. destroy: giving the tree back. Medians; u, the unit, is the whole time\n"
      "of pugixml for pages, and that of the library for soup, which isn't XML.\n"
      "spread: half the distance between the quartiles of together. runs: behind the medians.\n"
      "x ours: together, where 1 is the library's.\n"
      "x bare read: together, where 1 is a loop that reads the file and looks at each unit.\n"
      "allocs/node: heap blocks asked for while reading and destroying, per element or text.\n"
      "heap/node: heap bytes that the finished tree holds, block headers included.\n"
      "peak/node: growth of resident bytes until the end.\n"
      "elements, texts: what each parser made of the page; all per-node figures are by its own "
      "count.\n");
}

}  // namespace bench
