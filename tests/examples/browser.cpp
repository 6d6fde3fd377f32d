#include "tests/examples/browser.h"

#include "tests/examples/host_test.h"

namespace test {
namespace {

// Tells the programs that read HTML its encoding, which the page doesn't name.
const std::string utf8_mark = "\xEF\xBB\xBF";

}  // namespace

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
  return run_process(command, time_limit(90));
}

void opened_page::open(const std::string& host, const std::string& probe) {
  if (find_program("chromium").empty()) return;
  folder_ = std::make_unique<temp_folder>();
  const process_result made = run_process({host, folder().string()});
  ASSERT_EQ(made.exit_code, 0) << made.err;
  page_ = last_line(made.out);
  std::filesystem::path opened = page_;
  if (!probe.empty()) {
    std::string probed = page_as_utf8(page_);
    const std::size_t at = probed.rfind("</body>");
    ASSERT_NE(at, std::string::npos);
    probed.insert(at, probe);
    opened = page_.parent_path() / "probe.htm";
    make_file(opened, utf8_mark + probed);
  }
  const process_result shown =
      chromium(folder() / "profile", {"--dump-dom", "file://" + opened.string()});
  ASSERT_EQ(shown.exit_code, 0) << shown.err;
  make_file(dom(), utf8_mark + shown.out);
}

void opened_page::SetUp() {
  for (const char* program : {"chromium", "xmllint"})
    if (find_program(program).empty()) GTEST_SKIP() << program << " is not installed";
  ASSERT_TRUE(std::filesystem::exists(dom())) << "the page was not opened";
}

std::string opened_page::ask(const std::string& expression) {
  const process_result answer =
      run_process({"xmllint", "--html", "--nonet", "--xpath", expression, dom().string()});
  EXPECT_EQ(answer.exit_code, 0) << expression << ": " << answer.err;
  return answer.out.substr(0, answer.out.find_last_not_of('\n') + 1);
}

}  // namespace test
