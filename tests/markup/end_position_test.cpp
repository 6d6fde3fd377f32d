// The end of a child list and an invalid position lead to a node of no
// kind, which nothing changes.

#include <gtest/gtest.h>

#include <memory>

#include "tests/markup/tree_text.h"
#include "xport/markup/xhtml_doc.h"

namespace test {
namespace {

void expect_node_of_no_kind(const xhtml_markup& node) {
  EXPECT_EQ(node.node_kind(), 0);
  EXPECT_EQ(node.type(), node_type::none);
  EXPECT_EQ(node.tag(), tag_id::invalid_tag);
  EXPECT_EQ(node.category_flags(), 0u);
  EXPECT_EQ(node.content_flags(), 0u);
  EXPECT_EQ(node.tag_name(), u"");
  EXPECT_EQ(node.end_tag_text(), u"");
  EXPECT_EQ(node.get_attribute(attr_id::id), u"");
  EXPECT_EQ(node.get_style(css_property_id::color), u"");
  EXPECT_EQ(node.attributes(), nullptr);
  EXPECT_EQ(node.style_properties(), nullptr);
  EXPECT_EQ(node.tag_trait(), nullptr);
  EXPECT_EQ(node.clone(), nullptr);
  EXPECT_EQ(node.parent(), nullptr);
  EXPECT_FALSE(node.accepts_text());
  EXPECT_FALSE(node.is_empty_element());
  EXPECT_FALSE(node.is_end_tag());
  EXPECT_FALSE(node.can_contain(element(tag_id::p)));
  EXPECT_TRUE(node.begin() == node.end());
  EXPECT_EQ(written(node), u"");
}

void use_every_operation(xhtml_markup& node) {
  const xhtml_element p = element(tag_id::p);
  xhtml_element other = element(tag_id::div);
  other.append_copy(p);
  const auto adopted = std::make_unique<xhtml_element>(p);
  const auto end = node.end();
  EXPECT_TRUE(node.adopt_child(adopted.get()) == end);
  EXPECT_TRUE(node.adopt_child(nullptr) == end);
  node.insert_range(end, other.begin(), other.end());
  node.insert_range(other.begin(), other.begin(), other.end());
  node.insert_copies(end, 2, p);
  EXPECT_TRUE(node.insert_text(end, u"text") == end);
  EXPECT_TRUE(node.insert_copy(end, p) == end);
  EXPECT_TRUE(node.append_text(u"text") == end);
  EXPECT_TRUE(node.append_copy(p) == end);
  EXPECT_TRUE(node.push_back_text(u"text") == end);
  EXPECT_TRUE(node.push_back_copy(p) == end);
  EXPECT_TRUE(node.push_front_text(u"text") == end);
  EXPECT_TRUE(node.push_front_copy(p) == end);
  EXPECT_EQ(&(node << p << u"text"), &node);
  EXPECT_FALSE(node.set_attribute(attr_id::id, u"value"));
  EXPECT_FALSE(node.set_style(css_property_id::color, u"red"));
  EXPECT_EQ(node.attributes(), nullptr);
  EXPECT_EQ(node.style_properties(), nullptr);
  EXPECT_TRUE(append_element(node, tag_id::p) == end);
  node.trim_trailing_space();
  EXPECT_EQ(adopted->parent(), nullptr);
  EXPECT_TRUE(is_tree(other, "div(p)"));
}

void expect_harmless(const markup_iterator& position) {
  expect_node_of_no_kind(*position);
  use_every_operation(*position);
  expect_node_of_no_kind(*position);
}

TEST(EndPosition, OfALeafLeadsToAHarmlessNode) {
  xhtml_pcdata text(u"text");
  expect_harmless(text.end());
  EXPECT_EQ(text_of(text), "text");
}

TEST(EndPosition, OfAnEmptyElementLeadsToAHarmlessNode) {
  xhtml_element div = element(tag_id::div);
  expect_harmless(div.end());
  expect_harmless(div.begin());
  EXPECT_TRUE(is_tree(div, "div"));
}

TEST(EndPosition, OfAFilledElementLeadsToAHarmlessNode) {
  xhtml_element div = element(tag_id::div);
  div << element(tag_id::p) << u"text";
  expect_harmless(div.end());
  EXPECT_TRUE(is_tree(div, "div(p 'text')"));
}

TEST(EndPosition, OfADocumentLeadsToAHarmlessNode) {
  xhtml_doc doc(1);
  expect_harmless(doc.root()->end());
  expect_harmless(doc.body()->end());
}

TEST(EndPosition, OfTheHarmlessNodeLeadsToOneAgain) {
  xhtml_element div = element(tag_id::div);
  expect_harmless(div.end()->end());
}

TEST(EndPosition, IsWhatAnInvalidPositionResembles) { expect_harmless(markup_iterator()); }

TEST(EndPosition, IsTheResultOfARefusedInsertion) {
  xhtml_element list = element(tag_id::ul);
  markup_iterator refused = list.append_text(u"text");
  refused->set_attribute(attr_id::id, u"value");
  *refused << u"text" << element(tag_id::p);
  expect_harmless(refused);
  EXPECT_TRUE(is_tree(list, "ul"));
}

TEST(EndPosition, LeadsToANodeThatNoParentAccepts) {
  xhtml_element div = element(tag_id::div);
  EXPECT_TRUE(div.append_copy(*div.end()) == div.end());
  EXPECT_TRUE(div.adopt_child(&*div.end()) == div.end());
  div.insert_copies(div.end(), 2, *div.end());
  EXPECT_TRUE(is_tree(div, "div"));
}

}  // namespace
}  // namespace test
