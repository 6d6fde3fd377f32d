#ifndef BENCH_CHILD_PROCESS_H
#define BENCH_CHILD_PROCESS_H

#include <sys/types.h>
#include <unistd.h>

#include <cstddef>
#include <exception>
#include <optional>
#include <string>
#include <type_traits>

namespace bench {

/// What became of a child process: what it returned, or else why there is nothing.
template <typename result>
struct child_outcome {
  std::optional<result> made;
  std::string failure;  ///< "SIGSEGV", "over 20 s" or "failed"; empty if there is a result
};

/// Reads the `size` bytes of `result` from the pipe `end` and waits for `child`, but not
/// longer than `seconds` (0: for ever), after which it is killed. Gives why there is no
/// result, and an empty text if there is one. Closes `end`.
std::string await_child(pid_t child, int end, void* result, std::size_t size, unsigned seconds);

/// Runs `work` in a child process and hands back what it returned. A child that raised,
/// died, or took longer than `seconds` (0: no limit) gives nothing.
///
/// The parent does next to nothing itself, so every child starts with a heap as
/// fresh as a new program's, and its peak memory is its own.
template <typename function>
auto run_in_child(function work, unsigned seconds) -> child_outcome<decltype(work())> {
  using result = decltype(work());
  static_assert(std::is_trivially_copyable_v<result>, "goes through a pipe as bytes");
  int ends[2];
  if (pipe(ends) != 0) {
    return {std::nullopt, "failed"};
  }
  const pid_t child = fork();
  if (child == 0) {
    int status = 1;
    try {
      const result made = work();
      status = write(ends[1], &made, sizeof made) == ssize_t{sizeof made} ? 0 : 1;
    } catch (const std::exception&) {
      status = 1;
    }
    _exit(status);
  }
  close(ends[1]);
  result received{};
  const std::string failure = await_child(child, ends[0], &received, sizeof received, seconds);
  if (!failure.empty()) {
    return {std::nullopt, failure};
  }
  return {received, {}};
}

/// run_in_child without a limit and without the reason.
template <typename function>
auto in_child_process(function work) -> std::optional<decltype(work())> {
  return run_in_child(work, 0).made;
}

}  // namespace bench

#endif
