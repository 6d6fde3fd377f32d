#ifndef XPORT_MARKUP_MARKUP_ITERATOR_H
#define XPORT_MARKUP_MARKUP_ITERATOR_H

#include <cstddef>
#include <iterator>

namespace Xport {

class xhtml_markup;

/// A position in the child list of a node, its owner: on a child or on the end of the
/// list. The list is a circle through its end: after the last child comes the end, after
/// the end the first child.
///
/// A position is valid as long as its child stays in the tree, whatever is inserted next to
/// it. A default-constructed position is invalid: it has no owner, every operation of a
/// node refuses it, and it must not be moved.
///
/// Dereferencing an end or an invalid position returns a node of no kind, whose operations
/// all have harmless defaults. So the result of an insertion can be used unchecked.
class const_markup_iterator {
 public:
  using iterator_category = std::bidirectional_iterator_tag;
  using value_type = xhtml_markup;
  using difference_type = std::ptrdiff_t;
  using pointer = const xhtml_markup*;
  using reference = const xhtml_markup&;

  const_markup_iterator() = default;

  /// The position of `cell`, a child of `owner`; the end of the list if `cell` is null.
  const_markup_iterator(const xhtml_markup* cell, const xhtml_markup* owner)
      : cell_(cell), owner_(owner) {}

  const_markup_iterator(const const_markup_iterator&) = default;
  const_markup_iterator& operator=(const const_markup_iterator&) = default;
  virtual ~const_markup_iterator() = default;

  const xhtml_markup& operator*() const;
  const xhtml_markup* operator->() const { return &**this; }

  const_markup_iterator& operator++();
  const_markup_iterator operator++(int);
  const_markup_iterator& operator--();
  const_markup_iterator operator--(int);

  /// The node at this position; null at the end.
  const xhtml_markup* cell() const { return cell_; }

  /// The node whose list this is a position in; null for an invalid position.
  const xhtml_markup* owner() const { return owner_; }

  /// Positions are equal when both the node and the list are the same.
  friend bool operator==(const const_markup_iterator& a, const const_markup_iterator& b) {
    return a.cell_ == b.cell_ && a.owner_ == b.owner_;
  }

 protected:
  void forward();
  void backward();

 private:
  const xhtml_markup* cell_ = nullptr;
  const xhtml_markup* owner_ = nullptr;
};

/// A position whose node can be changed.
class markup_iterator : public const_markup_iterator {
 public:
  using pointer = xhtml_markup*;
  using reference = xhtml_markup&;

  markup_iterator() = default;
  markup_iterator(xhtml_markup* cell, xhtml_markup* owner) : const_markup_iterator(cell, owner) {}

  xhtml_markup& operator*() const {
    return const_cast<xhtml_markup&>(const_markup_iterator::operator*());
  }
  xhtml_markup* operator->() const { return &**this; }

  markup_iterator& operator++() {
    forward();
    return *this;
  }
  markup_iterator operator++(int) {
    markup_iterator before(*this);
    forward();
    return before;
  }
  markup_iterator& operator--() {
    backward();
    return *this;
  }
  markup_iterator operator--(int) {
    markup_iterator before(*this);
    backward();
    return before;
  }

  xhtml_markup* cell() const { return const_cast<xhtml_markup*>(const_markup_iterator::cell()); }
};

/// A position for walking a child list backwards. It holds a plain position, its base,
/// and refers to the child before it: with the end as its base it refers to the last
/// child, with the first child as its base it is the end of the walk. cell(), owner() and
/// comparisons refer to the base.
///
/// Dereferencing the end of the walk or an invalid position returns a node of no kind.
/// After the end of the walk comes the last child again.
class reverse_markup_iterator : public const_markup_iterator {
 public:
  /// An invalid position.
  reverse_markup_iterator() = default;

  /// Refers to the child before `base`.
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

  /// The plain position that it holds.
  const_markup_iterator base() const { return *this; }
};

}  // namespace Xport

#endif
