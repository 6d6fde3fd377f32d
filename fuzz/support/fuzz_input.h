#ifndef FUZZ_SUPPORT_FUZZ_INPUT_H
#define FUZZ_SUPPORT_FUZZ_INPUT_H

#include <cstddef>
#include <cstdint>

#include "xport/text/char16.h"

namespace test {

/// Splits an input into options and text. Options are the low bits of single bytes, so that kept
/// inputs can be written by hand in letters: "@" is 0, "A" is 1, "B" is 2 ...
class fuzz_input {
 public:
  fuzz_input(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  /// The next byte, "@" at the end.
  unsigned take_byte() {
    if (size_ == 0) return 0x40;
    --size_;
    return *data_++;
  }

  /// The rest of the input as text, from UTF-8 in which every unit can be written, surrogates and
  /// U+FFFF too. A byte that is part of no sequence is the unit of that number.
  Xport::ustring take_text();

  /// The rest of the input as units, the low byte of each first; an odd last byte is one unit.
  Xport::ustring take_units();

 private:
  const std::uint8_t* data_;
  std::size_t size_;
};

}  // namespace test

#endif
