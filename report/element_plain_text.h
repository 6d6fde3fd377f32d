#ifndef REPORT_ELEMENT_PLAIN_TEXT_H
#define REPORT_ELEMENT_PLAIN_TEXT_H

#include "xport/markup/xhtml_element.h"
#include "xport/text/char16.h"

/// The text of `element` as it is written, with its tags cut out. References
/// aren't decoded. A ">" that stands ahead of the next "<" ends the cutting: from
/// there on the text stays as it is.
Xport::ustring ElementPlainText(const Xport::xhtml_element& element);

#endif
