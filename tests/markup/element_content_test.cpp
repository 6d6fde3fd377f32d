// Which elements accept which nodes: all pairs of rows, and all other kinds of nodes.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "tests/markup/content_model.h"
#include "tests/markup/tree_text.h"
#include "tests/support/vocabulary_numbers.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/vocabulary/tag_table.h"

namespace test {
namespace {

/// Calls `visit` with the numbers of each pair of rows, "invalid tag" included.
template <class Visit>
void for_each_pair(Visit visit) {
  for (int parent = 0; parent <= invalid_number; ++parent)
    for (int child = 0; child <= invalid_number; ++child) visit(parent, child);
}

std::string pair_name(int parent, int child) {
  return row_name(child) + " (" + std::to_string(child) + ") in " + row_name(parent) + " (" +
         std::to_string(parent) + ")";
}

/// Expects that an element of the number `parent` accepts `node`, in every way
/// that makes a copy, exactly if `taken`.
void expect_insertions(int parent, const xhtml_markup& node, bool taken) {
  using insertion = markup_iterator (*)(xhtml_element&, const xhtml_markup&);
  const insertion insertions[] = {
      [](xhtml_element& into, const xhtml_markup& n) { return into.append_copy(n); },
      [](xhtml_element& into, const xhtml_markup& n) { return into.insert_copy(into.end(), n); },
      [](xhtml_element& into, const xhtml_markup& n) { return into.push_back_copy(n); },
      [](xhtml_element& into, const xhtml_markup& n) { return into.push_front_copy(n); },
      [](xhtml_element& into, const xhtml_markup& n) { return (into << n).begin(); }};
  for (const insertion insert : insertions) {
    xhtml_element into = element(parent);
    const auto at = insert(into, node);
    ASSERT_EQ(at == into.end(), !taken);
    ASSERT_EQ(into.begin() == into.end(), !taken);
    if (!taken) continue;
    ASSERT_TRUE(at == into.begin());
    ASSERT_NE(&*at, &node);
    ASSERT_EQ(at->parent(), &into);
    ASSERT_EQ(at->tag(), node.tag());
    ASSERT_EQ(at->node_kind(), node.node_kind());
  }
}

TEST(ElementContent, IsAskedByCanContain) {
  int taken = 0;
  for_each_pair([&](int parent, int child) {
    const bool expected = may_contain(parent, child);
    ASSERT_EQ(element(parent).can_contain(element(child)), expected) << pair_name(parent, child);
    taken += expected;
  });
  EXPECT_GT(taken, 1000);
}

TEST(ElementContent, IsHeldByEveryInsertionOfACopy) {
  for_each_pair([](int parent, int child) {
    SCOPED_TRACE(pair_name(parent, child));
    expect_insertions(parent, element(child), may_contain(parent, child));
  });
}

TEST(ElementContent, IsHeldByAdoption) {
  for_each_pair([](int parent, int child) {
    xhtml_element into = element(parent);
    auto node = std::make_unique<xhtml_element>(tag_id{child}, u"", u"");
    const auto at = into.adopt_child(node.get());
    const bool taken = at != into.end();
    ASSERT_EQ(taken, may_contain(parent, child)) << pair_name(parent, child);
    ASSERT_EQ(node->parent(), taken ? &into : nullptr);
    xhtml_markup* const made = taken ? node.release() : nullptr;
    ASSERT_EQ(at.cell(), made);
  });
}

TEST(ElementContent, IsHeldByElementsMadeInPlace) {
  for_each_pair([](int parent, int child) {
    xhtml_element into = element(parent);
    const auto at = into.append_element(tag_id{child});
    ASSERT_EQ(at != into.end(), may_contain(parent, child)) << pair_name(parent, child);
    if (at == into.end()) return;
    ASSERT_EQ(at->tag(), tag_id{child});
    ASSERT_EQ(at->parent(), &into);
  });
}

TEST(ElementContent, IsOnePureFunctionOfTheRecords) {
  for_each_pair([](int parent, int child) {
    const bool taken = Xport::takes_element(*tag_table[tag_id{parent}], *tag_table[tag_id{child}]);
    ASSERT_EQ(taken, may_contain(parent, child)) << pair_name(parent, child);
  });
}

TEST(ElementContent, KnowsElementsThatAcceptNothing) {
  for (int number = 0; number <= invalid_number; ++number)
    EXPECT_EQ(element(number).is_empty_element(), may_contain_nothing(number)) << number;
}

TEST(ElementContent, AcceptsTextWhereTheRuleSaysSo) {
  for (int number = 0; number <= invalid_number; ++number) {
    const bool taken = may_contain_text(number);
    EXPECT_EQ(element(number).accepts_text(), taken) << number;
    EXPECT_EQ(element(number).can_contain(xhtml_pcdata(u"a")), taken) << number;
    expect_insertions(number, xhtml_pcdata(u"a"), taken);
  }
}

TEST(ElementContent, AcceptsTextByEveryOperationOnTexts) {
  for (int number = 0; number <= invalid_number; ++number) {
    SCOPED_TRACE(number);
    const bool taken = may_contain_text(number);
    xhtml_element into = element(number);
    EXPECT_EQ(into.append_text(u"b") == into.end(), !taken);
    EXPECT_EQ(into.push_back_text(u"c") == into.end(), !taken);
    EXPECT_EQ(into.push_front_text(u"a") == into.end(), !taken);
    EXPECT_EQ(into.insert_text(into.end(), u"d") == into.end(), !taken);
    EXPECT_EQ(&(into << u"e"), &into);
    EXPECT_TRUE(is_tree(into, printable(into.tag_name()) + (taken ? "('a' 'b' 'c' 'd' 'e')" : "")));
  }
}

TEST(ElementContent, AcceptsCommentsAndInstructionsEverywhere) {
  for (int number = 0; number <= invalid_number; ++number) {
    SCOPED_TRACE(number);
    EXPECT_TRUE(element(number).can_contain(xhtml_comment(u"a")));
    EXPECT_TRUE(element(number).can_contain(xhtml_processing_instruction(u"a")));
    expect_insertions(number, xhtml_comment(u"a"), true);
    expect_insertions(number, xhtml_processing_instruction(u"a"), true);
  }
}

TEST(ElementContent, AcceptsADoctypeInTheDocumentRootOnly) {
  for (int number = 0; number <= invalid_number; ++number) {
    SCOPED_TRACE(number);
    EXPECT_EQ(element(number).can_contain(xhtml_doctype_declaration()), number == 0);
    expect_insertions(number, xhtml_doctype_declaration(), number == 0);
  }
}

TEST(ElementContent, AcceptsNothingThatIsNoContent) {
  for (int number = 0; number <= invalid_number; ++number) {
    SCOPED_TRACE(number);
    expect_insertions(number, xhtml_end_tag(u"</p>"), false);
    expect_insertions(number, xhtml_markup(), false);
    expect_insertions(number, element(first_number_without_record), false);
    expect_insertions(number, element(-1), false);
    EXPECT_FALSE(element(number).can_contain(xhtml_end_tag(u"</p>")));
    EXPECT_FALSE(element(number).can_contain(xhtml_markup()));
    EXPECT_FALSE(element(number).can_contain(element(first_number_without_record)));
  }
}

TEST(ElementContent, LooksAtTheParentOnlyAndNotAbove) {
  xhtml_element a = element(tag_id::a);
  EXPECT_TRUE(a.append_copy(element(tag_id::a)) == a.end());
  auto span = a.append_copy(element(tag_id::span));
  span->append_copy(element(tag_id::a));
  EXPECT_TRUE(is_tree(a, "a(span(a))"));
}

struct pair_case {
  tag_id parent;
  tag_id child;
  bool taken;
};

TEST(ElementContent, AcceptsWhatIsKnownToBeAccepted) {
  using enum tag_id;
  const pair_case pairs[] = {{p, p, false},
                             {div, p, true},
                             {ul, p, false},
                             {ul, li, true},
                             {div, li, false},
                             {a, a, false},
                             {a, span, true},
                             {span, a, true},
                             {label, label, false},
                             {form, form, false},
                             {div, form, true},
                             {button, form, false},
                             {pre, img, false},
                             {p, img, true},
                             {body, ins, true},
                             {div, ins, false},
                             {address, p, true},
                             {head, object, false},
                             {map, script, false},
                             {map, area, true},
                             {doc_root, html, true},
                             {doc_root, p, true},
                             {doc_root, doc_root, true}};
  for (const pair_case& c : pairs)
    EXPECT_EQ(element(c.parent).can_contain(element(c.child)), c.taken)
        << static_cast<int>(c.child) << " in " << static_cast<int>(c.parent);
  for (const tag_id tag : {ul, table, tr, body, blockquote, map})
    EXPECT_FALSE(element(tag).accepts_text()) << static_cast<int>(tag);
  for (const tag_id tag : {form, noscript, script, title, option})
    EXPECT_TRUE(element(tag).accepts_text()) << static_cast<int>(tag);
}

}  // namespace
}  // namespace test
