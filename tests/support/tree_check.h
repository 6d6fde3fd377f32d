#ifndef TESTS_SUPPORT_TREE_CHECK_H
#define TESTS_SUPPORT_TREE_CHECK_H

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include "tests/support/text.h"
#include "xport/markup/xhtml_markup.h"

namespace test {

namespace detail {

inline std::string name_of(const xhtml_markup& node) {
  return "node of kind " + std::to_string(node.node_kind()) + " \"" + printable(node.tag_name()) +
         "\"";
}

/// What is wrong with the child list of `node`, empty if nothing is.
inline std::string child_list_fault(const xhtml_markup& node) {
  std::vector<const xhtml_markup*> children;
  for (auto at = node.begin(); at != node.end(); ++at) {
    const xhtml_markup& child = *at;
    if (at.owner() != &node) return "a position has another owner";
    if (child.parent() != &node) return "a child has another parent: " + name_of(child);
    if (child.is_end_tag()) return "an end tag is a child";
    if (!node.can_contain(child)) return "a child isn't permitted: " + name_of(child);
    children.push_back(&child);
  }
  if (node.node_kind() != 2 && !children.empty()) return "a leaf has children";

  auto backward = node.end();
  for (std::size_t left = children.size(); left != 0; --left)
    if (&*--backward != children[left - 1]) return "the walk backward takes another way";
  if (backward != node.begin()) return "the walk backward doesn't end at the first child";
  if (--backward != node.end()) return "the end isn't before the first child";
  if (++backward != node.begin()) return "the first child isn't after the end";
  return {};
}

/// What is wrong with an ordered map, empty if nothing is.
template <class Map>
std::string map_fault(const Map& map) {
  std::size_t count = 0;
  const auto first = map.begin();
  for (auto at = first; at != map.end(); ++at, ++count) {
    auto next = at;
    if (++next != map.end() && (*next).first <= (*at).first) return "keys don't ascend";
    if (!map.contains((*at).first)) return "a key isn't found";
    if (map[(*at).first] != (*at).second) return "a key leads to another text";
  }
  if (count != map.size()) return "the size isn't the number of entries";
  if (map.empty() != (count == 0)) return "empty() is wrong";
  return {};
}

inline std::string node_fault(const xhtml_markup& node) {
  std::string fault = child_list_fault(node);
  if (fault.empty() && node.attributes() != nullptr) fault = map_fault(*node.attributes());
  if (fault.empty() && node.style_properties() != nullptr)
    fault = map_fault(*node.style_properties());
  return fault;
}

}  // namespace detail

/// Whether the tree below `top` is consistent: every child has the right parent, which
/// accepts it, both walks along a child list agree, the list is a circle
/// through its end, no end tag is in it, and the maps are in order. Uses the
/// public operations only. Any depth will do.
inline ::testing::AssertionResult is_intact(const xhtml_markup& top) {
  const xhtml_markup* node = &top;
  while (true) {
    const std::string fault = detail::node_fault(*node);
    if (!fault.empty())
      return ::testing::AssertionFailure() << "in " << detail::name_of(*node) << ": " << fault;
    const_markup_iterator next = node->begin();
    while (next.cell() == nullptr) {
      if (node == &top) return ::testing::AssertionSuccess();
      const xhtml_markup* const parent = node->parent();
      next = ++const_markup_iterator(node, parent);
      node = parent;
    }
    node = next.cell();
  }
}

}  // namespace test

#endif
