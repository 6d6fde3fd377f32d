#include "xport/stream/byte_order.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <ios>
#include <istream>
#include <locale>
#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <utility>

#include "tests/support/fake_file.h"
#include "tests/support/golden.h"
#include "tests/support/locale.h"
#include "tests/support/unit_buffers.h"
#include "xport/stream/file_input_stream.h"
#include "xport/stream/unit_input.h"

namespace test {
namespace {

using input_stream = std::basic_istream<char16>;
using string_stream = std::basic_istringstream<char16>;

constexpr auto good = std::ios_base::goodbit;
constexpr auto ended = std::ios_base::eofbit | std::ios_base::failbit;

enum class source_kind { string, one_unit, unbuffered, file };

// A stream on a text, with one of several kinds of buffers.
class source {
 public:
  source(source_kind kind, const ustring& text) {
    switch (kind) {
      case source_kind::string:
        stream_ = std::make_unique<string_stream>(text);
        break;
      case source_kind::one_unit:
        take(std::make_unique<one_unit_buffer>(text));
        break;
      case source_kind::unbuffered:
        take(std::make_unique<unbuffered_buffer>(text));
        break;
      case source_kind::file: {
        record_.bytes = file_bytes(text);
        auto file = std::make_unique<file_input_stream>();
        file->open(std::make_unique<fake_input>(record_));
        stream_ = std::move(file);
        break;
      }
    }
  }

  input_stream& stream() { return *stream_; }

 private:
  void take(std::unique_ptr<unit_buffer> buffer) {
    buffer_ = std::move(buffer);
    stream_ = std::make_unique<input_stream>(buffer_.get());
  }

  input_record record_;
  std::unique_ptr<unit_buffer> buffer_;
  std::unique_ptr<input_stream> stream_;
};

ustring rest_of(input_stream& stream) {
  ustring text;
  for (unit_input input(stream.rdbuf()); !input.at_end(); input.advance()) text += input.peek();
  return text;
}

class ByteOrder : public testing::TestWithParam<source_kind> {
 protected:
  // What is left of an input that stays where it is, and the state it gets.
  static void expect_rest(const ustring& text, ustring_view rest, std::ios_base::iostate state) {
    SCOPED_TRACE(printable(text));
    source input(GetParam(), text);
    input_stream* stream = &input.stream();
    detect_byte_order(stream, false);
    ASSERT_EQ(stream, &input.stream());
    EXPECT_EQ(stream->rdstate(), state);
    EXPECT_TRUE(same_units(rest_of(*stream), rest));
  }

