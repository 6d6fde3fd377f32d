#ifndef BENCH_READING_BLOCK_INPUT_H
#define BENCH_READING_BLOCK_INPUT_H

#include <cstddef>
#include <string>
#include <string_view>

namespace bench {

/// A file of UTF-16LE, read in blocks of 64 KiB.
class block_input {
 public:
  explicit block_input(const std::string& path);
  block_input(const block_input&) = delete;
  block_input& operator=(const block_input&) = delete;
  ~block_input();

  bool opened() const { return file_ >= 0; }

  /// The size of the file in bytes.
  std::size_t size() const;

  /// The next units, valid until the next call; empty at the end of the file and where it
  /// can't be read.
  std::u16string_view next();

 private:
  static constexpr std::size_t block_units = 32 * 1024;

  int file_;
  char16_t block_[block_units];
};

}  // namespace bench

#endif
