#include "xport/markup/markup_iterator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <type_traits>

#include "tests/markup/tree_text.h"

namespace test {
namespace {

static_assert(std::has_virtual_destructor_v<const_markup_iterator>);
static_assert(std::has_virtual_destructor_v<markup_iterator>);
static_assert(std::is_convertible_v<markup_iterator, const_markup_iterator>);
static_assert(!std::is_convertible_v<const_markup_iterator, markup_iterator>);
static_assert(std::is_same_v<decltype(*markup_iterator()), xhtml_markup&>);
static_assert(std::is_same_v<decltype(*const_markup_iterator()), const xhtml_markup&>);
static_assert(std::is_same_v<decltype(std::declval<xhtml_markup&>().begin()), markup_iterator>);
static_assert(
    std::is_same_v<decltype(std::declval<const xhtml_markup&>().end()), const_markup_iterator>);
static_assert(std::is_base_of_v<std::bidirectional_iterator_tag,
                                std::iterator_traits<markup_iterator>::iterator_category>);

/// A div with the texts a, b and c.
class MarkupIterator : public ::testing::Test {
 protected:
  MarkupIterator() { div << u"a" << u"b" << u"c"; }

  xhtml_element div = element(tag_id::div);
  const xhtml_element& const_div = div;
};

template <class Iterator>
std::string forward(Iterator first, const Iterator& last) {
  std::string text;
  for (; first != last; ++first) text += text_of(*first);
  return text;
}

TEST_F(MarkupIterator, WrapsAroundForward) {
  markup_iterator at = div.begin();
  for (int round = 0; round < 3; ++round) {
    for (const char* letter : {"a", "b", "c"}) {
      EXPECT_EQ(text_of(*at), letter);
      EXPECT_EQ(at.owner(), &div);
      ++at;
    }
    EXPECT_TRUE(at == div.end());
    ++at;
    EXPECT_TRUE(at == div.begin());
  }
}

TEST_F(MarkupIterator, WrapsAroundBackward) {
  const_markup_iterator at = const_div.end();
  for (int round = 0; round < 3; ++round) {
    for (const char* letter : {"c", "b", "a"}) EXPECT_EQ(text_of(*--at), letter);
    EXPECT_TRUE(at == const_div.begin());
    EXPECT_TRUE(--at == const_div.end());
  }
}

TEST_F(MarkupIterator, ReturnsItsOldPositionFromAPostfixMove) {
  markup_iterator at = div.begin();
  EXPECT_EQ(text_of(*at++), "a");
  EXPECT_EQ(text_of(*at--), "b");
  EXPECT_EQ(text_of(*at), "a");
  const_markup_iterator const_at = const_div.begin();
  EXPECT_EQ(text_of(*const_at++), "a");
  EXPECT_EQ(text_of(*const_at--), "b");
  EXPECT_TRUE(const_at == const_div.begin());
}

TEST_F(MarkupIterator, IsEqualWhereNodeAndListAre) {
  xhtml_element other = element(tag_id::div);
  EXPECT_TRUE(div.begin() == div.begin());
  EXPECT_TRUE(div.begin() != div.end());
  EXPECT_TRUE(div.begin() != std::next(div.begin()));
  EXPECT_TRUE(div.end() != other.end());
  EXPECT_TRUE(other.begin() == other.end());
  EXPECT_TRUE(div.begin() == const_div.begin());
  EXPECT_TRUE(const_div.end() == div.end());
  EXPECT_TRUE(markup_iterator() == markup_iterator());
  EXPECT_TRUE(markup_iterator() == const_markup_iterator());
  EXPECT_TRUE(markup_iterator() != div.end());
}

TEST_F(MarkupIterator, ConvertsToTheConstForm) {
  const const_markup_iterator converted = std::next(div.begin());
  EXPECT_EQ(text_of(*converted), "b");
  EXPECT_EQ(converted->node_kind(), 5);
  EXPECT_EQ(converted.owner(), &div);
  const_markup_iterator assigned;
  assigned = div.begin();
  EXPECT_EQ(assigned.cell(), div.begin().cell());
}

TEST_F(MarkupIterator, IsCopiedAndAssigned) {
  markup_iterator first = div.begin();
  markup_iterator second(first);
  ++second;
  EXPECT_EQ(text_of(*first), "a");
  first = second;
  EXPECT_TRUE(first == second);
  *first << u"!";
  EXPECT_TRUE(is_tree(div, "div('a' 'b!' 'c')"));
}

TEST_F(MarkupIterator, ServesStandardAlgorithms) {
  const auto is_b = [](const xhtml_markup& node) { return text_of(node) == "b"; };
  EXPECT_EQ(std::distance(div.begin(), div.end()), 3);
  EXPECT_TRUE(std::find_if(div.begin(), div.end(), is_b) == std::next(div.begin()));
  EXPECT_EQ(std::count_if(const_div.begin(), const_div.end(), is_b), 1);
  EXPECT_EQ(text_of(*std::prev(div.end())), "c");
  EXPECT_TRUE(std::next(const_div.begin(), 3) == const_div.end());
  std::for_each(div.begin(), div.end(), [](xhtml_markup& node) { node << u"."; });
  EXPECT_EQ(forward(div.begin(), div.end()), "a.b.c.");
  const auto from_end = std::make_reverse_iterator(div.end());
  EXPECT_EQ(text_of(*from_end), "c.");
  EXPECT_EQ(forward(from_end, std::make_reverse_iterator(div.begin())), "c.b.a.");
}

TEST_F(MarkupIterator, OfAListOfOneMovesBetweenItAndTheEnd) {
  xhtml_element p = element(tag_id::p);
  p << u"one";
  markup_iterator at = p.begin();
  for (int i = 0; i < 3; ++i) {
    EXPECT_TRUE(++at == p.end());
    EXPECT_TRUE(++at == p.begin());
    EXPECT_TRUE(--at == p.end());
    EXPECT_TRUE(--at == p.begin());
  }
}

TEST_F(MarkupIterator, CanPointToAnyChild) {
  xhtml_markup& second = *std::next(div.begin());
  EXPECT_EQ(text_of(*++markup_iterator(&second, &div)), "c");
  EXPECT_EQ(text_of(*--const_markup_iterator(&second, &div)), "a");
}

// --- The reverse one ---

static_assert(std::has_virtual_destructor_v<reverse_markup_iterator>);
static_assert(std::is_base_of_v<const_markup_iterator, reverse_markup_iterator>);
static_assert(sizeof(reverse_markup_iterator) == sizeof(const_markup_iterator));
static_assert(std::is_same_v<decltype(*reverse_markup_iterator()), const xhtml_markup&>);
static_assert(!std::is_convertible_v<const_markup_iterator, reverse_markup_iterator>);

/// A div with the texts a, b and c.
class ReverseMarkupIterator : public ::testing::Test {
 protected:
  ReverseMarkupIterator() {
    div << u"a" << u"b" << u"c";
    first = reverse_markup_iterator(div.end());
    last = reverse_markup_iterator(div.begin());
  }

