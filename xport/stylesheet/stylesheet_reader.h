#ifndef XPORT_STYLESHEET_STYLESHEET_READER_H
#define XPORT_STYLESHEET_STYLESHEET_READER_H

#include <istream>
#include <memory>
#include <vector>

#include "xport/stylesheet/stylesheet_items.h"
#include "xport/text/char16.h"

namespace Xport {

/// Reads stylesheet text from where the buffer of `stream` stands up to its end and
/// appends what is found to `items`. What can't be used is dropped without a word;
/// xhtml_stylesheet::parse says what comes out. White space is that of the stream's
/// locale. The stream's state is looked at, for the end-of-file flag, and never changed.
void read_stylesheet(std::basic_istream<char16>& stream,
                     std::vector<std::unique_ptr<xhtml_stylesheet_item>>& items);

}  // namespace Xport

#endif
