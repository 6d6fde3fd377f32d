#ifndef TESTS_STYLESHEET_SHEET_TEXT_H
#define TESTS_STYLESHEET_SHEET_TEXT_H

#include <cstddef>
#include <istream>
#include <memory>
#include <sstream>

#include "tests/support/unit_buffers.h"
#include "xport/stream/ustring_stream.h"
#include "xport/stylesheet/stylesheet_writer.h"
#include "xport/stylesheet/xhtml_stylesheet.h"
#include "xport/text/char16.h"
#include "xport/vocabulary/xhtml_strict.h"

namespace test {

/// What a writer with the default options writes for `item`.
inline ustring text_of(const xhtml_stylesheet_item& item) {
  ustring_stream stream;
  stylesheet_writer writer(stream);
  item.write(writer);
  return stream.str();
}

/// What a writer that `set_up` has changed writes for `item`.
template <class SetUp>
ustring text_of(const xhtml_stylesheet_item& item, SetUp set_up) {
  ustring_stream stream;
  stylesheet_writer writer(stream);
  set_up(writer);
  item.write(writer);
  return stream.str();
}

/// The items of a sheet for messages, each followed by a line feed: `/*[text]`,
/// `@[url]` and `[selector] property=[value] ...`.
inline ustring listing(const xhtml_stylesheet& sheet) {
  ustring text;
  for (const xhtml_stylesheet_item& item : sheet) {
    if (item.item_kind() == 2) text += u"/*";
    if (item.item_kind() == 3) text += u"@";
    text += u"[" + item.item_text() + u"]";
    for (auto entry = item.declarations_begin(); entry != item.declarations_end(); ++entry) {
      text += u" ";
      text += xhtml_strict::css_property_name(entry->property);
      text += u"=[" + entry->value + u"]";
    }
    text += u"\n";
  }
  return text;
}

/// A stream that owns a counting_end_buffer.
class counting_end_stream : public std::basic_istream<char16> {
 public:
  explicit counting_end_stream(ustring_view text, std::size_t limit = 100,
                               std::size_t window = static_cast<std::size_t>(-1))
      : std::basic_istream<char16>(nullptr), buffer_(text, limit, window) {
    rdbuf(&buffer_);
  }

 private:
  counting_end_buffer buffer_;
};

/// The listing of the sheet that is read from `text`, followed by "endless" if reading
/// never ends. At most `window` units are at hand at a time.
inline ustring read_listing(ustring_view text, std::size_t window = static_cast<std::size_t>(-1)) {
  xhtml_stylesheet sheet;
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
