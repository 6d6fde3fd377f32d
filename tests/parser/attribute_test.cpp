// Attributes: how their text is cut, and what an element keeps of them.

#include <gtest/gtest.h>

#include <cstdint>
#include <sstream>
#include <string>

#include "tests/parser/parse_kit.h"
#include "tests/parser/reader_kit.h"
#include "tests/support/golden.h"
#include "tests/support/tree_check.h"
#include "tests/support/vocabulary_numbers.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/parser/tag_reader.h"
#include "xport/text/character_class.h"

namespace test {
namespace {

/// What next_attribute cuts off `text` as "name|value|", and what it leaves.
std::string first_of(ustring_view text) {
  const auto [name, value] = next_attribute(text, character_classes());
  return printable(name) + "|" + printable(value) + "|" + printable(text);
}

/// The same of read_attribute_value.
std::string value_in(ustring_view text) {
  const ustring_view value = read_attribute_value(text, character_classes());
  return printable(value) + "|" + printable(text);
}

/// The element that a tag's text makes.
std::string element_of(ustring_view tag) {
  parser_on<> parser(u"");
  return outline_of_one(xhtml_element(tag, *parser));
}

/// The messages about a tag's text.
std::string messages_about(ustring_view tag) {
  parser_on<> parser(u"");
  const xhtml_element element(tag, *parser);
  return parser.messages();
}

TEST(AttributeText, NameAndQuotedValue) {
  EXPECT_EQ(first_of(u"a='b'"), "a|b|");
  EXPECT_EQ(first_of(u"a=\"b\""), "a|b|");
  EXPECT_EQ(first_of(u" a='b' c='d'"), "a|b| c='d'");
  EXPECT_EQ(first_of(u"a='b'c='d'"), "a|b|c='d'");
  EXPECT_EQ(first_of(u"a=''b"), "a||b");
}

TEST(AttributeText, WhiteSpaceAroundTheEqualsSign) {
  EXPECT_EQ(first_of(u"\n\ta \r\n= \f\v'b'c"), "a|b|c");
  EXPECT_EQ(first_of(u"a ='b'"), "a|b|");
  EXPECT_EQ(first_of(u"a= 'b'"), "a|b|");
}

TEST(AttributeText, NothingIsLeftWithoutAName) {
  EXPECT_EQ(first_of(u""), "||");
  EXPECT_EQ(first_of(u" \n "), "||");
  EXPECT_EQ(first_of(u"='b' c='d'"), "||");
  EXPECT_EQ(first_of(u"  ='b' c='d'"), "||");
  EXPECT_EQ(first_of(u"="), "||");
}

TEST(AttributeText, NothingIsLeftWithoutAnEqualsSign) {
  EXPECT_EQ(first_of(u"a"), "||");
  EXPECT_EQ(first_of(u"a "), "||");
  EXPECT_EQ(first_of(u"a b='c'"), "||");
  EXPECT_EQ(first_of(u">"), "||");
  EXPECT_EQ(first_of(u"/>"), "||");
  EXPECT_EQ(first_of(u"/ a='b'"), "||");
}

TEST(AttributeText, NameIsEverythingUpToEqualsSignOrWhiteSpace) {
  EXPECT_EQ(first_of(u"a'b\"c>d/<='e'"), "a'b\"c>d/<|e|");
  EXPECT_EQ(first_of(u"'a'='b'"), "'a'|b|");
  EXPECT_EQ(first_of(u"A:b-1='c'"), "A:b-1|c|");
  EXPECT_EQ(first_of(u"\u00E9\u00A0='c'"), "\\u00E9\\u00A0|c|");
  EXPECT_EQ(first_of(ustring(u"a\0b='c'", 7)), "a\\u0000b|c|");
}

TEST(AttributeText, SecondEqualsSignIsTheFirstUnitOfTheValue) {
  EXPECT_EQ(first_of(u"a==b c"), "a|b|c");
  EXPECT_EQ(first_of(u"a=='b' c"), "a|'b'|c");
}

TEST(AttributeText, MissingValueLeavesTheName) {
  EXPECT_EQ(first_of(u"a="), "a||");
  EXPECT_EQ(first_of(u"a=  \n"), "a||");
  EXPECT_EQ(first_of(u"a='b c='d"), "a|b c=|d");
  EXPECT_EQ(first_of(u"a='b c=d"), "a||");
  EXPECT_EQ(first_of(u"a=b"), "a||");
}

TEST(AttributeValue, NothingIsEmpty) {
  EXPECT_EQ(value_in(u""), "|");
  EXPECT_EQ(value_in(u" \n\t "), "|");
}

TEST(AttributeValue, QuotedValueStaysAsItIs) {
  EXPECT_EQ(value_in(u"'a'"), "a|");
  EXPECT_EQ(value_in(u"\"a\"b"), "a|b");
  EXPECT_EQ(value_in(u" \t\n'a' b"), "a| b");
  EXPECT_EQ(value_in(u"'it\"s' b"), "it\"s| b");
  EXPECT_EQ(value_in(u"\"it's\" b"), "it's| b");
  EXPECT_EQ(value_in(u"'  a\n b\t'"), "  a\n b\\u0009|");
  EXPECT_EQ(value_in(u"'&amp;<b>&#34;'"), "&amp;<b>&#34;|");
  EXPECT_EQ(value_in(u"''''"), "|''");
  EXPECT_EQ(value_in(ustring(u"'a\0b'c", 6)), "a\\u0000b|c");
}

TEST(AttributeValue, QuoteWithoutAPartnerEndsAll) {
  EXPECT_EQ(value_in(u"'"), "|");
  EXPECT_EQ(value_in(u"\""), "|");
  EXPECT_EQ(value_in(u"'a b c"), "|");
  EXPECT_EQ(value_in(u"'a\" b\""), "|");
}

TEST(AttributeValue, UnquotedValueLosesItsFirstUnit) {
  EXPECT_EQ(value_in(u"100 "), "00|");
  EXPECT_EQ(value_in(u"100 b='c'"), "00|b='c'");
  EXPECT_EQ(value_in(u"1 b"), "|b");
  EXPECT_EQ(value_in(u"12  b"), "2| b");
  EXPECT_EQ(value_in(u"a'b c' d"), "'b|c' d");
}

TEST(AttributeValue, OnlyABlankEndsAnUnquotedValue) {
  EXPECT_EQ(value_in(u"100"), "|");
  EXPECT_EQ(value_in(u"100>"), "|");
  EXPECT_EQ(value_in(u"100\tb"), "|");
  EXPECT_EQ(value_in(u"100\nb='c' d"), "00\nb='c'|d");
  EXPECT_EQ(value_in(u"1"), "|");
}

TEST(AttributeValue, DelimiterIsFoundAtAnyPlace) {
  for (std::size_t length = 0; length < 40; ++length) {
    const ustring value(length, u'\u0127');  // its low byte is that of the apostrophe
    EXPECT_EQ(value_in(u"'" + value + u"'b"), printable(value) + "|b");
    EXPECT_EQ(value_in(u"x" + value + u" b"), printable(value) + "|b");
    EXPECT_EQ(value_in(u"'" + value), "|");
  }
}

TEST(Attributes, FirstOfEqualNamesCounts) {
  EXPECT_EQ(in_div(u"<p class='a' class='b'>"), "p[class=\"a\"]");
  EXPECT_EQ(in_div(u"<a href='x' HREF=\"y\">"), "a[href=\"x\"]");
  EXPECT_EQ(in_div(u"<p class= class='b'>"), "p[class=\"\"]");
  EXPECT_EQ(in_div(u"<p class='' class='b'>"), "p[class=\"\"]");
}

TEST(Attributes, TheyAreStoredEvenWhereTheElementDoesNotAcceptThem) {
  EXPECT_EQ(in_div(u"<p align='x'>"), "p[align=\"x\"]");
  EXPECT_EQ(in_div(u"<br href='x' colspan='2' xmlns='y'>"),
            "br[colspan=\"2\" href=\"x\" xmlns=\"y\"]");
}

TEST(Attributes, UnquotedValues) {
  EXPECT_EQ(in_div(u"<img src=pic.png alt=\"x\">"), "img[alt=\"x\" src=\"ic.png\"]");
  EXPECT_EQ(in_div(u"<img alt=\"x\" src=pic.png>"), "img[alt=\"x\" src=\"\"]");
  EXPECT_EQ(in_div(u"<img src=pic.png/>"), "img[src=\"\"]");
  EXPECT_EQ(in_div(u"<img src=pic.png />"), "img[src=\"ic.png\"]");
  EXPECT_EQ(in_div(u"<img width=100 height=7 alt=>"), "img[alt=\"\" height=\"\" width=\"00\"]");
}

TEST(Attributes, FirstWithoutEqualsSignEndsThem) {
  EXPECT_EQ(in_div(u"<input disabled name=\"x\">"), "input");
  EXPECT_EQ(in_div(u"<input name=\"x\" disabled>"), "input[name=\"x\"]");
  EXPECT_EQ(in_div(u"<input name=\"x\" disabled value='y'>"), "input[name=\"x\"]");
  EXPECT_EQ(in_div(u"<input name=\"x\" / value='y'>"), "input[name=\"x\"]");
  EXPECT_EQ(in_div(u"<input name=\"x\"/value='y'>"), "input[name=\"x\"]");  // unknown "/value"
  EXPECT_EQ(in_div(u"<input name=\"x\"/b='' value='y'>"), "input[name=\"x\" value=\"y\"]");
  EXPECT_EQ(in_div(u"<input ='x' value='y'>"), "input");
}

TEST(Attributes, UnknownNamesAreDroppedInSilence) {
  EXPECT_EQ(in_div(u"<p foo='a' class='b' xml:space='c' char='d'>"), "p[class=\"b\"]");
  EXPECT_EQ(in_div(u"<p xmlns:b='a' domactivate='b' DOMActivate='c' xmlspaceL='d'>"), "p");
  EXPECT_EQ(messages_of(u"<p foo='a' b =\"></p>", 3), "");
}

TEST(Attributes, NamesAreReadWithoutCase) {
  EXPECT_EQ(in_div(u"<p ID='a' OnClick='b()' Char-Attr='c' XML:Lang='d'>"),
            "p[char-attr=\"c\" id=\"a\" onclick=\"b()\" xml:lang=\"d\"]");
}

TEST(Attributes, NameSpaceIsAnAttributeLikeAnyOther) {
  EXPECT_EQ(in_div(u"<p xmlns='a' xmlns='b'>"), "p[xmlns=\"a\"]");
}

TEST(Attributes, ValuesStayAsTheyAre) {
  EXPECT_EQ(in_div(u"<p title=' &lt; \n\t&#34; \u00E9 '>"),
            "p[title=\" &lt; \n\\u0009&#34; \\u00E9 \"]");
  parse_case how;
  how.normalize_text = true;
  EXPECT_EQ(parse(u"<p title='a & \u00A9'>", how).children, "p[title=\"a & \\u00A9\"]");
}

TEST(Attributes, NamesAreCutAtAZeroUnit) {
  EXPECT_EQ(in_div(ustring(u"<p id\0x='a' class\0='b'>", 23)), "p[class=\"b\" id=\"a\"]");
  EXPECT_EQ(in_div(ustring(u"<p \0id='a' class='b'>", 21)), "p[class=\"b\"]");
}

TEST(StyleInTag, IsStoredInTheInlineStyle) {
  EXPECT_EQ(in_div(u"<p style='color:red'>"), "p{color:red;}");
  EXPECT_EQ(in_div(u"<p style='color:red width:1px' class='a'>"),
            "p[class=\"a\"]{color:red;width:1px;}");
  EXPECT_EQ(in_div(u"<p style=''>"), "p");
  EXPECT_EQ(in_div(u"<p style=>"), "p");
  EXPECT_EQ(in_div(u"<p style='color:red>"), "p");
}

TEST(StyleInTag, IsReadUnquotedWithoutItsFirstUnit) {
  EXPECT_EQ(in_div(u"<p style=xcolor:red class='a'>"), "p[class=\"a\"]{color:red;}");
  EXPECT_EQ(in_div(u"<p style=color:red class='a'>"), "p[class=\"a\"]");
}

TEST(StyleInTag, FirstOfEqualPropertiesCounts) {
  EXPECT_EQ(in_div(u"<p style='color:red' class='a' style='color:blue width:1px'>"),
            "p[class=\"a\"]{color:red;width:1px;}");
}

TEST(StyleInTag, InAnyOtherSpellingItIsAnAttribute) {
  EXPECT_EQ(in_div(u"<p STYLE='color:red'>"), "p[style=\"color:red\"]");
  EXPECT_EQ(in_div(u"<p Style='a' style='color:red' STYLE='b'>"), "p[style=\"a\"]{color:red;}");
  EXPECT_EQ(in_div(ustring(u"<p style\0='color:red'>", 22)), "p[style=\"color:red\"]");
}

TEST(TagText, MakesAnElement) {
  EXPECT_EQ(element_of(u"<p class='a'>"), "p[class=\"a\"]");
  EXPECT_EQ(element_of(u"<p class='a'"), "p[class=\"a\"]");
  EXPECT_EQ(element_of(u"p class='a'>"), "p[class=\"a\"]");
  EXPECT_EQ(element_of(u"p"), "p");
  EXPECT_EQ(element_of(u"<DIV\tID='b' />"), "div[id=\"b\"]");
  EXPECT_EQ(messages_about(u"<p class='a'>"), "");
}

TEST(TagText, OnlyWhiteSpaceAfterANameLeadsToAttributes) {
  EXPECT_EQ(element_of(u"<p>class='a'"), "p");
  EXPECT_EQ(element_of(u"<p> class='a'"), "p");
  EXPECT_EQ(element_of(u"<p/ class='a'>"), "p");
  EXPECT_EQ(element_of(u"<p: class='a'>"), "p");
  EXPECT_EQ(element_of(ustring(u"<p\0 class='a'>", 14)), "p");
}

// Only the reader of tags ends a tag at the first ">".
TEST(TagText, GreaterThanInsideIsAUnitLikeAnyOther) {
  EXPECT_EQ(element_of(u"<p class='a>b'>"), "p[class=\"a>b\"]");
  EXPECT_EQ(element_of(u"<p class='a'> id='b'>"), "p[class=\"a\"]");
  EXPECT_EQ(element_of(u"<p class='a'>id='b' lang='c'"), "p[class=\"a\" lang=\"c\"]");
  EXPECT_EQ(element_of(u"<p class='a'> ='b' lang='c'"), "p[class=\"a\" lang=\"c\"]");
}

TEST(TagText, WithoutANameIsOfTheInvalidRowInSilence) {
  for (const ustring tag : {u"", u"<", u">", u"<>", u"<=>", u" p", u"< p class='a'>", u"<<p>",
                            u"</p>", u"<\u00E9 class='a'>"}) {
    EXPECT_EQ(element_of(tag), "invalid tag") << printable(tag);
    EXPECT_EQ(messages_about(tag), "") << printable(tag);
  }
  EXPECT_EQ(element_of(ustring(u"<\0p>", 4)), "invalid tag");
}

TEST(TagText, UnknownNameIsReported) {
  EXPECT_EQ(element_of(u"<foo class='a' style='color:red'>"), "invalid tag");
  EXPECT_EQ(messages_about(u"<foo class='a'>"), message(1, "Invalid Tag"));
  EXPECT_EQ(messages_about(u"<foo/>"), message(1, "Invalid Tag"));
  EXPECT_EQ(messages_about(u"doc root"), message(1, "Invalid Tag"));
  EXPECT_EQ(messages_about(u"<brr"), message(1, "Invalid Tag"));
}

TEST(TagText, SlashAfterANameIsReported) {
  EXPECT_EQ(messages_about(u"<p/>"), message(1, "Invalid />"));
  EXPECT_EQ(messages_about(u"<p/"), message(1, "Invalid />"));
  EXPECT_EQ(messages_about(u"<font/>"), message(1, "Invalid />"));
  EXPECT_EQ(messages_about(u"<p />"), "");
  EXPECT_EQ(messages_about(u"<br/>"), "");
  EXPECT_EQ(messages_about(u"<basefont/>"), "");
}

TEST(TagText, MessagesNameTheLineOfTheParser) {
  parser_on<> parser(u"x");
  parser->line = 12;
  const xhtml_element element(u"<foo\n\n>", *parser);
  EXPECT_EQ(parser.messages(), message(12, "Invalid Tag"));
  EXPECT_EQ(parser->line, 12u);
  EXPECT_EQ(parser->last_tag, tag_id::doc_root);
  EXPECT_EQ(parser.rest(), "x");
}

TEST(TagText, NoMessageWithoutItsLevelOrAStream) {
  parser_on<> parser(u"");
  parser->message_mask = ~1u;
  const xhtml_element unwanted(u"<foo>", *parser);
  EXPECT_EQ(parser.messages(), "");
  parser->message_mask = 1;
  parser->messages = nullptr;
  const xhtml_element unheard(u"<p/>", *parser);
  EXPECT_EQ(parser.messages(), "");
}

TEST(TagText, ElementStandsAlone) {
  parser_on<> parser(u"");
  xhtml_element element(u"<p class='a'>", *parser);
  EXPECT_EQ(element.parent(), nullptr);
  EXPECT_EQ(element.begin(), element.end());
  EXPECT_EQ(element.pool(), nullptr);
  element.append_text(u"x");
  EXPECT_EQ(outline_of_children(element), "'x'");
}

TEST(ParseAttributes, KeepsWhatTheElementHas) {
  xhtml_element element(tag_id::p, u"a", u"b");
  element.set_style(css_property_id::color, u"red");
  element.parse_attributes(u"id='x' title='y' class='z' style='color:blue top:1px'");
  EXPECT_EQ(outline_of_one(element), "p[class=\"b\" id=\"a\" title=\"y\"]{color:red;top:1px;}");
}

TEST(ParseAttributes, NeedsNoLeadingWhiteSpace) {
  xhtml_element element(tag_id::p, {}, {});
  element.parse_attributes(u"title='y'lang='z'");
  EXPECT_EQ(outline_of_one(element), "p[lang=\"z\" title=\"y\"]");
  element.parse_attributes(u"");
  element.parse_attributes(u"   ");
  element.parse_attributes(u"foo");
  EXPECT_EQ(outline_of_one(element), "p[lang=\"z\" title=\"y\"]");
}

TEST(ParseAttributes, ElementWithoutARecordStoresNothing) {
  xhtml_element element(tag_id{first_number_without_record}, {}, {});
  element.parse_attributes(u"title='y' style='color:red'");
  EXPECT_TRUE(element.attributes()->empty());
  EXPECT_TRUE(element.style_properties()->empty());
}

// All rows but the eleven that hold capitals, and `style`, which isn't stored there.
TEST(ParseAttributes, EveryNameOfTheTable) {
  ustring text;
  for (int round = 0; round < 2; ++round)
    for (std::int32_t row = attribute_end - 1; row >= 0; --row) {
      text += u' ';
      text += xhtml_strict::attribute_name(attr_id{row});
      text += round == 0 ? u"='first'" : u"='second'";
    }
  xhtml_element element(tag_id::p, {}, {});
  element.parse_attributes(text);
  EXPECT_EQ(element.attributes()->size(), 232u);
  for (const auto& [id, value] : *element.attributes()) EXPECT_TRUE(same_units(value, u"first"));
  EXPECT_TRUE(is_intact(element));
}

TEST(ParseAttributes, ManyAttributes) {
  ustring text = u"<p";
  for (int count = 0; count < 100'000; ++count) {
    text += u" id='";
    text += static_cast<char16_t>(u'A' + count % 26);
    text += u"' b='x'";
  }
  text += u" class='z'>x";
  EXPECT_EQ(in_div(text), "p[class=\"z\" id=\"A\"]('x')");
}

TEST(ParseAttributes, ManyStyles) {
  ustring text = u"<p";
  for (int count = 0; count < 20'000; ++count) text += u" style='color:red top:1px'";
  EXPECT_EQ(in_div(text + u">"), "p{color:red;top:1px;}");
}

TEST(ParseAttributes, LongValues) {
  const ustring value(1'000'000, u'v');
  EXPECT_EQ(in_div(u"<p title='" + value + u"' class='a'>"),
            "p[class=\"a\" title=\"" + printable(value) + "\"]");
  EXPECT_EQ(in_div(u"<p title='" + value + u" class=a>"), "p[title=\"\"]");
  EXPECT_EQ(in_div(u"<p " + value + u"='x' class='a'>"), "p[class=\"a\"]");
  EXPECT_EQ(in_div(u"<p title=" + ustring(1'000'000, u' ') + u"'a'>"), "p[title=\"a\"]");
}

// Elements in a row with the same text of attributes are read faster.
TEST(AttributesOfElements, InARowWithTheSameTextOrAnother) {
  EXPECT_EQ(in_div(u"<p id='a' class='b'>1</p><p id='a' class='b'>2</p><p class='b'>3</p>"
                   u"<p class='c'>4</p><p class='b'>5</p><p>6</p><p class='b'>7</p>"),
            in_div(u"<p id='a' class='b' >1</p><p\tid='a' class='b'>2</p><p  class='b'>3</p>"
                   u"<p\tclass='c'>4</p><p class=\"b\">5</p><p >6</p><p  class='b'>7</p>"));
  EXPECT_EQ(in_div(u"<p style='color:red'>1</p><p style='color:red'>2</p><p style=''>3</p>"),
            in_div(u"<p  style='color:red'>1</p><p\tstyle='color:red'>2</p><p style=\"\">3</p>"));
  const ustring id(200, u'i');
  EXPECT_EQ(in_div(u"<p id='" + id + u"'>1</p><p id='" + id + u"'>2</p><p id='i'>3</p>"),
            in_div(u"<p  id='" + id + u"'>1</p><p\tid='" + id + u"'>2</p><p\tid='i'>3</p>"));
}

TEST(AttributesOfElements, InARowAreEachItsOwn) {
  xhtml_doc doc(0);
  std::basic_istringstream<char16> input(u"<p class='b'>1</p><p class='b'>2</p><p class='b'>3</p>");
  xhtml_parser parser(&input);
  parser.parse_children(doc.root());
  auto second = ++doc.root()->begin();
  second->set_attribute(attr_id::class_, u"changed");
  EXPECT_EQ(doc.root()->begin()->get_attribute(attr_id::class_), u"b");
  EXPECT_EQ(second->get_attribute(attr_id::class_), u"changed");
  EXPECT_EQ((++second)->get_attribute(attr_id::class_), u"b");
}

}  // namespace
}  // namespace test
