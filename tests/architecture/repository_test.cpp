// The rules of the house, asked of this repository itself.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "tests/architecture/source_rules.h"

namespace architecture {
namespace {

const std::filesystem::path root = VELLOMARK_REPOSITORY;

const source_tree& repository() {
  static const source_tree tree = read_source_tree(root);
  return tree;
}

void expect_none(const findings& found) {
  for (const std::string& finding : found) ADD_FAILURE() << finding;
}

std::string read_file(const std::string& path) {
  std::ifstream file(root / path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

// The text of the first block of C++ in a Markdown file.
std::string first_cpp_block(const std::string& markdown) {
  const std::string opening = "```cpp\n";
  const std::size_t start = markdown.find(opening);
  if (start == std::string::npos) return {};
  const std::size_t from = start + opening.size();
  return markdown.substr(from, markdown.find("```", from) - from);
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

// The program that the README shows is a file that other tests build and run.
TEST(Repository, ReadmeShowsTheFirstProgramAsItIs) {
  EXPECT_EQ(first_cpp_block(read_file("README.md")), read_file("docs/samples/first_report.cpp"));
}

}  // namespace
}  // namespace architecture
