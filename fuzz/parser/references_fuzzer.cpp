// References, whose preferred spellings the input can change. The input is the number of changes,
// two bytes for each of them (the entry and its form), and the text.
#include <cstdint>
#include <iterator>

#include "fuzz/support/expect.h"
#include "fuzz/support/fuzz_input.h"
#include "tests/support/tree_outline.h"
#include "xport/parser/character_reference.h"
#include "xport/parser/xhtml_parser.h"
#include "xport/text/character_class.h"

namespace test {
namespace {

using Xport::char16;
using Xport::character_reference;
using Xport::ustring;

// True if the table was changed.
bool change_forms(Xport::xhtml_parser& parser, fuzz_input& in) {
  const unsigned changes = in.take_byte() & 15;
  for (unsigned i = 0; i < changes; ++i) {
    const auto index = (in.take_byte() & 63) % parser.references.size();
    auto entry = parser.references.extract(
        std::next(parser.references.begin(), static_cast<std::ptrdiff_t>(index)));
    entry.value().form = static_cast<Xport::reference_form>(in.take_byte() & 3);
    parser.references.insert(std::move(entry));
  }
  return changes != 0;
}

const character_reference* find_character(const Xport::xhtml_parser& parser, char16 unit) {
  const auto found = parser.by_character.find(static_cast<char16>(unit & 0xFF));
  return found != parser.by_character.end() ? &*found : nullptr;
}

const character_reference* find_number(const Xport::xhtml_parser& parser, const ustring& digits) {
  long number = digits.empty() ? -1 : 0;
  for (const char16 digit : digits)
    if (number <= 32767) number = number * 10 + (digit - u'0');
  if (number < 0 || number > 32767) return nullptr;
  const auto found = parser.by_code.find(static_cast<std::int16_t>(number));
  return found != parser.by_code.end() ? &*found : nullptr;
}

// The rules applied in place, one reference after the other: the text changes its length under
// the scan.
void plain_normalize(const Xport::xhtml_parser& parser, ustring& text) {
  const Xport::character_classes classes;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const character_reference* entry = nullptr;
    std::size_t count = 1;
    std::size_t last = at;
    if (text[at] != u'&') {
      entry = find_character(parser, text[at]);
    } else if (text[at + 1] == u'#') {
      last = at + 2;
      while (last < text.size() && classes.is_digit(text[last])) ++last;
      if (text[last] == u';') {
        entry = find_number(parser, text.substr(at + 2, last - at - 2));
        count = last - at + 1;
      } else {
        entry = find_character(parser, text[last]);
      }
    } else {
      last = at + 1;
      while (last < text.size() && classes.is_alnum(text[last])) ++last;
      if (text[last] == u';') {
        const auto found = parser.by_name.find(text.substr(at + 1, last - at - 1));
        if (found != parser.by_name.end()) entry = &*found;
        count = last - at;
      } else {
        entry = find_character(parser, u'&');
      }
    }
    at = entry != nullptr ? apply_reference(text, at, count, *entry) : last;
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz_input in(data, size);
  Xport::xhtml_parser parser(nullptr);
  load_default_references(parser.references);
  const bool stock = !change_forms(parser, in);
  rebuild_reference_indexes(parser);
  const ustring text = in.take_text();

  ustring expected = text;
  plain_normalize(parser, expected);
  ustring once = text;
  parser.normalize_references(once);
  expect_no(outline_difference({once}, {expected}));
  if (!stock) return 0;
  ustring twice = once;
  parser.normalize_references(twice);
  expect_no(outline_difference({twice}, {once}));
  return 0;
}

}  // namespace test
