#ifndef BENCH_BLOCK_FILE_H
#define BENCH_BLOCK_FILE_H

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>

namespace bench {

/// Gathers code units in a block of 64 KiB and writes it whenever it is full.
class block_file {
 public:
  explicit block_file(const std::string& path)
      : file_(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0666)), good_(file_ >= 0) {}
  block_file(const block_file&) = delete;
  block_file& operator=(const block_file&) = delete;
  ~block_file() {
    if (file_ >= 0) {
      ::close(file_);
    }
  }

  void put(char16_t unit) {
    if (used_ == block_units) {
      flush();
    }
    block_[used_++] = unit;
  }

  void put(std::u16string_view text) {
    while (text.size() > block_units - used_) {
      const std::size_t part = block_units - used_;
      std::copy_n(text.data(), part, block_ + used_);
      used_ = block_units;
      text.remove_prefix(part);
      flush();
    }
    std::copy_n(text.data(), text.size(), block_ + used_);
    used_ += text.size();
  }

  /// Writes the rest; false if any write failed.
  bool finish() {
    flush();
    return good_;
  }

 private:
  static constexpr std::size_t block_units = 32 * 1024;

  void flush() {
    const char* bytes = reinterpret_cast<const char*>(block_);
    std::size_t left = used_ * sizeof(char16_t);
    used_ = 0;
    while (good_ && left != 0) {
      const ssize_t written = ::write(file_, bytes, left);
      good_ = written > 0;
      if (good_) {
        bytes += written;
        left -= static_cast<std::size_t>(written);
      }
    }
  }

  int file_;
  bool good_;
  std::size_t used_ = 0;
  char16_t block_[block_units];
};

}  // namespace bench

#endif
