#include "xport/stream/unit_output.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <ios>
#include <memory>
#include <ostream>
#include <random>
#include <vector>

#include "tests/support/fake_file.h"
#include "tests/support/golden.h"
#include "tests/support/unit_buffers.h"
#include "xport/stream/file_output_stream.h"
#include "xport/stream/ustring_stream.h"
#include "xport/text/fixed_run.h"

namespace test {
namespace {

constexpr std::size_t block = unit_output::block_units;

TEST(UnitOutput, PutsNothingOnTheStreamBeforeTheCommit) {
  ustring_stream stream;
  unit_output::stream_type* const target = &stream;
  unit_output output(target);
  output.put(u'a');
  output.put(u"bc");
  output.put(ustring_view(u"d"));
  output.put_blanks(2);
  EXPECT_EQ(stream.str().size(), 0u);
  output.commit();
  EXPECT_TRUE(same_units(stream.str(), u"abcd  "));
  output.commit();
  EXPECT_TRUE(same_units(stream.str(), u"abcd  "));
}

TEST(UnitOutput, NegativeNumbersOfBlanksAreNone) {
  ustring_stream stream;
  unit_output::stream_type* const target = &stream;
  unit_output output(target);
  for (const std::int64_t count : {std::int64_t{0}, std::int64_t{-1}, INT64_MIN})
    output.put_blanks(count);
  output.commit();
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
  output.commit();
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
      output.commit();
      EXPECT_TRUE(same_units(stream.str(), ustring(before, u'b') + ustring(size, u'r') + u'e'))
          << before << " " << size;
    }
}

/// Puts runs of all kinds and sizes through `stream`, and returns what must have arrived.
ustring put_short_runs(unit_output::stream_type& stream) {
  static constexpr fixed_run runs[] = {{}, {u"a"}, {u"<", u"td"}, {u"sixteen units ok"}};
  unit_output::stream_type* const target = &stream;
  unit_output output(target);
  ustring expected;
  for (std::size_t i = 0; i < 20'000; ++i) {
    const auto blanks = static_cast<std::int64_t>(i % 37);
    output.put(runs[i % 4]);
    output.put_blanks(blanks);
    output.put(runs[i % 3]);
    (expected += runs[i % 4].text()).append(i % 37, u' ') += runs[i % 3].text();
  }
  output.commit();
  return expected;
}

TEST(UnitOutput, RunsOfAFixedSizeOnAnyStream) {
  ustring_stream text;
  const ustring expected = put_short_runs(text);
  EXPECT_TRUE(same_units(text.view(), expected));

  file_record record;
  file_output_stream file;
  file.open(std::make_unique<fake_file>(record));
  put_short_runs(file);
  file.close();
  EXPECT_TRUE(same_units(record.units(), expected));

  run_buffer without_area;
  std::basic_ostream<char16> runs(&without_area);
  put_short_runs(runs);
  EXPECT_TRUE(same_units(without_area.text(), expected));

  for (const std::size_t room : {1u, 15u, 16u, 17u, 100u}) {
    area_buffer small(room);
    std::basic_ostream<char16> areas(&small);
    put_short_runs(areas);
    EXPECT_TRUE(same_units(small.text(), expected)) << room;
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
    output.commit();
    ASSERT_TRUE(same_units(stream.str(), expected)) << round;
  }
}

ustring counted(std::size_t count) {
  ustring text;
  for (std::size_t i = 0; i < count; ++i) text += static_cast<char16>(1 + i % 60'000);
  return text;
}

TEST(UnitOutput, FillsPutAreasOfAnySize) {
  for (const std::size_t room : {1u, 2u, 3u, 10u, 40u, 1000u}) {
    area_buffer buffer(room);
    std::basic_ostream<char16> stream(&buffer);
    unit_output::stream_type* const target = &stream;
    unit_output output(target);
    ustring expected;
    for (std::size_t size = 0; size < 100; ++size) {
      output.put(counted(size));
      output.put(u'|');
      output.put(u"a literal of twenty.");
      output.put_blanks(static_cast<std::int64_t>(size));
      expected += counted(size) + u"|a literal of twenty." + ustring(size, u' ');
    }
    output.commit();
    EXPECT_TRUE(same_units(buffer.text(), expected)) << room;
    EXPECT_TRUE(stream.good());
    EXPECT_LE(static_cast<std::size_t>(buffer.overflows), expected.size() / room) << room;
  }
}

TEST(UnitOutput, OthersMayUseTheStreamAfterACommit) {
  area_buffer buffer(16);
  std::basic_ostream<char16> stream(&buffer);
  unit_output::stream_type* const target = &stream;
  unit_output output(target);
  ustring expected;
  for (std::size_t size = 0; size < 40; ++size) {
    output.put(counted(size));
    output.commit();
    const ustring others(size % 7, u'o');
    stream.write(others.data(), static_cast<std::streamsize>(others.size()));
    expected += counted(size) + others;
  }
  EXPECT_TRUE(same_units(buffer.text(), expected));
}

TEST(UnitOutput, UnitsAfterTheLastOneAreNotChanged) {
  for (std::int64_t blanks = 0; blanks <= 40; ++blanks) {
    area_buffer buffer(64);
    std::basic_ostream<char16> stream(&buffer);
    unit_output::stream_type* const target = &stream;
    unit_output output(target);
    output.put(u"abc");
    output.put_blanks(blanks);
    output.put(counted(5));
    output.put(fixed_run{u"ru", u"n"});
    output.commit();
    const std::size_t rest = 64 - 11 - static_cast<std::size_t>(blanks);
    EXPECT_TRUE(same_units(buffer.rest(), ustring(rest, u'x'))) << blanks;
  }
}

TEST(UnitOutput, ABufferWithoutAPutAreaGetsBlocks) {
  run_buffer buffer;
  std::basic_ostream<char16> stream(&buffer);
  unit_output::stream_type* const target = &stream;
  unit_output output(target);
  for (int i = 0; i < 3; ++i) output.put(ustring(block - 1, u'x'));
  EXPECT_EQ(buffer.runs(), (std::vector<std::size_t>{block, block}));
  output.commit();
  EXPECT_EQ(buffer.runs(), (std::vector<std::size_t>{block, block, block - 3}));
  EXPECT_TRUE(same_units(buffer.text(), ustring(3 * block - 3, u'x')));
}

TEST(UnitOutput, AFailedStreamAcceptsNothing) {
  area_buffer buffer(16);
  std::basic_ostream<char16> stream(&buffer);
  stream.setstate(std::ios_base::failbit);
  unit_output::stream_type* const target = &stream;
  unit_output output(target);
  output.put(counted(2 * block));
  output.commit();
  EXPECT_EQ(buffer.text(), u"");
  EXPECT_EQ(buffer.overflows, 0);
  stream.clear();
  output.put(u"again");
  output.commit();
  EXPECT_EQ(buffer.text(), u"again");
}

TEST(UnitOutput, AFailingBufferSetsBadbitAndGetsNothingMore) {
  area_buffer buffer(16);
  buffer.failing = 2;
  std::basic_ostream<char16> stream(&buffer);
  unit_output::stream_type* const target = &stream;
  unit_output output(target);
  output.put(counted(1000));
  output.commit();
  EXPECT_TRUE(stream.bad());
  EXPECT_EQ(buffer.overflows, 2);
  EXPECT_TRUE(same_units(buffer.text(), counted(32)));
}

TEST(UnitOutput, AnExceptionOfTheBufferPassesIfTheStreamAsksForIt) {
  for (const bool asked : {false, true}) {
    area_buffer buffer(16);
    buffer.throwing = 1;
    std::basic_ostream<char16> stream(&buffer);
    if (asked) stream.exceptions(std::ios_base::badbit);
    unit_output::stream_type* const target = &stream;
    unit_output output(target);
    if (asked)
      EXPECT_THROW(output.put(counted(100)), output_broke);
    else
      EXPECT_NO_THROW(output.put(counted(100)));
    EXPECT_TRUE(stream.bad());
    EXPECT_TRUE(same_units(buffer.text(), counted(16)));
    stream.clear();
    output.commit();
    output.put(u"more");
    output.commit();
    EXPECT_TRUE(buffer.text().starts_with(counted(16)));
    EXPECT_TRUE(buffer.text().ends_with(u"more"));
  }
}

TEST(UnitOutput, FlushesATiedStreamFirst) {
  area_buffer tied_buffer(4);
  std::basic_ostream<char16> tied(&tied_buffer);
  ustring_stream stream;
  stream.tie(&tied);
  unit_output::stream_type* const target = &stream;
  unit_output output(target);
  output.put(u'x');
  EXPECT_EQ(tied_buffer.syncs, 1);
}

TEST(UnitOutput, AUnitBufferedStreamIsFlushedByTheCommit) {
  area_buffer buffer(16);
  std::basic_ostream<char16> stream(&buffer);
  stream.setf(std::ios_base::unitbuf);
  unit_output::stream_type* const target = &stream;
  unit_output output(target);
  output.put(u"abc");
  const int before = buffer.syncs;
  output.commit();
  EXPECT_GT(buffer.syncs, before);
  EXPECT_EQ(buffer.text(), u"abc");
}

}  // namespace
}  // namespace test
