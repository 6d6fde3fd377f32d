#ifndef BENCH_READING_NARROW_PAGE_H
#define BENCH_READING_NARROW_PAGE_H

#include <cstddef>
#include <cstdlib>
#include <memory>
#include <string>

namespace bench {

struct give_back {
  void operator()(char* block) const { std::free(block); }
};

/// A page in UTF-8, for parsers that take nothing else.
struct narrow_page {
  std::unique_ptr<char, give_back> bytes;  ///< null if the page couldn't be read
  std::size_t size = 0;                    ///< without the zero behind the page
};

/// Reads a file of UTF-16LE in blocks of 64 KiB and converts them on the way. A mark at
/// the front is left out; lone surrogates become U+FFFD.
narrow_page read_narrow_page(const std::string& path);

}  // namespace bench

#endif