  // The text of the new stream that replaces a big-endian input.
  static void expect_swapped(const ustring& text, ustring_view swapped) {
    SCOPED_TRACE(printable(text));
    source input(GetParam(), text);
    input_stream* stream = &input.stream();
    detect_byte_order(stream, false);
    ASSERT_NE(stream, &input.stream());
    const std::unique_ptr<input_stream> made(stream);
    EXPECT_TRUE(made->good());
    EXPECT_TRUE(same_units(rest_of(*made), swapped));
    EXPECT_TRUE(input.stream().good());
    EXPECT_TRUE(same_units(rest_of(input.stream()), u"")) << "all was read";
  }
};

std::string name_of(const testing::TestParamInfo<source_kind>& source) {
  static const char* const names[] = {"String", "OneUnit", "Unbuffered", "File"};
  return names[static_cast<std::size_t>(source.param)];
}

INSTANTIATE_TEST_SUITE_P(Sources, ByteOrder,
                         testing::Values(source_kind::string, source_kind::one_unit,
                                         source_kind::unbuffered, source_kind::file),
                         name_of);

TEST_P(ByteOrder, AnEmptyInputFailsTheRead) {
  expect_rest(u"", u"", ended);
  expect_rest(u" \t\r\n", u"", ended);
}

TEST_P(ByteOrder, WithoutAMarkTheFirstUnitIsPutBack) {
  expect_rest(u"<html>", u"<html>", good);
  expect_rest(u"a", u"a", good);
  expect_rest(u"a \uFEFF", u"a \uFEFF", good);
  expect_rest(u"\uFFFD", u"\uFFFD", good);
  expect_rest(u"\u0001", u"\u0001", good);
  expect_rest(ustring(1, char16(0xD800)), ustring(1, char16(0xD800)), good);
}

TEST_P(ByteOrder, LeadingWhiteSpaceIsLost) {
  expect_rest(u" \t\n\v\f\r<html>", u"<html>", good);
  expect_rest(u"\n \uFEFFa", u"a", good);
  expect_rest(u" \uBBEFa", u"a", good);
  expect_rest(ustring(u" \0a", 3), u"a", good);
  expect_rest(ustring(100000, u' ') + u"a", u"a", good);
}

TEST_P(ByteOrder, AZeroIsAlwaysRemoved) {
  expect_rest(ustring(u"\0a", 2), u"a", good);
  expect_rest(ustring(u"\0\0a", 3), ustring(u"\0a", 2), good);
  expect_rest(ustring(u"\0\0\uFFFEa", 4), ustring(u"\0\uFFFEa", 3), good);
  expect_rest(ustring(u"\0\uFEFFa", 3), u"\uFEFFa", good);
  expect_rest(ustring(u"\0 \t a", 5), u"a", good);
}

TEST_P(ByteOrder, ABigEndianMarkOf32BitsIsRemoved) {
  expect_rest(ustring(u"\0\uFFFEa", 3), u"a", good);
  expect_rest(ustring(u"\0\uFFFE", 2), u"", good);
  expect_rest(ustring(u"\0\uFFFE a", 4), u" a", good);
  expect_rest(ustring(u"\0\n \uFFFEa", 5), u"a", good);
  expect_rest(ustring(u"\0\uFFFE\0\uFFFE", 4), ustring(u"\0\uFFFE", 2), good);
}

TEST_P(ByteOrder, AZeroAloneFailsTheSecondRead) {
  expect_rest(ustring(u"\0", 1), u"", ended);
  expect_rest(ustring(u"\0 \n", 3), u"", ended);
}

TEST_P(ByteOrder, AMarkOfUtf8IsRemovedInEitherOrder) {
  for (const char16 mark : {u'\uBBEF', u'\uEFBB'}) {
    expect_rest(ustring(1, mark), u"", good);
    expect_rest(ustring(1, mark) + u"ab", u"ab", good);
    expect_rest(ustring(1, mark) + u" ab", u" ab", good);
    expect_rest(ustring(2, mark), ustring(1, mark), good);
    expect_rest(ustring(1, mark) + u"\uFEFFa", u"\uFEFFa", good);
  }
}

TEST_P(ByteOrder, ALittleEndianMarkIsRemoved) {
  expect_rest(u"\uFEFF<html>", u"<html>", good);
  expect_rest(u"\uFEFF\uFEFFa", u"\uFEFFa", good);
  expect_rest(u"\uFEFF\uFFFEa", u"\uFFFEa", good);
}

TEST_P(ByteOrder, ALittleEndianMarkOf32BitsIsRemoved) {
  expect_rest(ustring(u"\uFEFF\0a", 3), u"a", good);
  expect_rest(ustring(u"\uFEFF\0", 2), u"", good);
  expect_rest(ustring(u"\uFEFF\0 a", 4), u" a", good);
  expect_rest(ustring(u"\uFEFF\0\0", 3), ustring(u"\0", 1), good);
  expect_rest(ustring(u"\uFEFF \0a", 4), u"a", good);
}

TEST_P(ByteOrder, WhiteSpaceAfterALittleEndianMarkIsLost) {
  expect_rest(u"\uFEFF \t\r\n<html> ", u"<html> ", good);
}

TEST_P(ByteOrder, ALittleEndianMarkAloneFailsTheSecondRead) {
  expect_rest(u"\uFEFF", u"", ended);
  expect_rest(u"\uFEFF\r\n", u"", ended);
}

TEST_P(ByteOrder, ABigEndianInputIsSwapped) {
  expect_swapped(u"\uFFFE\u3C00\u6100\u3E00", u"<a>");
  expect_swapped(u"\uFFFE\u0102\u0201\u00FF\uFF00", u"\u0201\u0102\uFF00\u00FF");
  expect_swapped(ustring(u"\uFFFE\0\u0100", 3), ustring(u"\0\u0001", 2));
  expect_swapped(u"\uFFFE", u"");
  expect_swapped(u" \n\uFFFE\u6100", u"a");
}

TEST_P(ByteOrder, WhiteSpaceAfterABigEndianMarkIsKept) {
  expect_swapped(u"\uFFFE\u2000\u0A00\u6100\u2000", u" \na ");
  expect_swapped(u"\uFFFE a", u"\u2000\u6100");
}

TEST_P(ByteOrder, ASecondMarkOfABigEndianInputIsText) {
  expect_swapped(u"\uFFFE\uFFFE\u6100", u"\uFEFFa");
  expect_swapped(u"\uFFFE\uFEFF", u"\uFFFE");
}

TEST_P(ByteOrder, EveryUnitIsSwapped) {
  ustring text = u"\uFFFE";
  ustring expected;
  for (unsigned high = 0; high <= 0xFF; ++high)
    for (unsigned low = 0; low <= 0xFF; ++low) {
      if (high == 0xFF && low == 0xFF) continue;
      text += static_cast<char16>(high * 256 + low);
      expected += static_cast<char16>(low * 256 + high);
    }
  expect_swapped(text, expected);
}

TEST_P(ByteOrder, AUnit65535IsTheEnd) {
  expect_rest(u"\uFFFFa", u"", ended);
  expect_rest(u" \uFFFFa", u"", ended);
  expect_rest(ustring(u"\0\uFFFF\uFFFE", 3), u"", ended);
  expect_rest(u"\uFEFF \uFFFFa", u"", ended);
  expect_rest(u"ab\uFFFFc", u"ab", good);
}

TEST_P(ByteOrder, AUnit65535EndsABigEndianInput) {
  expect_swapped(u"\uFFFE\u6100\u6200\uFFFF\u6300", u"ab");
  expect_swapped(u"\uFFFE\uFFFF\u6300", u"");
}

TEST_P(ByteOrder, AStreamThatIsNotGoodIsLeftAlone) {
  for (const auto state : {std::ios_base::eofbit, std::ios_base::failbit, std::ios_base::badbit}) {
    source input(GetParam(), u" \uFFFE\u6100");
    input_stream* stream = &input.stream();
    stream->setstate(state);
    detect_byte_order(stream, true);
    ASSERT_EQ(stream, &input.stream());
    EXPECT_EQ(stream->rdstate(), state);
    EXPECT_TRUE(same_units(rest_of(*stream), u" \uFFFE\u6100"));
  }
}

TEST_P(ByteOrder, AStreamThatSkipsNoWhiteSpaceKeepsIt) {
  for (const ustring text : {u" \uFEFFa", u"\uFEFF a"}) {
    source input(GetParam(), text);
    input_stream* stream = &input.stream();
    stream->unsetf(std::ios_base::skipws);
    detect_byte_order(stream, false);
    ASSERT_EQ(stream, &input.stream());
    EXPECT_TRUE(stream->good());
    EXPECT_TRUE(same_units(rest_of(*stream), text[0] == u' ' ? text : u" a"));
  }
}

// Where the locale of the stream and the global one differ, only the former is used. The
// stream that replaces a big-endian one has the global locale.
class ByteOrderLocale : public ByteOrder {
 protected:
  static std::locale x_is_space() { return locale_with(L'x', std::ctype_base::space); }

