#ifndef BENCH_OPTIONS_H
#define BENCH_OPTIONS_H

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>

#include "bench/measuring.h"

namespace bench {

/// What every benchmark lets its user choose.
struct options {
  bool quick = false;
  std::size_t repeat = 0;  ///< repetitions, at least one; 3 in a quick run
  clock_kind clock = clock_kind::wall;
  std::string folder;  ///< where pages are written: /dev/shm, or else $TMPDIR, or else /tmp
};

/// A benchmark and its command line.
struct program {
  const char* name;
  const char* usage;
  std::size_t usual_repeat;

  /// Reads an option of the program's own. The words begin with it; the result is the number of
  /// words that belong to it, 0 if they can't be understood.
  std::function<std::size_t(std::span<char* const> words)> read_option = {};
};

/// Reads the arguments of main and runs `work`. Returns the exit code: that of `work`, 1 after an
/// exception, 2 for arguments that can't be understood, after printing the usage.
int run_program(const program& what, int count, char** words,
                const std::function<int(const options&)>& work);

/// The number that `text` spells in decimal digits; nothing for 0 and for all other texts.
std::optional<std::size_t> positive_number(const std::string& text);

}  // namespace bench

#endif
