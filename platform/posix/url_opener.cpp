#include "platform/url_opener.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <optional>
#include <string>

#include "platform/posix/utf8.h"

namespace platform {

namespace {

// The host's files are no business of the handler's.
void close_inherited() {
#if defined(__GLIBC_PREREQ)
#if __GLIBC_PREREQ(2, 34)
  ::close_range(STDERR_FILENO + 1, ~0U, 0);
#endif
#endif
}

// Runs in a child of a process that may have had other threads: only calls that
// are safe there.
[[noreturn]] void become_handler(char* const* arguments) {
  ::setsid();
  sigset_t none;
  ::sigemptyset(&none);
  ::sigprocmask(SIG_SETMASK, &none, nullptr);
  const int null_device = ::open("/dev/null", O_RDWR);
  if (null_device >= 0) {
    ::dup2(null_device, STDIN_FILENO);
    ::dup2(null_device, STDOUT_FILENO);
    ::dup2(null_device, STDERR_FILENO);
  }
  close_inherited();
  ::execvp(arguments[0], arguments);
  ::_exit(127);
}

class xdg_opener final : public url_opener {
 public:
  // The handler is a grandchild whose parent is gone at once, so that nobody has
  // to wait for it and no zombie stays.
  void open(const Xport::ustring& url) override {
    std::optional<std::string> native = posix::to_utf8(url);
    if (!native) return;
    std::string program = "xdg-open";
    char* const arguments[] = {program.data(), native->data(), nullptr};
    const pid_t child = ::fork();
    if (child == 0) {
      if (::fork() == 0) become_handler(arguments);
      ::_exit(0);
    }
    if (child > 0)
      while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
      }
  }
};

}  // namespace

url_opener::~url_opener() = default;

url_opener& url_opener::native() {
  static xdg_opener opener;
  return opener;
}

}  // namespace platform
