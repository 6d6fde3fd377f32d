#ifndef XPORT_TEXT_NUMBER_FORMAT_H
#define XPORT_TEXT_NUMBER_FORMAT_H

#include <charconv>
#include <cstdint>

#include "xport/text/char16.h"

namespace Xport {

/// `number` in decimal, with a "-" in front where it is negative.
inline ustring to_ustring(std::int32_t number) {
  char digits[11];  // "-2147483648"
  char* const end = std::to_chars(digits, digits + sizeof(digits), number).ptr;
  return ustring(digits, end);
}

}  // namespace Xport

#endif
