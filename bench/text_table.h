#ifndef BENCH_TEXT_TABLE_H
#define BENCH_TEXT_TABLE_H

#include <string>
#include <vector>

namespace bench {

/// A column of a table: its two lines of heading, and its width, negative for texts that begin at
/// the left.
struct column {
  std::string first_head;
  std::string second_head;
  int width;
  bool bar = false;  ///< whether a bar separates it from the column before
};

/// Prints a table to standard output, row by row.
class text_table {
 public:
  explicit text_table(std::vector<column> columns) : columns_(std::move(columns)) {}

  /// Prints the two lines of heading; the first one only if it holds a text.
  void print_head() const;

  /// Prints a row. A row of fewer cells than columns ends early.
  void print_row(const std::vector<std::string>& cells) const;

 private:
  std::vector<column> columns_;
};

/// "3.14", with that number of decimals.
std::string fixed(double value, int decimals);

/// "1,000,000".
std::string grouped(std::size_t number);

}  // namespace bench

#endif
