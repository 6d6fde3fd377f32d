#ifndef PLATFORM_POSIX_STRING_TABLE_H
#define PLATFORM_POSIX_STRING_TABLE_H

#include <cstdint>
#include <span>

#include "xport/text/char16.h"

namespace platform::posix {

/// A string resource.
struct string_entry {
  std::uint32_t number;
  Xport::ustring_view text;
};

/// All string resources; of equal numbers the first counts. What a program gets here is
/// settled by the library that it links: vellomark_no_strings or vellomark_sample_strings.
std::span<const string_entry> string_table();

}  // namespace platform::posix

#endif
