#ifndef TESTS_SUPPORT_GOLDEN_H
#define TESTS_SUPPORT_GOLDEN_H

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/support/text.h"
#include "tests/support/utf8.h"
#include "xport/text/char16.h"

namespace test {

/// Whether two texts are equal unit by unit. If not, the message names the line and
/// the column, counted from 1 in units, of the first difference and shows the
/// text around it in both.
inline testing::AssertionResult same_units(ustring_view actual, ustring_view expected) {
  if (actual == expected) return testing::AssertionSuccess();
  const auto differ = std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
  const auto at = static_cast<std::size_t>(differ.first - actual.begin());
  const ustring_view before = actual.substr(0, at);
  const auto line = std::count(before.begin(), before.end(), u'\n') + 1;
  const std::size_t column = at - (before.rfind(u'\n') + 1) + 1;  // npos + 1 is 0
  const std::size_t from = at < 60 ? 0 : at - 60;
  const auto surroundings = [from, at](ustring_view text) {
    return printable(text.substr(from, at - from)) + "[here]" +
           (at < text.size() ? printable(text.substr(at, 60)) : "(end of text)");
  };
  return testing::AssertionFailure()
         << "differs in line " << line << ", column " << column << " (unit " << at << "); "
         << actual.size() << " units for " << expected.size() << "\n--- expected\n"
         << surroundings(expected) << "\n--- actual\n"
         << surroundings(actual);
}

/// Whether `text` is the file `name` of the folder tests/data, which holds it in UTF-8
/// without a byte-order mark. With VELLOMARK_REWRITE_GOLDEN=1 in the environment the
/// file is written anew and the test fails, so that the change is reviewed by diff.
inline testing::AssertionResult is_golden(ustring_view text, const std::string& name) {
  const std::string path = std::string(VELLOMARK_TEST_DATA "/") + name;
  const char* const rewrite = std::getenv("VELLOMARK_REWRITE_GOLDEN");
  if (rewrite != nullptr && std::string(rewrite) == "1") {
    std::ofstream(path, std::ios::binary) << to_utf8(text);
    return testing::AssertionFailure() << path << " was written anew: review the difference";
  }
  std::ifstream file(path, std::ios::binary);
  if (!file) return testing::AssertionFailure() << path << " can't be read";
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  return same_units(text, from_utf8(bytes)) << "\n--- golden file " << path;
}

}  // namespace test

#endif
