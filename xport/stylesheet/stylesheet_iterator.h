#ifndef XPORT_STYLESHEET_STYLESHEET_ITERATOR_H
#define XPORT_STYLESHEET_STYLESHEET_ITERATOR_H

#include <compare>
#include <cstddef>
#include <iterator>
#include <memory>
#include <type_traits>
#include <vector>

namespace Xport {

/// A random-access position in a vector of a stylesheet. `Position` is an iterator of the
/// vector, and dereferencing returns a `Value&`. A position becomes invalid when `Position`
/// does: when the vector grows or shrinks.
template <class Position, class Value>
class vector_position {
 public:
  using iterator_category = std::random_access_iterator_tag;
  using value_type = std::remove_const_t<Value>;
  using difference_type = std::ptrdiff_t;
  using pointer = Value*;
  using reference = Value&;

  vector_position() = default;
  explicit vector_position(Position position) : position_(position) {}
  vector_position(const vector_position&) = default;
  vector_position& operator=(const vector_position&) = default;
  virtual ~vector_position() = default;

  reference operator*() const {
    if constexpr (std::is_same_v<std::iter_value_t<Position>, value_type>)
      return *position_;
    else
      return **position_;
  }
  pointer operator->() const { return &**this; }
  reference operator[](difference_type n) const { return *(*this + n); }

  vector_position& operator+=(difference_type n) {
    position_ += n;
    return *this;
  }
  vector_position& operator-=(difference_type n) { return *this += -n; }
  vector_position& operator++() { return *this += 1; }
  vector_position& operator--() { return *this += -1; }
  vector_position operator++(int) {
    vector_position before(*this);
    ++*this;
    return before;
  }
  vector_position operator--(int) {
    vector_position before(*this);
    --*this;
    return before;
  }
  friend vector_position operator+(vector_position a, difference_type n) { return a += n; }
  friend vector_position operator+(difference_type n, vector_position a) { return a += n; }
  friend vector_position operator-(vector_position a, difference_type n) { return a -= n; }
  friend difference_type operator-(const vector_position& a, const vector_position& b) {
    return a.position_ - b.position_;
  }
  friend bool operator==(const vector_position& a, const vector_position& b) {
    return a.position_ == b.position_;
  }
  friend auto operator<=>(const vector_position& a, const vector_position& b) {
    return a.position_ <=> b.position_;
  }

  /// The iterator of the vector.
  const Position& base() const { return position_; }

 private:
  Position position_{};
};

struct stylesheet_declaration;
class xhtml_stylesheet_item;

/// A position among the declarations of a rule.
using stylesheet_rule_iterator =
    vector_position<std::vector<stylesheet_declaration>::iterator, stylesheet_declaration>;
using const_stylesheet_rule_iterator =
    vector_position<std::vector<stylesheet_declaration>::const_iterator,
                    const stylesheet_declaration>;

/// A position among the items of a stylesheet. Dereferencing returns the item itself, not
/// the pointer that the stylesheet holds.
using stylesheet_iterator =
    vector_position<std::vector<std::unique_ptr<xhtml_stylesheet_item>>::const_iterator,
                    xhtml_stylesheet_item>;
using const_stylesheet_iterator =
    vector_position<std::vector<std::unique_ptr<xhtml_stylesheet_item>>::const_iterator,
                    const xhtml_stylesheet_item>;

}  // namespace Xport

#endif
