// Templates on a disk that fails.
#include "tests/report/templates/template_page.h"
#include "xport/stream/file_input_stream.h"

namespace test {
namespace {

class UnreadableTemplate : public ::testing::Test {
 protected:
  void load(const ustring& source) {
    files.contents[u"t.htm"] = marked_bytes(source);
    report.LoadTemplate(u"t.htm");
    EXPECT_EQ(files.open_files, 0u);
  }

  ustring saved() {
    EXPECT_TRUE(report.Save(u"/out", u"page.htm"));
    return body_of(files.units(u"/out/Vellomark/page.htm").substr(1));
  }

  memory_files files;
  recording_opener browser;
  VellomarkObj report{files, browser};
};

TEST_F(UnreadableTemplate, ThatCannotBeOpenedLeavesTheReportAsItWas) {
  report.AddText(u"old", false);
  files.fail(file_call::open_for_reading, 1);
  load(page(two_fields()));
  EXPECT_EQ(fields_of(report), texts());
  EXPECT_TRUE(same_units(saved(), block({u"old"}) + block()));
}

TEST_F(UnreadableTemplate, ThatCannotBeReadAtAllIsEmpty) {
  report.AddText(u"old", false);
  files.fail(file_call::read, 1);
  load(page(two_fields()));
  EXPECT_EQ(fields_of(report), texts());
  EXPECT_TRUE(same_units(saved(), block()));
}

// The template ends where it can't be read.
TEST_F(UnreadableTemplate, ThatCannotBeReadHalfWayIsUsedAsFarAsItWasRead) {
  constexpr std::size_t block_units = file_input_buffer::block_units;
  const ustring start =
      u"<html><head><title>t</title></head><body>" + content(u"x") + marker(u"A") + u"<p>";
  const std::size_t in_first_block = block_units - 1 - start.size();
  files.fail(file_call::read, 2);
  load(start + ustring(block_units, u'f') + u"</p>" + marker(u"B") + u"</body></html>");
  EXPECT_EQ(fields_of(report), texts{u"A"});
  EXPECT_TRUE(report.SetTemplateField(u"A", true, u"value"));
  EXPECT_TRUE(
      same_units(saved(), shown(u"x") + block() + shown(ustring(in_first_block, u'f')) + block()));
}

TEST_F(UnreadableTemplate, IsReplacedByOneThatCanBeRead) {
  files.fail(file_call::read, 1);
  load(page(two_fields()));
  load(page(two_fields()));
  EXPECT_EQ(fields_of(report), (texts{u"A", u"B"}));
  EXPECT_TRUE(same_units(saved(), shown(u"x") + block()));
}

TEST_F(UnreadableTemplate, MayBeAsLongAsItLikes) {
  ustring body;
  ustring expected;
  for (int number = 0; number < 5000; ++number) {
    body += content(u"some text that fills the blocks of a file");
    expected += shown(u"some text that fills the blocks of a file");
  }
  load(page(body + marker(u"A") + body));
  EXPECT_GT(files.count(file_call::read), 4u);
  EXPECT_TRUE(report.SetTemplateField(u"A", true, u""));
  EXPECT_TRUE(same_units(saved(), expected + block() + expected + block()));
}

}  // namespace
}  // namespace test
