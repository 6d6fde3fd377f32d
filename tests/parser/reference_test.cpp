#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <locale>
#include <random>
#include <sstream>
#include <string>

#include "support/allocation_failure.h"
#include "support/golden.h"
#include "support/text.h"
#include "xport/parser/character_reference.h"
#include "xport/parser/xhtml_parser.h"

namespace {

using test::same_units;
using Xport::char16;
using Xport::character_reference;
using Xport::reference_form;
using Xport::ustring;
using Xport::ustring_view;
using Xport::xhtml_parser;

/// A parser with the stock table.
class stock_parser : public xhtml_parser {
 public:
  stock_parser() : xhtml_parser(nullptr) {
    load_default_references(references);
    rebuild_reference_indexes(*this);
  }

  void prefer(int code, reference_form form) {
    auto entry = references.extract(references.find(static_cast<std::int16_t>(code)));
    entry.value().form = form;
    references.insert(std::move(entry));
    rebuild_reference_indexes(*this);
  }

  void add(reference_form form, char16 character, ustring_view name, std::int16_t code) {
    references.insert({form, character, ustring(name), code});
    rebuild_reference_indexes(*this);
  }
};

ustring normalized(xhtml_parser& parser, ustring_view text) {
  ustring rewritten(text);
  parser.normalize_references(rewritten);
  return rewritten;
}

/// What the stock table makes of `text`. What it makes of that must be the same again.
ustring normalized(ustring_view text) {
  stock_parser parser;
  const ustring once = normalized(parser, text);
  EXPECT_TRUE(same_units(normalized(parser, once), once)) << "is rewritten again";
  return once;
}

TEST(NormalizeReferences, PlainTextStays) {
  EXPECT_TRUE(same_units(normalized(u""), u""));
  EXPECT_TRUE(same_units(normalized(u"plain # text; 12\n"), u"plain # text; 12\n"));
}

TEST(NormalizeReferences, ABareAmpersandIsNamed) {
  EXPECT_TRUE(same_units(normalized(u"a & b"), u"a &amp; b"));
  EXPECT_TRUE(same_units(normalized(u"&"), u"&amp;"));
  EXPECT_TRUE(same_units(normalized(u"a&"), u"a&amp;"));
  EXPECT_TRUE(same_units(normalized(u"&&&"), u"&amp;&amp;&amp;"));
  EXPECT_TRUE(same_units(normalized(u"a&b c"), u"a&amp;b c"));
  EXPECT_TRUE(same_units(normalized(u"&abc"), u"&amp;abc"));
  EXPECT_TRUE(same_units(normalized(u"?a=1&b=2&c=3"), u"?a=1&amp;b=2&amp;c=3"));
}

TEST(NormalizeReferences, NamedReferencesStayKnownOrNot) {
  for (const char16_t* text : {u"&amp;", u"&nbsp;", u"&unknown;", u"&copy;", u"&AMP;", u"&lt;&gt;",
                               u"&Auml;", u"&shy;", u"&a1b2;", u"&;", u"x&quot;y"})
    EXPECT_TRUE(same_units(normalized(text), text));
}

TEST(NormalizeReferences, NumbersOfTheTableAreNamed) {
  EXPECT_TRUE(same_units(normalized(u"&#38;"), u"&amp;"));
  EXPECT_TRUE(same_units(normalized(u"&#169;"), u"&copy;"));
  EXPECT_TRUE(same_units(normalized(u"a&#60;b&#62;c"), u"a&lt;b&gt;c"));
  EXPECT_TRUE(same_units(normalized(u"&#38;#38;"), u"&amp;#38;"));
  EXPECT_TRUE(same_units(normalized(u"&#0000038;"), u"&amp;"));
  EXPECT_TRUE(same_units(normalized(u"&#00000000000000000000000000000169;"), u"&copy;"));
}

TEST(NormalizeReferences, OtherNumbersStay) {
  for (const char16_t* text :
       {u"&#160;", u"&#65;", u"&#173;", u"&#192;", u"&#0;", u"&#32767;", u"&#32768;", u"&#65574;",
        u"&#65535;", u"&#4294967334;", u"&#18446744073709551654;", u"&#99999999999999999999999;",
        u"&#;", u"&#;&#;"})
    EXPECT_TRUE(same_units(normalized(text), text));
}

TEST(NormalizeReferences, HexadecimalReferencesStay) {
  EXPECT_TRUE(same_units(normalized(u"&#x26;"), u"&#x26;"));
  EXPECT_TRUE(same_units(normalized(u"&#XA9;"), u"&#XA9;"));
}

TEST(NormalizeReferences, CharactersOfTheTableAreNamed) {
  EXPECT_TRUE(same_units(normalized(u"\"'<>"), u"&quot;&apos;&lt;&gt;"));
  EXPECT_TRUE(same_units(normalized(u"\u00A9"), u"&copy;"));
  EXPECT_TRUE(same_units(normalized(u"2\u00D73\u00F74"), u"2&times;3&divide;4"));
}

TEST(NormalizeReferences, OtherCharactersStay) {
  for (const char16_t* text : {u"\u00A0", u"\u00AD", u" ", u"\u00C0\u00FF", u"\t\n", u"\u0100"})
    EXPECT_TRUE(same_units(normalized(text), text));
}

TEST(NormalizeReferences, EveryUnitByItsLowByte) {
  stock_parser parser;
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
    const auto entry = parser.by_character.find(static_cast<char16>(unit & 0xFF));
    const ustring text(1, static_cast<char16>(unit));
    const ustring expected = entry != parser.by_character.end() ? u"&" + entry->name + u";" : text;
    ASSERT_TRUE(same_units(normalized(parser, text), expected)) << unit;
  }
}

