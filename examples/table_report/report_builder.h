#ifndef EXAMPLES_TABLE_REPORT_REPORT_BUILDER_H
#define EXAMPLES_TABLE_REPORT_REPORT_BUILDER_H

#include <cstddef>
#include <string>
#include <vector>

#include <vellomark/vellomark.h>

#include "../support/csv_reader.h"

namespace table_report {

/// The records that have the same text in the first column.
struct record_group {
  std::u16string name;
  std::vector<std::size_t> records;  ///< their places in the table, ascending
};

/// Groups the records by the first column, in the order in which the groups
/// appear. Records of one group need not stand together.
std::vector<record_group> group_records(const examples::csv_table& table);

/// Adds everything to `report`: an overview with links, a table in which the name
/// of a group spans its records, and a table of all fields. `source` is the name
/// of the file that was read. Needs a header with two columns or more.
void build_report(IVellomark& report, const examples::csv_table& table,
                  const std::u16string& source);

}  // namespace table_report

#endif
