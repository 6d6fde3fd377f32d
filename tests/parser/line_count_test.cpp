// Which newlines the parser counts, as its messages show.

#include <gtest/gtest.h>

#include <cstdint>
#include <string>

#include "tests/parser/parse_kit.h"

namespace test {
namespace {

/// The line after `text`, in a `div`. A tag of an unknown name after it must be reported
/// there.
std::uint32_t line_after(ustring_view text) {
  const std::uint32_t line = parse(text).line;
  const std::string last = message(line, "Invalid Tag");
  const std::string all = messages_of(ustring(text) + u"<foo>", 1);
  EXPECT_TRUE(all.ends_with(last)) << all;
  return line;
}

TEST(LineCount, BeginsWithOne) { EXPECT_EQ(line_after(u""), 1u); }

TEST(LineCount, TextCountsEachNewline) {
  EXPECT_EQ(line_after(u"a\nb"), 2u);
  EXPECT_EQ(line_after(u"\n"), 2u);
  EXPECT_EQ(line_after(u"\n\n a \n\n\t\nb\n"), 7u);
  EXPECT_EQ(line_after(u"a\r\nb\r\n"), 3u);
  EXPECT_EQ(line_after(u"a\rb\vc\fd\u0085e\u2028f\u010A"), 1u);
  EXPECT_EQ(line_after(u"\"a\n<b>\n\""), 3u);
}

TEST(LineCount, TextThatKeepsItsNewlinesCountsThemOnce) {
  parse_case how;
  how.preserve_newlines = true;
  EXPECT_EQ(parse(u"\na\nb \n\n c\n", how).line, 6u);
  EXPECT_EQ(line_after(u"<script>\na\n\n b\n</script>\n"), 6u);
  EXPECT_EQ(line_after(u"</pre>a\nb\n"), 3u);
}

TEST(LineCount, StyleCountsTheNewlinesOfItsText) {
  parse_case how;
  how.path = {tag_id::html, tag_id::head};
  EXPECT_EQ(parse(u"<style>\np {\n}\n</style>\n", how).line, 5u);
}

TEST(LineCount, StartTagCountsEachNewline) {
  EXPECT_EQ(line_after(u"<b\nclass='a'\n>"), 3u);
  EXPECT_EQ(line_after(u"<b title='a\nb\r\nc'></b>"), 3u);
  EXPECT_EQ(line_after(u"<br\n/>"), 2u);
  EXPECT_EQ(line_after(u"<b \n\n d\n>"), 4u);
}

TEST(LineCount, MessageAboutATagHasTheLineAfterIt) {
  EXPECT_EQ(messages_of(u"\n\n<foo>\n", 1), message(3, "Invalid Tag"));
  EXPECT_EQ(messages_of(u"<p/>\n", 1), message(1, "Invalid />"));
  EXPECT_EQ(messages_of(u"<b\n\n>", 4), message(3, "b encountered.\n"));
  EXPECT_EQ(messages_of(u"<ul><p\n>", 1),
            message(2, "Couldn't insert <p> into <ul>.\nEnding <ul> element.\n"));
}

// read_markup counts it, and so does the next reader.
TEST(LineCount, NewlineAfterLessThanCountsTwice) {
  EXPECT_EQ(line_after(u"a <\n b "), 3u);
  EXPECT_EQ(line_after(u"<\n\n"), 4u);
  EXPECT_EQ(line_after(u"< \n"), 2u);
  EXPECT_EQ(line_after(u"<\n"), 3u);
  parse_case how;
  how.preserve_newlines = true;
  EXPECT_EQ(parse(u"<\nb", how).line, 3u);
  EXPECT_EQ(parse(u"<\nb", how).children, "'<\n\nb'");
}

TEST(LineCount, NewlineAfterAnUnknownNameCountsOnce) {
  EXPECT_EQ(line_after(u"<xyz\n"), 2u);
  EXPECT_EQ(line_after(u"<xyz\na\n>"), 3u);
  EXPECT_EQ(line_after(u"<xyz a\n>"), 2u);
}

TEST(LineCount, EndTagCountsNone) {
  EXPECT_EQ(line_after(u"<b></b\n>"), 1u);
  EXPECT_EQ(line_after(u"</\n>"), 1u);
  EXPECT_EQ(parse(u"<b></\n\n").line, 1u);
  EXPECT_EQ(messages_of(u"</x\n>", 2),
            message(1, "Expecting end tag </div>.  Encountered </x\n>\nSkipping </x\n> tag.\n"));
}

TEST(LineCount, PreformattedTextCountsNone) {
  EXPECT_EQ(line_after(u"<pre>\na\n\n</pre>"), 1u);
  EXPECT_EQ(line_after(u"<pre\n>\na\n</pre>\n"), 3u);
  EXPECT_EQ(parse(u"<pre>\n<b\n>").line, 1u);
}

TEST(LineCount, CommentCountsEachNewline) {
  EXPECT_EQ(line_after(u"<!--\na\n-->"), 3u);
  EXPECT_EQ(line_after(u"<!--a-\nb--\nc---\nd-->"), 4u);
  EXPECT_EQ(parse(u"<!--\na\n").line, 3u);
  EXPECT_EQ(line_after(u"<!-\na\n"), 3u);  // text
  EXPECT_EQ(line_after(u"<!-a\n"), 2u);
}

TEST(LineCount, InstructionCountsEachNewline) {
  EXPECT_EQ(line_after(u"<?\na\n?>"), 3u);
  EXPECT_EQ(line_after(u"<?a?\nb\n?>"), 3u);
  EXPECT_EQ(parse(u"<?\na\n").line, 3u);
}

TEST(LineCount, DeclarationCountsEachNewline) {
  EXPECT_EQ(line_after(u"<!\nDOCTYPE\nx>"), 3u);
  EXPECT_EQ(parse(u"<!a\nb\n").line, 3u);
}

TEST(LineCount, MessageAtTheEndHasTheLastLine) {
  EXPECT_EQ(messages_of(u"a\n\n<", 1), message(3, "Invalid end of document."));
  EXPECT_EQ(messages_of(u"a\n\n<!-", 1), message(3, "Invalid end of document."));
}

TEST(LineCount, AllTogether) {
  EXPECT_EQ(line_after(u"<!--1\n-->\n<b\n>c\n</b\n>\n<?\n?>\n<pre>\n\n</pre>\n< b\n<\n"), 12u);
}

}  // namespace
}  // namespace test
