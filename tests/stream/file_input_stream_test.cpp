#include "xport/stream/file_input_stream.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <ios>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/fake_file.h"
#include "tests/support/golden.h"
#include "xport/stream/unit_input.h"

namespace test {
namespace {

using traits = file_input_buffer::traits_type;

constexpr std::size_t block = file_input_buffer::block_units;
constexpr auto in = std::ios_base::in;

// A buffer on a file of these bytes.
struct opened {
  explicit opened(const std::string& bytes) { record.bytes = bytes; }
  explicit opened(ustring_view text) : opened(file_bytes(text)) {}

  std::size_t reads() const { return record.reads.size(); }

  input_record record;
  file_input_buffer buffer{std::make_unique<fake_input>(record)};
};

// All units up to the end, U+FFFF too.
ustring all_units(file_input_buffer& buffer) {
  ustring text;
  char16 some[1000];
  for (std::streamsize got; (got = buffer.sgetn(some, 1000)) != 0;)
    text.append(some, static_cast<std::size_t>(got));
  return text;
}

ustring by_single_units(file_input_buffer& buffer) {
  ustring text;
  for (unit_input input(&buffer); !input.at_end(); input.advance()) text += input.peek();
  return text;
}

// Units that show their position.
ustring counted(std::size_t count) {
  ustring text;
  for (std::size_t i = 0; i < count; ++i) text += static_cast<char16>(1 + i % 60000);
  return text;
}

bool is_refused(file_input_buffer::pos_type answer) {
  return answer == file_input_buffer::pos_type(std::streamoff(-1));
}

TEST(FileInputBuffer, BytesAreLeastSignificantFirst) {
  opened file(std::string("\x02\x01\x00\xFF\x3C\x00", 6));
  EXPECT_TRUE(same_units(all_units(file.buffer), u"\u0102\uFF00<"));
}

TEST(FileInputBuffer, EveryUnitComesAsItIs) {
  ustring all;
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) all += static_cast<char16>(unit);
  opened file(all);
  EXPECT_TRUE(same_units(all_units(file.buffer), all));
}

TEST(FileInputBuffer, FilesAroundTheBoundsOfABlock) {
  for (const std::size_t size :
       {std::size_t{0}, std::size_t{1}, block - 1, block, block + 1, 2 * block, 5 * block / 2}) {
    const ustring text = counted(size);
    opened whole(text);
    EXPECT_TRUE(same_units(all_units(whole.buffer), text)) << size;
    opened single(text);
    EXPECT_TRUE(same_units(by_single_units(single.buffer), text)) << size;
    EXPECT_EQ(single.reads(), size / block + 1) << size;
    for (const std::size_t bytes : single.record.reads) EXPECT_EQ(bytes, 2 * block);
  }
}

TEST(FileInputBuffer, TheOddLastByteIsIgnored) {
  for (const std::size_t size : {std::size_t{0}, std::size_t{1}, block - 1, block, block + 1}) {
    const ustring text = counted(size);
    opened file(file_bytes(text) + 'x');
    EXPECT_TRUE(same_units(all_units(file.buffer), text)) << size;
  }
}

TEST(FileInputBuffer, NothingIsReadBeforeTheFirstLook) {
  input_record record;
  record.bytes = file_bytes(u"a");
  {
    file_input_buffer buffer(std::make_unique<fake_input>(record));
    EXPECT_EQ(buffer.in_avail(), 0);
  }
  EXPECT_TRUE(record.reads.empty());
  EXPECT_EQ(record.rewinds, 0);
  EXPECT_EQ(record.deaths, 1);
}

TEST(FileInputBuffer, NothingIsReadAfterTheEnd) {
  for (const std::size_t size : {std::size_t{0}, std::size_t{3}, block}) {
    opened file(counted(size));
    EXPECT_EQ(all_units(file.buffer).size(), size);
    const std::size_t reads = file.reads();
    file.record.bytes += file_bytes(u"more");
    for (int look = 0; look < 3; ++look) {
      EXPECT_EQ(file.buffer.sgetc(), traits::eof());
      EXPECT_EQ(file.buffer.sbumpc(), traits::eof());
      EXPECT_TRUE(unit_input(&file.buffer).at_end());
    }
    EXPECT_EQ(file.reads(), reads) << size;
  }
}

TEST(FileInputBuffer, AFailedReadIsTheEnd) {
  const ustring text = counted(3 * block);
  for (const std::size_t failing : {1u, 2u, 3u, 4u}) {
    opened file(text);
    file.record.failing_read = failing;
    EXPECT_TRUE(same_units(by_single_units(file.buffer), text.substr(0, (failing - 1) * block)));
    EXPECT_TRUE(unit_input(&file.buffer).at_end());
    EXPECT_EQ(file.reads(), failing) << "the file isn't read again";
  }
}

TEST(FileInputBuffer, LooksAtAUnit65535NeitherMoveNorRead) {
  for (const std::size_t before : {std::size_t{0}, std::size_t{1}, block - 1, block}) {
    opened file(counted(before) + u"\uFFFF" + counted(block));
    unit_input input(&file.buffer);
    for (std::size_t i = 0; i < before; ++i) {
      ASSERT_FALSE(input.at_end());
      input.advance();
    }
    const auto answer = file.buffer.sgetc();
    const std::size_t reads = file.reads();
    EXPECT_EQ(reads, before / block + 1);
    for (int look = 0; look < 3; ++look) {
      EXPECT_EQ(file.buffer.sgetc(), answer);
      EXPECT_TRUE(input.at_end());
      EXPECT_TRUE(input.window().empty());
      EXPECT_EQ(file.reads(), reads);
    }
    EXPECT_TRUE(same_units(all_units(file.buffer), u"\uFFFF" + counted(block))) << before;
  }
}

TEST(FileInputBuffer, RewindsAnUnreadFile) {
  opened file(u"abc");
  EXPECT_EQ(file.buffer.pubseekoff(0, std::ios_base::beg, in), 0);
  EXPECT_EQ(file.buffer.pubseekpos(0, in), 0);
  EXPECT_EQ(file.reads(), 0u);
  EXPECT_EQ(file.record.rewinds, 0);
  EXPECT_TRUE(same_units(all_units(file.buffer), u"abc"));
}

TEST(FileInputBuffer, RewindsWithinTheFirstBlock) {
  for (const std::size_t size : {std::size_t{0}, std::size_t{3}, 2 * block}) {
    const ustring text = counted(size);
    opened file(text);
    file.record.fail_rewind = true;
    for (const std::size_t taken : {std::size_t{0}, size / 3, std::min(size, block)}) {
      unit_input(&file.buffer).at_end();
      file.buffer.pubseekpos(0, in);
      for (std::size_t i = 0; i < taken; ++i) file.buffer.sbumpc();
      EXPECT_EQ(file.buffer.pubseekpos(0, in), 0);
    }
    EXPECT_EQ(file.reads(), 1u);
    EXPECT_EQ(file.record.rewinds, 0);
    EXPECT_TRUE(same_units(all_units(file.buffer), text)) << size;
  }
}

TEST(FileInputBuffer, RewindsFromALaterBlock) {
  const ustring text = counted(2 * block + 7);
  for (const std::size_t taken : {block + 1, 2 * block + 1, 2 * block + 7}) {
    opened file(text);
    for (int round = 1; round <= 3; ++round) {
      for (std::size_t i = 0; i < taken; ++i) file.buffer.sbumpc();
      EXPECT_EQ(file.buffer.pubseekoff(0, std::ios_base::beg, in), 0);
      EXPECT_EQ(file.record.rewinds, round);
      EXPECT_EQ(file.buffer.pubseekoff(0, std::ios_base::beg, in), 0);
      EXPECT_EQ(file.record.rewinds, round) << "it is there already";
    }
    EXPECT_TRUE(same_units(all_units(file.buffer), text)) << taken;
  }
}

TEST(FileInputBuffer, RewindsFromTheEnd) {
  const ustring text = counted(block + 7);
  opened file(text);
  EXPECT_EQ(all_units(file.buffer).size(), text.size());
  EXPECT_EQ(file.buffer.sgetc(), traits::eof());
  EXPECT_EQ(file.buffer.pubseekpos(0, in), 0);
  EXPECT_TRUE(same_units(all_units(file.buffer), text));
}

TEST(FileInputBuffer, KeepsItsPositionIfTheFileCannotRewind) {
  const ustring text = counted(2 * block);
  opened file(text);
  file.record.fail_rewind = true;
  for (std::size_t i = 0; i < block + 5; ++i) file.buffer.sbumpc();
  EXPECT_TRUE(is_refused(file.buffer.pubseekpos(0, in)));
  EXPECT_TRUE(same_units(all_units(file.buffer), text.substr(block + 5)));
  EXPECT_TRUE(is_refused(file.buffer.pubseekpos(0, in)));
  EXPECT_EQ(file.buffer.sgetc(), traits::eof());
}

TEST(FileInputBuffer, RefusesOtherPositions) {
  opened file(u"abc");
  for (int round = 0; round < 2; ++round) {
    for (const auto from : {std::ios_base::cur, std::ios_base::end}) {
      EXPECT_TRUE(is_refused(file.buffer.pubseekoff(0, from, in)));
      EXPECT_TRUE(is_refused(file.buffer.pubseekoff(1, from, in)));
    }
    for (const int offset : {-1, 1, 2, 3, 100}) {
      EXPECT_TRUE(is_refused(file.buffer.pubseekoff(offset, std::ios_base::beg, in)));
      EXPECT_TRUE(is_refused(file.buffer.pubseekpos(offset, in)));
    }
    EXPECT_TRUE(is_refused(file.buffer.pubseekpos(0, std::ios_base::out)));
    EXPECT_TRUE(is_refused(file.buffer.pubseekoff(0, std::ios_base::beg, std::ios_base::out)));
    EXPECT_EQ(file.buffer.sgetc(), u'a') << "a refusal doesn't move";
  }
  EXPECT_EQ(file.buffer.pubseekpos(0, in | std::ios_base::out), 0);
  EXPECT_EQ(file.record.rewinds, 0);
}

TEST(FileInputBuffer, TakesNothing) {
  opened file(u"abc");
  EXPECT_EQ(file.buffer.sputc(u'x'), traits::eof());
  EXPECT_EQ(file.buffer.sgetc(), u'a');
}

TEST(FileInputBuffer, ClosesTheFileWithItself) {
  input_record record;
  { file_input_buffer buffer(std::make_unique<fake_input>(record)); }
  EXPECT_EQ(record.deaths, 1);
}

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
  record.bytes = file_bytes(u"a b\n");
  file_input_stream stream;
  stream.open(std::make_unique<fake_input>(record));
  ASSERT_TRUE(stream.good());
  EXPECT_TRUE(record.reads.empty());
  EXPECT_TRUE(same_units(next_units(stream, 4), u"a b\n"));
  EXPECT_TRUE(stream.good());
  EXPECT_TRUE(same_units(next_units(stream, 1), u""));
  EXPECT_EQ(stream.rdstate(), std::ios_base::eofbit | std::ios_base::failbit);
}

TEST(FileInputStream, CanOnlyBeRewound) {
  input_record record;
  record.bytes = file_bytes(u"abc");
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
  first.bytes = file_bytes(u"1");
  input_record second;
  second.bytes = file_bytes(u"2");
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
  record.bytes = file_bytes(u"1");
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
}  // namespace test
