#include "options.h"

namespace table_report {
namespace {

[[noreturn]] void refuse(const std::string& problem) {
  throw usage_error(problem +
                    " (usage: table_report [--open] [--input FILE] [--name NAME] FOLDER)");
}

void check_name(const std::string& name) {
  if (name.find_first_of("/\\") != std::string::npos || name == "." || name == "..")
    refuse("the name of the page is no plain file name: " + name);
}

}  // namespace

options parse_options(const std::vector<std::string>& arguments) {
  options result;
  bool open = false;
  bool options_ended = false;
  for (auto argument = arguments.begin(); argument != arguments.end(); ++argument) {
    const auto value = [&]() -> const std::string& {
      const std::string& option = *argument;
      if (++argument == arguments.end() || argument->empty()) refuse(option + " needs a value");
      return *argument;
    };
    if (options_ended || argument->empty() || argument->front() != '-') {
      if (argument->empty()) refuse("the folder has no name");
      if (!result.folder.empty()) refuse("there is more than one folder: " + *argument);
      result.folder = *argument;
    } else if (*argument == "--") {
      options_ended = true;
    } else if (*argument == "--open") {
      open = true;
    } else if (*argument == "--input") {
      result.input = value();
    } else if (*argument == "--name") {
      result.name = value();
      check_name(result.name);
    } else {
      refuse("unknown option " + *argument);
    }
  }
  if (result.folder.empty()) refuse("the folder is missing");
  if (open && !result.name.empty()) refuse("--open leaves the name to the library, omit --name");
  if (!open && result.name.empty()) result.name = "table_report.htm";
  return result;
}

}  // namespace table_report
