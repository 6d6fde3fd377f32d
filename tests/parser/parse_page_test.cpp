// The steps of reading a page with a parser, in their order.

#include <gtest/gtest.h>

#include <ios>
#include <istream>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>

#include "tests/parser/parse_kit.h"
#include "tests/support/golden.h"
#include "tests/support/tree_check.h"
#include "tests/support/unit_buffers.h"
#include "tests/support/utf8.h"
#include "xport/parser/read_document.h"
#include "xport/stream/ustring_stream.h"

namespace test {
namespace {

using text_input = std::basic_istringstream<char16>;

/// A receiver with content, and a parser for it.
class ParsePage : public ::testing::Test {
 protected:
  ParsePage() {
    div.set_attribute(attr_id::id, u"kept");
    div << u"old";
  }

  /// Reads `text` and returns the receiver's children.
  std::string page(const ustring& text) {
    text_input input(text);
    xhtml_parser parser(&input);
    parser.messages = &messages;
    parser.message_mask = 3;
    parse_page(parser, div);
    EXPECT_EQ(parser.input, &input);
    line = parser.line;
    return children();
  }

  std::string children() const {
    EXPECT_TRUE(is_intact(div));
    return outline_of_children(div);
  }

  xhtml_element div{tag_id::div, {}, {}};
  ustring_stream messages;
  std::uint32_t line = 0;
};

TEST_F(ParsePage, ReplacesTheContentOfTheReceiver) {
  EXPECT_EQ(page(u"<p>a</p>"), "p('a')");
  EXPECT_EQ(div.get_attribute(attr_id::id), u"kept");
}

TEST_F(ParsePage, EmptyInputEmptiesTheReceiver) {
  EXPECT_EQ(page(u""), "");
  EXPECT_EQ(messages.str(), u"");
}

TEST_F(ParsePage, FailedStreamKeepsTheContent) {
  for (const auto state : {std::ios_base::failbit, std::ios_base::badbit}) {
    text_input input(u"<p>a</p>");
    input.setstate(state);
    xhtml_parser parser(&input);
    parse_page(parser, div);
    EXPECT_EQ(children(), "'old'");
    // The table is loaded before the stream is checked, and indexed after it.
    EXPECT_EQ(parser.references.size(), 38u);
    EXPECT_TRUE(parser.by_code.empty());
    EXPECT_TRUE(parser.by_name.empty());
    EXPECT_TRUE(parser.by_character.empty());
    EXPECT_EQ(input.rdbuf()->sgetc(), u'<');
  }
}

TEST_F(ParsePage, StreamAtItsEndIsNotReadAndHasNotFailed) {
  text_input input(u"<p>a</p>");
  input.get();
  input.setstate(std::ios_base::eofbit);
  xhtml_parser parser(&input);
  parse_page(parser, div);
  EXPECT_EQ(children(), "");
  EXPECT_EQ(parser.by_code.size(), 37u);
  EXPECT_EQ(input.rdbuf()->sgetc(), u'p');
}

TEST_F(ParsePage, WithoutAStreamTheContentStays) {
  xhtml_parser parser(nullptr);
  parse_page(parser, div);
  EXPECT_EQ(children(), "'old'");
}

TEST_F(ParsePage, BeginsAtTheStartOfTheInput) {
  text_input input(u"<p>a</p>");
  input.ignore(5);
  xhtml_parser parser(&input);
  parse_page(parser, div);
  EXPECT_EQ(children(), "p('a')");
}

TEST_F(ParsePage, InputThatCannotGoBackFails) {
  dribble_buffer buffer(u"<p>a</p>", 100, false);
  std::basic_istream<char16> input(&buffer);
  xhtml_parser parser(&input);
  parse_page(parser, div);
  EXPECT_EQ(children(), "");
  EXPECT_TRUE(input.fail());
}

TEST_F(ParsePage, ReferencesAreLoadedAndIndexed) {
  text_input input(u"a > b &#169; &#8364;");
  xhtml_parser parser(&input);
  parser.normalize_text = true;
  parse_page(parser, div);
  EXPECT_EQ(children(), "'a &gt; b &copy; &#8364;'");
  EXPECT_EQ(parser.references.size(), 38u);
}

TEST_F(ParsePage, ReferencesOfTheOwnerComeFirst) {
  text_input input(u"a > b < c");
  xhtml_parser parser(&input);
  parser.normalize_text = true;
  parser.references.insert({reference_form::form_numeric, u'>', u"gt", 62});
  parse_page(parser, div);
  // "< " is no tag, and its white space is doubled.
  EXPECT_EQ(children(), "'a &#62; b ' '&lt;  c'");
}

TEST_F(ParsePage, OptionsOfTheOwnerHold) {
  text_input input(u"a\n  b");
  xhtml_parser parser(&input);
  parser.preserve_newlines = true;
  parse_page(parser, div);
  EXPECT_EQ(children(), "'a\nb'");
}

TEST_F(ParsePage, ReferencesStayAsTheyAreByDefault) {
  EXPECT_EQ(page(u"&#62; &gt; > \u00A9"), "'&#62; &gt; > \\u00A9'");
}

TEST_F(ParsePage, LittleEndianMark) { EXPECT_EQ(page(u"\uFEFF<p>a</p>"), "p('a')"); }

TEST_F(ParsePage, LittleEndianMarkOf32Bits) {
  EXPECT_EQ(page(ustring(u"\uFEFF") + u'\0' + u"<p>a</p>"), "p('a')");
}

TEST_F(ParsePage, BigEndianMark) {
  EXPECT_EQ(page(u"\uFFFE" + swapped(u"<p>a \u6F22</p>")), "p('a \\u6F22')");
}

TEST_F(ParsePage, BigEndianMarkOf32BitsSwapsNothing) {
  EXPECT_EQ(page(ustring(1, u'\0') + u"\uFFFE<p>a</p>"), "p('a')");
}

TEST_F(ParsePage, LeadingZeroIsLost) { EXPECT_EQ(page(ustring(1, u'\0') + u"<p>a</p>"), "p('a')"); }

TEST_F(ParsePage, MarkOfUtf8IsSkippedAndNothingDecoded) {
  EXPECT_EQ(page(u"\uBBEF<p>a</p>"), "p('a')");
  EXPECT_EQ(page(u"\uEFBB<p>a</p>"), "p('a')");
}

TEST_F(ParsePage, MarkAlone) {
  EXPECT_EQ(page(u"\uFEFF"), "");
  EXPECT_EQ(page(u"\uFFFE"), "");
  EXPECT_EQ(page(ustring(1, u'\0')), "");
  EXPECT_EQ(page(u"\uBBEF"), "");
}

TEST_F(ParsePage, SecondMarkIsText) { EXPECT_EQ(page(u"\uFEFF\uFEFF<p>"), "'\\uFEFF' p"); }

TEST_F(ParsePage, EitherByteOrderReadsAlike) {
  const ustring text =
      u"<p class='x'>a\n  \u00E4 \xD83D\xDE00<p>b<!-- \u6F22 "
      u"--></foo><style>p{color:red}</style>\n";
  const std::string little = page(u"\uFEFF" + text);
  const ustring little_messages = messages.str();
  const std::uint32_t little_line = line;
  EXPECT_EQ(little,
            "p[class=\"x\"]('a \\u00E4 \\uD83D\\uDE00') p('b' #\\u6F22# "
            "'p{color:red}')");
  EXPECT_EQ(page(u"\uFFFE" + swapped(text)), little);
  EXPECT_TRUE(same_units(messages.str(), little_messages + little_messages));
  EXPECT_EQ(line, little_line);
}

TEST_F(ParsePage, LeadingWhiteSpaceIsLostAndNotCounted) {
  EXPECT_EQ(page(u"\n \n\uFEFF<li>a"), "'a'");
  EXPECT_EQ(printable(messages.str()),
            message(1, "Couldn't insert <li> into <div>.\nSkipping <li> tag.\n"));
  EXPECT_EQ(page(u"  a"), "'a'");
}

TEST_F(ParsePage, WhiteSpaceAfterTheMark) {
  // White space before the second unit of the mark is skipped.
  EXPECT_EQ(page(u"\uFEFF\n a"), "'a'");
  EXPECT_EQ(line, 1u);
  EXPECT_EQ(page(u"\uFFFE" + swapped(u"\n a")), "'a'");
  EXPECT_EQ(line, 2u);
  EXPECT_EQ(page(u"\uFEFF  a"), "'a'");
  EXPECT_EQ(page(u"\uFFFE" + swapped(u"  a")), "' a'");
}

TEST_F(ParsePage, HighestUnitEndsTheInput) {
  EXPECT_EQ(page(u"<p>a\uFFFF<p>b"), "p('a')");
  EXPECT_EQ(page(u"\uFFFE" + swapped(u"<p>a\uFFFF<p>b")), "p('a')");
  EXPECT_EQ(page(u"\uFFFF<p>a"), "");
}

TEST_F(ParsePage, InputOfFewUnitsAtATime) {
  for (const std::size_t at_once : {std::size_t{1}, std::size_t{2}, std::size_t{7}}) {
    dribble_buffer buffer(u"\uFFFE" + swapped(u"<p>a\n b<p>c"), at_once);
    std::basic_istream<char16> input(&buffer);
    xhtml_parser parser(&input);
    parse_page(parser, div);
    EXPECT_EQ(children(), "p('a b') p('c')");
  }
}

TEST_F(ParsePage, LeftoverIsDropped) {
  xhtml_doc doc(1);
  auto& p = *append_element(*doc.body(), tag_id::p)->as_element();
  text_input input(u"a<div>b</div>");
  xhtml_parser parser(&input);
  parse_page(parser, p);
  EXPECT_EQ(outline_of_children(*doc.body()), "p('a')");
  text_input other(u"c</body>d");
  parser.input = &other;
  parse_page(parser, p);
  EXPECT_EQ(outline_of_children(*doc.body()), "p('c')");
}

TEST_F(ParsePage, TwicePerParser) {
  text_input input(u"<p>a</p>");
  xhtml_parser parser(&input);
  parse_page(parser, div);
  parse_page(parser, div);
  EXPECT_EQ(children(), "p('a')");
}

// --- Who releases the streams ---

TEST_F(ParsePage, OwnedInput) {
  int deaths = 0;
  {
    xhtml_parser parser(new mortal_input(u"\uFEFF<p>a", deaths));
    parser.owns_input = true;
    parse_page(parser, div);
    EXPECT_EQ(deaths, 0);
  }
  EXPECT_EQ(deaths, 1);
  EXPECT_EQ(children(), "p('a')");
}

TEST_F(ParsePage, OwnedInputOfTheOtherByteOrder) {
  int deaths = 0;
  {
    auto* const given = new mortal_input(u"\uFFFE" + swapped(u"<p>a"), deaths);
    xhtml_parser parser(given);
    parser.owns_input = true;
    parse_page(parser, div);
    EXPECT_EQ(deaths, 1);
    EXPECT_NE(parser.input, nullptr);
    EXPECT_EQ(parser.input->rdbuf()->sgetc(), std::char_traits<char16>::eof());
  }
  EXPECT_EQ(deaths, 1);
  EXPECT_EQ(children(), "p('a')");
}

TEST_F(ParsePage, ForeignInputOfTheOtherByteOrderStays) {
  int deaths = 0;
  mortal_input input(u"\uFFFE" + swapped(u"<p>a"), deaths);
  {
    xhtml_parser parser(&input);
    parse_page(parser, div);
    EXPECT_EQ(parser.input, &input);
  }
  EXPECT_EQ(deaths, 0);
  EXPECT_EQ(input.rdbuf()->sgetc(), std::char_traits<char16>::eof());
  EXPECT_EQ(children(), "p('a')");
}

// --- Exceptions ---

/// A stream buffer that can go back to the start and throws at the end.
class breaking_buffer : public throwing_buffer {
 public:
  explicit breaking_buffer(ustring_view text) : throwing_buffer(text, text.size(), true) {}
};

TEST_F(ParsePage, InputThatThrows) {
  const std::pair<const char16_t*, const char*> cases[] = {
      {u"<p>a</p>", "p('a')"},
      {u"<p>a</p", "p('a')"},
      {u"<p>a</p><b", "p('a')"},
      {u"<p>a</p><b title='x'", "p('a')"},
      {u"<p>a</p>text", "p('a')"},
      {u"<p>a</p> ", "p('a')"},
      {u"<p>a</p><", "p('a')"},
      {u"<p>a</p><!", "p('a')"},
      {u"<p>a</p><!-", "p('a')"},
      {u"<p>a</p><!-- x", "p('a')"},
      {u"<p>a</p><?x", "p('a')"},
      {u"<p>a</p><foo x", "p('a')"},
      {u"<p>a<i>b<div>c<p>d</div", "p('a' i('b' 'c' 'd'))"},
      {u"<p>a<p>b<i>c</p", "p('a') p('b' i('c'))"},
      {u"<pre>a</pr", "pre"},
  };
  for (const auto& [text, left] : cases) {
    xhtml_doc doc(0);
    breaking_buffer buffer(text);
    std::basic_istream<char16> input(&buffer);
    xhtml_parser parser(&input);
    EXPECT_THROW(parse_page(parser, *doc.root()), input_broke) << printable(text);
    EXPECT_TRUE(is_intact(*doc.root()));
    EXPECT_EQ(outline_of_children(*doc.root()), left) << printable(text);
  }
}

TEST_F(ParsePage, InputThatThrowsAtTheMark) {
  // As with every read of a stream, a failure then becomes a state of the stream.
  breaking_buffer buffer(u"");
  std::basic_istream<char16> input(&buffer);
  xhtml_parser parser(&input);
  parse_page(parser, div);
  EXPECT_EQ(children(), "");
  EXPECT_TRUE(input.bad());
}

TEST_F(ParsePage, InputOfTheOtherByteOrderThatThrows) {
  for (const bool owned : {false, true}) {
    breaking_buffer buffer(u"\uFFFE" + swapped(u"<p>a</p>"));
    auto input = std::make_unique<std::basic_istream<char16>>(&buffer);
    std::basic_istream<char16>* const given = owned ? input.release() : input.get();
    xhtml_parser parser(given);
    parser.owns_input = owned;
    EXPECT_THROW(parse_page(parser, div), input_broke);
    EXPECT_EQ(parser.input, given);
    EXPECT_EQ(children(), "");
  }
}

/// Accepts `count` pieces of text and refuses the following ones.
class refusing_buffer : public std::basic_streambuf<char16> {
 public:
  explicit refusing_buffer(int count) : left_(count) {}

