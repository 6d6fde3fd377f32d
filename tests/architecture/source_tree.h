#ifndef TESTS_ARCHITECTURE_SOURCE_TREE_H
#define TESTS_ARCHITECTURE_SOURCE_TREE_H

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace architecture {

/// One `#include` line of a source file.
struct include_line {
  std::string name;    ///< what stands between the quotes or angle brackets
  bool quoted;         ///< written with quotes
  std::string target;  ///< the file of the tree that is meant; empty if it isn't one of ours
};

/// One source file of the tree.
struct source_file {
  std::string path;  ///< from the root, with forward slashes
  std::string text;  ///< every byte of it
  std::vector<include_line> includes;
};

/// The source files of a repository by path.
using source_tree = std::map<std::string, source_file>;

/// Reads every C++ and CMake file below `root`. Folders whose names begin with a
/// full stop and the folders `build` and `out` at the root are left out. Raises
/// std::runtime_error if `root` is no folder or a file can't be read.
source_tree read_source_tree(const std::filesystem::path& root);

/// Whether the path ends in `suffix`, such as ".h".
bool has_suffix(const std::string& path, const std::string& suffix);

/// Whether the file stands in `folder` or below it; "xport/text" holds
/// "xport/text/char16.h".
bool is_below(const std::string& path, const std::string& folder);

/// The text of a C++ file with comments, and what stands in string and character
/// literals, made blanks. Line ends stay.
std::string code_only(const std::string& text);

}  // namespace architecture

#endif
