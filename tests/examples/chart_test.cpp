#include "examples/measurement_report/chart.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "examples/measurement_report/bmp_file.h"
#include "tests/examples/host_test.h"

namespace test {
namespace {

using namespace measurement_report;

constexpr color white{255, 255, 255};
constexpr color red{255, 0, 0};
constexpr color bar_color{66, 114, 170};

// The picture, a line for each row; pixels that aren't white are number signs.
std::string rows(const image& picture) {
  std::string text;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) text += picture.at(x, y) == white ? '.' : '#';
    text += '\n';
  }
  return text;
}

TEST(Image, FillsWhatIsInside) {
  image picture(4, 3, white);
  picture.fill(1, 1, 2, 1, red);
  EXPECT_EQ(rows(picture), "....\n.##.\n....\n");
  picture.fill(-5, 2, 6, 9, red);
  picture.fill(3, -1, 9, 2, red);
  EXPECT_EQ(rows(picture), "...#\n.##.\n#...\n");
  picture.fill(0, 0, 0, 3, red);
  picture.fill(0, 0, 3, 0, red);
  picture.fill(4, 0, 2, 2, red);
  picture.fill(-2, -2, 2, 2, red);
  picture.fill(2, 0, -1, 1, red);
  EXPECT_EQ(rows(picture), "...#\n.##.\n#...\n");
}

TEST(Image, WritesDigits) {
  image picture(14, 10, white);
  picture.write(0, 0, "1-", red);
  EXPECT_EQ(rows(picture),
            "..##..........\n..##..........\n"
            "####..........\n####..........\n"
            "..##....######\n..##....######\n"
            "..##..........\n..##..........\n"
            "######........\n######........\n");
  EXPECT_EQ(image::text_width("1-"), 14);
  EXPECT_EQ(image::text_width("1"), 6);
  EXPECT_EQ(image::text_width(""), 0);
  EXPECT_EQ(image::text_height(), 10);
}

TEST(Image, HasAGlyphOfItsOwnForEachCharacter) {
  std::vector<std::string> seen;
  for (const char character : std::string("0123456789-. ")) {
    image picture(6, 10, white);
    picture.write(0, 0, std::string(1, character), red);
    EXPECT_EQ(std::count(seen.begin(), seen.end(), rows(picture)), 0) << character;
    seen.push_back(rows(picture));
  }
}

// By the layout of BITMAPFILEHEADER and BITMAPINFOHEADER: a row of three pixels has nine bytes
// and is filled up to twelve; the lower row comes first, and blue comes first in a pixel.
TEST(Bmp, HasTheBytesOfTheFormat) {
  image picture(3, 2, white);
  picture.fill(0, 0, 1, 1, {1, 2, 3});
  picture.fill(2, 1, 1, 1, {4, 5, 6});
  const std::string expected(
      "BM\x4E\0\0\0\0\0\0\0\x36\0\0\0"
      "\x28\0\0\0\3\0\0\0\2\0\0\0\1\0\x18\0\0\0\0\0\x18\0\0\0\xC4\x0E\0\0\xC4\x0E\0\0"
      "\0\0\0\0\0\0\0\0"
      "\xFF\xFF\xFF\xFF\xFF\xFF\6\5\4\0\0\0"
      "\3\2\1\xFF\xFF\xFF\xFF\xFF\xFF\0\0\0",
      78);
  EXPECT_EQ(to_bmp(picture), expected);
}

TEST(Bmp, IsWrittenToAFile) {
  const temp_folder folder;
  const image picture(5, 5, red);
  write_bmp(folder.path() / "a.bmp", picture);
  EXPECT_EQ(bytes_of(folder.path() / "a.bmp"), to_bmp(picture));
  EXPECT_THROW(write_bmp(folder.path() / "none" / "a.bmp", picture), std::runtime_error);
  EXPECT_THROW(write_bmp(folder.path(), picture), std::runtime_error);
  if (std::filesystem::exists("/dev/full")) {
    EXPECT_THROW(write_bmp("/dev/full", image(200, 200, red)), std::runtime_error);
  }
}

void expect_axis(double lowest, double highest, const std::vector<std::string>& marks) {
  const axis scale = make_axis(lowest, highest);
  std::vector<std::string> found;
  for (int number = scale.first; number <= scale.last; ++number)
    found.push_back(scale.mark(number));
  EXPECT_EQ(found, marks) << lowest << " to " << highest;
}

TEST(Axis, HasRoundMarks) {
  expect_axis(0, 24, {"0", "5", "10", "15", "20", "25"});
  expect_axis(3, 25, {"0", "5", "10", "15", "20", "25"});
  expect_axis(-3.5, 9, {"-5", "0", "5", "10"});
  expect_axis(-40, -1, {"-40", "-30", "-20", "-10", "0"});
  expect_axis(0, 0.4, {"0.0", "0.1", "0.2", "0.3", "0.4"});
  expect_axis(0, 0.012, {"0.000", "0.005", "0.010", "0.015"});
  expect_axis(0, 1e11,
              {"0", "20000000000", "40000000000", "60000000000", "80000000000", "100000000000"});
}

TEST(Axis, StaysReasonableForAwkwardValues) {
  expect_axis(0, 0, {"0.000"});
  expect_axis(0, 1e-9, {"0.000", "0.001"});
  for (const double size : {0.001, 0.0049, 0.005, 0.99, 1.0, 1.01, 7.0, 123456.0, 9.99e11}) {
    for (const double low : {0.0, -0.001, -0.3 * size, -size}) {
      const axis scale = make_axis(low, size);
      EXPECT_LE(scale.first * scale.step, low) << size;
      EXPECT_GE(scale.last * scale.step, size) << size;
      EXPECT_LE(scale.last - scale.first + 1, 8) << size;
    }
  }
}

// The upper and lower end of the bar in the column of pixels `x`.
std::pair<int, int> bar_at(const image& chart, int x) {
  int top = chart.height();
  int bottom = 0;
  for (int y = 0; y < chart.height(); ++y) {
    if (!(chart.at(x, y) == bar_color)) continue;
    top = std::min(top, y);
    bottom = y;
  }
  return {top, bottom};
}

// The axis goes from -1 to 1, so both bars have half of its height, and the line of 0 between
// them is drawn over the lower one.
TEST(Chart, HasBarsUpAndDown) {
  const image chart = draw_chart({1, -1}, {1, -1, 1, 0});
  EXPECT_EQ(chart.width(), 560);
  EXPECT_EQ(chart.height(), 200);
  const auto [up_top, up_bottom] = bar_at(chart, 160);
  const auto [down_top, down_bottom] = bar_at(chart, 420);
  EXPECT_EQ(up_top, 12);
  EXPECT_EQ(down_top - up_bottom, 2);
  EXPECT_NEAR(up_bottom - up_top, down_bottom - down_top, 1);
}

TEST(Chart, HasABarOfAtLeastAPixelForEachOfManyValues) {
  const image chart = draw_chart(std::vector<double>(5000, 1.0), {1, 0, 1, 0});
  for (int x = 30; x < 548; ++x) EXPECT_EQ(bar_at(chart, x).first, 12) << x;
}

TEST(Chart, OfNoValuesAndOfZerosHasNoBars) {
  for (const image& chart : {draw_chart({}, {0.001, 0, 0, 3}), draw_chart({0, 0}, {1, 0, 1, 0})}) {
    for (int x = 0; x < chart.width(); ++x) EXPECT_EQ(bar_at(chart, x).first, chart.height()) << x;
  }
}

}  // namespace
}  // namespace test
