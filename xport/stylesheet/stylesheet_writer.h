#ifndef XPORT_STYLESHEET_STYLESHEET_WRITER_H
#define XPORT_STYLESHEET_STYLESHEET_WRITER_H

#include <cstddef>
#include <cstdint>
#include <ostream>

#include "xport/text/char16.h"

namespace Xport {

class xhtml_stylesheet_rule;

/// Writes the items of a stylesheet in their text form. The fields are the options. Lines end
/// in one line feed; nothing is escaped or checked. The state of the stream isn't checked
/// either: a failed stream ignores the text.
class stylesheet_writer {
 public:
  using stream_type = std::basic_ostream<char16>;

  /// See `rule_comment`.
  static constexpr std::size_t most_replacements = 100'000;

  /// A writer with the default options. `stream_to` must outlive it.
  explicit stylesheet_writer(stream_type& stream_to) : stream(&stream_to) {}

  /// The template of a comment before each rule; empty for none. Each "<s>" in it is replaced
  /// by the rule's selector, and so is each "<s>" that a replacement forms with its
  /// surroundings. That might never end. So each "<s>" of the template is replaced only once
  /// if the selector itself holds "<s>", or if more replacements would be needed than
  /// `most_replacements` plus the length of the template.
  ustring rule_comment;
  std::int16_t spare = 0;             ///< unused
  bool selector_on_own_line = false;  ///< a line feed, not a space, after the selector
  std::int16_t rule_indent = 0;       ///< spaces before the selector and the braces
  std::int16_t declaration_indent = 3;
  stream_type* stream;
  std::int32_t unused = 2;

  /// Called by the `write` operations of the items.
  void write_rule(const xhtml_stylesheet_rule& rule);
  void write_import(ustring_view url);
  void write_comment(ustring_view text);

 private:
  void put(ustring_view text);
  void put_spaces(std::int16_t count);
};

}  // namespace Xport

#endif
