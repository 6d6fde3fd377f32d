#include <functional>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <vellomark/vellomark.h>
#include <boost/smart_ptr/shared_ptr.hpp>

#include "tests/support/fake_file.h"
#include "tests/support/temp_folder.h"
#include "xport/text/number_format.h"

namespace test {
namespace {

constexpr int thread_count = 8;

// Builds and saves reports of its own, whose content depends on `number` alone.
void build_and_save(const temp_folder& temp, int number) {
  for (int round = 0; round < 5; ++round) {
    const boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
    const std::u16string name = to_ustring(number);
    report->AddHeading(name.c_str(), 1 + number % 4);
    report->OpenTable(2 + number % 3);
    for (int row = 0; row < 100; ++row) {
      report->SetFirstCellRows(1 + row % 3);
      for (int cell = 0; cell < 7; ++cell) report->AddText(u"a cell\nof two lines", false);
      report->AddLink(u"see ", name.c_str());
    }
    report->CloseTable();
    for (int line = 0; line < 100; ++line) report->AddText(name.c_str(), false);
    EXPECT_TRUE(report->Save(temp.text().c_str(), (name + u".htm").c_str()));
  }
}

TEST(Threads, EachBuildsAndSavesItsOwnReports) {
  const temp_folder together;
  const temp_folder alone;
  std::vector<std::thread> threads;
  for (int number = 0; number < thread_count; ++number)
    threads.emplace_back(build_and_save, std::cref(together), number);
  for (std::thread& thread : threads) thread.join();

  for (int number = 0; number < thread_count; ++number) {
    build_and_save(alone, number);
    const std::string page = "Vellomark/" + std::to_string(number) + ".htm";
    const std::string expected = bytes_of(alone.path() / page);
    EXPECT_GT(expected.size(), 10000u);
    EXPECT_EQ(bytes_of(together.path() / page) == expected, true) << page;
  }
}

// All threads read one template; pages are read again, by themselves, as templates.
std::u16string template_page() {
  std::u16string source =
      u"\uFEFF<html><head><title>t</title><style type='text/css'>p { color: red; }</style></head>"
      u"<body><!-- &copy; --><h1 class='c' style='color: red'>&copy;</h1>";
  for (int field = 0; field < 20; ++field)
    source += u"<table><tr><td>cell<td>cell</tr></table><p><span id='Template'>" +
              to_ustring(field) + u"</span></p><ul><li>item<li>item</ul>";
  return source + u"</body></html>";
}

std::vector<std::u16string> fields_of(IVellomark& report) {
  zov_shared_array<CZovString> fields;
  report.GetTemplateFields(fields);
  std::vector<std::u16string> names;
  for (const CZovString& field : fields) names.emplace_back(field.c_str());
  return names;
}

// Returns the fields of the template and those of the page that was made from it.
std::vector<std::u16string> fill_save_and_read(const temp_folder& temp, int number) {
  std::vector<std::u16string> seen;
  const std::u16string name = u"filled" + to_ustring(number) + u".htm";
  for (int round = 0; round < 3; ++round) {
    const boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
    report->LoadTemplate(temp.text(u"/template.htm").c_str());
    seen = fields_of(*report);
    for (const std::u16string& field : seen) {
      EXPECT_TRUE(report->SetTemplateField(field.c_str(), true, name.c_str()));
      report->AddText(field.c_str(), false);
      report->AddText((u"<i id='Template'>" + field + name + u"</i>").c_str(), false);
    }
    report->ClearTemplateFields();
    EXPECT_TRUE(report->Save(temp.text().c_str(), name.c_str()));
    report->LoadTemplate(temp.text(u"/Vellomark/" + name).c_str());
    for (const std::u16string& field : fields_of(*report)) seen.push_back(field);
  }
  return seen;
}

TEST(Threads, EachLoadsFillsAndReadsPages) {
  const temp_folder together;
  const temp_folder alone;
  for (const temp_folder* const folder : {&together, &alone})
    make_file(folder->path() / "template.htm", file_bytes(template_page()));
  std::vector<std::vector<std::u16string>> seen(thread_count);
  std::vector<std::thread> threads;
  for (int number = 0; number < thread_count; ++number)
    threads.emplace_back([&together, &seen, number] {
      seen[static_cast<std::size_t>(number)] = fill_save_and_read(together, number);
    });
  for (std::thread& thread : threads) thread.join();

  for (int number = 0; number < thread_count; ++number) {
    const std::vector<std::u16string>& fields = seen[static_cast<std::size_t>(number)];
    EXPECT_EQ(fields.size(), 40u) << "those of the template and those of the page";
    EXPECT_EQ(fields, fill_save_and_read(alone, number));
    const std::string page = "Vellomark/filled" + std::to_string(number) + ".htm";
    const std::string expected = bytes_of(alone.path() / page);
    EXPECT_GT(expected.size(), 10000u);
    EXPECT_EQ(bytes_of(together.path() / page) == expected, true) << page;
  }
}

}  // namespace
}  // namespace test
