#ifndef EXAMPLES_MEASUREMENT_REPORT_MEASUREMENTS_H
#define EXAMPLES_MEASUREMENT_REPORT_MEASUREMENTS_H

#include <cstddef>
#include <string>
#include <vector>

#include "../support/csv_reader.h"

namespace measurement_report {

/// One value and its label, such as a date.
struct measurement {
  std::u16string label;
  std::u16string text;  ///< the value as it is written in the file
  double value;
};

/// The measurements that have the same path of headings and the same name.
struct measurement_group {
  std::vector<std::u16string> path;  ///< the headings above it, outermost first
  std::u16string name;
  std::vector<measurement> measurements;  ///< in the order of the file, one or more
};

/// The content of the file: its groups in the order in which they first appear.
struct measurement_table {
  std::vector<std::u16string> path_titles;  ///< the columns of the path
  std::u16string name_title;
  std::u16string label_title;
  std::u16string value_title;
  std::vector<measurement_group> groups;
};

/// Groups the records. The last column holds the value, the one before it the label, the one before
/// that the name of the group, and all others its path. The header must have three columns or more.
/// Throws std::runtime_error with the number of the record, counted from 1 after the header, if
/// part of the path or a name is empty or a value isn't a decimal number below 1e12 in size.
measurement_table group_measurements(const examples::csv_table& table);

}  // namespace measurement_report

#endif
