#include "xport/stylesheet/style_attribute.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <locale>
#include <string>

#include "tests/support/allocation_failure.h"
#include "tests/support/golden.h"
#include "tests/support/locale.h"
#include "tests/support/text.h"
#include "tests/support/vocabulary_numbers.h"
#include "xport/markup/node_memory.h"
#include "xport/vocabulary/xhtml_strict.h"

namespace test {
namespace {

/// The style as "name=value|" in the order of the properties.
ustring style_of(const xhtml_element& element) {
  ustring text;
  for (const auto& entry : *element.style_properties()) {
    text += xhtml_strict::css_property_name(entry.first);
    text += u"=";
    text += entry.second;
    text += u"|";
  }
  return text;
}

ustring read(ustring_view text) {
  xhtml_element element(tag_id::p, {}, {});
  parse_style_attribute(element, text);
  return style_of(element);
}

TEST(StyleAttribute, OneDeclaration) {
  EXPECT_TRUE(same_units(read(u"color:red"), u"color=red|"));
  EXPECT_TRUE(same_units(read(u"color: red"), u"color=red|"));
  EXPECT_TRUE(same_units(read(u"  color:\n\t red  "), u"color=red|"));
  EXPECT_TRUE(same_units(read(u"color:red;"), u"color=red|"));
}

TEST(StyleAttribute, ANameAloneIsDropped) {
  EXPECT_TRUE(same_units(read(u"color"), u""));
  EXPECT_TRUE(same_units(read(u"color "), u""));
  EXPECT_TRUE(same_units(read(u"color:"), u""));
  EXPECT_TRUE(same_units(read(u"color: "), u""));
  EXPECT_TRUE(same_units(read(u"color:;"), u""));
}

TEST(StyleAttribute, NothingIsNoDeclaration) {
  EXPECT_TRUE(same_units(read(u""), u""));
  EXPECT_TRUE(same_units(read(u" \t\n"), u""));
  EXPECT_TRUE(same_units(read(u":"), u""));
  EXPECT_TRUE(same_units(read(u";"), u""));
  EXPECT_TRUE(same_units(read(u" : ; : ; "), u""));
}

TEST(StyleAttribute, AfterASemicolonTheNextNameIsNotFound) {
  EXPECT_TRUE(same_units(read(u"color: red; width: 2px"), u"color=red|"));
  EXPECT_TRUE(same_units(read(u"color:red;width:2px;top:1px"), u"color=red|"));
  EXPECT_TRUE(same_units(read(u"color:red ;width:2px"), u"color=red|"));
  EXPECT_TRUE(same_units(read(u";color:red"), u""));
}

TEST(StyleAttribute, ASemicolonWithBlanksAroundItIsANameWithAValue) {
  // The name ";" has the value "width:2px", so that "top" is read again.
  EXPECT_TRUE(same_units(read(u"color:red ; width:2px top:1px"), u"color=red|top=1px|"));
}

TEST(StyleAttribute, WhiteSpaceAloneSetsDeclarationsApart) {
  EXPECT_TRUE(same_units(read(u"width: 2px color: red\ntop:0"), u"color=red|top=0|width=2px|"));
}

TEST(StyleAttribute, AValueHoldsNoBlanks) {
  EXPECT_TRUE(same_units(read(u"font-family: Times New Roman"), u"font-family=Times|"));
  EXPECT_TRUE(same_units(read(u"font-family: Times color red"), u"color=red|font-family=Times|"));
  EXPECT_TRUE(
      same_units(read(u"font-family: 'Times New Roman' top:1px"), u"font-family='Times|top=1px|"));
}

TEST(StyleAttribute, WhiteSpaceEndsANameAndIsAllThatIsSkipped) {
  EXPECT_TRUE(same_units(read(u"color : red"), u"color=:|"));
  EXPECT_TRUE(same_units(read(u"color :red"), u"color=:red|"));
  EXPECT_TRUE(same_units(read(u"color red"), u"color=red|"));
  EXPECT_TRUE(same_units(read(u"color::red"), u"color=:red|"));
}

TEST(StyleAttribute, AnEmptyNameLosesItsValue) {
  EXPECT_TRUE(same_units(read(u":red color:blue"), u"color=blue|"));
}

TEST(StyleAttribute, AnEmptyValueIsNotStored) {
  EXPECT_TRUE(same_units(read(u"color:; color:red"), u""));
  EXPECT_TRUE(same_units(read(u"top:;x:1 color:red"), u"color=red|"));
}

TEST(StyleAttribute, ValuesAreKeptAsTheyStand) {
  EXPECT_TRUE(same_units(read(u"font-family:\"Arial\""), u"font-family=\"Arial\"|"));
  EXPECT_TRUE(
      same_units(read(u"background:url(http://x/{a}.png)"), u"background=url(http://x/{a}.png)|"));
  EXPECT_TRUE(same_units(read(u"top:/*k*/0"), u"top=/*k*/0|"));
  const ustring odd = {u'\0', 0xFFFF, 0xD800, 0xFEFF, 0x00A0};
  EXPECT_TRUE(same_units(read(u"top:" + odd + u" left:1"), u"left=1|top=" + odd + u"|"));
}

TEST(StyleAttribute, NamesAreThoseOfTheTable) {
  EXPECT_TRUE(same_units(read(u"COLOR:red colour:red Color:red"), u""));
  EXPECT_TRUE(same_units(read(u"widows:2 widowsL:3"), u"widowsL=3|"));
  EXPECT_TRUE(same_units(read(ustring(u"color\0:red", 10)), u""));
}

TEST(StyleAttribute, TheFirstValueWins) {
  EXPECT_TRUE(same_units(read(u"color:red color:blue color:green"), u"color=red|"));
  xhtml_element element(tag_id::p, {}, {});
  element.set_style(css_property_id::color, u"old");
  element.set_style(css_property_id::left, u"");
  parse_style_attribute(element, u"top:1px color:new left:new");
  EXPECT_TRUE(same_units(style_of(element), u"color=old|left=|top=1px|"));
  parse_style_attribute(element, u"top:2px width:3px");
  EXPECT_TRUE(same_units(style_of(element), u"color=old|left=|top=1px|width=3px|"));
}

TEST(StyleAttribute, ReadsEveryPropertyOnceHoweverOftenItOccurs) {
  ustring text;
  ustring expected;
  for (std::int32_t number = property_end - 1; number >= 0; --number)
    text += ustring(xhtml_strict::css_property_name(css_property_id{number})) + u": first ";
  for (std::int32_t number = 0; number < property_end; ++number) {
    const ustring name(xhtml_strict::css_property_name(css_property_id{number}));
    text += name + u":second ";
    expected += name + u"=first|";
  }
  EXPECT_TRUE(same_units(read(text), expected));
}

TEST(StyleAttribute, AnElementWithoutARecordStoresNothing) {
  xhtml_element element(tag_id{first_number_without_record}, {}, {});
  parse_style_attribute(element, u"color:red");
  EXPECT_TRUE(element.style_properties()->empty());
}

TEST(StyleAttribute, EveryElementOfTheTableAcceptsAStyle) {
  xhtml_element element(tag_id::html, {}, {});
  parse_style_attribute(element, u"color:red");
  EXPECT_TRUE(same_units(style_of(element), u"color=red|"));
}

TEST(StyleAttribute, ATextWithoutAnythingNewAllocatesNothing) {
  xhtml_element element(tag_id::p, {}, {});
  parse_style_attribute(element, u"color:red");
  const std::size_t before = allocation_calls();
  parse_style_attribute(element, u"color:blue x:y widows:2 top:;");
  EXPECT_EQ(allocation_calls(), before);
}

TEST(StyleAttribute, AFewDeclarationsTakeOneBlock) {
  xhtml_element element(tag_id::p, {}, {});
  const std::size_t before = allocation_calls();
  parse_style_attribute(element, u"color:red top:1px left:2px width:3px");
  EXPECT_EQ(allocation_calls() - before, 1u);
}

TEST(StyleAttribute, MemoryComesFromThePoolOfTheElement) {
  node_pool pool;
  xhtml_element element(tag_id::p, {}, {}, &pool);
  parse_style_attribute(element, u"color:red");
  EXPECT_TRUE(same_units(style_of(element), u"color=red|"));
  EXPECT_EQ(element.style_properties()->pool(), &pool);
}

TEST(StyleAttribute, HugeTextsTakeLinearTime) {
  ustring text;
  for (int i = 0; i < 300'000; ++i) text += u"color:red x:y ;;; :top:1px ";
  EXPECT_TRUE(same_units(read(text), u"color=red|"));
  const ustring value(2'000'000, u'v');
  EXPECT_TRUE(same_units(read(u"color:" + value), u"color=" + value + u"|"));
}

TEST(StyleAttribute, WhiteSpaceIsWhatTheLocaleCallsSpaceOrBlank) {
  const global_locale global(locale_with(L'_', std::ctype_base::blank));
  EXPECT_TRUE(same_units(read(u"_color:__red_top_1px_"), u"color=red|top=1px|"));
}

}  // namespace
}  // namespace test
