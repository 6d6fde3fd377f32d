// The list of a template's fields as a host has it that is linked to the shared library alone:
// its storage is made on one side and let go of on the other.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <vellomark/vellomark.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

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
    std::string pattern = (fs::temp_directory_path() / "field_array_test_XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    folder_ = pattern;
    std::u16string text = u"<html><head><title>t</title></head><body>";
    for (const std::u16string& name : names)
      text += u"<p><span id='Template'>" + name + u"</span></p>";
    text += u"</body></html>";
    std::ofstream file(folder_ / "t.htm", std::ios::binary);
    for (const char16_t unit : text) file << static_cast<char>(unit & 0xFF) << char();
    file.close();
    report = vellomark::CreateInstance();
    report->LoadTemplate((folder_ / "t.htm").u16string().c_str());
  }
  ~FieldArray() override { fs::remove_all(folder_); }

  const texts names = {u"A", u"a name that is too long for a text without memory of its own", u"B",
                       u"C", u"D"};
  boost::shared_ptr<IVellomark> report;

 private:
  fs::path folder_;
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

// Room is left, and none is: the host goes on where the library ended.
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

TEST_F(FieldArray, SharedOneIsLetGoOfByTheLibrary) {
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
