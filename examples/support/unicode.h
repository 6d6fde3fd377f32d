#ifndef EXAMPLES_SUPPORT_UNICODE_H
#define EXAMPLES_SUPPORT_UNICODE_H

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>

namespace examples {

/// Bytes that aren't UTF-8.
class invalid_utf8 : public std::runtime_error {
 public:
  explicit invalid_utf8(std::size_t offset)
      : std::runtime_error("invalid UTF-8"), offset_(offset) {}

  /// The offset in bytes of the first invalid sequence.
  std::size_t offset() const { return offset_; }

 private:
  std::size_t offset_;
};

/// Converts UTF-8 to UTF-16. Throws invalid_utf8 for overlong forms, surrogates, numbers above
/// U+10FFFF and sequences that are cut off. A byte-order mark is a character like any other.
std::u16string to_utf16(std::string_view utf8);

}  // namespace examples

#endif
