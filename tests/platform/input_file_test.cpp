#include <gtest/gtest.h>
#include <pthread.h>
#include <signal.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <thread>

#include "platform/file_system.h"
#include "tests/support/fake_file.h"
#include "tests/support/golden.h"
#include "tests/support/temp_folder.h"
#include "xport/stream/file_input_stream.h"
#include "xport/stream/unit_input.h"

namespace test {
namespace {

namespace fs = std::filesystem;
using platform::file_system;
using Xport::byte_input;
using Xport::ustring;

class InputFile : public testing::Test {
 protected:
  std::unique_ptr<byte_input> open(Xport::ustring_view name) {
    return files.open_for_reading(temp.text(name));
  }

  // Makes a named pipe and calls `write` for it in a new thread.
  template <class Write>
  std::thread make_pipe(Write write) {
    const std::string path = temp.path() / "pipe";
    EXPECT_EQ(::mkfifo(path.c_str(), 0600), 0);
    return std::thread([path, write] {
      const std::unique_ptr<Xport::byte_output> pipe =
          file_system::native().open_for_writing(fs::path(path).u16string());
      if (pipe) write(*pipe);
    });
  }

  temp_folder temp;
  file_system& files = file_system::native();
};

std::string next_bytes(byte_input& file, std::size_t size) {
  std::string bytes(size, '?');
  bytes.resize(file.read(bytes.data(), size));
  return bytes;
}

std::size_t open_descriptors() {
  std::size_t count = 0;
  for ([[maybe_unused]] const auto& entry : fs::directory_iterator("/proc/self/fd")) ++count;
  return count;
}

TEST_F(InputFile, ReturnsTheBytesUnchanged) {
  const std::string bytes("a\0\r\n\x1A\xFF\xFE", 7);
  make_file(temp.path() / "page", bytes);
  for (const ustring name : {u"/page", u"\\page", u"\\/page"}) {
    const std::unique_ptr<byte_input> file = open(name);
    ASSERT_TRUE(file);
    EXPECT_EQ(next_bytes(*file, 3), bytes.substr(0, 3));
    EXPECT_EQ(next_bytes(*file, 0), "");
    EXPECT_EQ(next_bytes(*file, 100), bytes.substr(3));
    EXPECT_EQ(next_bytes(*file, 100), "");
    EXPECT_EQ(next_bytes(*file, 100), "");
  }
}

TEST_F(InputFile, AnEmptyFileHasNoBytes) {
  make_file(temp.path() / "page", "");
  const std::unique_ptr<byte_input> file = open(u"/page");
  ASSERT_TRUE(file);
  EXPECT_EQ(next_bytes(*file, 10), "");
  EXPECT_TRUE(file->rewind());
  EXPECT_EQ(next_bytes(*file, 10), "");
}

TEST_F(InputFile, WhatIsNotThereCannotBeOpened) {
  make_file(temp.path() / "file", "x");
  EXPECT_FALSE(files.open_for_reading(u""));
  EXPECT_FALSE(open(u"/none"));
  EXPECT_FALSE(open(u"/none/page"));
  EXPECT_FALSE(open(u"/file/below"));
  EXPECT_FALSE(open(u"/file/"));
  EXPECT_FALSE(open(u"/" + ustring(300, u'n')));
  EXPECT_FALSE(open(u"/" + ustring(1, char16_t(0xD800))));
  EXPECT_FALSE(open(u"/" + ustring(1, char16_t(0xDC00)) + u"file"));
  EXPECT_FALSE(open(ustring(u"/file\0", 6)));
  EXPECT_FALSE(fs::exists(temp.path() / "none")) << "nothing is made";
}

TEST_F(InputFile, AFolderCannotBeOpened) {
  fs::create_directory(temp.path() / "folder");
  fs::create_directory_symlink(temp.path() / "folder", temp.path() / "link");
  const std::size_t before = open_descriptors();
  EXPECT_FALSE(open(u""));
  EXPECT_FALSE(open(u"/folder"));
  EXPECT_FALSE(open(u"/folder/"));
  EXPECT_FALSE(open(u"/link"));
  EXPECT_EQ(open_descriptors(), before);
}

TEST_F(InputFile, AFileThatMayNotBeReadCannotBeOpened) {
  make_file(temp.path() / "page", "x");
  make_file(temp.path() / "secret", "x");
  fs::permissions(temp.path(), static_cast<fs::perms>(0755));
  fs::permissions(temp.path() / "page", static_cast<fs::perms>(0444));
  fs::permissions(temp.path() / "secret", fs::perms::none);
  const bool is_root = ::geteuid() == 0;  // may read all, and so has to be somebody else
  if (is_root && ::seteuid(65534) != 0) GTEST_SKIP() << "root can't be anybody else";
  const bool page = open(u"/page") != nullptr;
  const bool secret = open(u"/secret") != nullptr;
  if (is_root) {
    ASSERT_EQ(::seteuid(0), 0);
  }
  EXPECT_TRUE(page);
  EXPECT_FALSE(secret);
}

TEST_F(InputFile, AFileThatMayNotBeWrittenIsRead) {
  make_file(temp.path() / "page", "x");
  fs::permissions(temp.path() / "page", fs::perms::owner_read);
  const std::unique_ptr<byte_input> file = open(u"/page");
  ASSERT_TRUE(file);
  EXPECT_EQ(next_bytes(*file, 2), "x");
}

TEST_F(InputFile, RewindsToTheFirstByte) {
  make_file(temp.path() / "page", "abc");
  const std::unique_ptr<byte_input> file = open(u"/page");
  ASSERT_TRUE(file);
  for (const std::size_t size : {2u, 3u, 10u}) {
    EXPECT_TRUE(file->rewind());
    EXPECT_EQ(next_bytes(*file, size), std::string("abc").substr(0, size));
  }
}

TEST_F(InputFile, ManyBytesAtOnceAreAllRead) {
  std::string bytes(50'000'000, 'b');
  bytes.front() = 'a';
  bytes.back() = 'c';
  make_file(temp.path() / "large", bytes);
  const std::unique_ptr<byte_input> file = open(u"/large");
  ASSERT_TRUE(file);
  EXPECT_TRUE(next_bytes(*file, bytes.size() + 1) == bytes);
}

TEST_F(InputFile, OthersAreNotDeniedTheFile) {
  make_file(temp.path() / "page", "before");
  const std::unique_ptr<byte_input> file = open(u"/page");
  ASSERT_TRUE(file);
  EXPECT_EQ(next_bytes(*file, 2), "be");
  const std::unique_ptr<byte_input> second = open(u"/page");
  ASSERT_TRUE(second);
  EXPECT_EQ(next_bytes(*second, 100), "before");
  const std::unique_ptr<Xport::byte_output> writer = files.open_for_writing(temp.text(u"/page"));
  ASSERT_TRUE(writer);
  EXPECT_TRUE(writer->write("behind", 6));
  EXPECT_TRUE(writer->close());
  EXPECT_EQ(next_bytes(*file, 100), "hind");
  EXPECT_TRUE(files.remove_file(temp.text(u"/page")));
  EXPECT_TRUE(file->rewind());
  EXPECT_EQ(next_bytes(*file, 100), "behind") << "it is there as long as it is open";
}

TEST_F(InputFile, IsClosedWithItsObject) {
  make_file(temp.path() / "page", "x");
  const std::size_t before = open_descriptors();
  {
    const std::unique_ptr<byte_input> file = open(u"/page");
    EXPECT_EQ(open_descriptors(), before + 1);
  }
  EXPECT_EQ(open_descriptors(), before);
}

TEST_F(InputFile, WhatCannotBeReadHasNoBytes) {
  // It opens, and each read fails, since nothing is mapped at address 0.
  const std::unique_ptr<byte_input> file = files.open_for_reading(u"/proc/self/mem");
  if (!file) GTEST_SKIP() << "no /proc/self/mem";
  EXPECT_EQ(next_bytes(*file, 10), "");
}

TEST_F(InputFile, WhatComesInPiecesIsPutTogether) {
  std::thread writer = make_pipe([](Xport::byte_output& pipe) {
    for (const char piece : {'a', 'b', 'c', 'd'}) {
      pipe.write(&piece, 1);
      std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
  });
  const std::unique_ptr<byte_input> file = open(u"/pipe");
  ASSERT_TRUE(file);
  EXPECT_EQ(next_bytes(*file, 3), "abc");
  EXPECT_FALSE(file->rewind()) << "a pipe can't go back";
  EXPECT_EQ(next_bytes(*file, 3), "d");
  writer.join();
}

TEST_F(InputFile, ASignalDoesNotEndTheReading) {
  struct sigaction action = {};
  struct sigaction before = {};
  action.sa_handler = [](int) {};  // without SA_RESTART
  ASSERT_EQ(::sigaction(SIGUSR1, &action, &before), 0);
  std::thread writer = make_pipe([reader = ::pthread_self()](Xport::byte_output& pipe) {
    for (const char piece : {'a', 'b'}) {
      for (int i = 0; i < 5; ++i) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
        ::pthread_kill(reader, SIGUSR1);
      }
      pipe.write(&piece, 1);
    }
  });
  const std::unique_ptr<byte_input> file = open(u"/pipe");
  ASSERT_TRUE(file);
  EXPECT_EQ(next_bytes(*file, 2), "ab");
  writer.join();
  ::sigaction(SIGUSR1, &before, nullptr);
}

TEST_F(InputFile, ReturnsTheUnitsOfAPage) {
  ustring text = u"\uFEFF";
  for (std::size_t i = 0; i < 3 * Xport::file_input_buffer::block_units; ++i)
    text += static_cast<char16_t>(i % 0xFFFF);
  for (const std::string odd : {"", "x"}) {
    make_file(temp.path() / "page", file_bytes(text) + odd);
    Xport::file_input_stream stream;
    stream.open(open(u"/page"));
    ASSERT_TRUE(stream.good());
    for (int round = 0; round < 2; ++round) {
      stream.seekg(0, std::ios_base::beg);
      ASSERT_TRUE(stream.good());
      ustring found;
      for (Xport::unit_input input(stream.rdbuf()); !input.at_end(); input.advance())
        found += input.peek();
      EXPECT_TRUE(same_units(found, text));
    }
  }
}

TEST_F(InputFile, AMissingPageFailsItsStream) {
  Xport::file_input_stream stream;
  stream.open(open(u"/none"));
  EXPECT_TRUE(stream.fail());
}

}  // namespace
}  // namespace test
