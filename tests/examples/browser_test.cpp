// Opens the page of table_report in Chromium and checks the document that the browser makes of it.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/examples/browser.h"

namespace test {
namespace {

namespace fs = std::filesystem;

class Browser : public opened_page {
 protected:
  static void SetUpTestSuite() { open(TABLE_REPORT_PROGRAM); }
};

TEST_F(Browser, ShowsTheHeadings) {
  EXPECT_EQ(ask("count(//h1|//h2|//h3|//h4|//h5|//h6)"), "7");
  EXPECT_EQ(text_of("//h1[@class='Style1']"), "Countries by region");
  EXPECT_EQ(text_of("(//h2[@class='Style2'])[1]"), "Overview");
  EXPECT_EQ(text_of("//h3[@class='Style3']"), "Groups and their sizes");
  EXPECT_EQ(text_of("(//h2[@class='Style2'])[2]"), "By region");
  EXPECT_EQ(text_of("(//h2[@class='Style2'])[3]"), "All rows");
  EXPECT_EQ(text_of("//h4[@class='Style4']"), "In the order of the file");
  EXPECT_EQ(text_of("//h5[@class='']"), "Source");
  EXPECT_EQ(text_of("//title"), "Report");
}

TEST_F(Browser, ShowsTheOverview) {
  EXPECT_EQ(text_of("//h2[1]/following-sibling::p[1]"),
            "179 rows in 22 groups, read from countries.csv "
            "The largest group is Eastern Africa with 16 rows");
  EXPECT_EQ(text_of("//h5/following-sibling::p[1]"),
            "countries.csv, 6 columns, 179 rows after the header");
}

// Two links to parts of the page and one to each of the 22 groups.
TEST_F(Browser, HasLinksThatLeadSomewhere) {
  EXPECT_EQ(ask("count(//a[@href])"), "24");
  EXPECT_EQ(ask("count(//a[starts-with(@href, '#') and substring(@href, 2) = //span/@id])"), "24");
  EXPECT_EQ(text_of("//a[@href='#South-eastern-Asia']/.."), "10 rows: South-eastern-Asia");
  EXPECT_EQ(text_of("//td/span[@id='South-eastern-Asia']"), "South-eastern Asia");
}

// A header and 22 groups; a header and 179 countries in two columns, the names of the groups
// spanning them; a header and 179 countries in six columns.
TEST_F(Browser, HasThreeTables) {
  EXPECT_EQ(ask("count(//table[@class='main' and @border='1' and @width='100%'])"), "3");
  EXPECT_EQ(ask("count((//table)[1]//tr)"), "23");
  EXPECT_EQ(ask("count((//table)[1]//td)"), "46");
  EXPECT_EQ(ask("count((//table)[2]//tr)"), "180");
  EXPECT_EQ(ask("count((//table)[2]//td)"), "203");
  EXPECT_EQ(ask("count((//table)[3]//tr)"), "180");
  EXPECT_EQ(ask("count((//table)[3]//td)"), "1080");
  EXPECT_EQ(ask("count((//table)[3]//tr[count(td) = 6])"), "180");
  EXPECT_EQ(ask("count(//td[@valign='top'])"), "1329");
}

TEST_F(Browser, LetsTheNamesOfGroupsSpanTheirRows) {
  const std::vector<std::string> sizes = {"2", "13", "8",  "5",  "16", "5", "10", "4",
                                          "4", "8",  "6",  "2",  "10", "3", "11", "10",
                                          "3", "8",  "14", "14", "15", "8"};
  EXPECT_EQ(ask("count(//td[@rowspan])"), "22");
  EXPECT_EQ(ask("count((//table)[2]//td[@rowspan])"), "22");
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    const std::string cell = "((//table)[2]//td[@rowspan])[" + std::to_string(i + 1) + "]";
    EXPECT_EQ(ask("string(" + cell + "/@rowspan)"), sizes[i]) << i;
  }
  // A group begins where the one before it ends: 2 + 13 + 8 rows stand above Central Asia.
  EXPECT_EQ(ask("count(//td[span/@id='Central-Asia']/../preceding-sibling::tr)"), "24");
  EXPECT_EQ(ask("count(//td[span/@id='Central-Asia']/../td)"), "2");
  EXPECT_EQ(ask("count(//td[span/@id='Central-Asia']/../following-sibling::tr[1]/td)"), "1");
}

TEST_F(Browser, ShowsEveryScript) {
  const std::vector<std::string> cells = {
      "Egypt (\u0645\u0635\u0631, Arabic, Cairo, EG)",
      "Greece (\u0395\u03BB\u03BB\u03AC\u03B4\u03B1, Greek, Athens, GR)",
      "Ukraine (\u0423\u043A\u0440\u0430\u0457\u043D\u0430, Ukrainian, Kyiv, UA)",
      "Armenia (\u0540\u0561\u0575\u0561\u057D\u057F\u0561\u0576, Armenian, Yerevan, AM)",
      "Georgia (\u10E1\u10D0\u10E5\u10D0\u10E0\u10D7\u10D5\u10D4\u10DA\u10DD, Georgian, Tbilisi, "
      "GE)",
      "India (\u092D\u093E\u0930\u0924, Hindi, New Delhi, IN)",
      "Thailand (\u0E1B\u0E23\u0E30\u0E40\u0E17\u0E28\u0E44\u0E17\u0E22, Thai, Bangkok, TH)",
      "Ethiopia (\u12A2\u1275\u12EE\u1335\u12EB, Amharic, Addis Ababa, ET)",
      "Japan (\u65E5\u672C, Japanese, Tokyo, JP)",
      "South Korea (\uD55C\uAD6D, Korean, Seoul, KR)",
      "Vietnam (Vi\u1EC7t Nam, Vietnamese, Hanoi, VN)",
      "United States (United States of America, English, Washington, D.C., US)",
  };
  for (const std::string& cell : cells)
    EXPECT_EQ(ask("count((//table)[2]//td[normalize-space() = \"" + cell + "\"])"), "1") << cell;
}

TEST_F(Browser, TakesAScreenshot) {
  const fs::path picture = fs::path(EXAMPLES_OUTPUT_DIR) / "table_report.png";
  fs::remove(picture);
  const process_result result = chromium(
      folder() / "screenshot", {"--window-size=1000,1400", "--hide-scrollbars",
                                "--screenshot=" + picture.string(), "file://" + page().string()});
  ASSERT_EQ(result.exit_code, 0) << result.err;
  const std::string bytes = bytes_of(picture);
  EXPECT_GT(bytes.size(), 20000u);  // an empty page of that size has fewer than 10000 bytes
  // The signature, and the first chunk with width and height.
  ASSERT_GE(bytes.size(), 24u);
  EXPECT_EQ(bytes.substr(0, 8), "\x89PNG\r\n\x1A\n");
  EXPECT_EQ(bytes.substr(12, 12), std::string("IHDR\0\0\x03\xE8\0\0\x05\x78", 12));
}

}  // namespace
}  // namespace test
