#ifndef PLATFORM_POSIX_UTF8_H
#define PLATFORM_POSIX_UTF8_H

#include <optional>
#include <string>

#include "xport/text/char16.h"

namespace platform::posix {

/// Returns `text` as UTF-8, or nothing if a system call can't express it: if it contains a
/// lone surrogate or a zero unit. Throws std::bad_alloc. Time is linear in the length.
std::optional<std::string> to_utf8(Xport::ustring_view text);

/// As to_utf8(), with each backslash replaced by a slash.
std::optional<std::string> to_native_path(Xport::ustring_view path);

}  // namespace platform::posix

#endif
