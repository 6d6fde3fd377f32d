// Copies of trees: deep, independent, and of any depth and width.

#include <gtest/gtest.h>

#include <iterator>
#include <memory>
#include <string>

#include "tests/markup/tree_text.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_doc.h"

namespace test {
namespace {

constexpr int very_many = 1000000;

/// A div with something of everything.
void fill(xhtml_markup& div) {
  div.set_attribute(attr_id::id, u"top");
  div.set_style(css_property_id::color, u"red");
  auto p = div.append_copy(xhtml_element(tag_id::p, u"inner", u""));
  *p << u"short" << element(tag_id::br) << ustring(300, u'l');
  p->append_copy(element(tag_id::em))->append_text(u"deep");
  div << xhtml_comment(u"comment") << xhtml_processing_instruction(u"abc");
  div.append_copy(element(tag_id::ul))->append_copy(element(tag_id::li));
}

const std::string filled =
    "div(p('short' br '" + std::string(300, 'l') + "' em('deep')) #comment# ?abc? ul(li))";

TEST(ElementCopy, IsDeepAndIndependent) {
  xhtml_element div = element(tag_id::div);
  fill(div);
  xhtml_element copy(div);
  const std::unique_ptr<xhtml_markup> clone(div.clone());
  for (xhtml_markup* const other : {static_cast<xhtml_markup*>(&copy), clone.get()}) {
    EXPECT_TRUE(is_tree(*other, filled));
    EXPECT_EQ(other->get_attribute(attr_id::id), u"top");
    EXPECT_EQ(other->get_style(css_property_id::color), u"red");
    EXPECT_EQ(other->begin()->get_attribute(attr_id::id), u"inner");
    EXPECT_EQ(other->begin()->parent(), other);
    EXPECT_EQ(other->parent(), nullptr);
    EXPECT_NE(other->tag_trait(), div.tag_trait());
    EXPECT_EQ(other->tag_trait()->get(), div.tag_trait()->get());
    *other << u"more";
    *other->begin()->begin() << u"er";
    other->set_attribute(attr_id::id, u"other");
    other->set_style(css_property_id::color, u"blue");
    other->begin()->set_attribute(attr_id::id, u"other");
  }
  EXPECT_TRUE(is_tree(div, filled));
  EXPECT_EQ(div.get_attribute(attr_id::id), u"top");
  EXPECT_EQ(div.get_style(css_property_id::color), u"red");
  EXPECT_EQ(div.begin()->get_attribute(attr_id::id), u"inner");
  div.clear_children();
  EXPECT_EQ(text_of(*clone->begin()->begin()), "shorter");
}

TEST(ElementCopy, HasTheParentOfItsSourceUntilItIsInserted) {
  xhtml_element div = element(tag_id::div);
  auto p = div.append_copy(element(tag_id::p));
  auto text = p->append_text(u"text");
  auto comment = p->append_copy(xhtml_comment(u"c"));
  auto instruction = p->append_copy(xhtml_processing_instruction(u"p"));
  EXPECT_EQ(std::unique_ptr<xhtml_markup>(p->clone())->parent(), &div);
  EXPECT_EQ(std::unique_ptr<xhtml_markup>(text->clone())->parent(), &*p);
  EXPECT_EQ(std::unique_ptr<xhtml_markup>(comment->clone())->parent(), &*p);
  EXPECT_EQ(std::unique_ptr<xhtml_markup>(instruction->clone())->parent(), &*p);
  const xhtml_element copy(*p->as_element());
  EXPECT_EQ(copy.parent(), &div);

  xhtml_element other = element(tag_id::div);
  const auto inserted = other.append_copy(copy);
  EXPECT_EQ(inserted->parent(), &other);
  std::unique_ptr<xhtml_markup> adopted(p->clone());
  EXPECT_TRUE(other.adopt_child(adopted.get()) != other.end());
  EXPECT_EQ(adopted.release()->parent(), &other);
  EXPECT_TRUE(is_tree(div, "div(p('text' #c# ?p?))"));
  EXPECT_TRUE(is_tree(other, "div(p('text' #c# ?p?) p('text' #c# ?p?))"));
}

TEST(ElementCopy, OfADoctypeKeepsItsText) {
  xhtml_doc doc(0);
  xhtml_doctype_declaration doctype;
  doctype << u"html";
  auto inserted = doc.root()->append_copy(doctype);
  const std::unique_ptr<xhtml_markup> clone(inserted->clone());
  EXPECT_EQ(clone->parent(), doc.root());
  EXPECT_TRUE(is_tree(*doc.root(), "document root(!html!)"));
  EXPECT_EQ(text_of(*clone), "html");
}

TEST(ElementCopy, OutlivesTheDocumentOfItsSource) {
  auto doc = std::make_unique<xhtml_doc>(1);
  auto div = doc->body()->append_copy(element(tag_id::div));
  fill(*div);
  const std::unique_ptr<xhtml_markup> clone(div->clone());
  doc.reset();
  EXPECT_TRUE(is_tree(*clone, filled));
  *clone << u"more";
  EXPECT_EQ(clone->get_attribute(attr_id::id), u"top");
}

TEST(ElementCopy, CopiesFromDocumentToDocument) {
  auto source = std::make_unique<xhtml_doc>(1);
  fill(*source->body()->append_copy(element(tag_id::div)));
  xhtml_doc target(1);
  target.body()->insert_range(target.body()->end(), source->body()->begin(), source->body()->end());
  source.reset();
  EXPECT_TRUE(is_tree(*target.body(), "body(" + filled + ")"));
}

TEST(ElementCopy, OfAdoptedNodesIsDeepToo) {
  xhtml_doc doc(1);
  auto* const div = new xhtml_element(tag_id::div, u"", u"");
  div->adopt_child(new xhtml_pcdata(u"text"));
  div->adopt_child(new xhtml_element(tag_id::p, u"", u""))->append_text(u"p");
  doc.body()->adopt_child(div);
  doc.body()->append_copy(*doc.body()->begin());
  EXPECT_TRUE(is_tree(*doc.body(), "body(div('text' p('p')) div('text' p('p')))"));
}

/// Nests div in div below `top` and returns the innermost.
xhtml_markup& nest(xhtml_markup& top, int depth) {
  const xhtml_element div = element(tag_id::div);
  xhtml_markup* node = &top;
  for (int level = 0; level < depth; ++level) node = &*node->append_copy(div);
  return *node;
}

int depth_of(const xhtml_markup& top) {
  int depth = 0;
  for (auto at = top.begin(); at.cell() != nullptr; at = at->begin()) ++depth;
  return depth;
}

TEST(VeryDeepTree, IsCopiedAndDestroyedOnTheHeap) {
  auto top = std::make_unique<xhtml_element>(tag_id::div, u"", u"");
  nest(*top, very_many) << u"bottom";
  std::unique_ptr<xhtml_markup> clone(top->clone());
  top.reset();
  EXPECT_EQ(depth_of(*clone), very_many + 1);
  EXPECT_TRUE(is_intact(*clone));
  clone->as_element()->clear_children();
  EXPECT_TRUE(is_tree(*clone, "div"));
}

TEST(VeryDeepTree, IsCopiedAndDestroyedInADocument) {
  xhtml_doc doc(1);
  nest(*doc.body(), very_many) << u"bottom";
  auto copy = doc.body()->append_copy(*doc.body()->begin());
  EXPECT_EQ(depth_of(*copy), very_many);
  EXPECT_TRUE(is_intact(*copy));
  doc.body()->as_element()->clear_children();
  EXPECT_TRUE(is_tree(*doc.root(), "document root(!! html(head(title) body))"));
  nest(*doc.body(), 10);
  EXPECT_EQ(depth_of(*doc.body()), 10);
}

TEST(VeryDeepTree, IsAdoptedAndDestroyedWithADocument) {
  xhtml_doc doc(1);
  auto top = std::make_unique<xhtml_element>(tag_id::div, u"", u"");
  nest(*top, very_many);
  EXPECT_TRUE(doc.body()->adopt_child(top.get()) != doc.body()->end());
  top.release();
  EXPECT_EQ(depth_of(*doc.body()), very_many + 1);
}

TEST(VeryDeepTree, OfAdoptedNodesIsDestroyed) {
  auto top = std::make_unique<xhtml_element>(tag_id::div, u"", u"");
  xhtml_markup* node = top.get();
  for (int level = 0; level < very_many; ++level)
    node = &*node->adopt_child(new xhtml_element(tag_id::div, u"", u""));
  EXPECT_EQ(depth_of(*top), very_many);
}

TEST(VeryWideTree, GrowsAtBothEndsAndInTheMiddle) {
  xhtml_element list = element(tag_id::ul);
  const xhtml_element item = element(tag_id::li);
  const markup_iterator middle = list.append_copy(xhtml_element(tag_id::li, u"middle", u""));
  for (int i = 0; i < very_many / 5; ++i) {
    list.push_back_copy(item);
    list.push_front_copy(item);
    list.insert_copy(middle, item);
  }
  EXPECT_TRUE(is_intact(list));
  EXPECT_EQ(std::distance(list.begin(), list.end()), very_many / 5 * 3 + 1);
  EXPECT_EQ(std::next(list.begin(), very_many / 5 * 2)->get_attribute(attr_id::id), u"middle");
}

TEST(VeryWideTree, IsCopiedAndDestroyed) {
  xhtml_doc doc(1);
  doc.body()->insert_copies(doc.body()->end(), very_many, element(tag_id::p));
  const std::unique_ptr<xhtml_markup> copy(doc.body()->clone());
  EXPECT_EQ(std::distance(copy->begin(), copy->end()), very_many);
  doc.body()->insert_range(doc.body()->begin(), copy->begin(), copy->end());
  EXPECT_EQ(std::distance(doc.body()->begin(), doc.body()->end()), 2 * very_many);
  EXPECT_TRUE(is_intact(*doc.root()));
}

}  // namespace
}  // namespace test
