#ifndef PLATFORM_FILE_SYSTEM_H
#define PLATFORM_FILE_SYSTEM_H

#include <memory>

#include "xport/stream/byte_file.h"
#include "xport/text/char16.h"

namespace platform {

/// What making a folder came to.
enum class folder_result {
  created,         ///< it was made
  already_exists,  ///< something of that name is there, a folder or not
  failed           ///< anything else
};

/// The file services that a report needs. Paths are texts as the caller has
/// them; a backslash and a forward slash both separate. A path that the system
/// can't express (a lone surrogate on POSIX) is one that doesn't exist and can't
/// be made or opened. Nothing here throws but std::bad_alloc.
class file_system {
 public:
  /// Whether something of that name is there, a file, a folder or anything else. A
  /// link that leads nowhere counts as nothing.
  virtual bool exists(const Xport::ustring& path) = 0;

  /// Whether `path` is a file with content of its own, or leads to one: no folder,
  /// no device.
  virtual bool is_file(const Xport::ustring& path) = 0;

  /// Makes the last level of `path`.
  virtual folder_result create_directory(const Xport::ustring& path) = 0;

  /// Opens a file for writing as bytes, emptied if it is there, and denies
  /// nobody else the file. Null if that fails.
  virtual std::unique_ptr<Xport::byte_output> open_for_writing(const Xport::ustring& path) = 0;

  /// Opens a file for reading as bytes, and denies nobody else the file. Null if that
  /// fails; a folder can't be opened.
  virtual std::unique_ptr<Xport::byte_input> open_for_reading(const Xport::ustring& path) = 0;

  /// Copies a file, in place of a file that is there. True only if the copy is
  /// complete and closed without an error; otherwise the target is as it was and
  /// no half file is left behind. A file isn't copied onto itself, under whatever
  /// name, and a folder isn't copied.
  ///
  /// On POSIX the target's folder holds the unfinished copy. A process that is killed
  /// leaves no half file there if the file system has unnamed files (O_TMPFILE) and
  /// /proc is mounted; otherwise it leaves a file `.copy-XXXXXX`. Killed between naming
  /// and renaming a copy that replaces a file, it leaves the complete copy as `.copy-N`.
  virtual bool copy_file(const Xport::ustring& source, const Xport::ustring& target) = 0;

  /// Removes a file; false if that fails.
  virtual bool remove_file(const Xport::ustring& path) = 0;

  /// The file system of the operating system. Holds no state; may be used from any
  /// thread, and from the start of the process to its very end: it is never destroyed.
  static file_system& native();

 protected:
  // Nobody deletes a file system through this class. Not virtual, so that native() has
  // nothing to destroy.
  ~file_system() = default;
};

}  // namespace platform

#endif
