#ifndef TESTS_SUPPORT_TEXT_H
#define TESTS_SUPPORT_TEXT_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <string>

#include "tests/support/names.h"
#include "xport/markup/xhtml_markup.h"
#include "xport/markup/xhtml_writer.h"
#include "xport/stream/ustring_stream.h"
#include "xport/text/char16.h"

namespace test {

/// A text for messages: ASCII as it is, other units as \uXXXX.
inline std::string printable(ustring_view text) {
  static const char hex[] = "0123456789ABCDEF";
  std::string out;
  for (const std::uint32_t unit : text) {
    if (unit < 0x7F && (unit >= 0x20 || unit == '\n')) {
      out += static_cast<char>(unit);
    } else {
      out += "\\u";
      for (int shift = 12; shift >= 0; shift -= 4) out += hex[(unit >> shift) & 0xF];
    }
  }
  return out;
}

/// The lines, each followed by a line feed.
inline ustring lines(std::initializer_list<ustring_view> all) {
  ustring text;
  for (const ustring_view line : all) (text += line) += u'\n';
  return text;
}

/// What a writer with the default options writes for `node`.
inline ustring written(const xhtml_markup& node) {
  ustring_stream stream;
  xhtml_writer writer(stream);
  node.write(writer);
  return stream.str();
}

}  // namespace test

#endif
