#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>

#include "tests/markup/writer_kit.h"
#include "tests/support/fake_file.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/stream/file_output_stream.h"
#include "xport/stream/null_codecvt.h"

namespace test {
namespace {

constexpr std::size_t block_bytes = 64 * 1024;

ustring in_memory(const xhtml_doc& doc) {
  ustring_stream stream;
  xhtml_writer writer(stream);
  EXPECT_TRUE(doc.write(writer));
  return stream.str();
}

void fill_body(xhtml_doc& doc, int paragraphs) {
  for (; paragraphs != 0; --paragraphs)
    *doc.body() << make(tag_id::p, u"a line of text, \u4E2D\u6587, \uFFFF and \xDC00");
}

TEST(WriterFile, AMarkThenUnitsLeastSignificantByteFirst) {
  file_record record;
  xhtml_doc doc(0);
  *doc.root() << make(tag_id::b, u"\u4E2D");
  ASSERT_TRUE(write_document(doc, std::make_unique<fake_file>(record)));
  const std::string expected("\xFF\xFE<\0b\0>\0\x2D\x4E<\0/\0b\0>\0", 18);
  EXPECT_EQ(record.bytes, expected);
  EXPECT_EQ(record.closes, 1);
  EXPECT_EQ(record.deaths, 1);
}

TEST(WriterFile, AnEmptyDocumentIsTheMarkAlone) {
  file_record record;
  ASSERT_TRUE(write_document(xhtml_doc(0), std::make_unique<fake_file>(record)));
  EXPECT_EQ(record.bytes, "\xFF\xFE");
}

TEST(WriterFile, LinesEndInOneLineFeed) {
  file_record record;
  ASSERT_TRUE(write_document(xhtml_doc(1), std::make_unique<fake_file>(record)));
  EXPECT_EQ(record.bytes.find('\r'), std::string::npos);
  EXPECT_EQ(std::count(record.bytes.begin(), record.bytes.end(), '\n'), 11);
  EXPECT_EQ(record.bytes.substr(record.bytes.size() - 4), std::string(">\0\n\0", 4));
}

TEST(WriterFile, TheFileHasWhatMemoryHas) {
  for (const int paragraphs : {0, 10, 2000, 5000}) {
    xhtml_doc doc(1);
    fill_body(doc, paragraphs);
    file_record record;
    ASSERT_TRUE(write_document(doc, std::make_unique<fake_file>(record)));
    EXPECT_TRUE(same_units(record.units(), in_memory(doc))) << paragraphs;
  }
}

TEST(WriterFile, TheFileIsWrittenInLargeBlocks) {
  xhtml_doc doc(1);
  fill_body(doc, 20'000);
  file_record record;
  ASSERT_TRUE(write_document(doc, std::make_unique<fake_file>(record)));
  ASSERT_FALSE(record.writes.empty());
  for (std::size_t i = 0; i + 1 < record.writes.size(); ++i)
    EXPECT_GE(record.writes[i], block_bytes) << i;
  EXPECT_LE(record.writes.size(), record.bytes.size() / block_bytes + 1);
  EXPECT_GT(record.writes.size(), 10u);
}

TEST(WriterFile, AFileThatCannotBeOpenedIsFalse) {
  EXPECT_FALSE(write_document(xhtml_doc(1), nullptr));
}

TEST(WriterFile, LaterFailuresAreTrueAndTheFileIsClosedOnce) {
  xhtml_doc doc(1);
  fill_body(doc, 10'000);
  for (const std::size_t failing : {1u, 2u, 5u}) {
    file_record record;
    record.failing_write = failing;
    EXPECT_TRUE(write_document(doc, std::make_unique<fake_file>(record))) << failing;
    EXPECT_EQ(record.writes.size(), failing) << "no write follows the failed one";
    EXPECT_EQ(record.closes, 1) << failing;
    EXPECT_EQ(record.deaths, 1) << failing;
  }
  file_record record;
  record.fail_close = true;
  EXPECT_TRUE(write_document(doc, std::make_unique<fake_file>(record)));
  EXPECT_EQ(record.closes, 1);
}

TEST(WriterFile, AWriterMayOwnTheStreamOfAFile) {
  file_record record;
  {
    auto* const stream = new file_output_stream;
    stream->open(std::make_unique<fake_file>(record));
    xhtml_writer writer(*stream);
    writer.stream_mode = 0;
    make(tag_id::b, u"x").write(writer);
    EXPECT_EQ(record.closes, 0);
  }
  EXPECT_TRUE(same_units(record.units(), u"<b>x</b>"));
  EXPECT_EQ(record.closes, 1);
  EXPECT_EQ(record.deaths, 1);
}

TEST(WriterFile, NullCodecvtChangesNothingInMemory) {
  xhtml_doc doc(1);
  fill_body(doc, 3);
  ustring_stream stream;
  stream.imbue(with_null_codecvt(stream.getloc()));
  xhtml_writer writer(stream);
  EXPECT_TRUE(doc.write(writer));
  EXPECT_TRUE(same_units(stream.str(), in_memory(doc)));
}

}  // namespace
}  // namespace test
