// Runs table_report as a user does: what it prints, what it answers and what is on the disk.
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "tests/examples/page_file.h"
#include "tests/examples/run_process.h"

namespace examples_test {
namespace {

namespace fs = std::filesystem;

process_result table_report(std::vector<std::string> arguments, const environment& changes = {}) {
  arguments.insert(arguments.begin(), TABLE_REPORT_PROGRAM);
  return run_process(arguments, std::chrono::seconds(60), changes);
}

bool contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

class TableReport : public testing::Test {
 protected:
  std::string folder() const { return scratch_.path().string(); }

  std::string input(std::string_view bytes) const {
    write_bytes(scratch_.path() / "input.csv", bytes);
    return folder() + "/input.csv";
  }

  // One line on stderr that holds `part`, nothing on stdout and no page.
  void expect_failure(const process_result& result, int exit_code, const std::string& part) const {
    EXPECT_EQ(result.exit_code, exit_code);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
    EXPECT_TRUE(result.err.ends_with('\n')) << result.err;
    EXPECT_TRUE(result.err.starts_with("table_report: ")) << result.err;
    EXPECT_TRUE(contains(result.err, part)) << result.err;
    EXPECT_FALSE(fs::is_regular_file(scratch_.path() / "Vellomark/table_report.htm"));
  }

 private:
  scratch_folder scratch_;
};

TEST_F(TableReport, WritesThePageAndPrintsItsPath) {
  const process_result result = table_report({folder()});
  EXPECT_EQ(result.exit_code, 0);
  EXPECT_EQ(result.err, "");
  const std::string page = folder() + "/Vellomark/table_report.htm";
  EXPECT_EQ(last_line(result.out), page);
  EXPECT_EQ(read_bytes(page).substr(0, 2), "\xFF\xFE");
  EXPECT_TRUE(page_as_utf8(page).ends_with("\n</html>\n"));
}

TEST_F(TableReport, MakesTheSamePageAgain) {
  const std::string page = folder() + "/Vellomark/table_report.htm";
  EXPECT_EQ(table_report({folder()}).exit_code, 0);
  const std::string first = read_bytes(page);
  EXPECT_EQ(table_report({folder()}).exit_code, 0);
  EXPECT_TRUE(read_bytes(page) == first);
}

TEST_F(TableReport, TakesNameAndInputAndMakesTheFolder) {
  const std::string data = input("kind,what\nfruit,<apple> & \"\"\n");
  const std::string quoted = input("kind,what\nfruit,\"<apple> & \"\"b\"\"\"\n");
  ASSERT_EQ(data, quoted);
  const std::string target = folder() + "/new \xC3\xA9\xE4\xB8\xAD";
  const process_result result =
      table_report({"--input", data, "--name", "\xCE\xB1.b.htm", "--", target + "/"});
  EXPECT_EQ(result.exit_code, 0) << result.err;
  const std::string page = target + "/Vellomark/\xCE\xB1.b.htm";
  EXPECT_EQ(last_line(result.out), page);
  EXPECT_TRUE(contains(page_as_utf8(page), "&lt;apple&gt; &amp; \"b\""));
}

TEST_F(TableReport, ShowsAFileWithoutRows) {
  const process_result result = table_report({"--input", input("kind,what\n"), folder()});
  EXPECT_EQ(result.exit_code, 0) << result.err;
  EXPECT_TRUE(contains(page_as_utf8(last_line(result.out)), "0 rows in 0 groups"));
}

TEST_F(TableReport, PrintsAnAbsolutePathForARelativeFolder) {
  const process_result result = run_process({"env", "-C", folder(), TABLE_REPORT_PROGRAM, "."});
  EXPECT_EQ(result.exit_code, 0) << result.err;
  EXPECT_EQ(last_line(result.out), folder() + "/Vellomark/table_report.htm");
}

// In place of the desktop's opener stands one that writes down what it is given.
TEST_F(TableReport, OpensThePageThatTheLibraryNamed) {
  const std::string bin = folder() + "/bin";
  const std::string seen = folder() + "/seen";
  fs::create_directory(bin);
  write_bytes(bin + "/xdg-open", "#!/bin/sh\nprintf '%s|' \"$@\" > '" + seen + ".part'\nmv '" +
                                     seen + ".part' '" + seen + "'\n");
  fs::permissions(bin + "/xdg-open", fs::perms::owner_all);
  const environment changes = {{"PATH", bin + ":" + std::getenv("PATH")}};

  for (const char* name : {"Report1.htm", "Report2.htm"}) {
    const process_result result = table_report({"--open", folder()}, changes);
    EXPECT_EQ(result.exit_code, 0) << result.err;
    const std::string page = folder() + "/Vellomark/" + name;
    EXPECT_EQ(last_line(result.out), page);
    EXPECT_TRUE(fs::is_regular_file(page));
    for (int tries = 0; tries < 2000 && !fs::exists(seen); ++tries)
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    EXPECT_EQ(read_bytes(seen), "file:///" + page + "|");
    fs::remove(seen);
  }
}

TEST_F(TableReport, RefusesWrongArguments) {
  expect_failure(table_report({}), 2, "the folder is missing (usage: table_report ");
  expect_failure(table_report({"--name", "a.htm"}), 2, "the folder is missing");
  expect_failure(table_report({""}), 2, "the folder has no name");
  expect_failure(table_report({folder(), "other"}), 2, "more than one folder: other");
  expect_failure(table_report({"--opne", folder()}), 2, "unknown option --opne");
  expect_failure(table_report({folder(), "--input"}), 2, "--input needs a value");
  expect_failure(table_report({folder(), "--name"}), 2, "--name needs a value");
  expect_failure(table_report({"--name", "", folder()}), 2, "--name needs a value");
  expect_failure(table_report({"--name", "a/b.htm", folder()}), 2, "no plain file name: a/b.htm");
  expect_failure(table_report({"--name", "a\\b", folder()}), 2, "no plain file name: a\\b");
  expect_failure(table_report({"--name", "..", folder()}), 2, "no plain file name: ..");
  expect_failure(table_report({"--open", "--name", "a", folder()}), 2, "omit --name");
}

TEST_F(TableReport, RefusesInputThatCannotBeRead) {
  const std::string missing = folder() + "/missing.csv";
  expect_failure(table_report({"--input", missing, folder()}), 1, "cannot open " + missing);
  expect_failure(table_report({"--input", folder(), folder()}), 1, "cannot open " + folder());
}

TEST_F(TableReport, NamesTheLineOfMalformedInput) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"", ":1: there is no header"},
      {"a\nb\n", ":1: the header has fewer than 2 columns"},
      {"a,b\n1,2\n3,4\"\n", ":3: a quote inside a field without quotes"},
      {"a,b\n\"1\"x,2\n", ":2: text behind a closing quote"},
      {"a,b\n1,2\n1,\"2\n\n", ":3: a quote is not closed"},
      {"a,b\n\"1\n1\",2\n3\n", ":4: the record has 1 fields where the header has 2"},
      {"a,b\n1,\xC3\x28\n", ":2: invalid UTF-8"},
  };
  for (const auto& [bytes, problem] : cases) {
    const std::string path = input(bytes);
    expect_failure(table_report({"--input", path, folder()}), 1, path + problem);
  }
}

