#ifndef EXAMPLES_SUPPORT_RECORD_GROUPS_H
#define EXAMPLES_SUPPORT_RECORD_GROUPS_H

#include <cstddef>
#include <string>
#include <vector>

#include "csv_reader.h"

namespace examples {

/// The records that have the same text in the first column.
struct record_group {
  std::u16string name;
  std::vector<std::size_t> records;  ///< their places in the table, ascending
};

/// Groups the records by the first column, in the order in which the groups
/// appear. Records of one group need not stand together.
std::vector<record_group> group_records(const csv_table& table);

}  // namespace examples

#endif
