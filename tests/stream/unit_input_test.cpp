#include "xport/stream/unit_input.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <ios>
#include <memory>
#include <sstream>

#include "tests/support/fake_file.h"
#include "tests/support/golden.h"
#include "tests/support/unit_buffers.h"
#include "xport/stream/file_input_stream.h"

namespace test {
namespace {

using string_buffer = std::basic_stringbuf<char16>;

std::size_t taken(const one_unit_buffer& buffer) { return buffer.taken(); }
std::size_t taken(const unbuffered_buffer& buffer) { return buffer.taken(); }
std::size_t taken(string_buffer& buffer) {
  return static_cast<std::size_t>(
      std::streamoff(buffer.pubseekoff(0, std::ios_base::cur, std::ios_base::in)));
}

ustring by_units(unit_input input) {
  ustring text;
  for (; !input.at_end(); input.advance()) text += input.peek();
  return text;
}

template <class Buffer>
class UnitInput : public testing::Test {};

using buffers = testing::Types<string_buffer, one_unit_buffer, unbuffered_buffer>;
TYPED_TEST_SUITE(UnitInput, buffers);

TYPED_TEST(UnitInput, AnEmptyInputIsAtItsEnd) {
  TypeParam buffer{ustring()};
  unit_input input(&buffer);
  EXPECT_EQ(input.peek(), end_unit);
  EXPECT_TRUE(input.at_end());
  EXPECT_TRUE(input.window().empty());
}

TYPED_TEST(UnitInput, ReadsUnitByUnit) {
  TypeParam buffer(ustring(u"a\0 ", 3));
  unit_input input(&buffer);
  EXPECT_FALSE(input.at_end());
  EXPECT_EQ(input.peek(), u'a');
  EXPECT_EQ(input.peek(), u'a');
  EXPECT_EQ(taken(buffer), 0u) << "a look doesn't move";
  input.advance();
  EXPECT_EQ(taken(buffer), 1u);
  EXPECT_EQ(input.peek(), u'\0');
  input.advance();
  EXPECT_EQ(input.peek(), u' ');
  input.advance();
  EXPECT_TRUE(input.at_end());
  EXPECT_TRUE(input.at_end());
  EXPECT_EQ(taken(buffer), 3u);
}

TYPED_TEST(UnitInput, ReadsEveryUnitButTheEndUnchanged) {
  ustring all;
  for (unsigned unit = 0; unit < end_unit; ++unit) all += static_cast<char16>(unit);
  TypeParam first(all);
  EXPECT_TRUE(same_units(by_units(unit_input(&first)), all));
  TypeParam second(all);
  EXPECT_TRUE(same_units(take_rest(unit_input(&second)), all));
}

TYPED_TEST(UnitInput, AUnit65535IsTheEndAndIsNotMovedOver) {
  const ustring text = u"ab\uFFFFcd";
  {
    TypeParam buffer(text);
    unit_input input(&buffer);
    EXPECT_TRUE(same_units(by_units(input), u"ab"));
    for (int look = 0; look < 3; ++look) {
      EXPECT_EQ(input.peek(), end_unit);
      EXPECT_TRUE(input.at_end());
      EXPECT_TRUE(input.window().empty());
    }
    EXPECT_EQ(taken(buffer), 2u);
  }
  {
    TypeParam buffer(text);
    EXPECT_TRUE(same_units(take_rest(unit_input(&buffer)), u"ab"));
    EXPECT_EQ(taken(buffer), 2u);
  }
}

TYPED_TEST(UnitInput, AUnit65535AtTheBeginningIsTheEnd) {
  TypeParam buffer(ustring(u"\uFFFFab"));
  unit_input input(&buffer);
  EXPECT_TRUE(input.at_end());
  EXPECT_EQ(input.peek(), end_unit);
  EXPECT_TRUE(input.window().empty());
  EXPECT_EQ(taken(buffer), 0u);
}

TYPED_TEST(UnitInput, AUnit65533IsNoEnd) {
  TypeParam buffer(ustring(u"\uFFFD\uFFFE"));
  EXPECT_TRUE(same_units(by_units(unit_input(&buffer)), u"\uFFFD\uFFFE"));
}

TYPED_TEST(UnitInput, AWindowHoldsAtLeastTheNextUnit) {
  TypeParam buffer(ustring(u"abc"));
  unit_input input(&buffer);
  for (const char16 unit : {u'a', u'b', u'c'}) {
    const ustring_view window = input.window();
    ASSERT_FALSE(window.empty());
    EXPECT_EQ(window.front(), unit);
    EXPECT_EQ(input.peek(), unit) << "a window doesn't move";
    input.advance(1);
  }
  EXPECT_TRUE(input.window().empty());
}

TYPED_TEST(UnitInput, AdvancingByNothingStays) {
  TypeParam buffer(ustring(u"ab"));
  unit_input input(&buffer);
  input.advance(0);
  EXPECT_EQ(taken(buffer), 0u);
  EXPECT_EQ(input.peek(), u'a');
  input.advance(input.window().size());
  input.advance(0);
  EXPECT_EQ(input.at_end(), taken(buffer) == 2);
}

TYPED_TEST(UnitInput, AdvancingAtTheEndStays) {
  for (const ustring text : {u"a", u"a\uFFFFb"}) {
    TypeParam buffer(text);
    unit_input input(&buffer);
    for (int i = 0; i < 3; ++i) input.advance();
    EXPECT_EQ(taken(buffer), 1u);
    EXPECT_TRUE(input.at_end());
  }
}

TYPED_TEST(UnitInput, OtherReadersContinueFromThere) {
  TypeParam buffer(ustring(u"abcdef"));
  unit_input input(&buffer);
  EXPECT_FALSE(input.window().empty());
  input.advance(1);
  EXPECT_EQ(buffer.sbumpc(), u'b');
  EXPECT_EQ(unit_input(&buffer).peek(), u'c');
  unit_input copy(input);
  copy.advance();
  EXPECT_EQ(input.peek(), u'd');
  EXPECT_TRUE(same_units(take_rest(input), u"def"));
}

TEST(UnitInputOf, NoBufferIsAtItsEnd) {
  unit_input input(nullptr);
  EXPECT_EQ(input.peek(), end_unit);
  EXPECT_TRUE(input.at_end());
  EXPECT_TRUE(input.window().empty());
  input.advance();
  input.advance(0);
  EXPECT_TRUE(input.at_end());
}

TEST(UnitInputOf, AStringShowsAllThatIsLeft) {
  string_buffer buffer(u"ab\uFFFFcd");
  unit_input input(&buffer);
  EXPECT_TRUE(same_units(input.window(), u"ab\uFFFFcd"));
  input.advance();
  EXPECT_TRUE(same_units(input.window(), u"b\uFFFFcd"));
  input.advance(1);
  EXPECT_TRUE(input.window().empty()) << "the unit 65535 is first in it";
}

TEST(UnitInputOf, AFileShowsItsBlocks) {
  constexpr std::size_t block = file_input_buffer::block_units;
  input_record record;
  const ustring text = ustring(block, u'a') + ustring(block, u'b') + u"c";
  record.bytes = file_bytes(text);
  file_input_buffer buffer(std::make_unique<fake_input>(record));
  unit_input input(&buffer);
  EXPECT_TRUE(record.reads.empty()) << "nothing is read before the first look";
  EXPECT_TRUE(same_units(input.window(), ustring(block, u'a')));
  input.advance(block);
  EXPECT_EQ(record.reads.size(), 1u) << "nothing is read before the next look";
  EXPECT_TRUE(same_units(input.window(), ustring(block, u'b')));
  input.advance(block - 1);
  EXPECT_TRUE(same_units(input.window(), u"b"));
  input.advance();
  EXPECT_TRUE(same_units(input.window(), u"c"));
  input.advance();
  EXPECT_TRUE(input.at_end());
}

TEST(UnitInputOf, AnExceptionOfTheBufferPassesThrough) {
  throwing_buffer buffer(u"a");
  unit_input input(&buffer);
  EXPECT_TRUE(same_units(input.window(), u"a"));
  input.advance();
  EXPECT_THROW(input.peek(), input_broke);
  EXPECT_THROW(input.at_end(), input_broke);
  EXPECT_THROW(input.window(), input_broke);
}

}  // namespace
}  // namespace test
