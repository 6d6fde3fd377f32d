#include "xport/parser/attribute_text.h"

#include "xport/text/find_any.h"

namespace Xport {

namespace {

void skip_space(ustring_view& text, const character_classes& classes) {
  while (!text.empty() && classes.is_space(text.front())) text.remove_prefix(1);
}

}  // namespace

std::pair<ustring_view, ustring_view> next_attribute(ustring_view& text,
                                                     const character_classes& classes) {
  skip_space(text, classes);
  std::size_t length = classes.count_plain_letters(text);
  while (length < text.size() && text[length] != u'=' && !classes.is_space(text[length])) ++length;
  const ustring_view name = text.substr(0, length);
  text.remove_prefix(length);
  skip_space(text, classes);
  if (name.empty() || !text.starts_with(u'=')) {
    text = {};
    return {};
  }
  text.remove_prefix(1);
  return {name, read_attribute_value(text, classes)};
}

ustring_view read_attribute_value(ustring_view& text, const character_classes& classes) {
  skip_space(text, classes);
  if (text.empty()) return {};
  const bool quoted = text.front() == u'"' || text.front() == u'\'';
  const char16 delimiter = quoted ? text.front() : u' ';
  const std::size_t length = find_unit(text.substr(1), delimiter);
  if (1 + length == text.size()) {
    text = {};
    return {};
  }
  const ustring_view value = text.substr(1, length);
  text.remove_prefix(1 + length + 1);
  return value;
}

}  // namespace Xport
