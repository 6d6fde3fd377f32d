#ifndef BENCH_READING_PAGE_BLOCKS_H
#define BENCH_READING_PAGE_BLOCKS_H

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string>
#include <string_view>

namespace bench {

/// A file of UTF-16LE, read in blocks of 64 KiB.
class page_blocks {
 public:
  explicit page_blocks(const std::string& path);
  page_blocks(const page_blocks&) = delete;
  page_blocks& operator=(const page_blocks&) = delete;
  ~page_blocks();

  bool opened() const { return file_ >= 0; }

  /// The size of the file in bytes.
  std::size_t size() const;

  /// The next units, valid until the next call; empty at the end of the file and where it can't be
  /// read.
  std::u16string_view next();

 private:
  static constexpr std::size_t block_units = 32 * 1024;

  int file_;
  char16_t block_[block_units];
};

struct free_block {
  void operator()(char* block) const { std::free(block); }
};

/// A page in UTF-8, for parsers that accept nothing else.
struct narrow_page {
  std::unique_ptr<char, free_block> bytes;  ///< null if the page couldn't be read
  std::size_t size = 0;                     ///< without the zero after the page
};

/// Reads a file of UTF-16LE in blocks and converts them on the way. A byte-order mark is left out;
/// a lone surrogate becomes U+FFFD.
narrow_page read_narrow_page(const std::string& path);

}  // namespace bench

#endif
