#ifndef REPORT_SECTION_INDEX_H
#define REPORT_SECTION_INDEX_H

#include <cstddef>
#include <deque>
#include <list>
#include <vector>

#include "report/report_section.h"

/// Finds the deferred section that comes next on the page, without a look at all
/// that still wait.
///
/// The sections stand in a tree of their heading paths. Each node of it knows the
/// sections at and below it in order of creation, so the section that shares the
/// most headings with a path is the first one left at the deepest node on the way
/// to that path.
class section_index {
 public:
  /// One section in the list of a heading path at or above it.
  struct waiting {
    std::size_t section;
    waiting* next;
  };

  /// A heading path that some section has. Lives as long as the index.
  struct node {
    node* parent;    ///< null for the empty path
    waiting* first;  ///< the sections at and below this path, in order
    waiting* last;
  };

  /// A section and its place in the tree.
  struct entry {
    std::list<ReportSection>::iterator section;
    node* path;
  };

  /// Indexes `sections`. Those that aren't taken must stay in the list, in whatever
  /// order.
  explicit section_index(std::list<ReportSection>& sections);
  section_index(const section_index&) = delete;
  section_index& operator=(const section_index&) = delete;

  /// The first section of all that are left; null if there is none.
  const entry* first() { return first_at(root_); }

  /// The first of the sections that share most leading headings with `path`, and
  /// at least one; null if there is none. Moves `path` up to where it was found:
  /// nothing is left below, and nothing will be.
  const entry* closest(node*& path);

  /// Counts the section as placed.
  void take(const entry& placed);

 private:
  const entry* first_at(node& path);
  void add(std::size_t section, node& path);

  node root_{nullptr, nullptr, nullptr};
  std::deque<node> nodes_;
  std::deque<waiting> waiting_;
  std::vector<entry> entries_;
  std::vector<bool> placed_;
};

#endif
