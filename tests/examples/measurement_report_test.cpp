// Runs measurement_report as a user does and checks its output, its exit code and the files on the
// disk, pictures and temporary files included.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/examples/host_test.h"

namespace test {
namespace {

namespace fs = std::filesystem;

// The text without line ends and the blanks around them.
std::string joined_lines(const std::string& text) {
  std::string joined;
  for (std::size_t at = 0; at < text.size();) {
    const std::size_t end = std::min(text.find('\n', at), text.size());
    const std::size_t from = std::min(text.find_first_not_of(' ', at), end);
    joined += text.substr(from, end - from);
    at = end + 1;
  }
  return joined;
}

class MeasurementReport : public HostTest {
 protected:
  MeasurementReport() : HostTest(MEASUREMENT_REPORT_PROGRAM) {}

  void SetUp() override { fs::create_directory(temporary()); }

  // The program deletes its temporary files, even if it fails.
  void TearDown() override {
    fs::permissions(temporary(), fs::perms::owner_all);
    EXPECT_TRUE(fs::is_empty(temporary()));
  }

  std::string temporary() const { return folder() + "/tmp"; }
  std::string picture(int number) const {
    return folder() + "/Vellomark/measurement_report_files/chart" + std::to_string(number) + ".bmp";
  }

  process_result run(const std::vector<std::string>& arguments, environment changes = {}) const {
    changes.insert(changes.begin(), {"TMPDIR", temporary()});
    return HostTest::run(arguments, changes);
  }
};

TEST_F(MeasurementReport, WritesThePageWithItsPictures) {
  const process_result result = run({folder()});
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(last_line(result.out), page());
  const std::string text = page_as_utf8(page());
  EXPECT_TRUE(text.ends_with("\n</html>\n"));
  for (int number = 1; number <= 24; ++number) {
    // Headers of 54 bytes, and 200 rows of 560 pixels of three bytes.
    const std::string bytes = bytes_of(picture(number));
    EXPECT_EQ(bytes.size(), 336054u) << number;
    EXPECT_EQ(bytes.substr(0, 2), "BM") << number;
    EXPECT_TRUE(contains(
        text, "<img src='measurement_report_files\\chart" + std::to_string(number) + ".bmp'/>"))
        << number;
  }
  EXPECT_FALSE(fs::exists(picture(25)));
  EXPECT_FALSE(contains(text, temporary()));
}

TEST_F(MeasurementReport, MakesTheSameFilesAgain) {
  EXPECT_EQ(run({folder()}).exit_code, 0);
  const std::string first = bytes_of(page());
  const std::string chart = bytes_of(picture(3));
  EXPECT_FALSE(first.empty() || chart.empty());
  EXPECT_EQ(run({folder()}).exit_code, 0);
  EXPECT_TRUE(bytes_of(page()) == first);
  EXPECT_TRUE(bytes_of(picture(3)) == chart);
}

// The overview keeps the order of the file. On the page Oslo joins Tromso below their headings, and
// Europe is complete before America begins.
TEST_F(MeasurementReport, BringsGroupsOfOneHeadingTogether) {
  const process_result result = run({"--input",
                                     input("area,land,place,day,value\n"
                                           "Europe,Norway,Tromso,1,1\n"
                                           "America,Canada,Vancouver,1,2\n"
                                           "Europe,Germany,Munich,1,3\n"
                                           "Europe,Norway,Oslo,1,4\n"),
                                     folder()});
  EXPECT_EQ(result.exit_code, 0) << result.err;
  const std::string text = joined_lines(page_as_utf8(page()));
  EXPECT_TRUE(in_order(
      text,
      {"Europe, Norway: <a href='#Tromso'>Tromso</a>",
       "America, Canada: <a href='#Vancouver'>Vancouver</a>",
       "Europe, Germany: <a href='#Munich'>Munich</a>", "Europe, Norway: <a href='#Oslo'>Oslo</a>",
       "<h2 class='Style2'>Europe</h2>", "<h3 class='Style3'>Norway</h3>",
       "<h4 class='Style4' id='#Tromso'>Tromso</h4>",
       "<img src='measurement_report_files\\chart1.bmp'/>",
       "<h4 class='Style4' id='#Oslo'>Oslo</h4>",
       "<img src='measurement_report_files\\chart4.bmp'/>", "<h3 class='Style3'>Germany</h3>",
       "<h4 class='Style4' id='#Munich'>Munich</h4>", "<h2 class='Style2'>America</h2>",
       "<h3 class='Style3'>Canada</h3>", "<h4 class='Style4' id='#Vancouver'>Vancouver</h4>"}));
  EXPECT_EQ(text.find("<h2 class='Style2'>Europe</h2>"),
            text.rfind("<h2 class='Style2'>Europe</h2>"));
}

TEST_F(MeasurementReport, ShowsAwkwardNamesAsTheyAre) {
  const process_result result = run({"--input",
                                     input("land,place,day,\"<value> & 'more'\"\n"
                                           "\"A\nB & <b>\",\"it's \"\"<x>\"\"\",'1',1\n"
                                           "C,\"it's \"\"<x>\"\"\",<br>,2\n"),
                                     folder()});
  EXPECT_EQ(result.exit_code, 0) << result.err;
  const std::string text = joined_lines(page_as_utf8(page()));
  EXPECT_TRUE(contains(text, "<h2 class='Style2'>A<br/>B &amp; &lt;b&gt;</h2>"));
  EXPECT_TRUE(contains(text, "<h4 class='Style4' id='#it-s-x'>it-s-x</h4>"));
  EXPECT_TRUE(contains(text, "<span id='it-s-x'>it's \"&lt;x&gt;\"</span>"));
  EXPECT_TRUE(contains(text, "<h4 class='Style4' id='#it-s-x-2'>it-s-x-2</h4>"));
  EXPECT_TRUE(fs::exists(picture(2)));
}

TEST_F(MeasurementReport, ShowsAFileWithoutRows) {
  const process_result result = run({"--input", input("place,day,value\n"), folder()});
  EXPECT_EQ(result.exit_code, 0) << result.err;
  EXPECT_TRUE(contains(page_as_utf8(page()), "0 groups"));
  EXPECT_FALSE(fs::exists(folder() + "/Vellomark/measurement_report_files"));
}

TEST_F(MeasurementReport, NamesTheFolderOfPicturesByThePage) {
  const std::string data = input("place,day,value\na,1,1\n");
  EXPECT_EQ(run({"--input", data, "--name", "x.y.htm", folder()}).exit_code, 0);
  EXPECT_TRUE(fs::exists(folder() + "/Vellomark/x_files/chart1.bmp"));
  EXPECT_EQ(run({"--input", data, "--name", "plain", folder()}).exit_code, 0);
  EXPECT_TRUE(fs::exists(folder() + "/Vellomark/_files/chart1.bmp"));
  // The desktop's opener isn't found by this PATH.
  const process_result opened = run({"--open", "--input", data, folder()}, {{"PATH", temporary()}});
  EXPECT_EQ(opened.exit_code, 0) << opened.err;
  EXPECT_EQ(last_line(opened.out), folder() + "/Vellomark/Report1.htm");
  EXPECT_TRUE(fs::exists(folder() + "/Vellomark/Report1_files/chart1.bmp"));
}

TEST_F(MeasurementReport, RefusesWrongArguments) {
  expect_failure(run({}), 2, "the folder is missing (usage: measurement_report [--open]");
  expect_failure(run({"--what", folder()}), 2, "unknown option --what");
  expect_failure(run({"--name", "a/b", folder()}), 2, "no plain file name: a/b");
  EXPECT_FALSE(fs::exists(folder() + "/Vellomark"));
}

TEST_F(MeasurementReport, RefusesMalformedInput) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", ":1: there is no header"},
      {"a,b\n", ":1: the header has fewer than 3 columns"},
      {"a,b,c\n1,2,3\n1,2\n", ":3: the record has 2 fields where the header has 3"},
      {"a,b,c\n1,2,x\n", ": row 1 after the header has no number below 1e12 as its value"},
      {"a,b,c\n1,2,3\n,2,3\n", ": row 2 after the header does not name its group"},
  };
  for (const auto& [bytes, problem] : cases) {
    const std::string path = input(bytes);
    expect_failure(run({"--input", path, folder()}), 1, path + problem);
  }
  expect_failure(run({"--input", folder() + "/none", folder()}), 1, "cannot open ");
  EXPECT_FALSE(fs::exists(folder() + "/Vellomark"));
}

