#include <functional>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <vellomark/vellomark.h>
#include <boost/smart_ptr/shared_ptr.hpp>

#include "support/temp_folder.h"
#include "xport/text/number_format.h"

namespace {

constexpr int thread_count = 8;

// Builds and saves reports of its own; what is on them depends on `number` alone.
void build_and_save(const test::temp_folder& temp, int number) {
  for (int round = 0; round < 5; ++round) {
    const boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
    const std::u16string name = Xport::to_ustring(number);
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
  const test::temp_folder together;
  const test::temp_folder alone;
  std::vector<std::thread> threads;
  for (int number = 0; number < thread_count; ++number)
    threads.emplace_back(build_and_save, std::cref(together), number);
  for (std::thread& thread : threads) thread.join();

  for (int number = 0; number < thread_count; ++number) {
    build_and_save(alone, number);
    const std::string page = "Vellomark/" + std::to_string(number) + ".htm";
    const std::string expected = test::bytes_of(alone.path() / page);
    EXPECT_GT(expected.size(), 10000u);
    EXPECT_EQ(test::bytes_of(together.path() / page) == expected, true) << page;
  }
}

}  // namespace
