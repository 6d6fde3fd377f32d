#ifndef XPORT_MARKUP_MARKUP_ITERATOR_H
#define XPORT_MARKUP_MARKUP_ITERATOR_H

#include <cstddef>
#include <iterator>

namespace Xport {

class xhtml_markup;

/// A position in the child list of a node, which is its owner: on a child, or on
/// the list's end. The list is a circle through its end: behind the last child
/// comes the end, behind the end the first child.
///
/// A position stays valid while its child stays in the tree; what is inserted
/// beside it doesn't matter. A default position is invalid: it has no owner, no
/// operation of a node takes it, and it mustn't be moved.
///
/// Dereferencing an end or an invalid position gives a node of no kind, which
/// answers every operation with its harmless default. So the result of an
/// insertion may be used without a test.
class const_markup_iterator {
 public:
  using iterator_category = std::bidirectional_iterator_tag;
  using value_type = xhtml_markup;
  using difference_type = std::ptrdiff_t;
  using pointer = const xhtml_markup*;
  using reference = const xhtml_markup&;

  const_markup_iterator() = default;

  /// The position on `cell`, a child of `owner`; on the end of its list if null.
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

  /// The node at this position, null on the end.
  const xhtml_markup* cell() const { return cell_; }

  /// The node in whose list this is, null for an invalid position.
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

/// The form that gives nodes which can be changed.
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

}  // namespace Xport

#endif
