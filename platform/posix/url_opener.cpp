#include "platform/url_opener.h"

#include <fcntl.h>
#include <pthread.h>
#include <signal.h>
#include <spawn.h>
#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <optional>
#include <string>
#include <type_traits>

#include "platform/posix/utf8.h"

namespace platform {

namespace {

// Starts the handler in a session of its own, with every signal at its default and none
// blocked.
class handler_attributes {
 public:
  handler_attributes() : usable_(::posix_spawnattr_init(&attributes_) == 0) {}
  handler_attributes(const handler_attributes&) = delete;
  handler_attributes& operator=(const handler_attributes&) = delete;
  ~handler_attributes() {
    if (usable_) ::posix_spawnattr_destroy(&attributes_);
  }

  bool set() {
    // Not sigfillset(): it leaves out the two signals that glibc keeps for itself, and
    // posix_spawnp() would then start the handler with these two ignored.
    sigset_t every_signal;
    std::memset(&every_signal, 0xFF, sizeof every_signal);
    sigset_t none;
    ::sigemptyset(&none);
    constexpr short flags = POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGDEF | POSIX_SPAWN_SETSIGMASK;
    return usable_ && ::posix_spawnattr_setsigdefault(&attributes_, &every_signal) == 0 &&
           ::posix_spawnattr_setsigmask(&attributes_, &none) == 0 &&
           ::posix_spawnattr_setflags(&attributes_, flags) == 0;
  }

  const posix_spawnattr_t* get() const { return &attributes_; }

 private:
  posix_spawnattr_t attributes_;
  bool usable_;
};

// Gives the handler the null device as standard streams, and no descriptor of the host.
class handler_files {
 public:
  handler_files() : usable_(::posix_spawn_file_actions_init(&actions_) == 0) {}
  handler_files(const handler_files&) = delete;
  handler_files& operator=(const handler_files&) = delete;
  ~handler_files() {
    if (usable_) ::posix_spawn_file_actions_destroy(&actions_);
  }

  bool set() {
    return usable_ &&
           ::posix_spawn_file_actions_addopen(&actions_, STDIN_FILENO, "/dev/null", O_RDWR, 0) ==
               0 &&
           ::posix_spawn_file_actions_adddup2(&actions_, STDIN_FILENO, STDOUT_FILENO) == 0 &&
           ::posix_spawn_file_actions_adddup2(&actions_, STDIN_FILENO, STDERR_FILENO) == 0 &&
           close_all_others();
  }

  const posix_spawn_file_actions_t* get() const { return &actions_; }

 private:
  bool close_all_others() {
#if defined(__GLIBC_PREREQ)
#if __GLIBC_PREREQ(2, 34)
    return ::posix_spawn_file_actions_addclosefrom_np(&actions_, STDERR_FILENO + 1) == 0;
#endif
#endif
    return true;
  }

  posix_spawn_file_actions_t actions_;
  bool usable_;
};

// Blocks all signals of the calling thread, and its cancellation, which would leave a zombie.
// Restores both, and errno, on scope exit.
class undisturbed_thread {
 public:
  undisturbed_thread() : error_(errno) {
    ::pthread_setcancelstate(PTHREAD_CANCEL_DISABLE, &cancellation_);
    sigset_t all;
    ::sigfillset(&all);
    ::pthread_sigmask(SIG_BLOCK, &all, &signals_);
  }
  undisturbed_thread(const undisturbed_thread&) = delete;
  undisturbed_thread& operator=(const undisturbed_thread&) = delete;
  ~undisturbed_thread() {
    ::pthread_sigmask(SIG_SETMASK, &signals_, nullptr);
    ::pthread_setcancelstate(cancellation_, nullptr);
    errno = error_;
  }

 private:
  int error_;
  int cancellation_ = PTHREAD_CANCEL_ENABLE;
  sigset_t signals_;
};

// Starts a program from a child that exits once the program is loaded. Process 1 then adopts
// the program, so the host needn't wait for it and no zombie stays. vfork() shares our memory
// with the child instead of copying it, and suspends this thread until the child exits. The
// caller must have blocked all signals: our signal handlers mustn't run in the child. POSIX
// allows next to nothing after vfork(), but glibc's posix_spawnp() is safe there: it runs its
// child on a separate stack and frees all that it allocates.
void start_orphan(char* const* arguments, const posix_spawn_file_actions_t* files,
                  const posix_spawnattr_t* attributes) {
  const pid_t child = ::vfork();
  if (child == 0) {
    ::posix_spawnp(nullptr, arguments[0], files, attributes, arguments, environ);
    ::_exit(0);
  }
  // Fails with ECHILD if the host ignores SIGCHLD or has reaped the child in another thread.
  if (child > 0)
    while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
    }
}

class xdg_opener final : public url_opener {
 public:
  void open(const Xport::ustring& url) override {
    std::optional<std::string> native = posix::to_utf8(url);
    if (!native) return;
    std::string program = "xdg-open";
    char* const arguments[] = {program.data(), native->data(), nullptr};
    const undisturbed_thread scope;
    handler_attributes attributes;
    handler_files files;
    if (attributes.set() && files.set()) start_orphan(arguments, files.get(), attributes.get());
  }
};

// Never destroyed: hosts may save pages from the destructors of their globals.
constinit xdg_opener native_opener;
static_assert(std::is_trivially_destructible_v<xdg_opener>);

}  // namespace

url_opener& url_opener::native() { return native_opener; }

}  // namespace platform
