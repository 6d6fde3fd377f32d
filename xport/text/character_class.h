#ifndef XPORT_TEXT_CHARACTER_CLASS_H
#define XPORT_TEXT_CHARACTER_CLASS_H

#include <locale>

#include "xport/text/char16.h"

namespace Xport {

/// Asks the global C++ locale, as it is at construction, what class a code unit
/// belongs to. Units are widened to `wchar_t` one by one, so halves of surrogate
/// pairs are asked about on their own. Make one for each operation that looks at
/// many units: finding the locale's facet is the costly step.
class character_classes {
 public:
  character_classes();

  /// Whether `unit` is white space (`std::ctype_base::space`).
  bool is_space(char16 unit) const;

  /// `text` without white space at its end.
  ustring_view trim_right(ustring_view text) const;

  /// `text` without white space at both ends.
  ustring_view trim(ustring_view text) const;

 private:
  std::locale locale_;
  const std::ctype<wchar_t>* facet_;
};

/// `text` with every unit lower-cased by the C library's `towlower`.
ustring to_lower(ustring_view text);

}  // namespace Xport

#endif
