#include "tests/architecture/source_tree.h"

#include <algorithm>
#include <cctype>
#include <regex>
#include <sstream>
#include <stdexcept>

#include "tests/support/temp_folder.h"

namespace test {
namespace {

namespace fs = std::filesystem;

bool is_source(const fs::path& path) {
  const std::string extension = path.extension().string();
  return extension == ".h" || extension == ".cpp" || extension == ".cmake" ||
         path.filename() == "CMakeLists.txt";
}

std::vector<include_line> find_includes(const std::string& text) {
  static const std::regex pattern(R"(^\s*#\s*include\s*([<"])([^>"]+)[>"].*)");
  std::vector<include_line> found;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    std::smatch match;
    if (std::regex_match(line, match, pattern)) found.push_back({match[2], match[1] == "\"", ""});
  }
  return found;
}

// Looks up a name beside the file that includes it (if quoted), then in the root and in include/,
// as the compiler does.
std::string resolve(const source_tree& tree, const source_file& from, const include_line& line) {
  std::vector<std::string> candidates = {line.name, "include/" + line.name};
  if (line.quoted) {
    candidates.insert(
        candidates.begin(),
        (fs::path(from.path).parent_path() / line.name).lexically_normal().generic_string());
  }
  for (const std::string& candidate : candidates) {
    if (tree.contains(candidate)) return candidate;
  }
  return {};
}

// Whether the single quote at `i` is between digits, as in 1'000.
bool separates_digits(const std::string& code, std::size_t i) {
  return i > 0 && std::isxdigit(static_cast<unsigned char>(code[i - 1]));
}

}  // namespace

source_tree read_source_tree(const fs::path& root) {
  if (!fs::is_directory(root)) throw std::runtime_error(root.string() + " is no folder");
  source_tree tree;
  for (fs::recursive_directory_iterator i(root), end; i != end; ++i) {
    const std::string name = i->path().filename().string();
    const bool at_root = i.depth() == 0;
    if (i->is_directory()) {
      if (name.front() == '.' || (at_root && (name == "build" || name == "out")))
        i.disable_recursion_pending();
    } else if (is_source(i->path())) {
      source_file file;
      file.path = fs::relative(i->path(), root).generic_string();
      file.text = bytes_of(i->path());
      file.includes = find_includes(file.text);
      tree.emplace(file.path, std::move(file));
    }
  }
  for (auto& [path, file] : tree) {
    for (include_line& line : file.includes) line.target = resolve(tree, file, line);
  }
  return tree;
}

bool has_suffix(const std::string& path, const std::string& suffix) {
  return path.ends_with(suffix);
}

bool is_below(const std::string& path, const std::string& folder) {
  return path.starts_with(folder + "/");
}

std::string code_only(const std::string& text) {
  std::string code = text;
  const auto blank = [&code](std::size_t from, std::size_t to) {
    for (std::size_t i = from; i < to && i < code.size(); ++i) {
      if (code[i] != '\n') code[i] = ' ';
    }
  };
  for (std::size_t i = 0; i < code.size();) {
    const std::size_t start = i;
    if (code.compare(i, 2, "//") == 0) {
      i = std::min(code.find('\n', i), code.size());
      blank(start, i);
    } else if (code.compare(i, 2, "/*") == 0) {
      const std::size_t close = code.find("*/", i + 2);
      i = close == std::string::npos ? code.size() : close + 2;
      blank(start, i);
    } else if (code.compare(i, 3, "R\"(") == 0) {
      const std::size_t close = code.find(")\"", i + 3);
      i = close == std::string::npos ? code.size() : close + 2;
      blank(start, i);
    } else if (code[i] == '"' || (code[i] == '\'' && !separates_digits(code, i))) {
      const char quote = code[i];
      for (++i; i < code.size() && code[i] != quote && code[i] != '\n'; ++i) {
        if (code[i] == '\\') ++i;
      }
      blank(start + 1, i);
      if (i < code.size()) ++i;
    } else {
      ++i;
    }
  }
  return code;
}

}  // namespace test
