#include "bench/table.h"

#include <algorithm>
#include <cstdio>

#include "bench/statistics.h"

namespace bench {

namespace {

double median_of(const outcome& of, double timing::*part) {
  return median(values_of(of.timings, part));
}

const outcome& find(const page_outcome& page, const std::string& name) {
  return *std::find_if(page.contenders.begin(), page.contenders.end(),
                       [&](const outcome& of) { return of.name == name; });
}

double time_per_item(const page_outcome& page, const std::string& name) {
  return median_of(find(page, name), &timing::together) / static_cast<double>(page.plan.items);
}

/// The smallest page of the same kind: what growth is measured against.
const page_outcome& smallest(const std::vector<page_outcome>& pages, page_kind kind) {
  const page_outcome* found = nullptr;
  for (const page_outcome& page : pages) {
    if (page.plan.kind == kind && (found == nullptr || page.plan.items < found->plan.items)) {
      found = &page;
    }
  }
  return *found;
}

void print_head() {
  std::printf("%-15s %-9s | %6s %6s %7s %8s %6s | %6s %6s | %8s %6s %6s | %6s %7s %9s\n", "", "",
              "build", "save", "destroy", "together", "spread", "x bare", "x time", "allocs/",
              "heap/", "peak/", "write", "KiB per", "page");
  std::printf("%-15s %-9s | %6s %6s %7s %8s %6s | %6s %6s | %8s %6s %6s | %6s %7s %9s\n", "page",
              "made by", "p = 1", "p = 1", "p = 1", "p = 1", "+-", "loop", "growth", "item", "node",
              "node", "calls", "call", "KiB");
}

void print_row(const std::vector<page_outcome>& pages, const page_outcome& page,
               const outcome& of) {
  const double unit = median_of(find(page, pugixml_name), &timing::together);
  const double floor = median_of(find(page, bare_loop_name), &timing::together);
  const double together = median_of(of, &timing::together);
  const page_outcome& first = smallest(pages, page.plan.kind);
  const double growth = time_per_item(page, of.name) / time_per_item(first, of.name);
  const auto nodes = static_cast<double>(page.plan.nodes());
  const auto items = static_cast<double>(page.plan.items);
  const auto calls = static_cast<double>(of.counts.write_calls);
  const double written = static_cast<double>(of.counts.written_bytes) / 1024;
  std::printf("%-15s %-9s | %6.3f %6.3f %7.3f %8.3f %5.1f%% | %6.2f %6.2f",
              page.plan.label().c_str(), of.name.c_str(), median_of(of, &timing::build) / unit,
              median_of(of, &timing::save) / unit, median_of(of, &timing::destroy) / unit,
              together / unit, 100 * spread(values_of(of.timings, &timing::together)),
              together / floor, growth);
  std::printf(" | %8.4f %6.1f %6.1f | %6.0f %7.1f %9.0f\n",
              static_cast<double>(of.counts.allocations) / items,
              static_cast<double>(of.counts.live_bytes) / nodes,
              median(values_of(of.timings, &timing::peak_bytes)) / nodes, calls,
              calls > 0 ? written / calls : 0, written);
}

}  // namespace

void print_table(const std::vector<page_outcome>& pages) {
  print_head();
  for (const page_outcome& page : pages) {
    std::printf("\n");
    for (const outcome& of : page.contenders) {
      print_row(pages, page, of);
    }
  }
  std::printf(
      "\n"
      "build, save, destroy, together: medians; 1 is pugixml's whole time for the same page.\n"
      "spread: half the distance between the quartiles of together.\n"
      "x bare loop: together, where 1 is a loop that writes the library's bytes without a tree.\n"
      "x time growth: together per item, where 1 is that of the smallest page of the kind.\n"
      "allocs/item: heap blocks asked for in all phases, per cell or line.\n"
      "heap/node: heap bytes that the finished tree holds, block headers included, per node.\n"
      "peak/node: growth of resident bytes until the end, the saving included, per node.\n"
      "write calls, page: as the kernel counts them while the page is saved.\n"
      "Each page is the same tree for all, as UTF-16LE with a mark; the others put a cell on one\n"
      "line where the library takes three, so their pages are smaller. tinyxml2 writes UTF-8 "
      "only:\n"
      "it prints to memory, and the benchmark converts that.\n");
}

}  // namespace bench
