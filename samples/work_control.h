#ifndef SAMPLES_WORK_CONTROL_H
#define SAMPLES_WORK_CONTROL_H

#include "xport/markup/xhtml_markup.h"

namespace samples {

/// Appends the `object` of the work report, which embeds a control that shows a model.
void add_control(Xport::xhtml_markup& parent);

}  // namespace samples

#endif
