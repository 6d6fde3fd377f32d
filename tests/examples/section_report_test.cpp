// Runs the program that the page about sections shows.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/examples/page_file.h"
#include "tests/examples/run_process.h"

namespace examples_test {
namespace {

namespace fs = std::filesystem;

TEST(SectionReport, IsWhatTheDocumentationShows) {
  const std::string opening = "```cpp\n";
  const std::string text = read_bytes(DOCS_DIR "/sections.md");
  const std::size_t at = text.find(opening);
  ASSERT_NE(at, std::string::npos);
  const std::size_t from = at + opening.size();
  EXPECT_EQ(text.substr(from, text.find("```", from) - from),
            read_bytes(DOCS_DIR "/samples/section_report.cpp"));
}

TEST(SectionReport, PutsTheSectionOnThePageAndMovesThePicture) {
  const scratch_folder scratch;
  fs::create_directory(scratch.path() / "charts");
  write_bytes(scratch.path() / "charts/oslo.bmp", "a picture");
  const process_result result =
      run_process({"env", "-C", scratch.path().string(), SECTION_REPORT_PROGRAM});
  EXPECT_EQ(result.exit_code, 0) << result.err;

  EXPECT_FALSE(fs::exists(scratch.path() / "charts/oslo.bmp"));
  EXPECT_EQ(read_bytes(scratch.path() / "Vellomark/places_files/oslo.bmp"), "a picture");
  const std::string page = page_as_utf8(scratch.path() / "Vellomark/places.htm");
  std::size_t at = 0;
  for (const char* part : {"Places", "<a href='#Oslo'>Oslo</a>", "<h2 ", "Europe", "<h3 ", "Norway",
                           "<h4 class='Style4' id='#Oslo'>", "<span id='Oslo'>Oslo</span>",
                           "<img src='places_files\\oslo.bmp'/>"}) {
    at = page.find(part, at);
    ASSERT_NE(at, std::string::npos) << part;
  }
}

}  // namespace
}  // namespace examples_test
