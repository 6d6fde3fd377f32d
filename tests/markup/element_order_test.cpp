// The rules of order: one head before one body in html, one title in head.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/markup/tree_text.h"

namespace test {
namespace {

/// A node by a letter: h head, b body, t title, m meta, c comment.
std::unique_ptr<xhtml_markup> node(char letter) {
  switch (letter) {
    case 'h':
      return std::make_unique<xhtml_element>(tag_id::head, u"", u"");
    case 'b':
      return std::make_unique<xhtml_element>(tag_id::body, u"", u"");
    case 't':
      return std::make_unique<xhtml_element>(tag_id::title, u"", u"");
    case 'm':
      return std::make_unique<xhtml_element>(tag_id::meta, u"", u"");
    default:
      return std::make_unique<xhtml_comment>(u"c");
  }
}

char letter_of(const xhtml_markup& child) {
  switch (child.tag()) {
    case tag_id::head:
      return 'h';
    case tag_id::body:
      return 'b';
    case tag_id::title:
      return 't';
    case tag_id::meta:
      return 'm';
    default:
      return 'c';
  }
}

std::string letters_of(const xhtml_markup& parent) {
  std::string letters;
  for (const xhtml_markup& child : parent) letters += letter_of(child);
  return letters;
}

/// An element with the children of the letters, added by adoption, which
/// doesn't check their order.
std::unique_ptr<xhtml_element> filled(tag_id tag, const std::string& letters) {
  auto parent = std::make_unique<xhtml_element>(tag, u"", u"");
  for (const char letter : letters) {
    xhtml_markup* const child = node(letter).release();
    EXPECT_TRUE(parent->adopt_child(child) != parent->end());
  }
  return parent;
}

/// Whether the rule allows `child` in html before the child number `at`.
bool html_takes(const std::string& children, std::size_t at, char child) {
  if (child != 'h' && child != 'b') return true;
  if (children.find(child) != std::string::npos) return false;
  if (child == 'b') return children.find('h', at) == std::string::npos;
  return children.substr(0, at).find('b') == std::string::npos;
}

bool head_takes(const std::string& children, std::size_t, char child) {
  return child != 't' || children.find('t') == std::string::npos;
}

/// Calls `visit` with every text of 0 to 4 of the letters.
template <class Visit>
void for_each_list(const std::string& alphabet, Visit visit) {
  std::vector<std::string> lists = {""};
  for (std::size_t next = 0; next < lists.size(); ++next) {
    const std::string list = lists[next];
    visit(list);
    if (list.size() < 4)
      for (const char letter : alphabet) lists.push_back(list + letter);
  }
}

/// Inserts each letter at each position of each list and compares with `takes`.
template <class Takes>
void try_all(tag_id tag, const std::string& alphabet, Takes takes) {
  for_each_list(alphabet, [&](const std::string& children) {
    for (std::size_t at = 0; at <= children.size(); ++at)
      for (const char child : alphabet) {
        SCOPED_TRACE(std::string(1, child) + " into " + children + " at " + std::to_string(at));
        const auto parent = filled(tag, children);
        const auto position = std::next(parent->begin(), static_cast<std::ptrdiff_t>(at));
        const markup_iterator result = parent->insert_copy(position, *node(child));
        std::string expected = children;
        if (takes(children, at, child)) {
          expected.insert(at, 1, child);
          ASSERT_TRUE(std::next(parent->begin(), static_cast<std::ptrdiff_t>(at)) == result);
        } else {
          ASSERT_TRUE(result == parent->end());
        }
        ASSERT_EQ(letters_of(*parent), expected);
        ASSERT_TRUE(is_intact(*parent));
      }
  });
}

TEST(ElementOrder, OfHtmlHoldsInEveryCombination) { try_all(tag_id::html, "hbc", html_takes); }

TEST(ElementOrder, OfHeadHoldsInEveryCombination) { try_all(tag_id::head, "tmc", head_takes); }

TEST(ElementOrder, HoldsForTheOtherInsertions) {
  for_each_list("hbc", [](const std::string& children) {
    for (const char child : {'h', 'b', 'c'}) {
      SCOPED_TRACE(std::string(1, child) + " into " + children);
      const bool at_start = html_takes(children, 0, child);
      const bool at_end = html_takes(children, children.size(), child);
      ASSERT_EQ(letters_of(*filled(tag_id::html, children) << *node(child)),
                at_end ? children + child : children);
      auto parent = filled(tag_id::html, children);
      parent->push_front_copy(*node(child));
      ASSERT_EQ(letters_of(*parent), at_start ? child + children : children);
      parent = filled(tag_id::html, children);
      parent->push_back_copy(*node(child));
      ASSERT_EQ(letters_of(*parent), at_end ? children + child : children);
      if (child == 'c') continue;
      parent = filled(tag_id::html, children);
      const auto made = parent->append_element(child == 'h' ? tag_id::head : tag_id::body);
      ASSERT_EQ(made != parent->end(), at_end);
      ASSERT_EQ(letters_of(*parent), at_end ? children + child : children);
    }
  });
}

TEST(ElementOrder, OfHeadHoldsForElementsMadeInPlace) {
  xhtml_element head = element(tag_id::head);
  EXPECT_TRUE(head.append_element(tag_id::title) != head.end());
  EXPECT_TRUE(head.append_element(tag_id::title) == head.end());
  EXPECT_TRUE(head.append_element(tag_id::meta) != head.end());
  EXPECT_TRUE(is_tree(head, "head(title meta)"));
}

TEST(ElementOrder, IsNoMatterOfAdoption) {
  EXPECT_EQ(letters_of(*filled(tag_id::html, "bhcbh")), "bhcbh");
  EXPECT_EQ(letters_of(*filled(tag_id::head, "tmtt")), "tmtt");
}

TEST(ElementOrder, IsNoMatterOfOtherElements) {
  xhtml_element table = element(tag_id::table);
  for (const tag_id tag :
       {tag_id::tr, tag_id::caption, tag_id::thead, tag_id::caption, tag_id::col})
    table.append_copy(element(tag));
  EXPECT_TRUE(is_tree(table, "table(tr caption thead caption col)"));
}

// The children of a copy stay as they are.
TEST(ElementOrder, IsNoMatterOfWhatACopyHoldsAlready) {
  const auto head = filled(tag_id::head, "tt");
  xhtml_element html = element(tag_id::html);
  EXPECT_TRUE(html.append_copy(*head) != html.end());
  EXPECT_TRUE(is_tree(html, "html(head(title title))"));
}

}  // namespace
}  // namespace test
