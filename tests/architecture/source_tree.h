#ifndef TESTS_ARCHITECTURE_SOURCE_TREE_H
#define TESTS_ARCHITECTURE_SOURCE_TREE_H

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace test {

/// One `#include` line of a source file.
struct include_line {
  std::string name;    ///< the text between the quotes or angle brackets
  bool quoted;         ///< written with quotes
  std::string target;  ///< the file of the tree that it includes; empty if it isn't one of ours
};

/// One source file of the tree.
struct source_file {
  std::string path;  ///< from the root, with forward slashes
  std::string text;  ///< every byte of it
  std::vector<include_line> includes;
};

/// The source files of a repository by path.
using source_tree = std::map<std::string, source_file>;

/// Reads every C++ and CMake file below `root`, except in folders whose names begin with a full
/// stop and in the folders `build` and `out` at the root. Throws std::runtime_error if `root` is no
/// folder.
source_tree read_source_tree(const std::filesystem::path& root);

/// Whether the path ends in `suffix`, such as ".h".
bool has_suffix(const std::string& path, const std::string& suffix);

/// Whether the file is in `folder` or below it; "xport/text" holds "xport/text/char16.h".
bool is_below(const std::string& path, const std::string& folder);

/// The text of a C++ file with blanks in place of comments and of the contents of string and
/// character literals. Line ends stay.
std::string code_only(const std::string& text);

}  // namespace test

#endif
