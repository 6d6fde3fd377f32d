#include "xport/stream/file_output_stream.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/fake_file.h"
#include "tests/support/golden.h"

namespace test {
namespace {

constexpr std::size_t block = file_output_buffer::block_units;

std::streamsize put(file_output_buffer& buffer, ustring_view units) {
  return buffer.sputn(units.data(), static_cast<std::streamsize>(units.size()));
}

TEST(FileOutputBuffer, BytesAreLeastSignificantFirst) {
  file_record record;
  file_output_buffer buffer(std::make_unique<fake_file>(record));
  EXPECT_EQ(put(buffer, u"\u0102\uFF00\uFFFF"), 3);
  EXPECT_TRUE(buffer.close());
  EXPECT_EQ(record.bytes, std::string("\x02\x01\x00\xFF\xFF\xFF", 6));
}

TEST(FileOutputBuffer, SynchronisingDoesNotWrite) {
  file_record record;
  file_output_buffer buffer(std::make_unique<fake_file>(record));
  put(buffer, u"abc");
  EXPECT_EQ(buffer.pubsync(), 0);
  EXPECT_TRUE(record.writes.empty());
  EXPECT_TRUE(buffer.close());
  EXPECT_EQ(record.writes, std::vector<std::size_t>{6});
}

TEST(FileOutputBuffer, NothingWrittenIsNoWriteButAClose) {
  file_record record;
  file_output_buffer buffer(std::make_unique<fake_file>(record));
  EXPECT_TRUE(buffer.close());
  EXPECT_TRUE(record.writes.empty());
  EXPECT_EQ(record.closes, 1);
}

TEST(FileOutputBuffer, AllUnitsInRunsOfEachKind) {
  ustring all;
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) all += static_cast<char16>(unit);
  for (const std::size_t piece : {std::size_t{1}, std::size_t{7}, block - 1, block, block + 1}) {
    file_record record;
    file_output_buffer buffer(std::make_unique<fake_file>(record));
    for (std::size_t at = 0; at < all.size(); at += piece) put(buffer, all.substr(at, piece));
    EXPECT_TRUE(buffer.close());
    EXPECT_TRUE(same_units(record.units(), all)) << piece;
  }
}

TEST(FileOutputBuffer, SingleUnits) {
  file_record record;
  file_output_buffer buffer(std::make_unique<fake_file>(record));
  ustring expected;
  for (std::size_t i = 0; i < 2 * block + 3; ++i) {
    const auto unit = static_cast<char16>(i % 0xFFFF);
    buffer.sputc(unit);
    expected += unit;
  }
  EXPECT_TRUE(buffer.close());
  EXPECT_TRUE(same_units(record.units(), expected));
  EXPECT_EQ(record.writes, (std::vector<std::size_t>{2 * block, 2 * block, 6}));
}

TEST(FileOutputBuffer, AllWritesButTheLastAreBlocks) {
  for (const std::size_t piece : {std::size_t{1000}, block, block + 10, 5 * block / 2}) {
    file_record record;
    file_output_buffer buffer(std::make_unique<fake_file>(record));
    const ustring run(piece, u'x');
    std::size_t units = 0;
    for (; units < 20 * block; units += piece) put(buffer, run);
    EXPECT_TRUE(buffer.close());
    std::vector<std::size_t> expected(units / block, 2 * block);
    if (units % block != 0) expected.push_back(2 * (units % block));
    EXPECT_EQ(record.writes, expected) << piece;
  }
}

TEST(FileOutputBuffer, EachWriteMayFail) {
  for (const std::size_t piece : {std::size_t{100}, block, 3 * block}) {
    for (std::size_t failing = 1; failing <= 3; ++failing) {
      file_record record;
      record.failing_write = failing;
      file_output_buffer buffer(std::make_unique<fake_file>(record));
      const ustring run(piece, u'x');
      for (std::size_t units = 0; units < 10 * block; units += piece) put(buffer, run);
      EXPECT_EQ(put(buffer, run), 0) << piece << " " << failing;
      EXPECT_FALSE(buffer.close()) << piece << " " << failing;
      EXPECT_EQ(record.writes.size(), failing) << piece << ": no write follows the failed one";
      EXPECT_EQ(record.closes, 1);
    }
  }
}

TEST(FileOutputBuffer, AFailedWriteShowsInTheCountOfTheRun) {
  file_record record;
  record.failing_write = 1;
  file_output_buffer buffer(std::make_unique<fake_file>(record));
  const ustring run(block + 1, u'x');
  EXPECT_EQ(put(buffer, run), static_cast<std::streamsize>(block));
  EXPECT_EQ(put(buffer, u"y"), 0);
}

TEST(FileOutputBuffer, TheLastWriteMayFailAtTheClose) {
  file_record record;
  record.failing_write = 1;
  file_output_buffer buffer(std::make_unique<fake_file>(record));
  EXPECT_EQ(put(buffer, u"x"), 1);
  EXPECT_FALSE(buffer.close());
  EXPECT_EQ(record.closes, 1);
}

TEST(FileOutputBuffer, TheCloseMayFail) {
  file_record record;
  record.fail_close = true;
  file_output_buffer buffer(std::make_unique<fake_file>(record));
  put(buffer, u"x");
  EXPECT_FALSE(buffer.close());
  EXPECT_TRUE(same_units(record.units(), u"x"));
}

TEST(FileOutputBuffer, AClosedBufferAcceptsNothing) {
  file_record record;
  file_output_buffer buffer(std::make_unique<fake_file>(record));
  EXPECT_TRUE(buffer.close());
  EXPECT_EQ(record.deaths, 1);
  EXPECT_FALSE(buffer.close());
  EXPECT_EQ(put(buffer, u"x"), 0);
  EXPECT_EQ(buffer.sputc(u'x'), file_output_buffer::traits_type::eof());
  EXPECT_EQ(record.closes, 1);
  EXPECT_TRUE(record.writes.empty());
}

TEST(FileOutputBuffer, TheDestructorWritesTheRestAndCloses) {
  file_record record;
  {
    file_output_buffer buffer(std::make_unique<fake_file>(record));
    put(buffer, u"rest");
  }
  EXPECT_TRUE(same_units(record.units(), u"rest"));
  EXPECT_EQ(record.closes, 1);
  EXPECT_EQ(record.deaths, 1);
}

TEST(FileOutputStream, IsNotGoodBeforeItIsOpened) {
  file_output_stream stream;
  EXPECT_FALSE(stream.good());
  stream << ustring(u"x");
  EXPECT_FALSE(stream.good());
}

TEST(FileOutputStream, AFileThatCouldNotBeOpened) {
  file_output_stream stream;
  stream.open(nullptr);
  EXPECT_NE(stream.rdstate() & std::ios_base::failbit, 0);
}

TEST(FileOutputStream, WritesAndCloses) {
  file_record record;
  file_output_stream stream;
  stream.open(std::make_unique<fake_file>(record));
  ASSERT_TRUE(stream.good());
  stream << ustring(u"a\uFFFF");
  stream.flush();
  EXPECT_TRUE(record.writes.empty());
  stream.close();
  EXPECT_TRUE(stream.good());
  EXPECT_TRUE(same_units(record.units(), u"a\uFFFF"));
}

TEST(FileOutputStream, ClosingTwiceOrUnopenedSetsFailbit) {
  file_record record;
  file_output_stream stream;
  stream.open(std::make_unique<fake_file>(record));
  stream.close();
  EXPECT_FALSE(stream.fail());
  stream.close();
  EXPECT_TRUE(stream.fail());
  file_output_stream unopened;
  unopened.close();
  EXPECT_NE(unopened.rdstate() & std::ios_base::failbit, 0);
}

TEST(FileOutputStream, AFailedWriteSetsBadbitAndTheCloseFailbit) {
  file_record record;
  record.failing_write = 1;
  file_output_stream stream;
  stream.open(std::make_unique<fake_file>(record));
  const ustring large(block + 1, u'x');
  stream.write(large.data(), static_cast<std::streamsize>(large.size()));
  EXPECT_EQ(stream.rdstate(), std::ios_base::badbit);
  stream.close();
  EXPECT_EQ(stream.rdstate(), std::ios_base::badbit | std::ios_base::failbit);
}

TEST(FileOutputStream, AFailedCloseSetsFailbit) {
  file_record record;
  record.fail_close = true;
  file_output_stream stream;
  stream.open(std::make_unique<fake_file>(record));
  stream << ustring(u"x");
  EXPECT_TRUE(stream.good());
  stream.close();
  EXPECT_EQ(stream.rdstate(), std::ios_base::failbit);
}

TEST(FileOutputStream, TheDestructorCloses) {
  file_record record;
  {
    file_output_stream stream;
    stream.open(std::make_unique<fake_file>(record));
    stream << ustring(u"x");
  }
  EXPECT_TRUE(same_units(record.units(), u"x"));
  EXPECT_EQ(record.closes, 1);
}

TEST(FileOutputStream, OpeningAnotherFileClosesTheFirst) {
  file_record first;
  file_record second;
  file_output_stream stream;
  stream.open(std::make_unique<fake_file>(first));
  stream << ustring(u"1");
  stream.open(std::make_unique<fake_file>(second));
  stream << ustring(u"2");
  stream.close();
  EXPECT_TRUE(stream.good());
  EXPECT_TRUE(same_units(first.units(), u"1"));
  EXPECT_TRUE(same_units(second.units(), u"2"));
  EXPECT_EQ(first.closes, 1);
}

}  // namespace
}  // namespace test
