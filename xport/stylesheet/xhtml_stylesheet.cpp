#include "xport/stylesheet/xhtml_stylesheet.h"

#include <utility>

namespace Xport {

xhtml_stylesheet::~xhtml_stylesheet() = default;

stylesheet_iterator xhtml_stylesheet::add_item(const xhtml_stylesheet_item& item) {
  std::unique_ptr<xhtml_stylesheet_item> copy(item.clone());
  if (!copy) return end();
  items_.push_back(std::move(copy));
  return --end();
}

}  // namespace Xport
