#ifndef BENCH_READING_READ_COMPARISON_H
#define BENCH_READING_READ_COMPARISON_H

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "bench/measuring.h"
#include "bench/reading/page_input.h"
#include "bench/reading/tree_summary.h"

namespace bench {

/// All that was measured on one page.
struct read_outcome {
  page_input input;
  std::vector<outcome> readers;     ///< without those that can't read such a page
  std::vector<tree_summary> trees;  ///< that each of them made
};

/// Measures every reader on one page: first a run that counts, then `repetitions` by the clock. A
/// reader that has used up a minute takes no more turns after the third. A run that dies, takes
/// over two minutes or needs too much memory is a failure of that reader, which its outcome holds.
///
/// The trees of XML pages are compared: the library's must be that of all readers that read XML
/// alone, and written again it must give the bytes of the file. If it isn't, or if the page can't
/// be made, or if a reader without which there is no table fails, the result is empty and standard
/// error says why.
std::optional<read_outcome> compare_readers(const page_input& input, std::size_t repetitions,
                                            clock_kind clock, const page_folder& folder);

}  // namespace bench

#endif
