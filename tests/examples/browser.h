#ifndef TESTS_EXAMPLES_BROWSER_H
#define TESTS_EXAMPLES_BROWSER_H

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/child_process.h"
#include "tests/support/temp_folder.h"

namespace test {

/// Runs Chromium without a window. `profile` is a folder for its own files.
process_result chromium(const std::filesystem::path& profile,
                        const std::vector<std::string>& arguments);

/// The page of an example host in Chromium, written and opened once for all tests of a suite. The
/// tests are skipped where a program that this needs isn't installed.
class opened_page : public testing::Test {
 protected:
  /// For SetUpTestSuite: runs the host and opens its page. If there is a `probe`, a copy of the
  /// page is opened that has these elements and scripts at the end of its body.
  static void open(const std::string& host, const std::string& probe = {});

  static void TearDownTestSuite() { folder_.reset(); }

  void SetUp() override;

  /// The page as the host wrote it.
  static const std::filesystem::path& page() { return page_; }

  /// A folder that is deleted with the page.
  static std::filesystem::path folder() { return folder_->path(); }

  /// The value, a text or a number, of an XPath expression in the document that the browser made
  /// of the page after its scripts had run.
  static std::string ask(const std::string& expression);

  /// The text of an element, white space normalised.
  static std::string text_of(const std::string& path) {
    return ask("normalize-space(" + path + ")");
  }

 private:
  static std::filesystem::path dom() { return folder_->path() / "dom.html"; }

  static inline std::unique_ptr<temp_folder> folder_;
  static inline std::filesystem::path page_;
};

}  // namespace test

#endif
