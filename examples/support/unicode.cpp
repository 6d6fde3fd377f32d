#include "unicode.h"

namespace examples {
namespace {

struct sequence_form {
  std::size_t length;   // in bytes; 0 if no sequence begins with this byte
  char32_t first_bits;  // of the number, in the first byte
  char32_t lowest;      // a smaller number has a shorter form
};

sequence_form form_of(unsigned char lead) {
  if (lead < 0x80) return {1, lead, 0};
  if (lead < 0xC0) return {0, 0, 0};
  if (lead < 0xE0) return {2, lead & 0x1Fu, 0x80};
  if (lead < 0xF0) return {3, lead & 0x0Fu, 0x800};
  if (lead < 0xF8) return {4, lead & 0x07u, 0x10000};
  return {0, 0, 0};
}

bool is_scalar_value(char32_t number) {
  return number <= 0x10FFFF && (number < 0xD800 || number > 0xDFFF);
}

void append(std::u16string& text, char32_t number) {
  if (number < 0x10000) {
    text += static_cast<char16_t>(number);
  } else {
    text += static_cast<char16_t>(0xD800 + ((number - 0x10000) >> 10));
    text += static_cast<char16_t>(0xDC00 + ((number - 0x10000) & 0x3FF));
  }
}

}  // namespace

std::u16string to_utf16(std::string_view utf8) {
  std::u16string text;
  text.reserve(utf8.size());
  for (std::size_t start = 0; start < utf8.size();) {
    const sequence_form form = form_of(static_cast<unsigned char>(utf8[start]));
    if (form.length == 0 || form.length > utf8.size() - start) throw invalid_utf8(start);
    char32_t number = form.first_bits;
    for (std::size_t i = start + 1; i < start + form.length; ++i) {
      const unsigned char next = static_cast<unsigned char>(utf8[i]);
      if ((next & 0xC0) != 0x80) throw invalid_utf8(start);
      number = (number << 6) | (next & 0x3Fu);
    }
    if (number < form.lowest || !is_scalar_value(number)) throw invalid_utf8(start);
    append(text, number);
    start += form.length;
  }
  return text;
}

}  // namespace examples
