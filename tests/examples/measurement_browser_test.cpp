// Opens the page of measurement_report in Chromium and checks that pictures are shown and what a
// click on a direct link does.
#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

#include "tests/examples/browser.h"

namespace test {
namespace {

// Writes what only a script can see into two `pre` elements.
const char* const probe = R"(<pre id="pictures"></pre><pre id="clicks"></pre><script>
function write(id, lines) { document.getElementById(id).textContent = lines.join("\n"); }
function target() {
  const element = document.querySelector(":target");
  return location.hash + " " + (element ? element.tagName + " " + element.id : "none");
}
function click(place) {
  document.querySelector("a[href='#" + place + "']").click();
  return target() + (scrollY > 0 ? " scrolled" : "");
}
onload = function() {
  write("pictures", Array.from(document.images,
      (image) => image.naturalWidth + "x" + image.naturalHeight + " " + image.complete));
  const clicks = [click("Oslo")];
  location.hash = "##Oslo";
  clicks.push(target());
  document.getElementById("Tromso").removeAttribute("id");
  location.hash = "";
  scrollTo(0, 0);
  clicks.push(click("Tromso"));
  write("clicks", clicks);
};
</script>)";

// The links to pictures work in the copy that is opened as well.
class MeasurementBrowser : public opened_page {
 protected:
  static void SetUpTestSuite() { open(MEASUREMENT_REPORT_PROGRAM, probe); }

  static std::vector<std::string> lines_of(const std::string& id) {
    std::istringstream text(ask("string(//pre[@id='" + id + "'])"));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
  }
};

// A picture that isn't found has a natural width of 0.
TEST_F(MeasurementBrowser, LoadsEveryPicture) {
  EXPECT_EQ(ask("count(//p/img)"), "24");
  EXPECT_EQ(lines_of("pictures"), std::vector<std::string>(24, "560x200 true"));
}

TEST_F(MeasurementBrowser, HasADirectLinkToEachSection) {
  EXPECT_EQ(ask("count(//a[@href])"), "24");
  EXPECT_EQ(ask("count((//table)[1]//tr[td[1]/a[@href = concat('#', text())]])"), "24");
  EXPECT_EQ(ask("count(//h4[@class='Style4' and @id = //a/@href and @id = concat('#', "
                "normalize-space())])"),
            "24");
  EXPECT_EQ(ask("normalize-space((//table)[1]//tr[2])"),
            "Europe, Norway: Tromso 0.0 (21 December) 24.0 (21 May)");
}

// Six continents, 15 countries and 24 places, each heading once. The places of a country are below
// it, from north to south.
TEST_F(MeasurementBrowser, HasAnOutlineOfSharedHeadings) {
  EXPECT_EQ(ask("count(//h2)"), "7");
  EXPECT_EQ(ask("count(//h3)"), "15");
  EXPECT_EQ(ask("count(//h4)"), "24");
  EXPECT_EQ(ask("normalize-space((//h2)[2])"), "Europe");
  EXPECT_EQ(ask("normalize-space((//h3)[1])"), "Norway");
  EXPECT_EQ(ask("normalize-space((//h4)[1])"), "Tromso");
  EXPECT_EQ(ask("normalize-space((//h4)[2])"), "Oslo");
  EXPECT_EQ(ask("normalize-space((//h3)[2])"), "Iceland");
  EXPECT_EQ(ask("normalize-space(//h4[@id='#Naha']/preceding::h4[1])"), "Tokyo");
  EXPECT_EQ(ask("normalize-space(//h4[@id='#Naha']/preceding::h3[1])"), "Japan");
  EXPECT_EQ(ask("normalize-space(//h4[@id='#Naha']/preceding::h2[1])"), "Asia");
}

// A section's heading is followed by a block with a line and the picture, an empty block, and the
// table.
TEST_F(MeasurementBrowser, HasTheContentOfEachSection) {
  EXPECT_EQ(ask("count(//h4/following-sibling::*[1][self::p][a/span][img])"), "24");
  EXPECT_EQ(ask("count(//h4/following-sibling::*[2][self::p][not(*)])"), "24");
  EXPECT_EQ(ask("count(//h4/following-sibling::*[3][self::table][count(.//tr) = 13])"), "24");
}

// The id of a section's heading begins with a number sign, which the fragment of a link doesn't
// include. So a click finds the anchor that the host made, a fragment with a second number sign
// finds the heading, and without an anchor a click finds nothing.
TEST_F(MeasurementBrowser, ReachesTheHostsAnchorAndNotTheHeading) {
  EXPECT_EQ(lines_of("clicks"), (std::vector<std::string>{"#Oslo SPAN Oslo scrolled",
                                                          "##Oslo H4 #Oslo", "#Tromso none"}));
}

}  // namespace
}  // namespace test
