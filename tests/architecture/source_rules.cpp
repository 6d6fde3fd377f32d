#include "tests/architecture/source_rules.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <regex>
#include <set>

namespace test {
namespace {

struct layer {
  std::string folder;
  std::vector<std::string> may_include;  // besides itself
};

// The first row whose folder holds a file counts for it.
const std::vector<layer>& layers() {
  static const std::vector<layer> table = {
      {"xport/text", {}},
      {"xport/stream", {"xport/text"}},
      {"xport/vocabulary", {"xport/text"}},
      {"xport/markup", {"xport/text", "xport/stream", "xport/vocabulary"}},
      {"xport/stylesheet", {"xport/text", "xport/stream", "xport/vocabulary", "xport/markup"}},
      {"xport/parser",
       {"xport/text", "xport/stream", "xport/vocabulary", "xport/markup", "xport/stylesheet"}},
      {"platform", {"xport/text", "xport/stream"}},
      {"zov_utils", {}},
      {"include", {"zov_utils"}},
      {"report", {"xport", "platform", "zov_utils", "include"}},
      {"samples", {"xport", "platform", "zov_utils", "include"}},
      {"examples", {"include", "zov_utils"}},
  };
  return table;
}

const layer* layer_of(const std::string& path) {
  for (const layer& row : layers()) {
    if (is_below(path, row.folder)) return &row;
  }
  return nullptr;
}

bool in_library(const std::string& path) {
  return layer_of(path) != nullptr && !is_below(path, "examples");
}

bool is_cpp(const std::string& path) { return has_suffix(path, ".h") || has_suffix(path, ".cpp"); }

bool may_include(const layer& from, const std::string& target) {
  return is_below(target, from.folder) ||
         std::ranges::any_of(from.may_include, [&target](const std::string& folder) {
           return is_below(target, folder);
         });
}

std::string expected_guard(std::string path) {
  if (is_below(path, "include")) path.erase(0, std::string("include/").size());
  for (char& c : path) {
    const unsigned char unit = static_cast<unsigned char>(c);
    c = std::isalnum(unit) ? static_cast<char>(std::toupper(unit)) : '_';
  }
  return path;
}

// The guard's name, or empty if the first two directives aren't one.
std::string guard_of(const std::string& text) {
  static const std::regex pattern(R"(^\s*#ifndef\s+(\w+)\s+#define\s+(\w+)\s)");
  std::smatch match;
  const std::string code = code_only(text);
  if (!std::regex_search(code, match, pattern, std::regex_constants::match_continuous)) return {};
  return match[1] == match[2] ? match[1].str() : std::string();
}

// Follows the include lines and remembers the path that it came.
class cycle_search {
 public:
  explicit cycle_search(const source_tree& tree) : tree_(tree) {}

  void visit(const std::string& path) {
    const auto again = std::ranges::find(path_, path);
    if (again != path_.end()) {
      std::string cycle = "include cycle: ";
      for (auto i = again; i != path_.end(); ++i) cycle += *i + " -> ";
      found_.push_back(cycle + path);
      return;
    }
    if (!seen_.insert(path).second) return;
    path_.push_back(path);
    for (const include_line& line : tree_.at(path).includes) {
      if (!line.target.empty()) visit(line.target);
    }
    path_.pop_back();
  }

  const findings& found() const { return found_; }

 private:
  const source_tree& tree_;
  std::vector<std::string> path_;
  std::set<std::string> seen_;
  findings found_;
};

}  // namespace

findings check_layers(const source_tree& tree) {
  findings found;
  for (const auto& [path, file] : tree) {
    const layer* row = layer_of(path);
    if (row == nullptr) {
      if (is_below(path, "xport") && is_cpp(path)) found.push_back(path + ": is in no layer");
      continue;
    }
    for (const include_line& line : file.includes) {
      if (!line.target.empty() && !may_include(*row, line.target)) {
        found.push_back(path + ": " + row->folder + " may not include " + line.target);
      } else if (line.target.empty() && line.quoted) {
        found.push_back(path + ": there is no \"" + line.name + "\"");
      }
    }
  }
  return found;
}

findings check_cycles(const source_tree& tree) {
  cycle_search search(tree);
  for (const auto& [path, file] : tree) search.visit(path);
  return search.found();
}

findings check_ascii(const source_tree& tree) {
  findings found;
  for (const auto& [path, file] : tree) {
    const auto bad = std::ranges::find_if(
        file.text, [](char c) { return static_cast<unsigned char>(c) > 127 || c == '\0'; });
    if (bad == file.text.end()) continue;
    const auto line = std::count(file.text.begin(), bad, '\n') + 1;
    found.push_back(path + ":" + std::to_string(line) + ": is not ASCII");
  }
  return found;
}

findings check_guards(const source_tree& tree) {
  findings found;
  for (const auto& [path, file] : tree) {
    if (!has_suffix(path, ".h")) continue;
    const std::string guard = guard_of(file.text);
    if (guard.empty()) {
      found.push_back(path + ": has no include guard");
    } else if (in_library(path) && guard != expected_guard(path)) {
      found.push_back(path + ": has the guard " + guard + " instead of " + expected_guard(path));
    }
  }
  return found;
}

findings check_own_header_first(const source_tree& tree) {
  findings found;
  for (const auto& [path, file] : tree) {
    if (!in_library(path) || !has_suffix(path, ".cpp")) continue;
    const std::string header = path.substr(0, path.size() - 4) + ".h";
    if (!tree.contains(header)) continue;
    if (file.includes.empty() || file.includes.front().target != header)
      found.push_back(path + ": does not include " + header + " first");
  }
  return found;
}

findings check_silence(const source_tree& tree) {
  static const std::array<std::string, 5> headers = {"iostream", "cstdio", "stdio.h", "print",
                                                     "syncstream"};
  static const std::regex call(
      R"(\b(cout|cerr|clog|wcout|wcerr|wclog)\b)"
      R"(|\b(printf|fprintf|puts|fputs|putchar|perror|abort|exit|quick_exit|terminate)\s*\()");
  findings found;
  for (const auto& [path, file] : tree) {
    if (!in_library(path) || !is_cpp(path)) continue;
    for (const include_line& line : file.includes) {
      if (std::ranges::find(headers, line.name) != headers.end())
        found.push_back(path + ": includes <" + line.name + ">");
    }
    std::smatch match;
    const std::string code = code_only(file.text);
    if (std::regex_search(code, match, call)) found.push_back(path + ": uses " + match.str());
  }
  return found;
}

}  // namespace test
