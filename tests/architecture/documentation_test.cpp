// Checks that the samples in the documentation are the files in docs/samples, which other tests
// build and run.
#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <vector>

namespace test {
namespace {

namespace fs = std::filesystem;

const fs::path root = VELLOMARK_REPOSITORY;

// The text of a file. Of a page in UTF-16 the bytes that aren't zero, as the samples are ASCII.
std::string sample_text(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  EXPECT_TRUE(file) << path;
  std::string text{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
  if (text.starts_with("\xFF\xFE")) {
    text.erase(0, 2);
    std::erase(text, '\0');
  }
  return text;
}

// The fenced blocks of a Markdown text that name a language, such as ```cpp.
std::vector<std::string> samples_in(const std::string& markdown) {
  std::vector<std::string> found;
  const std::string fence = "\n```";
  for (std::size_t i = markdown.find(fence); i != std::string::npos; i = markdown.find(fence, i)) {
    const std::size_t line_end = markdown.find('\n', i + 1);
    const std::size_t close = markdown.find(fence, line_end - 1);
    if (line_end == std::string::npos || close == std::string::npos) {
      ADD_FAILURE() << "a block isn't closed";
      break;
    }
    if (line_end > i + fence.size())
      found.push_back(markdown.substr(line_end + 1, close - line_end));
    i = close + fence.size();
  }
  return found;
}

TEST(Documentation, SamplesAreTheFilesThatTestsRun) {
  std::map<std::string, std::string> unseen;  // name by text
  for (const fs::path& path : fs::directory_iterator(root / "docs/samples"))
    unseen[sample_text(path)] = path.filename().string();
  ASSERT_FALSE(unseen.empty());

  std::vector<fs::path> pages = {root / "README.md", root / "bench/README.md"};
  for (const fs::path& path : fs::directory_iterator(root / "docs"))
    if (path.extension() == ".md") pages.push_back(path);
  for (const fs::path& page : pages) {
    for (const std::string& sample : samples_in(sample_text(page)))
      EXPECT_EQ(unseen.erase(sample), 1u)
          << page << " shows a sample that is no file in docs/samples:\n"
          << sample;
  }
  for (const auto& [text, name] : unseen)
    ADD_FAILURE() << "no page shows docs/samples/" << name << " as it is";
}

}  // namespace
}  // namespace test
