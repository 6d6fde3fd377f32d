#ifndef TESTS_VOCABULARY_NARROW_H
#define TESTS_VOCABULARY_NARROW_H

#include <string>

#include "xport/text/char16.h"

/// `text` unit by unit as bytes, for messages and comparisons; the names are ASCII.
inline std::string narrow(Xport::ustring_view text) {
  std::string bytes;
  for (Xport::char16 unit : text) bytes.push_back(static_cast<char>(unit));
  return bytes;
}

/// ASCII `text` as code units.
inline Xport::ustring widen(const std::string& text) {
  return Xport::ustring(text.begin(), text.end());
}

#endif
