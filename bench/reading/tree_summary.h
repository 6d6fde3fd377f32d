#ifndef BENCH_READING_TREE_SUMMARY_H
#define BENCH_READING_TREE_SUMMARY_H

#include <cstdint>
#include <string_view>

namespace bench {

/// What can be compared of two trees.
struct tree_summary {
  std::uint64_t elements;
  std::uint64_t texts;  ///< text nodes as the parser made them, however it cut the text

  /// A number that is equal for trees with the same elements, attributes and text in the
  /// same places. White space in text, where a text is cut, and the order of attributes
  /// don't matter; doctypes, comments and instructions don't count. For names and texts in
  /// ASCII.
  std::uint64_t fingerprint;

  std::uint64_t nodes() const { return elements + texts; }
};

/// Sums up a tree whose nodes it is told in document order.
class tree_summarizer {
 public:
  template <typename unit>
  void open(std::basic_string_view<unit> name) {
    ++summary_.elements;
    mix(hash_of(name, '<'));
  }

  template <typename unit>
  void attribute(std::basic_string_view<unit> name, std::basic_string_view<unit> value) {
    attributes_ += hash_of(value, hash_of(name, '='));
  }

  template <typename unit>
  void text(std::basic_string_view<unit> units) {
    ++summary_.texts;
    for (const unit each : units) {
      if (each != ' ' && each != '\n' && each != '\t' && each != '\r') {
        mix(static_cast<std::uint64_t>(each));
      }
    }
  }

  void close() { mix('>'); }

  tree_summary result() {
    mix(0);
    return summary_;
  }

 private:
  static constexpr std::uint64_t prime = 1099511628211u;

  // FNV-1a, over units.
  template <typename unit>
  static std::uint64_t hash_of(std::basic_string_view<unit> units, std::uint64_t start) {
    std::uint64_t hash = 14695981039346656037u ^ (start * prime);
    for (const unit each : units) {
      hash = (hash ^ static_cast<std::uint64_t>(each)) * prime;
    }
    return hash;
  }

  /// Adds the attributes since the last thing, then `thing`.
  void mix(std::uint64_t thing) {
    summary_.fingerprint = (summary_.fingerprint ^ attributes_) * prime;
    summary_.fingerprint = (summary_.fingerprint ^ thing) * prime;
    attributes_ = 0;
  }

  tree_summary summary_ = {0, 0, 14695981039346656037u};
  std::uint64_t attributes_ = 0;
};

/// Sums up all nodes below `root`, without recursion. `tree` knows the nodes: first_child, next and
/// parent return a node, or one that is false where there is none; enter(node, summarizer) tells of
/// an element's start or of a leaf.
template <typename node, typename links>
tree_summary summarize_below(node root, const links& tree) {
  tree_summarizer sum;
  node at = tree.first_child(root);
  while (at) {
    tree.enter(at, sum);
    node following = tree.first_child(at);
    while (!following) {
      if (tree.is_element(at)) sum.close();
      following = tree.next(at);
      if (following) break;
      at = tree.parent(at);
      if (at == root) return sum.result();
    }
    at = following;
  }
  return sum.result();
}

}  // namespace bench

#endif
