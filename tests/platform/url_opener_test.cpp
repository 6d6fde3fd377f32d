#include "platform/url_opener.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <string>
#include <thread>

#include "support/temp_folder.h"

namespace {

namespace fs = std::filesystem;
using platform::url_opener;
using Xport::ustring;

// Puts a program of the name that opens URLs first in PATH.
class UrlOpener : public ::testing::Test {
 protected:
  void SetUp() override {
    old_path_ = ::getenv("PATH");
    ::setenv("PATH", (temp.path().string() + ":" + old_path_).c_str(), 1);
  }
  void TearDown() override { ::setenv("PATH", old_path_.c_str(), 1); }

  void make_opener(const std::string& script) {
    const fs::path program = temp.path() / "xdg-open";
    test::make_file(program, "#!/bin/sh\ncd '" + temp.path().string() + "'\n" + script);
    fs::permissions(program, fs::perms::owner_all);
  }

  // A script that writes the number of its arguments and each of them to the file
  // `result`, which is there when it is whole.
  void make_noting_opener() {
    make_opener("printf '%s\\n' \"$#\" \"$@\" >writing\nmv writing result\n");
  }

  // Waits until the file is there; its bytes.
  std::string result(const char* name = "result") {
    const fs::path file = temp.path() / name;
    for (int tries = 0; tries < 1000 && !fs::exists(file); ++tries)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
    EXPECT_TRUE(fs::exists(file)) << "the handler wasn't started";
    return test::bytes_of(file);
  }

  // Whether this process has a child, be it one that has ended.
  static bool has_children() { return ::waitpid(-1, nullptr, WNOHANG) != -1 || errno != ECHILD; }

  test::temp_folder temp;
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

// The handler goes on until it is told to end, which it is only after open() returned.
TEST_F(UrlOpener, DoesNotWaitAndLeavesNoChild) {
  make_opener(
      "touch started\n"
      "while [ ! -e go ]; do sleep 0.02; done\n"
      "touch ended\n");
  opener.open(u"file:///page");
  result("started");
  EXPECT_FALSE(fs::exists(temp.path() / "ended"));
  EXPECT_FALSE(has_children()) << "while the handler runs";
  test::make_file(temp.path() / "go", "");
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
  test::make_file(temp.path() / "xdg-open", "#!/no/such/shell\n");
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

// A host's other children are its own to wait for.
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
