// Stylesheets. The input is a byte that says how many units are available at a time, and the text.
// A buffer that counts the looks at its end stops a text whose reading never returns.
#include <algorithm>
#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

#include "fuzz/support/expect.h"
#include "fuzz/support/fuzz_input.h"
#include "tests/stylesheet/plain_sheet.h"
#include "tests/stylesheet/sheet_text.h"
#include "tests/support/guarded_parser.h"
#include "tests/support/tree_outline.h"
#include "xport/stream/ustring_stream.h"
#include "xport/stylesheet/stylesheet_writer.h"
#include "xport/text/character_class.h"

namespace test {
namespace {

using Xport::ustring;
using Xport::ustring_view;
using Xport::xhtml_stylesheet;
using Xport::xhtml_stylesheet_item;

bool holds_any(ustring_view text, ustring_view units) {
  return text.find_first_of(units) != text.npos;
}

bool is_trimmed(ustring_view text) { return Xport::character_classes().trim(text) == text; }

bool has_mark(ustring_view text) {
  text = Xport::character_classes().trim(text);
  return !text.empty() &&
         holds_any(text.substr(0, 1), ustring_view(u"\0\uFEFF\uFFFE\uBBEF\uEFBB", 5));
}

void check_value(ustring_view value) {
  expect(value.size() >= 2 && !holds_any(value, u";}"), "a value ends at its end");
}

// What the reader can't have put into an item.
void check_item(const xhtml_stylesheet_item& item) {
  const ustring text = item.item_text();
  switch (item.item_kind()) {
    case 1:
      expect(!text.empty() && is_trimmed(text), "a selector is trimmed and isn't empty");
      expect(!holds_any(text, u"{/"), "a selector ends at a brace and holds no slash");
      break;
    case 2:
      expect(is_trimmed(text) && text.find(u"*/") == ustring::npos, "a comment is trimmed");
      break;
    default:
      expect(item.item_kind() == 3 && !text.empty() &&
                 !holds_any(text.substr(text.size() - 1), u"\"); "),
             "a URL isn't empty and has no closing sign at its end");
  }
  for (auto entry = item.declarations_begin(); entry != item.declarations_end(); ++entry)
    check_value(entry->value);
}

// Whether reading an item's text makes the same item again. A value that is short or ends in a
// quote is no value, or another one, when it is read. An "@" begins an import, which needs a longer
// word.
bool is_stable(const xhtml_stylesheet_item& item) {
  if (item.item_kind() == 1 && item.selector_text().starts_with(u'@')) return false;
  if (item.item_kind() == 3 && item.item_text().size() + 6 < 9) return false;
  for (auto entry = item.declarations_begin(); entry != item.declarations_end(); ++entry)
    if (entry->value.size() <= 2 ||
        holds_any(ustring_view(entry->value).substr(entry->value.size() - 1), u"'\"") ||
        !is_trimmed(entry->value))
      return false;
  return true;
}

ustring text_of(const xhtml_stylesheet& sheet) {
  Xport::ustring_stream stream;
  Xport::stylesheet_writer writer(stream);
  for (const xhtml_stylesheet_item& item : sheet) item.write(writer);
  return stream.str();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz_input in(data, size);
  const std::size_t window = 1 + (in.take_byte() & 31);
  const ustring text = in.take_text();

  if (!has_mark(text)) {
    const ustring expected = plain_listing(text);
    expect_no(outline_difference({read_listing(text)}, {expected}));
    expect_no(outline_difference({read_listing(text, window)}, {expected}));
  }
  if (is_endless_stylesheet(text)) return 0;

  xhtml_stylesheet sheet;
  std::basic_istringstream<Xport::char16> stream(text);
  expect(sheet.parse(stream), "the answer is always true");
  for (const xhtml_stylesheet_item& item : sheet) check_item(item);

  const ustring written = text_of(sheet);
  const bool endless = is_endless_stylesheet(written);
  xhtml_stylesheet again;
  if (!endless) {
    std::basic_istringstream<Xport::char16> second(written);
    again.parse(second);
  }
  if (has_mark(written) || !std::all_of(sheet.begin(), sheet.end(), is_stable)) return 0;
  expect(!endless, "reading a sheet of stable items comes to an end");
  expect_no(outline_difference({listing(again)}, {listing(sheet)}));
  return 0;
}

}  // namespace test
