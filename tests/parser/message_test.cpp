// The form of messages, and when they are written.

#include <gtest/gtest.h>

#include <cstdint>
#include <ostream>
#include <streambuf>
#include <vector>

#include "tests/support/golden.h"
#include "tests/support/text.h"
#include "tests/support/tree_outline.h"
#include "xport/parser/xhtml_parser.h"
#include "xport/stream/ustring_stream.h"

namespace test {
namespace {

/// Records what has been written at each flush.
class flush_log : public std::basic_streambuf<char16> {
 public:
  ustring text;
  std::vector<ustring> at_flush;

 protected:
  std::streamsize xsputn(const char16* units, std::streamsize count) override {
    text.append(units, static_cast<std::size_t>(count));
    return count;
  }
  int_type overflow(int_type unit) override {
    text.push_back(traits_type::to_char_type(unit));
    return traits_type::not_eof(unit);
  }
  int sync() override {
    at_flush.push_back(text);
    return 0;
  }
};

TEST(MessageLevel, Bits) {
  EXPECT_EQ(level_structure, 1u);
  EXPECT_EQ(level_end_tag, 2u);
  EXPECT_EQ(level_trace_elements, 4u);
  EXPECT_EQ(level_trace_end_tags, 8u);
}

class Message : public ::testing::Test {
 protected:
  Message() { parser.messages = &messages; }

  ustring written(ustring_view text, std::uint32_t level) {
    parser.report_message(text, level);
    return messages.str();
  }

  ustring_stream messages;
  xhtml_parser parser{nullptr};
};

TEST_F(Message, FollowsItsLine) {
  parser.message_mask = 1;
  parser.line = 12;
  EXPECT_TRUE(same_units(
      written(u"Couldn't insert <li> into <div>.\nSkipping <li> tag.\n", level_structure),
      u"line #12:\nCouldn't insert <li> into <div>.\nSkipping <li> tag.\n\n"));
}

TEST_F(Message, TextWithoutNewlineGetsOne) {
  parser.message_mask = 1;
  EXPECT_TRUE(same_units(written(u"Invalid Tag", 1), u"line #1:\nInvalid Tag\n"));
}

TEST_F(Message, EmptyText) {
  parser.message_mask = 1;
  EXPECT_TRUE(same_units(written(u"", 1), u"line #1:\n\n"));
}

TEST_F(Message, TextIsWrittenUnitByUnit) {
  parser.message_mask = 1;
  const ustring text = u"a\u00E4\u6F22\xD83D\xFFFF" + ustring(1, u'\0') + u"z";
  EXPECT_TRUE(same_units(written(text, 1), u"line #1:\n" + text + u"\n"));
}

TEST_F(Message, LineOfTheHighestNumber) {
  parser.message_mask = 1;
  parser.line = 4294967295u;
  EXPECT_TRUE(same_units(written(u"x", 1), u"line #4294967295:\nx\n"));
}

TEST_F(Message, LineZero) {
  parser.message_mask = 1;
  parser.line = 0;
  EXPECT_TRUE(same_units(written(u"x", 1), u"line #0:\nx\n"));
}

TEST_F(Message, NeedsABitInCommon) {
  for (std::uint32_t mask = 0; mask != 16; ++mask) {
    for (std::uint32_t level = 0; level != 16; ++level) {
      ustring_stream stream;
      parser.messages = &stream;
      parser.message_mask = mask;
      parser.report_message(u"x", level);
      EXPECT_EQ(!stream.str().empty(), (mask & level) != 0) << mask << " and " << level;
    }
  }
}

TEST_F(Message, BitsBeyondTheNamedLevels) {
  parser.message_mask = 0x80000000u;
  EXPECT_EQ(written(u"x", 0x7FFFFFFFu), u"");
  EXPECT_TRUE(same_units(written(u"x", 0xFFFFFFFFu), u"line #1:\nx\n"));
}

TEST_F(Message, NewParserReportsNothing) { EXPECT_EQ(written(u"x", 0xFFFFFFFFu), u""); }

TEST_F(Message, WithoutAStreamThereIsNone) {
  parser.messages = nullptr;
  parser.message_mask = 0xFFFFFFFFu;
  parser.report_message(u"x", 1);
}

TEST_F(Message, ChangesNothingInTheParser) {
  parser.message_mask = 15;
  parser.line = 7;
  parser.last_tag = tag_id::p;
  written(u"a\nb\n", 1);
  EXPECT_EQ(parser.line, 7u);
  EXPECT_EQ(parser.last_tag, tag_id::p);
}

TEST_F(Message, FlushesAfterEachOne) {
  flush_log log;
  std::basic_ostream<char16> stream(&log);
  parser.messages = &stream;
  parser.message_mask = 2;
  parser.report_message(u"a", 2);
  parser.report_message(u"not asked for", 1);
  parser.line = 3;
  parser.report_message(u"b\n", 3);
  ASSERT_EQ(log.at_flush.size(), 2u);
  EXPECT_TRUE(same_units(log.at_flush[0], u"line #1:\na\n"));
  EXPECT_TRUE(same_units(log.at_flush[1], u"line #1:\na\nline #3:\nb\n\n"));
}

TEST_F(Message, FlushesAfterEachOneOfAPage) {
  std::basic_istringstream<char16> input(u"<p>a<p>b</foo>");
  xhtml_element body(tag_id::body, {}, {});
  flush_log log;
  std::basic_ostream<char16> stream(&log);
  xhtml_parser reader(&input);
  reader.messages = &stream;
  reader.message_mask = 3;
  EXPECT_EQ(reader.parse_children(&body), nullptr);
  const ustring first = u"line #1:\nCouldn't insert <p> into <p>.\nEnding <p> element.\n\n";
  ASSERT_EQ(log.at_flush.size(), 2u);
  EXPECT_TRUE(same_units(log.at_flush[0], first));
  EXPECT_TRUE(same_units(
      log.at_flush[1],
      first + u"line #1:\nExpecting end tag </p>.  Encountered </foo>\nSkipping </foo> tag.\n\n"));
}

TEST_F(Message, StreamThatFailedIsLeftAlone) {
  flush_log log;
  std::basic_ostream<char16> stream(&log);
  stream.setstate(std::ios_base::badbit);
  parser.messages = &stream;
  parser.message_mask = 1;
  parser.report_message(u"x", 1);
  EXPECT_EQ(log.text, u"");
  EXPECT_TRUE(log.at_flush.empty());
}

/// Takes the input away from a parser at its first message.
class input_taker : public std::basic_streambuf<char16> {
 public:
  explicit input_taker(xhtml_parser& parser) : parser_(parser) {}

 protected:
  std::streamsize xsputn(const char16*, std::streamsize count) override { return count; }
  int_type overflow(int_type unit) override { return traits_type::not_eof(unit); }
  int sync() override {
    parser_.input = nullptr;
    return 0;
  }

 private:
  xhtml_parser& parser_;
};

TEST_F(Message, StreamMayTakeTheInputAway) {
  std::basic_istringstream<char16> input(u"<b>a</b><li>b</li><b>c</b>");
  xhtml_parser reader(&input);
  input_taker taker(reader);
  std::basic_ostream<char16> stream(&taker);
  reader.messages = &stream;
  reader.message_mask = 1;
  xhtml_element div(tag_id::div, {}, {});
  EXPECT_EQ(reader.parse_children(&div), nullptr);
  EXPECT_EQ(outline_of_children(div), "b('a')");
}

}  // namespace
}  // namespace test
