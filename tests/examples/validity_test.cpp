// Validates the pages of the examples and of the sample functions against the published DTD of
// XHTML 1.0 Strict, which the XML catalog of the package w3c-sgml-lib finds on this machine.
#include <gtest/gtest.h>
#include <vellomark/samples.h>

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "tests/examples/host_test.h"

namespace test {
namespace {

using messages = std::vector<std::string>;

std::size_t count(const std::string& text, const std::string& part) {
  std::size_t found = 0;
  for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
    ++found;
  return found;
}

std::string replace_all(std::string text, const std::string& from, const std::string& to) {
  for (std::size_t at = text.find(from); at != std::string::npos;
       at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

// The page with `alt` for its pictures and without the number sign in the `id` of headings, which
// then differ from the names of the host's anchors.
std::string repaired_sections(const std::string& page) {
  return replace_all(replace_all(page, "<img ", "<img alt='' "), " id='#", " id='section-");
}

class Validity : public testing::Test {
 protected:
  void SetUp() override {
    if (find_program("xmllint").empty()) GTEST_SKIP() << "xmllint is not installed";
    if (!std::filesystem::exists("/usr/share/xml/w3c-sgml-lib"))
      GTEST_SKIP() << "w3c-sgml-lib is not installed";
  }

  // Runs a host that writes a page to the temporary folder, and returns the page in UTF-8.
  std::string page_of(std::vector<std::string> command) const {
    command.push_back(temp_.path().string());
    const process_result result = run_process(command);
    EXPECT_EQ(result.exit_code, 0) << result.err;
    return page_as_utf8(last_line(result.out));
  }

  std::string file(std::string_view bytes) const {
    make_file(temp_.path() / "input.csv", bytes);
    return (temp_.path() / "input.csv").string();
  }

  // The validator's messages without line numbers; empty if the page is valid.
  messages errors(const std::string& page) const {
    const std::filesystem::path path = temp_.path() / "page.xml";
    make_file(path, page);
    const process_result result =
        run_process({"xmllint", "--noout", "--nonet", "--valid", path.string()},
                    std::chrono::seconds(60), {{"XML_CATALOG_FILES", "/etc/xml/catalog"}});
    static const std::regex pattern(R"(^.*page\.xml:\d+: (.*))");
    messages found;
    std::istringstream lines(result.err);
    std::smatch match;
    for (std::string line; std::getline(lines, line);) {
      if (std::regex_match(line, match, pattern))
        found.push_back(std::regex_replace(match[1].str(), std::regex(" line \\d+"), ""));
    }
    EXPECT_EQ(result.exit_code == 0, found.empty()) << result.err;
    return found;
  }

  temp_folder temp_;
};

TEST_F(Validity, IsJudgedByTheStrictDtd) {
  const std::string page = page_of({TABLE_REPORT_PROGRAM});
  EXPECT_EQ(
      errors(replace_all(page, "<h1 ", "<h1 align='left' ")),
      (messages{"element h1: validity error : No declaration for attribute align of element h1"}));
}

TEST_F(Validity, OfTheTableReport) {
  EXPECT_EQ(errors(page_of({TABLE_REPORT_PROGRAM})), messages{});
}

TEST_F(Validity, OfTableReportsOfAwkwardData) {
  const std::string data = file(
      "<kind>,\"what & \"\"why\"\"\",]]>\n"
      "\"two\nlines\",\"a\r\nb\",\n"
      ",'<b>',--\n"
      "1 & 1,&amp;,\x01\x1F\xEF\xBF\xBE\n"
      "\"two\nlines\",c,d\n"
      "By kind,\xF0\x90\x8D\x88,\xE2\x80\xAE\n"
      "All rows,1,2\n"
      "all rows,3,4\n");
  EXPECT_EQ(errors(page_of({TABLE_REPORT_PROGRAM, "--input", data})), messages{});
  const std::string header_only = file("a,b\n");
  EXPECT_EQ(errors(page_of({TABLE_REPORT_PROGRAM, "--input", header_only})), messages{});
}

// A picture has no `alt`, and the `id` of a section's heading begins with "#", which no name does.
// Both are required, one of each in every section; with both repaired the page is valid.
TEST_F(Validity, OfTheMeasurementReportButForTwoOddities) {
  const std::string page = page_of({MEASUREMENT_REPORT_PROGRAM});
  messages expected;
  for (int section = 0; section < 24; ++section) {
    expected.push_back(
        "element h4: validity error : Syntax of value for attribute id of h4 is not valid");
    expected.push_back("element img: validity error : Element img does not carry attribute alt");
  }
  EXPECT_EQ(errors(page), expected);
  EXPECT_EQ(errors(repaired_sections(page)), messages{});
}

TEST_F(Validity, OfMeasurementReportsOfAwkwardData) {
  const std::string data = file(
      "<area>,\"what & \"\"why\"\"\",]]>,'v'\n"
      "\"two\nlines\",\"a\r\nb\",x,1\n"
      "<b>,--,,2\n"
      "1 & 1,&amp;,\x01\x1F\xEF\xBF\xBE,-3\n"
      "\"two\nlines\",it's,\xF0\x90\x8D\x88,0.5\n");
  const std::string page = page_of({MEASUREMENT_REPORT_PROGRAM, "--input", data});
  EXPECT_EQ(count(page, "<img "), 4u);
  EXPECT_EQ(errors(repaired_sections(page)), messages{});
  const std::string header_only = file("a,b,c\n");
  EXPECT_EQ(errors(page_of({MEASUREMENT_REPORT_PROGRAM, "--input", header_only})), messages{});
}

// The page shows three things that are required and not valid:
// - A line feed in a cell becomes "<BR>", for browsers. In XML that element is never closed, so
//   the page isn't well-formed. One cell has one, another cell has two.
// - A table that is closed without a cell has no row, where the DTD asks for one.
// - The `id` of the headings of the two sections that have a name begins with "#".
// With all of them repaired the page is valid.
TEST_F(Validity, OfEveryOperationButForThreeOddities) {
  const std::string page = page_of({EVERY_OPERATION_PROGRAM});

  EXPECT_EQ(count(page, "<BR>"), 3u);
  const messages not_well_formed = errors(page);
  ASSERT_FALSE(not_well_formed.empty());  // further errors follow from the first one
  EXPECT_EQ(not_well_formed[0], "parser error : Opening and ending tag mismatch: BR and td");

  const std::string with_breaks = replace_all(page, "<BR>", "<br/>");
  const std::string wrong_id =
      "element h4: validity error : Syntax of value for attribute id of h4 is not valid";
  EXPECT_EQ(errors(with_breaks),
            (messages{"element table: validity error : Element table content does not follow the "
                      "DTD, expecting (caption? , (col* | colgroup*) , thead? , tfoot? , (tbody+ "
                      "| tr+)), got ()",
                      wrong_id, wrong_id}));

  const std::string empty_table = "<table border='1' class='main' width='100%'>\n    </table>\n";
  EXPECT_EQ(count(with_breaks, empty_table), 1u);
  EXPECT_EQ(errors(repaired_sections(replace_all(with_breaks, empty_table, ""))), messages{});
}

TEST_F(Validity, OfTheTemplateReport) {
  EXPECT_EQ(errors(page_of({TEMPLATE_REPORT_PROGRAM})), messages{});
  const std::string data = file(
      "<kind>,\"what & \"\"why\"\"\",]]>\n"
      "\"two\nlines\",\"a\r\nb\",\n"
      ",'<b>',--\n"
      "part overview,1,2\n"
      "part_overview,1,2\n");
  EXPECT_EQ(errors(page_of({TEMPLATE_REPORT_PROGRAM, "--input", data})), messages{});
  const std::string header_only = file("a,b\n");
  EXPECT_EQ(errors(page_of({TEMPLATE_REPORT_PROGRAM, "--input", header_only})), messages{});
}

// The sample of the chosen string table, as written and after it was read and changed.
TEST_F(Validity, OfTheSampleReport) {
  const std::filesystem::path sample = temp_.path() / "sample.htm";
  const std::filesystem::path changed = temp_.path() / "changed.htm";
  vellomark::CreateSampleVellomark1(sample.u16string().c_str());
  EXPECT_EQ(errors(page_as_utf8(sample)), messages{});
  vellomark::ParseAndChangeSampleVellomark(sample.u16string().c_str(), changed.u16string().c_str());
  EXPECT_EQ(errors(page_as_utf8(changed)), messages{});
}

// Three things are required and not valid: the four pictures have no `alt`, two of the `id`
// hold a blank, and the control has an alignment. With all of them repaired the page is valid.
TEST_F(Validity, OfTheWorkReportButForThreeOddities) {
  const std::filesystem::path path = temp_.path() / "work.htm";
  ASSERT_TRUE(vellomark::CreateWorkVellomark(path.u16string().c_str()));
  std::string page = page_as_utf8(path);
  const std::string no_alt =
      "element img: validity error : Element img does not carry attribute alt";
  const std::string wrong_id =
      "element h1: validity error : Syntax of value for attribute id of h1 is not valid";
  EXPECT_EQ(errors(page),
            (messages{no_alt, no_alt, no_alt, no_alt, wrong_id, wrong_id,
                      "element object: validity error : No declaration for attribute align of "
                      "element object"}));
  page = replace_all(page, "<img ", "<img alt='' ");
  page = replace_all(page, " id='Result Table'", " id='Result_Table'");
  page = replace_all(page, " id='Total solution'", " id='Total_solution'");
  EXPECT_EQ(errors(replace_all(page, " align='middle'", "")), messages{});
}

}  // namespace
}  // namespace test
