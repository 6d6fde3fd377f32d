#include "xport/markup/descendant_markup_iterator.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>

#include "tests/markup/tree_text.h"
#include "tests/support/allocation_failure.h"
#include "xport/markup/xhtml_doc.h"

namespace test {
namespace {

static_assert(std::has_virtual_destructor_v<descendant_markup_iterator>);
static_assert(std::is_same_v<decltype(*descendant_markup_iterator()), xhtml_markup&>);
static_assert(std::is_default_constructible_v<descendant_markup_iterator>);

descendant_markup_iterator begin_of(xhtml_markup& node) {
  return descendant_markup_iterator(node.begin(), &node, true);
}

descendant_markup_iterator end_of(xhtml_markup& node) {
  return descendant_markup_iterator(node.end(), &node, false);
}

std::string name_of(const xhtml_markup& node) {
  return node.node_kind() == 2 ? printable(node.tag_name()) : text_of(node);
}

// The names of the nodes on the walk, `steps` at most.
std::string walked(descendant_markup_iterator& at, const descendant_markup_iterator& end,
                   std::size_t steps = 1000) {
  std::string names;
  for (; at != end && steps != 0; ++at, --steps) names += (names.empty() ? "" : " ") + name_of(*at);
  return names;
}

std::string walked(xhtml_markup& root) {
  descendant_markup_iterator at = begin_of(root);
  return walked(at, end_of(root));
}

// Moves on to the first node that is called `name`.
void go_to(descendant_markup_iterator& at, const std::string& name) {
  while (name_of(*at) != name) ++at;
}

xhtml_element with_id(tag_id tag, ustring_view id) { return xhtml_element(tag, id, {}); }

/// div(p('a' em('b') 'c') ul(li('d') li) p 'e')
class DescendantMarkupIterator : public testing::Test {
 protected:
  DescendantMarkupIterator() {
    xhtml_element em = element(tag_id::em);
    em << u"b";
    xhtml_element p = element(tag_id::p);
    p << u"a" << em << u"c";
    xhtml_element first_li = element(tag_id::li);
    first_li << u"d";
    xhtml_element ul = element(tag_id::ul);
    ul << first_li << element(tag_id::li);
    div << p << ul << element(tag_id::p) << u"e";
  }

