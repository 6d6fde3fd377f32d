#ifndef REPORT_WRITTEN_TEXT_H
#define REPORT_WRITTEN_TEXT_H

#include "xport/markup/xhtml_markup.h"
#include "xport/text/char16.h"

/// What a writer with the default options makes of `node` and all below it.
Xport::ustring WrittenText(const Xport::xhtml_markup& node);

#endif
