#ifndef BENCH_OPTIONS_H
#define BENCH_OPTIONS_H

#include <cstddef>
#include <optional>
#include <string>

#include "bench/measure.h"
#include "bench/workload.h"

namespace bench {

/// What the command line asks for.
struct options {
  bool quick = false;
  std::size_t repeat = 0;  ///< repetitions of the largest page, at least one
  clock_kind clock = clock_kind::wall;
  std::string folder;
  std::string run_name;  ///< empty: the whole table
  workload_plan run_plan = {page_kind::table, 0};
};

/// How the program is called, in a few lines.
extern const char* const usage;

/// Reads the arguments of main. Nothing if they can't be understood.
std::optional<options> read_options(int count, char** words);

}  // namespace bench

#endif
