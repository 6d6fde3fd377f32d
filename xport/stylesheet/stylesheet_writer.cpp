#include "xport/stylesheet/stylesheet_writer.h"

#include "xport/stylesheet/stylesheet_items.h"

namespace Xport {

namespace {

constexpr ustring_view selector_mark = u"<s>";

ustring replace_in_one_pass(ustring_view text, ustring_view selector) {
  ustring replaced;
  for (std::size_t mark = text.find(selector_mark); mark != text.npos;
       mark = text.find(selector_mark)) {
    replaced += text.substr(0, mark);
    replaced += selector;
    text.remove_prefix(mark + selector_mark.size());
  }
  replaced += text;
  return replaced;
}

// Also replaces a mark that a replacement forms with its surroundings. The text still to be
// searched is kept in reverse order, so that replacing a mark means appending to it: time is
// linear in the text that the replacements insert. As replacing might never end, the number
// of replacements is limited.
ustring replace_marks(const ustring& rule_comment, ustring_view selector) {
  if (selector.find(selector_mark) != selector.npos)
    return replace_in_one_pass(rule_comment, selector);
  std::size_t left = rule_comment.size() + stylesheet_writer::most_replacements;
  ustring done;
  ustring waiting(rule_comment.rbegin(), rule_comment.rend());
  while (!waiting.empty()) {
    done += waiting.back();
    waiting.pop_back();
    if (!done.ends_with(selector_mark)) continue;
    if (left-- == 0) return replace_in_one_pass(rule_comment, selector);
    done.erase(done.size() - selector_mark.size());
    waiting.append(selector.rbegin(), selector.rend());
  }
  return done;
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
