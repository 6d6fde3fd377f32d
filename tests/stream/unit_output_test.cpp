#include "xport/stream/unit_output.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <random>

#include "tests/support/golden.h"
#include "xport/stream/ustring_stream.h"

namespace {

using test::same_units;
using Xport::unit_output;
using Xport::ustring;
using Xport::ustring_stream;

constexpr std::size_t block = unit_output::block_units;

TEST(UnitOutput, HoldsBackUntilItIsDrained) {
  ustring_stream stream;
  unit_output::stream_type* const target = &stream;
  unit_output output(target);
  output.put(u'a');
  output.put(u"bc");
  output.put(Xport::ustring_view(u"d"));
  output.put_blanks(2);
  EXPECT_EQ(stream.str().size(), 0u);
  output.drain();
  EXPECT_TRUE(same_units(stream.str(), u"abcd  "));
  output.drain();
  EXPECT_TRUE(same_units(stream.str(), u"abcd  "));
}

TEST(UnitOutput, NegativeNumbersOfBlanksAreNone) {
  ustring_stream stream;
  unit_output::stream_type* const target = &stream;
  unit_output output(target);
  for (const std::int64_t count : {std::int64_t{0}, std::int64_t{-1}, INT64_MIN})
    output.put_blanks(count);
  output.drain();
  EXPECT_EQ(stream.str().size(), 0u);
}

TEST(UnitOutput, EachNumberOfBlanks) {
  ustring_stream stream;
  unit_output::stream_type* const target = &stream;
  unit_output output(target);
  ustring expected;
  for (std::int64_t count = 0; count <= 100; ++count) {
    output.put_blanks(count);
    output.put(u'|');
    expected += ustring(static_cast<std::size_t>(count), u' ') + u'|';
  }
  output.drain();
  EXPECT_TRUE(same_units(stream.str(), expected));
}

TEST(UnitOutput, RunsLongerThanABlock) {
  for (const std::size_t before : {std::size_t{0}, std::size_t{1}, block - 1, block})
    for (const std::size_t size : {block - 1, block, block + 1, 3 * block + 7}) {
      ustring_stream stream;
      unit_output::stream_type* const target = &stream;
      unit_output output(target);
      for (std::size_t i = 0; i < before; ++i) output.put(u'b');
      output.put(ustring(size, u'r'));
      output.put(u'e');
      output.drain();
      EXPECT_TRUE(same_units(stream.str(), ustring(before, u'b') + ustring(size, u'r') + u'e'))
          << before << " " << size;
    }
}

TEST(UnitOutput, RandomCalls) {
  std::mt19937 random(7);
  for (int round = 0; round < 30; ++round) {
    ustring_stream stream;
    unit_output::stream_type* const target = &stream;
    unit_output output(target);
    ustring expected;
    for (int call = 0; call < 2000; ++call) {
      const auto unit = static_cast<char16_t>(random() % 0x10000);
      const std::size_t size = random() % (random() % 50 == 0 ? 2 * block : 40);
      switch (random() % 4) {
        case 0:
          output.put(unit);
          expected += unit;
          break;
        case 1:
          output.put(u"literal");
          expected += u"literal";
          break;
        case 2:
          output.put(ustring(size, unit));
          expected.append(size, unit);
          break;
        default:
          output.put_blanks(static_cast<std::int64_t>(size));
          expected.append(size, u' ');
      }
    }
    output.drain();
    ASSERT_TRUE(same_units(stream.str(), expected)) << round;
  }
}

}  // namespace
