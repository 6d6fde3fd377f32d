#ifndef XPORT_PARSER_READ_DOCUMENT_H
#define XPORT_PARSER_READ_DOCUMENT_H

#include <memory>

#include "xport/markup/xhtml_doc.h"
#include "xport/parser/xhtml_parser.h"
#include "xport/stream/byte_file.h"

namespace Xport {

/// Reads the page behind `parser` into `receiver`, whose content it replaces: loads the
/// parser's references and indexes them, goes to the start of the input, takes a
/// byte-order mark out of it, and parses. If the stream is in a fail or bad state to
/// begin with, or null, nothing is read and `receiver` keeps its content.
///
/// `parser.input` leads to the same stream afterwards, unless the parser owns it.
void parse_page(xhtml_parser& parser, xhtml_element& receiver);

/// Reads a page of 16-bit units, in either byte order, from `file` into `doc`, silently
/// and with the parser's default options, and makes the known elements of `doc`
/// those of the page. False, with `doc` as it was, if `file` is null, the sign of a file
/// that couldn't be opened. True otherwise, whatever the file holds: reading ends
/// where it can't be read.
bool read_document(xhtml_doc& doc, std::unique_ptr<byte_input> file);

}  // namespace Xport

#endif
