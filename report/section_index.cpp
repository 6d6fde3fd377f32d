#include "report/section_index.h"

#include <functional>
#include <unordered_map>

namespace report {

namespace {

struct Edge {
  const SectionIndex::Node* from;
  Xport::ustring_view heading;
  friend bool operator==(const Edge&, const Edge&) = default;
};

struct EdgeHash {
  std::size_t operator()(const Edge& edge) const {
    return std::hash<const void*>()(edge.from) * 31 +
           std::hash<Xport::ustring_view>()(edge.heading);
  }
};

}  // namespace

SectionIndex::SectionIndex(std::list<ReportSection>& sections) {
  std::size_t headings = 0;
  for (const ReportSection& section : sections) headings += section.heading_texts.size();
  std::unordered_map<Edge, Node*, EdgeHash> children(headings);
  entries_.reserve(sections.size());
  for (auto section = sections.begin(); section != sections.end(); ++section) {
    const std::size_t number = entries_.size();
    Node* at = &root_;
    Add(number, *at);
    for (const Xport::ustring& heading : section->heading_texts) {
      Node*& child = children[{at, heading}];
      if (child == nullptr) child = &nodes_.emplace_back(Node{at, nullptr, nullptr});
      at = child;
      Add(number, *at);
    }
    entries_.push_back({section, at});
  }
  placed_.resize(entries_.size());
}

void SectionIndex::Add(std::size_t section, Node& path) {
  Waiting* const added = &waiting_.emplace_back(Waiting{section, nullptr});
  (path.first != nullptr ? path.last->next : path.first) = added;
  path.last = added;
}

const SectionIndex::Entry* SectionIndex::Closest(Node*& path) {
  for (; path->parent != nullptr; path = path->parent)
    if (const Entry* const found = FirstAt(*path)) return found;
  return nullptr;
}

void SectionIndex::Take(const Entry& placed) {
  placed_[static_cast<std::size_t>(&placed - entries_.data())] = true;
}

// A section is in the list of every node on its path. Take only marks it; each list drops
// it here, when it reaches the front.
const SectionIndex::Entry* SectionIndex::FirstAt(Node& path) {
  while (path.first != nullptr && placed_[path.first->section]) path.first = path.first->next;
  return path.first != nullptr ? &entries_[path.first->section] : nullptr;
}

}  // namespace report
