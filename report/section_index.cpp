#include "report/section_index.h"

#include <functional>
#include <unordered_map>

#include "xport/text/char16.h"

namespace {

struct edge {
  const section_index::node* from;
  Xport::ustring_view heading;
  friend bool operator==(const edge&, const edge&) = default;
};

struct edge_hash {
  std::size_t operator()(const edge& e) const {
    return std::hash<const void*>()(e.from) * 31 + std::hash<Xport::ustring_view>()(e.heading);
  }
};

}  // namespace

section_index::section_index(std::list<ReportSection>& sections) {
  std::size_t headings = 0;
  for (const ReportSection& section : sections) headings += section.heading_texts.size();
  std::unordered_map<edge, node*, edge_hash> children(headings);
  entries_.reserve(sections.size());
  for (auto section = sections.begin(); section != sections.end(); ++section) {
    const std::size_t number = entries_.size();
    node* at = &root_;
    add(number, *at);
    for (const Xport::ustring& heading : section->heading_texts) {
      node*& child = children[{at, heading}];
      if (child == nullptr) child = &nodes_.emplace_back(node{at, nullptr, nullptr});
      at = child;
      add(number, *at);
    }
    entries_.push_back({section, at});
  }
  placed_.resize(entries_.size());
}

void section_index::add(std::size_t section, node& path) {
  waiting* const added = &waiting_.emplace_back(waiting{section, nullptr});
  (path.first != nullptr ? path.last->next : path.first) = added;
  path.last = added;
}

const section_index::entry* section_index::closest(node*& path) {
  for (; path->parent != nullptr; path = path->parent)
    if (const entry* const found = first_at(*path)) return found;
  return nullptr;
}

void section_index::take(const entry& placed) {
  placed_[static_cast<std::size_t>(&placed - entries_.data())] = true;
}

// A section stands in the list of each node above it and is placed but once, so
// those placed are dropped when they come to the front.
const section_index::entry* section_index::first_at(node& path) {
  while (path.first != nullptr && placed_[path.first->section]) path.first = path.first->next;
  return path.first != nullptr ? &entries_[path.first->section] : nullptr;
}
