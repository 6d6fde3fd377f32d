#ifndef TESTS_SUPPORT_CHILD_PROCESS_H
#define TESTS_SUPPORT_CHILD_PROCESS_H

#include <sys/types.h>
#include <unistd.h>

#include <chrono>
#include <cstddef>
#include <exception>
#include <optional>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

namespace test {

/// How long a child process may run before it is killed; zero is no limit.
using time_limit = std::chrono::seconds;

/// What a function returned in a child process, or why it returned nothing.
template <typename result>
struct child_outcome {
  std::optional<result> made;
  std::string failure;  ///< "SIGSEGV", "over 20 s" or "failed"; empty if there is a result
};

/// Waits for `child`, which writes its result to the pipe `end`, and reads `size` bytes of it.
/// Closes `end`. Returns why there is no result, or an empty text.
std::string await_result(pid_t child, int end, void* result, std::size_t size, time_limit limit);

/// Runs `work` in a forked process and returns its result, which crosses a pipe as bytes. There is
/// no result if `work` throws, if the process dies or if it runs longer than `limit`.
///
/// The child ends without running destructors or exit handlers: what the parent owns stays. Its
/// heap is as fresh as the parent's, and its peak memory is its own.
template <typename function>
auto run_in_child(function work, time_limit limit = {}) -> child_outcome<decltype(work())> {
  using result = decltype(work());
  static_assert(std::is_trivially_copyable_v<result>, "crosses the pipe as bytes");
  int ends[2];
  if (::pipe(ends) != 0) return {std::nullopt, "failed"};
  const pid_t child = ::fork();
  if (child == 0) {
    bool sent = false;
    try {
      const result made = work();
      sent = ::write(ends[1], &made, sizeof made) == ssize_t{sizeof made};
    } catch (const std::exception&) {
      sent = false;
    }
    ::_exit(sent ? 0 : 1);
  }
  ::close(ends[1]);
  result received{};
  std::string failure = await_result(child, ends[0], &received, sizeof received, limit);
  if (!failure.empty()) return {std::nullopt, std::move(failure)};
  return {received, {}};
}

/// How a program ended and what it wrote.
struct process_result {
  int exit_code = -1;  ///< -1 if a signal ended the program
  bool timed_out = false;
  std::string out;
  std::string err;
};

/// Names and values of environment variables.
using environment = std::vector<std::pair<std::string, std::string>>;

/// Runs the program `command[0]`, which is looked up in PATH, with the other entries as its
/// arguments, an empty standard input and `changes` made to its environment. After `limit` its
/// whole process group is killed. A program that can't be started has the exit code 127. Throws
/// std::system_error if there can be no process.
process_result run_process(const std::vector<std::string>& command,
                           time_limit limit = time_limit(60), const environment& changes = {});

/// The path of the program `name` in PATH; empty if there is none.
std::string find_program(const std::string& name);

}  // namespace test

#endif
