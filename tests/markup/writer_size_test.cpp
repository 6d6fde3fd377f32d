#include <gtest/gtest.h>

#include <cstddef>
#include <ostream>

#include "tests/markup/writer_kit.h"
#include "tests/support/unit_buffers.h"
#include "xport/stream/unit_output.h"

// Output about as long as the blocks that a buffer without a put area gets, and as a put area
// of that size.

namespace test {
namespace {

constexpr std::size_t block = unit_output::block_units;

struct block_area_buffer : area_buffer {
  block_area_buffer() : area_buffer(block) {}
  bool got_a_block() const { return overflows != 0; }
};

struct block_run_buffer : run_buffer {
  bool got_a_block() const { return runs().size() > 1 && runs().front() == block; }
};

template <class Buffer>
class WriterSize : public ::testing::Test {
 protected:
  // What is written for `node` by a writer that `set_up` has changed.
  template <class SetUp>
  static ustring written(const xhtml_markup& node, SetUp set_up) {
    Buffer buffer;
    std::basic_ostream<char16> stream(&buffer);
    xhtml_writer writer(stream);
    set_up(writer);
    node.write(writer);
    EXPECT_TRUE(stream.good());
    EXPECT_EQ(buffer.got_a_block(), buffer.text().size() > block) << buffer.text().size();
    return buffer.text();
  }

  static ustring written(const xhtml_markup& node) {
    return written(node, [](xhtml_writer&) {});
  }
};

using buffers = ::testing::Types<block_area_buffer, block_run_buffer>;
TYPED_TEST_SUITE(WriterSize, buffers);

ustring all_units() {
  ustring text;
  for (unsigned unit = 1; unit <= 0xFFFF; ++unit) text += static_cast<char16>(unit);
  return text;
}

// A text in which a wrong place shows.
ustring numbered(std::size_t size) {
  ustring text(size, u'\0');
  for (std::size_t i = 0; i < size; ++i) text[i] = static_cast<char16>(0x4000 + i % 0x3FFF);
  return text;
}

TYPED_TEST(WriterSize, TextsAroundTheSizeOfABlock) {
  for (const std::size_t blocks : {1u, 2u, 3u})
    for (std::size_t size = blocks * block - 12; size <= blocks * block + 4; ++size) {
      const ustring text = numbered(size);
      ASSERT_TRUE(same_units(TestFixture::written(make(tag_id::b, text, make(tag_id::i, u"y"))),
                             u"<b>" + text + u"<i>y</i></b>"))
          << size;
    }
}

TYPED_TEST(WriterSize, TheLastUnitAtEveryPlaceOfTheBlocksEnd) {
  for (std::size_t size = block - 8; size <= block + 2; ++size) {
    const ustring text = ustring(size, u'a') + u"\uFFFF\uFFFF" + ustring(size, u'\uFFFF');
    ASSERT_TRUE(same_units(TestFixture::written(xhtml_pcdata(text)), text)) << size;
    ASSERT_TRUE(same_units(
        TestFixture::written(make(tag_id::b, ustring(size, u'a'), u"\uFFFF", u"\uFFFF", u"z")),
        u"<b>" + ustring(size, u'a') + u"\uFFFF\uFFFFz</b>"))
        << size;
  }
}

TYPED_TEST(WriterSize, LineFeedsAndBlanksAroundTheBlocksEnd) {
  for (std::size_t size = block - 45; size <= block + 2; ++size) {
    const ustring filler(size, u'a');
    const ustring text =
        TestFixture::written(make(tag_id::p, filler + u"\nb\nc"),
                             [](xhtml_writer& writer) { writer.indent_level = 15; });
    const ustring blanks(32, u' ');
    ASSERT_TRUE(same_units(text, u"<p>\n" + blanks + filler + u'\n' + blanks + u"b\n" + blanks +
                                     u"c\n" + ustring(30, u' ') + u"</p>\n"))
        << size;
  }
}

TYPED_TEST(WriterSize, CommentsAndInstructionsAroundTheBlocksEnd) {
  for (std::size_t size = block - 12; size <= block + 2; ++size) {
    const ustring filler(size, u'a');
    ASSERT_TRUE(same_units(TestFixture::written(comment(filler)), u"<!-- " + filler + u" -->"))
        << size;
    ASSERT_TRUE(same_units(TestFixture::written(instruction(filler)), u"<?" + filler + u" ?>\n"))
        << size;
  }
}

TYPED_TEST(WriterSize, AttributesAroundTheBlocksEnd) {
  for (std::size_t size = block - 40; size <= block + 2; ++size) {
    const ustring value = numbered(size);
    xhtml_element b = make(tag_id::b);
    b.set_attribute(attr_id::class_, value);
    b.set_attribute(attr_id::id, u"i");
    b.set_style(css_property_id::color, u"red");
    ASSERT_TRUE(same_units(TestFixture::written(b),
                           u"<b class='" + value + u"' id='i' style='color: red;'></b>"))
        << size;
  }
}

TYPED_TEST(WriterSize, WrappedTextThatIsLongerThanABlock) {
  const ustring word(99, u'w');
  ustring text;
  ustring lines;
  for (int i = 0; i < 2000; ++i) {
    text += word + u"\n\n";
    lines += word + u" \n";
  }
  text += u"end";
  lines += u"end";
  EXPECT_TRUE(
      same_units(TestFixture::written(xhtml_pcdata(text),
                                      [](xhtml_writer& writer) { writer.max_line_length = 100; }),
                 lines));
}

TYPED_TEST(WriterSize, AllUnitsInText) {
  ustring expected = all_units();
  expected.insert(expected.find(u'\n') + 1, u"  ");
  EXPECT_TRUE(same_units(TestFixture::written(make(tag_id::p, all_units())),
                         u"<p>\n  " + expected + u"\n</p>\n"));
}

TYPED_TEST(WriterSize, AllUnitsInAnAttribute) {
  xhtml_element b = make(tag_id::b);
  b.set_attribute(attr_id::title, all_units());
  EXPECT_TRUE(same_units(TestFixture::written(b), u"<b title='" + all_units() + u"'></b>"));
}

TYPED_TEST(WriterSize, ATextMayHoldTheZeroUnit) {
  const ustring text(u"a\0b\0", 4);
  EXPECT_TRUE(same_units(TestFixture::written(make(tag_id::b, text)), u"<b>" + text + u"</b>"));
}

// Short runs are copied in another way, by their length.
TYPED_TEST(WriterSize, EachShortLengthInEachPlace) {
  ustring expected;
  xhtml_element b = make(tag_id::b);
  for (std::size_t size = 0; size <= 70; ++size) {
    add(b, numbered(size));
    expected += numbered(size);
  }
  EXPECT_TRUE(same_units(TestFixture::written(b), u"<b>" + expected + u"</b>"));
}

}  // namespace
}  // namespace test
