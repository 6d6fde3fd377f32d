#include "examples/measurement_report/measurements.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numbers>
#include <regex>
#include <sstream>
#include <stdexcept>
#include <string>

#include "tests/examples/host_test.h"

namespace test {
namespace {

using namespace measurement_report;

using path = std::vector<std::u16string>;

measurement_table read(const std::string& csv) {
  return group_measurements(examples::read_csv(csv));
}

TEST(Measurements, AreGroupedByAllColumnsButTwo) {
  const measurement_table table =
      read("a,b,n,l,v\nA,B,x,1,1.50\nA,C,x,2,2\nA,B,x,3,-3\nA,B,y,1,.5\n");
  EXPECT_EQ(table.path_titles, (path{u"a", u"b"}));
  EXPECT_EQ(table.name_title, u"n");
  EXPECT_EQ(table.label_title, u"l");
  EXPECT_EQ(table.value_title, u"v");
  ASSERT_EQ(table.groups.size(), 3u);
  EXPECT_EQ(table.groups[0].path, (path{u"A", u"B"}));
  EXPECT_EQ(table.groups[0].name, u"x");
  ASSERT_EQ(table.groups[0].measurements.size(), 2u);
  EXPECT_EQ(table.groups[0].measurements[0].label, u"1");
  EXPECT_EQ(table.groups[0].measurements[0].text, u"1.50");
  EXPECT_EQ(table.groups[0].measurements[0].value, 1.5);
  EXPECT_EQ(table.groups[0].measurements[1].value, -3);
  EXPECT_EQ(table.groups[1].path, (path{u"A", u"C"}));
  EXPECT_EQ(table.groups[2].name, u"y");
}

TEST(Measurements, NeedNoPath) {
  const measurement_table table = read("n,l,v\nx,,0\n");
  EXPECT_TRUE(table.path_titles.empty());
  ASSERT_EQ(table.groups.size(), 1u);
  EXPECT_TRUE(table.groups[0].path.empty());
  EXPECT_TRUE(read("n,l,v\n").groups.empty());
}

void expect_refused(const std::string& record, const std::string& problem) {
  try {
    read("a,n,l,v\nA,x,1,1\n" + record + "\n");
    ADD_FAILURE() << "no error for " << record;
  } catch (const std::runtime_error& error) {
    EXPECT_EQ(error.what(), "row 2 after the header " + problem) << record;
  }
}

TEST(Measurements, RefuseGroupsWithoutAName) {
  expect_refused(",x,1,1", "does not name its group");
  expect_refused("A,,1,1", "does not name its group");
}

TEST(Measurements, RefuseWhatIsNoNumber) {
  for (const char* value : {"", "-", "1,5", "1 ", " 1", "1e5", "0x10", "nan", "inf", "-inf", "+1",
                            "1.2.3", "1\xC2\xA0", "\xD9\xA1", "1000000000000", "-1000000000000"}) {
    const std::string quoted = std::string("\"") + value + "\"";
    expect_refused("A,x,1," + quoted, "has no number below 1e12 as its value");
  }
}

std::string ascii(const std::u16string& text) { return {text.begin(), text.end()}; }

// In degrees, positive in the north, as data/README.md has them.
std::map<std::string, double> latitudes() {
  static const std::regex row(R"(\| (\w+) \| (\d+\.\d) ([NS]) \|)");
  std::map<std::string, double> found;
  std::istringstream lines(bytes_of(EXAMPLES_DATA_DIR "/README.md"));
  std::smatch match;
  for (std::string line; std::getline(lines, line);) {
    if (std::regex_match(line, match, row))
      found[match[1]] = std::stod(match[2]) * (match[3] == "N" ? 1 : -1);
  }
  return found;
}

// The formula from data/README.md; `day` is 1 on 1 January.
double hours_of_daylight(double latitude, int day) {
  constexpr double pi = std::numbers::pi;
  const double g = 2 * pi * (day - 1) / 365;
  const double declination = 0.006918 - 0.399912 * std::cos(g) + 0.070257 * std::sin(g) -
                             0.006758 * std::cos(2 * g) + 0.000907 * std::sin(2 * g) -
                             0.002697 * std::cos(3 * g) + 0.00148 * std::sin(3 * g);
  const double p = latitude * pi / 180;
  const double cosine = (std::sin(-0.833 * pi / 180) - std::sin(p) * std::sin(declination)) /
                        (std::cos(p) * std::cos(declination));
  return 24 / pi * std::acos(std::clamp(cosine, -1.0, 1.0));
}

TEST(DaylightFormula, AgreesWithWhatIsKnown) {
  EXPECT_NEAR(hours_of_daylight(0, 80), 12.1, 0.05);  // the equator, by the size of the sun
  EXPECT_EQ(hours_of_daylight(80, 172), 24);          // the polar summer
  EXPECT_EQ(hours_of_daylight(-80, 172), 0);
  EXPECT_NEAR(hours_of_daylight(51.5, 172), 16.6, 0.05);  // London's longest day, 16 h 38 min
  EXPECT_NEAR(hours_of_daylight(51.5, 355), 7.8, 0.05);   // and its shortest, 7 h 50 min
}

TEST(MeasurementsFile, HoldsWhatTheFormulaGives) {
  static constexpr std::array<const char*, 12> months = {
      "January", "February", "March",     "April",   "May",      "June",
      "July",    "August",   "September", "October", "November", "December"};
  static constexpr std::array<int, 12> lengths = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  const std::map<std::string, double> places = latitudes();
  const measurement_table table = read(bytes_of(EXAMPLES_DATA_DIR "/measurements.csv"));
  EXPECT_EQ(places.size(), 24u);
  EXPECT_EQ(table.groups.size(), 24u);
  double northernmost = 90;
  for (const measurement_group& group : table.groups) {
    ASSERT_TRUE(places.contains(ascii(group.name))) << ascii(group.name);
    const double latitude = places.at(ascii(group.name));
    EXPECT_LE(latitude, northernmost) << ascii(group.name);
    northernmost = latitude;
    ASSERT_EQ(group.measurements.size(), 12u);
    int day = 21;
    for (std::size_t month = 0; month < 12; ++month) {
      const measurement& each = group.measurements[month];
      EXPECT_EQ(ascii(each.label), std::string("21 ") + months[month]);
      EXPECT_NEAR(each.value, hours_of_daylight(latitude, day), 0.05) << ascii(group.name) << day;
      day += lengths[month];
    }
  }
}

}  // namespace
}  // namespace test
