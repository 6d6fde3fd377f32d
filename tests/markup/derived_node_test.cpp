// Nodes of classes that a host derives: the tree uses them through their virtual operations.

#include <gtest/gtest.h>

#include <cstdint>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "tests/markup/derived_node_kit.h"
#include "tests/markup/tree_text.h"
#include "tests/support/vocabulary_numbers.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_doc.h"

namespace test {
namespace {

/// Returns the values of its fields.
struct told_node : xhtml_markup {
  std::int32_t kind = 0;
  std::uint32_t category = 0;
  tag_id number = tag_id::invalid_tag;
  const Tag_trait_handle* trait = nullptr;

  std::int32_t node_kind() const override { return kind; }
  std::uint32_t category_flags() const override { return category; }
  tag_id tag() const override { return number; }
  const Tag_trait_handle* tag_trait() const override { return trait; }
  xhtml_markup* clone() const override { return new told_node(*this); }
};

// Any record will do: it only matters whether there is one.
const Tag_trait_handle some_trait(tag_table[tag_id::b]);

bool contains(tag_id parent, const xhtml_markup& node) { return element(parent).can_contain(node); }

// --- can_contain ---

TEST(DerivedCanContain, CategoryOfTextIsAcceptedWhereTextIs) {
  told_node node;
  node.category = 4;
  EXPECT_TRUE(contains(tag_id::p, node));
  EXPECT_TRUE(contains(tag_id::title, node));
  EXPECT_FALSE(contains(tag_id::ul, node));
  EXPECT_FALSE(contains(tag_id::br, node));
}

TEST(DerivedCanContain, CategoryOfTextDecidesBeforeTheKind) {
  told_node node;
  node.category = 4;
  node.kind = 3;
  EXPECT_TRUE(contains(tag_id::p, node));
  EXPECT_FALSE(contains(tag_id::ul, node)) << "though it says that it is a comment";
}

TEST(DerivedCanContain, CommentsAndInstructionsAreAcceptedEverywhere) {
  for (const std::int32_t kind : {3, 4}) {
    told_node node;
    node.kind = kind;
    EXPECT_TRUE(contains(tag_id::br, node)) << kind;
    EXPECT_TRUE(contains(tag_id::doc_root, node)) << kind;
    EXPECT_TRUE(contains(tag_id::ul, node)) << kind;
  }
}

TEST(DerivedCanContain, DoctypeIsAcceptedByTheRootAlone) {
  told_node node;
  node.kind = 1;
  EXPECT_TRUE(contains(tag_id::doc_root, node));
  EXPECT_FALSE(contains(tag_id::html, node));
}

TEST(DerivedCanContain, ElementNeedsARecordAndANumber) {
  told_node node;
  node.kind = 2;
  node.category = 2;
  node.number = tag_id::b;
  EXPECT_FALSE(contains(tag_id::p, node)) << "no record";
  node.trait = &some_trait;
  EXPECT_TRUE(contains(tag_id::p, node));
  node.number = tag_id::invalid_tag;
  EXPECT_FALSE(contains(tag_id::p, node)) << "no number";
}

TEST(DerivedCanContain, CategoryAndNumberAreThoseOfTheOperations) {
  told_node node;
  node.trait = &some_trait;  // inline
  node.number = tag_id::b;
  node.category = 1;
  EXPECT_FALSE(contains(tag_id::p, node)) << "a block";
  EXPECT_TRUE(contains(tag_id::div, node));
  node.category = 2;
  node.number = tag_id::a;
  EXPECT_FALSE(contains(tag_id::a, node)) << "excluded by its number";
  EXPECT_TRUE(contains(tag_id::b, node));
  node.category = 0;
  node.number = tag_id::li;
  EXPECT_TRUE(contains(tag_id::ul, node)) << "allowed by its number";
  EXPECT_FALSE(contains(tag_id::div, node));
}

TEST(DerivedCanContain, NodeThatOverridesNothingIsRefused) {
  const struct : xhtml_markup {
  } silent;
  for (int number = 0; number < first_number_without_record; ++number)
    EXPECT_FALSE(contains(tag_id{number}, silent)) << number;
}

TEST(DerivedCanContain, ParentIsAskedWhetherItAcceptsText) {
  told_element ul(tag_id::ul);
  EXPECT_TRUE(ul.can_contain(xhtml_pcdata(u"x")));
  told_element p(tag_id::p);
  p.takes_text = false;
  EXPECT_FALSE(p.can_contain(xhtml_pcdata(u"x")));
}

TEST(DerivedCanContain, ParentIsAskedWhetherItIsTheRoot) {
  told_element div(tag_id::div);
  EXPECT_FALSE(div.can_contain(xhtml_doctype_declaration()));
  div.number = tag_id::doc_root;
  EXPECT_TRUE(div.can_contain(xhtml_doctype_declaration()));
}

// --- Insertion ---

TEST(DerivedInsertion, WhatIsInsertedIsTheClone) {
  int alive = 0;
  {
    xhtml_element p = element(tag_id::p);
    const counted_comment comment(alive);
    const markup_iterator at = p.insert_copy(p.begin(), comment);
    EXPECT_EQ(alive, 2);
    EXPECT_NE(at.cell(), &comment);
    EXPECT_NE(dynamic_cast<const counted_comment*>(at.cell()), nullptr);
    EXPECT_EQ(at->parent(), &p);
    p.insert_copy(at, cloned_as_text(alive));
    EXPECT_TRUE(is_tree(p, "p('clone' #counted#)"));
  }
  EXPECT_EQ(alive, 0);
}

TEST(DerivedInsertion, NodeWithoutACloneIsRefused) {
  int alive = 0;
  xhtml_element p = element(tag_id::p);
  p << u"a";
  EXPECT_TRUE(p.append_copy(without_clone(alive)) == p.end());
  EXPECT_TRUE(p.push_front_copy(without_clone(alive)) == p.end());
  EXPECT_TRUE(is_tree(p, "p('a')"));
  EXPECT_EQ(alive, 0);
}

TEST(DerivedInsertion, NodeWithoutACloneCanBeAdopted) {
  int alive = 0;
  {
    xhtml_doc doc(1);
    EXPECT_FALSE(doc.body()->adopt_child(new without_clone(alive)) == doc.body()->end());
    EXPECT_TRUE(is_tree(*doc.body(), "body(#counted#)"));
    EXPECT_EQ(alive, 1);
  }
  EXPECT_EQ(alive, 0) << "the document was dropped";
}

TEST(DerivedInsertion, OrderOfADocumentIsKeptByTheNumbersThatNodesSay) {
  xhtml_element html = element(tag_id::html);
  told_node body;
  body.trait = &some_trait;
  body.number = tag_id::body;
  EXPECT_FALSE(html.append_copy(body) == html.end());
  EXPECT_TRUE(html.append_copy(body) == html.end()) << "the second one";
  EXPECT_TRUE(html.append_copy(element(tag_id::head)) == html.end()) << "after the body";
  EXPECT_FALSE(html.push_front_copy(element(tag_id::head)) == html.end());
}

/// Records what insert_copy is called with, and adds nothing.
struct noting_element : told_element {
  using told_element::told_element;
  std::vector<std::string> inserted;

