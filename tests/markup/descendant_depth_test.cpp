// A tree that is a million levels deep is walked on a small machine stack.

#include <gtest/gtest.h>
#include <pthread.h>

#include <cstddef>
#include <string>

#include "tests/markup/tree_text.h"
#include "xport/markup/descendant_markup_iterator.h"
#include "xport/markup/xhtml_doc.h"

namespace {

using Xport::descendant_markup_iterator;
using Xport::tag_id;
using Xport::xhtml_doc;
using Xport::xhtml_markup;

constexpr std::size_t depth = 1'000'000;

void walk_deep_tree() {
  xhtml_doc doc(0);
  xhtml_markup* parent = doc.root();
  for (std::size_t level = 0; level != depth; ++level)
    parent = append_element(*parent, tag_id::span).cell();
  *parent << u"x";
  parent->set_attribute(Xport::attr_id::id, u"deepest");
  *doc.root() << u"y";

  std::size_t elements = 0;
  std::string texts;
  const descendant_markup_iterator end = doc.descendant_end();
  for (descendant_markup_iterator at = doc.descendant_begin(); at != end; ++at) {
    if (at->tag() == tag_id::span)
      ++elements;
    else if (at->node_kind() == 5)
      texts += test::text_of(*at);
  }
  EXPECT_EQ(elements, depth);
  EXPECT_EQ(texts, "xy");
  EXPECT_EQ(&*find_by_id(doc.descendant_begin(), end, u"deepest"), parent);
  EXPECT_TRUE(find_by_id(doc.descendant_begin(), end, u"none") == end);
}

TEST(DescendantDepth, AMillionLevelsOnASmallStack) {
  pthread_attr_t attributes;
  ASSERT_EQ(::pthread_attr_init(&attributes), 0);
  ASSERT_EQ(::pthread_attr_setstacksize(&attributes, std::size_t{1} << 20), 0);
  pthread_t thread;
  const auto run = [](void*) -> void* {
    walk_deep_tree();
    return nullptr;
  };
  ASSERT_EQ(::pthread_create(&thread, &attributes, run, nullptr), 0);
  EXPECT_EQ(::pthread_join(thread, nullptr), 0);
  ::pthread_attr_destroy(&attributes);
}

}  // namespace
