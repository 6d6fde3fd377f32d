// Values of style attributes. The input is a byte that says where the element is, and the text.
#include <cstdint>
#include <map>

#include "fuzz/support/expect.h"
#include "fuzz/support/fuzz_input.h"
#include "tests/support/tree_check.h"
#include "tests/support/tree_outline.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/stylesheet/style_attribute.h"
#include "xport/vocabulary/xhtml_strict.h"

namespace test {
namespace {

using Xport::css_property_id;
using Xport::ustring;
using properties = std::map<css_property_id, ustring>;

bool is_white(Xport::char16 unit) { return unit == u' ' || (unit >= 9 && unit <= 13); }

// The rules, by position. Properties that are set already stay.
void plain_read(const ustring& text, properties& style) {
  std::size_t at = 0;
  const auto until = [&text, &at](auto stops) {
    const std::size_t first = at;
    while (at < text.size() && !stops(text[at])) ++at;
    return text.substr(first, at - first);
  };
  const auto skip_space = [&] { until([](auto unit) { return !is_white(unit); }); };
  while (true) {
    skip_space();
    const ustring name = until([](auto unit) { return is_white(unit) || unit == u':'; });
    if (at == text.size()) return;
    ++at;
    skip_space();
    const ustring value = until([](auto unit) { return is_white(unit) || unit == u';'; });
    const css_property_id id = Xport::xhtml_strict::css_property_from_name(name);
    if (id != css_property_id::not_found && !value.empty()) style.emplace(id, value);
  }
}

void check(const Xport::xhtml_markup& element, const properties& expected) {
  expect_no(detail::map_fault(*element.style_properties()));
  properties style;
  for (const auto& [id, value] : *element.style_properties()) style.emplace(id, value);
  expect(style == expected, "the style is what the rules give");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz_input in(data, size);
  const unsigned flags = in.take_byte();
  const ustring text = in.take_text();
  properties expected;
  Xport::xhtml_doc doc(1);
  Xport::xhtml_element on_heap(Xport::tag_id::p, {}, {});
  Xport::xhtml_element& element =
      (flags & 1) != 0 ? on_heap : *append_element(*doc.body(), Xport::tag_id::p)->as_element();
  if ((flags & 2) != 0) {
    element.set_style(css_property_id::color, u"before");
    expected[css_property_id::color] = u"before";
  }

  parse_style_attribute(element, text);
  plain_read(text, expected);
  check(element, expected);
  parse_style_attribute(element, text);
  check(element, expected);
  return 0;
}

}  // namespace test
