#ifndef BENCH_READING_READ_TABLE_H
#define BENCH_READING_READ_TABLE_H

#include <vector>

#include "bench/reading/read_comparison.h"

namespace bench {

/// Prints the table of ratios to standard output, with the meaning of its columns below.
void print_read_table(const std::vector<input_outcome>& pages);

}  // namespace bench

#endif
