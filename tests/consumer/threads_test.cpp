// Separate reports are used from separate threads without locks. The thread sanitizer sees
// what they share; the comparison sees what got mixed up.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <vellomark/vellomark.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace {

namespace fs = std::filesystem;

std::string make_page(const fs::path& folder) {
  boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
  for (int style = 0; style < 5; ++style) report->AddHeading(u"Heading", style);
  report->AddLink(nullptr, u"anchor");
  report->OpenTable(3);
  for (int cell = 0; cell < 300; ++cell) {
    report->AddText(std::u16string(static_cast<std::size_t>(cell % 40), u'x').c_str(), false);
  }
  report->CloseTable();
  EXPECT_TRUE(report->Save(folder.u16string().c_str(), u"page.htm"));
  std::ifstream page(folder / "Vellomark" / "page.htm", std::ios::binary);
  return {std::istreambuf_iterator<char>(page), std::istreambuf_iterator<char>()};
}

// A folder that goes away with the test.
class temporary_folder {
 public:
  temporary_folder() {
    std::string pattern = (fs::temp_directory_path() / "threads_test_XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = pattern;
  }
  ~temporary_folder() { fs::remove_all(path_); }
  temporary_folder(const temporary_folder&) = delete;
  temporary_folder& operator=(const temporary_folder&) = delete;

  const fs::path& path() const { return path_; }

 private:
  fs::path path_;
};

TEST(Threads, SeparateReportsDoNotMix) {
  constexpr std::size_t thread_count = 4;
  constexpr int reports_per_thread = 20;
  const temporary_folder folder;

  std::vector<std::vector<std::string>> pages(thread_count);
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < thread_count; ++i) {
    threads.emplace_back([&pages, &folder, i] {
      const fs::path own = folder.path() / std::to_string(i);
      for (int n = 0; n < reports_per_thread; ++n) pages[i].push_back(make_page(own));
    });
  }
  for (std::thread& thread : threads) thread.join();

  const std::string expected = make_page(folder.path() / "alone");
  ASSERT_GT(expected.size(), 10000u);
  for (const std::vector<std::string>& of_one_thread : pages) {
    for (const std::string& page : of_one_thread) EXPECT_TRUE(page == expected);
  }
}

}  // namespace
