#ifndef XPORT_TEXT_CHARACTER_CLASS_H
#define XPORT_TEXT_CHARACTER_CLASS_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <locale>
#include <optional>

#include "xport/text/char16.h"

namespace Xport {

/// Asks a C++ locale what class a code unit belongs to. Units are widened to
/// `wchar_t` one by one, so halves of surrogate pairs are asked about on their own.
/// Make one for each operation that looks at many units: finding the locale's facet
/// is the costly step, and answers for the first 256 units are kept. One object
/// serves one thread at a time.
class character_classes {
 public:
  /// Asks the locale that is the global one now.
  character_classes() : character_classes(std::locale()) {}

  /// Asks `locale`, of which it keeps a copy.
  explicit character_classes(const std::locale& locale);

  /// Whether `unit` is white space (`std::ctype_base::space`).
  bool is_space(char16 unit) const { return is(space, unit); }

  /// Whether `unit` is white space or a blank (`space` or `blank`).
  bool is_space_or_blank(char16 unit) const { return is(space | blank, unit); }

  /// Whether `unit` is a letter or a digit (`std::ctype_base::alnum`).
  bool is_alnum(char16 unit) const { return is(alnum, unit); }

  /// Whether `unit` is a decimal digit (`std::ctype_base::digit`).
  bool is_digit(char16 unit) const { return is(digit, unit); }

  /// `unit` in lower case, by the same locale.
  char16 to_lower(char16 unit) const;

  /// Whether the classes are the standard library's own. In every locale, these count the
  /// small letters of ASCII as `alnum` and not as white space, and the blank and the newline
  /// as white space. A facet of the host may classify any unit in any way.
  bool are_standard() const { return standard_; }

  /// `text` without white space at its end.
  ustring_view trim_right(ustring_view text) const {
    std::size_t size = text.size();
    while (size != 0 && is_space(text[size - 1])) --size;
    return {text.data(), size};
  }

  /// `text` without white space at both ends.
  ustring_view trim(ustring_view text) const;

 private:
  enum : unsigned { space = 1, blank = 2, alnum = 4, digit = 8, all = 15, known = 16 };

  bool is(unsigned classes, char16 unit) const {
    const unsigned kept = unit < kept_.size() ? kept_[unit] : 0U;
    return ((kept != 0 ? kept : find(classes, unit)) & classes) != 0;
  }

  // As ask(), with the answer kept if it can be.
  unsigned find(unsigned classes, char16 unit) const;

  // Those of `classes` that the unit belongs to.
  unsigned ask(unsigned classes, char16 unit) const;

  std::locale locale_;
  const std::ctype<wchar_t>* facet_;
  bool standard_;
  mutable std::array<std::uint8_t, 256> kept_{};
};

/// Fetches character classes for one operation: keeps those of the global locale in `place`
/// from its construction to its destruction. Inside an operation, where `place` has them
/// already, it does nothing.
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

/// `text` with every unit lower-cased by the C library's `towlower`.
ustring to_lower(ustring_view text);

}  // namespace Xport

#endif
