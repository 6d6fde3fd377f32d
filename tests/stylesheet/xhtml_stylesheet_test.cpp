#include "xport/stylesheet/xhtml_stylesheet.h"

#include <gtest/gtest.h>

#include <memory>

#include "tests/stylesheet/sheet_text.h"
#include "tests/support/golden.h"

namespace test {
namespace {

TEST(XhtmlStylesheet, StartsEmpty) {
  const xhtml_stylesheet sheet;
  EXPECT_EQ(sheet.size(), 0u);
  EXPECT_EQ(sheet.begin(), sheet.end());
}

TEST(XhtmlStylesheet, KeepsTheOrder) {
  xhtml_stylesheet sheet;
  sheet.add_item(xhtml_stylesheet_comment(u"c"));
  sheet.add_item(xhtml_stylesheet_import(u"i"));
  sheet.add_item(xhtml_stylesheet_rule(u"r"));
  ustring all;
  for (const xhtml_stylesheet_item& item : sheet) all += item.item_text();
  EXPECT_TRUE(same_units(all, u"cir"));
}

TEST(XhtmlStylesheet, AddItemReturnsThePositionOfTheCopy) {
  xhtml_stylesheet sheet;
  for (int i = 0; i < 100; ++i) {
    const xhtml_stylesheet_rule rule(ustring(1, static_cast<char16_t>(u'!' + i)));
    const stylesheet_iterator added = sheet.add_item(rule);
    ASSERT_EQ(added, sheet.end() - 1);
    EXPECT_NE(&*added, &rule);
    EXPECT_TRUE(same_units(added->item_text(), rule.item_text()));
  }
}

TEST(XhtmlStylesheet, TheSameRuleTwiceIsTwoItems) {
  xhtml_stylesheet sheet;
  const xhtml_stylesheet_rule rule(u"p");
  const xhtml_stylesheet_item* const first = &*sheet.add_item(rule);
  const xhtml_stylesheet_item* const second = &*sheet.add_item(rule);
  EXPECT_EQ(sheet.size(), 2u);
  EXPECT_NE(first, second);
}

TEST(XhtmlStylesheet, ARuleMayBeChangedBetweenTwoCalls) {
  xhtml_stylesheet sheet;
  xhtml_stylesheet_rule rule(u"p");
  rule.push_declaration({css_property_id::color, u"red"});
  sheet.add_item(rule);
  rule.erase_property(css_property_id::color);
  rule.push_declaration({css_property_id::top, u"0"});
  sheet.add_item(rule);
  EXPECT_TRUE(same_units(text_of(sheet.begin()[0]), u"p { \n   color: red;\n}\n\n"));
  EXPECT_TRUE(same_units(text_of(sheet.begin()[1]), u"p { \n   top: 0;\n}\n\n"));
}

TEST(XhtmlStylesheet, ItsOwnItemMayBeAdded) {
  xhtml_stylesheet sheet;
  sheet.add_item(xhtml_stylesheet_rule(u"p"));
  for (int i = 0; i < 20; ++i) sheet.add_item(*sheet.begin());
  EXPECT_EQ(sheet.size(), 21u);
  EXPECT_TRUE(same_units(sheet.begin()[20].item_text(), u"p"));
}

TEST(XhtmlStylesheet, TheItemInTheSheetMayBeChanged) {
  xhtml_stylesheet sheet;
  const stylesheet_iterator added = sheet.add_item(xhtml_stylesheet_rule(u"p"));
  added->push_declaration({css_property_id::color, u"red"});
  EXPECT_TRUE(same_units(text_of(*sheet.begin()), u"p { \n   color: red;\n}\n\n"));
}

TEST(XhtmlStylesheet, ANeutralItemIsNotHeld) {
  xhtml_stylesheet sheet;
  EXPECT_EQ(sheet.add_item(xhtml_stylesheet_item()), sheet.end());
  EXPECT_EQ(sheet.size(), 0u);
  sheet.add_item(xhtml_stylesheet_comment(u"c"));
  EXPECT_EQ(sheet.add_item(xhtml_stylesheet_item()), sheet.end());
  EXPECT_EQ(sheet.size(), 1u);
}

// Counts its copies that are alive.
class counted_item : public xhtml_stylesheet_item {
 public:
  explicit counted_item(int& alive) : alive_(&alive) { ++*alive_; }
  counted_item(const counted_item& other) : xhtml_stylesheet_item(other), alive_(other.alive_) {
    ++*alive_;
  }
  counted_item& operator=(const counted_item&) = delete;
  ~counted_item() override { --*alive_; }
  xhtml_stylesheet_item* clone() const override { return new counted_item(*this); }

 private:
  int* alive_;
};

TEST(XhtmlStylesheet, DeletesItsItemsAndLeavesTheCallers) {
  int alive = 0;
  const counted_item item(alive);
  {
    xhtml_stylesheet sheet;
    sheet.add_item(item);
    sheet.add_item(item);
    EXPECT_EQ(alive, 3);
  }
  EXPECT_EQ(alive, 1);
}

}  // namespace
}  // namespace test
