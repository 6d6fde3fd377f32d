#ifndef XPORT_MARKUP_DOCUMENT_FILE_H
#define XPORT_MARKUP_DOCUMENT_FILE_H

#include <memory>

#include "xport/markup/xhtml_doc.h"
#include "xport/stream/byte_file.h"

namespace Xport {

/// Writes `doc` with the writer's default options to `file`, as UTF-16 little
/// endian behind a byte-order mark, and closes it. False if `file` is null, the
/// sign of a file that couldn't be opened; true otherwise, even if the writing or
/// the closing fails and the file is incomplete.
bool write_document(const xhtml_doc& doc, std::unique_ptr<byte_output> file);

}  // namespace Xport

#endif
