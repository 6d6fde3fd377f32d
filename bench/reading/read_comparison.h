#ifndef BENCH_READING_READ_COMPARISON_H
#define BENCH_READING_READ_COMPARISON_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "bench/reading/page_input.h"
#include "bench/reading/read_measure.h"

namespace bench {

/// All that was measured of one reader on one page.
struct read_outcome {
  std::string name;
  std::string failure;               ///< why it couldn't be measured; else empty
  std::vector<read_timing> timings;  ///< one of each run
  read_counting counts;
};

/// All that was measured on one page.
struct input_outcome {
  page_input input;
  std::vector<read_outcome> readers;  ///< without those that can't read such a page
};

/// Measures every reader on one page, each run in a process of its own: first one that
/// counts, then `repetitions` by the clock, in which all take their turn each time so that
/// a drift of the machine hits all alike. Who has used up a minute takes no more turns
/// behind the third. A run that dies, takes over two minutes or needs too much memory is a
/// failure of that reader, and goes into its outcome.
///
/// The trees of XML pages are compared: the library's must be that of all readers that
/// take XML alone, and written again it must give the bytes of the file. If it isn't, or
/// if the page can't be made or the library can't read it, the result is empty
/// and standard error says why.
std::optional<input_outcome> compare_reading(const page_input& input, std::size_t repetitions,
                                             clock_kind clock, const std::string& folder);

}  // namespace bench

#endif