  xhtml_element div = element(tag_id::div);
  const std::string order = "div p a em b c ul li d li p e";
};

TEST_F(DescendantMarkupIterator, OfADocumentWithoutChildrenIsOnTheRootAndAtTheEnd) {
  xhtml_doc doc(0);
  descendant_markup_iterator at = doc.descendant_begin();
  EXPECT_EQ(&*at, doc.root());
  EXPECT_TRUE(at.at_root());
  EXPECT_FALSE(at == doc.descendant_end());
  ++at;
  EXPECT_TRUE(at == doc.descendant_end());
  EXPECT_FALSE(at.at_root());
}

TEST_F(DescendantMarkupIterator, WalksInDocumentOrder) {
  xhtml_element body = element(tag_id::body);
  xhtml_element p = element(tag_id::p);
  p << u"text";
  body << p << element(tag_id::ul);
  EXPECT_EQ(walked(body), "body p text ul");
  EXPECT_EQ(walked(div), order);
}

TEST_F(DescendantMarkupIterator, WalksAWholeDocument) {
  xhtml_doc doc(1);
  doc.body()->append_copy(div);
  descendant_markup_iterator at = doc.descendant_begin();
  EXPECT_EQ(&*at, doc.root());
  ++at;
  EXPECT_EQ(at->node_kind(), 1);
  ++at;
  EXPECT_EQ(walked(at, doc.descendant_end()), "html head title body " + order);
  EXPECT_TRUE(at == doc.descendant_end());
}

TEST_F(DescendantMarkupIterator, ReturnsItsFields) {
  xhtml_doc doc(1);
  descendant_markup_iterator at = doc.descendant_begin();
  EXPECT_TRUE(at.current() == doc.root()->begin());
  EXPECT_EQ(at.root(), doc.root());
  EXPECT_TRUE(at.at_root());
  ++at;
  EXPECT_TRUE(at.current() == doc.root()->begin());
  EXPECT_EQ(at.root(), doc.root());
  EXPECT_FALSE(at.at_root());
  const descendant_markup_iterator end = doc.descendant_end();
  EXPECT_TRUE(end.current() == doc.root()->end());
  EXPECT_EQ(end.root(), doc.root());
  EXPECT_FALSE(end.at_root());
}

TEST_F(DescendantMarkupIterator, ItsCurrentPositionServesInsertions) {
  descendant_markup_iterator at = begin_of(div);
  go_to(at, "c");
  xhtml_markup& p = *div.begin();
  EXPECT_TRUE(p.insert_text(at.current(), u"x") != p.end());
  EXPECT_TRUE(is_tree(div, "div(p('a' em('b') 'x' 'c') ul(li('d') li) p 'e')"));
}

TEST_F(DescendantMarkupIterator, EqualsWhereNodeAndListAreByAnyWay) {
  descendant_markup_iterator with_way = begin_of(div);
  go_to(with_way, "b");
  const descendant_markup_iterator without_way(with_way.current(), &div, false);
  EXPECT_TRUE(with_way == without_way);
  const descendant_markup_iterator of_another_root(with_way.current(), nullptr, false);
  EXPECT_TRUE(with_way == of_another_root);
  descendant_markup_iterator at_root = begin_of(div);
  descendant_markup_iterator on_first = begin_of(div);
  ++on_first;
  EXPECT_TRUE(at_root.current() == on_first.current());
  EXPECT_FALSE(at_root == on_first);
  EXPECT_FALSE(begin_of(div) == end_of(div));
}

TEST_F(DescendantMarkupIterator, TheRootIsNotVisitedAgain) {
  descendant_markup_iterator at = begin_of(div);
  ++at;
  for (; at != end_of(div); ++at) EXPECT_NE(&*at, &div);
}

TEST_F(DescendantMarkupIterator, DoesNotLeaveItsRoot) {
  xhtml_markup& ul = *std::next(div.begin());
  EXPECT_EQ(walked(ul), "ul li d li");
  xhtml_markup& empty = *std::next(div.begin(), 2);
  EXPECT_EQ(walked(empty), "p");
}

TEST_F(DescendantMarkupIterator, ALeafIsARootToo) {
  xhtml_pcdata text(u"text");
  EXPECT_EQ(walked(text), "text");
  xhtml_comment comment(u"note");
  EXPECT_EQ(walked(comment), "note");
  xhtml_markup node;
  descendant_markup_iterator at = begin_of(node);
  EXPECT_EQ(&*at, &node);
  EXPECT_TRUE(++at == end_of(node));
}

TEST_F(DescendantMarkupIterator, ALastChildAtEachDepthLeadsUpManyLevelsAtOnce) {
  xhtml_element deep = element(tag_id::div);
  xhtml_markup* parent = &deep;
  for (int i = 0; i < 5; ++i) parent = append_element(*parent, tag_id::div).cell();
  *parent << u"x";
  deep << u"y";
  EXPECT_EQ(walked(deep), "div div div div div div x y");
}

TEST_F(DescendantMarkupIterator, NodesCanBeChanged) {
  for (descendant_markup_iterator at = begin_of(div); at != end_of(div); ++at)
    if (at->node_kind() == 5) *at << u"!";
  EXPECT_TRUE(is_tree(div, "div(p('a!' em('b!') 'c!') ul(li('d!') li) p 'e!')"));
}

TEST_F(DescendantMarkupIterator, WhatIsInsertedAfterIsWalked) {
  descendant_markup_iterator at = begin_of(div);
  go_to(at, "c");
  div.begin()->append_text(u"x");
  append_element(*std::next(div.begin(), 2), tag_id::em);
  EXPECT_EQ(walked(at, end_of(div)), "c x ul li d li p em e");
}

TEST_F(DescendantMarkupIterator, ItsEndLeadsToANodeOfNoKind) {
  EXPECT_EQ(end_of(div)->node_kind(), 0);
  EXPECT_EQ(end_of(div)->get_attribute(attr_id::id), u"");
  EXPECT_FALSE(end_of(div)->set_attribute(attr_id::id, u"x"));
  xhtml_doc doc(0);
  EXPECT_EQ(doc.descendant_end()->node_kind(), 0);
}

TEST_F(DescendantMarkupIterator, WrapsAroundInTheListOfTheRoot) {
  descendant_markup_iterator at = begin_of(div);
  walked(at, end_of(div));
  ++at;
  EXPECT_EQ(walked(at, end_of(div)), "p a em b c ul li d li p e");
}

TEST_F(DescendantMarkupIterator, AnInvalidOneLeadsToANodeOfNoKindAndStays) {
  descendant_markup_iterator invalid;
  EXPECT_EQ(invalid->node_kind(), 0);
  EXPECT_TRUE(++invalid == descendant_markup_iterator());
  EXPECT_EQ(invalid->node_kind(), 0);
  descendant_markup_iterator without_root(markup_iterator(), nullptr, true);
  EXPECT_EQ(without_root->node_kind(), 0);
  EXPECT_TRUE(++without_root == descendant_markup_iterator());
}

TEST_F(DescendantMarkupIterator, ACopyForgetsTheListsAbove) {
  descendant_markup_iterator at = begin_of(div);
  go_to(at, "b");
  descendant_markup_iterator copy(at);
  EXPECT_TRUE(copy == at);
  EXPECT_EQ(&*copy, &*at);
  EXPECT_EQ(copy.root(), &div);
  ++copy;
  const markup_iterator em = std::next(div.begin()->begin());
  EXPECT_TRUE(copy.current() == em->end()) << "it does not return upward";
  EXPECT_EQ(copy->node_kind(), 0);
  ++copy;
  EXPECT_EQ(name_of(*copy), "b") << "after the end comes the first child";
  EXPECT_EQ(walked(at, end_of(div)), "b c ul li d li p e") << "the other one does";
}

TEST_F(DescendantMarkupIterator, ACopyAtTheRootOrInItsListForgetsNothing) {
  const descendant_markup_iterator begin = begin_of(div);
  descendant_markup_iterator copy(begin);
  EXPECT_EQ(walked(copy, end_of(div)), order);
  descendant_markup_iterator at = begin_of(div);
  go_to(at, "ul");
  descendant_markup_iterator second(at);
  EXPECT_EQ(walked(second, end_of(div)), "ul li d li p e");
}

TEST_F(DescendantMarkupIterator, WhatWouldMoveCopies) {
  descendant_markup_iterator at = begin_of(div);
  go_to(at, "b");
  descendant_markup_iterator moved(std::move(at));
  ++moved;
  EXPECT_EQ(moved->node_kind(), 0);
  EXPECT_EQ(walked(at, end_of(div)), "b c ul li d li p e");  // NOLINT(bugprone-use-after-move)
}

TEST_F(DescendantMarkupIterator, AssignmentCopiesTheWay) {
  descendant_markup_iterator at = begin_of(div);
  go_to(at, "b");
  descendant_markup_iterator assigned;
  assigned = at;
  EXPECT_TRUE(assigned == at);
  EXPECT_EQ(assigned.root(), &div);
  EXPECT_EQ(walked(assigned, end_of(div)), "b c ul li d li p e");
  EXPECT_EQ(name_of(*at), "b");
  assigned = begin_of(div);
  EXPECT_EQ(walked(assigned, end_of(div)), order);
  descendant_markup_iterator& same = at;
  at = same;
  EXPECT_EQ(walked(at, end_of(div)), "b c ul li d li p e");
}

TEST_F(DescendantMarkupIterator, AssignmentOfACopyHasNoWay) {
  descendant_markup_iterator at = begin_of(div);
  go_to(at, "b");
  const descendant_markup_iterator copy(at);
  descendant_markup_iterator other = begin_of(div);
  go_to(other, "d");
  other = copy;
  ++other;
  EXPECT_EQ(other->node_kind(), 0) << "the old way is forgotten too";
}

TEST_F(DescendantMarkupIterator, WithoutMemoryItStaysWhereItIs) {
  descendant_markup_iterator at = begin_of(div);
  std::string names;
  std::size_t failures = 0;
  while (at != end_of(div)) {
    names += (names.empty() ? "" : " ") + name_of(*at);
    const xhtml_markup* const node = &*at;
    failures += fail_each_allocation([&] { ++at; }, [&] { EXPECT_EQ(&*at, node); });
  }
  EXPECT_EQ(names, order);
  EXPECT_GT(failures, 0u);
}

TEST_F(DescendantMarkupIterator, AnAssignmentWithoutMemoryChangesNothing) {
  descendant_markup_iterator at = begin_of(div);
  go_to(at, "b");
  descendant_markup_iterator target = begin_of(div);
  const std::size_t failures =
      fail_each_allocation([&] { target = at; }, [&] { EXPECT_TRUE(target == begin_of(div)); });
  EXPECT_GT(failures, 0u);
  EXPECT_EQ(walked(target, end_of(div)), "b c ul li d li p e");
}

TEST_F(DescendantMarkupIterator, ALongListAllocatesNothing) {
  xhtml_element list = element(tag_id::ul);
  for (int i = 0; i < 100; ++i) append_element(list, tag_id::li);
  const std::size_t before = allocation_calls();
  std::size_t nodes = 0;
  for (descendant_markup_iterator at = begin_of(list); at != end_of(list); ++at) ++nodes;
  EXPECT_EQ(nodes, 101u);
  EXPECT_EQ(allocation_calls(), before);
}

/// div(p#one(em#two) p#two ul(li#three) p#Two)
class FindById : public testing::Test {
 protected:
  FindById() {
    xhtml_element p = with_id(tag_id::p, u"one");
    p << with_id(tag_id::em, u"two");
    xhtml_element ul = element(tag_id::ul);
    ul << with_id(tag_id::li, u"three");
    doc.root()->append_copy(element(tag_id::div));
    *doc.root()->begin() << p << with_id(tag_id::p, u"two") << ul << with_id(tag_id::p, u"Two");
  }

