#ifndef EXAMPLES_SUPPORT_PAGE_TEXT_H
#define EXAMPLES_SUPPORT_PAGE_TEXT_H

#include <cstddef>
#include <set>
#include <string>
#include <string_view>

namespace examples {

/// Markup that shows `text` as it is: "&", "<" and ">" become character references, a line end
/// becomes a line break, and characters that XML doesn't allow (control characters, U+FFFE and
/// U+FFFF) become U+FFFD. Surrogates must come in pairs, as in the results of to_utf16.
std::u16string escape(std::u16string_view text);

/// Markup that shows `text` and is the target of links to `anchor`.
std::u16string anchored(std::u16string_view anchor, std::u16string_view text);

/// Markup that shows `text` in bold type.
std::u16string strong(std::u16string_view text);

/// The text with its first letter capitalised if that is a small ASCII letter.
std::u16string titled(std::u16string text);

/// Such as "2", "1 row" and "12 rows".
std::u16string number(std::size_t value);
std::u16string counted(std::size_t count, std::u16string_view one, std::u16string_view many);

/// Makes names for anchors, no name twice.
class anchor_names {
 public:
  /// The ASCII letters and digits of `text` with "-" for everything between them, at most 100
  /// units, with a number appended if the name is taken. A name that would not begin with a letter
  /// is prefixed with "group-".
  std::u16string make(std::u16string_view text);

 private:
  std::set<std::u16string> taken_;
};

}  // namespace examples

#endif
