#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>
#include <sstream>
#include <string>

#include "tests/parser/reference_kit.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/golden.h"
#include "tests/support/text.h"

namespace test {
namespace {

/// The same rules step by step on the text itself.
void normalize_in_place(const xhtml_parser& parser, ustring& text) {
  const auto unit_at = [&text](std::size_t at) { return at < text.size() ? text[at] : u'\0'; };
  const auto is_digit = [](char16 unit) { return unit >= u'0' && unit <= u'9'; };
  const auto is_alnum = [&](char16 unit) {
    return is_digit(unit) || (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
  };
  const auto by_character = [&parser](char16 unit) -> const character_reference* {
    for (const character_reference& entry : parser.by_character)
      if (entry.character == (unit & 255)) return &entry;
    return nullptr;
  };
  const auto replace = [&text](std::size_t at, std::size_t count,
                               const character_reference& entry) {
    ustring spelling;
    if (entry.form == reference_form::form_character) spelling = ustring(1, entry.character);
    if (entry.form == reference_form::form_named) spelling = u"&" + entry.name + u";";
    if (entry.form == reference_form::form_numeric) {
      spelling = u"&#";
      for (const char digit : std::to_string(entry.code)) spelling += static_cast<char16>(digit);
      spelling += u";";
    }
    text.erase(at, count);
    text.insert(at, spelling);
    return at + spelling.size() - 1;
  };
  for (std::size_t at = 0; at < text.size();) {
    std::size_t last = at;
    if (text[at] != u'&') {
      if (const auto* entry = by_character(text[at])) last = replace(at, 1, *entry);
    } else if (unit_at(at + 1) == u'#') {
      std::size_t p = at + 2;
      while (is_digit(unit_at(p))) ++p;
      last = p;
      if (unit_at(p) == u';') {
        std::istringstream number(std::string(text.begin() + static_cast<std::ptrdiff_t>(at) + 2,
                                              text.begin() + static_cast<std::ptrdiff_t>(p)));
        std::int16_t code = 0;
        if (number >> code)
          for (const character_reference& entry : parser.by_code)
            if (entry.code == code) {
              last = replace(at, p - at + 1, entry);
              break;
            }
      } else if (const auto* entry = by_character(unit_at(p))) {
        last = replace(at, 1, *entry);
      }
    } else {
      std::size_t p = at + 1;
      while (is_alnum(unit_at(p))) ++p;
      last = p;
      if (unit_at(p) == u';') {
        for (const character_reference& entry : parser.by_name)
          if (entry.name == text.substr(at + 1, p - at - 1)) {
            last = replace(at, p - at, entry);
            break;
          }
      } else if (const auto* entry = by_character(u'&')) {
        last = replace(at, 1, *entry);
      }
    }
    at = last + 1;
  }
}

constexpr ustring_view pieces[] = {
    u"&",      u"&",    u"&#",    u"#",      u";",      u";",      u"3",      u"38",
    u"169",    u"0",    u"99999", u"a",      u"b1",     u"amp",    u"copy",   u"lt",
    u"&copy;", u"\"",   u"'",     u"<",      u"\u00A9", u"\u00A0", u" ",      u"x",
    u"-",      u"nbsp", u"&#60",  u"\u0126", u"\u013B", u"\u0122", u"\xD83D", u"\u0100"};

ustring random_text(std::mt19937& random) {
  ustring text;
  for (std::size_t left = random() % 14; left != 0; --left)
    text += pieces[random() % std::size(pieces)];
  return text;
}

TEST(NormalizeReferencesRandom, TheStockTableDoesWhatTheStepsSay) {
  stock_parser parser;
  std::mt19937 random(1);
  for (int round = 0; round < 30'000; ++round) {
    const ustring text = random_text(random);
    ustring expected = text;
    normalize_in_place(parser, expected);
    const ustring actual = normalized_by(parser, text);
    ASSERT_TRUE(same_units(actual, expected)) << printable(text);
    ASSERT_TRUE(same_units(normalized_by(parser, actual), actual)) << printable(text);
  }
}

TEST(NormalizeReferencesRandom, AnyTableDoesWhatTheStepsSay) {
  std::mt19937 random(2);
  for (int round = 0; round < 500; ++round) {
    stock_parser parser;
    parser.add(reference_form::form_none, u'\0', u"nul", 0);
    parser.add(reference_form::form_none, u';', u"semi", 59);
    parser.add(reference_form::form_none, u'#', u"num", 35);
    parser.add(reference_form::form_none, u'"', u"b1", -3);
    parser.add(reference_form::form_none, u'&', u"", 3);
    parser.add(reference_form::form_none, u'\u0126', u"a", 383);
    for (const int code : {0, 59, 35, -3, 3, 383, 34, 38, 39, 60, 160, 169})
      parser.prefer(code, reference_form{static_cast<std::uint32_t>(random() % 4)});
    for (int more = 0; more < 20; ++more) {
      const ustring text = random_text(random);
      ustring expected = text;
      normalize_in_place(parser, expected);
      ASSERT_TRUE(same_units(normalized_by(parser, text), expected)) << printable(text);
    }
  }
}

TEST(NormalizeReferencesRandom, TextsOfAnyUnitsStayWhenTheyAreRewrittenAgain) {
  stock_parser parser;
  std::mt19937 random(3);
  for (int round = 0; round < 5'000; ++round) {
    ustring text;
    for (std::size_t left = random() % 40; left != 0; --left)
      text +=
          random() % 3 == 0 ? static_cast<char16>(random()) : u"&#;0123456789amp"[random() % 16];
    const ustring once = normalized_by(parser, text);
    ASSERT_TRUE(same_units(normalized_by(parser, once), once)) << printable(text);
  }
}

// Cost.

TEST(NormalizeReferencesCost, ATextOfQuotesCostsLinearTime) {
  stock_parser parser;
  constexpr std::size_t count = 1'000'000;
  ustring text(count, u'"');
  parser.normalize_references(text);
  ASSERT_EQ(text.size(), 6 * count);
  for (std::size_t at = 0; at < text.size(); at += 6)
    ASSERT_EQ(ustring_view(text).substr(at, 6), u"&quot;");
}

TEST(NormalizeReferencesCost, LongNamesAndNumbersTakeLinearTime) {
  stock_parser parser;
  constexpr std::size_t count = 1'000'000;
  const ustring letters(count, u'a');
  const ustring digits(count, u'1');
  EXPECT_TRUE(same_units(normalized_by(parser, u"&" + letters), u"&amp;" + letters));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&" + letters + u";"), u"&" + letters + u";"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&#" + digits), u"&#" + digits));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&#" + digits + u";"), u"&#" + digits + u";"));
  EXPECT_TRUE(
      same_units(normalized_by(parser, u"&#" + digits + u"<"), u"&lt;#" + digits + u"&lt;"));
  ustring expected;
  for (std::size_t i = 0; i < count; ++i) expected += u"&amp;#";
  expected.pop_back();
  ustring text;
  for (std::size_t i = 0; i < count; ++i) text += u"&#";
  text.pop_back();
  EXPECT_TRUE(same_units(normalized_by(parser, text), expected));
}

TEST(NormalizeReferencesCost, ATextThatStaysIsNotCopied) {
  stock_parser parser;
  ustring text(1'000'000, u'x');
  text += u"&copy;&#65;&#12 ";
  const char16* const units = text.data();
  const std::size_t before = allocation_calls();
  parser.normalize_references(text);
  EXPECT_EQ(allocation_calls(), before);
  EXPECT_EQ(text.data(), units);
}

TEST(NormalizeReferencesCost, ATextStaysAsItWasWhenMemoryRunsOut) {
  stock_parser parser;
  const ustring before = u"a text that is long enough for memory of its own & \"more\"";
  ustring text = before;
  const std::size_t failures = fail_each_allocation([&] { parser.normalize_references(text); },
                                                    [&] { ASSERT_TRUE(same_units(text, before)); });
  EXPECT_GE(failures, 1u);
  EXPECT_TRUE(
      same_units(text, u"a text that is long enough for memory of its own &amp; &quot;more&quot;"));
}

}  // namespace
}  // namespace test
