#include "xport/stylesheet/stylesheet_reader.h"

#include <gtest/gtest.h>

#include <locale>
#include <memory>

#include "tests/stylesheet/sheet_text.h"
#include "tests/support/golden.h"
#include "tests/support/locale.h"

namespace test {
namespace {

/// Whether `text` is read as `expected`, however few units are at hand at a time.
testing::AssertionResult reads_as(ustring_view text, ustring_view expected) {
  for (const std::size_t window : {std::size_t{1}, std::size_t{2}, std::size_t{7}}) {
    const testing::AssertionResult same = same_units(read_listing(text, window), expected);
    if (!same)
      return testing::AssertionFailure() << "in windows of " << window << ": " << same.message();
  }
  return same_units(read_listing(text), expected);
}

TEST(StylesheetReader, AnEmptyTextHasNoItems) {
  EXPECT_TRUE(reads_as(u"", u""));
  EXPECT_TRUE(reads_as(u" \t\r\n\v\f ", u""));
}

// Rules.

TEST(StylesheetReader, ARuleWithItsDeclarationsInOrder) {
  EXPECT_TRUE(reads_as(u"p.note { width: 3px; color: red; width: 4px; }",
                       u"[p.note] width=[3px] color=[red] width=[4px]\n"));
}

TEST(StylesheetReader, ALastValueMayEndAtTheBrace) {
  EXPECT_TRUE(reads_as(u"a { color: red }", u"[a] color=[red]\n"));
  EXPECT_TRUE(reads_as(u"a{color:red}b{top:1em}", u"[a] color=[red]\n[b] top=[1em]\n"));
}

TEST(StylesheetReader, ARuleWithoutDeclarations) {
  EXPECT_TRUE(reads_as(u"a { } b { color: red; }", u"[a]\n[b] color=[red]\n"));
  EXPECT_TRUE(reads_as(u"a{}b{}", u"[a]\n[b]\n"));
}

TEST(StylesheetReader, EqualSelectorsStayTwoRules) {
  EXPECT_TRUE(reads_as(u"a{color:red}a{color:blue}", u"[a] color=[red]\n[a] color=[blue]\n"));
}

TEST(StylesheetReader, ASelectorIsTrimmedAtItsEndsAndKeptWithin) {
  EXPECT_TRUE(reads_as(u"\n ul  >\tli , a:hover \n{}", u"[ul  >\tli , a:hover]\n"));
}

TEST(StylesheetReader, TextBetweenRulesBelongsToTheNextSelector) {
  EXPECT_TRUE(reads_as(u"a{} } ; b{}", u"[a]\n[} ; b]\n"));
}

TEST(StylesheetReader, ATextWithoutABraceHasNoItem) {
  EXPECT_TRUE(reads_as(u"a b c", u""));
  EXPECT_TRUE(reads_as(u"a{} b c", u"[a]\n"));
}

TEST(StylesheetReader, AnEmptySelectorLosesItsBraceOnly) {
  EXPECT_TRUE(reads_as(u"{}", u""));
  EXPECT_TRUE(reads_as(u"{ a { color: red; }", u"[a] color=[red]\n"));
  EXPECT_TRUE(reads_as(u"{color:red;} a {left:1em}", u"[color:red;} a] left=[1em]\n"));
}

// Property names.

TEST(StylesheetReader, APropertyNameIsTrimmed) {
  EXPECT_TRUE(reads_as(u"a{\n color \t: red;}", u"[a] color=[red]\n"));
}

TEST(StylesheetReader, APropertyInUpperCaseIsSkippedWithItsValue) {
  EXPECT_TRUE(reads_as(u"a { COLOR: red; Top: 1px; left: 2px; }", u"[a] left=[2px]\n"));
}

TEST(StylesheetReader, WidowsIsReadUnderTheNameThatIsWritten) {
  EXPECT_TRUE(reads_as(u"p { widows: 200; orphans: 300; }", u"[p] orphans=[300]\n"));
  EXPECT_TRUE(reads_as(u"p { widowsL: 200; orphans: 300; }", u"[p] widowsL=[200] orphans=[300]\n"));
}

TEST(StylesheetReader, TheValueOfAnUnknownPropertyFollowsTheRulesOfValues) {
  // "2" is too short for a value even if it is thrown away, and includes the next one.
  EXPECT_TRUE(reads_as(u"p { widows: 2; orphans: 300; top: 1px }", u"[p] top=[1px]\n"));
  EXPECT_TRUE(reads_as(u"p { x: 'abc';'color: red; top: 1px }", u"[p] color=[red] top=[1px]\n"));
}

TEST(StylesheetReader, ANameDoesNotEndAtASemicolonOrAnOpeningBrace) {
  EXPECT_TRUE(reads_as(u"a{;color:red;top:1px}", u"[a] top=[1px]\n"));
  EXPECT_TRUE(reads_as(u"a{color;top:1px;left:2px}", u"[a] left=[2px]\n"));
  EXPECT_TRUE(reads_as(u"a{b{color:red;top:1px}", u"[a] top=[1px]\n"));
}

TEST(StylesheetReader, ANameThatTheBraceEndsIsLost) {
  EXPECT_TRUE(reads_as(u"a{color} b{}", u"[a]\n[b]\n"));
  EXPECT_TRUE(reads_as(u"a{top:1px;color red} b{}", u"[a] top=[1px]\n[b]\n"));
}

TEST(StylesheetReader, ABraceAfterTheColonOfAnUnknownPropertyEndsTheRule) {
  EXPECT_TRUE(reads_as(u"a{foo:} b{}", u"[a]\n[b]\n"));
  EXPECT_TRUE(reads_as(u"a{:} b{}", u"[a]\n[b]\n"));
  // With a blank it is an empty value, which continues after the brace.
  EXPECT_TRUE(reads_as(u"a{foo: } bcd; top:1px}", u"[a] top=[1px]\n"));
}

// Values.

TEST(StylesheetReader, AValueIsTrimmedAtItsEndsAndKeptWithin) {
  EXPECT_TRUE(reads_as(u"a{margin:\n 1px  2px\t3px \n;}", u"[a] margin=[1px  2px\t3px]\n"));
}

TEST(StylesheetReader, AValueKeepsColonsBracesAndSlashes) {
  EXPECT_TRUE(reads_as(u"a{background: url(http://x/{y) /*k*/;}",
                       u"[a] background=[url(http://x/{y) /*k*/]\n"));
}

TEST(StylesheetReader, AShortValueIncludesTheNextDeclarationLessOneUnit) {
  EXPECT_TRUE(reads_as(u"a { margin: 0; padding: 1px; }", u"[a] margin=[0padding: 1px]\n"));
  EXPECT_TRUE(reads_as(u"a{margin:0;padding:1px;}", u"[a] margin=[0adding:1px]\n"));
  EXPECT_TRUE(reads_as(u"a { margin: 10; padding: 1px; }", u"[a] margin=[10padding: 1px]\n"));
  EXPECT_TRUE(reads_as(u"a { margin: 0;  padding: 1px; }", u"[a] margin=[0 padding: 1px]\n"));
}

TEST(StylesheetReader, AValueOfThreeUnitsStops) {
  EXPECT_TRUE(reads_as(u"a { margin: 100; padding: 1px; }", u"[a] margin=[100] padding=[1px]\n"));
}

TEST(StylesheetReader, AShortValueContinuesAsOftenAsItIsShort) {
  EXPECT_TRUE(reads_as(u"a{top:0;x;y;left:1px;}", u"[a] top=[0eft:1px]\n"));
  EXPECT_TRUE(reads_as(u"a{top:;;;;;;;;red;}", u"[a] top=[red]\n"));
}

TEST(StylesheetReader, AnEmptyValueContinuesToo) {
  EXPECT_TRUE(reads_as(u"a { top: ; color: red; }", u"[a] top=[color: red]\n"));
}

TEST(StylesheetReader, AShortValueIsTrimmedBeforeItContinues) {
  EXPECT_TRUE(reads_as(u"a { top:   0   ;xabc; }", u"[a] top=[0abc]\n"));
  // The blanks after the unit that is lost end up inside.
  EXPECT_TRUE(reads_as(u"a { top: 0;x  abc; }", u"[a] top=[0  abc]\n"));
  EXPECT_TRUE(reads_as(u"a { top: 0;x b ; }", u"[a] top=[0 b]\n"));
}

TEST(StylesheetReader, AShortLastValueIncludesTheNextRule) {
  EXPECT_TRUE(reads_as(u"a { top: 0 } b { left: 10px; }", u"[a] top=[0 b { left: 10px]\n"));
  EXPECT_TRUE(
      reads_as(u"a { top: 0 } b { left: 10px; } c{}", u"[a] top=[0 b { left: 10px]\n[c]\n"));
  EXPECT_TRUE(reads_as(u"a { top: 0 } b { } c{}", u"[a] top=[0 b {]\n[c]\n"));
}

TEST(StylesheetReader, QuotesOfAValue) {
  EXPECT_TRUE(reads_as(u"a { font-family: \"Arial\"; }", u"[a] font-family=[\"Arial]\n"));
  EXPECT_TRUE(reads_as(u"a { font-family: 'Arial'; }", u"[a] font-family=['Arial]\n"));
  EXPECT_TRUE(reads_as(u"a { font-family: 'Arial' }", u"[a] font-family=['Arial]\n"));
  EXPECT_TRUE(reads_as(u"a { font-family: Arial'; }", u"[a] font-family=[Arial]\n"));
  EXPECT_TRUE(reads_as(u"a { font-family: Arial\"'; }", u"[a] font-family=[Arial\"]\n"));
  EXPECT_TRUE(reads_as(u"a { font-family: ''; top:1px; }", u"[a] font-family=[''top:1px]\n"));
  EXPECT_TRUE(reads_as(u"a { font-family: '''; }", u"[a] font-family=['']\n"));
  EXPECT_TRUE(reads_as(u"a { font-family: 'A B', C; }", u"[a] font-family=['A B', C]\n"));
}

TEST(StylesheetReader, AQuoteAfterTheEndOfAValueIsLost) {
  EXPECT_TRUE(reads_as(u"a{color:red;'top:1px;}", u"[a] color=[red] top=[1px]\n"));
  EXPECT_TRUE(reads_as(u"a{color:red;\"top:1px;}", u"[a] color=[red] top=[1px]\n"));
  EXPECT_TRUE(reads_as(u"a{color:red;''top:1px;left:2px}", u"[a] color=[red] left=[2px]\n"));
  EXPECT_TRUE(reads_as(u"a{color:'red';'top:1px;}", u"[a] color=['red] top=[1px]\n"));
}

// Comments.

TEST(StylesheetReader, ACommentBetweenRules) {
  EXPECT_TRUE(reads_as(u"a{} /* x */ b{}", u"[a]\n/*[x]\n[b]\n"));
  EXPECT_TRUE(reads_as(u"a{}/* x y\n*/b{}", u"[a]\n/*[x y]\n[b]\n"));
}

TEST(StylesheetReader, CommentsMayBeEmpty) {
  EXPECT_TRUE(reads_as(u"/**/", u"/*[]\n"));
  EXPECT_TRUE(reads_as(u"/*  \n */", u"/*[]\n"));
}

TEST(StylesheetReader, StarsAndSlashesWithinAComment) {
  EXPECT_TRUE(reads_as(u"/* a*b / c /* d */", u"/*[a*b / c /* d]\n"));
  EXPECT_TRUE(reads_as(u"/***/", u"/*[*]\n"));
  EXPECT_TRUE(reads_as(u"/****/", u"/*[**]\n"));
  EXPECT_TRUE(reads_as(u"/*a**/", u"/*[a*]\n"));
}

TEST(StylesheetReader, TheStarThatOpensAComment) {
  EXPECT_TRUE(reads_as(u"/*/", u""));
  EXPECT_TRUE(reads_as(u"/*/ a */", u"/*[/ a]\n"));
}

TEST(StylesheetReader, ACommentThatIsNotClosedIsDropped) {
  EXPECT_TRUE(reads_as(u"/* not closed", u""));
  EXPECT_TRUE(reads_as(u"a{} /* not closed *", u"[a]\n"));
  EXPECT_TRUE(reads_as(u"/*", u""));
  EXPECT_TRUE(reads_as(u"/", u""));
}

TEST(StylesheetReader, ALoneSlashBetweenRulesIsLost) {
  EXPECT_TRUE(reads_as(u"/ x { left: 1em; }", u"[x] left=[1em]\n"));
  EXPECT_TRUE(reads_as(u"/x { left: 1em; }", u"[x] left=[1em]\n"));
  EXPECT_TRUE(reads_as(u"// x {}", u"[x]\n"));
  EXPECT_TRUE(reads_as(u"//* k */ x {}", u"/*[k]\n[x]\n"));
}

TEST(StylesheetReader, ACommentInASelectorComesBeforeTheRuleAndCostsOneUnit) {
  EXPECT_TRUE(reads_as(u"a /*k*/ b {}", u"/*[k]\n[a b]\n"));
  EXPECT_TRUE(reads_as(u"a/*k*/bc{}", u"/*[k]\n[ac]\n"));
  EXPECT_TRUE(reads_as(u"a /*k*/{ color: red; } b {}", u"/*[k]\n[a  color: red; } b]\n"));
  EXPECT_TRUE(reads_as(u"a/*k*/ /*l*/ {}", u"/*[k]\n/*[l]\n[a]\n"));
  // Of the second comment the slash is lost.
  EXPECT_TRUE(reads_as(u"a/*k*//*l*/{}", u"/*[k]\n"));
}

TEST(StylesheetReader, ALoneSlashInASelectorCostsOneUnitToo) {
  EXPECT_TRUE(reads_as(u"a/bc {}", u"[ac]\n"));
  EXPECT_TRUE(reads_as(u"a / b {}", u"[a b]\n"));
  EXPECT_TRUE(reads_as(u"a//b {}", u"[ab]\n"));
  EXPECT_TRUE(reads_as(u"a/{}b{}", u"[a}b]\n"));
}

TEST(StylesheetReader, ACommentInAPropertyNameComesBeforeTheRuleAndCostsOneUnit) {
  EXPECT_TRUE(reads_as(u"a{color:red;/*k*/width:3px;}", u"/*[k]\n[a] color=[red]\n"));
  EXPECT_TRUE(reads_as(u"a{color:red;/*k*/ width:3px;}", u"/*[k]\n[a] color=[red] width=[3px]\n"));
  EXPECT_TRUE(reads_as(u"a{ wi/*k*/ dth:3px;}", u"/*[k]\n[a] width=[3px]\n"));
  EXPECT_TRUE(reads_as(u"a{ /*k*/: width:3px; top:1px}", u"/*[k]\n[a] width=[3px] top=[1px]\n"));
}

TEST(StylesheetReader, ALoneSlashInAPropertyNameCostsOneUnitToo) {
  EXPECT_TRUE(reads_as(u"a{wi/xdth:3px;}", u"[a] width=[3px]\n"));
  EXPECT_TRUE(reads_as(u"a{wi//dth:3px;}", u"[a] width=[3px]\n"));
}

TEST(StylesheetReader, ACommentAheadOfTheClosingBraceSwallowsIt) {
  EXPECT_TRUE(reads_as(u"a{color:red;/*k*/}b{top:1px}", u"/*[k]\n[a] color=[red]\n"));
}

TEST(StylesheetReader, ACommentThatIsNotClosedInASelectorLosesIt) {
  EXPECT_TRUE(reads_as(u"a /* b {}", u""));
}

// Imports.

TEST(StylesheetReader, AnImport) {
  EXPECT_TRUE(reads_as(u"@import url(a.css);", u"@[a.css]\n"));
  EXPECT_TRUE(reads_as(u"@import\n\turl(a.css);\na{}", u"@[a.css]\n[a]\n"));
}

TEST(StylesheetReader, AnImportBelowNineUnitsIsNone) {
  EXPECT_TRUE(reads_as(u"@import url(a);", u""));
  EXPECT_TRUE(reads_as(u"@import url(ab);", u""));
  EXPECT_TRUE(reads_as(u"@import url(abc);", u"@[abc]\n"));
  EXPECT_TRUE(reads_as(u"@import url(a); b{}", u"[b]\n"));
}

TEST(StylesheetReader, AnImportKeepsItsOpeningQuote) {
  EXPECT_TRUE(reads_as(u"@import url(\"a.css\");", u"@[\"a.css]\n"));
  EXPECT_TRUE(reads_as(u"@import url('a.css');", u"@['a.css']\n"));
}

TEST(StylesheetReader, AnyFourUnitsOfAnImportAreDropped) {
  EXPECT_TRUE(reads_as(u"@import \"abcdefgh.css\";", u"@[defgh.css]\n"));
  EXPECT_TRUE(reads_as(u"@import 123456789", u"@[56789]\n"));
}

TEST(StylesheetReader, AllOfTheEndOfAnImportIsCut) {
  EXPECT_TRUE(reads_as(u"@import url(a.css)\")\";;\"));", u"@[a.css]\n"));
  EXPECT_TRUE(reads_as(u"@import url(a;)\"b);", u"@[a;)\"b]\n"));
  EXPECT_TRUE(reads_as(u"@import url();;;;;;", u""));
}

TEST(StylesheetReader, AnImportBreaksAtItsFirstBlank) {
  EXPECT_TRUE(reads_as(u"@import url(another file.css); a{}", u"@[another]\n[file.css); a]\n"));
  EXPECT_TRUE(reads_as(u"@import url( a.css ); b{}", u"[a.css ); b]\n"));
}

TEST(StylesheetReader, AnImportWordMustBeExact) {
  EXPECT_TRUE(reads_as(u"@import", u""));
  EXPECT_TRUE(reads_as(u"@import  ", u""));
  EXPECT_TRUE(reads_as(u"@Import url(a.css);", u""));
  EXPECT_TRUE(reads_as(u"@import; a{}", u"[a]\n"));
  EXPECT_TRUE(reads_as(u"@importurl(a.css); a{}", u"[a]\n"));
  EXPECT_TRUE(reads_as(u"@import\"abcdefgh\"; a{}", u"[a]\n"));
}

TEST(StylesheetReader, OtherLinesWithAnAtLoseTheirWordsOneByOne) {
  EXPECT_TRUE(reads_as(u"@charset @page @x a{}", u"[a]\n"));
  EXPECT_TRUE(reads_as(u"@media print { a { color: red; } } b{}", u"[print]\n[} b]\n"));
}

TEST(StylesheetReader, AnAtWithinASelectorIsNoImport) {
  EXPECT_TRUE(reads_as(u"a @import {}", u"[a @import]\n"));
}

TEST(StylesheetReader, ASlashInAnImportIsNoComment) {
  EXPECT_TRUE(reads_as(u"@import url(/*k*/a.css);", u"@[/*k*/a.css]\n"));
}

// Units that are like any other, and the one that ends the text.

TEST(StylesheetReader, KeepsZerosAndHalvesOfSurrogatePairs) {
  const ustring odd = {u'\0', 0xD800, 0x00A0, 0xFEFF, 0xDC00, u'\0'};
  EXPECT_TRUE(reads_as(u"a" + odd + u"{top:" + odd + u"}/*" + odd + u"*/",
                       u"[a" + odd + u"] top=[" + odd + u"]\n/*[" + odd + u"]\n"));
}

TEST(StylesheetReader, TheEndUnitEndsTheText) {
  EXPECT_TRUE(reads_as(u"a{}\uFFFF b{}", u"[a]\n"));
  EXPECT_TRUE(reads_as(u"@import url(a.css);\uFFFF", u"@[a.css]\n"));
  EXPECT_TRUE(reads_as(u"a{color:red\uFFFF;}", u"endless"));
}

TEST(StylesheetReader, TheEndUnitEndsTheTextOfAnOrdinaryStreamToo) {
  xhtml_stylesheet sheet;
  sheet.parse(std::make_unique<std::basic_istringstream<char16>>(u"a{}\uFFFF b{}"));
  EXPECT_TRUE(same_units(listing(sheet), u"[a]\n"));
}

// Texts whose reading never ends.

TEST(StylesheetReader, ATextThatEndsWithinARuleIsNeverReadToItsEnd) {
  EXPECT_TRUE(reads_as(u"a { color: red;", u"endless"));
  EXPECT_TRUE(reads_as(u"a { color: red", u"endless"));
  EXPECT_TRUE(reads_as(u"a { color:", u"endless"));
  EXPECT_TRUE(reads_as(u"a { color", u"endless"));
  EXPECT_TRUE(reads_as(u"a {", u"endless"));
  EXPECT_TRUE(reads_as(u"a { /* k", u"endless"));
  EXPECT_TRUE(reads_as(u"a { /", u"endless"));
  EXPECT_TRUE(reads_as(u"a { x: red;", u"endless"));
}

TEST(StylesheetReader, AShortLastValueIsNeverReadToItsEnd) {
  EXPECT_TRUE(reads_as(u"a { top: 0 }", u"endless"));
  EXPECT_TRUE(reads_as(u"a { top: 10; }", u"endless"));
  EXPECT_TRUE(reads_as(u"a { top: }", u"endless"));
  EXPECT_TRUE(reads_as(u"a { widows: 2; }", u"endless"));
}

TEST(StylesheetReader, WhatIsCompleteStaysWhereReadingNeverEnds) {
  EXPECT_TRUE(reads_as(u"a{} /*k*/ @import url(a.css); b { /*l*/ ",
                       u"[a]\n/*[k]\n@[a.css]\n/*[l]\nendless"));
}

// Locales.

TEST(StylesheetReader, WhiteSpaceIsWhatTheLocaleCallsSpaceOrBlank) {
  const global_locale global(locale_with(L'_', std::ctype_base::blank));
  EXPECT_TRUE(reads_as(u"__a__{_color_:_red_;_top:_1px_}__/*__k__*/__@import__url(a.css);__b{}",
                       u"[a] color=[red] top=[1px]\n/*[k]\n@[a.css]\n[b]\n"));
}

}  // namespace
}  // namespace test