  // What is left of an input whose stream has `locale`.
  static ustring rest_in(const std::locale& locale, const ustring& text) {
    source input(GetParam(), text);
    input.stream().imbue(locale);
    input_stream* stream = &input.stream();
    detect_byte_order(stream, false);
    if (stream == &input.stream()) {
      EXPECT_EQ(stream->getloc(), locale);
      return rest_of(*stream);
    }
    const std::unique_ptr<input_stream> made(stream);
    EXPECT_EQ(made->getloc(), std::locale());
    return rest_of(*made);
  }
};

INSTANTIATE_TEST_SUITE_P(Sources, ByteOrderLocale,
                         testing::Values(source_kind::string, source_kind::one_unit,
                                         source_kind::unbuffered, source_kind::file),
                         name_of);

TEST_P(ByteOrderLocale, WhiteSpaceOfTheStreamIsSkipped) {
  const std::locale locale = x_is_space();
  EXPECT_TRUE(same_units(rest_in(locale, u"xx ax"), u"ax"));
  EXPECT_TRUE(same_units(rest_in(locale, u" x\uFEFFxxa"), u"a"));
  EXPECT_TRUE(same_units(rest_in(locale, ustring(u"x\uFEFFx\0xa", 6)), u"xa"));
  EXPECT_TRUE(same_units(rest_in(locale, ustring(u"x\0x\uFFFExa", 6)), u"xa"));
  EXPECT_TRUE(same_units(rest_in(locale, u"x\uBBEFxa"), u"xa"));
  EXPECT_TRUE(same_units(rest_in(locale, u"x\uFFFE\u7800\u6100"), u"xa"));
}

TEST_P(ByteOrderLocale, WhiteSpaceOfTheGlobalLocaleIsNot) {
  const global_locale global(x_is_space());
  const std::locale& locale = std::locale::classic();
  EXPECT_TRUE(same_units(rest_in(locale, u" xx a"), u"xx a"));
  EXPECT_TRUE(same_units(rest_in(locale, u" \uFEFF xxa"), u"xxa"));
  EXPECT_TRUE(same_units(rest_in(locale, u"x\uFEFFa"), u"x\uFEFFa"));
  EXPECT_TRUE(same_units(rest_in(locale, u"x\uFFFE\u6100"), u"x\uFFFE\u6100"));
  EXPECT_TRUE(same_units(rest_in(locale, u" \uFFFE\u7800\u6100"), u"xa"));
}

TEST(ByteOrderRead, AStreamHasTheLocaleThatIsGlobalWhenItIsMade) {
  const global_locale global(locale_with(L'\u3000', std::ctype_base::space));
  string_stream input(u"\u3000\u3000\uFEFF\u3000a");
  const global_locale later(std::locale::classic());
  input_stream* stream = &input;
  detect_byte_order(stream, false);
  EXPECT_TRUE(same_units(rest_of(input), u"a"));
}

TEST(ByteOrderRead, NothingMovesOverAUnit65535) {
  string_stream input(u" \uFFFFa");
  input_stream* stream = &input;
  detect_byte_order(stream, false);
  EXPECT_EQ(input.rdbuf()->pubseekoff(0, std::ios_base::cur, std::ios_base::in), 1);
}

TEST(ByteOrderRead, StartsAtThePositionOfTheStream) {
  string_stream input(u"xy\uFEFFa");
  input.seekg(2);
  input_stream* stream = &input;
  detect_byte_order(stream, false);
  EXPECT_TRUE(same_units(rest_of(input), u"a"));
}

TEST(ByteOrderRead, ABigEndianFileReadsLikeALittleEndianOne) {
  ustring text = u"<p>";
  for (unsigned i = 0; i < 3 * file_input_buffer::block_units; ++i)
    text += static_cast<char16>(0x20 + i % 0xD000);
  std::string big_endian = "\xFE\xFF";
  for (const unsigned unit : text) {
    big_endian += static_cast<char>(unit >> 8);
    big_endian += static_cast<char>(unit & 0xFF);
  }
  for (const std::string& bytes : {big_endian, big_endian + '<', file_bytes(u"\uFEFF" + text)}) {
    input_record record;
    record.bytes = bytes;
    auto file = std::make_unique<file_input_stream>();
    file->open(std::make_unique<fake_input>(record));
    input_stream* stream = file.release();
    detect_byte_order(stream, true);
    const std::unique_ptr<input_stream> owned(stream);
    EXPECT_TRUE(same_units(rest_of(*stream), text));
  }
}

TEST(ByteOrderRead, PlainTextIsReadAsPairsOfBytes) {
  input_record record;
  record.bytes = "\xEF\xBB\xBF<p>";
  file_input_stream file;
  file.open(std::make_unique<fake_input>(record));
  input_stream* stream = &file;
  detect_byte_order(stream, false);
  ASSERT_EQ(stream, &file);
  EXPECT_TRUE(same_units(rest_of(file), u"\u3CBF\u3E70"));
}

// Counts its destructions.
class mortal_stream : public string_stream {
 public:
  mortal_stream(const ustring& text, int& deaths) : string_stream(text), deaths_(deaths) {}
  ~mortal_stream() override { ++deaths_; }

