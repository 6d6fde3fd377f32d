#ifndef XPORT_STREAM_BYTE_ORDER_H
#define XPORT_STREAM_BYTE_ORDER_H

#include <istream>
#include <span>

#include "xport/text/char16.h"

namespace Xport {

/// Swaps the two bytes of each unit.
void swap_bytes(std::span<char16> units) noexcept;

/// Removes a byte-order mark at the current position of `stream`, which must not be null.
/// Does nothing if the stream isn't good.
///
/// White space before the mark, and before its second unit where a mark has two, is
/// skipped and lost, whether or not a mark follows. White space is what the stream's own
/// locale (`getloc()`) classifies as `space`. UTF-32 marks and a lone zero are removed
/// too. So is the mark of UTF-8, although nothing is decoded here. At the end of the
/// input the stream gets eofbit and failbit.
///
/// After a big-endian mark (U+FFFE) the whole rest is read, in time and memory linear in
/// it, and `stream` is set to a new string stream with the bytes of each unit swapped.
/// The caller owns the new stream, which has the global locale. The old stream is deleted
/// if `owns_stream`; otherwise its owner keeps it. If an exception is thrown, `stream`
/// isn't changed, but units may have been read from it.
void detect_byte_order(std::basic_istream<char16>*& stream, bool owns_stream);

}  // namespace Xport

#endif
