#ifndef EXAMPLES_SUPPORT_CSV_READER_H
#define EXAMPLES_SUPPORT_CSV_READER_H

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace examples {

using csv_record = std::vector<std::u16string>;

/// A table of texts; every record has as many fields as the header.
struct csv_table {
  csv_record header;
  std::vector<csv_record> records;
};

/// Input that doesn't follow the format.
class csv_error : public std::runtime_error {
 public:
  csv_error(std::size_t line, const std::string& problem)
      : std::runtime_error(problem), line_(line) {}

  /// The line of the problem, counted from 1 by line feeds: the line of the opening quote if a
  /// quote isn't closed, and the first line of the record if the number of its fields is wrong.
  std::size_t line() const { return line_; }

 private:
  std::size_t line_;
};

/// Reads comma-separated values as RFC 4180 describes them, in UTF-8 with or without a byte-order
/// mark. The first record is the header. A record ends with CR LF or LF; the last one may end with
/// the text. A field in quotes may hold commas, line ends and doubled quotes. Blanks are part of a
/// field, and an empty line is a record with one empty field.
///
/// Throws csv_error for invalid UTF-8, a quote inside a field without quotes, text after a closing
/// quote, a quote that isn't closed, a CR without LF outside quotes, a record with another number
/// of fields than the header, and an empty text, which has no header.
csv_table read_csv(std::string_view utf8);

/// The records that have the same text in the first column.
struct record_group {
  std::u16string name;
  std::vector<std::size_t> records;  ///< their indices in the table, ascending
};

/// Groups the records by the first column, in the order in which the groups first appear. The
/// records of a group need not follow each other.
std::vector<record_group> group_records(const csv_table& table);

}  // namespace examples

#endif
