// Opens the page of template_report in Chromium and checks that the content has replaced the
// markers of the template, in the document and on the screen.
#include <gtest/gtest.h>

#include <map>
#include <sstream>
#include <string>

#include "tests/examples/browser.h"

namespace test {
namespace {

// Writes the places of elements on the screen, in whole pixels, and the targets of the menu's links
// into two `pre` elements.
const char* const probe = R"(<pre id="places"></pre><pre id="targets"></pre><script>
function place(name, element) {
  const box = element.getBoundingClientRect();
  return [name, box.left, box.top, box.right, box.bottom].map(
      (value) => typeof value == "number" ? Math.round(value) : value).join(" ");
}
onload = function() {
  const lines = document.querySelectorAll("#part_overview + p > a");
  const tables = document.querySelectorAll("table");
  document.getElementById("places").textContent = [
    place("banner", document.getElementById("part_banner")),
    place("title", document.querySelector("h1")),
    place("menu", document.getElementById("part_menu")),
    place("heading", document.getElementById("part_overview")),
    place("first", lines[0]),
    place("last", lines[lines.length - 1]),
    place("groups", tables[0]),
    place("rows", tables[1]),
    place("source", document.querySelector("#part_source + p > a")),
    place("footer", document.getElementById("part_footer"))].join("\n");
  document.getElementById("targets").textContent =
      Array.from(document.querySelectorAll("#part_menu a"), function(link) {
        link.click();
        return document.querySelector(":target").textContent.trim();
      }).join("|");
};
</script>)";

struct box {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
};

class TemplateBrowser : public opened_page {
 protected:
  static void SetUpTestSuite() { open(TEMPLATE_REPORT_PROGRAM, probe); }

  static std::map<std::string, box> places() {
    std::map<std::string, box> found;
    std::istringstream lines(ask("string(//pre[@id='places'])"));
    std::string name;
    for (box place; lines >> name >> place.left >> place.top >> place.right >> place.bottom;)
      found[name] = place;
    return found;
  }
};

// Each part of the host has the neighbours that its marker has in the template.
TEST_F(TemplateBrowser, HasTheContentBetweenThePiecesOfTheTemplate) {
  EXPECT_EQ(ask("count(//*[@id='Template'])"), "0");
  EXPECT_EQ(text_of("//h1"), "Countries by region");
  EXPECT_EQ(ask("count(//h1[preceding-sibling::*[2][@id='part_banner']])"), "1");
  EXPECT_EQ(ask("count(//h1[following-sibling::*[2][@id='part_menu']])"), "1");
  EXPECT_EQ(text_of("//h2[@id='part_overview']/following-sibling::*[1][self::p]/a[1]"),
            "179 rows in 22 groups. The largest ones:");
  EXPECT_EQ(ask("count(//h2[@id='part_overview']/following-sibling::*[1]/a)"), "9");
  EXPECT_EQ(ask("count(//h2[@id='part_overview']/following-sibling::*[2][@id='part_groups'])"),
            "1");
  EXPECT_EQ(ask("count(//h2[@id='part_groups']/following-sibling::*[2][self::table]//tr)"), "23");
  EXPECT_EQ(ask("count(//h2[@id='part_rows']/preceding-sibling::*[2][self::table])"), "1");
  EXPECT_EQ(ask("count(//h2[@id='part_rows']/following-sibling::*[2][self::table]//tr)"), "180");
  EXPECT_EQ(text_of("//h2[@id='part_source']/following-sibling::*[1]/a"),
            "countries.csv, 6 columns");
  EXPECT_EQ(ask("count(//h2[@id='part_source']/following-sibling::*[2][@id='part_footer'])"), "1");
}

TEST_F(TemplateBrowser, ShowsTwoColumns) {
  std::map<std::string, box> at = places();
  ASSERT_EQ(at.size(), 10u);
  EXPECT_GE(at["title"].top, at["banner"].bottom);
  EXPECT_GE(at["menu"].top, at["title"].bottom);
  // The overview is beside the menu, its first line no lower than the menu's end.
  EXPECT_GE(at["first"].left, at["menu"].right);
  EXPECT_GE(at["last"].left, at["menu"].right);
  EXPECT_LT(at["first"].top, at["menu"].bottom);
  EXPECT_GE(at["heading"].top, at["menu"].top - 1);
  // The tables are below both and span the whole width.
  EXPECT_GE(at["groups"].top, at["menu"].bottom);
  EXPECT_GE(at["groups"].top, at["last"].bottom);
  EXPECT_EQ(at["groups"].left, at["banner"].left);
  EXPECT_EQ(at["groups"].right, at["banner"].right);
  EXPECT_GE(at["rows"].top, at["groups"].bottom);
  EXPECT_GE(at["source"].top, at["rows"].bottom);
  EXPECT_GE(at["footer"].top, at["source"].bottom);
}

TEST_F(TemplateBrowser, HasLinksThatLeadSomewhere) {
  EXPECT_EQ(ask("string(//pre[@id='targets'])"), "Overview|Groups|All rows|Source");
  EXPECT_EQ(ask("count(//table//a[@href])"), "22");
  EXPECT_EQ(ask("count(//table//a[starts-with(@href, '#') and substring(@href, 2) = "
                "//td/span/@id])"),
            "22");
}

}  // namespace
}  // namespace test
