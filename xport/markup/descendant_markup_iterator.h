#ifndef XPORT_MARKUP_DESCENDANT_MARKUP_ITERATOR_H
#define XPORT_MARKUP_DESCENDANT_MARKUP_ITERATOR_H

#include <vector>

#include "xport/markup/markup_iterator.h"
#include "xport/text/char16.h"

namespace Xport {

class xhtml_markup;

/// A walk over a node and everything below it in document order: a node before its
/// children, and children in the order of their list. The walk starts at the node itself,
/// its root, and ends at the end of the root's list.
///
/// Only the iterator that walked down knows the path back up. A copy refers to the same node
/// but has an empty path, so copying takes constant time at any depth. A copy is meant for
/// dereferencing, such as the result of a search: if it is incremented, it stays in its list
/// and starts again after the end. Assignment copies the path too. Not movable: otherwise
/// copy elision would decide whether the path is kept. Algorithms of the standard library
/// copy iterators, so they can't use this one.
///
/// Insertions and deletions elsewhere in the tree don't invalidate it, as for
/// markup_iterator. A step takes constant time on average, memory linear in the depth of
/// the tree, and no machine stack.
class descendant_markup_iterator {
 public:
  /// An invalid position: dereferencing it returns a node of no kind; it can't be moved.
  descendant_markup_iterator() = default;

  /// A position in the walk over `root`, which may be a leaf: at `root` itself if `at_root`,
  /// otherwise at `current`. The walk starts with the beginning of the root's list and true;
  /// it is over with the end of that list and false. `current` may be deeper in the tree; the
  /// walk then never moves up out of its list.
  descendant_markup_iterator(const markup_iterator& current, xhtml_markup* root, bool at_root)
      : current_(current), root_(root), at_root_(at_root) {}

  /// A copy without the path.
  descendant_markup_iterator(const descendant_markup_iterator& other)
      : descendant_markup_iterator(other.current_, other.root_, other.at_root_) {}

  /// Copies all of `other`, with the path. Nothing is changed if memory runs out.
  descendant_markup_iterator& operator=(const descendant_markup_iterator& other);

  virtual ~descendant_markup_iterator() = default;

  /// The node at this position; a node of no kind at the end of a list.
  xhtml_markup& operator*() const { return at_root_ && root_ != nullptr ? *root_ : *current_; }
  xhtml_markup* operator->() const { return &**this; }

  /// Moves to the next node of the walk. If memory runs out, throws std::bad_alloc and
  /// doesn't move.
  descendant_markup_iterator& operator++();

  /// The position in the current list; the beginning of the root's list while at_root().
  const markup_iterator& current() const { return current_; }

  /// The node at which the walk began.
  xhtml_markup* root() const { return root_; }

  /// Whether the position is root() itself.
  bool at_root() const { return at_root_; }

  /// Positions are equal if both current() and at_root() are. The path isn't compared.
  friend bool operator==(const descendant_markup_iterator& a, const descendant_markup_iterator& b) {
    return a.current_ == b.current_ && a.at_root_ == b.at_root_;
  }

 private:
  markup_iterator current_;
  std::vector<markup_iterator> above_;  // the path: positions in the lists above, innermost last
  xhtml_markup* root_ = nullptr;
  bool at_root_ = false;
};

/// The first position from `first` up to, but not including, `last` whose node has exactly
/// `id` as its `id` attribute, compared unit by unit. An empty `id` matches the first node,
/// since nodes without the attribute have an empty one. The result equals `last` if there is
/// none, or if the walk from `first` never reaches `last`. Time is linear in the nodes
/// walked.
descendant_markup_iterator find_by_id(descendant_markup_iterator first,
                                      descendant_markup_iterator last, ustring_view id);

}  // namespace Xport

#endif
