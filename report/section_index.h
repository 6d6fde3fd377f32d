#ifndef REPORT_SECTION_INDEX_H
#define REPORT_SECTION_INDEX_H

#include <cstddef>
#include <cstdint>
#include <deque>
#include <list>
#include <vector>

#include "xport/markup/xhtml_element.h"
#include "xport/text/char16.h"

namespace report {

/// A deferred section until Save moves it to the page.
struct ReportSection {
  Xport::ustring name;                       ///< the text of its own heading; empty for none
  std::list<Xport::xhtml_element> elements;  ///< its content in order
  std::list<Xport::ustring> heading_texts;   ///< the headings above it, outermost first
  std::list<std::int32_t> heading_styles;    ///< their styles, one for each text
};

/// Finds the section that comes next on the page without scanning the remaining sections.
///
/// The heading paths of the sections form a tree. Each of its nodes lists the sections at and
/// below it in order of creation. The section that shares the most leading headings with
/// a path is therefore the first one that remains at the deepest node on the way to
/// that path.
///
/// Building the index and placing all sections with it takes time linear in the number of
/// sections and headings: each step drops an entry of a list or moves up by one heading.
class SectionIndex {
 public:
  /// An entry in the list of a node: a section at or below it.
  struct Waiting {
    std::size_t section;
    Waiting* next;
  };

  /// A heading path, or the beginning of one. Lives as long as the index.
  struct Node {
    Node* parent;    ///< null for the empty path
    Waiting* first;  ///< the sections at and below this path, in order
    Waiting* last;
  };

  /// A section and its node.
  struct Entry {
    std::list<ReportSection>::iterator section;
    Node* path;
  };

  /// Indexes `sections`. The caller may reorder the list, but may erase a section only after
  /// passing it to Take.
  explicit SectionIndex(std::list<ReportSection>& sections);
  SectionIndex(const SectionIndex&) = delete;
  SectionIndex& operator=(const SectionIndex&) = delete;

  /// Returns the first section that remains; null if there is none.
  const Entry* First() { return FirstAt(root_); }

  /// Returns the first of the sections that share the most leading headings with `path`, and
  /// at least one; null if there is none. Moves `path` up to the node where it found the
  /// section: nothing remains below that node, and nothing will be added.
  const Entry* Closest(Node*& path);

  /// Removes the section from the index.
  void Take(const Entry& placed);

 private:
  const Entry* FirstAt(Node& path);
  void Add(std::size_t section, Node& path);

  Node root_{nullptr, nullptr, nullptr};
  std::deque<Node> nodes_;
  std::deque<Waiting> waiting_;
  std::vector<Entry> entries_;
  std::vector<bool> placed_;
};

/// The headings that apply where Save appends the next section.
struct PagePath {
  std::vector<Xport::ustring> texts;
  SectionIndex::Node* node = nullptr;  ///< null for an empty path
};

}  // namespace report

#endif
