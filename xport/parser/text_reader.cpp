#include "xport/parser/text_reader.h"

#include <sstream>

#include "xport/markup/leaf_nodes.h"
#include "xport/parser/take_until.h"
#include "xport/parser/xhtml_parser.h"
#include "xport/stream/ustring_stream.h"
#include "xport/stylesheet/stylesheet_writer.h"
#include "xport/stylesheet/xhtml_stylesheet.h"
#include "xport/text/find_any.h"

namespace Xport {

namespace {

// `text`, a stylesheet, as stylesheet_writer lays it out.
ustring rewritten_stylesheet(const ustring& text) {
  std::basic_istringstream<char16> source(text);
  xhtml_stylesheet sheet;
  sheet.parse(source);
  ustring_stream target;
  stylesheet_writer writer(target);
  for (const xhtml_stylesheet_item& item : sheet) item.write(writer);
  return target.str();
}

}  // namespace

xhtml_markup* xhtml_parser::read_pcdata(xhtml_markup* parent, const ustring& prefix) {
  const operation_classes scope(classes_);
  const tag_id tag = tag_of(*parent);
  if (tag == tag_id::pre) return read_preformatted();
  const bool plain = tag != tag_id::script && tag != tag_id::style;
  const bool blank = prefix.empty() && skip_space();
  if (plain && !normalize_text && !blank && prefix.empty())
    if (const auto text = take_plain_text()) return make_text(parent, *text);
  if (blank)
    text_ = u' ';
  else
    text_ = prefix;
  gather_text(tag);
  normalize_trailing_space(text_, *classes_);
  if (text_.empty()) return make_text(parent, text_);
  if (plain && normalize_text) return make_rewritten(text_);
  if (tag == tag_id::style) text_ = rewritten_stylesheet(text_);
  last_tag = tag_id::invalid_tag;
  return nodes_->make_leaf<xhtml_pcdata>(text_);
}

// The result is a text node even if nothing is left of `text`. That is a copy because a
// derived class may call other readers, which use text_, while it rewrites the references.
xhtml_markup* xhtml_parser::make_rewritten(ustring text) {
  normalize_references(text);
  last_tag = tag_id::invalid_tag;
  return nodes_->make_leaf<xhtml_pcdata>(text);
}

bool xhtml_parser::skip_leading_space() {
  const operation_classes scope(classes_);
  return skip_space();
}

bool xhtml_parser::skip_space() {
  unit_input in = units();
  bool any = false;
  bool newline = false;
  for (ustring_view window = in.window(); !window.empty(); window = in.window()) {
    const leading_space space = find_leading_space(window, *classes_);
    in.advance(space.count);
    line += space.newlines;
    any = any || space.count != 0;
    newline = newline || space.newlines != 0;
    if (space.count < window.size()) break;
  }
  return any && !newline;
}

// Appends character data to text_, up to the "<" that ends it. Between double quotes, and in
// `script` between apostrophes too, a "<" ends nothing.
void xhtml_parser::gather_text(tag_id parent) {
  enum class quote_state { none, single, double_ } quotes = quote_state::none;
  const bool script = parent == tag_id::script;
  unit_input in = units();
  for (ustring_view window = in.window(); !window.empty(); window = in.window()) {
    const std::size_t count = script ? find_any<u'<', u'"', u'\'', u'\n', end_unit>(window)
                                     : find_any<u'<', u'"', u'\n', end_unit>(window);
    text_ += window.substr(0, count);
    in.advance(count);
    if (count == window.size()) continue;
    const char16 unit = window[count];
    if (unit == end_unit || (unit == u'<' && quotes == quote_state::none)) return;
    if (unit == u'\n') {
      gather_newline(script);
      continue;
    }
    text_ += unit;
    in.advance();
    if (unit == u'"' && quotes != quote_state::single)
      quotes = quotes == quote_state::none ? quote_state::double_ : quote_state::none;
    if (unit == u'\'' && quotes != quote_state::double_)
      quotes = quotes == quote_state::none ? quote_state::single : quote_state::none;
  }
}

// Folds a newline and the white space around it into a blank. Where newlines are kept, only
// the white space after the newline is dropped.
void xhtml_parser::gather_newline(bool script) {
  if (!script && folds_newlines()) {
    trim_right(text_, *classes_);
    text_ += u' ';
  } else {
    text_ += u'\n';
    ++line;
    units().advance();
  }
  skip_space();
}

xhtml_markup* xhtml_parser::make_text(xhtml_markup* parent, ustring_view text) {
  last_tag = tag_id::invalid_tag;
  return text.empty() ? read_next(parent) : nodes_->make_leaf<xhtml_pcdata>(text);
}

// Searches for the text `</pre>`. Everything before it is text, tags included. Newlines aren't
// counted.
xhtml_markup* xhtml_parser::read_preformatted() {
  const operation_classes scope(classes_);
  constexpr ustring_view end_tag = u"</pre>";
  unit_input in = units();
  text_.clear();
  std::size_t matched = 0;
  while (matched != end_tag.size()) {
    text_ += take_until(in, gathered_, any_of<u'<', end_unit>);
    if (in.at_end()) break;
    for (matched = 0; matched != end_tag.size() && !in.at_end(); ++matched) {
      const char16 unit = in.peek();
      if (classes_->to_lower(unit) != end_tag[matched]) break;
      text_ += unit;
      in.advance();
    }
  }
  if (matched == end_tag.size()) text_.resize(text_.size() - matched);
  last_tag = tag_id::doc_root;
  return nodes_->make_leaf<xhtml_pcdata>(text_);
}

trailing_space find_trailing_space(ustring_view text, const character_classes& classes) {
  const std::size_t kept = classes.trim_right(text).size();
  const std::size_t first = text.find_first_of(u" \n", kept);
  return {kept, first != ustring_view::npos && text[first] == u' '};
}

void normalize_trailing_space(ustring& text, const character_classes& classes) {
  const trailing_space end = find_trailing_space(text, classes);
  text.resize(end.kept);
  if (end.blank) text += u' ';
}

void trim_right(ustring& text, const character_classes& classes) {
  text.resize(classes.trim_right(text).size());
}

}  // namespace Xport
