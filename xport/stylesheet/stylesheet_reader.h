#ifndef XPORT_STYLESHEET_STYLESHEET_READER_H
#define XPORT_STYLESHEET_STYLESHEET_READER_H

#include <istream>
#include <memory>
#include <vector>

#include "xport/stylesheet/stylesheet_items.h"
#include "xport/text/char16.h"

namespace Xport {

/// Reads stylesheet text from the current position of the buffer of `stream` to its end and
/// appends the items found to `items`. Silently drops what it can't use; the rules are those
/// of xhtml_stylesheet::parse. White space is that of the stream's locale. Checks the
/// stream's end-of-file flag and never changes the stream's state.
void read_stylesheet(std::basic_istream<char16>& stream,
                     std::vector<std::unique_ptr<xhtml_stylesheet_item>>& items);

}  // namespace Xport

#endif
