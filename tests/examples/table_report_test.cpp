// Runs table_report as a user does and checks its output, its exit code and the files on the disk.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "tests/examples/host_test.h"

namespace test {
namespace {

namespace fs = std::filesystem;

class TableReport : public HostTest {
 protected:
  TableReport() : HostTest(TABLE_REPORT_PROGRAM) {}
};

TEST_F(TableReport, WritesThePageAndPrintsItsPath) {
  const process_result result = run({folder()});
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(last_line(result.out), page());
  EXPECT_TRUE(page_as_utf8(page()).ends_with("\n</html>\n"));
}

TEST_F(TableReport, MakesTheSamePageAgain) {
  EXPECT_EQ(run({folder()}).exit_code, 0);
  const std::string first = bytes_of(page());
  EXPECT_FALSE(first.empty());
  EXPECT_EQ(run({folder()}).exit_code, 0);
  EXPECT_TRUE(bytes_of(page()) == first);
}

TEST_F(TableReport, AcceptsNameAndInputAndMakesTheFolder) {
  const std::string data = input("kind,what\nfruit,<apple> & \"\"\n");
  const std::string quoted = input("kind,what\nfruit,\"<apple> & \"\"b\"\"\"\n");
  ASSERT_EQ(data, quoted);
  const std::string target = folder() + "/new \xC3\xA9\xE4\xB8\xAD";
  const process_result result =
      run({"--input", data, "--name", "\xCE\xB1.b.htm", "--", target + "/"});
  EXPECT_EQ(result.exit_code, 0) << result.err;
  const std::string page = target + "/Vellomark/\xCE\xB1.b.htm";
  EXPECT_EQ(last_line(result.out), page);
  EXPECT_TRUE(contains(page_as_utf8(page), "&lt;apple&gt; &amp; \"b\""));
}

TEST_F(TableReport, ShowsAFileWithoutRows) {
  const process_result result = run({"--input", input("kind,what\n"), folder()});
  EXPECT_EQ(result.exit_code, 0) << result.err;
  EXPECT_TRUE(contains(page_as_utf8(last_line(result.out)), "0 rows in 0 groups"));
}

TEST_F(TableReport, PrintsAnAbsolutePathForARelativeFolder) {
  const process_result result = run_process({"env", "-C", folder(), TABLE_REPORT_PROGRAM, "."});
  EXPECT_EQ(result.exit_code, 0) << result.err;
  EXPECT_EQ(last_line(result.out), page());
}

// Replaces the desktop's opener by a script that records its arguments.
TEST_F(TableReport, OpensThePageThatTheLibraryNamed) {
  const std::string bin = folder() + "/bin";
  const std::string seen = folder() + "/seen";
  fs::create_directory(bin);
  make_file(bin + "/xdg-open", "#!/bin/sh\nprintf '%s|' \"$@\" > '" + seen + ".part'\nmv '" + seen +
                                   ".part' '" + seen + "'\n");
  fs::permissions(bin + "/xdg-open", fs::perms::owner_all);
  const environment changes = {{"PATH", bin + ":" + std::getenv("PATH")}};

  for (const char* name : {"Report1.htm", "Report2.htm"}) {
    const process_result result = run({"--open", folder()}, changes);
    EXPECT_EQ(result.exit_code, 0) << result.err;
    EXPECT_EQ(last_line(result.out), page(name));
    EXPECT_TRUE(fs::is_regular_file(page(name)));
    for (int tries = 0; tries < 2000 && !fs::exists(seen); ++tries)
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_EQ(bytes_of(seen), "file:///" + page(name) + "|");
    fs::remove(seen);
  }
}

TEST_F(TableReport, RefusesWrongArguments) {
  expect_failure(run({}), 2, "the folder is missing (usage: table_report ");
  expect_failure(run({"--name", "a.htm"}), 2, "the folder is missing");
  expect_failure(run({""}), 2, "the folder has no name");
  expect_failure(run({folder(), "other"}), 2, "more than one folder: other");
  expect_failure(run({"--opne", folder()}), 2, "unknown option --opne");
  expect_failure(run({folder(), "--input"}), 2, "--input needs a value");
  expect_failure(run({folder(), "--name"}), 2, "--name needs a value");
  expect_failure(run({"--name", "", folder()}), 2, "--name needs a value");
  expect_failure(run({"--name", "a/b.htm", folder()}), 2, "no plain file name: a/b.htm");
  expect_failure(run({"--name", "a\\b", folder()}), 2, "no plain file name: a\\b");
  expect_failure(run({"--name", "..", folder()}), 2, "no plain file name: ..");
  expect_failure(run({"--open", "--name", "a", folder()}), 2, "omit --name");
}

TEST_F(TableReport, RefusesInputThatCannotBeRead) {
  const std::string missing = folder() + "/missing.csv";
  expect_failure(run({"--input", missing, folder()}), 1, "cannot open " + missing);
  expect_failure(run({"--input", folder(), folder()}), 1, "cannot open " + folder());
}

TEST_F(TableReport, NamesTheLineOfMalformedInput) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", ":1: there is no header"},
      {"a\nb\n", ":1: the header has fewer than 2 columns"},
      {"a,b\n1,2\n3,4\"\n", ":3: a quote inside a field without quotes"},
      {"a,b\n\"1\"x,2\n", ":2: text after a closing quote"},
      {"a,b\n1,2\n1,\"2\n\n", ":3: a quote is not closed"},
      {"a,b\n\"1\n1\",2\n3\n", ":4: the record has 1 fields where the header has 2"},
      {"a,b\n1,\xC3\x28\n", ":2: invalid UTF-8"},
  };
  for (const auto& [bytes, problem] : cases) {
    const std::string path = input(bytes);
    expect_failure(run({"--input", path, folder()}), 1, path + problem);
  }
}

TEST_F(TableReport, ReportsThatAPageCannotBeWritten) {
  const std::string file = input("a,b\n");
  expect_failure(run({file}), 1, "cannot write the page " + file + "/Vellomark/");
  expect_failure(run({folder() + "/no/such"}), 1, "cannot write the page ");
  expect_failure(run({folder() + "/\xFF"}), 1, "a name is not UTF-8");
  fs::create_directories(page());
  expect_failure(run({folder()}), 1, "cannot write the page ");
  fs::remove_all(folder() + "/Vellomark");
  make_file(folder() + "/Vellomark", "");
  expect_failure(run({folder()}), 1, "cannot write the page ");
  EXPECT_EQ(bytes_of(folder() + "/Vellomark"), "");
}

// In /proc not even the superuser can make a folder.
TEST_F(TableReport, ReportsThatAFolderIsNotWritable) {
  expect_failure(run({"/proc"}), 1, "cannot write the page /proc/Vellomark/");
  if (::geteuid() == 0) return;
  fs::permissions(folder(), fs::perms::owner_read | fs::perms::owner_exec);
  expect_failure(run({folder()}), 1, "cannot write the page ");
  fs::permissions(folder(), fs::perms::owner_all);
}

TEST_F(TableReport, ReportsThatTheDiskIsFull) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "there is no /dev/full";
  fs::create_directory(folder() + "/Vellomark");
  fs::create_symlink("/dev/full", page());
  expect_failure(run({folder()}), 1, "the page is incomplete: ");
}

}  // namespace
}  // namespace test
