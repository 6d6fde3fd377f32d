#include <gtest/gtest.h>

#include <cstddef>
#include <ostream>
#include <streambuf>

#include "tests/markup/writer_kit.h"
#include "xport/markup/xhtml_doc.h"

namespace test {
namespace {

// `depth` elements, each in the one before, and the last with a text.
void nest(xhtml_doc& doc, tag_id tag, std::size_t depth) {
  xhtml_markup* parent = doc.root();
  for (; depth != 0; --depth) parent = append_element(*parent, tag).cell();
  *parent << u"x";
}

ustring repeated(ustring_view part, std::size_t count) {
  ustring text;
  text.reserve(part.size() * count);
  for (; count != 0; --count) text += part;
  return text;
}

TEST(WriterDepth, AMillionInlineElements) {
  constexpr std::size_t depth = 1'000'000;
  xhtml_doc doc(0);
  nest(doc, tag_id::span, depth);
  ustring_stream stream;
  xhtml_writer writer(stream);
  writer.byte_order_mark = 0;
  ASSERT_TRUE(doc.write(writer));
  EXPECT_TRUE(
      same_units(stream.str(), repeated(u"<span>", depth) + u'x' + repeated(u"</span>", depth)));
  EXPECT_EQ(writer.column, 13 * depth);
}

TEST(WriterDepth, BlocksBeyondTheHighestLevel) {
  constexpr std::size_t depth = 32770;
  xhtml_doc doc(0);
  nest(doc, tag_id::div, depth);
  ustring_stream stream;
  xhtml_writer writer(stream);
  writer.indent_step = 0;
  doc.root()->begin()->write(writer);
  EXPECT_TRUE(same_units(stream.str(),
                         repeated(u"<div>\n", depth) + u"x\n" + repeated(u"</div>\n", depth)));
  // The 32769th one starts at -32768 and continues from 0, so that the way back ends
  // 32768 levels below 0.
  EXPECT_EQ(writer.indent_level, -32768);
}

// Counts the units and calls that a buffer gets.
class counting_buffer : public std::basic_streambuf<char16> {
 public:
  std::size_t units = 0;
  std::size_t calls = 0;

 protected:
  std::streamsize xsputn(const char16*, std::streamsize count) override {
    units += static_cast<std::size_t>(count);
    ++calls;
    return count;
  }
  int_type overflow(int_type unit) override {
    ++units;
    ++calls;
    return traits_type::not_eof(unit);
  }
};

TEST(WriterDepth, TheStreamIsAskedByUnitsAndNotByElements) {
  for (const std::size_t elements : {1u, 1000u, 100'000u}) {
    xhtml_doc doc(0);
    for (std::size_t i = 0; i < elements; ++i) append_element(*doc.root(), tag_id::p);
    counting_buffer buffer;
    std::basic_ostream<char16> stream(&buffer);
    xhtml_writer writer(stream);
    ASSERT_TRUE(doc.write(writer));
    EXPECT_EQ(buffer.units, 1 + 9 * elements);
    EXPECT_LE(buffer.calls, buffer.units / 32'000 + 2) << elements;
  }
}

}  // namespace
}  // namespace test
