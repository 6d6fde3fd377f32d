#ifndef BENCH_CHILD_PROCESS_H
#define BENCH_CHILD_PROCESS_H

#include <sys/wait.h>
#include <unistd.h>

#include <exception>
#include <optional>
#include <type_traits>

namespace bench {

/// Runs `work` in a child process and hands back what it returned; nothing if
/// the child could not be started, raised, or died.
///
/// The parent does next to nothing itself, so every child starts with a heap as
/// fresh as a new program's, and its peak memory is its own.
template <typename function>
auto in_child_process(function work) -> std::optional<decltype(work())> {
  using result = decltype(work());
  static_assert(std::is_trivially_copyable_v<result>, "goes through a pipe as bytes");
  int ends[2];
  if (pipe(ends) != 0) {
    return std::nullopt;
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
  const bool complete =
      child > 0 && read(ends[0], &received, sizeof received) == ssize_t{sizeof received};
  close(ends[0]);
  int status = 1;
  if (child > 0) {
    waitpid(child, &status, 0);
  }
  if (!complete || status != 0) {
    return std::nullopt;
  }
  return received;
}

}  // namespace bench

#endif
