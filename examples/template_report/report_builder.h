#ifndef EXAMPLES_TEMPLATE_REPORT_REPORT_BUILDER_H
#define EXAMPLES_TEMPLATE_REPORT_REPORT_BUILDER_H

#include <filesystem>
#include <string>

#include <vellomark/vellomark.h>

#include "../support/csv_reader.h"

namespace template_report {

/// Gives `report` the layout of the template `page`, in UTF-16, and puts a part of it where
/// each of the page's fields stands. The parts are Title, Overview, Groups, Rows and Source;
/// the page may have them in any order and leave some out. `source` is the name of the
/// file that `table` was read from; its records are grouped by the first of two columns or
/// more. Raises std::runtime_error if the page has no field or one of another name.
void fill_template(IVellomark& report, const std::filesystem::path& page,
                   const examples::csv_table& table, const std::u16string& source);

}  // namespace template_report

#endif
