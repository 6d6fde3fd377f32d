#include <gtest/gtest.h>

#include <locale>

#include "tests/parser/reference_kit.h"
#include "tests/support/golden.h"

namespace test {
namespace {

/// `text` rewritten by the stock table. Rewriting the result must change nothing.
ustring normalized(ustring_view text) {
  stock_parser parser;
  const ustring once = normalized_by(parser, text);
  EXPECT_TRUE(same_units(normalized_by(parser, once), once)) << "is rewritten again";
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
    ASSERT_TRUE(same_units(normalized_by(parser, text), expected)) << unit;
  }
}

TEST(NormalizeReferences, TheLowByteAloneDecides) {
  EXPECT_TRUE(same_units(normalized(u"\u0122"), u"&quot;"));
  EXPECT_TRUE(same_units(normalized(u"\u0126"), u"&amp;"));
  EXPECT_TRUE(same_units(normalized(u"\u0126amp;"), u"&amp;amp;"));
  EXPECT_TRUE(same_units(normalized(u"\u013C\u203E\xD83D\xDEA9"), u"&lt;&gt;\xD83D&copy;"));
}

TEST(NormalizeReferences, TheLowByteMakesNoReference) {
  EXPECT_TRUE(same_units(normalized(u"&\u012338;"), u"&amp;\u012338;"));
  EXPECT_TRUE(same_units(normalized(u"&amp\u013B"), u"&amp;amp\u013B"));
  EXPECT_TRUE(same_units(normalized(u"&#38\u013B"), u"&#38\u013B"));
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
  EXPECT_TRUE(same_units(normalized_by(parser, u"&#169;"), u"\u00A9"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&copy;"), u"\u00A9;"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"\u00A9"), u"\u00A9"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&Copy;&cop;&copy1;"), u"&Copy;&cop;&copy1;"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&copy"), u"&amp;copy"));
}

TEST(NormalizeReferences, TheNumberMayBePreferred) {
  stock_parser parser;
  parser.prefer(169, reference_form::form_numeric);
  EXPECT_TRUE(same_units(normalized_by(parser, u"\u00A9"), u"&#169;"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&#169;"), u"&#169;"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&copy;"), u"&#169;;"));
}

TEST(NormalizeReferences, NoFormIsNeverUsed) {
  stock_parser parser;
  parser.prefer(169, reference_form::form_none);
  EXPECT_TRUE(same_units(normalized_by(parser, u"\u00A9&#169;&copy;"), u"\u00A9&#169;&copy;"));
}

TEST(NormalizeReferences, WithoutIndexesTextStays) {
  xhtml_parser parser(nullptr);
  EXPECT_TRUE(
      same_units(normalized_by(parser, u"a & \"b\" &#38; &copy;"), u"a & \"b\" &#38; &copy;"));
}

TEST(NormalizeReferences, AnAmpersandThatStaysSkipsTheUnitAfterTheName) {
  stock_parser parser;
  parser.prefer(38, reference_form::form_character);
  EXPECT_TRUE(same_units(normalized_by(parser, u"&\"\""), u"&\"&quot;"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&abc\"\""), u"&abc\"&quot;"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&&\""), u"&&&quot;"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&"), u"&"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&#38;lt;"), u"&lt;"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&amp;\""), u"&;&quot;"));
}

TEST(NormalizeReferences, AfterAReplacedNameTheSemicolonIsLookedAt) {
  stock_parser parser;
  parser.prefer(169, reference_form::form_character);
  parser.add(reference_form::form_named, u';', u"semi", 59);
  EXPECT_TRUE(same_units(normalized_by(parser, u"&copy;"), u"\u00A9&semi;"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&amp;;"), u"&amp;&semi;"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&#169;;"), u"\u00A9&semi;"));
}

