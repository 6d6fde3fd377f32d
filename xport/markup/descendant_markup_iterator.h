#ifndef XPORT_MARKUP_DESCENDANT_MARKUP_ITERATOR_H
#define XPORT_MARKUP_DESCENDANT_MARKUP_ITERATOR_H

#include <vector>

#include "xport/markup/markup_iterator.h"
#include "xport/text/char16.h"

namespace Xport {

class xhtml_markup;

/// A walk over a node and all below it, in document order: a node before its
/// children, and children in the order of their list. It starts on the node itself,
/// the root of the walk, and is over on the end of the root's list.
///
/// Only the iterator that went down knows the way up again. A copy stands on the same
/// node but has forgotten the lists above: it is for dereferencing, as the result of
/// a search is, and costs nothing by the depth of the tree. Moved on, it doesn't leave
/// its list; after the end of that comes its first child. Not movable: otherwise copy
/// elision would decide what is remembered. What would move copies.
/// Assignment copies the way up as well. So this is no iterator for algorithms of the
/// standard library, which copy theirs.
///
/// What is inserted or taken away elsewhere in the tree does no harm, as with
/// markup_iterator. A step takes constant time on the average, and memory by the depth
/// of the tree, but no machine stack.
class descendant_markup_iterator {
 public:
  /// An invalid position: it leads to a node of no kind and can't be moved.
  descendant_markup_iterator() = default;

  /// A position in the walk over `root`, which may be a leaf: on `root` itself if
  /// `at_root`, otherwise on `current`. With the beginning of the root's list and true
  /// the walk starts, with its end and false it is over. `current` may be deeper in the
  /// tree; the walk then doesn't leave its list upward.
  descendant_markup_iterator(const markup_iterator& current, xhtml_markup* root, bool at_root)
      : current_(current), root_(root), at_root_(at_root) {}

  /// A copy that has forgotten the lists above.
  descendant_markup_iterator(const descendant_markup_iterator& other)
      : descendant_markup_iterator(other.current_, other.root_, other.at_root_) {}

  /// Takes over all of `other`, the lists above too. If memory runs out, nothing has
  /// changed.
  descendant_markup_iterator& operator=(const descendant_markup_iterator& other);

  virtual ~descendant_markup_iterator() = default;

  /// The node it stands on; on the end of a list a node of no kind.
  xhtml_markup& operator*() const { return at_root_ && root_ != nullptr ? *root_ : *current_; }
  xhtml_markup* operator->() const { return &**this; }

  /// Goes on to the next node of the walk. If memory runs out, std::bad_alloc is thrown
  /// and the iterator stays where it is.
  descendant_markup_iterator& operator++();

  /// The position in the list that is walked. While at_root(), the beginning of the
  /// root's list.
  const markup_iterator& current() const { return current_; }

  /// The node on which the walk began.
  xhtml_markup* root() const { return root_; }

  /// Whether it stands on root() itself.
  bool at_root() const { return at_root_; }

  /// Positions are equal when both current() and at_root() are; the way that led there
  /// doesn't matter.
  friend bool operator==(const descendant_markup_iterator& a, const descendant_markup_iterator& b) {
    return a.current_ == b.current_ && a.at_root_ == b.at_root_;
  }

 private:
  markup_iterator current_;
  std::vector<markup_iterator> above_;  // the positions in the lists above, innermost last
  xhtml_markup* root_ = nullptr;
  bool at_root_ = false;
};

/// The first position from `first` up to `last`, without `last` itself, whose node has
/// exactly `id` as its `id` attribute, compared unit by unit. An empty `id` matches the
/// first node, as nodes without the attribute have an empty one. If there is none, or
/// if the walk from `first` never comes to `last`, the result equals `last`.
descendant_markup_iterator find_by_id(descendant_markup_iterator first,
                                      descendant_markup_iterator last, ustring_view id);

}  // namespace Xport

#endif
