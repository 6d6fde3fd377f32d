// The list of a template's fields in a host that is linked to the shared library alone: one side
// allocates its storage and the other side frees it.
#include <gtest/gtest.h>
#include <vellomark/vellomark.h>

#include <string>
#include <vector>

#include "tests/support/temp_folder.h"
#include "tests/support/utf8.h"

namespace test {
namespace {

using array = zov_shared_array<CZovString>;
using texts = std::vector<std::u16string>;

texts texts_of(const array& fields) {
  texts listed;
  for (const CZovString& field : fields) listed.emplace_back(field.c_str());
  return listed;
}

class FieldArray : public ::testing::Test {
 protected:
  FieldArray() {
    std::u16string text = u"<html><head><title>t</title></head><body>";
    for (const std::u16string& name : names)
      text += u"<p><span id='Template'>" + name + u"</span></p>";
    text += u"</body></html>";
    make_file(folder_.path() / "t.htm", file_bytes(text));
    report = vellomark::CreateInstance();
    report->LoadTemplate(folder_.text(u"/t.htm").c_str());
  }

  const texts names = {u"A", u"a name that is too long for a text without memory of its own", u"B",
                       u"C", u"D"};
  boost::shared_ptr<IVellomark> report;

 private:
  temp_folder folder_;
};

TEST_F(FieldArray, OutlivesTheReport) {
  array fields;
  report->GetTemplateFields(fields);
  report.reset();
  EXPECT_EQ(texts_of(fields), names);
  EXPECT_EQ(fields.capacity(), 7u) << "1, 2, 4, 7";
}

TEST_F(FieldArray, OutlivesTheReportInACopyAlone) {
  array copy;
  {
    array fields;
    report->GetTemplateFields(fields);
    copy = fields;
    report.reset();
  }
  EXPECT_EQ(texts_of(copy), names);
}

// The host appends to the storage of the library, while it has room and when it is full.
TEST_F(FieldArray, OfTheLibraryIsFilledByTheHost) {
  array fields;
  report->GetTemplateFields(fields);
  texts expected = names;
  for (int count = 0; count < 20; ++count) {
    fields.push_back(CZovString(u"a text of the host's that needs memory of its own"));
    expected.push_back(u"a text of the host's that needs memory of its own");
    ASSERT_EQ(texts_of(fields), expected);
  }
  report.reset();
  EXPECT_EQ(texts_of(fields), expected);
}

TEST_F(FieldArray, OfTheHostIsFilledByTheLibrary) {
  array fields;
  for (int count = 0; count < 20; ++count)
    fields.push_back(CZovString(u"a text of the host's that needs memory of its own"));
  report->GetTemplateFields(fields);
  EXPECT_EQ(texts_of(fields), names);
  report.reset();
  EXPECT_EQ(texts_of(fields), names);
}

TEST_F(FieldArray, SharedOneIsReleasedByTheLibrary) {
  array fields;
  fields.push_back(CZovString(u"of the host"));
  const array copy = fields;
  report->GetTemplateFields(fields);
  EXPECT_EQ(texts_of(fields), names);
  EXPECT_EQ(texts_of(copy), texts{u"of the host"});
}

TEST_F(FieldArray, CopyIsWrittenOnItsOwn) {
  array fields;
  report->GetTemplateFields(fields);
  array copy = fields;
  copy.push_back(CZovString(u"more"));
  fields.clear();
  EXPECT_EQ(fields.capacity(), 7u) << "by then the storage was its own";
  EXPECT_EQ(copy.size(), 6u);
  EXPECT_EQ(copy.capacity(), 8u) << "5, one more and half of it";
  report->ClearTemplateFields();
  report->GetTemplateFields(copy);
  EXPECT_TRUE(copy.empty());
}

TEST_F(FieldArray, IsFilledAgainAndAgain) {
  array fields;
  std::vector<array> kept;
  for (int time = 0; time < 50; ++time) {
    report->GetTemplateFields(fields);
    if (time % 3 == 0) kept.push_back(fields);
  }
  report.reset();
  for (const array& each : kept) EXPECT_EQ(texts_of(each), names);
}

}  // namespace
}  // namespace test
