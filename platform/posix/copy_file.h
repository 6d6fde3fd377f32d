#ifndef PLATFORM_POSIX_COPY_FILE_H
#define PLATFORM_POSIX_COPY_FILE_H

#include <string>

namespace platform::posix {

/// Where the bytes of an unfinished copy are kept.
enum class unfinished_copy {
  /// In a file without a name in the target's folder, which the system deletes if the process
  /// is killed. A complete copy that replaces a file is named `.copy-N` until it is renamed.
  /// Falls back to `named` if the file system has no unnamed files, /proc isn't mounted or no
  /// third descriptor is free; without /proc the bytes are written twice.
  unnamed,
  /// In a file `.copy-XXXXXX` in the target's folder. A killed process leaves it there.
  named
};

/// Copies a file as file_system::copy_file promises. The copy gets the target's name when it
/// is complete and closed without an error. `unfinished` exists for the tests. Throws
/// std::bad_alloc.
bool copy_file(const std::string& source, const std::string& target,
               unfinished_copy unfinished = unfinished_copy::unnamed);

}  // namespace platform::posix

#endif