TEST_F(TableReport, TellsThatAPageCannotBeWritten) {
  const std::string file = input("a,b\n");
  expect_failure(table_report({file}), 1, "cannot write the page " + file + "/Vellomark/");
  expect_failure(table_report({folder() + "/no/such"}), 1, "cannot write the page ");
  expect_failure(table_report({folder() + "/\xFF"}), 1, "a name is not UTF-8");
  fs::create_directories(folder() + "/Vellomark/table_report.htm");
  expect_failure(table_report({folder()}), 1, "cannot write the page ");
  fs::remove_all(folder() + "/Vellomark");
  write_bytes(folder() + "/Vellomark", "");
  expect_failure(table_report({folder()}), 1, "cannot write the page ");
  EXPECT_EQ(read_bytes(folder() + "/Vellomark"), "");
}

// In /proc not even the superuser, who may write in every other folder, can make one.
TEST_F(TableReport, TellsThatAFolderIsNotWritable) {
  expect_failure(table_report({"/proc"}), 1, "cannot write the page /proc/Vellomark/");
  if (::geteuid() == 0) return;
  fs::permissions(folder(), fs::perms::owner_read | fs::perms::owner_exec);
  expect_failure(table_report({folder()}), 1, "cannot write the page ");
  fs::permissions(folder(), fs::perms::owner_all);
}

TEST_F(TableReport, TellsThatTheDiskIsFull) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "there is no /dev/full";
  fs::create_directory(folder() + "/Vellomark");
  fs::create_symlink("/dev/full", folder() + "/Vellomark/table_report.htm");
  expect_failure(table_report({folder()}), 1, "the page is incomplete: ");
}

}  // namespace
}  // namespace examples_test
