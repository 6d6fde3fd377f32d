#include <gtest/gtest.h>

#include <istream>
#include <locale>
#include <memory>
#include <sstream>

#include "tests/stylesheet/sheet_text.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/golden.h"
#include "tests/support/locale.h"
#include "tests/support/unit_buffers.h"
#include "tests/support/utf8.h"
#include "xport/stylesheet/xhtml_stylesheet.h"

namespace test {
namespace {

using input = std::basic_istream<char16>;
using text_input = std::basic_istringstream<char16>;

/// Reads the units of a text one at a time and then throws input_broke.
class breaking_input : public input {
 public:
  explicit breaking_input(ustring_view text) : input(nullptr), buffer_(text, 1) { rdbuf(&buffer_); }

 private:
  throwing_buffer buffer_;
};

/// A stream whose end-of-file flag is set where its buffer comes to the end of the text.
class flagging_input : public input {
 public:
  explicit flagging_input(ustring_view text) : input(nullptr), buffer_(text, *this) {
    rdbuf(&buffer_);
  }

 private:
  class flagging_buffer : public std::basic_streambuf<char16> {
   public:
    flagging_buffer(ustring_view text, input& stream) : text_(text), stream_(stream) {
      setg(text_.data(), text_.data(), text_.data() + text_.size());
    }

   protected:
    int_type underflow() override {
      stream_.setstate(std::ios_base::eofbit);
      return traits_type::eof();
    }

   private:
    ustring text_;
    input& stream_;
  };

