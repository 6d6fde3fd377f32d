#ifndef TESTS_SUPPORT_UNIT_BYTES_H
#define TESTS_SUPPORT_UNIT_BYTES_H

#include <cstddef>
#include <string>
#include <utility>

#include "tests/support/names.h"
#include "tests/support/utf8.h"
#include "xport/text/char16.h"

namespace test {

/// file_bytes() after the byte-order mark.
inline std::string marked_bytes(ustring_view text) { return "\xFF\xFE" + file_bytes(text); }

/// The units of a file with the least significant byte of each first, and its mark if it has one.
inline ustring file_units(const std::string& bytes) {
  ustring text;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2)
    text += static_cast<char16>(static_cast<unsigned char>(bytes[i]) |
                                static_cast<unsigned char>(bytes[i + 1]) << 8);
  return text;
}

/// The same file in the other byte order.
inline std::string swapped_bytes(std::string bytes) {
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) std::swap(bytes[i], bytes[i + 1]);
  return bytes;
}

/// The same units with their bytes swapped.
inline ustring swapped(ustring_view text) { return file_units(swapped_bytes(file_bytes(text))); }

}  // namespace test

#endif
