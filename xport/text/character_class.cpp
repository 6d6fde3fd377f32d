#include "xport/text/character_class.h"

#include <cwctype>
#include <typeinfo>

namespace Xport {

character_classes::character_classes(const std::locale& locale)
    : locale_(locale),
      facet_(&std::use_facet<std::ctype<wchar_t>>(locale_)),
      standard_(typeid(*facet_) == typeid(std::ctype<wchar_t>)) {}

unsigned character_classes::find(unsigned classes, char16 unit) const {
  if (unit >= kept_.size()) return ask(classes, unit);
  return kept_[unit] = static_cast<std::uint8_t>(known | ask(all, unit));
}

unsigned character_classes::ask(unsigned classes, char16 unit) const {
  const auto has = [&](std::ctype_base::mask mask, unsigned bit) {
    return (classes & bit) != 0 && facet_->is(mask, static_cast<wchar_t>(unit)) ? bit : 0U;
  };
  return has(std::ctype_base::space, space) | has(std::ctype_base::blank, blank) |
         has(std::ctype_base::alnum, alnum) | has(std::ctype_base::digit, digit);
}

char16 character_classes::to_lower(char16 unit) const {
  return static_cast<char16>(facet_->tolower(static_cast<wchar_t>(unit)));
}

ustring_view character_classes::trim(ustring_view text) const {
  text = trim_right(text);
  while (!text.empty() && is_space(text.front())) text.remove_prefix(1);
  return text;
}

ustring to_lower(ustring_view text) {
  ustring lower(text);
  for (char16& unit : lower)
    unit = static_cast<char16>(std::towlower(static_cast<std::wint_t>(unit)));
  return lower;
}

}  // namespace Xport