TEST(NormalizeReferences, TheLowByteAloneDecides) {
  EXPECT_TRUE(same_units(normalized(u"\u0122"), u"&quot;"));
  EXPECT_TRUE(same_units(normalized(u"\u0126"), u"&amp;"));
  EXPECT_TRUE(same_units(normalized(u"\u0126amp;"), u"&amp;amp;"));
  EXPECT_TRUE(same_units(normalized(u"\u013C\u203E\xD83D\xDEA9"), u"&lt;&gt;\xD83D&copy;"));
}

TEST(NormalizeReferences, TheUnitThatBreaksANumberSpellsTheAmpersand) {
  EXPECT_TRUE(same_units(normalized(u"&#12\""), u"&quot;#12&quot;"));
  EXPECT_TRUE(same_units(normalized(u"&#\u0122"), u"&quot;#&quot;"));
  EXPECT_TRUE(same_units(normalized(u"&#&#38;"), u"&amp;#&amp;"));
  EXPECT_TRUE(same_units(normalized(u"&#38<"), u"&lt;#38&lt;"));
}

TEST(NormalizeReferences, AUnitThatBreaksANumberAndHasNoEntryIsPassed) {
  EXPECT_TRUE(same_units(normalized(u"&#12 \""), u"&#12 &quot;"));
  EXPECT_TRUE(same_units(normalized(u"&#12"), u"&#12"));
  EXPECT_TRUE(same_units(normalized(u"&#"), u"&#"));
  EXPECT_TRUE(same_units(normalized(u"&#x\""), u"&#x&quot;"));
}

TEST(NormalizeReferences, ZerosAreUnitsLikeAnyOther) {
  const ustring text = {u'\0', u'&', u'\0', u'"', u'\0'};
  EXPECT_TRUE(same_units(normalized(text), u'\0' + ustring(u"&amp;") + u'\0' + u"&quot;" + u'\0'));
}

// Other forms.

TEST(NormalizeReferences, TheCharacterMayBePreferred) {
  stock_parser parser;
  parser.prefer(169, reference_form::form_character);
  EXPECT_TRUE(same_units(normalized(parser, u"&#169;"), u"\u00A9"));
  EXPECT_TRUE(same_units(normalized(parser, u"&copy;"), u"\u00A9;"));
  EXPECT_TRUE(same_units(normalized(parser, u"\u00A9"), u"\u00A9"));
  EXPECT_TRUE(same_units(normalized(parser, u"&Copy;&cop;&copy1;"), u"&Copy;&cop;&copy1;"));
  EXPECT_TRUE(same_units(normalized(parser, u"&copy"), u"&amp;copy"));
}

TEST(NormalizeReferences, TheNumberMayBePreferred) {
  stock_parser parser;
  parser.prefer(169, reference_form::form_numeric);
  EXPECT_TRUE(same_units(normalized(parser, u"\u00A9"), u"&#169;"));
  EXPECT_TRUE(same_units(normalized(parser, u"&#169;"), u"&#169;"));
  EXPECT_TRUE(same_units(normalized(parser, u"&copy;"), u"&#169;;"));
}

TEST(NormalizeReferences, NoFormTakesNoPart) {
  stock_parser parser;
  parser.prefer(169, reference_form::form_none);
  EXPECT_TRUE(same_units(normalized(parser, u"\u00A9&#169;&copy;"), u"\u00A9&#169;&copy;"));
}

TEST(NormalizeReferences, WithoutIndexesTextStays) {
  xhtml_parser parser(nullptr);
  EXPECT_TRUE(same_units(normalized(parser, u"a & \"b\" &#38; &copy;"), u"a & \"b\" &#38; &copy;"));
}

