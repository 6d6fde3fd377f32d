#ifndef TESTS_SUPPORT_UTF8_H
#define TESTS_SUPPORT_UTF8_H

#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace test {

/// Reads the code point at `at` and moves `at` past it. A surrogate in three bytes is read as that
/// unit. Throws std::runtime_error where a sequence is broken or cut off.
inline char32_t next_code_point(const char*& at, const char* end) {
  const auto lead = static_cast<unsigned char>(*at++);
  if (lead < 0x80) return lead;
  if (lead < 0xC0) throw std::runtime_error("broken UTF-8");
  const int following = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
  char32_t point = lead & (0x3Fu >> following);
  for (int count = 0; count < following; ++count) {
    const auto next = static_cast<unsigned char>(at != end ? *at++ : 0);
    if ((next & 0xC0) != 0x80) throw std::runtime_error("broken UTF-8");
    point = point << 6 | (next & 0x3Fu);
  }
  return point;
}

/// Writes the one to four bytes of `point` to `out` and returns the end of them.
inline char* put_utf8(char32_t point, char* out) {
  const auto put = [&out](char32_t byte) { *out++ = static_cast<char>(byte); };
  if (point < 0x80) {
    put(point);
    return out;
  }
  const int following = point < 0x800 ? 1 : point < 0x10000 ? 2 : 3;
  put((0xFF00u >> (following + 1) & 0xFF) | point >> (6 * following));
  for (int left = following - 1; left >= 0; --left) put(0x80 | (point >> (6 * left) & 0x3F));
  return out;
}

/// Writes the one or two units of `point` to `out` and returns the end of them.
inline char16_t* put_utf16(char32_t point, char16_t* out) {
  if (point < 0x10000) {
    *out++ = static_cast<char16_t>(point);
  } else {
    *out++ = static_cast<char16_t>(0xD7C0 + (point >> 10));
    *out++ = static_cast<char16_t>(0xDC00 + (point & 0x3FF));
  }
  return out;
}

inline bool is_high_surrogate(char16_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
inline bool is_low_surrogate(char16_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

/// UTF-8 as code units. Throws std::runtime_error where a sequence is broken.
inline std::u16string from_utf8(std::string_view bytes) {
  std::u16string text;
  text.reserve(bytes.size());
  const char* at = bytes.data();
  for (const char* const end = at + bytes.size(); at != end;) {
    char16_t units[2];
    text.append(units, put_utf16(next_code_point(at, end), units));
  }
  return text;
}

/// Code units as UTF-8. A lone surrogate becomes three bytes.
inline std::string to_utf8(std::u16string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    char32_t point = text[i];
    if (is_high_surrogate(text[i]) && i + 1 < text.size() && is_low_surrogate(text[i + 1]))
      point = 0x10000 + ((point - 0xD800) << 10) + (text[++i] - 0xDC00u);
    char sequence[4];
    bytes.append(sequence, put_utf8(point, sequence));
  }
  return bytes;
}

/// The bytes of a file that holds `text`, the low byte of each unit first.
inline std::string file_bytes(std::u16string_view text) {
  std::string bytes;
  bytes.reserve(2 * text.size());
  for (const unsigned unit : text) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  return bytes;
}

/// The units of such a file. An odd last byte is ignored.
inline std::u16string file_units(std::string_view bytes) {
  std::u16string text;
  text.reserve(bytes.size() / 2);
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    const unsigned low = static_cast<unsigned char>(bytes[at]);
    const unsigned high = static_cast<unsigned char>(bytes[at + 1]);
    text += static_cast<char16_t>(high << 8 | low);
  }
  return text;
}

/// file_bytes() after the byte-order mark.
inline std::string marked_bytes(std::u16string_view text) { return "\xFF\xFE" + file_bytes(text); }

/// The same file in the other byte order.
inline std::string swapped_bytes(std::string bytes) {
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) std::swap(bytes[i], bytes[i + 1]);
  return bytes;
}

/// The same units with their bytes swapped.
inline std::u16string swapped(std::u16string_view text) {
  return file_units(swapped_bytes(file_bytes(text)));
}

}  // namespace test

#endif
