#ifndef EXAMPLES_TEMPLATE_REPORT_REPORT_BUILDER_H
#define EXAMPLES_TEMPLATE_REPORT_REPORT_BUILDER_H

#include <filesystem>
#include <string>

#include <vellomark/vellomark.h>

#include "../support/csv_reader.h"

namespace template_report {

/// Loads the template `page`, which is in UTF-16, into `report` and puts a part of the report in
/// place of each of the page's fields. The parts are Title, Overview, Groups, Rows and Source; the
/// page may have them in any order and leave some out. `source` is the name of the file that
/// `table` was read from. The table must have two columns or more; the first one groups its
/// records. Throws std::runtime_error if the page has no field or one of another name.
void fill_template(IVellomark& report, const std::filesystem::path& page,
                   const examples::csv_table& table, const std::u16string& source);

}  // namespace template_report

#endif
