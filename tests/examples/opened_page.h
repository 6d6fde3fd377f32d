#ifndef TESTS_EXAMPLES_OPENED_PAGE_H
#define TESTS_EXAMPLES_OPENED_PAGE_H

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "tests/examples/page_file.h"

namespace examples_test {

/// The page of an example host in Chromium, made and opened once for all tests. Skips them
/// where the programs that this takes aren't installed.
class opened_page : public testing::Test {
 protected:
  /// For SetUpTestSuite: runs the host and opens its page or, if there is a `probe`, a copy
  /// beside it with these elements and scripts at the end of its body.
  static void open(const std::string& host, const std::string& probe = {});

  static void TearDownTestSuite() { scratch_.reset(); }

  void SetUp() override;

  /// The page as the host wrote it.
  static const std::filesystem::path& page() { return page_; }

  /// A folder that goes with the page.
  static std::filesystem::path scratch() { return scratch_->path(); }

  /// The value of an XPath expression in the document that the browser made.
  static std::string ask(const std::string& expression);

  /// The text of an element, white space normalised.
  static std::string text_of(const std::string& path) {
    return ask("normalize-space(" + path + ")");
  }

 private:
  static std::filesystem::path dom() { return scratch_->path() / "dom.html"; }

  static inline std::unique_ptr<scratch_folder> scratch_;
  static inline std::filesystem::path page_;
};

}  // namespace examples_test

#endif
