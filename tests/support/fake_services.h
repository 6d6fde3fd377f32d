#ifndef TESTS_SUPPORT_FAKE_SERVICES_H
#define TESTS_SUPPORT_FAKE_SERVICES_H

#include <array>
#include <cstddef>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "platform/file_system.h"
#include "platform/url_opener.h"
#include "tests/support/names.h"
#include "tests/support/utf8.h"
#include "xport/stream/byte_file.h"
#include "xport/text/char16.h"

namespace test {

/// The calls that a report makes to a file system.
enum class file_call { exists, create, open, write, close, open_for_reading, read, rewind };

/// Files and folders in memory. Records every call with the path as it was given,
/// and can fail any of them. The folders of a path must exist;
/// that of a path without a separator, and of one that starts with a lone
/// separator, always exists. Repeated separators count as one.
class memory_files : public platform::file_system {
 public:
  struct call {
    file_call what;
    ustring path;

    friend bool operator==(const call&, const call&) = default;
  };

  bool exists(const ustring& path) override {
    if (note(file_call::exists, path)) return false;
    return is_there(plain(path));
  }

  platform::folder_result create_directory(const ustring& path) override {
    using platform::folder_result;
    if (note(file_call::create, path)) return folder_result::failed;
    const ustring name = plain(path);
    if (is_there(name)) return folder_result::already_exists;
    if (!parent_is_there(name)) return folder_result::failed;
    folders.insert(name);
    return folder_result::created;
  }

  std::unique_ptr<byte_output> open_for_writing(const ustring& path) override {
    if (note(file_call::open, path)) return nullptr;
    const ustring name = plain(path);
    if (folders.count(name) != 0 || !parent_is_there(name)) return nullptr;
    contents[name].clear();
    ++open_files;
    return std::make_unique<output>(*this, path);
  }

  std::unique_ptr<byte_input> open_for_reading(const ustring& path) override {
    if (note(file_call::open_for_reading, path) || !is_file(path)) return nullptr;
    ++open_files;
    return std::make_unique<input>(*this, path);
  }

  bool is_file(const ustring& path) override { return contents.count(plain(path)) != 0; }

  bool copy_file(const ustring& source, const ustring& target) override {
    if (!is_file(source) || !parent_is_there(plain(target)) || plain(source) == plain(target))
      return false;
    contents[plain(target)] = contents[plain(source)];
    return true;
  }

  bool remove_file(const ustring& path) override { return contents.erase(plain(path)) != 0; }

  /// Fails the `number`th call of `what` from now on, the next one being 1.
  void fail(file_call what, std::size_t number) { failing_at(what) = number; }

  /// Fails every call of `what` from now on.
  void fail_always(file_call what) { always_.insert(what); }

  /// How often `what` was called.
  std::size_t count(file_call what) const {
    std::size_t found = 0;
    for (const call& made : calls)
      if (made.what == what) ++found;
    return found;
  }

  /// The file's bytes as code units, least significant byte first.
  ustring units(const ustring& path) const { return file_units(contents.at(plain(path))); }

  std::vector<call> calls;
  std::map<ustring, std::string> contents;  ///< by path, with single separators
  std::set<ustring> folders;
  std::size_t open_files = 0;  ///< files that were opened and not yet closed

  /// `path` with forward slashes, single ones, and none at its end.
  static ustring plain(const ustring& path) {
    ustring name;
    for (const char16_t unit : path) {
      const bool separator = unit == u'/' || unit == u'\\';
      if (!separator)
        name += unit;
      else if (name.empty() || name.back() != u'/')
        name += u'/';
    }
    if (!name.empty() && name.back() == u'/') name.pop_back();
    return name;
  }

 private:
  class output final : public byte_output {
   public:
    output(memory_files& files, const ustring& path) : files_(files), path_(path) {}
    ~output() override {
      if (!closed_) --files_.open_files;
    }
    bool write(const void* bytes, std::size_t size) override {
      if (files_.note(file_call::write, path_)) return false;
      files_.contents[plain(path_)].append(static_cast<const char*>(bytes), size);
      return true;
    }
    bool close() override {
      closed_ = true;
      --files_.open_files;
      return !files_.note(file_call::close, path_);
    }

   private:
    memory_files& files_;
    ustring path_;
    bool closed_ = false;
  };

  // Reads what is written to the file meanwhile, too.
  class input final : public byte_input {
   public:
    input(memory_files& files, const ustring& path) : files_(files), path_(path) {}
    ~input() override { --files_.open_files; }
    std::size_t read(void* bytes, std::size_t size) override {
      if (files_.note(file_call::read, path_)) return 0;
      const auto found = files_.contents.find(plain(path_));
      if (found == files_.contents.end() || at_ > found->second.size()) return 0;
      const std::size_t count = found->second.copy(static_cast<char*>(bytes), size, at_);
      at_ += count;
      return count;
    }
    bool rewind() override {
      if (files_.note(file_call::rewind, path_)) return false;
      at_ = 0;
      return true;
    }

   private:
    memory_files& files_;
    ustring path_;
    std::size_t at_ = 0;
  };

  std::size_t& failing_at(file_call what) { return failing_[static_cast<std::size_t>(what)]; }

  // Records a call and returns whether it must fail.
  bool note(file_call what, const ustring& path) {
    calls.push_back({what, path});
    if (always_.count(what) != 0) return true;
    std::size_t& left = failing_at(what);
    return left != 0 && --left == 0;
  }

  bool is_there(const ustring& name) const {
    return name.empty() || folders.count(name) != 0 || contents.count(name) != 0;
  }

  bool parent_is_there(const ustring& name) const {
    const std::size_t separator = name.rfind(u'/');
    return separator == ustring::npos || separator == 0 ||
           folders.count(name.substr(0, separator)) != 0;
  }

  std::array<std::size_t, 8> failing_{};  // calls left until one fails, 0 for none
  std::set<file_call> always_;
};

/// Records the URLs and opens nothing.
class recording_opener : public platform::url_opener {
 public:
  void open(const ustring& url) override { urls.push_back(url); }

  std::vector<ustring> urls;
};

}  // namespace test

#endif
