// Where copies, texts and adopted nodes land, and which positions are refused.

#include <gtest/gtest.h>

#include <iterator>
#include <memory>
#include <string>

#include "tests/markup/tree_text.h"
#include "xport/markup/xhtml_doc.h"

namespace test {
namespace {

/// A div with the texts of the letters.
xhtml_element letters(const std::string& text) {
  xhtml_element div = element(tag_id::div);
  for (const char letter : text) div.append_text(ustring(1, static_cast<char16_t>(letter)));
  return div;
}

/// The letters of its texts, an element counting as its name.
std::string read(const xhtml_markup& div) {
  EXPECT_TRUE(is_intact(div));
  std::string text;
  for (const xhtml_markup& child : div)
    text += child.node_kind() == 5 ? text_of(child) : printable(child.tag_name());
  return text;
}

markup_iterator at(xhtml_markup& node, int index) { return std::next(node.begin(), index); }

TEST(ElementInsertion, IsRightBeforeThePosition) {
  for (int index = 0; index <= 3; ++index) {
    xhtml_element div = letters("abc");
    const markup_iterator result = div.insert_text(at(div, index), u"X");
    EXPECT_EQ(read(div), std::string("abc").insert(static_cast<std::size_t>(index), "X"));
    EXPECT_TRUE(result == at(div, index));
    EXPECT_EQ(result->parent(), &div);
  }
}

TEST(ElementInsertion, PutsACopyIntoTheTree) {
  xhtml_element div = element(tag_id::div);
  xhtml_element p(tag_id::p, u"first", u"lead");
  const markup_iterator result = div.append_copy(p << u"text");
  EXPECT_NE(&*result, &p);
  EXPECT_EQ(p.parent(), nullptr);
  EXPECT_EQ(result->parent(), &div);
  EXPECT_EQ(result->get_attribute(attr_id::id), u"first");
  p << u"more";
  p.set_attribute(attr_id::id, u"second");
  EXPECT_TRUE(is_tree(div, "div(p('text'))"));
  EXPECT_EQ(result->get_attribute(attr_id::id), u"first");
  *result << u"own";
  EXPECT_TRUE(is_tree(p, "p('text' 'more')"));
}

TEST(ElementInsertion, AtTheFrontReversesTheOrder) {
  xhtml_element div = element(tag_id::div);
  div.push_front_text(u"c");
  div.push_front_copy(xhtml_pcdata(u"b"));
  const markup_iterator first = div.push_front_text(u"a");
  EXPECT_TRUE(first == div.begin());
  EXPECT_EQ(read(div), "abc");
}

TEST(ElementInsertion, LeavesOtherPositionsValid) {
  xhtml_element div = letters("abc");
  const markup_iterator first = div.begin();
  const markup_iterator second = at(div, 1);
  const markup_iterator end = div.end();
  for (int i = 0; i < 10; ++i) div.insert_text(second, u"x");
  div.push_front_text(u"y");
  EXPECT_EQ(text_of(*first), "a");
  EXPECT_EQ(text_of(*second), "b");
  EXPECT_TRUE(std::next(second, 2) == end);
  EXPECT_EQ(read(div), "yaxxxxxxxxxxbc");
}

TEST(ElementInsertion, RefusesPositionsOfOtherNodes) {
  xhtml_element div = letters("ab");
  xhtml_element other = letters("xy");
  xhtml_element empty = element(tag_id::div);
  div.append_copy(letters("in"));
  xhtml_markup& inner = *at(div, 2);
  xhtml_pcdata leaf(u"leaf");
  const const_markup_iterator foreign[] = {
      other.begin(), at(other, 1), other.end(), empty.begin(),     empty.end(),       leaf.begin(),
      inner.begin(), inner.end(),  {},          markup_iterator(), (*div.end()).end()};
  for (const const_markup_iterator& position : foreign) {
    EXPECT_TRUE(div.insert_copy(position, xhtml_pcdata(u"t")) == div.end());
    EXPECT_TRUE(div.insert_copy(position, element(tag_id::p)) == div.end());
    EXPECT_TRUE(div.insert_text(position, u"t") == div.end());
    div.insert_range(position, other.begin(), at(other, 1));
    div.insert_copies(position, 1, element(tag_id::p));
  }
  EXPECT_EQ(read(div), "abdiv");
  EXPECT_EQ(read(other), "xy");
  EXPECT_EQ(read(inner), "in");
  EXPECT_EQ(read(empty), "");
}

TEST(ElementInsertion, RefusesPositionsOnNodesThatArentItsChildren) {
  xhtml_element div = letters("ab");
  xhtml_element other = letters("xy");
  const xhtml_pcdata loose(u"loose");
  for (const xhtml_markup* const node :
       {static_cast<const xhtml_markup*>(other.begin().cell()),
        static_cast<const xhtml_markup*>(&loose), static_cast<const xhtml_markup*>(&div)}) {
    EXPECT_TRUE(div.insert_text(const_markup_iterator(node, &div), u"t") == div.end());
    EXPECT_TRUE(div.insert_copy(const_markup_iterator(node, &div), loose) == div.end());
  }
  EXPECT_EQ(read(div), "ab");
  EXPECT_EQ(read(other), "xy");
}

TEST(ElementInsertion, RefusesPositionsOfTheSourceOfACopy) {
  xhtml_element source = letters("ab");
  const std::unique_ptr<xhtml_markup> copy(source.clone());
  EXPECT_TRUE(copy->insert_text(source.begin(), u"x") == copy->end());
  EXPECT_TRUE(copy->insert_text(source.end(), u"x") == copy->end());
  EXPECT_EQ(read(*copy), "ab");
}

TEST(ElementInsertion, OfAnElementIntoItselfCopiesWhatItWas) {
  xhtml_element div = letters("a");
  div.append_copy(div);
  EXPECT_TRUE(is_tree(div, "div('a' div('a'))"));
  div.push_front_copy(div);
  EXPECT_TRUE(is_tree(div, "div(div('a' div('a')) 'a' div('a'))"));
  div.begin()->append_copy(div);
  EXPECT_TRUE(
      is_tree(div, "div(div('a' div('a') div(div('a' div('a')) 'a' div('a'))) 'a' div('a'))"));
}

TEST(ElementInsertion, OfAChildCopiesIt) {
  xhtml_element div = letters("ab");
  div.insert_copy(div.begin(), *at(div, 1));
  div << *div.begin() << *div.begin();
  EXPECT_EQ(read(div), "babbb");
}

TEST(ElementRange, KeepsItsOrder) {
  const xhtml_element source = letters("xyz");
  for (int index = 0; index <= 2; ++index) {
    xhtml_element div = letters("ab");
    div.insert_range(at(div, index), source.begin(), source.end());
    EXPECT_EQ(read(div), std::string("ab").insert(static_cast<std::size_t>(index), "xyz"));
  }
}

TEST(ElementRange, MayBeAnyPartOfAList) {
  const xhtml_element source = letters("wxyz");
  for (int first = 0; first <= 4; ++first)
    for (int last = first; last <= 4; ++last) {
      xhtml_element div = letters("ab");
      div.insert_range(at(div, 1), std::next(source.begin(), first),
                       std::next(source.begin(), last));
      const std::string part = std::string("wxyz").substr(static_cast<std::size_t>(first),
                                                          static_cast<std::size_t>(last - first));
      EXPECT_EQ(read(div), "a" + part + "b");
    }
}

TEST(ElementRange, ContinuesAtTheFrontAfterARefusedCopy) {
  xhtml_element source = letters("xy");
  xhtml_element list = element(tag_id::ul);
  source.append_copy(element(tag_id::p));
  source << u"z";
  xhtml_element target = element(tag_id::p);  // accepts no p
  target << u"a" << u"b";
  target.insert_range(at(target, 1), source.begin(), source.end());
  EXPECT_EQ(read(target), "zaxyb");

  target.clear_children();
  target << u"a" << u"b";
  source << u"!" << element(tag_id::p) << u"?";
  target.insert_range(target.end(), source.begin(), source.end());
  EXPECT_EQ(read(target), "?z!abxy");
  list.insert_range(list.end(), source.begin(), source.end());
  EXPECT_EQ(read(list), "");
}

TEST(ElementRange, AtAForeignPositionLosesItsFirstCopyOnly) {
  const xhtml_element source = letters("xyz");
  const xhtml_element other = letters("o");
  xhtml_element div = letters("ab");
  div.insert_range(other.end(), source.begin(), source.end());
  EXPECT_EQ(read(div), "yzab");
}

TEST(ElementRange, MayBeTheElementsOwnChildren) {
  for (int index = 0; index <= 3; ++index) {
    xhtml_element div = letters("abc");
    div.insert_range(at(div, index), div.begin(), div.end());
    EXPECT_EQ(read(div), std::string("abc").insert(static_cast<std::size_t>(index), "abc"));
  }
  xhtml_element div = letters("abc");
  div.insert_range(at(div, 2), at(div, 1), div.end());
  EXPECT_EQ(read(div), "abbcc");
}

TEST(ElementRange, MayBeTheChildrenOfAChild) {
  xhtml_element div = letters("a");
  const markup_iterator inner = div.append_copy(letters("xy"));
  div.insert_range(inner, inner->begin(), inner->end());
  EXPECT_EQ(read(div), "axydiv");
  // The child itself comes last and is copied with what was added to it by then.
  inner->insert_range(inner->begin(), div.begin(), div.end());
  EXPECT_TRUE(is_tree(div, "div('a' 'x' 'y' div('a' 'x' 'y' div('a' 'x' 'y' 'x' 'y') 'x' 'y'))"));
}

TEST(ElementRange, WithoutNodesChangesNothing) {
  xhtml_element div = letters("ab");
  const xhtml_element source = letters("xy");
  div.insert_range(div.begin(), source.begin(), source.begin());
  div.insert_range(div.begin(), source.end(), source.end());
  div.insert_range(div.begin(), const_markup_iterator(), const_markup_iterator());
  EXPECT_EQ(read(div), "ab");
}

// Positions in two lists are no range, and a range ends at its list's end at the latest.
TEST(ElementRange, ThatIsNoneDoesNoHarm) {
  xhtml_element div = letters("ab");
  const xhtml_element source = letters("xyz");
  const xhtml_element other = letters("o");
  div.insert_range(div.end(), source.begin(), other.end());
  div.insert_range(div.end(), source.begin(), const_markup_iterator());
  div.insert_range(div.end(), const_markup_iterator(), source.end());
  EXPECT_EQ(read(div), "ab");
  div.insert_range(div.end(), std::next(source.begin(), 2), source.begin());
  EXPECT_EQ(read(div), "abz") << "up to the end of the list";
  div.insert_range(div.end(), source.end(), source.begin());
  EXPECT_EQ(read(div), "abz");
}

TEST(ElementCopies, AreAsManyAsRequested) {
  for (const std::size_t count : {0u, 1u, 2u, 100u}) {
    xhtml_element div = letters("ab");
    div.insert_copies(at(div, 1), count, xhtml_pcdata(u"x"));
    EXPECT_EQ(read(div), "a" + std::string(count, 'x') + "b");
  }
}

TEST(ElementCopies, ThatAreRefusedChangeNothing) {
  xhtml_element div = letters("ab");
  div.insert_copies(div.begin(), 5, element(tag_id::li));
  EXPECT_EQ(read(div), "ab");
}

TEST(ElementCopies, AtAForeignPositionLoseTheFirstOnly) {
  xhtml_element div = letters("ab");
  const xhtml_element other = letters("");
  div.insert_copies(other.end(), 3, xhtml_pcdata(u"x"));
  EXPECT_EQ(read(div), "xxab");
}

TEST(ElementCopies, StopWhereTheOrderRuleStopsThem) {
  xhtml_element head = element(tag_id::head);
  head.insert_copies(head.end(), 3, element(tag_id::title));
  EXPECT_TRUE(is_tree(head, "head(title)"));
}

TEST(ElementCopies, OfTheElementItselfHoldTheOnesBefore) {
  xhtml_element div = element(tag_id::div);
  div.insert_copies(div.end(), 3, div);
  EXPECT_TRUE(is_tree(div, "div(div div(div) div(div div(div)))"));
}

TEST(ElementAdoption, InsertsTheNodeItself) {
  xhtml_element div = letters("a");
  auto* const p = new xhtml_element(tag_id::p, u"", u"");
  p->append_text(u"x");
  const markup_iterator result = div.adopt_child(p);
  EXPECT_EQ(&*result, p);
  EXPECT_EQ(p->parent(), &div);
  EXPECT_TRUE(++markup_iterator(result) == div.end());
  EXPECT_TRUE(is_tree(div, "div('a' p('x'))"));
}

TEST(ElementAdoption, LeavesARefusedNodeWithTheCaller) {
  xhtml_element list = element(tag_id::ul);
  const auto p = std::make_unique<xhtml_element>(tag_id::p, u"", u"");
  EXPECT_TRUE(list.adopt_child(p.get()) == list.end());
  EXPECT_TRUE(list.adopt_child(nullptr) == list.end());
  EXPECT_EQ(p->parent(), nullptr);
  EXPECT_TRUE(is_tree(list, "ul"));
}

TEST(ElementAdoption, WorksInADocumentsTree) {
  xhtml_doc doc(1);
  xhtml_markup& body = *doc.body();
  auto* const div = new xhtml_element(tag_id::div, u"", u"");
  div->append_copy(letters("ab"));
  body.append_copy(element(tag_id::p));
  const markup_iterator adopted = body.adopt_child(div);
  body.append_copy(element(tag_id::p));
  adopted->append_copy(element(tag_id::ul))->append_copy(element(tag_id::li));
  adopted->adopt_child(new xhtml_pcdata(ustring(500, u'x')));
  adopted->begin()->adopt_child(new xhtml_element(tag_id::em, u"", u""));
  const auto p = std::make_unique<xhtml_element>(tag_id::li, u"", u"");
  EXPECT_TRUE(body.adopt_child(p.get()) == body.end());
  EXPECT_TRUE(
      is_tree(body, "body(p div(div('a' 'b' em) ul(li) '" + std::string(500, 'x') + "') p)"));
}

TEST(ElementAdoption, IsUndoneByClearing) {
  xhtml_doc doc(1);
  auto& body = *doc.body()->as_element();
  for (int i = 0; i < 3; ++i) {
    body.append_copy(letters("ab"));
    body.adopt_child(new xhtml_element(letters("cd")))->append_copy(letters("ef"));
  }
  body.clear_children();
  EXPECT_TRUE(is_tree(*doc.root(), "document root(!! html(head(title) body))"));
  body.append_copy(letters("gh"));
  EXPECT_TRUE(is_tree(body, "body(div('g' 'h'))"));
}

TEST(ElementClearing, LeavesAttributesAndStyle) {
  xhtml_element div(tag_id::div, u"name", u"kind");
  div.set_style(css_property_id::color, u"red");
  div << letters("ab") << u"text";
  div.clear_children();
  div.clear_children();
  EXPECT_TRUE(is_tree(div, "div"));
  EXPECT_EQ(div.get_attribute(attr_id::id), u"name");
  EXPECT_EQ(div.get_attribute(attr_id::class_), u"kind");
  EXPECT_EQ(div.get_style(css_property_id::color), u"red");
  div << u"again";
  EXPECT_TRUE(is_tree(div, "div('again')"));
}

}  // namespace
}  // namespace test
