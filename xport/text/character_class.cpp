#include "xport/text/character_class.h"

#include <cwctype>

namespace Xport {

character_classes::character_classes() : facet_(&std::use_facet<std::ctype<wchar_t>>(locale_)) {}

bool character_classes::is_space(char16 unit) const {
  return facet_->is(std::ctype_base::space, static_cast<wchar_t>(unit));
}

ustring_view character_classes::trim_right(ustring_view text) const {
  while (!text.empty() && is_space(text.back())) text.remove_suffix(1);
  return text;
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
