#include "xport/parser/plain_reader.h"

#include <cstring>
#include <iterator>
#include <memory>
#include <optional>

#include "xport/markup/leaf_nodes.h"
#include "xport/parser/shortcuts.h"
#include "xport/parser/text_reader.h"
#include "xport/text/find_any.h"
#include "xport/vocabulary/tag_table.h"

namespace Xport {

namespace {

bool starts_with(ustring_view text, ustring_view start) {
  return text.size() >= start.size() &&
         std::memcmp(text.data(), start.data(), start.size() * sizeof(char16)) == 0;
}

}  // namespace

// While it runs, no code of the host does: it doesn't ask the input's buffer for more units.
xhtml_element* xhtml_parser::plain_reader::read(xhtml_element* parent) {
  if (!use_shortcuts || parser_.input == nullptr || parser_.normalize_text ||
      parser_.reports(level_trace_elements) || parser_.reports(level_trace_end_tags) ||
      !parser_.input->good() || !parser_.classes_->are_standard() ||
      parent->rules().id == tag_id::pre)
    return parent;
  unit_input in = parser_.units();
  parent_ = parent;
  window_ = in.window_at_hand();
  used_ = 0;
  last_text_size_ = 0;
  try {
    while (read_node()) {
    }
  } catch (...) {
    in.advance(used_);
    throw;
  }
  in.advance(used_);
  return parent_;
}

// Reads a tag or a text. Returns false if that isn't plain, or if none can follow.
inline bool xhtml_parser::plain_reader::read_node() {
  const ustring_view text(window_.data() + used_, window_.size() - used_);
  if (text.size() < 2) return false;
  if (text[0] != u'<') return read_text(text);
  return text[1] == u'/' ? read_end_tag(text) : read_start_tag(text);
}

// A plain start tag has no newline. Only the content of `pre` is read by other rules.
inline bool xhtml_parser::plain_reader::read_start_tag(ustring_view text) {
  const character_classes& classes = *parser_.classes_;
  const ustring_view after_bracket(text.data() + 1, text.size() - 1);
  std::size_t length = count_plain_letters(after_bracket, classes);
  while (length < after_bracket.size() && classes.is_alnum(after_bracket[length])) ++length;
  if (after_bracket.size() - length < 2) return false;
  const tag_id tag = xhtml_strict::tag_from_name(after_bracket.substr(0, length));
  const Tag_trait& rules = *tag_table[tag];
  if (!takes_element(parent_->rules(), rules)) return false;

  std::size_t end = 1 + length;
  ustring_view attributes;
  if (text[end] == u' ') {
    attributes = text.substr(end);
    const std::size_t count = find_any<u'>', u'\n', end_unit>(attributes);
    if (count == attributes.size()) return false;
    attributes = attributes.substr(0, count);
    end += count;
  } else if (text[end] == u'/' && takes_nothing(rules)) {
    ++end;
  }
  if (text[end] != u'>') return false;

  used_ += end + 1;
  std::unique_ptr<xhtml_element> element(where_.make<xhtml_element>(rules));
  if (!attributes.empty()) set_attributes(*element, attributes);
  parser_.last_tag = rules.id;
  xhtml_element* const child = element.release();
  parent_->append_accepted(child);
  if (!takes_nothing(rules)) parent_ = child;
  return rules.id != tag_id::pre;
}

// Whether `text` begins with a plain end tag: that of `parent_`, spelled as the writer does.
inline bool xhtml_parser::plain_reader::is_end_tag_next(ustring_view text) const {
  return parent_ != &receiver_ && starts_with(text, parent_->rules().end_run.text());
}

inline bool xhtml_parser::plain_reader::read_end_tag(ustring_view text) {
  if (!is_end_tag_next(text)) return false;
  const Tag_trait& rules = parent_->rules();
  used_ += rules.end_run.size;
  parser_.last_tag = rules.id;
  parser_.trim_last_text(*parent_);
  parent_ = const_cast<xhtml_element*>(parent_->parent()->as_element());
  return true;
}

// Reads a text, or the white space before a tag. White space without a newline stays as one blank.
// `script` and `style` contain texts that are read by other rules.
inline bool xhtml_parser::plain_reader::read_text(ustring_view text) {
  const Tag_trait& rules = parent_->rules();
  if (rules.id == tag_id::script || rules.id == tag_id::style) return false;
  const leading_space space = find_leading_space(text, *parser_.classes_);
  if (space.count == text.size() || text[space.count] == end_unit) return false;
  const bool blank = space.count != 0 && space.newlines == 0;
  text.remove_prefix(space.count);
  std::optional<plain_text> found;
  if (blank || text[0] != u'<') {
    if (!takes_text(rules)) return false;
    found = find_plain_text(text, *parser_.classes_, parser_.folds_newlines());
    if (!found) return false;
    used_ += found->count;
    parser_.line += found->newlines;
  }
  used_ += space.count;
  parser_.line += space.newlines;
  parser_.last_tag = tag_id::invalid_tag;
  if (!found) return true;
  // The blank at the end would be removed by the end tag of the same element.
  if (is_end_tag_next(text.substr(found->count)))
    text = text.substr(0, found->kept);
  else
    text = found->text_in(text, parser_.text_);
  if (blank) text = gathered_.assign(1, u' ').append(text);
  parent_->append_accepted(where_.make_leaf<xhtml_pcdata>(text));
  return true;
}

inline void xhtml_parser::plain_reader::set_attributes(xhtml_element& element, ustring_view text) {
  if (text.size() == last_text_size_ && starts_with(text, {last_text_, last_text_size_})) {
    element.attributes()->copy_entries(last_attributes_);
    return;
  }
  element.parse_attributes(text, *parser_.classes_);
  // On the heap, keeping them would need memory.
  if (where_.pool() == nullptr || text.size() > std::size(last_text_) ||
      !element.style_properties()->empty())
    return;
  last_attributes_.clear();
  last_attributes_.copy_entries(*element.attributes());
  last_text_size_ = text.copy(last_text_, text.size());
}

}  // namespace Xport