  flagging_buffer buffer_;
};

/// The listing of what is read from a stream on `text`.
ustring parsed(const ustring& text) {
  xhtml_stylesheet sheet;
  EXPECT_TRUE(sheet.parse(std::make_unique<text_input>(text)));
  xhtml_stylesheet from_copy;
  text_input stream(text);
  EXPECT_TRUE(from_copy.parse(stream));
  EXPECT_TRUE(same_units(listing(from_copy), listing(sheet)));
  return listing(sheet);
}

TEST(StylesheetParse, AnEmptyStreamIsAnEmptySheet) {
  EXPECT_TRUE(same_units(parsed(u""), u""));
  EXPECT_TRUE(same_units(parsed(u"  \n"), u""));
}

TEST(StylesheetParse, ReplacesTheContent) {
  xhtml_stylesheet sheet;
  sheet.add_item(xhtml_stylesheet_comment(u"old"));
  EXPECT_TRUE(sheet.parse(std::make_unique<text_input>(u"a{}")));
  EXPECT_TRUE(same_units(listing(sheet), u"[a]\n"));
  text_input stream(u"b{}");
  EXPECT_TRUE(sheet.parse(stream));
  EXPECT_TRUE(same_units(listing(sheet), u"[b]\n"));
  EXPECT_TRUE(sheet.parse(std::make_unique<text_input>(u"")));
  EXPECT_EQ(sheet.size(), 0u);
}

TEST(StylesheetParse, ANullPointerIsAnEmptySheet) {
  xhtml_stylesheet sheet;
  sheet.add_item(xhtml_stylesheet_comment(u"old"));
  EXPECT_TRUE(sheet.parse(nullptr));
  EXPECT_EQ(sheet.size(), 0u);
}

TEST(StylesheetParse, AFailedStreamIsAnEmptySheet) {
  for (const std::ios_base::iostate state : {std::ios_base::failbit, std::ios_base::badbit}) {
    xhtml_stylesheet sheet;
    sheet.add_item(xhtml_stylesheet_comment(u"old"));
    auto stream = std::make_unique<text_input>(u"a{}");
    stream->setstate(state);
    EXPECT_TRUE(sheet.parse(std::move(stream)));
    EXPECT_EQ(sheet.size(), 0u);
  }
}

TEST(StylesheetParse, AStreamWithoutABufferIsAnEmptySheet) {
  xhtml_stylesheet sheet;
  sheet.add_item(xhtml_stylesheet_comment(u"old"));
  EXPECT_TRUE(sheet.parse(std::make_unique<input>(nullptr)));
  EXPECT_EQ(sheet.size(), 0u);
  input stream(nullptr);
  sheet.add_item(xhtml_stylesheet_comment(u"old"));
  EXPECT_TRUE(sheet.parse(stream));
  EXPECT_EQ(sheet.size(), 0u);
}

TEST(StylesheetParse, TheEndOfFileFlagEndsTheDeclarations) {
  xhtml_stylesheet sheet;
  auto stream = std::make_unique<text_input>(u"a{color:red;} b{");
  stream->setstate(std::ios_base::eofbit);
  EXPECT_TRUE(sheet.parse(std::move(stream)));
  EXPECT_TRUE(same_units(listing(sheet), u"[a]\n[color:red;} b]\n"));
}

TEST(StylesheetParse, TheEndOfFileFlagEndsTheRuleInWhichItIsSet) {
  const auto listed = [](ustring_view text) {
    xhtml_stylesheet sheet;
    EXPECT_TRUE(sheet.parse(std::make_unique<flagging_input>(text)));
    return listing(sheet);
  };
  EXPECT_TRUE(same_units(listed(u"a{color:red;top:1px;"), u"[a] color=[red] top=[1px]\n"));
  EXPECT_TRUE(same_units(listed(u"a{color:red;top:1px"), u"[a] color=[red]\n"));
  EXPECT_TRUE(same_units(listed(u"a{color:red;top:"), u"[a] color=[red]\n"));
  EXPECT_TRUE(same_units(listed(u"a{color:red;top"), u"[a] color=[red]\n"));
  EXPECT_TRUE(same_units(listed(u"a{x:red"), u"[a]\n"));
  EXPECT_TRUE(same_units(listed(u"a{/*k*/ top:0}"), u"/*[k]\n[a]\n"));
  EXPECT_TRUE(same_units(listed(u"a{} b"), u"[a]\n"));
}

TEST(StylesheetParse, ReleasesTheStream) {
  for (const char16_t* text : {u"", u"a{color:red;}", u"\uFEFF a{}"}) {
    int deaths = 0;
    xhtml_stylesheet sheet;
    sheet.parse(std::make_unique<mortal_input>(text, deaths));
    EXPECT_EQ(deaths, 1);
  }
}

TEST(StylesheetParse, ReleasesAStreamOfTheOtherByteOrderAndTheOneMadeOfIt) {
  const ustring text = swapped(u"\uFEFFa{color:red;}");
  const std::size_t before = live_allocations();
  {
    int deaths = 0;
    xhtml_stylesheet sheet;
    sheet.parse(std::make_unique<mortal_input>(text, deaths));
    EXPECT_EQ(deaths, 1);
    EXPECT_TRUE(same_units(listing(sheet), u"[a] color=[red]\n"));
  }
  EXPECT_EQ(live_allocations(), before);
}

TEST(StylesheetParse, LeavesTheStreamThatItCopiesToItsOwner) {
  text_input stream(u"xx a{} \uFFFF b{}");
  stream.ignore(2);
  xhtml_stylesheet sheet;
  EXPECT_TRUE(sheet.parse(stream));
  EXPECT_TRUE(same_units(listing(sheet), u"[a]\n"));
  EXPECT_TRUE(stream.good());
  EXPECT_EQ(stream.tellg(), input::pos_type(7));
  stream.seekg(0);
  EXPECT_TRUE(sheet.parse(stream));
  EXPECT_TRUE(same_units(listing(sheet), u"[xx a]\n"));
}

TEST(StylesheetParse, CopiesFromTheBufferOfAFailedStream) {
  text_input stream(u"a{}");
  stream.setstate(std::ios_base::failbit);
  xhtml_stylesheet sheet;
  EXPECT_TRUE(sheet.parse(stream));
  EXPECT_TRUE(same_units(listing(sheet), u"[a]\n"));
  EXPECT_EQ(stream.rdstate(), std::ios_base::failbit);
}

TEST(StylesheetParse, CopiesInWindowsOfAnySize) {
  for (std::size_t window = 1; window < 20; ++window) {
    counting_end_buffer buffer(u"a { color: red; } /* k */", 1'000'000, window);
    input stream(&buffer);
    xhtml_stylesheet sheet;
    EXPECT_TRUE(sheet.parse(stream));
    EXPECT_TRUE(same_units(listing(sheet), u"[a] color=[red]\n/*[k]\n"));
    EXPECT_TRUE(same_units(buffer.rest(), u""));
  }
}

TEST(StylesheetParse, RemovesByteOrderMarks) {
  const ustring text = u"a{}";
  EXPECT_TRUE(same_units(parsed(u"\uFEFF" + text), u"[a]\n"));
  EXPECT_TRUE(same_units(parsed(u" \uFEFF " + text), u"[a]\n"));
  EXPECT_TRUE(same_units(parsed(u"\uBBEF" + text), u"[a]\n"));
  EXPECT_TRUE(same_units(parsed(u"\uEFBB" + text), u"[a]\n"));
  EXPECT_TRUE(same_units(parsed(ustring(1, u'\0') + text), u"[a]\n"));
  EXPECT_TRUE(same_units(parsed(ustring({u'\0', 0xFFFE}) + text), u"[a]\n"));
  EXPECT_TRUE(same_units(parsed(ustring({0xFEFF, u'\0'}) + text), u"[a]\n"));
  EXPECT_TRUE(same_units(parsed(swapped(u"\uFEFF" + text)), u"[a]\n"));
  EXPECT_TRUE(same_units(parsed(swapped(u"\uFEFF \n" + text)), u"[a]\n"));
}

TEST(StylesheetParse, OneMarkIsRemovedAndTheNextBelongsToTheText) {
  EXPECT_TRUE(same_units(parsed(u"\uFEFF\uFEFFa{}"), u"[\uFEFFa]\n"));
  EXPECT_TRUE(same_units(parsed(swapped(u"\uFEFF\uFEFFa{}")), u"[\uFEFFa]\n"));
}

// Locales: only that of the stream from which units are read counts. The stream that
// replaces a big-endian one, and the one on a copy, have the global locale.

/// The listing of what is read from a stream on `text` that has `locale`.
ustring parsed_in(const std::locale& locale, const ustring& text) {
  xhtml_stylesheet sheet;
  auto stream = std::make_unique<text_input>(text);
  stream->imbue(locale);
  EXPECT_TRUE(sheet.parse(std::move(stream)));
  return listing(sheet);
}

/// The same, but of a copy of the stream.
ustring parsed_copy_in(const std::locale& locale, const ustring& text) {
  xhtml_stylesheet sheet;
  text_input stream(text);
  stream.imbue(locale);
  EXPECT_TRUE(sheet.parse(stream));
  return listing(sheet);
}

std::locale underscore_is(std::ctype_base::mask classes) { return locale_with(L'_', classes); }

/// A sheet with "_" wherever white space is allowed.
constexpr ustring_view spaced =
    u"__a__{_color_:_red_;_top:_1px_}__/*__k__*/__@import__url(a.css);__b{}";
constexpr ustring_view listed_as_space = u"[a] color=[red] top=[1px]\n/*[k]\n@[a.css]\n[b]\n";
constexpr ustring_view listed_as_text = u"[__a__]\n/*[__k__]\n[___@import__url(a.css);__b]\n";

TEST(StylesheetParse, WhiteSpaceIsThatOfTheStream) {
  for (const auto classes : {std::ctype_base::space, std::ctype_base::blank}) {
    const std::locale locale = underscore_is(classes);
    EXPECT_TRUE(same_units(parsed_in(locale, ustring(spaced)), listed_as_space));
    EXPECT_TRUE(same_units(parsed_in(locale, u"\uFEFF" + ustring(spaced)), listed_as_space));
    const global_locale global(locale);
    EXPECT_TRUE(same_units(parsed_in(locale, ustring(spaced)), listed_as_space));
  }
}

TEST(StylesheetParse, WhiteSpaceOfTheGlobalLocaleIsText) {
  const global_locale global(underscore_is(std::ctype_base::space));
  const std::locale& locale = std::locale::classic();
  EXPECT_TRUE(same_units(parsed_in(locale, ustring(spaced)), listed_as_text));
  EXPECT_TRUE(same_units(parsed_in(locale, u"\uFEFF" + ustring(spaced)), listed_as_text));
}

TEST(StylesheetParse, AfterABigEndianMarkWhiteSpaceIsThatOfTheGlobalLocale) {
  const ustring sheet = swapped(u"\uFEFF" + ustring(spaced));
  const std::locale locale = underscore_is(std::ctype_base::space);
  EXPECT_TRUE(same_units(parsed_in(locale, sheet), listed_as_text));
  EXPECT_TRUE(same_units(parsed_in(locale, u"_" + sheet), listed_as_text))
      << "the old stream's locale decides what is skipped before the mark";
  const global_locale global(locale);
  EXPECT_TRUE(same_units(parsed_in(std::locale::classic(), sheet), listed_as_space));
}

TEST(StylesheetParse, ACopyIsReadByTheGlobalLocale) {
  const std::locale locale = underscore_is(std::ctype_base::space);
  EXPECT_TRUE(same_units(parsed_copy_in(locale, ustring(spaced)), listed_as_text));
  const global_locale global(locale);
  EXPECT_TRUE(same_units(parsed_copy_in(std::locale::classic(), ustring(spaced)), listed_as_space));
}

// Texts that end within a rule.

TEST(StylesheetParse, NeverReturnsAtTheEndOfAnOpenRule) {
  xhtml_stylesheet sheet;
  EXPECT_THROW(
      sheet.parse(std::make_unique<counting_end_stream>(u"a{} b { color: red;", 1'000'000)),
      looked_too_often);
  EXPECT_TRUE(same_units(listing(sheet), u"[a]\n"));
}

TEST(StylesheetParse, AllocatesNothingWhileItLoops) {
  const auto calls_up_to = [](std::size_t limit) {
    const std::size_t before = allocation_calls();
    xhtml_stylesheet sheet;
    EXPECT_THROW(sheet.parse(std::make_unique<counting_end_stream>(
                     u"a{} /*k*/ b { color: red; a-property-that-is-unknown: red", limit)),
                 looked_too_often);
    return allocation_calls() - before;
  };
  EXPECT_EQ(calls_up_to(1'000'000), calls_up_to(50));
}

// What the buffer throws.

TEST(StylesheetParse, WhatTheBufferThrowsPassesAndCompleteItemsStay) {
  const std::size_t before = live_allocations();
  {
    xhtml_stylesheet sheet;
    sheet.add_item(xhtml_stylesheet_comment(u"old"));
    EXPECT_THROW(sheet.parse(std::make_unique<breaking_input>(u"a{} /*k*/ b{color:red;")),
                 input_broke);
    EXPECT_TRUE(same_units(listing(sheet), u"[a]\n/*[k]\n"));
  }
  EXPECT_EQ(live_allocations(), before);
}

TEST(StylesheetParse, WhatTheBufferThrowsWhileBytesAreSwappedPasses) {
  const std::size_t before = live_allocations();
  {
    xhtml_stylesheet sheet;
    sheet.add_item(xhtml_stylesheet_comment(u"old"));
    EXPECT_THROW(sheet.parse(std::make_unique<breaking_input>(swapped(u"\uFEFFa{} b{}"))),
                 input_broke);
    EXPECT_EQ(sheet.size(), 0u);
  }
  EXPECT_EQ(live_allocations(), before);
}

TEST(StylesheetParse, ABufferThatThrowsAtOnceFailsTheStream) {
  xhtml_stylesheet sheet;
  sheet.add_item(xhtml_stylesheet_comment(u"old"));
  EXPECT_TRUE(sheet.parse(std::make_unique<breaking_input>(u" \n")));
  EXPECT_EQ(sheet.size(), 0u);
}

TEST(StylesheetParse, ABufferThatThrowsWithinAMarkFailsTheStream) {
  for (const ustring& text : {ustring(u"\uFEFF"), ustring(u"\uFEFF \n"), ustring(1, u'\0')}) {
    xhtml_stylesheet sheet;
    sheet.add_item(xhtml_stylesheet_comment(u"old"));
    EXPECT_TRUE(sheet.parse(std::make_unique<breaking_input>(text)));
    EXPECT_EQ(sheet.size(), 0u);
  }
}

TEST(StylesheetParse, AFailureOfTheStreamPassesWhereTheStreamSaysSo) {
  const std::size_t before = live_allocations();
  {
    xhtml_stylesheet sheet;
    sheet.add_item(xhtml_stylesheet_comment(u"old"));
    auto empty = std::make_unique<text_input>(u"");
    empty->exceptions(std::ios_base::failbit);
    EXPECT_THROW(sheet.parse(std::move(empty)), std::ios_base::failure);
    EXPECT_EQ(sheet.size(), 0u);
    auto broken = std::make_unique<breaking_input>(u"\uFEFF");
    broken->exceptions(std::ios_base::badbit);
    EXPECT_THROW(sheet.parse(std::move(broken)), input_broke);
    EXPECT_EQ(sheet.size(), 0u);
  }
  EXPECT_EQ(live_allocations(), before);
}

TEST(StylesheetParse, WhatTheBufferThrowsWhileItIsCopiedLeavesTheSheetAsItWas) {
  xhtml_stylesheet sheet;
  sheet.add_item(xhtml_stylesheet_comment(u"old"));
  breaking_input stream(u"a{} b{}");
  EXPECT_THROW(sheet.parse(stream), input_broke);
  EXPECT_TRUE(same_units(listing(sheet), u"/*[old]\n"));
}

// Memory.

TEST(StylesheetParse, LosesNothingWhenMemoryRunsOut) {
  const ustring text =
      u"a-selector-of-some-length { font-family: a-value-of-some-length; color: red }"
      u" /* a comment of some length */ @import url(an-import-of-some-length);"
      u" b /* within another one */ c { background-color: another-value-of-length; }";
  for (const ustring& order : {u"\uFEFF" + text, swapped(u"\uFEFF" + text)}) {
    const std::size_t before = live_allocations();
    const std::size_t failures = fail_each_allocation(
        [&order] {
          xhtml_stylesheet sheet;
          sheet.parse(std::make_unique<text_input>(order));
        },
        [before] { ASSERT_EQ(live_allocations(), before); });
    EXPECT_GT(failures, 10u);
    EXPECT_EQ(live_allocations(), before);
  }
}

TEST(StylesheetParse, CopyingLosesNothingWhenMemoryRunsOut) {
  text_input stream(u"a-selector-of-some-length { font-family: a-value-of-some-length; }");
  const std::size_t before = live_allocations();
  fail_each_allocation(
      [&stream] {
        stream.seekg(0);
        xhtml_stylesheet sheet;
        sheet.parse(stream);
      },
      [before] { ASSERT_EQ(live_allocations(), before); });
  EXPECT_EQ(live_allocations(), before);
}

// Size.

TEST(StylesheetParse, ReadsManyRulesInTimeLinearInTheText) {
  ustring text;
  for (int i = 0; i < 100'000; ++i) text += u"a { color: red; top: 10px; } /* x */\n";
  xhtml_stylesheet sheet;
  sheet.parse(std::make_unique<text_input>(text));
  EXPECT_EQ(sheet.size(), 200'000u);
}

TEST(StylesheetParse, ReadsHugeParts) {
  const ustring filler(1'000'000, u'x');
  const ustring text = u"a" + filler + u"{top:" + filler + u";" + filler + u":" + filler + u"}/*" +
                       filler + u"*/@import url(" + filler + u");";
  EXPECT_TRUE(same_units(parsed(text), u"[a" + filler + u"] top=[" + filler + u"]\n/*[" + filler +
                                           u"]\n@[" + filler + u"]\n"));
}

TEST(StylesheetParse, ReadsHugeNothingsInTimeLinearInTheText) {
  for (const char16_t* piece : {u";", u"/", u"*", u"@ ", u":", u"/*", u"'", u" ", u"{", u"}"}) {
    ustring text = u"a{top:";
    for (int i = 0; i < 500'000; ++i) text += piece;
    xhtml_stylesheet sheet;
    try {
      sheet.parse(std::make_unique<counting_end_stream>(text));
    } catch (const looked_too_often&) {
    }
    text.erase(0, 6);
    try {
      sheet.parse(std::make_unique<counting_end_stream>(text));
    } catch (const looked_too_often&) {
    }
  }
}

}  // namespace
}  // namespace test
