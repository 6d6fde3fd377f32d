#include "xport/markup/markup_iterator.h"

#include <cstddef>
#include <new>

#include "xport/markup/xhtml_markup.h"

namespace Xport {

namespace {

// The node that ends and invalid positions dereference to. Nothing in it can be changed,
// so threads may share it. It is never destroyed, so positions work until the process ends.
const xhtml_markup& no_node() {
  alignas(xhtml_markup) static std::byte memory[sizeof(xhtml_markup)];
  static const xhtml_markup* const node = ::new (memory) xhtml_markup;
  return *node;
}

}  // namespace

const xhtml_markup& const_markup_iterator::operator*() const {
  return cell_ != nullptr ? *cell_ : no_node();
}

const_markup_iterator& const_markup_iterator::operator++() {
  forward();
  return *this;
}

const_markup_iterator const_markup_iterator::operator++(int) {
  const_markup_iterator before(*this);
  forward();
  return before;
}

const_markup_iterator& const_markup_iterator::operator--() {
  backward();
  return *this;
}

const_markup_iterator const_markup_iterator::operator--(int) {
  const_markup_iterator before(*this);
  backward();
  return before;
}

void const_markup_iterator::forward() {
  if (owner_ != nullptr) cell_ = cell_ != nullptr ? cell_->next_ : owner_->first_child();
}

void const_markup_iterator::backward() {
  if (owner_ == nullptr) return;
  const xhtml_markup* const first = owner_->first_child();
  if (cell_ == nullptr)
    cell_ = first != nullptr ? first->previous_ : nullptr;
  else
    cell_ = cell_ != first ? cell_->previous_ : nullptr;
}

}  // namespace Xport