TEST(NormalizeReferences, TheEndOfTheTextCountsAsAZero) {
  stock_parser parser;
  parser.add(reference_form::form_named, u'\0', u"nul", 0);
  EXPECT_TRUE(same_units(normalized_by(parser, u"&#12"), u"&nul;#12"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&#"), u"&nul;#"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&"), u"&amp;"));
  EXPECT_TRUE(same_units(normalized_by(parser, ustring(1, u'\0')), u"&nul;"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"\u0100&#0;"), u"&nul;&nul;"));
}

TEST(NormalizeReferences, AnEntryForANumberSign) {
  stock_parser parser;
  parser.add(reference_form::form_named, u'#', u"num", 35);
  EXPECT_TRUE(same_units(normalized_by(parser, u"&#12\""), u"&quot;&num;12&quot;"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&##"), u"&num;&num;&num;"));
}

TEST(NormalizeReferences, AReferenceThatStaysIsPassedAsAWhole) {
  stock_parser parser;
  parser.add(reference_form::form_named, u'#', u"num", 35);
  parser.add(reference_form::form_named, u';', u"semi", 59);
  parser.add(reference_form::form_named, u'6', u"six", 54);
  EXPECT_TRUE(same_units(normalized_by(parser, u"&#65;"), u"&#65;"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&a6;"), u"&a6;"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"#6;"), u"&num;&six;&semi;"));
}

TEST(NormalizeReferences, CharactersAbove255AreFoundByNumberAndNameOnly) {
  stock_parser parser;
  parser.add(reference_form::form_named, u'\u20AC', u"euro", 8364);
  EXPECT_TRUE(same_units(normalized_by(parser, u"\u20AC"), u"&not;"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&#8364;"), u"&euro;"));
  parser.prefer(8364, reference_form::form_character);
  EXPECT_TRUE(same_units(normalized_by(parser, u"&#8364;&euro;"), u"\u20AC\u20AC;"));
}

TEST(NormalizeReferences, TheLargestNumberOfTheType) {
  stock_parser parser;
  parser.add(reference_form::form_named, u'\u7FFF', u"max", 32767);
  EXPECT_TRUE(same_units(normalized_by(parser, u"&#32767;&#032767;"), u"&max;&max;"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&#32768;&#98303;"), u"&#32768;&#98303;"));
}

TEST(NormalizeReferences, ANumberWithoutDigitsIsNoZero) {
  stock_parser parser;
  parser.add(reference_form::form_named, u'x', u"zero", 0);
  EXPECT_TRUE(same_units(normalized_by(parser, u"&#;"), u"&#;"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&#0;&#000;"), u"&zero;&zero;"));
}

TEST(NormalizeReferences, NegativeCodesAreFoundByNoNumber) {
  stock_parser parser;
  parser.add(reference_form::form_named, u'x', u"minus", -1);
  EXPECT_TRUE(same_units(normalized_by(parser, u"&#-1;&#65535;"), u"&#-1;&#65535;"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"x"), u"&minus;"));
}

TEST(NormalizeReferences, ANameMayBeEmpty) {
  stock_parser parser;
  parser.add(reference_form::form_numeric, u'x', u"", 1);
  EXPECT_TRUE(same_units(normalized_by(parser, u"&;"), u"&#1;;"));
}

TEST(NormalizeReferences, AnEntryWithoutASpellingLeavesNothing) {
  xhtml_parser parser(nullptr);
  parser.by_character.insert({reference_form::form_none, u'x', u"x", 1});
  parser.by_name.insert({reference_form::form_none, u'x', u"gone", 1});
  EXPECT_TRUE(same_units(normalized_by(parser, u"xaxxbx&gone;x"), u"ab;"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"x"), u""));
}

TEST(NormalizeReferences, WhatIsRewrittenNeedNotStayWithOtherForms) {
  stock_parser parser;
  parser.prefer(38, reference_form::form_character);
  EXPECT_TRUE(same_units(normalized_by(parser, u"&#38;#60;"), u"&#60;"));
  EXPECT_TRUE(same_units(normalized_by(parser, u"&#60;"), u"&lt;"));
}

// Locales.

/// A facet in which the Arabic digits are digits too, and the Latin "z" is no letter.
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

}  // namespace
}  // namespace test
