#ifndef SAMPLES_STRING_RESOURCES_H
#define SAMPLES_STRING_RESOURCES_H

#include <cstdint>
#include <span>

#include "xport/text/char16.h"

namespace samples {

/// A text that is looked up by its number.
struct string_entry {
  std::uint32_t number;
  Xport::ustring_view text;
};

/// Returns the first text in `table` with this number, cut after 255 units and at its first
/// zero unit; an empty text if there is none. Searches linearly. Throws nothing.
Xport::ustring_view find_string(std::span<const string_entry> table, std::uint32_t number);

/// Looks up `number` in the string table of the library. The table is empty unless the CMake
/// option VELLOMARK_SAMPLE_STRINGS is on. The text lives as long as the library. May be called
/// from any thread; throws nothing.
Xport::ustring_view string_resource(std::uint32_t number);

}  // namespace samples

#endif