  xhtml_element div = element(tag_id::div);
  const xhtml_element& const_div = div;
  reverse_markup_iterator first;
  reverse_markup_iterator last;
};

TEST_F(ReverseMarkupIterator, WalksFromTheLastChildToTheFirst) {
  std::string text;
  for (reverse_markup_iterator at = first; at != last; ++at) text += text_of(*at);
  EXPECT_EQ(text, "cba");
}

TEST_F(ReverseMarkupIterator, PointsToTheChildBeforeItsBase) {
  reverse_markup_iterator at(std::next(div.begin()));
  EXPECT_EQ(text_of(*at), "a");
  EXPECT_TRUE(at.base() == std::next(const_div.begin()));
  EXPECT_EQ(text_of(*at.base()), "b");
  EXPECT_EQ(&*reverse_markup_iterator(const_div.end()), &*std::prev(const_div.end()));
}

TEST_F(ReverseMarkupIterator, AdvancingMovesTheBaseBack) {
  reverse_markup_iterator at = first;
  EXPECT_TRUE(at.base() == const_div.end());
  EXPECT_EQ(text_of(*++at), "b");
  EXPECT_TRUE(at.base() == std::next(const_div.begin(), 2));
  EXPECT_EQ(text_of(*--at), "c");
  EXPECT_TRUE(at == first);
}

TEST_F(ReverseMarkupIterator, ReturnsItsOldPositionFromAPostfixMove) {
  reverse_markup_iterator at = first;
  EXPECT_EQ(text_of(*at++), "c");
  EXPECT_EQ(text_of(*at--), "b");
  EXPECT_EQ(text_of(*at), "c");
}

TEST_F(ReverseMarkupIterator, WrapsAround) {
  reverse_markup_iterator at = first;
  for (int round = 0; round < 3; ++round) {
    for (const char* letter : {"c", "b", "a"}) EXPECT_EQ(text_of(*at++), letter);
    EXPECT_TRUE(at == last);
    EXPECT_EQ(at->node_kind(), 0);
    ++at;
    EXPECT_TRUE(at == first);
  }
}

TEST_F(ReverseMarkupIterator, ItsEndLeadsToANodeOfNoKind) {
  EXPECT_EQ(last->node_kind(), 0);
  EXPECT_EQ(last->tag(), tag_id::invalid_tag);
  EXPECT_EQ(reverse_markup_iterator()->node_kind(), 0);
  reverse_markup_iterator invalid;
  EXPECT_TRUE(++invalid == reverse_markup_iterator());
  EXPECT_TRUE(--invalid == reverse_markup_iterator());
}

TEST_F(ReverseMarkupIterator, OfAnEmptyListIsAtItsEnd) {
  const xhtml_element p = element(tag_id::p);
  EXPECT_TRUE(reverse_markup_iterator(p.end()) == reverse_markup_iterator(p.begin()));
  EXPECT_EQ(reverse_markup_iterator(p.end())->node_kind(), 0);
  const xhtml_pcdata text(u"text");
  EXPECT_TRUE(reverse_markup_iterator(text.end()) == reverse_markup_iterator(text.begin()));
  EXPECT_EQ(reverse_markup_iterator(text.end())->node_kind(), 0);
}

TEST_F(ReverseMarkupIterator, IsEqualWhereTheBasesAre) {
  xhtml_element other = element(tag_id::div);
  EXPECT_TRUE(first != last);
  EXPECT_TRUE(first == reverse_markup_iterator(const_div.end()));
  EXPECT_TRUE(first != reverse_markup_iterator(other.end()));
  EXPECT_TRUE(std::next(first, 3) == last);
}

TEST_F(ReverseMarkupIterator, ServesStandardAlgorithms) {
  EXPECT_EQ(std::distance(first, last), 3);
  const auto b =
      std::find_if(first, last, [](const xhtml_markup& node) { return text_of(node) == "b"; });
  EXPECT_TRUE(b == std::next(first));
  EXPECT_EQ(text_of(*std::prev(last)), "a");
}

TEST_F(ReverseMarkupIterator, StaysValidBesideInsertions) {
  const reverse_markup_iterator on_b(std::next(div.begin(), 2));
  div.insert_text(div.begin(), u"x");
  EXPECT_EQ(text_of(*on_b), "b");
  div.insert_text(on_b.base(), u"y");
  EXPECT_EQ(text_of(*on_b), "y") << "it is before its base";
  EXPECT_TRUE(is_tree(div, "div('x' 'a' 'b' 'y' 'c')"));
}

}  // namespace
}  // namespace test
