#include "tests/examples/browser.h"

#include <gtest/gtest.h>

#include <chrono>

#include "tests/examples/page_file.h"

namespace examples_test {

process_result chromium(const std::filesystem::path& profile,
                        const std::vector<std::string>& arguments) {
  std::vector<std::string> command = {"timeout",
                                      "60",
                                      find_program("chromium"),
                                      "--headless",
                                      "--no-sandbox",
                                      "--disable-gpu",
                                      "--disable-dev-shm-usage",
                                      "--disable-quic",
                                      "--no-first-run",
                                      "--disable-background-networking",
                                      "--disable-component-update",
                                      "--disable-sync",
                                      "--user-data-dir=" + profile.string()};
  command.insert(command.end(), arguments.begin(), arguments.end());
  return run_process(command, std::chrono::seconds(90));
}

bool dump_dom(const std::string& url, const std::filesystem::path& profile,
              const std::filesystem::path& dom) {
  const process_result shown = chromium(profile, {"--dump-dom", url});
  EXPECT_EQ(shown.exit_code, 0) << shown.err;
  if (shown.exit_code != 0) return false;
  // The mark tells xmllint the encoding, which the page itself doesn't name.
  write_bytes(dom, "\xEF\xBB\xBF" + shown.out);
  return true;
}

std::string ask_xpath(const std::filesystem::path& dom, const std::string& expression) {
  const process_result answer =
      run_process({"xmllint", "--html", "--nonet", "--xpath", expression, dom.string()});
  EXPECT_EQ(answer.exit_code, 0) << expression << ": " << answer.err;
  return answer.out.substr(0, answer.out.find_last_not_of('\n') + 1);
}

}  // namespace examples_test
