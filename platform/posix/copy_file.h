#ifndef PLATFORM_POSIX_COPY_FILE_H
#define PLATFORM_POSIX_COPY_FILE_H

#include <string>

namespace platform::posix {

/// Copies a file as file_system::copy_file promises. The copy is made under a name
/// of its own beside the target and takes the target's name when it is complete.
bool copy_file(const std::string& source, const std::string& target);

}  // namespace platform::posix

#endif
