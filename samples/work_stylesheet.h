#ifndef SAMPLES_WORK_STYLESHEET_H
#define SAMPLES_WORK_STYLESHEET_H

#include "xport/stylesheet/xhtml_stylesheet.h"

namespace samples {

/// Adds the eleven rules of the work report.
void add_work_rules(Xport::xhtml_stylesheet& sheet);

}  // namespace samples

#endif