TEST(NormalizeReferences, AnAmpersandThatStaysTakesTheUnitBehindTheNameAlong) {
  stock_parser parser;
  parser.prefer(38, reference_form::form_character);
  EXPECT_TRUE(same_units(normalized(parser, u"&\"\""), u"&\"&quot;"));
  EXPECT_TRUE(same_units(normalized(parser, u"&abc\"\""), u"&abc\"&quot;"));
  EXPECT_TRUE(same_units(normalized(parser, u"&&\""), u"&&&quot;"));
  EXPECT_TRUE(same_units(normalized(parser, u"&"), u"&"));
  EXPECT_TRUE(same_units(normalized(parser, u"&#38;lt;"), u"&lt;"));
  EXPECT_TRUE(same_units(normalized(parser, u"&amp;\""), u"&;&quot;"));
}

TEST(NormalizeReferences, AfterAReplacedNameTheSemicolonIsLookedAt) {
  stock_parser parser;
  parser.prefer(169, reference_form::form_character);
  parser.add(reference_form::form_named, u';', u"semi", 59);
  EXPECT_TRUE(same_units(normalized(parser, u"&copy;"), u"\u00A9&semi;"));
  EXPECT_TRUE(same_units(normalized(parser, u"&amp;;"), u"&amp;&semi;"));
  EXPECT_TRUE(same_units(normalized(parser, u"&#169;;"), u"\u00A9&semi;"));
}

TEST(NormalizeReferences, TheEndOfTheTextCountsAsAZero) {
  stock_parser parser;
  parser.add(reference_form::form_named, u'\0', u"nul", 0);
  EXPECT_TRUE(same_units(normalized(parser, u"&#12"), u"&nul;#12"));
  EXPECT_TRUE(same_units(normalized(parser, u"&#"), u"&nul;#"));
  EXPECT_TRUE(same_units(normalized(parser, u"&"), u"&amp;"));
  EXPECT_TRUE(same_units(normalized(parser, ustring(1, u'\0')), u"&nul;"));
  EXPECT_TRUE(same_units(normalized(parser, u"\u0100&#0;"), u"&nul;&nul;"));
}

TEST(NormalizeReferences, AnEntryForANumberSign) {
  stock_parser parser;
  parser.add(reference_form::form_named, u'#', u"num", 35);
  EXPECT_TRUE(same_units(normalized(parser, u"&#12\""), u"&quot;&num;12&quot;"));
  EXPECT_TRUE(same_units(normalized(parser, u"&##"), u"&num;&num;&num;"));
}

TEST(NormalizeReferences, CharactersAbove255AreFoundByNumberAndNameOnly) {
  stock_parser parser;
  parser.add(reference_form::form_named, u'\u20AC', u"euro", 8364);
  EXPECT_TRUE(same_units(normalized(parser, u"\u20AC"), u"&not;"));
  EXPECT_TRUE(same_units(normalized(parser, u"&#8364;"), u"&euro;"));
  parser.prefer(8364, reference_form::form_character);
  EXPECT_TRUE(same_units(normalized(parser, u"&#8364;&euro;"), u"\u20AC\u20AC;"));
}

TEST(NormalizeReferences, TheLargestNumberOfTheType) {
  stock_parser parser;
  parser.add(reference_form::form_named, u'\u7FFF', u"max", 32767);
  EXPECT_TRUE(same_units(normalized(parser, u"&#32767;&#032767;"), u"&max;&max;"));
  EXPECT_TRUE(same_units(normalized(parser, u"&#32768;&#98303;"), u"&#32768;&#98303;"));
}

TEST(NormalizeReferences, NegativeCodesAreFoundByNoNumber) {
  stock_parser parser;
  parser.add(reference_form::form_named, u'x', u"minus", -1);
  EXPECT_TRUE(same_units(normalized(parser, u"&#-1;&#65535;"), u"&#-1;&#65535;"));
  EXPECT_TRUE(same_units(normalized(parser, u"x"), u"&minus;"));
}

TEST(NormalizeReferences, ANameMayBeEmpty) {
  stock_parser parser;
  parser.add(reference_form::form_numeric, u'x', u"", 1);
  EXPECT_TRUE(same_units(normalized(parser, u"&;"), u"&#1;;"));
}

TEST(NormalizeReferences, AnEntryWithoutASpellingLeavesNothing) {
  xhtml_parser parser(nullptr);
  parser.by_character.insert({reference_form::form_none, u'x', u"x", 1});
  parser.by_name.insert({reference_form::form_none, u'x', u"gone", 1});
  EXPECT_TRUE(same_units(normalized(parser, u"xaxxbx&gone;x"), u"ab;"));
  EXPECT_TRUE(same_units(normalized(parser, u"x"), u""));
}

