#include <algorithm>
#include <set>

#include "tests/architecture/source_rules.h"

namespace architecture {
namespace {

// A walk along the include lines that keeps the road it came.
class cycle_search {
 public:
  explicit cycle_search(const source_tree& tree) : tree_(tree) {}

  void visit(const std::string& path) {
    const auto again = std::ranges::find(road_, path);
    if (again != road_.end()) {
      std::string cycle = "include cycle: ";
      for (auto i = again; i != road_.end(); ++i) cycle += *i + " -> ";
      found_.push_back(cycle + path);
      return;
    }
    if (!seen_.insert(path).second) return;
    road_.push_back(path);
    for (const include_line& line : tree_.at(path).includes) {
      if (!line.target.empty()) visit(line.target);
    }
    road_.pop_back();
  }

  const findings& found() const { return found_; }

 private:
  const source_tree& tree_;
  std::vector<std::string> road_;
  std::set<std::string> seen_;
  findings found_;
};

}  // namespace

findings check_cycles(const source_tree& tree) {
  cycle_search search(tree);
  for (const auto& [path, file] : tree) search.visit(path);
  return search.found();
}

}  // namespace architecture
