#ifndef REPORT_WRITTEN_TEXT_H
#define REPORT_WRITTEN_TEXT_H

#include "xport/markup/xhtml_element.h"
#include "xport/markup/xhtml_markup.h"
#include "xport/text/char16.h"

namespace report {

/// Returns `node` and its content as a writer with the default options writes them. The names
/// of template fields are such texts, so a change of the writer's layout changes them.
Xport::ustring WrittenText(const Xport::xhtml_markup& node);

/// Returns WrittenText of `element` with its tags cut out. References are not decoded. Cutting
/// stops at a ">" that comes before the next "<": the rest of the text stays unchanged.
Xport::ustring ElementPlainText(const Xport::xhtml_element& element);

}  // namespace report

#endif
