#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>
#include <vellomark/vellomark.h>
#include <boost/smart_ptr/shared_ptr.hpp>
#include <boost/smart_ptr/weak_ptr.hpp>

#include "tests/report/report_page.h"
#include "tests/support/temp_folder.h"

namespace test {
namespace {

// The place of a virtual function in the virtual table. The pointer to the member
// holds the offset of its entry, with the lowest bit as a sign on some machines.
template <class Function>
std::size_t slot_of(Function function) {
  std::size_t entry = 0;
  static_assert(sizeof(function) == 2 * sizeof(entry));
  std::memcpy(&entry, &function, sizeof(entry));
  return entry / sizeof(void*);
}

TEST(Interface, OperationsStandInTheirOrderInTheVirtualTable) {
  EXPECT_EQ(slot_of(&IVellomark::Save), 0u);
  EXPECT_EQ(slot_of(&IVellomark::AddText), 1u);
  EXPECT_EQ(slot_of(&IVellomark::NewParagraph), 2u);
  EXPECT_EQ(slot_of(&IVellomark::AddHeading), 3u);
  EXPECT_EQ(slot_of(&IVellomark::OpenTable), 4u);
  EXPECT_EQ(slot_of(&IVellomark::CloseTable), 5u);
  EXPECT_EQ(slot_of(&IVellomark::SetFirstCellRows), 6u);
  EXPECT_EQ(slot_of(&IVellomark::AddLink), 7u);
  EXPECT_EQ(slot_of(&IVellomark::SetSectionMode), 8u);
  EXPECT_EQ(slot_of(&IVellomark::BeginSection), 9u);
  EXPECT_EQ(slot_of(&IVellomark::AddSectionHeading), 10u);
  EXPECT_EQ(slot_of(&IVellomark::LoadTemplate), 11u);
  EXPECT_EQ(slot_of(&IVellomark::SetTemplateField), 12u);
  EXPECT_EQ(slot_of(&IVellomark::GetTemplateFields), 13u);
  EXPECT_EQ(slot_of(&IVellomark::ClearTemplateFields), 14u);
  EXPECT_EQ(slot_of(&IVellomark::BeginDirectLinks), 15u);
  EXPECT_EQ(slot_of(&IVellomark::EndDirectLinks), 16u);
}

// A new virtual function comes after the operations and the two entries of a
// virtual destructor, so nothing else is in the table.
struct one_more : IVellomark {
  virtual void next() {}
};

TEST(Interface, TheDestructorComesAfterTheOperations) {
  EXPECT_EQ(slot_of(&one_more::next), 17u + 2u);
}

// A host's own implementation: each operation records its number.
struct host_report final : IVellomark {
  bool Save(const char16_t*, const char16_t*) override { return note(0); }
  void AddText(const char16_t*, bool) override { note(1); }
  void NewParagraph() override { note(2); }
  void AddHeading(const char16_t*, std::int32_t) override { note(3); }
  bool OpenTable(std::int32_t) override { return note(4); }
  void CloseTable() override { note(5); }
  void SetFirstCellRows(std::int32_t) override { note(6); }
  void AddLink(const char16_t*, const char16_t*) override { note(7); }
  void SetSectionMode(bool) override { note(8); }
  void BeginSection(const char16_t*, const char16_t*) override { note(9); }
  void AddSectionHeading(const char16_t*, std::int32_t) override { note(10); }
  void LoadTemplate(const char16_t*) override { note(11); }
  bool SetTemplateField(const char16_t*, bool, const char16_t*) override { return note(12); }
  void GetTemplateFields(zov_shared_array<CZovString>&) override { note(13); }
  void ClearTemplateFields() override { note(14); }
  void BeginDirectLinks() override { note(15); }
  void EndDirectLinks() override { note(16); }

