#include "tests/stylesheet/plain_sheet.h"

#include <cstddef>

#include "xport/vocabulary/xhtml_strict.h"

namespace test {
namespace {

bool is_white(char16_t unit) { return unit == u' ' || (unit >= 9 && unit <= 13); }

bool is_quote(char16_t unit) { return unit == u'"' || unit == u'\''; }

void trim(ustring& text) {
  while (!text.empty() && is_white(text[text.size() - 1])) text.erase(text.size() - 1);
  while (!text.empty() && is_white(text[0])) text.erase(0, 1);
}

class plain_sheet {
 public:
  explicit plain_sheet(ustring_view text) : text_(text.substr(0, text.find(u'\uFFFF'))) {}

  ustring listing() {
    while (!endless_) {
      while (more() && is_white(text_[at_])) ++at_;
      if (!more()) break;
      if (text_[at_] == u'@')
        import();
      else if (text_[at_] == u'/')
        comment();
      else
        rule();
    }
    return items_ + (endless_ ? u"endless" : u"");
  }

 private:
  bool more() const { return at_ < text_.size(); }
  bool next_is(char16_t unit) const { return more() && text_[at_] == unit; }

  void comment() {
    ++at_;
    if (!next_is(u'*')) return;
    ++at_;
    const std::size_t close = text_.find(u"*/", at_);
    if (close == text_.npos) {
      at_ = text_.size();
      return;
    }
    ustring inside = text_.substr(at_, close - at_);
    at_ = close + 2;
    trim(inside);
    items_ += u"/*[" + inside + u"]\n";
  }

  void comment_within() {
    comment();
    if (more()) ++at_;
  }

  ustring word() {
    while (more() && is_white(text_[at_])) ++at_;
    ustring units;
    while (more() && !is_white(text_[at_])) units += text_[at_++];
    return units;
  }

  void import() {
    if (word() != u"@import") return;
    ustring url = word();
    if (url.size() < 9) return;
    url.erase(0, 4);
    while (!url.empty() && ustring(u"\"); ").find(url.back()) != ustring::npos) url.pop_back();
    if (!url.empty()) items_ += u"@[" + url + u"]\n";
  }

  void rule() {
    ustring selector;
    while (!next_is(u'{')) {
      if (!more()) return;
      if (text_[at_] == u'/')
        comment_within();
      else
        selector += text_[at_++];
    }
    ++at_;
    trim(selector);
    if (selector.empty()) return;
    ustring item = u"[" + selector + u"]";
    for (bool open = true; open;) {
      if (!more()) {
        endless_ = true;
        return;
      }
      open = declaration(item);
    }
    items_ += item + u"\n";
  }

  bool declaration(ustring& item) {
    ustring name;
    bool named = false;
    while (more() && !named && !next_is(u'}')) {
      if (text_[at_] == u':') {
        ++at_;
        named = true;
      } else if (text_[at_] == u'/') {
        comment_within();
      } else {
        name += text_[at_++];
      }
    }
    trim(name);
    if (named && xhtml_strict::css_property_from_name(name) != css_property_id::not_found) {
      const ustring stored = value();
      if (!stored.empty()) item += u" " + name + u"=[" + stored + u"]";
    } else if (next_is(u'}')) {
      ++at_;
      return false;
    } else {
      value();
    }
    return true;
  }

  ustring value() {
    ustring units;
    while (more()) {
      if (!next_is(u';') && !next_is(u'}')) {
        units += text_[at_++];
        continue;
      }
      if (next_is(u';')) ++at_;
      trim(units);
      if (units.size() > 2) {
        if (more() && is_quote(text_[at_])) ++at_;
        if (is_quote(units.back())) units.pop_back();
        return units;
      }
      if (more()) ++at_;
    }
    return {};
  }

  const ustring text_;
  std::size_t at_ = 0;
  ustring items_;
  bool endless_ = false;
};

}  // namespace

ustring plain_listing(ustring_view text) { return plain_sheet(text).listing(); }

}  // namespace test
