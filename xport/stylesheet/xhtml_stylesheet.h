#ifndef XPORT_STYLESHEET_XHTML_STYLESHEET_H
#define XPORT_STYLESHEET_XHTML_STYLESHEET_H

#include <cstddef>
#include <memory>
#include <vector>

#include "xport/stylesheet/stylesheet_items.h"

namespace Xport {

/// A list of rules, imports and comments in the order in which they are written.
/// There is no merging and no matching: two rules with one selector stay two. A
/// document takes a stylesheet's text (xhtml_doc::add_stylesheet) and doesn't
/// keep the stylesheet.
class xhtml_stylesheet {
 public:
  xhtml_stylesheet() = default;
  xhtml_stylesheet(const xhtml_stylesheet&) = delete;
  xhtml_stylesheet& operator=(const xhtml_stylesheet&) = delete;
  virtual ~xhtml_stylesheet();

  /// Appends a copy of `item`, which stays with the caller, and gives the copy's
  /// position. A neutral item can't be held: nothing is added, and the result is
  /// the end.
  stylesheet_iterator add_item(const xhtml_stylesheet_item& item);

  stylesheet_iterator begin() { return stylesheet_iterator(items_.begin()); }
  stylesheet_iterator end() { return stylesheet_iterator(items_.end()); }
  const_stylesheet_iterator begin() const { return const_stylesheet_iterator(items_.begin()); }
  const_stylesheet_iterator end() const { return const_stylesheet_iterator(items_.end()); }
  std::size_t size() const { return items_.size(); }

 private:
  std::vector<std::unique_ptr<xhtml_stylesheet_item>> items_;
};

}  // namespace Xport

#endif
