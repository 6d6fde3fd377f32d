#include "options.h"

namespace examples {
namespace {

class parser {
 public:
  explicit parser(const std::string& program) : program_(program) {}

  options parse(const std::vector<std::string>& arguments) const {
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
    if (!open && result.name.empty()) result.name = program_ + ".htm";
    return result;
  }

 private:
  [[noreturn]] void refuse(const std::string& problem) const {
    throw usage_error(problem + " (usage: " + program_ +
                      " [--open] [--input FILE] [--name NAME] FOLDER)");
  }

  void check_name(const std::string& name) const {
    if (name.find_first_of("/\\") != std::string::npos || name == "." || name == "..")
      refuse("the name of the page is no plain file name: " + name);
    // The page contains the name, unescaped, in the paths of its pictures.
    if (name.find_first_of("'&<#?%") != std::string::npos)
      refuse("the name of the page would not do in a link: " + name);
  }

  const std::string& program_;
};

}  // namespace

options parse_options(const std::string& program, const std::vector<std::string>& arguments) {
  return parser(program).parse(arguments);
}

}  // namespace examples
