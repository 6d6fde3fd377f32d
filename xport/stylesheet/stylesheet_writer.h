#ifndef XPORT_STYLESHEET_STYLESHEET_WRITER_H
#define XPORT_STYLESHEET_STYLESHEET_WRITER_H

#include <cstddef>
#include <cstdint>
#include <ostream>

#include "xport/text/char16.h"

namespace Xport {

class xhtml_stylesheet_rule;

/// Writes the items of a stylesheet in their text form. Its options are the
/// fields. Lines end in one line feed; nothing is escaped or checked. The stream
/// isn't looked at: a failed one simply takes no text.
class stylesheet_writer {
 public:
  using stream_type = std::basic_ostream<char16>;

  /// See `rule_comment`.
  static constexpr std::size_t most_replacements = 100'000;

  /// A writer with the default options on `stream_to`, which must outlive it.
  explicit stylesheet_writer(stream_type& stream_to) : stream(&stream_to) {}

  /// A comment before each rule, where it isn't empty. "<s>" in it is replaced by
  /// the rule's selector, again and again until none is left. That would not end
  /// for a selector that holds "<s>" itself, nor for some that make up marks with
  /// their surroundings: there, and where it takes more than `most_replacements`
  /// beyond the template's length, each "<s>" of the template is replaced once.
  ustring rule_comment;
  std::int16_t spare = 0;             ///< read by nothing
  bool selector_on_own_line = false;  ///< a line feed and not a space behind it
  std::int16_t rule_indent = 0;       ///< spaces before the selector and the braces
  std::int16_t declaration_indent = 3;
  stream_type* stream;
  std::int32_t unused = 2;  ///< read by nothing

  /// What the `write` operations of the items call.
  void write_rule(const xhtml_stylesheet_rule& rule);
  void write_import(ustring_view url);
  void write_comment(ustring_view text);

 private:
  void put(ustring_view text);
  void put_spaces(std::int16_t count);
};

}  // namespace Xport

#endif