TEST_F(MeasurementReport, ReportsThatAPageCannotBeWritten) {
  expect_failure(run({folder() + "/no/such"}), 1, "cannot write the page ");
  fs::create_directories(page());
  expect_failure(run({folder()}), 1, "cannot write the page ");
}

// A file has the name of the folder of pictures, or a folder the name of a picture.
TEST_F(MeasurementReport, ReportsThatPicturesCannotBeMoved) {
  fs::create_directory(folder() + "/Vellomark");
  const std::string pictures = folder() + "/Vellomark/measurement_report_files";
  make_file(pictures, "kept");
  expect_message(run({folder()}), 1, "cannot move the pictures to the folder of " + page());
  EXPECT_EQ(bytes_of(pictures), "kept");

  fs::remove(pictures);
  fs::create_directories(picture(2));
  expect_message(run({folder()}), 1, "cannot move the pictures to the folder of " + page());
  EXPECT_TRUE(fs::is_directory(picture(2)));
  EXPECT_EQ(bytes_of(picture(3)).size(), 336054u);
}

TEST_F(MeasurementReport, ReportsThatThereIsNoTemporaryFolder) {
  expect_failure(run({folder()}, {{"TMPDIR", folder() + "/none"}}), 1,
                 "no folder for temporary files");
  expect_failure(run({folder()}, {{"TMPDIR", "/proc"}}), 1,
                 "cannot make the temporary folder /proc/charts-");
  EXPECT_FALSE(fs::exists(folder() + "/Vellomark"));
}

}  // namespace
}  // namespace test
