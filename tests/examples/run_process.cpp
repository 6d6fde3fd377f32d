#include "tests/examples/run_process.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <sstream>
#include <system_error>
#include <thread>

namespace examples_test {
namespace {

// A file without a name, which takes what a program writes without ever making it wait.
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

process_result run_process(const std::vector<std::string>& command, std::chrono::seconds limit,
                           const environment& changes) {
  const capture out;
  const capture err;
  const pid_t child = ::fork();
  if (child < 0) throw std::system_error(errno, std::generic_category(), "fork");
  if (child == 0) become(command, changes, out.descriptor(), err.descriptor());
  ::setpgid(child, child);  // whoever is first, the parent or the child

  process_result result;
  const auto deadline = std::chrono::steady_clock::now() + limit;
  int status = 0;
  while (::waitpid(child, &status, WNOHANG) == 0) {
    if (!result.timed_out && std::chrono::steady_clock::now() > deadline) {
      result.timed_out = true;
      ::kill(-child, SIGKILL);
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(5));
  }
  if (WIFEXITED(status)) result.exit_code = WEXITSTATUS(status);
  result.out = out.text();
  result.err = err.text();
  return result;
}

std::string find_program(const std::string& name) {
  const char* path = std::getenv("PATH");
  std::istringstream folders(path ? path : "");
  for (std::string folder; std::getline(folders, folder, ':');) {
    const std::string candidate = folder + "/" + name;
    if (::access(candidate.c_str(), X_OK) == 0) return candidate;
  }
  return {};
}

}  // namespace examples_test
