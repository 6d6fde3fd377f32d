#ifndef TESTS_EXAMPLES_RUN_PROCESS_H
#define TESTS_EXAMPLES_RUN_PROCESS_H

#include <chrono>
#include <string>
#include <utility>
#include <vector>

namespace examples_test {

/// How a program ended and what it said.
struct process_result {
  int exit_code = -1;  ///< -1 if it was ended by a signal
  bool timed_out = false;
  std::string out;
  std::string err;
};

/// Variables of the environment, name and value.
using environment = std::vector<std::pair<std::string, std::string>>;

/// Runs the program `command[0]`, looked for in PATH, with the other entries as
/// its arguments, an empty standard input and `changes` in its environment, and
/// waits for it. After `limit` it is killed with all that it started in its
/// process group. A program that can't be started has the exit code 127. Raises
/// std::system_error if no process can be made.
process_result run_process(const std::vector<std::string>& command,
                           std::chrono::seconds limit = std::chrono::seconds(60),
                           const environment& changes = {});

/// The path of the program `name` in PATH, empty if there is none.
std::string find_program(const std::string& name);

}  // namespace examples_test

#endif
