// The two ways to keep an unfinished copy, and what remains of it when the process is killed.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <signal.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <future>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "platform/posix/copy_file.h"
#include "tests/support/child_process.h"
#include "tests/support/limited_file_size.h"
#include "tests/support/temp_folder.h"

namespace test {

namespace {

namespace fs = std::filesystem;

using name_set = std::set<std::string>;
using platform::posix::unfinished_copy;

class InAFolder {
 protected:
  fs::path file(const std::string& name) const { return folder.path() / name; }

  bool copy(const std::string& from, const std::string& to, unfinished_copy way) const {
    return platform::posix::copy_file(file(from).string(), file(to).string(), way);
  }

  name_set names() const {
    name_set all;
    for (const auto& each : fs::directory_iterator(folder.path()))
      all.insert(each.path().filename().string());
    return all;
  }

  temp_folder folder;
};

class UnfinishedCopy : public InAFolder, public ::testing::TestWithParam<unfinished_copy> {
 protected:
  bool copy(const std::string& from, const std::string& to) const {
    return InAFolder::copy(from, to, GetParam());
  }
};

TEST_P(UnfinishedCopy, GetsAFreeName) {
  const std::string bytes(300001, 'x');
  make_file(file("a"), bytes);
  fs::permissions(file("a"), fs::perms(0440));
  EXPECT_TRUE(copy("a", "b"));
  EXPECT_TRUE(bytes_of(file("b")) == bytes);
  EXPECT_EQ(fs::status(file("b")).permissions(), fs::perms(0440));
  EXPECT_EQ(names(), (name_set{"a", "b"}));
}

TEST_P(UnfinishedCopy, ReplacesAFile) {
  make_file(file("a"), "new");
  make_file(file("b"), "old and longer");
  fs::permissions(file("a"), fs::perms(0604));
  EXPECT_TRUE(copy("a", "b"));
  EXPECT_EQ(bytes_of(file("b")), "new");
  EXPECT_EQ(fs::status(file("b")).permissions(), fs::perms(0604));
  EXPECT_EQ(names(), (name_set{"a", "b"}));
}

// The source and the copy use the two free descriptors. (The undefined-behaviour sanitizer examines
// memory through a pipe, for which no descriptor is left.)
TEST_P(UnfinishedCopy, NeedsTwoDescriptors) {
#if defined(__has_feature)
#if __has_feature(undefined_behavior_sanitizer)
  GTEST_SKIP() << "the sanitizer opens descriptors of its own";
#endif
#endif
  make_file(file("a"), "bytes");
  const int first = ::open("/dev/null", O_RDONLY);
  const int second = ::open("/dev/null", O_RDONLY);
  ASSERT_GE(second, 0);
  ::close(first);
  ::close(second);
  rlimit before;
  ASSERT_EQ(::getrlimit(RLIMIT_NOFILE, &before), 0);
  rlimit limit = before;
  limit.rlim_cur = static_cast<rlim_t>(second) + 1;
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &limit), 0);
  const bool copied = copy("a", "b");
  ASSERT_EQ(::setrlimit(RLIMIT_NOFILE, &before), 0);
  EXPECT_TRUE(copied);
  EXPECT_EQ(bytes_of(file("b")), "bytes");
  EXPECT_EQ(names(), (name_set{"a", "b"}));
}

TEST_P(UnfinishedCopy, ReplacesALinkToNothing) {
  make_file(file("a"), "bytes");
  fs::create_symlink(file("nowhere"), file("b"));
  EXPECT_TRUE(copy("a", "b"));
  EXPECT_EQ(fs::symlink_status(file("b")).type(), fs::file_type::regular);
  EXPECT_EQ(bytes_of(file("b")), "bytes");
  EXPECT_EQ(names(), (name_set{"a", "b"}));
}

TEST_P(UnfinishedCopy, IsInTheCurrentFolderForANameAlone) {
  const fs::path before = fs::current_path();
  fs::current_path(folder.path());
  make_file("a", "bytes");
  EXPECT_TRUE(platform::posix::copy_file("a", "b", GetParam()));
  EXPECT_TRUE(platform::posix::copy_file("a", "b", GetParam()))
      << "and once more, in place of the first copy";
  fs::current_path(before);
  EXPECT_EQ(bytes_of(file("b")), "bytes");
  EXPECT_EQ(names(), (name_set{"a", "b"}));
}

TEST_P(UnfinishedCopy, IsDeletedOnFailure) {
  make_file(file("a"), std::string(500000, 'x'));
  make_file(file("b"), "old");
  {
    const limited_file_size limit(300000);
    EXPECT_FALSE(copy("a", "b"));
    EXPECT_FALSE(copy("a", "c"));
  }
  EXPECT_FALSE(copy("a", "no folder/c"));
  EXPECT_FALSE(copy("a", std::string(256, 'c')));
  EXPECT_EQ(bytes_of(file("b")), "old");
  EXPECT_EQ(names(), (name_set{"a", "b"}));
}

