#include "platform/url_opener.h"

#include <gtest/gtest.h>
#include <pthread.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "tests/support/temp_folder.h"

#if defined(__has_feature)
#if __has_feature(thread_sanitizer)
#define VFORK_IS_A_FORK
#endif
#endif
#ifdef __SANITIZE_THREAD__
#define VFORK_IS_A_FORK
#endif

namespace test {
namespace {

namespace fs = std::filesystem;
using platform::url_opener;
using Xport::ustring;

// Ignores some signals and blocks others, as some hosts do.
class unusual_signals {
 public:
  unusual_signals() {
    for (std::size_t i = 0; i < ignored.size(); ++i) before_[i] = ::signal(ignored[i], SIG_IGN);
    sigset_t blocked;
    ::sigemptyset(&blocked);
    for (const int signal : {SIGHUP, SIGTERM, SIGUSR1}) ::sigaddset(&blocked, signal);
    ::pthread_sigmask(SIG_BLOCK, &blocked, &mask_before_);
  }
  unusual_signals(const unusual_signals&) = delete;
  unusual_signals& operator=(const unusual_signals&) = delete;
  ~unusual_signals() {
    ::pthread_sigmask(SIG_SETMASK, &mask_before_, nullptr);
    for (std::size_t i = 0; i < ignored.size(); ++i) ::signal(ignored[i], before_[i]);
  }

 private:
  static constexpr std::array ignored = {SIGCHLD, SIGPIPE, SIGTERM, SIGINT};
  void (*before_[ignored.size()])(int);
  sigset_t mask_before_;
};

// For each signal whether the thread blocks it, and the handler of the process.
using signal_state = std::vector<std::pair<int, void (*)(int)>>;

signal_state current_signals() {
  sigset_t mask;
  ::pthread_sigmask(SIG_BLOCK, nullptr, &mask);
  signal_state state;
  for (int signal = 1; signal <= SIGRTMAX; ++signal) {
    struct sigaction action = {};
    ::sigaction(signal, nullptr, &action);
    state.emplace_back(::sigismember(&mask, signal), action.sa_handler);
  }
  return state;
}

// Private memory in small pages.
class small_pages {
 public:
  explicit small_pages(std::size_t bytes)
      : bytes_(bytes),
        start_(static_cast<char*>(
            ::mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))) {
    if (start_ != MAP_FAILED) ::madvise(start_, bytes_, MADV_NOHUGEPAGE);
  }
  small_pages(const small_pages&) = delete;
  small_pages& operator=(const small_pages&) = delete;
  ~small_pages() {
    if (start_ != MAP_FAILED) ::munmap(start_, bytes_);
  }

  bool valid() const { return start_ != MAP_FAILED; }

  // Writes to every page and returns the number of page faults.
  long touch() {
    const long before = faults();
    for (std::size_t i = 0; i < bytes_; i += 4096) *const_cast<volatile char*>(start_ + i) = 1;
    return faults() - before;
  }

 private:
  static long faults() {
    struct rusage usage;
    ::getrusage(RUSAGE_SELF, &usage);
    return usage.ru_minflt;
  }

  std::size_t bytes_;
  char* start_;
};

// Puts a replacement of the program that opens URLs first in PATH.
class UrlOpener : public ::testing::Test {
 protected:
  void SetUp() override {
    old_path_ = ::getenv("PATH");
    ::setenv("PATH", (temp.path().string() + ":" + old_path_).c_str(), 1);
  }
  void TearDown() override { ::setenv("PATH", old_path_.c_str(), 1); }

  void make_program(const std::string& text) {
    const fs::path program = temp.path() / "xdg-open";
    make_file(program, text);
    fs::permissions(program, fs::perms::owner_all);
  }

  void make_opener(const std::string& script) {
    make_program("#!/bin/sh\ncd '" + temp.path().string() + "'\n" + script);
  }

  // A script that writes the number of its arguments and each of them to the file `result`, which
  // exists once it is complete.
  void make_noting_opener() {
    make_opener("printf '%s\\n' \"$#\" \"$@\" >writing\nmv writing result\n");
  }

  // Waits until the file exists and returns its bytes.
  std::string result(const char* name = "result") {
    const fs::path file = temp.path() / name;
    for (int tries = 0; tries < 1000 && !fs::exists(file); ++tries)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_TRUE(fs::exists(file)) << "the handler wasn't started";
    return bytes_of(file);
  }

  // Whether this process has a child, even a zombie.
  static bool has_children() { return ::waitpid(-1, nullptr, WNOHANG) != -1 || errno != ECHILD; }

  temp_folder temp;
  url_opener& opener = url_opener::native();

