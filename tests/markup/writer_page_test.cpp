#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>

#include "tests/markup/writer_kit.h"
#include "xport/markup/xhtml_doc.h"

namespace test {
namespace {

ustring page(const xhtml_doc& doc, std::uint32_t byte_order_mark) {
  ustring_stream stream;
  xhtml_writer writer(stream);
  writer.byte_order_mark = byte_order_mark;
  EXPECT_TRUE(doc.write(writer));
  return stream.str();
}

constexpr std::uint32_t no_mark = 0;

TEST(WriterPage, WholePage) {
  xhtml_doc doc(1);
  *doc.title() << u"T";
  *doc.body() << make(tag_id::p, u"one", make(tag_id::b, u"two"), u" three")
              << make(tag_id::pre, u"x");
  EXPECT_TRUE(is_golden(page(doc, no_mark), "whole_page.xhtml"));
}

TEST(WriterPage, Skeleton) {
  EXPECT_TRUE(is_golden(page(xhtml_doc(1), no_mark), "skeleton_page.xhtml"));
}

TEST(WriterPage, AFreshWriterPutsTheByteOrderMarkFirst) {
  ustring_stream stream;
  xhtml_writer writer(stream);
  EXPECT_TRUE(xhtml_doc(1).write(writer));
  EXPECT_TRUE(same_units(stream.str(), u'\uFEFF' + page(xhtml_doc(1), no_mark)));
}

TEST(WriterPage, ByteOrderMarks) {
  const xhtml_doc doc(0);
  EXPECT_TRUE(same_units(page(doc, 0), u""));
  EXPECT_TRUE(same_units(page(doc, 1), u""));
  EXPECT_TRUE(same_units(page(doc, 2), u"\uFEFF"));
  EXPECT_TRUE(same_units(page(doc, 3), ustring(u"\0\uFEFF", 2)));
  EXPECT_TRUE(same_units(page(doc, 4), u""));
  EXPECT_TRUE(same_units(page(doc, 0xFFFFFFFF), u""));
}

TEST(WriterPage, AnElementWrittenAloneHasNoMark) {
  EXPECT_TRUE(same_units(written(make(tag_id::p)), u"<p>\n</p>\n"));
}

TEST(WriterPage, AFailedStreamIsRefusedAndGetsNothing) {
  for (const auto state : {std::ios_base::failbit, std::ios_base::badbit}) {
    ustring_stream stream;
    stream.exceptions(std::ios_base::goodbit);
    stream.setstate(state);
    xhtml_writer writer(stream);
    EXPECT_FALSE(xhtml_doc(1).write(writer));
    EXPECT_EQ(stream.str().size(), 0u);
  }
}

// The end of input is no failure.
TEST(WriterPage, AStreamWithEofbitIsAskedToWrite) {
  ustring_stream stream;
  stream.setstate(std::ios_base::eofbit);
  xhtml_writer writer(stream);
  EXPECT_TRUE(xhtml_doc(1).write(writer));
}

TEST(WriterPage, DoctypeHas114UnitsAndALineFeed) {
  xhtml_doctype_declaration doctype;
  const ustring text = written(doctype);
  EXPECT_TRUE(same_units(text,
                         u"<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Strict//EN\"\n"
                         u"     \"http://www.w3.org/TR/xhtml1/DTD/xhtml1-strict.dtd\">\n"));
  ASSERT_EQ(text.size(), 115u);
  EXPECT_EQ(text.back(), u'\n');
}

TEST(WriterPage, DoctypeTextIsIgnoredAndTheColumnStays) {
  xhtml_doctype_declaration doctype;
  doctype << u"html SYSTEM";
  const outcome out = write_with(doctype, [](xhtml_writer& writer) { writer.column = 7; });
  EXPECT_TRUE(same_units(out.text, written(xhtml_doctype_declaration())));
  EXPECT_EQ(out.column, 7u);
}

TEST(WriterPage, ABlankLineFollowsTheDoctypeOnly) {
  xhtml_doc doc(1);
  *doc.body() << make(tag_id::p, u"a") << make(tag_id::hr) << make(tag_id::p, u"b");
  const ustring text = page(doc, no_mark);
  const std::size_t blank_line = text.find(u"\n\n");
  EXPECT_EQ(blank_line, 114u);
  EXPECT_EQ(text.find(u"\n\n", blank_line + 1), ustring::npos);
}

TEST(WriterPage, TheWholeTextIsOnTheStreamWhenWriteReturns) {
  ustring_stream stream;
  xhtml_writer writer(stream);
  make(tag_id::b, u"x").write(writer);
  EXPECT_TRUE(same_units(stream.str(), u"<b>x</b>"));
  xhtml_pcdata(u"y").write(writer);
  EXPECT_TRUE(same_units(stream.str(), u"<b>x</b>y"));
}

TEST(WriterPage, StyleTextKeepsInStepWithTheIndentation) {
  xhtml_doc doc(1);
  xhtml_element style = make(tag_id::style, u"h1 { \n   color: red;\n}\n\n");
  doc.head()->append_copy(style);
  const ustring text = page(doc, no_mark);
  EXPECT_NE(text.find(u"    <style>\n"
                      u"      h1 { \n"
                      u"         color: red;\n"
                      u"      }\n"
                      u"      \n"
                      u"      \n"
                      u"    </style>\n"),
            ustring::npos)
      << printable(text);
}

}  // namespace
}  // namespace test
