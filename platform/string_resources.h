#ifndef PLATFORM_STRING_RESOURCES_H
#define PLATFORM_STRING_RESOURCES_H

#include <cstddef>
#include <cstdint>

#include "xport/text/char16.h"

namespace platform {

/// The longest text that string_resource gives, in units.
inline constexpr std::size_t longest_string_resource = 255;

/// The text of the string resource `number`, cut behind its first 255 units and at a
/// unit 0; empty if there is none. It lives as long as the library. May be used from any
/// thread; throws nothing.
///
/// The resources are those of the library that is built, which has none unless it is
/// configured with VELLOMARK_SAMPLE_STRINGS.
Xport::ustring_view string_resource(std::uint32_t number);

}  // namespace platform

#endif