  bool note(int number) {
    last = number;
    return true;
  }
  int last = -1;
};

TEST(Interface, IsAnAbstractClassThatHostsCanImplementAndCopy) {
  static_assert(std::is_abstract_v<IVellomark>);
  static_assert(std::has_virtual_destructor_v<IVellomark>);
  static_assert(!std::is_destructible_v<IVellomark>, "the destructor is protected");
  static_assert(sizeof(IVellomark) == sizeof(void*), "no fields");
  host_report first;
  IVellomark& report = first;
  report.EndDirectLinks();
  EXPECT_EQ(first.last, 16);
  host_report second(first);
  second = first;
  EXPECT_EQ(second.last, 16);
}

TEST(CreateInstance, ReportsAreIndependent) {
  const temp_folder temp;
  boost::shared_ptr<IVellomark> one = vellomark::CreateInstance();
  const boost::shared_ptr<IVellomark> two = vellomark::CreateInstance();
  ASSERT_TRUE(one && two);
  EXPECT_NE(one, two);
  EXPECT_EQ(one.use_count(), 1);
  one->AddHeading(u"one", 1);
  one->SetSectionMode(true);
  two->AddText(u"two", false);
  ASSERT_TRUE(one->Save(temp.text().c_str(), u"one.htm"));
  one.reset();
  two->AddText(u"more", false);
  ASSERT_TRUE(two->Save(temp.text().c_str(), u"two.htm"));

  const auto has = [&temp](const char* page, std::string_view text) {
    std::string wide;
    for (const char c : text) (wide += c) += '\0';
    return bytes_of(temp.path() / "Vellomark" / page).find(wide) != std::string::npos;
  };
  EXPECT_TRUE(has("one.htm", "one"));
  EXPECT_FALSE(has("one.htm", "two"));
  EXPECT_TRUE(has("two.htm", "<a>two</a>"));
  EXPECT_TRUE(has("two.htm", "<a>more</a>"));
  EXPECT_FALSE(has("two.htm", "one"));
}

TEST(CreateInstance, LastPointerReleasesTheReport) {
  boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
  boost::weak_ptr<IVellomark> watch = report;
  boost::shared_ptr<IVellomark> other = report;
  report->OpenTable(2);
  report->AddText(u"cell", false);
  report->SetSectionMode(true);
  report->OpenTable(2);
  report->AddText(u"cell", false);
  report.reset();
  EXPECT_FALSE(watch.expired());
  other.reset();
  EXPECT_TRUE(watch.expired());
}

TEST(CreateInstance, ManyReportsComeAndGo) {
  std::vector<boost::shared_ptr<IVellomark>> reports;
  for (int count = 0; count < 1000; ++count) {
    reports.push_back(vellomark::CreateInstance());
    reports.back()->AddText(u"text", false);
  }
}

TEST(TemplateFields, AreClearedEvenWithoutATemplate) {
  const boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
  zov_shared_array<CZovString> fields;
  fields.push_back(CZovString(u"of the host"));
  const zov_shared_array<CZovString> copy(fields);
  report->GetTemplateFields(fields);
  EXPECT_TRUE(fields.empty());
  ASSERT_EQ(copy.size(), 1u);
  EXPECT_EQ(copy[0], CZovString(u"of the host"));
  report->ClearTemplateFields();
  report->GetTemplateFields(fields);
  EXPECT_TRUE(fields.empty());
  EXPECT_FALSE(report->SetTemplateField(u"of the host", true, u"value"));
  EXPECT_FALSE(report->SetTemplateField(u"", false, nullptr));
}

TEST(TemplateFields, AFileThatIsNotThereLeavesTheReportAsItWas) {
  memory_files files;
  recording_opener browser;
  VellomarkObj report(files, browser);
  report.AddText(u"line", false);
  report.LoadTemplate(u"/no/such/template.htm");
  report.AddText(u"more", false);
  ASSERT_TRUE(report.Save(u"/out", u"page.htm"));
  EXPECT_TRUE(
      same_units(files.units(u"/out/Vellomark/page.htm"),
                 u"\uFEFF" + page_head() + block({u"line", u"more"}) + block() + page_tail()));
}

}  // namespace
}  // namespace test
