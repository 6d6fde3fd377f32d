#ifndef XPORT_PARSER_READ_DOCUMENT_H
#define XPORT_PARSER_READ_DOCUMENT_H

#include <memory>

#include "xport/markup/xhtml_doc.h"
#include "xport/parser/xhtml_parser.h"
#include "xport/stream/byte_file.h"

namespace Xport {

/// Reads the page in the input of `parser` into `receiver` and replaces its content: loads
/// and indexes the parser's references, rewinds the input, consumes a byte-order mark, and
/// parses. If the input is null or has failed already, nothing is read and `receiver` keeps
/// its content.
///
/// Afterwards `parser.input` is the same stream as before, unless the parser owns it.
void parse_page(xhtml_parser& parser, xhtml_element& receiver);

/// Reads a page of 16-bit units, in either byte order, from `file` into `doc`, with the
/// parser's default options and without messages, and reindexes `doc`. Returns false, with
/// `doc` unchanged, if `file` is null because it couldn't be opened. Otherwise returns true,
/// whatever the file holds: a read error ends the page.
bool read_document(xhtml_doc& doc, std::unique_ptr<byte_input> file);

}  // namespace Xport

#endif