TEST(NormalizeReferences, WhatIsRewrittenNeedNotStayWithOtherForms) {
  stock_parser parser;
  parser.prefer(38, reference_form::form_character);
  EXPECT_TRUE(same_units(normalized(parser, u"&#38;#60;"), u"&#60;"));
  EXPECT_TRUE(same_units(normalized(parser, u"&#60;"), u"&lt;"));
}

// Locales.

/// Says that the Arabic digits are digits too, and that the Latin "z" is no letter.
class more_digits : public std::ctype<wchar_t> {
  bool do_is(mask classes, char_type unit) const override {
    if (unit >= 0x0660 && unit <= 0x0669) return (classes & (digit | alnum)) != 0;
    if (unit == L'z') return false;
    return std::ctype<wchar_t>::do_is(classes, unit);
  }
};

class NormalizeReferencesInALocale : public testing::Test {
 protected:
  NormalizeReferencesInALocale()
      : before_(std::locale::global(std::locale(std::locale(), new more_digits))) {}
  ~NormalizeReferencesInALocale() override { std::locale::global(before_); }

 private:
  std::locale before_;
};

TEST_F(NormalizeReferencesInALocale, DigitsThatNoNumberIsMadeOfFindNothing) {
  EXPECT_TRUE(same_units(normalized(u"&#\u0663\u0668;"), u"&#\u0663\u0668;"));
  EXPECT_TRUE(same_units(normalized(u"&#\u066338;"), u"&#\u066338;"));
}

TEST_F(NormalizeReferencesInALocale, ANumberEndsAtSuchADigit) {
  EXPECT_TRUE(same_units(normalized(u"&#38\u0663;"), u"&amp;"));
}

TEST_F(NormalizeReferencesInALocale, NamesEndWhereTheLocaleSaysSo) {
  EXPECT_TRUE(same_units(normalized(u"&a\u0663;"), u"&a\u0663;"));
  EXPECT_TRUE(same_units(normalized(u"&aza;"), u"&amp;aza;"));
}

// Chance.

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
    const ustring actual = normalized(parser, text);
    ASSERT_TRUE(same_units(actual, expected)) << test::printable(text);
    ASSERT_TRUE(same_units(normalized(parser, actual), actual)) << test::printable(text);
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
      ASSERT_TRUE(same_units(normalized(parser, text), expected)) << test::printable(text);
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
    const ustring once = normalized(parser, text);
    ASSERT_TRUE(same_units(normalized(parser, once), once)) << test::printable(text);
  }
}

// Cost.

TEST(NormalizeReferencesCost, ATextOfQuotesTakesLinearTime) {
  stock_parser parser;
  constexpr std::size_t count = 10'000'000;
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
  EXPECT_TRUE(same_units(normalized(parser, u"&" + letters), u"&amp;" + letters));
  EXPECT_TRUE(same_units(normalized(parser, u"&" + letters + u";"), u"&" + letters + u";"));
  EXPECT_TRUE(same_units(normalized(parser, u"&#" + digits), u"&#" + digits));
  EXPECT_TRUE(same_units(normalized(parser, u"&#" + digits + u";"), u"&#" + digits + u";"));
  EXPECT_TRUE(same_units(normalized(parser, u"&#" + digits + u"<"), u"&lt;#" + digits + u"&lt;"));
  ustring expected;
  for (std::size_t i = 0; i < count; ++i) expected += u"&amp;#";
  expected.pop_back();
  ustring text;
  for (std::size_t i = 0; i < count; ++i) text += u"&#";
  text.pop_back();
  EXPECT_TRUE(same_units(normalized(parser, text), expected));
}

TEST(NormalizeReferencesCost, ATextThatStaysIsNotCopied) {
  stock_parser parser;
  ustring text(1'000'000, u'x');
  text += u"&copy;&#65;&#12 ";
  const char16* const units = text.data();
  const std::size_t before = test::allocation_calls();
  parser.normalize_references(text);
  EXPECT_EQ(test::allocation_calls(), before);
  EXPECT_EQ(text.data(), units);
}

TEST(NormalizeReferencesCost, ATextStaysAsItWasWhenMemoryRunsOut) {
  stock_parser parser;
  const ustring before = u"a text that is long enough for memory of its own & \"more\"";
  ustring text = before;
  const std::size_t failures = test::fail_each_allocation(
      [&] { parser.normalize_references(text); }, [&] { ASSERT_TRUE(same_units(text, before)); });
  EXPECT_GE(failures, 1u);
  EXPECT_TRUE(
      same_units(text, u"a text that is long enough for memory of its own &amp; &quot;more&quot;"));
}

}  // namespace
