#ifndef TESTS_SUPPORT_GOLDEN_H
#define TESTS_SUPPORT_GOLDEN_H

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

#include "tests/support/text.h"
#include "xport/text/char16.h"

namespace test {

/// Whether two texts are equal unit by unit. If not, the message names the line and
/// the column, counted from 1 in units, of the first difference and shows what stands
/// around it in both.
inline testing::AssertionResult same_units(Xport::ustring_view actual,
                                           Xport::ustring_view expected) {
  if (actual == expected) return testing::AssertionSuccess();
  const auto differ = std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
  const auto at = static_cast<std::size_t>(differ.first - actual.begin());
  const Xport::ustring_view before = actual.substr(0, at);
  const auto line = std::count(before.begin(), before.end(), u'\n') + 1;
  const std::size_t column = at - (before.rfind(u'\n') + 1) + 1;  // npos + 1 is 0
  const std::size_t from = at < 60 ? 0 : at - 60;
  const auto surroundings = [from, at](Xport::ustring_view text) {
    return printable(text.substr(from, at - from)) + "[here]" +
           (at < text.size() ? printable(text.substr(at, 60)) : "(end of text)");
  };
  return testing::AssertionFailure()
         << "differs in line " << line << ", column " << column << " (unit " << at << "); "
         << actual.size() << " units for " << expected.size() << "\n--- expected\n"
         << surroundings(expected) << "\n--- actual\n"
         << surroundings(actual);
}

/// UTF-8 without lone surrogates as code units. Raises std::runtime_error where a
/// sequence is broken.
inline Xport::ustring from_utf8(const std::string& bytes) {
  Xport::ustring text;
  for (std::size_t i = 0; i < bytes.size();) {
    const auto lead = static_cast<unsigned char>(bytes[i++]);
    const int more = lead < 0x80 ? 0 : lead < 0xC0 ? -1 : lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
    if (more < 0) throw std::runtime_error("broken UTF-8");
    std::uint32_t code = more == 0 ? lead : lead & (0x3Fu >> more);
    for (int k = 0; k < more; ++k) {
      const auto next = static_cast<unsigned char>(i < bytes.size() ? bytes[i++] : 0);
      if ((next & 0xC0) != 0x80) throw std::runtime_error("broken UTF-8");
      code = code << 6 | (next & 0x3F);
    }
    if (code < 0x10000) {
      text += static_cast<Xport::char16>(code);
    } else {
      text += static_cast<Xport::char16>(0xD7C0 + (code >> 10));
      text += static_cast<Xport::char16>(0xDC00 + (code & 0x3FF));
    }
  }
  return text;
}

/// Code units as UTF-8. Lone surrogates, which golden texts don't hold, become three
/// bytes each.
inline std::string to_utf8(Xport::ustring_view text) {
  std::string bytes;
  const auto put = [&bytes](std::uint32_t byte) { bytes += static_cast<char>(byte); };
  for (std::size_t i = 0; i < text.size(); ++i) {
    std::uint32_t code = text[i];
    if (code >= 0xD800 && code < 0xDC00 && i + 1 < text.size() && text[i + 1] >= 0xDC00 &&
        text[i + 1] < 0xE000)
      code = 0x10000 + ((code - 0xD800) << 10) + (text[++i] - 0xDC00u);
    if (code < 0x80) {
      put(code);
      continue;
    }
    const int more = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    put((0xFF00u >> (more + 1) & 0xFF) | code >> (6 * more));
    for (int k = more - 1; k >= 0; --k) put(0x80 | (code >> (6 * k) & 0x3F));
  }
  return bytes;
}

/// Whether `text` is the file `name` of the folder tests/data, which holds it in UTF-8
/// without a byte-order mark. With VELLOMARK_REWRITE_GOLDEN=1 in the environment the
/// file is written anew and the test fails, so that the change is reviewed by diff.
inline testing::AssertionResult is_golden(Xport::ustring_view text, const std::string& name) {
  const std::string path = std::string(VELLOMARK_TEST_DATA "/") + name;
  const char* const rewrite = std::getenv("VELLOMARK_REWRITE_GOLDEN");
  if (rewrite != nullptr && std::string(rewrite) == "1") {
    std::ofstream(path, std::ios::binary) << to_utf8(text);
    return testing::AssertionFailure() << path << " was written anew: review the difference";
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) return testing::AssertionFailure() << path << " can't be read";
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  return same_units(text, from_utf8(bytes)) << "\n--- golden file " << path;
}

}  // namespace test

#endif
