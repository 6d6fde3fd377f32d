#ifndef TESTS_EXAMPLES_HOST_TEST_H
#define TESTS_EXAMPLES_HOST_TEST_H

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/child_process.h"
#include "tests/support/temp_folder.h"

namespace test {

/// The page, without its byte-order mark, in UTF-8. Throws std::runtime_error if the file can't be
/// read, isn't UTF-16LE with a mark, has an odd size or holds a lone surrogate.
std::string page_as_utf8(const std::filesystem::path& path);

/// The last line of `text`, without its line feed.
std::string last_line(const std::string& text);

bool contains(std::string_view text, std::string_view part);

/// Whether `text` holds `parts` one after the other.
testing::AssertionResult in_order(std::string_view text, const std::vector<std::string>& parts);

/// Runs an example host as its user does, with a temporary folder to write to.
class HostTest : public testing::Test {
 protected:
  explicit HostTest(const char* program) : program_(program) {}

  std::string folder() const { return temp_.path().string(); }

  /// The page that the host writes to folder() if it isn't told another name.
  std::string page() const { return page(program_.filename().string() + ".htm"); }
  std::string page(const std::string& name) const { return folder() + "/Vellomark/" + name; }

  /// The path of a CSV file of these bytes. There is one such file at a time.
  std::string input(std::string_view bytes) const;

  process_result run(std::vector<std::string> arguments, const environment& changes = {}) const;

  /// Expects one line on stderr that names the program and holds `part`, and nothing on stdout.
  void expect_message(const process_result& result, int exit_code, const std::string& part) const;

  /// Expects no page either.
  void expect_failure(const process_result& result, int exit_code, const std::string& part) const;

 private:
  std::filesystem::path program_;
  temp_folder temp_;
};

}  // namespace test

#endif
