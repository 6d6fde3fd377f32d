#ifndef XPORT_STREAM_BYTE_ORDER_H
#define XPORT_STREAM_BYTE_ORDER_H

#include <istream>

#include "xport/text/char16.h"

namespace Xport {

/// Looks for a byte-order mark at the place where `stream`, which mustn't be null,
/// stands, and takes it out of the input. Does nothing to a stream that isn't good.
///
/// White space before the mark, and before its second unit where a mark has two, is
/// skipped and lost, whether a mark follows or not. White space is what the stream's
/// own locale (`getloc()`) classifies as `space`. Marks of UTF-32 and a lone zero go
/// too; the mark of UTF-8 goes as if it were one, although nothing is decoded here. At
/// the end of the input the stream gets eofbit and failbit.
///
/// After a big-endian mark (U+FFFE) all the rest is read, and `stream` leads to a new
/// string stream with the bytes of each unit swapped, which the caller then owns. The
/// new stream has the global locale. The old stream is deleted if `owns_stream`, and
/// else stays with its owner. If an exception passes, `stream` is as it was, though
/// read from.
void detect_byte_order(std::basic_istream<char16>*& stream, bool owns_stream);

}  // namespace Xport

#endif
