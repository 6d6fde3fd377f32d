#ifndef BENCH_READING_READ_MEASURE_H
#define BENCH_READING_READ_MEASURE_H

#include <cstdint>
#include <string>

#include "bench/clock.h"
#include "bench/reading/page_reader.h"

namespace bench {

/// Seconds of one run by the clock, and the memory it took.
struct read_timing {
  bool done;
  double read;  ///< from the file on disk to the finished tree
  double destroy;
  double together;
  std::uint64_t peak_bytes;  ///< resident memory at its highest, above that at the start
};

/// What doesn't depend on the clock, from a run of its own.
struct read_counting {
  bool done;
  std::uint64_t allocations;  ///< while reading and destroying
  std::int64_t live_bytes;    ///< heap held by the finished tree
  tree_summary tree;
};

/// Reads a page and destroys the tree in this process, by the clock. The page at
/// `warm_up_path`, of a few items, is read first, so that libraries have bound their
/// symbols, read their code and filled their tables.
read_timing measure_read_time(page_reader& subject, const std::string& path,
                              const std::string& warm_up_path, clock_kind clock);

/// Reads a page and destroys the tree in this process, and counts. Needs the
/// allocation counter.
read_counting measure_read_counts(page_reader& subject, const std::string& path);

}  // namespace bench

#endif
