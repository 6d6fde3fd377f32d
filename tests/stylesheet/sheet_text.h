#ifndef TESTS_STYLESHEET_SHEET_TEXT_H
#define TESTS_STYLESHEET_SHEET_TEXT_H

#include <cstddef>
#include <istream>
#include <memory>
#include <sstream>

#include "tests/support/counting_end_buffer.h"
#include "xport/stylesheet/xhtml_stylesheet.h"
#include "xport/text/char16.h"
#include "xport/vocabulary/xhtml_strict.h"

namespace test {

/// The items of a sheet for the eyes, each with a line feed behind it: `/*[text]`,
/// `@[url]` and `[selector] property=[value] ...`.
inline Xport::ustring listing(const Xport::xhtml_stylesheet& sheet) {
  Xport::ustring text;
  for (const Xport::xhtml_stylesheet_item& item : sheet) {
    if (item.item_kind() == 2) text += u"/*";
    if (item.item_kind() == 3) text += u"@";
    text += u"[" + item.item_text() + u"]";
    for (auto entry = item.declarations_begin(); entry != item.declarations_end(); ++entry) {
      text += u" ";
      text += Xport::xhtml_strict::css_property_name(entry->property);
      text += u"=[" + entry->value + u"]";
    }
    text += u"\n";
  }
  return text;
}

/// A stream that owns its buffer.
class counting_end_stream : public std::basic_istream<Xport::char16> {
 public:
  explicit counting_end_stream(Xport::ustring_view text, std::size_t limit = 100,
                               std::size_t window = static_cast<std::size_t>(-1))
      : std::basic_istream<Xport::char16>(nullptr), buffer_(text, limit, window) {
    rdbuf(&buffer_);
  }

 private:
  counting_end_buffer buffer_;
};

/// The listing of the sheet that is read from `text`, with "endless" behind it if reading
/// is never done with. At most `window` units are at hand at a time.
inline Xport::ustring read_listing(Xport::ustring_view text,
                                   std::size_t window = static_cast<std::size_t>(-1)) {
  Xport::xhtml_stylesheet sheet;
  bool endless = false;
  try {
    sheet.parse(std::make_unique<counting_end_stream>(text, 100, window));
  } catch (const looked_too_often&) {
    endless = true;
  }
  return listing(sheet) + (endless ? u"endless" : u"");
}

}  // namespace test

#endif
