#include "platform/posix/utf8.h"

#include <algorithm>
#include <cstdint>

namespace platform::posix {

namespace {

void append_code_point(std::string& bytes, std::uint32_t code_point) {
  const auto append = [&bytes](std::uint32_t byte) { bytes.push_back(static_cast<char>(byte)); };
  const auto append_tail = [&](int shift) { append(0x80 | ((code_point >> shift) & 0x3F)); };
  if (code_point < 0x80) {
    append(code_point);
  } else if (code_point < 0x800) {
    append(0xC0 | (code_point >> 6));
    append_tail(0);
  } else if (code_point < 0x10000) {
    append(0xE0 | (code_point >> 12));
    append_tail(6);
    append_tail(0);
  } else {
    append(0xF0 | (code_point >> 18));
    append_tail(12);
    append_tail(6);
    append_tail(0);
  }
}

bool is_high_surrogate(std::uint32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool is_low_surrogate(std::uint32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

}  // namespace

std::optional<std::string> to_utf8(Xport::ustring_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    std::uint32_t code_point = text[i];
    if (is_high_surrogate(code_point) && i + 1 < text.size() && is_low_surrogate(text[i + 1]))
      code_point = 0x10000 + ((code_point - 0xD800) << 10) + (text[++i] - 0xDC00u);
    else if (code_point == 0 || is_high_surrogate(code_point) || is_low_surrogate(code_point))
      return std::nullopt;
    append_code_point(bytes, code_point);
  }
  return bytes;
}

std::optional<std::string> to_native_path(Xport::ustring_view path) {
  std::optional<std::string> native = to_utf8(path);
  if (native) std::replace(native->begin(), native->end(), '\\', '/');
  return native;
}

}  // namespace platform::posix
