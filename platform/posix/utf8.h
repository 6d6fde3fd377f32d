#ifndef PLATFORM_POSIX_UTF8_H
#define PLATFORM_POSIX_UTF8_H

#include <optional>
#include <string>

#include "xport/text/char16.h"

namespace platform::posix {

/// `text` as UTF-8. Nothing if it can't be expressed in a system call: it has a
/// lone surrogate or a unit 0 in it.
std::optional<std::string> to_utf8(Xport::ustring_view text);

/// `path` as the system calls take it: UTF-8, with each backslash a slash.
std::optional<std::string> to_native_path(Xport::ustring_view path);

}  // namespace platform::posix

#endif