 private:
  std::string old_path_;
};

TEST_F(UrlOpener, HandsOverTheUrlAsItsOneArgument) {
  make_noting_opener();
  opener.open(u"file:////out/Vellomark/Report1.htm");
  EXPECT_EQ(result(), "1\nfile:////out/Vellomark/Report1.htm\n");
}

TEST_F(UrlOpener, NoShellLooksAtTheUrl) {
  make_noting_opener();
  opener.open(u"file:///a b/$(touch hit)`touch hit`;touch hit&|'\"<>*?~$HOME\\x\\#%20!{1,2}\t");
  EXPECT_EQ(result(),
            "1\nfile:///a b/$(touch hit)`touch hit`;touch hit&|'\"<>*?~$HOME\\x\\#%20!{1,2}\t\n");
  EXPECT_FALSE(fs::exists(temp.path() / "hit"));
}

TEST_F(UrlOpener, AUrlThatLooksLikeAnOptionStaysOneArgument) {
  make_noting_opener();
  opener.open(u"--help");
  EXPECT_EQ(result(), "1\n--help\n");
}

TEST_F(UrlOpener, EmptyUrlIsAnEmptyArgument) {
  make_noting_opener();
  opener.open(u"");
  EXPECT_EQ(result(), "1\n\n");
}

TEST_F(UrlOpener, OtherScriptsAreUtf8AndBackslashesStay) {
  make_noting_opener();
  opener.open(u"file:///C:\\\u00E4\u4E2D\U0001F600");
  EXPECT_EQ(result(), "1\nfile:///C:\\\xC3\xA4\xE4\xB8\xAD\xF0\x9F\x98\x80\n");
}

TEST_F(UrlOpener, AUrlThatCannotBeExpressedStartsNothing) {
  make_opener("echo started >>log\nmv log result$1\n");
  opener.open(u"1" + ustring(1, char16_t(0xD800)));
  EXPECT_FALSE(has_children());
  opener.open(u"2");
  EXPECT_EQ(result("result2"), "started\n");
  EXPECT_EQ(fs::exists(temp.path() / "log"), false);
}

// The handler runs until it is told to end, which happens after open() has returned.
TEST_F(UrlOpener, DoesNotWaitAndLeavesNoChild) {
  make_opener(
      "touch started\n"
      "while [ ! -e go ]; do sleep 0.02; done\n"
      "touch ended\n");
  opener.open(u"file:///page");
  result("started");
  EXPECT_FALSE(fs::exists(temp.path() / "ended"));
  EXPECT_FALSE(has_children()) << "while the handler runs";
  make_file(temp.path() / "go", "");
  result("ended");
  EXPECT_FALSE(has_children()) << "when the handler has ended";
}

TEST_F(UrlOpener, ManyOpeningsLeaveNoChild) {
  make_opener("exit 3\n");
  for (int round = 0; round < 50; ++round) opener.open(u"file:///page");
  EXPECT_FALSE(has_children());
}

TEST_F(UrlOpener, StandardStreamsAreTheNullDevice) {
  if (!fs::exists("/proc/self/fd")) GTEST_SKIP() << "no /proc";
  make_opener(
      "echo noise\n"
      "echo noise >&2\n"
      "streams=$(readlink /proc/$$/fd/0 /proc/$$/fd/1 /proc/$$/fd/2)\n"
      "printf '%s\\n' \"$streams\" >writing\n"
      "mv writing result\n");
  ::testing::internal::CaptureStdout();
  ::testing::internal::CaptureStderr();
  opener.open(u"file:///page");
  const std::string streams = result();
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(streams, "/dev/null\n/dev/null\n/dev/null\n");
}

TEST_F(UrlOpener, MissingHandlerIsIgnored) {
  ::setenv("PATH", temp.path().c_str(), 1);
  ::testing::internal::CaptureStdout();
  ::testing::internal::CaptureStderr();
  opener.open(u"file:///page");
  EXPECT_EQ(::testing::internal::GetCapturedStdout(), "");
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "");
  EXPECT_FALSE(has_children());
}

TEST_F(UrlOpener, HandlerThatCannotBeRunIsIgnored) {
  ::setenv("PATH", temp.path().c_str(), 1);
  make_file(temp.path() / "xdg-open", "#!/no/such/shell\n");
  fs::permissions(temp.path() / "xdg-open", fs::perms::owner_all);
  opener.open(u"file:///page");
  EXPECT_FALSE(has_children());
}

TEST_F(UrlOpener, WorksInAHostThatIgnoresItsChildren) {
  make_noting_opener();
  const auto before = ::signal(SIGCHLD, SIG_IGN);
  opener.open(u"file:///page");
  ::signal(SIGCHLD, before);
  EXPECT_EQ(result(), "1\nfile:///page\n");
}