  markup_iterator insert_copy(const_markup_iterator, const xhtml_markup& node) override {
    inserted.push_back(bare_outline(node));
    return end();
  }
};

TEST(DerivedInsertion, EveryWayEndsInInsertCopy) {
  noting_element div(tag_id::div);
  xhtml_markup& node = div;
  node.append_copy(element(tag_id::p));
  node.push_back_copy(element(tag_id::b));
  node.push_front_copy(element(tag_id::i));
  node << element(tag_id::em);
  node.insert_copies(node.end(), 2, element(tag_id::br));
  xhtml_element source = element(tag_id::div);
  source << u"x" << element(tag_id::hr);
  node.insert_range(node.end(), source.begin(), source.end());
  node.insert_text(node.end(), u"1");
  node.append_text(u"2");
  node.push_back_text(u"3");
  node.push_front_text(u"4");
  node << ustring_view(u"5");
  append_element(node, tag_id::ul);
  EXPECT_EQ(div.inserted, (std::vector<std::string>{"p", "b", "i", "em", "br", "br", "'x'", "hr",
                                                    "'1'", "'2'", "'3'", "'4'", "'5'", "ul"}));
}

TEST(DerivedInsertion, TextIsOfferedOnlyWhereItIsAccepted) {
  noting_element div(tag_id::div);
  div.takes_text = false;
  EXPECT_TRUE(div.insert_text(div.begin(), u"1") == div.end());
  EXPECT_TRUE(div.append_text(u"2") == div.end());
  EXPECT_EQ(&(div << ustring_view(u"3")), &div);
  EXPECT_TRUE(div.inserted.empty());
}

/// Accepts nothing but texts.
struct picky_element : told_element {
  using told_element::told_element;
  bool can_contain(const xhtml_markup& node) const override { return node.node_kind() == 5; }
};

TEST(DerivedInsertion, InsertionAsksCanContain) {
  picky_element div(tag_id::div);
  EXPECT_TRUE(div.append_copy(element(tag_id::p)) == div.end());
  EXPECT_TRUE(append_element(div, tag_id::p) == div.end());
  EXPECT_FALSE(div.append_text(u"a") == div.end());
  xhtml_element* const p = new xhtml_element(tag_id::p, {}, {});
  EXPECT_TRUE(div.adopt_child(p) == div.end());
  delete p;
  EXPECT_TRUE(is_tree(div, "div('a')"));
}

/// Accepts everything, nodes of no kind too.
struct careless_element : xhtml_element {
  careless_element() : xhtml_element(tag_id::div, {}, {}) {}
  careless_element(const careless_element&) = default;
  xhtml_markup* clone() const override { return new careless_element(*this); }
  bool can_contain(const xhtml_markup&) const override { return true; }
};

TEST(DerivedInsertion, NodeOfNoKindHasNoCloneEvenWhereItIsAccepted) {
  careless_element div;
  EXPECT_TRUE(div.append_copy(xhtml_markup()) == div.end());
  div << *div.end() << xhtml_end_tag(u"</p>");
  EXPECT_TRUE(div.begin() == div.end());

  xhtml_element with_text = element(tag_id::div);
  with_text << u"x";
  div.adopt_child(new xhtml_markup(with_text));
  div << u"y";
  EXPECT_EQ(std::distance(div.begin(), div.end()), 2);
  EXPECT_EQ(bare_outline(careless_element(div)), "div('y')") << "left out of the copy";
}

// --- Copies ---

TEST(DerivedCopy, ChildrenAreCopiedByTheirClone) {
  int alive = 0;
  {
    xhtml_element div = element(tag_id::div);
    xhtml_markup& p = *div.append_copy(element(tag_id::p));
    p << u"a" << counted_comment(alive) << cloned_as_text(alive);
    p.adopt_child(new without_clone(alive));
    p << element(tag_id::br);
    div << told_element(tag_id::ul);
    EXPECT_EQ(alive, 2) << "one comment, one without a clone";

    const xhtml_element copy(div);
    EXPECT_EQ(bare_outline(copy), "div(p('a' #counted# 'clone' br) ul)");
    EXPECT_NE(dynamic_cast<const told_element*>(&*std::next(copy.begin())), nullptr);
    EXPECT_EQ(alive, 3);

    xhtml_doc doc(1);
    doc.body()->append_copy(div);
    EXPECT_TRUE(is_intact(*doc.root()));
    EXPECT_EQ(bare_outline(*doc.body()), "body(div(p('a' #counted# 'clone' br) ul))");
    EXPECT_EQ(alive, 4);
  }
  EXPECT_EQ(alive, 0);
}

TEST(DerivedCopy, CloneOfADerivedElementBringsItsChildrenAlong) {
  xhtml_element div = element(tag_id::div);
  told_element inner(tag_id::div);
  inner << u"a" << element(tag_id::p);
  div << inner << u"b";
  const std::unique_ptr<xhtml_markup> copy(div.clone());
  EXPECT_TRUE(is_tree(*copy, "div(div('a' p) 'b')"));
}

TEST(DerivedCopy, CopyConstructorOfTheBaseCopiesTheChildren) {
  int alive = 0;
  {
    xhtml_element div = element(tag_id::div);
    div << u"a" << counted_comment(alive);
    *div.append_copy(element(tag_id::p)) << u"b";

    const wrapper copy(div);
    EXPECT_EQ(alive, 2);
    EXPECT_EQ(copy.node_kind(), 0);
    EXPECT_EQ(copy.tag(), tag_id::invalid_tag);
    std::string children;
    for (const xhtml_markup& child : copy) {
      children += bare_outline(child) + " ";
      EXPECT_EQ(child.parent(), &copy);
    }
    EXPECT_EQ(children, "'a' #counted# p('b') ");
    EXPECT_TRUE(--copy.end() != copy.begin());

    const wrapper second(copy);
    EXPECT_EQ(alive, 3);
    EXPECT_EQ(std::distance(second.begin(), second.end()), 3);

    const xhtml_markup plain(div);
    EXPECT_EQ(alive, 4);
    EXPECT_EQ(std::distance(plain.begin(), plain.end()), 3);
  }
  EXPECT_EQ(alive, 0);
}

TEST(DerivedCopy, CopyOfALeafThroughTheBaseHasNoChildren) {
  const xhtml_pcdata text(u"a text of more units than a node holds");
  const wrapper copy(text);
  EXPECT_TRUE(copy.begin() == copy.end());
  EXPECT_EQ(copy.first_child(), nullptr);
}

TEST(DerivedCopy, CopyThroughTheBaseHasTheParentOfTheOriginal) {
  xhtml_element div = element(tag_id::div);
  const markup_iterator p = div.append_copy(element(tag_id::p));
  EXPECT_EQ(wrapper(*p).parent(), &div);
  EXPECT_EQ(wrapper().parent(), nullptr);
}

}  // namespace
}  // namespace test
