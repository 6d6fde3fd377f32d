#ifndef EXAMPLES_TABLE_REPORT_REPORT_BUILDER_H
#define EXAMPLES_TABLE_REPORT_REPORT_BUILDER_H

#include <string>

#include <vellomark/vellomark.h>

#include "../support/csv_reader.h"

namespace table_report {

/// Adds an overview with links, a table in which the name of a group spans its records, and a table
/// of all fields to `report`. `source` is the name of the file that was read. The header must have
/// two columns or more.
void build_report(IVellomark& report, const examples::csv_table& table,
                  const std::u16string& source);

}  // namespace table_report

#endif