// The handler is no shell script, since some shells change signals before they start a program.
TEST_F(UrlOpener, HandlerIgnoresAndBlocksNoSignal) {
  const char* const awk = "/usr/bin/awk";
  if (!fs::exists("/proc/self/status") || !fs::exists(awk)) GTEST_SKIP() << "no /proc or no awk";
  make_program("#!" + std::string(awk) +
               " -f\n"
               "BEGIN {\n"
               "  result = \"" +
               temp.path().string() +
               "/result\"\n"
               "  while ((getline line <\"/proc/self/status\") > 0)\n"
               "    if (line ~ /^Sig(Blk|Ign)/) print line >(result \".part\")\n"
               "  close(result \".part\")\n"
               "  system(\"mv '\" result \".part' '\" result \"'\")\n"
               "}\n");
  const unusual_signals signals;
  opener.open(u"file:///page");
  EXPECT_EQ(result(), "SigBlk:\t0000000000000000\nSigIgn:\t0000000000000000\n");
}

TEST_F(UrlOpener, SignalsAndErrnoOfTheHostAreUnchanged) {
  make_noting_opener();
  const unusual_signals signals;
  const signal_state before = current_signals();
  errno = EXDEV;
  opener.open(u"file:///page");
  EXPECT_EQ(errno, EXDEV);
  EXPECT_EQ(current_signals(), before);
  result();
}

TEST_F(UrlOpener, HandlerInheritsNoDescriptor) {
#if !defined(__GLIBC_PREREQ)
  GTEST_SKIP() << "needs glibc";
#elif !__GLIBC_PREREQ(2, 34)
  GTEST_SKIP() << "needs glibc 2.34";
#endif
  if (!fs::exists("/proc/self/fd")) GTEST_SKIP() << "no /proc";
  make_opener(
      "if [ -e /proc/$$/fd/77 ]; then echo open >writing; else echo closed >writing; fi\n"
      "mv writing result\n");
  ASSERT_EQ(::dup2(STDERR_FILENO, 77), 77);
  opener.open(u"file:///page");
  EXPECT_EQ(result(), "closed\n");
  ::close(77);
}

TEST_F(UrlOpener, HandlerHasASessionOfItsOwn) {
  if (!fs::exists("/proc/self/stat")) GTEST_SKIP() << "no /proc";
  make_opener(
      "read -r pid name state parent group session rest </proc/$$/stat\n"
      "if [ $session = $$ ]; then echo own >writing; else echo inherited >writing; fi\n"
      "mv writing result\n");
  opener.open(u"file:///page");
  EXPECT_EQ(result(), "own\n");
}

// After a fork, writing to each of these 16384 pages would be a fault.
TEST_F(UrlOpener, DoesNotCopyThePageTablesOfTheHost) {
#ifdef VFORK_IS_A_FORK
  GTEST_SKIP() << "the thread sanitizer makes each vfork a fork";
#endif
  make_noting_opener();
  small_pages memory(64 << 20);
  ASSERT_TRUE(memory.valid());
  memory.touch();
  opener.open(u"file:///page");
  EXPECT_LT(memory.touch(), 1000);
  result();
}

TEST_F(UrlOpener, ThreadsMayOpenAtTheSameTime) {
  make_opener("echo started >>log\n");
  std::vector<std::thread> threads;
  for (int i = 0; i < 4; ++i)
    threads.emplace_back([this] {
      for (int round = 0; round < 10; ++round) opener.open(u"file:///page");
    });
  for (std::thread& thread : threads) thread.join();
  EXPECT_FALSE(has_children());
  std::string expected;
  for (int i = 0; i < 40; ++i) expected += "started\n";
  const fs::path log = temp.path() / "log";
  for (int tries = 0; tries < 1000 && bytes_of(log) != expected; ++tries)
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  EXPECT_EQ(bytes_of(log), expected);
}

// A canceled thread would leave the child that it waits for as a zombie.
TEST_F(UrlOpener, IsNoPlaceWhereAThreadIsCanceled) {
  make_noting_opener();
  bool opened = false;
  const auto open_canceled = [](void* done) -> void* {
    ::pthread_cancel(::pthread_self());
    url_opener::native().open(u"file:///page");
    *static_cast<bool*>(done) = true;
    ::pthread_testcancel();
    return nullptr;
  };
  pthread_t thread;
  ASSERT_EQ(::pthread_create(&thread, nullptr, open_canceled, &opened), 0);
  void* result_of_thread = nullptr;
  ASSERT_EQ(::pthread_join(thread, &result_of_thread), 0);
  EXPECT_TRUE(opened);
  EXPECT_EQ(result_of_thread, PTHREAD_CANCELED) << "after it has opened the page";
  EXPECT_FALSE(has_children());
  result();
}

// The host waits for its other children itself.
TEST_F(UrlOpener, LeavesOtherChildrenAlone) {
  make_noting_opener();
  const pid_t child = ::fork();
  ASSERT_GE(child, 0);
  if (child == 0) ::_exit(7);
  opener.open(u"file:///page");
  int status = 0;
  EXPECT_EQ(::waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 7);
  result();
}

}  // namespace
}  // namespace test
