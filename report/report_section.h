#ifndef REPORT_REPORT_SECTION_H
#define REPORT_REPORT_SECTION_H

#include <cstdint>
#include <list>

#include "xport/markup/xhtml_element.h"
#include "xport/text/char16.h"

/// A deferred section as it waits for the page.
struct ReportSection {
  Xport::ustring name;                       ///< the text of its heading; empty for none
  std::list<Xport::xhtml_element> elements;  ///< its content in order
  std::list<Xport::ustring> heading_texts;   ///< the headings above it, outermost first
  std::list<std::int32_t> heading_styles;    ///< their styles, one for each text
};

#endif
