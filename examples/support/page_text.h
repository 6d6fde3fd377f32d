#ifndef EXAMPLES_SUPPORT_PAGE_TEXT_H
#define EXAMPLES_SUPPORT_PAGE_TEXT_H

#include <cstddef>
#include <set>
#include <string>
#include <string_view>

namespace examples {

/// Makes markup that shows `text` as it is: "&", "<" and ">" become character
/// references, a line end becomes a line break, and what XML doesn't allow
/// (control characters, U+FFFE and U+FFFF) becomes U+FFFD. Surrogates have to
/// come in pairs, as they do in what to_utf16 returns.
std::u16string escape(std::u16string_view text);

/// Markup of `text` that links on the page can lead to by `anchor`.
std::u16string anchored(std::u16string_view anchor, std::u16string_view text);

/// Markup that shows `text` in bold type.
std::u16string strong(std::u16string_view text);

/// The text with a capital letter in front, if it begins with a small ASCII letter.
std::u16string titled(std::u16string text);

/// Such as "2", "1 row" and "12 rows".
std::u16string number(std::size_t value);
std::u16string counted(std::size_t count, std::u16string_view one, std::u16string_view many);

/// Hands out names for anchors, no name twice.
class anchor_names {
 public:
  /// The ASCII letters and digits of `text` with "-" for everything between them,
  /// at most 100 units, and behind it a number if the name is taken. A name that
  /// would not begin with a letter has "group-" in front.
  std::u16string make(std::u16string_view text);

 private:
  std::set<std::u16string> taken_;
};

}  // namespace examples

#endif
