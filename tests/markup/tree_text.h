#ifndef TESTS_MARKUP_TREE_TEXT_H
#define TESTS_MARKUP_TREE_TEXT_H

#include <gtest/gtest.h>

#include <string>

#include "tests/support/text.h"
#include "tests/support/tree_check.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_element.h"

namespace test {

/// An element with nothing in it.
inline Xport::xhtml_element element(Xport::tag_id tag) { return Xport::xhtml_element(tag, {}, {}); }

inline Xport::xhtml_element element(int number) { return element(Xport::tag_id{number}); }

/// The text of a leaf that is a text.
inline std::string text_of(const Xport::xhtml_markup& node) {
  return printable(dynamic_cast<const Xport::text_leaf&>(node).text());
}

/// The tree below `node` in a line: elements by name with their children in
/// brackets, texts as 'text', comments as #text, instructions as ?text, doctypes
/// as !text. For trees of little depth.
inline std::string outline(const Xport::xhtml_markup& node) {
  switch (node.node_kind()) {
    case 1:
      return "!" + text_of(node);
    case 3:
      return "#" + text_of(node);
    case 4:
      return "?" + text_of(node);
    case 5:
      return "'" + text_of(node) + "'";
    default:
      break;
  }
  std::string children;
  for (const Xport::xhtml_markup& child : node)
    children += (children.empty() ? "" : " ") + outline(child);
  return printable(node.tag_name()) + (children.empty() ? "" : "(" + children + ")");
}

/// Whether `tree` hangs together and looks like `expected`.
inline ::testing::AssertionResult is_tree(const Xport::xhtml_markup& tree,
                                          const std::string& expected) {
  ::testing::AssertionResult intact = is_intact(tree);
  if (!intact) return intact;
  const std::string found = outline(tree);
  if (found == expected) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure()
         << "the tree is   " << found << "\nand should be " << expected;
}

/// Whether two texts are equal; tells where they part.
inline ::testing::AssertionResult is_text(Xport::ustring_view found, Xport::ustring_view expected) {
  if (found == expected) return ::testing::AssertionSuccess();
  std::size_t same = 0;
  while (same < found.size() && same < expected.size() && found[same] == expected[same]) ++same;
  return ::testing::AssertionFailure()
         << "the texts have " << found.size() << " and " << expected.size() << " units and part at "
         << same << ": \"" << printable(found.substr(same, 40)) << "\" instead of \""
         << printable(expected.substr(same, 40)) << "\"";
}

}  // namespace test

#endif
