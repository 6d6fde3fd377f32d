#ifndef EXAMPLES_SUPPORT_OPTIONS_H
#define EXAMPLES_SUPPORT_OPTIONS_H

#include <stdexcept>
#include <string>
#include <vector>

namespace examples {

/// The options of the command line.
struct options {
  std::string input;   ///< path of the CSV file; empty: the data of the examples
  std::string name;    ///< name of the page; empty: the library's choice
  std::string folder;  ///< where the report folder is made
};

/// Wrong arguments; what() is one line for the user.
class usage_error : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Reads the arguments after the name of `program`:
///
///     [--open] [--input FILE] [--name NAME] FOLDER
///
/// Without --open the page's name is that of the program and ".htm" unless another one is given.
/// With --open the library chooses the name, so --name is refused. "--" ends the options. Throws
/// usage_error.
options parse_options(const std::string& program, const std::vector<std::string>& arguments);

}  // namespace examples

#endif
