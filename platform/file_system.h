#ifndef PLATFORM_FILE_SYSTEM_H
#define PLATFORM_FILE_SYSTEM_H

#include <memory>

#include "xport/stream/byte_file.h"
#include "xport/text/char16.h"

namespace platform {

/// The result of creating a folder.
enum class folder_result {
  created,         ///< the folder was created
  already_exists,  ///< something of that name exists, a folder or not
  failed           ///< anything else
};

/// The file services that a report needs. Both a backslash and a forward slash separate the
/// parts of a path. A path that the system can't express (on POSIX, one with a lone surrogate
/// or a zero unit) counts as missing, and creating or opening it fails. Operations throw
/// std::bad_alloc and nothing else.
class file_system {
 public:
  /// Whether something of that name exists: a file, a folder or anything else. A dangling
  /// link counts as missing.
  virtual bool exists(const Xport::ustring& path) = 0;

  /// Whether `path` is a regular file or a link to one, and so neither a folder nor a device.
  virtual bool is_file(const Xport::ustring& path) = 0;

  /// Creates the last level of `path`.
  virtual folder_result create_directory(const Xport::ustring& path) = 0;

  /// Opens a file for writing. Creates a missing file and empties an existing one. Others may
  /// open the file at the same time. Returns null on failure.
  virtual std::unique_ptr<Xport::byte_output> open_for_writing(const Xport::ustring& path) = 0;

  /// Opens a file for reading. Others may open the file at the same time. Returns null on
  /// failure; a folder can't be opened.
  virtual std::unique_ptr<Xport::byte_input> open_for_reading(const Xport::ustring& path) = 0;

  /// Copies a file, and replaces an existing target file. Returns true only if the copy is
  /// complete and was closed without an error; otherwise the target is unchanged and no
  /// partial file is left. Fails for a folder, and if both paths name the same file. Time is
  /// linear in the size of the file.
  ///
  /// On POSIX the unfinished copy is in the target's folder. A process that is killed leaves
  /// no partial file there if the file system has unnamed files (O_TMPFILE) and /proc is
  /// mounted; otherwise it leaves a file `.copy-XXXXXX`. If it is killed between naming and
  /// renaming a copy that replaces a file, the complete copy stays as `.copy-N`.
  virtual bool copy_file(const Xport::ustring& source, const Xport::ustring& target) = 0;

  /// Deletes a file; returns false on failure.
  virtual bool remove_file(const Xport::ustring& path) = 0;

  /// The file system of the operating system. It has no state, and exists before any
  /// code runs and until the process ends. May be used from any thread.
  static file_system& native();

 protected:
  // Not virtual, so that the object of native() needs no destruction. Nobody deletes a file
  // system through this class.
  ~file_system() = default;
};

}  // namespace platform

#endif