// As many files of a killed process as there are names for a copy that replaces a file.
TEST_P(UnfinishedCopy, LeavesThoseOfOtherProcessesAlone) {
  make_file(file("a"), "new");
  make_file(file("b"), "old");
  for (const int count : {1, 1000}) {
    for (int number = 0; number < count; ++number)
      make_file(file(".copy-" + std::to_string(number)), "left");
    EXPECT_TRUE(copy("a", "b"));
    EXPECT_EQ(bytes_of(file("b")), "new");
    EXPECT_EQ(names().size(), static_cast<std::size_t>(count) + 2);
    EXPECT_EQ(bytes_of(file(".copy-0")), "left");
    make_file(file("b"), "old");
  }
}

INSTANTIATE_TEST_SUITE_P(Ways, UnfinishedCopy,
                         ::testing::Values(unfinished_copy::unnamed, unfinished_copy::named),
                         [](const auto& tested) {
                           return tested.param == unfinished_copy::unnamed ? "Unnamed" : "Named";
                         });

class UnnamedCopy : public InAFolder, public ::testing::Test {
 protected:
  void SetUp() override {
#ifdef O_TMPFILE
    const int unnamed = ::open(folder.path().c_str(), O_WRONLY | O_TMPFILE | O_CLOEXEC, 0600);
    if (unnamed >= 0) {
      ::close(unnamed);
      return;
    }
#endif
    GTEST_SKIP() << "there are no unnamed files in " << folder.path();
  }

  bool copy(const std::string& from, const std::string& to) const {
    return InAFolder::copy(from, to, unfinished_copy::unnamed);
  }

  // Copies a file in a child process that the system kills halfway.
  child_outcome<bool> killed_copy(const std::string& from, const std::string& to) const {
    return run_in_child([&] {
      const rlimit no_core = {0, 0};
      ::setrlimit(RLIMIT_CORE, &no_core);
      const rlimit part = {300000, 300000};
      ::setrlimit(RLIMIT_FSIZE, &part);
      ::signal(SIGXFSZ, SIG_DFL);
      return copy(from, to);
    });
  }
};

TEST_F(UnnamedCopy, OfAKilledProcessIsGone) {
  const std::string bytes(500000, 'x');
  make_file(file("a"), bytes);
  make_file(file("b"), "old");
  for (const char* const target : {"b", "c"}) {
    EXPECT_EQ(killed_copy("a", target).failure, "SIGXFSZ");
  }
  EXPECT_EQ(names(), (name_set{"a", "b"}));
  EXPECT_TRUE(bytes_of(file("a")) == bytes);
  EXPECT_EQ(bytes_of(file("b")), "old");
}

// The copy gets its name through /proc.
TEST_F(UnnamedCopy, IsMadeAgainWithANameWhereItCannotGetOne) {
  enum class result { copied, failed, not_allowed };
  const std::string bytes(300001, 'x');
  make_file(file("a"), bytes);
  make_file(file("b"), "old");
  const auto status = run_in_child([this] {
    if (::unshare(CLONE_NEWNS) != 0 ||
        ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
        ::mount("none", "/proc", "tmpfs", 0, nullptr) != 0)
      return result::not_allowed;
    return copy("a", "b") && copy("a", "c") ? result::copied : result::failed;
  });
  if (status.made == result::not_allowed) GTEST_SKIP() << "only an administrator can unmount /proc";
  EXPECT_TRUE(status.made == result::copied) << status.failure;
  EXPECT_TRUE(bytes_of(file("b")) == bytes);
  EXPECT_TRUE(bytes_of(file("c")) == bytes);
  EXPECT_EQ(names(), (name_set{"a", "b", "c"}));
}

// In other threads of the process the number of the copy's descriptor may mean another file.
TEST_F(UnnamedCopy, GetsItsNameInAThreadWithDescriptorsOfItsOwn) {
  make_file(file("a"), "bytes");
  make_file(file("other"), "of another thread");
  std::promise<void> separate, opened;
  bool copied = false;
  std::thread thread([&] {
    EXPECT_EQ(::unshare(CLONE_FILES), 0);
    separate.set_value();
    opened.get_future().wait();
    copied = copy("a", "b");
  });
  separate.get_future().wait();
  std::vector<int> others;
  for (int count = 0; count < 20; ++count)
    others.push_back(::open(file("other").c_str(), O_RDONLY | O_CLOEXEC));
  opened.set_value();
  thread.join();
  for (const int other : others) ::close(other);
  EXPECT_TRUE(copied);
  EXPECT_EQ(bytes_of(file("b")), "bytes");
}

}  // namespace

}  // namespace test
