#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <locale>
#include <stdexcept>

#include "tests/markup/writer_kit.h"
#include "tests/support/locale.h"

namespace test {
namespace {

outcome at_level(const xhtml_markup& node, std::int16_t level, std::uint64_t column = 0) {
  return write_with(node, [=](xhtml_writer& writer) {
    writer.indent_level = level;
    writer.column = column;
  });
}

TEST(WriterState, AnElementAloneIsAsInADocumentAtLevel0) {
  const xhtml_element div = make(tag_id::div, make(tag_id::p, u"x\ny"), make(tag_id::pre, u"z"));
  EXPECT_TRUE(same_units(written(div), written(make(tag_id::doc_root, div))));
}

TEST(WriterState, ASubtreeOfATree) {
  const xhtml_element div = make(tag_id::div, make(tag_id::pre, make(tag_id::b, u"x")));
  // The first line has no blanks: the parent would write them.
  EXPECT_TRUE(same_units(written(*div.begin()), u"<pre><b>x</b>\n</pre>"));
  EXPECT_TRUE(same_units(written(*div.begin()->begin()), u"<b>x</b>"));
  EXPECT_TRUE(same_units(written(*div.begin()->begin()->begin()), u"x"));
}

TEST(WriterState, ATextAloneKnowsItsParent) {
  const xhtml_element pre = make(tag_id::pre, u"a\nb");
  EXPECT_TRUE(same_units(at_level(*pre.begin(), 2).text, u"a\nb"));
  const xhtml_element p = make(tag_id::p, u"a\nb");
  EXPECT_TRUE(same_units(at_level(*p.begin(), 2).text, u"a\n    b"));
  EXPECT_TRUE(same_units(at_level(xhtml_pcdata(u"a\nb"), 2).text, u"a\n    b"));
}

TEST(WriterState, TheLevelOfTheFirstElementIsTheWriters) {
  const outcome out = at_level(make(tag_id::p, u"x"), 2);
  EXPECT_TRUE(is_outcome(out, u"<p>\n      x\n    </p>\n", 0));
  EXPECT_EQ(out.indent_level, 2);
}

TEST(WriterState, ANegativeLevelIsSetTo0) {
  for (const std::int16_t level : std::array<std::int16_t, 3>{-1, -5, -32768}) {
    const outcome out = at_level(make(tag_id::p, u"x"), level);
    EXPECT_TRUE(is_outcome(out, u"<p>\n  x\n</p>\n", 0)) << level;
    EXPECT_EQ(out.indent_level, 0) << level;
  }
}

TEST(WriterState, ANegativeLevelIsNothingToAText) {
  const outcome out = at_level(xhtml_pcdata(u"a\nb"), -5, 9);
  EXPECT_TRUE(is_outcome(out, u"a\nb", 9));
  EXPECT_EQ(out.indent_level, -5);
}

TEST(WriterState, TheRootSetsTheLevelToMinus1) {
  for (const std::int16_t level : std::array<std::int16_t, 3>{0, 7, -3}) {
    const outcome out = at_level(make(tag_id::doc_root, make(tag_id::p, u"x")), level);
    EXPECT_TRUE(is_outcome(out, u"<p>\n  x\n</p>\n", 0)) << level;
    EXPECT_EQ(out.indent_level, -1) << level;
  }
}

TEST(WriterState, AnEmptyRootWritesNothing) {
  const outcome out = at_level(make(tag_id::doc_root), 3, 5);
  EXPECT_TRUE(is_outcome(out, u"", 5));
  EXPECT_EQ(out.indent_level, -1);
}

TEST(WriterState, TextDirectlyBelowTheRoot) {
  EXPECT_TRUE(same_units(written(make(tag_id::doc_root, u"a\nb", make(tag_id::p), u"c")),
                         u"a\nb\n<p>\n</p>\nc"));
}

// The root sets the level, which its parents then count down from.
TEST(WriterState, ARootInsideOtherElements) {
  const xhtml_element inner = make(tag_id::doc_root, make(tag_id::p, u"x"));
  const xhtml_element div =
      make(tag_id::div, make(tag_id::div, make(tag_id::div, inner, u"t")), make(tag_id::p));
  // The three divs are at 0, 1 and 2; the root leaves -1 and each level above it one less.
  // The root's own blanks are written (layout 15), its tags aren't.
  const outcome out = at_level(div, 0);
  EXPECT_TRUE(is_outcome(out,
                         u"<div>\n"
                         u"  <div>\n"
                         u"    <div>\n"
                         u"      <p>\n"
                         u"  x\n"
                         u"</p>\n"
                         u"t\n"
                         u"</div>\n"
                         u"</div>\n"
                         u"<p>\n"
                         u"</p>\n"
                         u"</div>\n",
                         0));
  EXPECT_EQ(out.indent_level, -1);
}

TEST(WriterState, StateIsCarriedFromNodeToNode) {
  ustring_stream stream;
  xhtml_writer writer(stream);
  make(tag_id::p, u"a").write(writer);
  EXPECT_EQ(writer.column, 0u);
  make(tag_id::b, u"x").write(writer);
  EXPECT_EQ(writer.column, 7u);  // text isn't counted
  comment(u"c").write(writer);
  EXPECT_EQ(writer.column, 17u);
  make(tag_id::p).write(writer);
  EXPECT_EQ(writer.column, 0u);
  EXPECT_TRUE(same_units(stream.str(), u"<p>\n  a\n</p>\n<b>x</b><!-- c --><p>\n</p>\n"));
}

TEST(WriterState, TheColumnOfInlineContent) {
  // 2 blanks, "<b>", "<br/>" and its line feed; then the level's 2 and one level more
  // than is written, "</b>".
  const xhtml_element b = make(tag_id::b, u"text", make(tag_id::br), u"more");
  const outcome out = at_level(b, 1, 2);
  EXPECT_TRUE(is_outcome(out, u"<b>text<br/>\n  more</b>", 8));
}

// The blanks of a `pre` that follows nothing: its end tag sets the column.
TEST(WriterState, TheColumnAfterPre) {
  EXPECT_TRUE(is_outcome(at_level(make(tag_id::pre, u"x"), 3, 100), u"<pre>x\n      </pre>", 12));
}

TEST(WriterState, ThePresetColumnSavesAnEndTagFromIndentation) {
  const outcome out = write_with(make(tag_id::b), [](xhtml_writer& writer) {
    writer.column = static_cast<std::uint64_t>(-3);  // "<b>" makes it 0
    writer.indent_level = 2;
  });
  EXPECT_TRUE(is_outcome(out, u"<b>    </b>", 8));
}

// The level has 16 bits.
TEST(WriterState, TheLevelWraps) {
  const outcome out = write_with(make(tag_id::div, make(tag_id::div, make(tag_id::div, u"x"))),
                                 [](xhtml_writer& writer) {
                                   writer.indent_level = 32766;
                                   writer.indent_step = 1;
                                 });
  EXPECT_TRUE(is_outcome(out,
                         u"<div>\n" + ustring(32767, u' ') + u"<div>\n" + ustring(32768, u' ') +
                             u"<div>\n x\n</div>\n</div>\n</div>\n",
                         0));
  EXPECT_EQ(out.indent_level, -2);
}

// A locale whose facet throws for an asterisk.
std::locale throwing_locale() {
  class facet : public std::ctype<wchar_t> {
   protected:
    bool do_is(mask classes, wchar_t unit) const override {
      if (unit == L'*') throw std::runtime_error("the facet broke");
      return std::ctype<wchar_t>::do_is(classes, unit);
    }
  };
  return std::locale(std::locale::classic(), new facet);
}

TEST(WriterState, AThrowingFacetLeavesWriterAndStreamUsable) {
  const auto write_broken = [](xhtml_writer& writer, const Xport::xhtml_markup& node) {
    const global_locale global(throwing_locale());
    EXPECT_THROW(node.write(writer), std::runtime_error);
  };
  ustring_stream stream;
  xhtml_writer writer(stream);
  write_broken(writer, test::comment(u"a*"));
  EXPECT_TRUE(same_units(stream.view(), u"<!-- a*"));
  stream << ustring(100, u'o');
  write_broken(writer, make(tag_id::b, u"x", test::comment(u"*")));
  stream.put(u'o');
  make(tag_id::i, u"y").write(writer);
  EXPECT_TRUE(same_units(stream.view(), u"<!-- a*" + ustring(100, u'o') + u"<b>x<!-- *o<i>y</i>"));
}

}  // namespace
}  // namespace test
