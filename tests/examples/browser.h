#ifndef TESTS_EXAMPLES_BROWSER_H
#define TESTS_EXAMPLES_BROWSER_H

#include <filesystem>
#include <string>
#include <vector>

#include "tests/examples/run_process.h"

namespace examples_test {

/// Runs Chromium without a window. `profile` is a folder for its own files.
process_result chromium(const std::filesystem::path& profile,
                        const std::vector<std::string>& arguments);

/// Opens the page and writes the document that the browser makes of it, scripts
/// done, to the file `dom` as HTML in UTF-8. False, with what the browser said as
/// a test failure, if it can't.
bool dump_dom(const std::string& url, const std::filesystem::path& profile,
              const std::filesystem::path& dom);

/// The value of an XPath expression, a text or a number, in a file that
/// `dump_dom` wrote. A wrong expression is a test failure.
std::string ask_xpath(const std::filesystem::path& dom, const std::string& expression);

}  // namespace examples_test

#endif
