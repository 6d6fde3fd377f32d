#include "xport/parser/character_reference.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>

#include "xport/parser/xhtml_parser.h"
#include "xport/text/character_class.h"
#include "xport/text/number_format.h"

namespace Xport {

namespace {

struct named_character {
  ustring_view name;
  std::int16_t code;
};

// The characters that are spelled by name. The character of each is its code.
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

// Finds entries by plain characters. Characters are looked up by their low 8 bits, so an entry
// for a character above 255 is never found.
class character_table {
 public:
  explicit character_table(const references_by_character& entries) {
    for (const character_reference& entry : entries)
      if (entry.character < entries_.size()) entries_[entry.character] = &entry;
  }

  const character_reference* find(char16 unit) const { return entries_[unit & 0xFF]; }

 private:
  std::array<const character_reference*, 256> entries_{};
};

// Scans a text once. It reads the given text only; the rewritten text is collected in a
// buffer of its own, which stays empty until there is something to rewrite.
class reference_scan {
 public:
  reference_scan(const xhtml_parser& parser, const character_classes& classes, ustring_view text)
      : parser_(parser), classes_(classes), characters_(parser.by_character), text_(text) {}

  // Returns whether anything was rewritten.
  bool run() {
    for (skip_plain(); at_ < text_.size(); skip_plain()) {
      if (text_[at_] != u'&')
        rewrite(characters_.find(text_[at_]), 1, at_);
      else if (unit_at(at_ + 1) == u'#')
        rewrite_number();
      else
        rewrite_name();
    }
    return rewritten_;
  }

  // Returns the rewritten text. To be called once, after run().
  ustring take() {
    result_ += text_.substr(kept_);
    return std::move(result_);
  }

 private:
  // A zero follows the last unit.
  char16 unit_at(std::size_t index) const { return index < text_.size() ? text_[index] : u'\0'; }

  void skip_plain() {
    while (at_ < text_.size() && text_[at_] != u'&' && characters_.find(text_[at_]) == nullptr)
      ++at_;
  }

  // Replaces the next `count` units by the spelling of `entry` and moves past them. Without
  // an entry nothing is replaced, and the scan moves past the unit at `otherwise`.
  void rewrite(const character_reference* entry, std::size_t count, std::size_t otherwise) {
    if (entry == nullptr) {
      at_ = otherwise + 1;
      return;
    }
    if (!rewritten_) result_.reserve(text_.size() + text_.size() / 8);
    rewritten_ = true;
    result_ += text_.substr(kept_, at_ - kept_);
    append_spelling(result_, *entry);
    at_ += count;
    kept_ = at_;
  }

  void rewrite_number() {
    const std::size_t first = at_ + 2;
    std::size_t end = first;
    while (end < text_.size() && classes_.is_digit(text_[end])) ++end;
    if (unit_at(end) == u';')
      rewrite(find_number(text_.substr(first, end - first)), end + 1 - at_, end);
    else  // the unit that breaks the reference decides how the "&" is spelled
      rewrite(characters_.find(unit_at(end)), 1, end);
  }

  void rewrite_name() {
    const std::size_t first = at_ + 1;
    std::size_t end = first;
    while (end < text_.size() && classes_.is_alnum(text_[end])) ++end;
    if (unit_at(end) == u';')  // which isn't replaced
      rewrite(find_name(text_.substr(first, end - first)), end - at_, end);
    else
      rewrite(characters_.find(u'&'), 1, end);
  }

  // The entry whose code is the number at the beginning of `digits`. Null if there is no such
  // entry, or no number, or one that is too large for a code.
  const character_reference* find_number(ustring_view digits) const {
    std::int32_t number = 0;
    std::size_t count = 0;
    for (; count < digits.size() && digits[count] >= u'0' && digits[count] <= u'9'; ++count) {
      number = number * 10 + (digits[count] - u'0');
      if (number > std::numeric_limits<std::int16_t>::max()) return nullptr;
    }
    if (count == 0) return nullptr;
    const auto found = parser_.by_code.find(static_cast<std::int16_t>(number));
    return found != parser_.by_code.end() ? &*found : nullptr;
  }

  const character_reference* find_name(ustring_view name) const {
    const auto found = parser_.by_name.find(name);
    return found != parser_.by_name.end() ? &*found : nullptr;
  }

  const xhtml_parser& parser_;
  const character_classes& classes_;
  const character_table characters_;
  const ustring_view text_;
  std::size_t at_ = 0;    // the unit that is looked at
  std::size_t kept_ = 0;  // the first unit that isn't in the result yet
  ustring result_;
  bool rewritten_ = false;
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

void xhtml_parser::normalize_references(ustring& text) {
  const operation_classes scope(classes_);
  reference_scan scan(*this, *classes_, text);
  if (scan.run()) text = scan.take();
}

}  // namespace Xport
