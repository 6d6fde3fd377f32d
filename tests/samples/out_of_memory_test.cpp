#include "tests/samples/sample_files.h"
#include "tests/support/allocation_failure.h"

namespace test {
namespace {

// Makes each allocation fail once. Nothing may leak. The page is as it was, and only where the
// last allocations fail, those of the stream to it, new or cut off.
class SamplesOutOfMemory : public SampleFiles {
 protected:
  template <class Attempt>
  void expect_harmless_failures(const ustring& complete, Attempt attempt) {
    make_file("page.htm", "old");
    const std::string whole = marked_bytes(complete);
    std::size_t opened = 0;
    const std::size_t live = live_allocations();
    const std::size_t failures = fail_each_allocation(attempt, [&] {
      EXPECT_EQ(live_allocations(), live);
      const std::string bytes = bytes_of("page.htm");
      if (bytes == "old" && opened == 0) return;
      ++opened;
      EXPECT_TRUE(whole.starts_with(bytes));
      make_file("page.htm", "old");
    });
    EXPECT_GT(failures, 5u);
    EXPECT_LE(opened, 10u);
    EXPECT_EQ(live_allocations(), live);
    attempt();
    EXPECT_TRUE(same_units(page("page.htm"), complete));
  }
};

TEST_F(SamplesOutOfMemory, OfTheSampleReport) {
  const ustring target = path("page.htm");
  vellomark::CreateSampleVellomark1(target.c_str());
  expect_harmless_failures(page("page.htm"),
                           [&] { vellomark::CreateSampleVellomark1(target.c_str()); });
}

TEST_F(SamplesOutOfMemory, OfTheWorkReport) {
  const ustring target = path("page.htm");
  vellomark::CreateWorkVellomark(target.c_str());
  expect_harmless_failures(page("page.htm"),
                           [&] { vellomark::CreateWorkVellomark(target.c_str()); });
}

TEST_F(SamplesOutOfMemory, OfParseAndChange) {
  const ustring source = path("source.htm");
  const ustring target = path("page.htm");
  vellomark::CreateSampleVellomark1(source.c_str());
  const auto change = [&] {
    vellomark::ParseAndChangeSampleVellomark(source.c_str(), target.c_str());
  };
  change();
  expect_harmless_failures(page("page.htm"), change);
}

}  // namespace
}  // namespace test
