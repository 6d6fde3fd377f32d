#ifndef ZOV_UTILS_CZOV_STRING_H
#define ZOV_UTILS_CZOV_STRING_H

#include <cstddef>
#include <string>

/// A text of 16-bit code units. Stands in for the class of that name in the
/// closed Zov_Utils library, of which only the construction from a
/// zero-terminated text, the copy and the destruction are needed; the rest is
/// here so that hosts can read what they are given. Header-only: the report
/// library exports nothing of it.
class CZovString {
 public:
  /// Copies the zero-terminated `text`; a null `text` gives an empty string.
  explicit CZovString(const char16_t* text) {
    if (text) text_ = text;
  }

  /// The text, zero-terminated, owned by this object.
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
