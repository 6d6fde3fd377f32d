#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <random>

#include "tests/stylesheet/plain_sheet.h"
#include "tests/stylesheet/sheet_text.h"
#include "tests/support/golden.h"
#include "tests/support/text.h"
#include "tests/support/vocabulary_numbers.h"
#include "xport/stream/ustring_stream.h"
#include "xport/stylesheet/stylesheet_writer.h"

namespace test {
namespace {

std::size_t below(std::mt19937& random, std::size_t bound) { return random() % bound; }

template <std::size_t Count>
ustring random_text(std::mt19937& random, const ustring_view (&pieces)[Count], std::size_t most) {
  ustring text;
  for (std::size_t left = below(random, most + 1); left != 0; --left)
    text += pieces[below(random, Count)];
  return text;
}

constexpr ustring_view anything[] = {
    u" ",   u" ",        u"\n",          u"a",    u"b c",  u"{",       u"{",     u"}",
    u"}",   u":",        u":",           u";",    u";",    u"/",       u"*",     u"/*",
    u"*/",  u"@import ", u"@",           u"url(", u")",    u"\"",      u"'",     u"top",
    u"red", u"color",    u"color: red;", u"0",    u"#fff", u"widows:", u"x{y:z", u"\u00A0"};

TEST(StylesheetRandom, AnyTextIsReadByTheRules) {
  std::mt19937 random(1);
  std::size_t endless = 0;
  for (int round = 0; round < 20'000; ++round) {
    ustring text = random_text(random, anything, 40);
    if (below(random, 20) == 0) text.insert(below(random, text.size() + 1), 1, u'\uFFFF');
    const ustring expected = plain_listing(text);
    const std::size_t window = below(random, 3) == 0 ? 1000 : 1 + below(random, 5);
    ASSERT_TRUE(same_units(read_listing(text, window), expected)) << printable(text);
    if (expected.ends_with(u"endless")) ++endless;
  }
  EXPECT_GT(endless, 1000u);
  EXPECT_LT(endless, 19'000u);
}

TEST(StylesheetRandom, AnyUnitsAreReadByTheRules) {
  std::mt19937 random(2);
  for (int round = 0; round < 5'000; ++round) {
    ustring text = u"x";  // no byte-order mark
    for (std::size_t left = below(random, 60); left != 0; --left)
      text += below(random, 2) == 0 ? static_cast<char16_t>(random())
                                    : anything[below(random, std::size(anything))].front();
    ASSERT_TRUE(same_units(read_listing(text, 1 + below(random, 9)), plain_listing(text)))
        << printable(text);
  }
}

ustring written(const xhtml_stylesheet& sheet) {
  ustring_stream stream;
  stylesheet_writer writer(stream);
  for (const xhtml_stylesheet_item& item : sheet) item.write(writer);
  return stream.str();
}

/// The listing of `sheet` after it was written and read back.
ustring round_trip(const xhtml_stylesheet& sheet) { return read_listing(written(sheet)); }

constexpr ustring_view within_selectors[] = {u"a", u".", u"#", u",", u" ",  u":hover", u"}",
                                             u";", u"@", u"*", u"'", u"\"", u"\n",     u"\u00E9"};
constexpr ustring_view within_values[] = {u"a",  u"1", u".", u",", u" ",  u":",  u"{",     u"/*",
                                          u"*/", u"/", u"@", u"'", u"\"", u"\n", u"\u00E9"};
constexpr ustring_view within_urls[] = {u"a", u"/", u":", u"(", u"*", u"@", u"'", u"{", u"}"};
constexpr ustring_view within_comments[] = {u"a", u" ", u"/", u"{", u"}", u";", u"@", u"*", u"\n"};

TEST(StylesheetRandom, WhatIsWrittenIsReadBackWhereNoRuleSaysOtherwise) {
  std::mt19937 random(3);
  for (int round = 0; round < 3'000; ++round) {
    xhtml_stylesheet sheet;
    for (std::size_t left = below(random, 6); left != 0; --left) {
      switch (below(random, 4)) {
        case 0:
          // Not empty, no white space at its ends, at least three units, and no quote,
          // parenthesis or semicolon at its end.
          sheet.add_item(
              xhtml_stylesheet_import(u"u" + random_text(random, within_urls, 9) + u"rl"));
          break;
        case 1: {
          // No white space at its ends and no "*/".
          ustring text = u"c" + random_text(random, within_comments, 9) + u"d";
          while (text.find(u"*/") != text.npos) text.erase(text.find(u"*/"), 1);
          sheet.add_item(xhtml_stylesheet_comment(text));
          break;
        }
        default: {
          // No white space at its ends, no "{" or "/", no "@" at its beginning.
          xhtml_stylesheet_rule rule(u"s" + random_text(random, within_selectors, 6) + u"t");
          for (std::size_t more = below(random, 5); more != 0; --more) {
            // Three units or more, no white space at its ends, no ";" or "}", no quote at
            // its end.
            rule.push_declaration(
                {css_property_id{static_cast<std::int32_t>(below(random, property_end))},
                 u"v" + random_text(random, within_values, 6) + u"al"});
          }
          sheet.add_item(rule);
        }
      }
    }
    ASSERT_TRUE(same_units(round_trip(sheet), listing(sheet))) << printable(written(sheet));
  }
}

// What is read back as something else.

ustring rule_and_back(ustring_view selector, css_property_id property, ustring_view value) {
  xhtml_stylesheet sheet;
  xhtml_stylesheet_rule rule(selector);
  rule.push_declaration({property, ustring(value)});
  rule.push_declaration({css_property_id::color, u"red"});
  sheet.add_item(rule);
  return round_trip(sheet);
}

ustring item_and_back(const xhtml_stylesheet_item& item) {
  xhtml_stylesheet sheet;
  sheet.add_item(item);
  return round_trip(sheet);
}

TEST(StylesheetRoundTrip, AShortValueIncludesTheNextDeclaration) {
  EXPECT_TRUE(
      same_units(rule_and_back(u"a", css_property_id::top, u"10"), u"[a] top=[10   color: red]\n"));
  EXPECT_TRUE(
      same_units(rule_and_back(u"a", css_property_id::top, u""), u"[a] top=[color: red]\n"));
}

TEST(StylesheetRoundTrip, AQuoteAtTheEndOfAValueIsLost) {
  EXPECT_TRUE(same_units(rule_and_back(u"a", css_property_id::font_family, u"\"Arial\""),
                         u"[a] font-family=[\"Arial] color=[red]\n"));
}

TEST(StylesheetRoundTrip, WhiteSpaceAtTheEndsIsLost) {
  EXPECT_TRUE(same_units(rule_and_back(u" a\n", css_property_id::top, u" 10px "),
                         u"[a] top=[10px] color=[red]\n"));
  EXPECT_TRUE(same_units(item_and_back(xhtml_stylesheet_comment(u" k\n")), u"/*[k]\n"));
}

TEST(StylesheetRoundTrip, ASemicolonOrAnEndOfRuleEndsAValue) {
  EXPECT_TRUE(same_units(rule_and_back(u"a", css_property_id::top, u"10px;left:20px"),
                         u"[a] top=[10px] left=[20px] color=[red]\n"));
  // The rest of the rule becomes a selector without a brace.
  EXPECT_TRUE(
      same_units(rule_and_back(u"a", css_property_id::top, u"10px}b"), u"[a] top=[10px]\n"));
}

TEST(StylesheetRoundTrip, APropertyOutsideTheTableIsLost) {
  EXPECT_TRUE(same_units(rule_and_back(u"a", css_property_id{property_end}, u"10px"),
                         u"[a] color=[red]\n"));
}

TEST(StylesheetRoundTrip, AnEmptySelectorLosesItsRule) {
  EXPECT_TRUE(same_units(rule_and_back(u"", css_property_id::top, u"10px"), u""));
}

TEST(StylesheetRoundTrip, ASelectorBreaksAtBracesAndSlashes) {
  EXPECT_TRUE(same_units(rule_and_back(u"a/b", css_property_id::top, u"10px"),
                         u"[a] top=[10px] color=[red]\n"));
  EXPECT_TRUE(
      same_units(rule_and_back(u"a{b", css_property_id::top, u"10px"), u"[a] color=[red]\n"));
}

TEST(StylesheetRoundTrip, ASelectorThatBeginsWithAnAtLosesItsFirstWord) {
  EXPECT_TRUE(same_units(rule_and_back(u"@page left", css_property_id::top, u"10px"),
                         u"[left] top=[10px] color=[red]\n"));
}

TEST(StylesheetRoundTrip, AByteOrderMarkAtTheBeginningIsLost) {
  EXPECT_TRUE(same_units(rule_and_back(u"\uFEFFa", css_property_id::top, u"10px"),
                         u"[a] top=[10px] color=[red]\n"));
}

TEST(StylesheetRoundTrip, ACommentEndsAtItsFirstClosingMark) {
  EXPECT_TRUE(same_units(item_and_back(xhtml_stylesheet_comment(u"a */ b")), u"/*[a]\n"));
}

TEST(StylesheetRoundTrip, AnImportOfTwoUnitsIsLost) {
  EXPECT_TRUE(same_units(item_and_back(xhtml_stylesheet_import(u"ab")), u""));
  EXPECT_TRUE(same_units(item_and_back(xhtml_stylesheet_import(u"abc")), u"@[abc]\n"));
}

TEST(StylesheetRoundTrip, AnImportLosesItsClosingQuoteAndBreaksAtABlank) {
  EXPECT_TRUE(same_units(item_and_back(xhtml_stylesheet_import(u"\"a.css\"")), u"@[\"a.css]\n"));
  EXPECT_TRUE(
      same_units(item_and_back(xhtml_stylesheet_import(u"print.css b")), u"@[print.css]\n"));
}

}  // namespace
}  // namespace test
