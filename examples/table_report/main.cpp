// Makes a report of a CSV file whose first column groups its rows, and prints the path of
// the page as its last line.
#include <filesystem>
#include <string>

#include <vellomark/vellomark.h>

#include "../support/csv_reader.h"
#include "../support/host.h"
#include "report_builder.h"

namespace {

void make_report(const examples::options& chosen) {
  const std::string input = chosen.input.empty() ? TABLE_REPORT_DEFAULT_INPUT : chosen.input;
  const examples::csv_table table = examples::read_table(input, 2);
  const std::string source = std::filesystem::path(input).filename().string();

  boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
  table_report::build_report(*report, table, examples::name_to_utf16(source));
  const std::filesystem::path page = examples::save_page(*report, chosen);
  examples::print_result(
      "Wrote " + std::to_string(table.records.size()) + " rows of " + input + " to the page", page);
}

}  // namespace

int main(int argc, char** argv) {
  return examples::run_host("table_report", {argv + 1, argv + argc}, make_report);
}
