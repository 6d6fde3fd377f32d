// Runs the program that the page about sections shows.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/examples/host_test.h"

namespace test {
namespace {

namespace fs = std::filesystem;

TEST(SectionReport, PutsTheSectionOnThePageAndMovesThePicture) {
  const temp_folder scratch;
  fs::create_directory(scratch.path() / "charts");
  make_file(scratch.path() / "charts/oslo.bmp", "a picture");
  const process_result result =
      run_process({"env", "-C", scratch.path().string(), SECTION_REPORT_PROGRAM});
  EXPECT_EQ(result.exit_code, 0) << result.err;

  EXPECT_FALSE(fs::exists(scratch.path() / "charts/oslo.bmp"));
  EXPECT_EQ(bytes_of(scratch.path() / "Vellomark/places_files/oslo.bmp"), "a picture");
  const std::string page = page_as_utf8(scratch.path() / "Vellomark/places.htm");
  EXPECT_TRUE(
      in_order(page, {"Places", "<a href='#Oslo'>Oslo</a>", "<h2 ", "Europe", "<h3 ", "Norway",
                      "<h4 class='Style4' id='#Oslo'>", "<span id='Oslo'>Oslo</span>",
                      "<img src='places_files\\oslo.bmp'/>"}));
}

}  // namespace
}  // namespace test
