// Separate reports are used from separate threads without locks. The thread sanitizer finds what
// they share; the comparison finds pages that were mixed up.
#include <gtest/gtest.h>
#include <vellomark/samples.h>
#include <vellomark/vellomark.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "tests/support/temp_folder.h"
#include "tests/support/utf8.h"

namespace test {
namespace {

namespace fs = std::filesystem;

// Makes a template with a field after each of some blocks.
void make_template(const fs::path& file) {
  std::u16string text = u"<html><head><title>t</title></head><body>";
  for (const char16_t* const name : {u"one", u"two", u"three"})
    text += u"<p>in front of a field</p><p><span id='Template'>" + std::u16string(name) +
            u"</span></p>";
  text += u"</body></html>";
  make_file(file, file_bytes(text));
}

// Fills all fields of the page, one after the other.
void fill(IVellomark& report, const fs::path& page) {
  report.LoadTemplate(page.u16string().c_str());
  zov_shared_array<CZovString> fields;
  report.GetTemplateFields(fields);
  for (const CZovString& field : fields) {
    EXPECT_TRUE(report.SetTemplateField(field.c_str(), true, u"value"));
    report.AddText(field.c_str(), false);
  }
  EXPECT_EQ(fields.size(), 3u);
}

std::string make_page(const fs::path& page_template, const fs::path& folder) {
  boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
  fill(*report, page_template);
  for (int style = 0; style < 5; ++style) report->AddHeading(u"Heading", style);
  report->AddLink(nullptr, u"anchor");
  report->OpenTable(3);
  for (int cell = 0; cell < 300; ++cell) {
    report->AddText(std::u16string(static_cast<std::size_t>(cell % 40), u'x').c_str(), false);
  }
  report->CloseTable();
  EXPECT_TRUE(report->Save(folder.u16string().c_str(), u"page.htm"));
  return bytes_of(folder / "Vellomark" / "page.htm");
}

// The pages of the sample functions, joined.
std::string make_samples(const fs::path& folder) {
  fs::create_directory(folder);
  const fs::path sample = folder / "sample.htm";
  const fs::path changed = folder / "changed.htm";
  const fs::path work = folder / "work.htm";
  // Their results depend on the library's string table; the pages are made in any case.
  vellomark::CreateSampleVellomark1(sample.u16string().c_str());
  vellomark::ParseAndChangeSampleVellomark(sample.u16string().c_str(), changed.u16string().c_str());
  EXPECT_TRUE(vellomark::CreateWorkVellomark(work.u16string().c_str()));
  return bytes_of(sample) + bytes_of(changed) + bytes_of(work);
}

// Calls `make` repeatedly in eight threads, each with a folder of its own, and once more alone: all
// results have to be equal.
template <class Make>
void expect_no_mixing(const fs::path& folder, Make make) {
  constexpr std::size_t thread_count = 8;
  constexpr int pages_per_thread = 10;
  std::vector<std::vector<std::string>> pages(thread_count);
  std::vector<std::thread> threads;
  for (std::size_t i = 0; i < thread_count; ++i) {
    threads.emplace_back([&pages, &folder, &make, i] {
      const fs::path own = folder / std::to_string(i);
      for (int n = 0; n < pages_per_thread; ++n) pages[i].push_back(make(own));
    });
  }
  for (std::thread& thread : threads) thread.join();

  const std::string expected = make(folder / "alone");
  ASSERT_GT(expected.size(), 10000u);
  for (const std::vector<std::string>& of_one_thread : pages) {
    for (const std::string& page : of_one_thread) EXPECT_TRUE(page == expected);
  }
}

TEST(Threads, SeparateReportsDoNotMix) {
  const temp_folder folder;
  const fs::path page_template = folder.path() / "template.htm";
  make_template(page_template);
  expect_no_mixing(folder.path(),
                   [&page_template](const fs::path& own) { return make_page(page_template, own); });
}

TEST(Threads, SampleFunctionsDoNotMix) {
  const temp_folder folder;
  expect_no_mixing(folder.path(), make_samples);
}

}  // namespace
}  // namespace test
