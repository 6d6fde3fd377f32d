#include "bench/child_process.h"

#include <poll.h>
#include <signal.h>
#include <string.h>
#include <sys/wait.h>

namespace bench {

std::string await_child(pid_t child, int end, void* result, std::size_t size, unsigned seconds) {
  bool complete = false;
  bool late = false;
  if (child > 0) {
    // The pipe wakes up with the result, or with the end of the child.
    pollfd woken = {end, POLLIN, 0};
    late = poll(&woken, 1, seconds == 0 ? -1 : static_cast<int>(1000 * seconds)) == 0;
    if (late) {
      kill(child, SIGKILL);
    } else {
      complete = read(end, result, size) == static_cast<ssize_t>(size);
    }
  }
  close(end);
  int status = 1;
  if (child > 0) {
    waitpid(child, &status, 0);
  }
  if (late) {
    return "over " + std::to_string(seconds) + " s";
  }
  if (WIFSIGNALED(status)) {
    const char* const name = sigabbrev_np(WTERMSIG(status));
    return name != nullptr ? std::string("SIG") + name : "a signal";
  }
  return complete && status == 0 ? "" : "failed";
}

}  // namespace bench
