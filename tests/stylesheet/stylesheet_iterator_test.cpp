#include "xport/stylesheet/stylesheet_iterator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <type_traits>

#include "tests/support/golden.h"
#include "xport/stylesheet/xhtml_stylesheet.h"

namespace test {
namespace {

template <class Iterator>
constexpr bool is_random_access =
    std::is_same_v<typename std::iterator_traits<Iterator>::iterator_category,
                   std::random_access_iterator_tag>;

static_assert(is_random_access<stylesheet_iterator>);
static_assert(is_random_access<stylesheet_rule_iterator>);
static_assert(is_random_access<const_stylesheet_rule_iterator>);
static_assert(std::random_access_iterator<stylesheet_iterator>);
static_assert(std::random_access_iterator<stylesheet_rule_iterator>);
static_assert(std::has_virtual_destructor_v<stylesheet_iterator>);
static_assert(std::has_virtual_destructor_v<stylesheet_rule_iterator>);
static_assert(std::is_same_v<decltype(*stylesheet_iterator()), xhtml_stylesheet_item&>);
static_assert(std::is_same_v<decltype(*stylesheet_rule_iterator()), stylesheet_declaration&>);
static_assert(
    std::is_same_v<decltype(*const_stylesheet_rule_iterator()), const stylesheet_declaration&>);

// A rule whose values are "0" to "9".
xhtml_stylesheet_rule ten() {
  xhtml_stylesheet_rule rule(u"p");
  for (char16_t digit = u'0'; digit <= u'9'; ++digit)
    rule.push_declaration({css_property_id::color, ustring(1, digit)});
  return rule;
}

TEST(StylesheetIterator, Arithmetic) {
  xhtml_stylesheet_rule rule = ten();
  stylesheet_rule_iterator at = rule.declarations_begin();
  EXPECT_TRUE(same_units((at + 3)->value, u"3"));
  EXPECT_TRUE(same_units((4 + at)->value, u"4"));
  EXPECT_TRUE(same_units(at[5].value, u"5"));
  at += 7;
  EXPECT_TRUE(same_units(at->value, u"7"));
  at -= 2;
  EXPECT_TRUE(same_units((*at).value, u"5"));
  EXPECT_TRUE(same_units((at - 1)->value, u"4"));
  EXPECT_TRUE(same_units((at++)->value, u"5"));
  EXPECT_TRUE(same_units((at--)->value, u"6"));
  EXPECT_TRUE(same_units((++at)->value, u"6"));
  EXPECT_TRUE(same_units((--at)->value, u"5"));
  EXPECT_EQ(rule.declarations_end() - at, 5);
}

TEST(StylesheetIterator, Comparison) {
  xhtml_stylesheet_rule rule = ten();
  const stylesheet_rule_iterator first = rule.declarations_begin();
  const stylesheet_rule_iterator last = rule.declarations_end();
  EXPECT_TRUE(first == rule.declarations_begin());
  EXPECT_TRUE(first != last);
  EXPECT_TRUE(first < last && first <= last && last > first && last >= first);
  EXPECT_FALSE(last < first);
}

TEST(StylesheetIterator, AlgorithmsWork) {
  xhtml_stylesheet_rule rule = ten();
  std::reverse(rule.declarations_begin(), rule.declarations_end());
  EXPECT_TRUE(same_units(rule.declarations_begin()->value, u"9"));
  std::sort(rule.declarations_begin(), rule.declarations_end(),
            [](const auto& a, const auto& b) { return a.value < b.value; });
  EXPECT_TRUE(same_units(rule.declarations_begin()->value, u"0"));
}

TEST(StylesheetIterator, DeclarationsOfAConstantRule) {
  const xhtml_stylesheet_rule rule = ten();
  ustring all;
  for (auto at = rule.declarations_begin(); at != rule.declarations_end(); ++at) all += at->value;
  EXPECT_TRUE(same_units(all, u"0123456789"));
}

TEST(StylesheetIterator, ItemsOfASheet) {
  xhtml_stylesheet sheet;
  for (const char16_t* const text : {u"a", u"b", u"c"})
    sheet.add_item(xhtml_stylesheet_comment(text));
  const stylesheet_iterator first = sheet.begin();
  EXPECT_EQ(sheet.end() - first, 3);
  EXPECT_TRUE(same_units(first[2].item_text(), u"c"));
  EXPECT_TRUE(same_units((first + 1)->item_text(), u"b"));
  stylesheet_iterator copy = first;
  ++copy;
  EXPECT_TRUE(same_units((*copy).item_text(), u"b"));
  EXPECT_TRUE(same_units((*first).item_text(), u"a"));
}

}  // namespace
}  // namespace test
