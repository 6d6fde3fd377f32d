#include "page_text.h"

namespace examples {
namespace {

bool is_letter(char16_t unit) {
  return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

bool is_digit(char16_t unit) { return unit >= u'0' && unit <= u'9'; }

bool is_xml_character(char16_t unit) {
  return unit >= u' ' ? unit < 0xFFFE : unit == u'\t' || unit == u'\n' || unit == u'\r';
}

}  // namespace

// The library writes texts unescaped, so that hosts can use markup of their own. A host that shows
// foreign texts must escape them, or "<" in the data would break the page.
std::u16string escape(std::u16string_view text) {
  std::u16string markup;
  markup.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    switch (text[i]) {
      case u'&':
        markup += u"&amp;";
        break;
      case u'<':
        markup += u"&lt;";
        break;
      case u'>':
        markup += u"&gt;";
        break;
      case u'\r':
        if (i + 1 < text.size() && text[i + 1] == u'\n') ++i;
        [[fallthrough]];
      case u'\n':
        markup += u"<br/>";
        break;
      default:
        markup += is_xml_character(text[i]) ? text[i] : u'\uFFFD';
    }
  }
  return markup;
}

std::u16string anchored(std::u16string_view anchor, std::u16string_view text) {
  return u"<span id='" + std::u16string(anchor) + u"'>" + escape(text) + u"</span>";
}

std::u16string strong(std::u16string_view text) {
  return u"<strong>" + escape(text) + u"</strong>";
}

std::u16string titled(std::u16string text) {
  if (!text.empty() && text[0] >= u'a' && text[0] <= u'z')
    text[0] = static_cast<char16_t>(text[0] - u'a' + u'A');
  return text;
}

std::u16string number(std::size_t value) {
  const std::string digits = std::to_string(value);
  return {digits.begin(), digits.end()};
}

std::u16string counted(std::size_t count, std::u16string_view one, std::u16string_view many) {
  return number(count).append(u" ").append(count == 1 ? one : many);
}

std::u16string anchor_names::make(std::u16string_view text) {
  std::u16string name;
  for (const char16_t unit : text.substr(0, 100)) {
    if (is_letter(unit) || is_digit(unit)) {
      name += unit;
    } else if (!name.empty() && name.back() != u'-') {
      name += u'-';
    }
  }
  if (!name.empty() && name.back() == u'-') name.pop_back();
  if (name.empty()) name = u"group";
  if (!is_letter(name.front())) name.insert(0, u"group-");
  const std::u16string wanted = name;
  for (std::size_t i = 2; !taken_.insert(name).second; ++i) name = wanted + u"-" + number(i);
  return name;
}

}  // namespace examples
