// Checks this repository against the rules of its sources.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/architecture/source_rules.h"

namespace test {
namespace {

const std::filesystem::path root = VELLOMARK_REPOSITORY;

const source_tree& repository() {
  static const source_tree tree = read_source_tree(root);
  return tree;
}

void expect_none(const findings& found) {
  for (const std::string& finding : found) ADD_FAILURE() << finding;
}

TEST(Repository, IsRead) {
  EXPECT_TRUE(repository().contains("include/vellomark/vellomark.h"));
  EXPECT_TRUE(repository().contains("xport/text/char16.h"));
  EXPECT_TRUE(repository().contains("tests/architecture/repository_test.cpp"));
}

TEST(Repository, IncludesGoDownwardOnly) { expect_none(check_layers(repository())); }

TEST(Repository, HasNoIncludeCycles) { expect_none(check_cycles(repository())); }

TEST(Repository, SourcesAreAscii) { expect_none(check_ascii(repository())); }

TEST(Repository, HeadersAreGuarded) { expect_none(check_guards(repository())); }

TEST(Repository, SourceFilesIncludeTheirOwnHeaderFirst) {
  expect_none(check_own_header_first(repository()));
}

TEST(Repository, LibraryPrintsNothing) { expect_none(check_silence(repository())); }

}  // namespace
}  // namespace test
