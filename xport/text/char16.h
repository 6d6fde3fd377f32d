#ifndef XPORT_TEXT_CHAR16_H
#define XPORT_TEXT_CHAR16_H

#include <string>
#include <string_view>

namespace Xport {

/// A 16-bit code unit. The whole library works on units. It never decodes, escapes or
/// converts them, and a lone surrogate is a unit like any other.
using char16 = char16_t;

/// The text type of the library.
using ustring = std::u16string;

/// Text that somebody else owns: the parameter type of operations that accept text. A
/// `ustring` converts to it.
using ustring_view = std::u16string_view;

}  // namespace Xport

#endif
