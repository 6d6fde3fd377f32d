#ifndef XPORT_MARKUP_REVERSE_MARKUP_ITERATOR_H
#define XPORT_MARKUP_REVERSE_MARKUP_ITERATOR_H

#include "xport/markup/markup_iterator.h"

namespace Xport {

/// A position in a child list that is walked from its end to its beginning. It is
/// made of a plain position, its base, and stands on the child before it: one on the
/// end of a list stands on the last child, and one on the first child is the end of
/// the walk. What cell(), owner() and comparing tell is told of the base.
///
/// Dereferencing the end of the walk, or an invalid position, gives a node of no kind.
/// Behind the end of the walk comes the last child again.
class reverse_markup_iterator : public const_markup_iterator {
 public:
  /// An invalid position.
  reverse_markup_iterator() = default;

  /// The position before `base`.
  explicit reverse_markup_iterator(const const_markup_iterator& base)
      : const_markup_iterator(base) {}

  const xhtml_markup& operator*() const {
    const_markup_iterator before(*this);
    return *--before;
  }
  const xhtml_markup* operator->() const { return &**this; }

  reverse_markup_iterator& operator++() {
    backward();
    return *this;
  }
  reverse_markup_iterator operator++(int) {
    reverse_markup_iterator before(*this);
    backward();
    return before;
  }
  reverse_markup_iterator& operator--() {
    forward();
    return *this;
  }
  reverse_markup_iterator operator--(int) {
    reverse_markup_iterator before(*this);
    forward();
    return before;
  }

  /// The plain position of which it is made.
  const_markup_iterator base() const { return *this; }
};

}  // namespace Xport

#endif
