#ifndef EXAMPLES_MEASUREMENT_REPORT_REPORT_BUILDER_H
#define EXAMPLES_MEASUREMENT_REPORT_REPORT_BUILDER_H

#include <string>
#include <vector>

#include <vellomark/vellomark.h>

#include "measurements.h"

namespace measurement_report {

/// Adds an overview with a link to each group, and a section for each group with its chart and its
/// table, to `report`. `pictures` are the paths of the charts, one for each group, in the form that
/// the library recognises. `source` is the name of the file that was read.
void build_report(IVellomark& report, const measurement_table& table,
                  const std::vector<std::u16string>& pictures, const std::u16string& source);

}  // namespace measurement_report

#endif
