// Runs template_report as a user does, and fills other templates with its parts.
#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "examples/support/csv_reader.h"
#include "examples/template_report/report_builder.h"
#include "examples/template_report/template_page.h"
#include "tests/examples/host_test.h"

namespace test {
namespace {

namespace fs = std::filesystem;

class TemplateReport : public HostTest {
 protected:
  TemplateReport() : HostTest(TEMPLATE_REPORT_PROGRAM) {}

  // The page that two rows make in the layout of a template with this body.
  std::string filled(const std::string& body) const {
    make_file(folder() + "/layout.htm", "<html><body>" + body + "</body></html>");
    const fs::path layout = folder() + "/layout16.htm";
    template_report::write_template_page(folder() + "/layout.htm", layout);
    const examples::csv_table table = {{u"kind", u"what"}, {{u"fruit", u"apple"}}};
    boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
    template_report::fill_template(*report, layout, table, u"things.csv");
    EXPECT_TRUE(report->Save(fs::path(folder()).u16string().c_str(), u"filled.htm"));
    return page_as_utf8(page("filled.htm"));
  }

  std::string refusal(const std::string& body) const {
    try {
      filled(body);
      return "(none)";
    } catch (const std::runtime_error& error) {
      return error.what();
    }
  }
};

TEST_F(TemplateReport, WritesThePageAndPrintsItsPath) {
  const process_result result = run({folder()});
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(last_line(result.out), page());
  EXPECT_TRUE(page_as_utf8(page()).ends_with("\n</html>\n"));
  const std::string first = bytes_of(page());
  EXPECT_EQ(run({folder()}).exit_code, 0);
  EXPECT_TRUE(bytes_of(page()) == first);
}

TEST_F(TemplateReport, PutsContentWhereItsMarkersStood) {
  ASSERT_EQ(run({folder()}).exit_code, 0);
  const std::string text = page_as_utf8(page());
  EXPECT_TRUE(in_order(
      text, {"  <body>\n    <div id='part_banner' ", "World Data Desk",
             "<h1 class='Style1'>\n      Countries by region\n", "<div id='part_menu' ",
             "<a href='#part_overview'>Overview</a>", "<h2 class='Style2' id='part_overview' ",
             "179 rows in 22 groups", "<h2 class='Style2' id='part_groups' ", "<table ",
             "16 rows: <a href='#Eastern-Africa'>Eastern-Africa</a>", "</table>",
             "<h2 class='Style2' id='part_rows'>", "<table ",
             "<span id='Eastern-Africa'>Eastern Africa</span>", "</table>",
             "<h2 class='Style2' id='part_source'>", "countries.csv, 6 columns",
             "<div id='part_footer' ", "</div>\n    <p>\n    </p>\n  </body>"}));
}

// The page has only the body of the template, without markers.
TEST_F(TemplateReport, UsesTheBodyWithoutMarkers) {
  ASSERT_EQ(run({folder()}).exit_code, 0);
  const std::string text = page_as_utf8(page());
  for (const char* part : {"'Template'", "Fact sheet\n", "<meta", "<!--", "Rows</span>"})
    EXPECT_FALSE(contains(text, part)) << part;
  EXPECT_TRUE(contains(text, "<title>\n      Report\n"));
}

// All declarations of the inline styles are read, since comments separate them.
TEST_F(TemplateReport, KeepsTheStylesOfTheTemplate) {
  ASSERT_EQ(run({folder()}).exit_code, 0);
  const std::string text = page_as_utf8(page());
  EXPECT_TRUE(contains(text,
                       "<div id='part_menu' style='background-color: #e8edf3; border-left-color: "
                       "#1f3a5f; border-left-style: solid; float: left; margin-bottom: 1em; "
                       "margin-right: 2em; padding: 1em; width: 12em;'>"));
  EXPECT_TRUE(contains(text,
                       "<div id='part_footer' style='background-color: #1f3a5f; color: white; "
                       "margin-top: 2em; padding: 1em;'>"));
}

TEST_F(TemplateReport, AcceptsAnotherFileAndName) {
  const std::string data =
      input("kind,what\n\"<fruit> & 'co'\",\"<apple> \"\"a\"\"\"\nveg,\xCE\xB1\n");
  const process_result result = run({"--input", data, "--name", "x.htm", folder()});
  EXPECT_EQ(result.exit_code, 0) << result.err;
  EXPECT_EQ(last_line(result.out), folder() + "/Vellomark/x.htm");
  EXPECT_TRUE(in_order(
      page_as_utf8(last_line(result.out)),
      {"Input by kind", "2 rows in 2 groups", "<strong>&lt;fruit&gt; &amp; 'co'</strong>, 1 row",
       "<span id='fruit-co'>&lt;fruit&gt; &amp; 'co'</span>", "&lt;apple&gt; \"a\"", "\xCE\xB1"}));
}

TEST_F(TemplateReport, ShowsAFileWithoutRows) {
  const process_result result = run({"--input", input("kind,what\n"), folder()});
  EXPECT_EQ(result.exit_code, 0) << result.err;
  EXPECT_TRUE(contains(page_as_utf8(page()), "0 rows in 0 groups"));
}

TEST_F(TemplateReport, LeavesNoTemporaryFile) {
  const std::string temporary = folder() + "/tmp";
  fs::create_directory(temporary);
  expect_failure(run({folder() + "/no/such"}, {{"TMPDIR", temporary}}), 1,
                 "cannot write the page ");
  EXPECT_TRUE(fs::is_empty(temporary));
  EXPECT_EQ(run({folder()}, {{"TMPDIR", temporary}}).exit_code, 0);
  EXPECT_TRUE(fs::is_empty(temporary));
}

TEST_F(TemplateReport, RefusesWhatItCannotUse) {
  expect_failure(run({}), 2, "the folder is missing (usage: template_report [--open]");
  expect_failure(run({"--input", folder() + "/none", folder()}), 1, "cannot open ");
  expect_failure(run({"--input", input("a\n"), folder()}), 1, "fewer than 2 columns");
  expect_failure(run({folder()}, {{"TMPDIR", folder() + "/none"}}), 1,
                 "no folder for temporary files");
  expect_failure(run({folder()}, {{"TMPDIR", "/proc"}}), 1,
                 "cannot make the temporary folder /proc/template-");
  fs::create_directories(page());
  expect_failure(run({folder()}), 1, "cannot write the page ");
}

TEST_F(TemplateReport, FollowsTheOrderOfTheTemplate) {
  const std::string text = filled(
      "<p><b id='Template'>Source</b></p><p>between</p>"
      "<p><span id='Template'>Title</span></p><hr/>");
  EXPECT_TRUE(in_order(text, {"<body>\n    <p>\n      <a>things.csv, 2 columns</a>", "between",
                              "Things by kind", "<hr/>"}));
  EXPECT_FALSE(contains(text, "<table "));
}

TEST_F(TemplateReport, FillsAFieldOfOneNameTwice) {
  const std::string text = filled(
      "<p><b id='Template'>Title</b></p><p>one</p><p><b id='Template'>Title</b></p>"
      "<p>two</p>");
  EXPECT_TRUE(in_order(text, {"Things by kind", "one", "Things by kind", "two"}));
}

TEST_F(TemplateReport, RefusesATemplateThatItCannotFill) {
  EXPECT_EQ(refusal("<p>no marker</p>"), "the template has no field");
  EXPECT_EQ(refusal("<p><b id='Template'>Title</b></p><p><b id='Template'>title</b></p>"),
            "field 2 of the template is none that can be filled");
}

TEST_F(TemplateReport, ReportsATemplateFileThatCannotBeUsed) {
  const auto problem = [](const std::string& source, const fs::path& target) -> std::string {
    try {
      template_report::write_template_page(source, target);
      return "(none)";
    } catch (const std::runtime_error& error) {
      return error.what();
    }
  };
  const fs::path target = folder() + "/target.htm";
  EXPECT_EQ(problem(folder() + "/none", target), "cannot open " + folder() + "/none");
  make_file(folder() + "/bad.htm", "<p>\xC3</p>");
  EXPECT_EQ(problem(folder() + "/bad.htm", target),
            folder() + "/bad.htm: byte 4 is where it stops being UTF-8");
  EXPECT_FALSE(fs::exists(target));
  make_file(folder() + "/good.htm", "<p>\xC3\xA9</p>");
  EXPECT_EQ(problem(folder() + "/good.htm", folder()), "cannot write " + folder());
  EXPECT_EQ(problem(folder() + "/good.htm", target), "(none)");
  EXPECT_EQ(page_as_utf8(target), "<p>\xC3\xA9</p>");
}

}  // namespace
}  // namespace test
