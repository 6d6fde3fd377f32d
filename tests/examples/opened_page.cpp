#include "tests/examples/opened_page.h"

#include "tests/examples/browser.h"
#include "tests/examples/run_process.h"

namespace examples_test {

void opened_page::open(const std::string& host, const std::string& probe) {
  if (find_program("chromium").empty()) return;
  scratch_ = std::make_unique<scratch_folder>();
  const process_result made = run_process({host, scratch_->path().string()});
  ASSERT_EQ(made.exit_code, 0) << made.err;
  page_ = last_line(made.out);
  std::filesystem::path opened = page_;
  if (!probe.empty()) {
    std::string probed = page_as_utf8(page_);
    const std::size_t at = probed.rfind("</body>");
    ASSERT_NE(at, std::string::npos);
    probed.insert(at, probe);
    opened = page_.parent_path() / "probe.htm";
    write_bytes(opened, "\xEF\xBB\xBF" + probed);
  }
  ASSERT_TRUE(dump_dom("file://" + opened.string(), scratch_->path() / "profile", dom()));
}

void opened_page::SetUp() {
  for (const char* program : {"chromium", "xmllint"})
    if (find_program(program).empty()) GTEST_SKIP() << program << " is not installed";
  ASSERT_TRUE(std::filesystem::exists(dom())) << "the page was not opened";
}

std::string opened_page::ask(const std::string& expression) { return ask_xpath(dom(), expression); }

}  // namespace examples_test
