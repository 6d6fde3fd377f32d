#ifndef XPORT_TEXT_NUMBER_FORMAT_H
#define XPORT_TEXT_NUMBER_FORMAT_H

#include <charconv>
#include <concepts>
#include <limits>

#include "xport/text/char16.h"

namespace Xport {

/// Returns `number` in decimal, with a leading "-" if it is negative.
template <std::integral Number>
ustring to_ustring(Number number) {
  // digits10, plus one more digit and the sign.
  char digits[std::numeric_limits<Number>::digits10 + 2];
  char* const end = std::to_chars(digits, digits + sizeof(digits), number).ptr;
  return ustring(digits, end);
}

}  // namespace Xport

#endif