  descendant_markup_iterator find(ustring_view id) {
    return find_by_id(doc.descendant_begin(), doc.descendant_end(), id);
  }

  xhtml_doc doc{0};
};

TEST_F(FindById, ReturnsTheFirstOfSeveralInDocumentOrder) {
  EXPECT_EQ(find(u"two")->tag(), tag_id::em);
  EXPECT_EQ(find(u"one")->tag(), tag_id::p);
  EXPECT_EQ(find(u"three")->tag(), tag_id::li);
}

TEST_F(FindById, EqualsTheEndIfThereIsNone) {
  EXPECT_TRUE(find(u"four") == doc.descendant_end());
  EXPECT_EQ(find(u"four")->node_kind(), 0);
  EXPECT_TRUE(find_by_id(doc.descendant_begin(), doc.descendant_begin(), u"one") ==
              doc.descendant_begin());
  xhtml_doc empty(0);
  EXPECT_TRUE(find_by_id(empty.descendant_begin(), empty.descendant_end(), u"x") ==
              empty.descendant_end());
}

TEST_F(FindById, ComparesTheWholeTextUnitByUnit) {
  EXPECT_EQ(&*find(u"Two"), &*std::prev(doc.root()->begin()->end()));
  for (const ustring id : {u"TWO", u"tw", u"twoo", u" two", u"two ", u"tw\u00F6"})
    EXPECT_TRUE(find(id) == doc.descendant_end()) << printable(id);
  const ustring zero(u"two\0", 4);
  EXPECT_TRUE(find(zero) == doc.descendant_end());
  doc.root()->begin()->begin()->set_attribute(attr_id::id, zero);
  EXPECT_EQ(find(zero)->tag(), tag_id::p);
  const ustring lone(1, char16_t(0xD800));
  doc.root()->begin()->begin()->set_attribute(attr_id::id, lone + u"\uFFFF");
  EXPECT_EQ(find(lone + u"\uFFFF")->tag(), tag_id::p);
  EXPECT_TRUE(find(lone) == doc.descendant_end());
}

TEST_F(FindById, AnEmptyIdMatchesTheFirstNode) {
  EXPECT_EQ(&*find(u""), doc.root());
  EXPECT_TRUE(find(u"").at_root());
  descendant_markup_iterator second = doc.descendant_begin();
  ++second;
  EXPECT_EQ(&*find_by_id(second, doc.descendant_end(), u""), &*doc.root()->begin());
  EXPECT_TRUE(find_by_id(doc.descendant_end(), doc.descendant_end(), u"") == doc.descendant_end());
}

TEST_F(FindById, FindsTheRootItself) {
  xhtml_element p = with_id(tag_id::p, u"root");
  EXPECT_EQ(&*find_by_id(begin_of(p), end_of(p), u"root"), &p);
}

TEST_F(FindById, StopsAtTheLastWithoutLookingAtIt) {
  descendant_markup_iterator last = doc.descendant_begin();
  while (last->get_attribute(attr_id::id) != u"two") ++last;
  EXPECT_TRUE(find_by_id(doc.descendant_begin(), last, u"two") == last);
  EXPECT_EQ(find_by_id(doc.descendant_begin(), last, u"one")->tag(), tag_id::p);
  EXPECT_TRUE(find_by_id(doc.descendant_begin(), last, u"three") == last);
}

TEST_F(FindById, TheResultHasForgottenTheListsAbove) {
  descendant_markup_iterator found = find(u"two");
  EXPECT_EQ(found->tag(), tag_id::em);
  ++found;
  EXPECT_EQ(found->node_kind(), 0);
  EXPECT_FALSE(found == doc.descendant_end());
}

// A search that starts at a copy, which can't come to the end of the walk.
TEST_F(FindById, EndsWhereTheWalkDoesNotComeToTheLast) {
  descendant_markup_iterator inside = doc.descendant_begin();
  while (inside->tag() != tag_id::em) ++inside;
  EXPECT_EQ(find_by_id(inside, doc.descendant_end(), u"two")->tag(), tag_id::em);
  EXPECT_TRUE(find_by_id(inside, doc.descendant_end(), u"three") == doc.descendant_end());
  EXPECT_TRUE(find_by_id(doc.descendant_end(), inside, u"one") == inside);
  EXPECT_TRUE(find_by_id(doc.descendant_end(), inside, u"") == inside);
  xhtml_doc other(1);
  EXPECT_TRUE(find_by_id(doc.descendant_begin(), other.descendant_end(), u"x") ==
              other.descendant_end());
  const descendant_markup_iterator invalid;
  EXPECT_TRUE(find_by_id(invalid, doc.descendant_end(), u"one") == doc.descendant_end());
  EXPECT_TRUE(find_by_id(doc.descendant_begin(), invalid, u"four") == invalid);
}

}  // namespace
}  // namespace test
