#include "xport/markup/markup_iterator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <type_traits>

#include "tests/markup/tree_text.h"

namespace test {
namespace {

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

TEST_F(ReverseMarkupIterator, StandsOnTheChildBeforeItsBase) {
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
  EXPECT_EQ(text_of(*on_b), "y") << "it stands before its base";
  EXPECT_TRUE(is_tree(div, "div('x' 'a' 'b' 'y' 'c')"));
}

}  // namespace
}  // namespace test
