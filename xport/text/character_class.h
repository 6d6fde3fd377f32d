#ifndef XPORT_TEXT_CHARACTER_CLASS_H
#define XPORT_TEXT_CHARACTER_CLASS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <locale>
#include <optional>

#include "xport/text/char16.h"

namespace Xport {

/// The character classes of a C++ locale. Each code unit is widened to `wchar_t` and looked up
/// on its own, even if it is half of a surrogate pair. Make one object for each operation
/// that classifies many units: the construction, which looks up the locale's facet, is the
/// expensive part, and the results for the first 256 units are cached. An object serves one
/// thread at a time.
class character_classes {
 public:
  /// Uses the current global locale.
  character_classes() : character_classes(std::locale()) {}

  /// Uses a copy of `locale`.
  explicit character_classes(const std::locale& locale);

  /// Whether `unit` is white space (`std::ctype_base::space`).
  bool is_space(char16 unit) const { return is(space, unit); }

  /// Whether `unit` is white space or a blank (`space` or `blank`).
  bool is_space_or_blank(char16 unit) const { return is(space | blank, unit); }

  /// Whether `unit` is a letter or a digit (`std::ctype_base::alnum`).
  bool is_alnum(char16 unit) const { return is(alnum, unit); }

  /// Whether `unit` is a decimal digit (`std::ctype_base::digit`).
  bool is_digit(char16 unit) const { return is(digit, unit); }

  /// `unit` in lower case, by the rules of the same locale.
  char16 to_lower(char16 unit) const;

  /// Whether the classes are the standard library's own. In every locale, these count the
  /// small letters of ASCII as `alnum` and not as white space, and the blank and the newline
  /// as white space. A facet of the host may classify any unit in any way.
  bool are_standard() const { return standard_; }

  /// `text` without the white space at its end.
  ustring_view trim_right(ustring_view text) const {
    std::size_t size = text.size();
    while (size != 0 && is_space(text[size - 1])) --size;
    return {text.data(), size};
  }

  /// `text` without the white space at both ends.
  ustring_view trim(ustring_view text) const;

 private:
  enum : unsigned { space = 1, blank = 2, alnum = 4, digit = 8, all = 15, known = 16 };

  bool is(unsigned classes, char16 unit) const {
    const unsigned kept = unit < kept_.size() ? kept_[unit] : 0U;
    return ((kept != 0 ? kept : find(classes, unit)) & classes) != 0;
  }

  // Returns what ask() returns, and caches it for the first 256 units.
  unsigned find(unsigned classes, char16 unit) const;

  // Asks the facet to which of `classes` the unit belongs.
  unsigned ask(unsigned classes, char16 unit) const;

  std::locale locale_;
  const std::ctype<wchar_t>* facet_;
  bool standard_;
  mutable std::array<std::uint8_t, 256> kept_{};
};

/// Holds the character classes of the global locale in `place` during one operation: stores
/// them on construction and removes them on destruction. Does nothing if `place` holds some
/// already, because an outer operation has stored them.
class operation_classes {
 public:
  explicit operation_classes(std::optional<character_classes>& place)
      : place_(place ? nullptr : &place) {
    if (place_ != nullptr) place_->emplace();
  }
  operation_classes(const operation_classes&) = delete;
  operation_classes& operator=(const operation_classes&) = delete;
  ~operation_classes() {
    if (place_ != nullptr) place_->reset();
  }

 private:
  std::optional<character_classes>* place_;
};

/// Returns `text` with each unit lower-cased by the C library's `towlower`.
ustring to_lower(ustring_view text);

}  // namespace Xport

#endif
