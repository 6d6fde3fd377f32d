#ifndef SAMPLES_FILLER_LINES_H
#define SAMPLES_FILLER_LINES_H

#include <span>

#include "xport/text/char16.h"

namespace samples {

/// Lines of a debugger's log of loaded modules, which fill the work report: the four of
/// its description and the twenty of its results.
std::span<const Xport::ustring_view> description_lines();
std::span<const Xport::ustring_view> result_lines();

}  // namespace samples

#endif
