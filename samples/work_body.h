#ifndef SAMPLES_WORK_BODY_H
#define SAMPLES_WORK_BODY_H

#include "xport/markup/xhtml_markup.h"

namespace samples {

/// Appends everything that the work report shows to its `body`.
void add_work_body(Xport::xhtml_markup& body);

}  // namespace samples

#endif
