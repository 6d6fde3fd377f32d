#include "xport/parser/character_reference.h"

#include "xport/parser/xhtml_parser.h"
#include "xport/text/number_format.h"

namespace Xport {

namespace {

struct named_character {
  ustring_view name;
  std::int16_t code;
};

// The characters that are preferred by name and are their own code.
constexpr named_character named_characters[] = {
    {u"quot", 34},    {u"apos", 39},    {u"amp", 38},     {u"lt", 60},      {u"gt", 62},
    {u"iexcl", 161},  {u"curren", 164}, {u"cent", 162},   {u"pound", 163},  {u"yen", 165},
    {u"brvbar", 166}, {u"sect", 167},   {u"uml", 168},    {u"copy", 169},   {u"ordf", 170},
    {u"laquo", 171},  {u"not", 172},    {u"reg", 174},    {u"macr", 175},   {u"deg", 176},
    {u"plusmn", 177}, {u"sup2", 178},   {u"sup3", 179},   {u"acute", 180},  {u"micro", 181},
    {u"para", 182},   {u"middot", 183}, {u"cedil", 184},  {u"sup1", 185},   {u"ordm", 186},
    {u"raquo", 187},  {u"frac14", 188}, {u"frac12", 189}, {u"frac34", 190}, {u"iquest", 191},
    {u"times", 215},  {u"divide", 247},
};

}  // namespace

void load_default_references(references_by_code& references) {
  for (const named_character& entry : named_characters)
    references.insert({reference_form::form_named, static_cast<char16>(entry.code),
                       ustring(entry.name), entry.code});
  references.insert({reference_form::form_none, u' ', u"nbsp", 160});
}

void rebuild_reference_indexes(xhtml_parser& parser) {
  parser.by_name.clear();
  parser.by_code.clear();
  parser.by_character.clear();
  for (const character_reference& entry : parser.references) {
    switch (entry.form) {
      case reference_form::form_character:
        parser.by_name.insert(entry);
        parser.by_code.insert(entry);
        break;
      case reference_form::form_numeric:
        parser.by_name.insert(entry);
        parser.by_character.insert(entry);
        break;
      case reference_form::form_named:
        parser.by_character.insert(entry);
        parser.by_code.insert(entry);
        break;
      default:
        break;
    }
  }
}

void append_spelling(ustring& text, const character_reference& entry) {
  switch (entry.form) {
    case reference_form::form_character:
      text += entry.character;
      break;
    case reference_form::form_numeric:
      text += u"&#";
      text += to_ustring(entry.code);
      text += u';';
      break;
    case reference_form::form_named:
      text += u'&';
      text += entry.name;
      text += u';';
      break;
    default:
      break;
  }
}

std::size_t apply_reference(ustring& text, std::size_t position, std::size_t count,
                            const character_reference& entry) {
  ustring spelling;
  append_spelling(spelling, entry);
  text.replace(position, count, spelling);
  return position + spelling.size() - 1;
}

}  // namespace Xport
