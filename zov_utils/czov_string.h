#ifndef ZOV_UTILS_CZOV_STRING_H
#define ZOV_UTILS_CZOV_STRING_H

#include <cstddef>
#include <string>

/// A text of 16-bit code units. Replaces the class of that name in the closed
/// Zov_Utils library. The report library itself only constructs a text from
/// zero-terminated units, copies it and destroys it; the other operations let
/// hosts read a text. Header-only: the report library exports nothing of it.
class CZovString {
 public:
  /// Copies the zero-terminated `text`; a null `text` makes an empty one. Throws
  /// std::bad_alloc.
  explicit CZovString(const char16_t* text) {
    if (text) text_ = text;
  }

  /// The zero-terminated text, owned by this object.
  const char16_t* c_str() const { return text_.c_str(); }

  /// The number of code units.
  std::size_t size() const { return text_.size(); }

 private:
  std::u16string text_;
};

/// Whether both hold the same code units.
inline bool operator==(const CZovString& a, const CZovString& b) {
  return a.size() == b.size() &&
         std::char_traits<char16_t>::compare(a.c_str(), b.c_str(), a.size()) == 0;
}

/// Whether they differ in any code unit.
inline bool operator!=(const CZovString& a, const CZovString& b) { return !(a == b); }

#endif
