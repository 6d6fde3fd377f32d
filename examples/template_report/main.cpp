// Makes a report of a CSV file in the layout of a template page, and prints the path of the
// report's page as its last line.
#include <filesystem>
#include <string>

#include <vellomark/vellomark.h>

#include "../support/csv_reader.h"
#include "../support/host.h"
#include "report_builder.h"
#include "template_page.h"

namespace {

void make_report(const examples::options& chosen) {
  const std::string input = chosen.input.empty() ? TEMPLATE_REPORT_DEFAULT_INPUT : chosen.input;
  const examples::csv_table table = examples::read_table(input, 2);
  const std::string source = std::filesystem::path(input).filename().string();

  // LoadTemplate reads the whole file, which isn't needed any more after the call.
  const examples::temporary_folder folder("template");
  const std::filesystem::path layout = folder.path() / "template.htm";
  template_report::write_template_page(TEMPLATE_REPORT_LAYOUT, layout);

  boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
  template_report::fill_template(*report, layout, table, examples::name_to_utf16(source));
  const std::filesystem::path page = examples::save_page(*report, chosen);
  examples::print_result("Filled the template with " + std::to_string(table.records.size()) +
                             " rows of " + input + " and wrote the page",
                         page);
}

}  // namespace

int main(int argc, char** argv) {
  return examples::run_host("template_report", {argv + 1, argv + argc}, make_report);
}
