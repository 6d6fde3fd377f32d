#include "tests/examples/host_test.h"

#include <algorithm>
#include <stdexcept>

#include "tests/support/utf8.h"

namespace test {

std::string page_as_utf8(const std::filesystem::path& path) {
  const std::string bytes = bytes_of(path);
  if (!bytes.starts_with("\xFF\xFE"))
    throw std::runtime_error("no page with a byte-order mark: " + path.string());
  if (bytes.size() % 2 != 0) throw std::runtime_error("half a unit at the end of " + path.string());
  const std::u16string page = file_units(bytes.substr(2));
  for (std::size_t at = 0; at < page.size(); ++at) {
    if (is_high_surrogate(page[at]) && at + 1 < page.size() && is_low_surrogate(page[at + 1]))
      ++at;
    else if (is_high_surrogate(page[at]) || is_low_surrogate(page[at]))
      throw std::runtime_error("a lone surrogate in " + path.string());
  }
  return to_utf8(page);
}

std::string last_line(const std::string& text) {
  const std::string lines = text.substr(0, text.find_last_not_of('\n') + 1);
  return lines.substr(lines.find_last_of('\n') + 1);
}

bool contains(std::string_view text, std::string_view part) { return text.find(part) != text.npos; }

testing::AssertionResult in_order(std::string_view text, const std::vector<std::string>& parts) {
  std::size_t at = 0;
  for (const std::string& part : parts) {
    const std::size_t found = text.find(part, at);
    if (found == text.npos)
      return testing::AssertionFailure() << part << " doesn't follow the parts before it";
    at = found + part.size();
  }
  return testing::AssertionSuccess();
}

std::string HostTest::input(std::string_view bytes) const {
  make_file(temp_.path() / "input.csv", bytes);
  return folder() + "/input.csv";
}

process_result HostTest::run(std::vector<std::string> arguments, const environment& changes) const {
  arguments.insert(arguments.begin(), program_.string());
  return run_process(arguments, time_limit(60), changes);
}

void HostTest::expect_message(const process_result& result, int exit_code,
                              const std::string& part) const {
  EXPECT_EQ(result.exit_code, exit_code);
  EXPECT_EQ(result.out, "");
  EXPECT_EQ(std::count(result.err.begin(), result.err.end(), '\n'), 1) << result.err;
  EXPECT_TRUE(result.err.ends_with('\n')) << result.err;
  EXPECT_TRUE(result.err.starts_with(program_.filename().string() + ": ")) << result.err;
  EXPECT_TRUE(contains(result.err, part)) << result.err;
}

void HostTest::expect_failure(const process_result& result, int exit_code,
                              const std::string& part) const {
  expect_message(result, exit_code, part);
  EXPECT_FALSE(std::filesystem::is_regular_file(page()));
}

}  // namespace test
