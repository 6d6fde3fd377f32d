#ifndef BENCH_READING_READ_OPTIONS_H
#define BENCH_READING_READ_OPTIONS_H

#include <cstddef>
#include <optional>
#include <string>

#include "bench/clock.h"
#include "bench/reading/page_input.h"

namespace bench {

/// What the command line of read_bench asks for.
struct read_options {
  enum class action { table, make, once };

  action what = action::table;
  bool quick = false;
  std::size_t repeat = 0;  ///< repetitions, at least one
  clock_kind clock = clock_kind::wall;
  std::string folder;
  page_input input = {input_kind::table, 0};  ///< what `make` writes
  std::string path;                           ///< what `make` writes and `once` reads
  std::string reader;                         ///< who reads in `once`
};

/// How the program is called, in a few lines.
extern const char* const read_usage;

/// Reads the arguments of main. Nothing if they can't be understood.
std::optional<read_options> read_read_options(int count, char** words);

}  // namespace bench

#endif
