#ifndef TESTS_MARKUP_TREE_TEXT_H
#define TESTS_MARKUP_TREE_TEXT_H

#include <gtest/gtest.h>

#include <string>

#include "tests/support/text.h"
#include "tests/support/tree_check.h"
#include "tests/support/tree_outline.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_element.h"

namespace test {

/// An element with nothing in it.
inline xhtml_element element(tag_id tag) { return xhtml_element(tag, {}, {}); }

inline xhtml_element element(int number) { return element(tag_id{number}); }

/// The text of a leaf that is a text.
inline std::string text_of(const xhtml_markup& node) {
  return printable(dynamic_cast<const text_leaf&>(node).text());
}

/// Whether `tree` is intact and has `expected` as its bare_outline().
inline ::testing::AssertionResult is_tree(const xhtml_markup& tree, const std::string& expected) {
  ::testing::AssertionResult intact = is_intact(tree);
  if (!intact) return intact;
  const std::string found = bare_outline(tree);
  if (found == expected) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure()
         << "the tree is   " << found << "\nand should be " << expected;
}

}  // namespace test

#endif
