#ifndef FUZZ_REPORT_FENCED_FILES_H
#define FUZZ_REPORT_FENCED_FILES_H

#include <cstddef>
#include <memory>
#include <optional>

#include "platform/file_system.h"
#include "xport/text/char16.h"

namespace test {

/// The disk below one folder. Outside of it nothing exists and nothing can be made, so that no path
/// in an input does harm. One of its calls can be made to throw.
class fenced_files : public platform::file_system {
 public:
  /// Accepts paths that begin with `folder` and a separator and don't lead out of it.
  explicit fenced_files(Xport::ustring folder) : folder_(std::move(folder)) {}

  bool exists(const Xport::ustring& path) override { return passes(path) && disk_.exists(path); }
  bool is_file(const Xport::ustring& path) override { return passes(path) && disk_.is_file(path); }
  platform::folder_result create_directory(const Xport::ustring& path) override {
    return passes(path) ? disk_.create_directory(path) : platform::folder_result::failed;
  }
  std::unique_ptr<Xport::byte_output> open_for_writing(const Xport::ustring& path) override {
    return passes(path) ? disk_.open_for_writing(path) : nullptr;
  }
  std::unique_ptr<Xport::byte_input> open_for_reading(const Xport::ustring& path) override {
    return passes(path) ? disk_.open_for_reading(path) : nullptr;
  }
  bool copy_file(const Xport::ustring& source, const Xport::ustring& target) override {
    return passes(source) && is_inside(target) && disk_.copy_file(source, target);
  }
  bool remove_file(const Xport::ustring& path) override {
    return passes(path) && disk_.remove_file(path);
  }

  /// Makes the `number`th call from now on throw std::bad_alloc; 0 for none.
  void throw_at(std::size_t number) { left_ = number; }

  /// The units of the file at `path`; nothing if it can't be opened.
  std::optional<Xport::ustring> units_of(const Xport::ustring& path) const;

 private:
  bool is_inside(Xport::ustring_view path) const;
  bool passes(const Xport::ustring& path);

  platform::file_system& disk_ = file_system::native();
  Xport::ustring folder_;
  std::size_t left_ = 0;
};

}  // namespace test

#endif
