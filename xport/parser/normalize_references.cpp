#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>

#include "xport/parser/character_reference.h"
#include "xport/parser/xhtml_parser.h"
#include "xport/text/character_class.h"

namespace Xport {

namespace {

// The entries that are found by a plain character. Characters are looked up by their low
// 8 bits, so those above 255 are found by none.
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

// Goes over a text once. What it stands on and what is ahead is always the text as given;
// what was rewritten is collected aside, and only once there is something to rewrite.
class reference_scan {
 public:
  reference_scan(const xhtml_parser& parser, const character_classes& classes, ustring_view text)
      : parser_(parser), classes_(classes), characters_(parser.by_character), text_(text) {}

  // Whether anything was rewritten.
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

  // The whole text as rewritten.
  ustring take() {
    result_ += text_.substr(kept_);
    return std::move(result_);
  }

 private:
  // What stands behind the last unit counts as a zero.
  char16 unit_at(std::size_t index) const { return index < text_.size() ? text_[index] : u'\0'; }

  void skip_plain() {
    while (at_ < text_.size() && text_[at_] != u'&' && characters_.find(text_[at_]) == nullptr)
      ++at_;
  }

  // Puts the spelling of `entry` in the place of the next `count` units, and stands
  // behind them. Without an entry they stay, and so does the unit at `otherwise`.
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
    std::size_t behind = first;
    while (behind < text_.size() && classes_.is_digit(text_[behind])) ++behind;
    if (unit_at(behind) == u';')
      rewrite(find_number(text_.substr(first, behind - first)), behind + 1 - at_, behind);
    else  // the unit that breaks the reference tells how the "&" is spelled
      rewrite(characters_.find(unit_at(behind)), 1, behind);
  }

  void rewrite_name() {
    const std::size_t first = at_ + 1;
    std::size_t behind = first;
    while (behind < text_.size() && classes_.is_alnum(text_[behind])) ++behind;
    if (unit_at(behind) == u';')  // which stays behind the new spelling
      rewrite(find_name(text_.substr(first, behind - first)), behind - at_, behind);
    else
      rewrite(characters_.find(u'&'), 1, behind);
  }

  // The entry with the number that `digits` begin with; null if it fits no code.
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
  std::size_t at_ = 0;    // the unit that the scan stands on
  std::size_t kept_ = 0;  // the first unit that isn't in the result yet
  ustring result_;
  bool rewritten_ = false;
};

}  // namespace

void xhtml_parser::normalize_references(ustring& text) {
  const operation_classes scope(classes_);
  reference_scan scan(*this, *classes_, text);
  if (scan.run()) text = scan.take();
}

}  // namespace Xport
