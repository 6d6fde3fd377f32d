#include "xport/markup/descendant_markup_iterator.h"

#include "xport/markup/xhtml_markup.h"

namespace Xport {

descendant_markup_iterator& descendant_markup_iterator::operator=(
    const descendant_markup_iterator& other) {
  above_ = other.above_;
  current_ = other.current_;
  root_ = other.root_;
  at_root_ = other.at_root_;
  return *this;
}

descendant_markup_iterator& descendant_markup_iterator::operator++() {
  if (at_root_) {
    at_root_ = false;
    if (root_ != nullptr) current_ = root_->begin();
    return *this;
  }
  xhtml_markup& node = *current_;
  if (node.begin() != node.end()) {
    above_.push_back(current_);
    current_ = node.begin();
    return *this;
  }
  ++current_;
  while (!above_.empty() && current_ == above_.back()->end()) {
    current_ = above_.back();
    above_.pop_back();
    ++current_;
  }
  return *this;
}

descendant_markup_iterator find_by_id(descendant_markup_iterator first,
                                      descendant_markup_iterator last, ustring_view id) {
  // Past the end of a list the walk would circle in that list and never return.
  const auto is_over = [&] { return !first.at_root() && first.current().cell() == nullptr; };
  for (; first != last && !is_over(); ++first)
    if (first->get_attribute(attr_id::id) == id) return first;
  return last;
}

}  // namespace Xport
