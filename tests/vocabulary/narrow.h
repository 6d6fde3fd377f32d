#ifndef TESTS_VOCABULARY_NARROW_H
#define TESTS_VOCABULARY_NARROW_H

#include <string>

#include "tests/support/names.h"
#include "xport/text/char16.h"

namespace test {

/// `text` unit by unit as bytes, for messages and comparisons; the names are ASCII.
inline std::string narrow(ustring_view text) {
  std::string bytes;
  for (char16 unit : text) bytes.push_back(static_cast<char>(unit));
  return bytes;
}

/// ASCII `text` as code units.
inline ustring widen(const std::string& text) { return ustring(text.begin(), text.end()); }

}  // namespace test

#endif
