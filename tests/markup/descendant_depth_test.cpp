// A tree that is a million levels deep is walked on a small machine stack.

#include <gtest/gtest.h>

#include <cstddef>
#include <string>

#include "tests/markup/tree_text.h"
#include "tests/support/small_stack.h"
#include "xport/markup/descendant_markup_iterator.h"
#include "xport/markup/xhtml_doc.h"

namespace test {
namespace {

constexpr std::size_t depth = 1'000'000;

void walk_deep_tree() {
  xhtml_doc doc(0);
  xhtml_markup* parent = doc.root();
  for (std::size_t level = 0; level != depth; ++level)
    parent = append_element(*parent, tag_id::span).cell();
  *parent << u"x";
  parent->set_attribute(attr_id::id, u"deepest");
  *doc.root() << u"y";

  std::size_t elements = 0;
  std::string texts;
  const descendant_markup_iterator end = doc.descendant_end();
  for (descendant_markup_iterator at = doc.descendant_begin(); at != end; ++at) {
    if (at->tag() == tag_id::span)
      ++elements;
    else if (at->node_kind() == 5)
      texts += text_of(*at);
  }
  EXPECT_EQ(elements, depth);
  EXPECT_EQ(texts, "xy");
  EXPECT_EQ(&*find_by_id(doc.descendant_begin(), end, u"deepest"), parent);
  EXPECT_TRUE(find_by_id(doc.descendant_begin(), end, u"none") == end);
}

TEST(DescendantDepth, AMillionLevelsOnASmallStack) {
  on_small_stack(std::size_t{1} << 20, walk_deep_tree);
}

}  // namespace
}  // namespace test
