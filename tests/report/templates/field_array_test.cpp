// The list of fields belongs to the host and needs no report.
#include <optional>
#include <string>

#include "tests/report/templates/template_page.h"

namespace test {
namespace {

using array = zov_shared_array<CZovString>;

texts texts_of(const array& fields) {
  texts listed;
  for (const CZovString& field : fields) listed.emplace_back(field.c_str(), field.size());
  return listed;
}

class FieldArray : public ::testing::Test {
 protected:
  FieldArray() {
    make_file(folder.path() / "t.htm", marked_bytes(page(two_fields() + marker(longest))));
    report.emplace(platform::file_system::native(), browser);
    report->LoadTemplate(folder.text(u"/t.htm").c_str());
  }

  const ustring longest = u"a field whose name is too long to be kept inside a text object";
  const texts all = {u"A", u"B", longest};
  temp_folder folder;
  recording_opener browser;
  std::optional<VellomarkObj> report;
};

TEST_F(FieldArray, OutlivesTheReport) {
  array fields;
  report->GetTemplateFields(fields);
  report.reset();
  EXPECT_EQ(texts_of(fields), all);
}

TEST_F(FieldArray, OutlivesTheReportInACopyAlone) {
  array copy;
  {
    array fields;
    report->GetTemplateFields(fields);
    copy = fields;
    report.reset();
  }
  EXPECT_EQ(texts_of(copy), all);
  copy.push_back(CZovString(u"more"));
  EXPECT_EQ(copy.size(), 4u);
  EXPECT_TRUE(copy[3] == CZovString(u"more"));
}

TEST_F(FieldArray, IsNotChangedByLaterCalls) {
  array before;
  report->GetTemplateFields(before);
  report->SetTemplateField(u"A", true, u"new");
  array after;
  report->GetTemplateFields(after);
  report->ClearTemplateFields();
  EXPECT_EQ(texts_of(before), all);
  EXPECT_EQ(texts_of(after), (texts{u"new", u"B", longest}));
}

TEST_F(FieldArray, IsFilledAnewWhileACopyKeepsTheOld) {
  array fields;
  report->GetTemplateFields(fields);
  const array copy(fields);
  report->SetTemplateField(u"A", true, u"new");
  report->GetTemplateFields(fields);
  EXPECT_EQ(texts_of(copy), all);
  EXPECT_EQ(texts_of(fields), (texts{u"new", u"B", longest}));
  EXPECT_NE(fields.begin(), copy.begin());
}

TEST_F(FieldArray, FilledTwiceHoldsTheFieldsOnce) {
  array fields;
  report->GetTemplateFields(fields);
  const CZovString* const first = fields.begin();
  report->GetTemplateFields(fields);
  EXPECT_EQ(texts_of(fields), all);
  EXPECT_EQ(fields.begin(), first) << "storage of its own is used again";
}

TEST_F(FieldArray, HasNoStorageWhenTheFieldsOfASharedOneAreDeleted) {
  array fields;
  report->GetTemplateFields(fields);
  const array copy(fields);
  report->ClearTemplateFields();
  report->GetTemplateFields(fields);
  EXPECT_EQ(fields.size(), 0u);
  EXPECT_EQ(fields.capacity(), 0u);
  EXPECT_EQ(texts_of(copy), all);
}

TEST_F(FieldArray, EndsATextAtAZero) {
  make_file(folder.path() / "zero.htm",
            marked_bytes(page(content(span(ustring(u"a\0b", 3)) + u"x"))));
  report->LoadTemplate(folder.text(u"/zero.htm").c_str());
  EXPECT_EQ(fields_of(*report), texts{u"a"});
  EXPECT_FALSE(report->SetTemplateField(u"a", false, nullptr)) << "that isn't the whole text";
}

}  // namespace
}  // namespace test
