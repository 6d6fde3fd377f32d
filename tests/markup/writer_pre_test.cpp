#include <gtest/gtest.h>

#include <cstddef>

#include "tests/markup/writer_kit.h"

namespace test {
namespace {

TEST(WriterPre, WithoutChildren) {
  EXPECT_TRUE(same_units(written(make(tag_id::pre)), u"<pre>\n</pre>"));
  EXPECT_TRUE(same_units(written(make(tag_id::div, make(tag_id::div, make(tag_id::pre)))),
                         u"<div>\n  <div>\n    <pre>\n    </pre>\n  </div>\n</div>\n"));
}

TEST(WriterPre, TextIsUntouched) {
  EXPECT_TRUE(same_units(written(make(tag_id::div, make(tag_id::pre, u" a\n\n\tb  \n"))),
                         u"<div>\n  <pre> a\n\n\tb  \n\n  </pre>\n</div>\n"));
}

TEST(WriterPre, TextIsUntouchedWhereLinesAreWrapped) {
  const auto out = write_with(make(tag_id::pre, u"aaaa   bbbb\ncccc"),
                              [](xhtml_writer& writer) { writer.max_line_length = 6; });
  EXPECT_TRUE(is_outcome(out, u"<pre>aaaa   bbbb\ncccc\n</pre>", 6));
}

// Only text that is a child of `pre` itself keeps its lines.
TEST(WriterPre, TextOfAnInlineChildIsIndented) {
  EXPECT_TRUE(same_units(
      written(make(tag_id::div, make(tag_id::pre, u"1\n2", make(tag_id::b, u"x\ny"), u"z\n"))),
      u"<div>\n  <pre>1\n2<b>x\n  y</b>z\n\n  </pre>\n</div>\n"));
}

TEST(WriterPre, BrInPreHasNoIndentationAfterIt) {
  EXPECT_TRUE(
      same_units(written(make(tag_id::div, make(tag_id::pre, u"a", make(tag_id::br), u"b"))),
                 u"<div>\n  <pre>a<br/>\nb\n  </pre>\n</div>\n"));
}

TEST(WriterPre, BrAtTheEndIsTheLineBreakBeforeTheEndTag) {
  // `pre` treats the line as open only where the last child hasn't closed it.
  EXPECT_TRUE(
      same_units(written(make(tag_id::pre, u"a", make(tag_id::br))), u"<pre>a<br/>\n</pre>"));
}

TEST(WriterPre, AnEndTagInPreIsNotIndented) {
  EXPECT_TRUE(same_units(
      written(make(tag_id::div, make(tag_id::pre, make(tag_id::span, u"a", make(tag_id::br))))),
      u"<div>\n  <pre><span>a<br/>\n</span>\n  </pre>\n</div>\n"));
}

TEST(WriterPre, ABlockLayoutInPreIsIndentedAsItsSiblings) {
  EXPECT_TRUE(same_units(written(make(tag_id::pre, make(tag_id::label, u"x"))),
                         u"<pre>\n<label>\n  x\n</label>\n</pre>"));
  EXPECT_TRUE(same_units(written(make(tag_id::div, make(tag_id::pre, make(tag_id::label, u"x")))),
                         u"<div>\n"
                         u"  <pre>\n"
                         u"  <label>\n"
                         u"    x\n"
                         u"  </label>\n"
                         u"  </pre>\n"
                         u"</div>\n"));
}

TEST(WriterPre, FirstMiddleAndLastAmongTexts) {
  EXPECT_TRUE(same_units(written(make(tag_id::div, make(tag_id::pre, u"1"), u"t",
                                      make(tag_id::pre, u"2"), u"u", make(tag_id::pre, u"3"))),
                         u"<div>\n  <pre>1\n  </pre>t<pre>2\n  </pre>u<pre>3\n  </pre>\n</div>\n"));
}

TEST(WriterPre, BetweenBlocks) {
  EXPECT_TRUE(
      same_units(written(make(tag_id::div, make(tag_id::p), make(tag_id::pre), make(tag_id::p))),
                 u"<div>\n  <p>\n  </p>\n  <pre>\n  </pre>\n  <p>\n  </p>\n</div>\n"));
}

TEST(WriterPre, InAnInlineParent) {
  EXPECT_TRUE(
      same_units(written(make(tag_id::p, make(tag_id::button, make(tag_id::pre, u"x"), u"y"))),
                 u"<p>\n  <button><pre>x\n  </pre>y</button>\n</p>\n"));
}

TEST(WriterPre, ACommentInPreIsSqueezedAsAnyOther) {
  EXPECT_TRUE(same_units(written(make(tag_id::div, make(tag_id::pre, comment(u"a\n\n b")))),
                         u"<div>\n  <pre><!-- a\n    b -->\n  </pre>\n</div>\n"));
}

TEST(WriterPre, AnInstructionInPreHasALineAtTheLevelOfPre) {
  EXPECT_TRUE(
      same_units(written(make(tag_id::div, make(tag_id::pre, u"a", instruction(u"x"), u"b"))),
                 u"<div>\n  <pre>a\n  <?x ?>\nb\n  </pre>\n</div>\n"));
}

// The layout and the element are checked separately.
TEST(WriterPre, PreWithAnotherLayoutKeepsItsLineFeedsUnindented) {
  const auto out =
      write_with(make(tag_id::div, make(tag_id::pre, u"a\nb")), [](xhtml_writer& writer) {
        writer.layout_table[static_cast<std::size_t>(tag_id::pre)] = 15;
      });
  EXPECT_TRUE(same_units(out.text, u"<div>\n  <pre>\n    a\nb\n  </pre>\n</div>\n"));
}

TEST(WriterPre, AnotherElementWithTheLayoutOfPre) {
  const auto out =
      write_with(make(tag_id::div, make(tag_id::p, u"a  b\nc")), [](xhtml_writer& writer) {
        writer.layout_table[static_cast<std::size_t>(tag_id::p)] = 32;
        writer.max_line_length = 12;
      });
  EXPECT_TRUE(same_units(out.text, u"<div>\n  <p>a  b\n  c\n  </p>\n</div>\n"));
}

TEST(WriterPre, ScriptTextIsIndentedAndNeverReflowed) {
  for (const std::uint64_t length : {0u, 5u}) {
    const auto out =
        write_with(make(tag_id::div, make(tag_id::script, u" a  <b;\nccccccccc;")),
                   [length](xhtml_writer& writer) { writer.max_line_length = length; });
    EXPECT_TRUE(same_units(
        out.text, u"<div>\n  <script>\n     a  <b;\n    ccccccccc;\n  </script>\n</div>\n"))
        << length;
  }
}

TEST(WriterPre, StyleTextIsIndentedAndNeverReflowed) {
  const auto out = write_with(make(tag_id::head, make(tag_id::style, u"a  {\n   b: c;\n}\n")),
                              [](xhtml_writer& writer) { writer.max_line_length = 5; });
  EXPECT_TRUE(same_units(out.text,
                         u"<head>\n"
                         u"  <style>\n"
                         u"    a  {\n"
                         u"       b: c;\n"
                         u"    }\n"
                         u"    \n"
                         u"  </style>\n"
                         u"</head>\n"));
}

}  // namespace
}  // namespace test
