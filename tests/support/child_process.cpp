#include "tests/support/child_process.h"

#include <fcntl.h>
#include <sys/wait.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <system_error>
#include <thread>

namespace test {
namespace {

struct ending {
  int status = 0;  // as waitpid reports it
  bool timed_out = false;
};

// Waits for a process or, if `child` is negative, for the leader of that process group. Kills what
// it waits for after `limit`.
ending wait_for(pid_t child, time_limit limit) {
  ending result;
  const auto deadline = std::chrono::steady_clock::now() + limit;
  while (::waitpid(child, &result.status, WNOHANG) == 0) {
    if (limit.count() != 0 && !result.timed_out && std::chrono::steady_clock::now() > deadline) {
      result.timed_out = true;
      ::kill(child, SIGKILL);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  return result;
}

std::string signal_name(int number) {
  constexpr std::array<std::pair<int, const char*>, 9> names = {{{SIGABRT, "SIGABRT"},
                                                                 {SIGBUS, "SIGBUS"},
                                                                 {SIGFPE, "SIGFPE"},
                                                                 {SIGILL, "SIGILL"},
                                                                 {SIGINT, "SIGINT"},
                                                                 {SIGKILL, "SIGKILL"},
                                                                 {SIGSEGV, "SIGSEGV"},
                                                                 {SIGTERM, "SIGTERM"},
                                                                 {SIGXFSZ, "SIGXFSZ"}}};
  for (const auto& [known, name] : names)
    if (known == number) return name;
  return "signal " + std::to_string(number);
}

// A file without a name. Unlike a pipe it never makes the program wait for its reader.
class capture {
 public:
  capture() : file_(std::tmpfile(), &std::fclose) {
    if (!file_) throw std::system_error(errno, std::generic_category(), "tmpfile");
  }

  int descriptor() const { return ::fileno(file_.get()); }

  std::string text() const {
    std::string all;
    char block[4096];
    std::rewind(file_.get());
    while (const std::size_t count = std::fread(block, 1, sizeof block, file_.get()))
      all.append(block, count);
    return all;
  }

 private:
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> file_;
};

[[noreturn]] void become(const std::vector<std::string>& command, const environment& changes,
                         int out, int err) {
  ::setpgid(0, 0);
  ::dup2(::open("/dev/null", O_RDONLY), STDIN_FILENO);
  ::dup2(out, STDOUT_FILENO);
  ::dup2(err, STDERR_FILENO);
  for (const auto& [name, value] : changes) ::setenv(name.c_str(), value.c_str(), 1);
  std::vector<char*> arguments;
  for (const std::string& argument : command)
    arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  ::execvp(arguments[0], arguments.data());
  ::_exit(127);
}

}  // namespace

std::string await_result(pid_t child, int end, void* result, std::size_t size, time_limit limit) {
  if (child < 0) {
    ::close(end);
    return "failed";
  }
  const ending how = wait_for(child, limit);
  const bool complete = ::read(end, result, size) == static_cast<ssize_t>(size);
  ::close(end);
  if (how.timed_out) return "over " + std::to_string(limit.count()) + " s";
  if (WIFSIGNALED(how.status)) return signal_name(WTERMSIG(how.status));
  return complete && how.status == 0 ? "" : "failed";
}

process_result run_process(const std::vector<std::string>& command, time_limit limit,
                           const environment& changes) {
  const capture out;
  const capture err;
  const pid_t child = ::fork();
  if (child < 0) throw std::system_error(errno, std::generic_category(), "fork");
  if (child == 0) become(command, changes, out.descriptor(), err.descriptor());
  ::setpgid(child, child);  // here as well, since either process may run first
  const ending how = wait_for(-child, limit);
  process_result result;
  result.timed_out = how.timed_out;
  if (WIFEXITED(how.status)) result.exit_code = WEXITSTATUS(how.status);
  result.out = out.text();
  result.err = err.text();
  return result;
}

std::string find_program(const std::string& name) {
  const char* const path = std::getenv("PATH");
  std::istringstream folders(path ? path : "");
  for (std::string folder; std::getline(folders, folder, ':');) {
    const std::string candidate = folder + "/" + name;
    if (::access(candidate.c_str(), X_OK) == 0) return candidate;
  }
  return {};
}

}  // namespace test
