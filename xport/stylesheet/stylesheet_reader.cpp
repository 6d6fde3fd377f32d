#include "xport/stylesheet/stylesheet_reader.h"

#include <algorithm>
#include <cstddef>
#include <utility>

#include "xport/stream/unit_input.h"
#include "xport/text/character_class.h"
#include "xport/vocabulary/xhtml_strict.h"

namespace Xport {

namespace {

bool is_quote(char16 unit) { return unit == u'\'' || unit == u'"'; }

class stylesheet_reader {
 public:
  stylesheet_reader(std::basic_istream<char16>& stream,
                    std::vector<std::unique_ptr<xhtml_stylesheet_item>>& items)
      : stream_(stream), input_(stream.rdbuf()), classes_(stream.getloc()), items_(items) {}

  void read_items();

 private:
  void read_comment();
  void read_import();
  void read_rule();
  ustring read_selector();
  void read_declarations(xhtml_stylesheet_rule& rule);
  css_property_id read_property();
  ustring read_value();

  char16 collect(ustring& text, ustring_view stops);
  ustring read_word();
  void skip_space();
  ustring_view trim(ustring_view text) const;

  std::basic_istream<char16>& stream_;
  unit_input input_;
  const character_classes classes_;
  std::vector<std::unique_ptr<xhtml_stylesheet_item>>& items_;
};

void stylesheet_reader::read_items() {
  for (skip_space(); !input_.at_end(); skip_space()) {
    switch (input_.peek()) {
      case u'@':
        read_import();
        break;
      case u'/':
        read_comment();
        break;
      default:
        read_rule();
    }
  }
}

// Starts at a "/", which is dropped if it begins no comment.
void stylesheet_reader::read_comment() {
  input_.advance();
  if (input_.peek() != u'*') return;
  input_.advance();
  ustring text;
  while (collect(text, u"*\uFFFF") == u'*') {
    input_.advance();
    if (input_.peek() == u'/') {
      input_.advance();
      items_.push_back(std::make_unique<xhtml_stylesheet_comment>(trim(text)));
      return;
    }
    text += u'*';
  }
}

void stylesheet_reader::read_import() {
  if (read_word() != u"@import") return;
  skip_space();
  const ustring word = read_word();
  if (word.size() < 9) return;
  ustring_view url = ustring_view(word).substr(4);  // after "url("
  url = url.substr(0, url.find_last_not_of(u"\"); ") + 1);
  if (!url.empty()) items_.push_back(std::make_unique<xhtml_stylesheet_import>(url));
}

// Appends the rule when it is complete, and so after the comments inside it.
void stylesheet_reader::read_rule() {
  const ustring selector = read_selector();
  if (selector.empty()) return;
  auto rule = std::make_unique<xhtml_stylesheet_rule>(selector);
  read_declarations(*rule);
  items_.push_back(std::move(rule));
}

ustring stylesheet_reader::read_selector() {
  ustring text;
  while (true) {
    switch (collect(text, u"{/\uFFFF")) {
      case u'{':
        input_.advance();
        return ustring(trim(text));
      case u'/':
        read_comment();
        input_.advance();  // the unit after the comment or after a lone "/"
        break;
      default:
        return {};
    }
  }
}

// Never returns if the input ends inside the rule: reading doesn't set the stream's
// end-of-file flag.
void stylesheet_reader::read_declarations(xhtml_stylesheet_rule& rule) {
  while (!stream_.eof()) {
    const css_property_id property = read_property();
    if (property != css_property_id::not_found) {
      ustring value = read_value();
      if (!value.empty()) rule.add_declaration({property, std::move(value)});
    } else if (input_.peek() == u'}') {
      input_.advance();
      return;
    } else {
      read_value();
    }
  }
}

css_property_id stylesheet_reader::read_property() {
  ustring text;
  while (true) {
    switch (collect(text, u":/}\uFFFF")) {
      case u':':
        input_.advance();
        return xhtml_strict::css_property_from_name(trim(text));
      case u'/':
        read_comment();
        input_.advance();
        break;
      default:
        return css_property_id::not_found;
    }
  }
}

// A text of at most two units isn't accepted as a value: one unit is skipped and what follows is
// appended, even past the end of the declaration or of the rule.
ustring stylesheet_reader::read_value() {
  ustring text;
  while (true) {
    const char16 stop = collect(text, u";}\uFFFF");
    if (stop == end_unit) return {};
    if (stop == u';') input_.advance();
    text = ustring(trim(text));
    if (text.size() > 2) break;
    input_.advance();
  }
  if (is_quote(input_.peek())) input_.advance();
  if (is_quote(text.back())) text.pop_back();
  return text;
}

// Appends the units before the first of `stops` to `text`. Returns that stop without reading
// past it. `stops` must include end_unit.
char16 stylesheet_reader::collect(ustring& text, ustring_view stops) {
  for (ustring_view window = input_.window(); !window.empty(); window = input_.window()) {
    const std::size_t count = std::min(window.find_first_of(stops), window.size());
    text += window.substr(0, count);
    input_.advance(count);
    if (count < window.size()) return window[count];
  }
  return end_unit;
}

ustring stylesheet_reader::read_word() {
  ustring word;
  for (; !input_.at_end() && !classes_.is_space_or_blank(input_.peek()); input_.advance())
    word += input_.peek();
  return word;
}

void stylesheet_reader::skip_space() {
  while (!input_.at_end() && classes_.is_space_or_blank(input_.peek())) input_.advance();
}

ustring_view stylesheet_reader::trim(ustring_view text) const {
  while (!text.empty() && classes_.is_space_or_blank(text.back())) text.remove_suffix(1);
  while (!text.empty() && classes_.is_space_or_blank(text.front())) text.remove_prefix(1);
  return text;
}

}  // namespace

void read_stylesheet(std::basic_istream<char16>& stream,
                     std::vector<std::unique_ptr<xhtml_stylesheet_item>>& items) {
  stylesheet_reader(stream, items).read_items();
}

}  // namespace Xport
