#include "fuzz/support/fuzz_input.h"

namespace test {

namespace {

// The length of the sequence of UTF-8 that `lead` begins.
std::size_t sequence_length(std::uint8_t lead) {
  if (lead >= 0xC2 && lead < 0xE0) return 2;
  if (lead >= 0xE0 && lead < 0xF0) return 3;
  return 1;
}

}  // namespace

Xport::ustring fuzz_input::take_text() {
  Xport::ustring text;
  while (size_ != 0) {
    std::size_t length = sequence_length(*data_);
    if (length > size_) length = 1;
    std::uint32_t unit = length == 1 ? *data_ : *data_ & (0xFFu >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
      if ((data_[i] & 0xC0) != 0x80) {
        length = 1;
        unit = *data_;
        break;
      }
      unit = unit << 6 | (data_[i] & 0x3F);
    }
    text += static_cast<Xport::char16>(unit);
    data_ += length;
    size_ -= length;
  }
  return text;
}

Xport::ustring fuzz_input::take_units() {
  Xport::ustring text;
  while (size_ != 0) {
    const unsigned low = take_byte();
    const unsigned high = size_ != 0 ? take_byte() : 0;
    text += static_cast<Xport::char16>(low | high << 8);
  }
  return text;
}

}  // namespace test
