#include "xport/stylesheet/stylesheet_writer.h"

#include "xport/stylesheet/stylesheet_items.h"

namespace Xport {

namespace {

constexpr ustring_view selector_mark = u"<s>";

ustring replace_in_one_pass(ustring text, ustring_view selector) {
  for (std::size_t at = text.find(selector_mark); at != ustring::npos;
       at = text.find(selector_mark, at + selector.size()))
    text.replace(at, selector_mark.size(), selector);
  return text;
}

// Replaces from the beginning again after each replacement, so that a mark which
// a selector makes up with its surroundings is replaced too. (The next mark can't
// start more than two units before the last one.) That need not come to an end:
// a template that takes far more replacements than it has marks is replaced in
// one pass.
ustring replace_marks(const ustring& rule_comment, ustring_view selector) {
  ustring text = rule_comment;
  std::size_t left = rule_comment.size() + 10'000;
  for (std::size_t at = text.find(selector_mark); at != ustring::npos;
       at = text.find(selector_mark, at < 2 ? 0 : at - 2)) {
    if (left-- == 0) return replace_in_one_pass(rule_comment, selector);
    text.replace(at, selector_mark.size(), selector);
  }
  return text;
}

}  // namespace

void stylesheet_writer::write_rule(const xhtml_stylesheet_rule& rule) {
  const ustring selector = rule.selector_text();
  if (!rule_comment.empty()) {
    put(u"/*");
    put(replace_marks(rule_comment, selector));
    put(u"*/\n");
  }
  put_spaces(rule_indent);
  put(selector);
  put(selector_on_own_line ? u"\n" : u" ");
  put_spaces(rule_indent);
  put(u"{ \n");
  for (auto entry = rule.declarations_begin(); entry != rule.declarations_end(); ++entry) {
    put_spaces(declaration_indent);
    put(xhtml_strict::css_property_name(entry->property));
    put(u": ");
    put(entry->value);
    put(u";\n");
  }
  put_spaces(rule_indent);
  put(u"}\n\n");
}

void stylesheet_writer::write_import(ustring_view url) {
  put(u"@import url(");
  put(url);
  put(u");\n");
}

void stylesheet_writer::write_comment(ustring_view text) {
  put(u"/* ");
  put(text);
  put(u" */\n");
}

void stylesheet_writer::put(ustring_view text) {
  stream->write(text.data(), static_cast<std::streamsize>(text.size()));
}

void stylesheet_writer::put_spaces(std::int16_t count) {
  if (count > 0) put(ustring(static_cast<std::size_t>(count), u' '));
}

}  // namespace Xport