 private:
  int& deaths_;
};

TEST(ByteOrderOwner, AnOwnedBigEndianStreamIsDeletedAndReplaced) {
  int deaths = 0;
  input_stream* stream = new mortal_stream(u"\uFFFE\u6100", deaths);
  detect_byte_order(stream, true);
  EXPECT_EQ(deaths, 1);
  const std::unique_ptr<input_stream> made(stream);
  EXPECT_TRUE(made->good());
  EXPECT_TRUE(same_units(rest_of(*made), u"a"));
}

TEST(ByteOrderOwner, ABigEndianStreamOfOthersStays) {
  int deaths = 0;
  mortal_stream old(u"\uFFFE\u6100", deaths);
  input_stream* stream = &old;
  detect_byte_order(stream, false);
  EXPECT_NE(stream, &old);
  EXPECT_EQ(deaths, 0);
  delete stream;
  EXPECT_EQ(deaths, 0);
}

TEST(ByteOrderOwner, AnOwnedStreamOfAnotherKindStays) {
  for (const ustring& text : {ustring(), ustring(u"a"), ustring(u"\uFEFFa"), ustring(u"\uBBEF"),
                              ustring(u"\0\uFFFE", 2)}) {
    int deaths = 0;
    auto old = std::make_unique<mortal_stream>(text, deaths);
    input_stream* stream = old.get();
    detect_byte_order(stream, true);
    EXPECT_EQ(stream, old.get());
    EXPECT_EQ(deaths, 0);
  }
}

TEST(ByteOrderOwner, TheNewStreamCanGoBack) {
  input_stream* stream = new string_stream(u"\uFFFE\u6100\u6200");
  detect_byte_order(stream, true);
  const std::unique_ptr<input_stream> made(stream);
  EXPECT_TRUE(same_units(rest_of(*made), u"ab"));
  made->seekg(0, std::ios_base::beg);
  EXPECT_TRUE(same_units(rest_of(*made), u"ab"));
}

// As formatted extraction does it.
TEST(ByteOrderTie, ATiedStreamIsFlushedFirst) {
  class flushed_buffer : public std::basic_streambuf<char16> {
   public:
    int flushes = 0;

   protected:
    int sync() override {
      ++flushes;
      return 0;
    }
  } buffer;
  std::basic_ostream<char16> tied(&buffer);
  string_stream input(u"\uFEFFa");
  input.tie(&tied);
  input_stream* stream = &input;
  detect_byte_order(stream, false);
  EXPECT_EQ(buffer.flushes, 2) << "for each unit of the mark";
}

TEST(ByteOrderExceptions, AStreamMayThrowAtItsEnd) {
  string_stream input(u" ");
  input.exceptions(std::ios_base::eofbit);
  input_stream* stream = &input;
  EXPECT_THROW(detect_byte_order(stream, true), std::ios_base::failure);
  EXPECT_EQ(stream, &input);
  EXPECT_EQ(input.rdstate(), ended);
}

// As formatted extraction does it.
TEST(ByteOrderExceptions, AnInputThatThrowsAtTheMarkIsBad) {
  for (const ustring text : {u"", u" ", u"\uFEFF", u"\uFEFF "}) {
    throwing_buffer buffer(text);
    input_stream input(&buffer);
    input_stream* stream = &input;
    EXPECT_NO_THROW(detect_byte_order(stream, false));
    EXPECT_EQ(stream, &input);
    EXPECT_EQ(input.rdstate(), std::ios_base::badbit);
  }
}

TEST(ByteOrderExceptions, WhatTheInputThrowsPassesWhereTheStreamSaysSo) {
  throwing_buffer buffer(u" ");
  input_stream input(&buffer);
  input.exceptions(std::ios_base::badbit);
  input_stream* stream = &input;
  EXPECT_THROW(detect_byte_order(stream, false), input_broke);
  EXPECT_EQ(stream, &input);
  EXPECT_EQ(input.rdstate(), std::ios_base::badbit);
}

TEST(ByteOrderExceptions, WhatABigEndianInputThrowsPasses) {
  for (const bool owns : {false, true}) {
    throwing_buffer buffer(u"\uFFFE\u6100");
    auto input = std::make_unique<input_stream>(&buffer);
    input_stream* stream = input.get();
    EXPECT_THROW(detect_byte_order(stream, owns), input_broke);
    EXPECT_EQ(stream, input.get());
    EXPECT_TRUE(input->good());
  }
}

}  // namespace
}  // namespace test
