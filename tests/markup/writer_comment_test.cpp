#include <gtest/gtest.h>

#include <cstdint>

#include "tests/markup/writer_kit.h"

namespace test {
namespace {

outcome at_level(ustring_view text, std::int16_t level) {
  return write_with(comment(text), [level](xhtml_writer& writer) { writer.indent_level = level; });
}

TEST(WriterComment, Plain) {
  EXPECT_TRUE(is_outcome(at_level(u"a b", 1), u"<!-- a b -->", 12));
  EXPECT_TRUE(is_outcome(at_level(u"", 1), u"<!--  -->", 9));
}

TEST(WriterComment, DashesAreNotLookedAt) {
  EXPECT_TRUE(is_outcome(at_level(u"a--b-->", 0), u"<!-- a--b--> -->", 16));
}

TEST(WriterComment, ARunBecomesItsFirstUnit) {
  EXPECT_TRUE(is_outcome(at_level(u"a  b", 1), u"<!-- a b -->", 12));
  EXPECT_TRUE(is_outcome(at_level(u"a\t  b", 1), u"<!-- a\tb -->", 12));
  EXPECT_TRUE(is_outcome(at_level(u"a \t b\r\rc", 1), u"<!-- a b\rc -->", 14));
}

TEST(WriterComment, ALineFeedIsFollowedByBlanksAndSetsTheColumn) {
  EXPECT_TRUE(is_outcome(at_level(u"a\nb", 1), u"<!-- a\n  b -->", 7));
  EXPECT_TRUE(is_outcome(at_level(u"a\nb", 3), u"<!-- a\n      b -->", 11));
  EXPECT_TRUE(is_outcome(at_level(u"a\nb", 0), u"<!-- a\nb -->", 5));
}

// The blanks come once for each line feed of the run, the unit once, and the column
// forgets all but the last.
TEST(WriterComment, SeveralLineFeedsInARun) {
  EXPECT_TRUE(is_outcome(at_level(u"a\n\nb", 1), u"<!-- a\n    b -->", 7));
  EXPECT_TRUE(is_outcome(at_level(u"a\n \n\t\nb", 1), u"<!-- a\n      b -->", 7));
  EXPECT_TRUE(is_outcome(at_level(u"a\n\nb", 0), u"<!-- a\nb -->", 5));
}

TEST(WriterComment, ARunThatStartsWithAnotherUnitHasNoLineBreak) {
  EXPECT_TRUE(is_outcome(at_level(u"a \nb", 1), u"<!-- a   b -->", 7));
  EXPECT_TRUE(is_outcome(at_level(u"a\r\nb", 1), u"<!-- a\r  b -->", 7));
  EXPECT_TRUE(is_outcome(at_level(u"a \n\n b", 2), u"<!-- a         b -->", 9));
}

TEST(WriterComment, RunsAtTheStartAndAtTheEnd) {
  EXPECT_TRUE(is_outcome(at_level(u"\t a", 1), u"<!-- \ta -->", 11));
  EXPECT_TRUE(is_outcome(at_level(u"\na", 1), u"<!-- \n  a -->", 7));
  EXPECT_TRUE(is_outcome(at_level(u"a\n", 1), u"<!-- a\n   -->", 6));
  EXPECT_TRUE(is_outcome(at_level(u" \n ", 1), u"<!--     -->", 6));
}

// The column becomes -8, and 5 more units follow.
TEST(WriterComment, ANegativeLevelHasNoBlanksButCounts) {
  EXPECT_TRUE(is_outcome(at_level(u"a\nb", -4), u"<!-- a\nb -->", std::uint64_t{0} - 3));
}

TEST(WriterComment, LongLinesAreNotWrapped) {
  const auto out = write_with(comment(u"aaaa bbbb cccc"),
                              [](xhtml_writer& writer) { writer.max_line_length = 5; });
  EXPECT_TRUE(is_outcome(out, u"<!-- aaaa bbbb cccc -->", 23));
}

TEST(WriterComment, UnitsAbove127AreThemselves) {
  EXPECT_TRUE(is_outcome(at_level(u"\u4E2D\xD83D\uFFFF", 0), u"<!-- \u4E2D\xD83D\uFFFF -->", 12));
}

TEST(WriterComment, InTheTree) {
  EXPECT_TRUE(
      same_units(written(make(tag_id::div, comment(u"x"), make(tag_id::p, comment(u"y\nz")))),
                 u"<div>\n"
                 u"  <!-- x -->\n"
                 u"  <p>\n"
                 u"    <!-- y\n"
                 u"    z -->\n"
                 u"  </p>\n"
                 u"</div>\n"));
}

TEST(WriterComment, DirectlyBelowTheDocument) {
  EXPECT_TRUE(same_units(written(make(tag_id::doc_root, comment(u"x\ny"), make(tag_id::p))),
                         u"<!-- x\ny -->\n<p>\n</p>\n"));
}

}  // namespace
}  // namespace test