 protected:
  std::streamsize xsputn(const char16*, std::streamsize count) override {
    return left_-- > 0 ? count : 0;
  }
  int sync() override { return left_-- > 0 ? 0 : -1; }

 private:
  int left_;
};

TEST_F(ParsePage, MessageStreamThatThrows) {
  const ustring text =
      u"\uFFFE" + swapped(u"<p>a<p>b<i><li>c</foo><pre>d</pre></i><bar>e</p></body><");
  bool threw = true;
  int count = 0;
  for (; threw; ++count) {
    xhtml_doc doc(0);
    refusing_buffer buffer(count);
    std::basic_ostream<char16> stream(&buffer);
    stream.exceptions(std::ios_base::badbit);
    text_input input(text);
    xhtml_parser parser(&input);
    parser.messages = &stream;
    parser.message_mask = 15;
    threw = false;
    try {
      parse_page(parser, *doc.root());
    } catch (const std::ios_base::failure&) {
      threw = true;
    }
    EXPECT_EQ(parser.input, &input);
    EXPECT_TRUE(is_intact(*doc.root()));
    doc.reindex();
  }
  EXPECT_GT(count, 15);
}

TEST_F(ParsePage, MessageStreamThatFailsSilentlyChangesNothing) {
  refusing_buffer buffer(3);
  std::basic_ostream<char16> stream(&buffer);
  text_input input(u"<p>a<p>b</foo><p>c");
  xhtml_parser parser(&input);
  parser.messages = &stream;
  parser.message_mask = 15;
  parse_page(parser, div);
  EXPECT_EQ(children(), "p('a') p('b') p('c')");
  EXPECT_TRUE(stream.bad());
}

}  // namespace
}  // namespace test
