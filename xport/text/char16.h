#ifndef XPORT_TEXT_CHAR16_H
#define XPORT_TEXT_CHAR16_H

#include <string>
#include <string_view>

namespace Xport {

/// A 16-bit code unit. The whole library works on units: nothing is decoded,
/// escaped or converted, and a lone surrogate is a unit like any other.
using char16 = char16_t;

/// The text type of the library.
using ustring = std::u16string;

/// A borrowed run of code units. What operations take as text; a `ustring`
/// converts to it.
using ustring_view = std::u16string_view;

}  // namespace Xport

#endif
