#include "tests/samples/sample_files.h"

namespace test {
namespace {

using vellomark::CreateSampleVellomark1;

class SampleReport : public SampleFiles {
 protected:
  bool create(const std::string& name) const { return CreateSampleVellomark1(path(name).c_str()); }
};

// A library without the string returns false, though it has written the page.
TEST_F(SampleReport, ReturnsWhetherThereIsAString) {
  EXPECT_EQ(create("page.htm"), has_strings);
  EXPECT_TRUE(fs::exists(file("page.htm")));
}

TEST_F(SampleReport, WritesTheKeptPage) {
  create("page.htm");
  EXPECT_TRUE(is_golden(page("page.htm"), golden("sample_report")));
}

TEST_F(SampleReport, HasNoStylesheet) {
  create("page.htm");
  const ustring text = page("page.htm");
  EXPECT_EQ(text.find(u"<style"), ustring::npos);
  EXPECT_NE(text.find(lines({u"  <head>", u"    <title>", u"      Template Test", u"    </title>",
                             u"  </head>"})),
            ustring::npos);
}

TEST_F(SampleReport, WritesTheSamePageAgain) {
  EXPECT_EQ(create("page.htm"), has_strings);
  const std::string first = bytes_of("page.htm");
  EXPECT_EQ(create("page.htm"), has_strings);
  EXPECT_EQ(bytes_of("page.htm"), first);
  EXPECT_EQ(create("other.htm"), has_strings);
  EXPECT_EQ(bytes_of("other.htm"), first);
}

TEST_F(SampleReport, ReplacesAFile) {
  make_file("page.htm", std::string(100000, 'x'));
  create("page.htm");
  EXPECT_TRUE(is_golden(page("page.htm"), golden("sample_report")));
}

TEST_F(SampleReport, WritesLittleEndianUnitsWithLineFeeds) {
  create("page.htm");
  const std::string bytes = bytes_of("page.htm");
  EXPECT_EQ(bytes.substr(0, 6), std::string("\xFF\xFE<\0!\0", 6));
  EXPECT_EQ(bytes.substr(bytes.size() - 4), std::string(">\0\n\0", 4));
  EXPECT_EQ(page("page.htm").find(u'\r'), ustring::npos);
}

TEST_F(SampleReport, AcceptsPathsOfAllKinds) {
  fs::create_directory(file("folder"));
  EXPECT_EQ(CreateSampleVellomark1((path("folder") + u"\\page.htm").c_str()), has_strings);
  EXPECT_TRUE(fs::exists(file("folder/page.htm")));
  EXPECT_EQ(CreateSampleVellomark1(path("\xC3\xA9 \xF0\x9F\x98\x80").c_str()), has_strings);
  EXPECT_TRUE(fs::exists(file("\xC3\xA9 \xF0\x9F\x98\x80")));
}

TEST_F(SampleReport, ReturnsFalseWithoutAPageThatCanBeOpened) {
  expect_unwritable(folder_, CreateSampleVellomark1);
}

// Only the opening counts.
TEST_F(SampleReport, DoesNotNoticeAFullDisk) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "there is no /dev/full";
  EXPECT_EQ(CreateSampleVellomark1(u"/dev/full"), has_strings);
}

}  // namespace
}  // namespace test
