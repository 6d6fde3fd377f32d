// Makes a report of a CSV file of measurements, with a chart and a table for each group of
// them, and prints the path of the page as its last line.
#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include <vellomark/picture_path.h>
#include <vellomark/vellomark.h>

#include "../support/csv_reader.h"
#include "../support/host.h"
#include "bmp_file.h"
#include "chart.h"
#include "measurements.h"
#include "report_builder.h"

namespace measurement_report {
namespace {

namespace fs = std::filesystem;

measurement_table read_measurements(const std::string& path) {
  const examples::csv_table table = examples::read_table(path, 3);
  try {
    return group_measurements(table);
  } catch (const std::runtime_error& error) {
    throw std::runtime_error(path + ": " + error.what());
  }
}

// One axis for all, so that the charts can be compared.
axis common_axis(const measurement_table& table) {
  double lowest = 0;
  double highest = 0;
  for (const measurement_group& group : table.groups) {
    for (const measurement& each : group.measurements) {
      lowest = std::min(lowest, each.value);
      highest = std::max(highest, each.value);
    }
  }
  return make_axis(lowest, highest);
}

// Draws a chart of each group into the folder and returns the paths for the library.
std::vector<std::u16string> draw_charts(const measurement_table& table, const fs::path& folder) {
  const axis scale = common_axis(table);
  std::vector<std::u16string> paths;
  for (const measurement_group& group : table.groups) {
    std::vector<double> values;
    for (const measurement& each : group.measurements) values.push_back(each.value);
    const fs::path path = folder / ("chart" + std::to_string(paths.size() + 1) + ".bmp");
    write_bmp(path, draw_chart(values, scale));
    paths.push_back(vellomark::PicturePath(examples::name_to_utf16(path.string())));
  }
  return paths;
}

void make_report(const examples::options& chosen) {
  const std::string input = chosen.input.empty() ? MEASUREMENT_REPORT_DEFAULT_INPUT : chosen.input;
  const measurement_table table = read_measurements(input);
  const std::string source = fs::path(input).filename().string();

  const examples::temporary_folder drawings("charts");
  boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
  build_report(*report, table, draw_charts(table, drawings.path()),
               examples::name_to_utf16(source));
  const fs::path page = examples::save_page(*report, chosen);
  // Save leaves a picture where it is if it can't move it, and doesn't report that.
  if (!fs::is_empty(drawings.path()))
    throw std::runtime_error("cannot move the pictures to the folder of " + page.string());
  examples::print_result(
      "Wrote " + std::to_string(table.groups.size()) + " charts of " + input + " to the page",
      page);
}

}  // namespace
}  // namespace measurement_report

int main(int argc, char** argv) {
  return examples::run_host("measurement_report", {argv + 1, argv + argc},
                            measurement_report::make_report);
}
