#ifndef XPORT_MARKUP_MAKE_NODE_H
#define XPORT_MARKUP_MAKE_NODE_H

#include <algorithm>
#include <cstddef>
#include <new>
#include <utility>

#include "xport/markup/text_leaf.h"
#include "xport/markup/xhtml_element.h"

// How nodes of a tree are made: the bodies of two private templates of xhtml_element,
// for the sources that make nodes.

namespace Xport {

// A leaf of a pool has room for its whole text, unless that is long.
template <class Leaf>
Leaf* xhtml_element::make_leaf(ustring_view text) {
  constexpr std::size_t head = sizeof(text_leaf) - sizeof(text_leaf::outside_text);
  std::size_t bytes = sizeof(Leaf);
  if (pool() != nullptr && text.size() <= text_leaf::longest_in_node)
    bytes = std::max(bytes, node_pool::round_up(head + text.size() * sizeof(char16)));
  return make_node<Leaf>(bytes, text, text_leaf::place{*this, bytes});
}

template <class Node, class... Arguments>
Node* xhtml_element::make_node(std::size_t bytes, Arguments&&... arguments) {
  node_pool* const tree_pool = pool();
  void* const memory = tree_pool != nullptr ? tree_pool->allocate(bytes) : ::operator new(bytes);
  try {
    return new (memory) Node(std::forward<Arguments>(arguments)...);
  } catch (...) {
    if (tree_pool != nullptr)
      tree_pool->release(memory, bytes);
    else
      ::operator delete(memory);
    throw;
  }
}

}  // namespace Xport

#endif
