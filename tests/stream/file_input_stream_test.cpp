#include "xport/stream/file_input_stream.h"

#include <gtest/gtest.h>

#include <ios>
#include <memory>

#include "tests/support/fake_input.h"
#include "tests/support/golden.h"

namespace {

using test::fake_input;
using test::input_record;
using test::same_units;
using Xport::char16;
using Xport::file_input_stream;
using Xport::ustring;

ustring next_units(file_input_stream& stream, std::streamsize count) {
  ustring text(static_cast<std::size_t>(count), u'\0');
  stream.read(text.data(), count);
  text.resize(static_cast<std::size_t>(stream.gcount()));
  return text;
}

TEST(FileInputStream, IsNotGoodBeforeItIsOpened) {
  file_input_stream stream;
  EXPECT_FALSE(stream.good());
  EXPECT_TRUE(same_units(next_units(stream, 1), u""));
}

TEST(FileInputStream, AFileThatCouldNotBeOpened) {
  file_input_stream stream;
  stream.open(nullptr);
  EXPECT_NE(stream.rdstate() & std::ios_base::failbit, 0);
}

TEST(FileInputStream, ReadsTheFile) {
  input_record record;
  record.bytes = test::file_bytes(u"a b\n");
  file_input_stream stream;
  stream.open(std::make_unique<fake_input>(record));
  ASSERT_TRUE(stream.good());
  EXPECT_TRUE(record.reads.empty());
  EXPECT_TRUE(same_units(next_units(stream, 4), u"a b\n"));
  EXPECT_TRUE(stream.good());
  EXPECT_TRUE(same_units(next_units(stream, 1), u""));
  EXPECT_EQ(stream.rdstate(), std::ios_base::eofbit | std::ios_base::failbit);
}

TEST(FileInputStream, GoesBackToTheBeginningAndNowhereElse) {
  input_record record;
  record.bytes = test::file_bytes(u"abc");
  file_input_stream stream;
  stream.open(std::make_unique<fake_input>(record));
  EXPECT_TRUE(same_units(next_units(stream, 2), u"ab"));
  stream.seekg(0, std::ios_base::beg);
  EXPECT_TRUE(stream.good());
  EXPECT_TRUE(same_units(next_units(stream, 2), u"ab"));
  stream.seekg(0);
  EXPECT_TRUE(stream.good());
  stream.seekg(1);
  EXPECT_EQ(stream.rdstate(), std::ios_base::failbit);
  stream.clear();
  EXPECT_TRUE(same_units(next_units(stream, 3), u"abc"));
}

TEST(FileInputStream, ClosesTheFileWithItself) {
  input_record record;
  {
    file_input_stream stream;
    stream.open(std::make_unique<fake_input>(record));
    EXPECT_EQ(record.deaths, 0);
  }
  EXPECT_EQ(record.deaths, 1);
}

TEST(FileInputStream, OpeningAnotherFileClosesTheFirst) {
  input_record first;
  first.bytes = test::file_bytes(u"1");
  input_record second;
  second.bytes = test::file_bytes(u"2");
  file_input_stream stream;
  stream.open(std::make_unique<fake_input>(first));
  EXPECT_TRUE(same_units(next_units(stream, 2), u"1"));
  EXPECT_FALSE(stream.good());
  stream.open(std::make_unique<fake_input>(second));
  EXPECT_TRUE(stream.good());
  EXPECT_EQ(first.deaths, 1);
  EXPECT_TRUE(same_units(next_units(stream, 2), u"2"));
}

TEST(FileInputStream, AFailedOpeningLeavesTheFileThatIsOpen) {
  input_record record;
  record.bytes = test::file_bytes(u"1");
  file_input_stream stream;
  stream.open(std::make_unique<fake_input>(record));
  stream.open(nullptr);
  EXPECT_EQ(stream.rdstate(), std::ios_base::failbit);
  stream.clear();
  EXPECT_TRUE(same_units(next_units(stream, 1), u"1"));
}

TEST(FileInputStream, IsDeletedThroughItsBase) {
  input_record record;
  auto owned = std::make_unique<file_input_stream>();
  owned->open(std::make_unique<fake_input>(record));
  std::unique_ptr<std::basic_istream<char16>> stream = std::move(owned);
  stream.reset();
  EXPECT_EQ(record.deaths, 1);
}

}  // namespace
