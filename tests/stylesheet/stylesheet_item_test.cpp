#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <vector>

#include "tests/stylesheet/sheet_text.h"
#include "tests/support/golden.h"

namespace test {
namespace {

const stylesheet_declaration red{css_property_id::color, u"red"};
const stylesheet_declaration blue{css_property_id::color, u"blue"};
const stylesheet_declaration top{css_property_id::top, u"1"};
const stylesheet_declaration left{css_property_id::left, u"2"};

std::ptrdiff_t count(xhtml_stylesheet_item& item) {
  return item.declarations_end() - item.declarations_begin();
}

ustring values(xhtml_stylesheet_item& item) {
  ustring text;
  for (auto entry = item.declarations_begin(); entry != item.declarations_end(); ++entry)
    text += entry->value + u' ';
  return text;
}

xhtml_stylesheet_rule rule_with(const std::vector<stylesheet_declaration>& declarations) {
  xhtml_stylesheet_rule rule(u"p");
  for (const stylesheet_declaration& declaration : declarations) rule.push_declaration(declaration);
  return rule;
}

TEST(StylesheetItem, TheBaseDoesNothing) {
  xhtml_stylesheet_item item;
  EXPECT_EQ(item.insert_declaration(item.declarations_end(), red), item.declarations_end());
  EXPECT_EQ(item.add_declaration(red), item.declarations_end());
  item.push_declaration(red);
  EXPECT_EQ(item.erase_declaration(item.declarations_end()), item.declarations_end());
  item.erase_property(css_property_id::color);
  EXPECT_EQ(count(item), 0);
  EXPECT_EQ(item.item_kind(), 0);
  EXPECT_EQ(item.selector_text().size(), 0u);
  EXPECT_EQ(item.item_text().size(), 0u);
  EXPECT_EQ(item.clone(), nullptr);
  EXPECT_EQ(text_of(item).size(), 0u);
}

TEST(StylesheetItem, ImportsAndCommentsHoldNoDeclarations) {
  xhtml_stylesheet_import import(u"a.css");
  xhtml_stylesheet_comment comment(u"c");
  for (xhtml_stylesheet_item* const item : {static_cast<xhtml_stylesheet_item*>(&import),
                                            static_cast<xhtml_stylesheet_item*>(&comment)}) {
    EXPECT_EQ(item->insert_declaration(item->declarations_end(), red), item->declarations_end());
    EXPECT_EQ(item->add_declaration(red), item->declarations_end());
    item->push_declaration(red);
    EXPECT_EQ(item->erase_declaration(item->declarations_end()), item->declarations_end());
    item->erase_property(css_property_id::color);
    EXPECT_EQ(count(*item), 0);
    EXPECT_EQ(item->selector_text().size(), 0u);
  }
}

TEST(StylesheetItem, KindsAndTexts) {
  const xhtml_stylesheet_rule rule(u"h1, h2");
  EXPECT_EQ(rule.item_kind(), 1);
  EXPECT_TRUE(same_units(rule.selector_text(), u"h1, h2"));
  EXPECT_TRUE(same_units(rule.item_text(), u"h1, h2"));
  const xhtml_stylesheet_comment comment(u" c ");
  EXPECT_EQ(comment.item_kind(), 2);
  EXPECT_TRUE(same_units(comment.item_text(), u" c "));
  const xhtml_stylesheet_import import(u"a.css");
  EXPECT_EQ(import.item_kind(), 3);
  EXPECT_TRUE(same_units(import.item_text(), u"a.css"));
}

TEST(StylesheetItem, ANewRuleIsEmptyAndHasIndent3) {
  xhtml_stylesheet_rule rule(u"");
  EXPECT_EQ(count(rule), 0);
  EXPECT_EQ(rule.indent, 3);
  EXPECT_EQ(rule.selector_text().size(), 0u);
}

TEST(StylesheetItem, DeclarationsKeepTheOrderInWhichTheyCame) {
  xhtml_stylesheet_rule rule(u"p");
  const stylesheet_rule_iterator first = rule.add_declaration(top);
  EXPECT_TRUE(same_units(first->value, u"1"));
  EXPECT_EQ(first, rule.declarations_begin());
  const stylesheet_rule_iterator second = rule.add_declaration(red);
  EXPECT_TRUE(same_units(second->value, u"red"));
  rule.push_declaration(left);
  rule.push_declaration(red);
  EXPECT_TRUE(same_units(values(rule), u"1 red 2 red "));
}

TEST(StylesheetItem, InsertionBeforeAPosition) {
  xhtml_stylesheet_rule rule(u"p");
  auto position = rule.insert_declaration(rule.declarations_end(), red);
  EXPECT_TRUE(same_units(position->value, u"red"));
  position = rule.insert_declaration(rule.declarations_begin(), top);
  EXPECT_EQ(position, rule.declarations_begin());
  position = rule.insert_declaration(rule.declarations_begin() + 1, left);
  EXPECT_TRUE(same_units(position->value, u"2"));
  EXPECT_EQ(position - rule.declarations_begin(), 1);
  EXPECT_TRUE(same_units(values(rule), u"1 2 red "));
}

TEST(StylesheetItem, AnEntryOfTheRuleItselfMayBeInserted) {
  xhtml_stylesheet_rule rule = rule_with({red, top});
  for (int i = 0; i < 20; ++i)
    rule.insert_declaration(rule.declarations_begin(), *(rule.declarations_end() - 1));
  EXPECT_EQ(count(rule), 22);
  for (int i = 0; i < 20; ++i) EXPECT_TRUE(same_units(rule.declarations_begin()[i].value, u"1"));
}

TEST(StylesheetItem, DeclarationsMayBeChangedInPlace) {
  xhtml_stylesheet_rule rule = rule_with({red, top});
  rule.declarations_begin()->value = u"green";
  rule.declarations_begin()[1] = blue;
  EXPECT_TRUE(same_units(values(rule), u"green blue "));
}

TEST(StylesheetItem, EraseOneDeclaration) {
  xhtml_stylesheet_rule rule = rule_with({red, top, left});
  const auto next = rule.erase_declaration(rule.declarations_begin() + 1);
  EXPECT_EQ(next - rule.declarations_begin(), 1);
  EXPECT_TRUE(same_units(next->value, u"2"));
  EXPECT_TRUE(same_units(values(rule), u"red 2 "));
  stylesheet_rule_iterator last = rule.erase_declaration(rule.declarations_begin() + 1);
  EXPECT_EQ(last, rule.declarations_end());
  last = rule.erase_declaration(rule.declarations_begin());
  EXPECT_EQ(last, rule.declarations_end());
  EXPECT_EQ(count(rule), 0);
}

TEST(StylesheetItem, EraseAProperty) {
  xhtml_stylesheet_rule rule = rule_with({top, red, left, blue});
  rule.erase_property(css_property_id::color);
  EXPECT_TRUE(same_units(values(rule), u"1 2 blue "));
  rule.erase_property(css_property_id::color);
  EXPECT_TRUE(same_units(values(rule), u"1 2 "));
  rule.erase_property(css_property_id::color);
  EXPECT_TRUE(same_units(values(rule), u"1 2 "));
}

TEST(StylesheetItem, EraseARange) {
  xhtml_stylesheet_rule rule = rule_with({top, red, left, blue});
  auto at = rule.declarations_begin() + 1;
  EXPECT_EQ(rule.erase_declarations(at, at), at);
  EXPECT_EQ(count(rule), 4);
  at = rule.erase_declarations(rule.declarations_begin() + 1, rule.declarations_begin() + 3);
  EXPECT_EQ(at - rule.declarations_begin(), 1);
  EXPECT_TRUE(same_units(values(rule), u"1 blue "));
  at = rule.erase_declarations(rule.declarations_begin(), rule.declarations_end());
  EXPECT_EQ(at, rule.declarations_end());
  EXPECT_EQ(count(rule), 0);
  EXPECT_EQ(rule.erase_declarations(rule.declarations_end(), rule.declarations_end()),
            rule.declarations_end());
}

TEST(StylesheetItem, ClonesAreDeep) {
  xhtml_stylesheet_rule rule = rule_with({red});
  rule.indent = 7;
  const std::unique_ptr<xhtml_stylesheet_item> copy(rule.clone());
  rule.push_declaration(top);
  rule.declarations_begin()->value = u"changed";
  EXPECT_EQ(copy->item_kind(), 1);
  EXPECT_TRUE(same_units(copy->item_text(), u"p"));
  EXPECT_TRUE(same_units(values(*copy), u"red "));
  EXPECT_EQ(dynamic_cast<xhtml_stylesheet_rule&>(*copy).indent, 7);
}

TEST(StylesheetItem, ClonesOfImportsAndComments) {
  const std::unique_ptr<xhtml_stylesheet_item> import(xhtml_stylesheet_import(u"a").clone());
  EXPECT_EQ(import->item_kind(), 3);
  EXPECT_TRUE(same_units(import->item_text(), u"a"));
  const std::unique_ptr<xhtml_stylesheet_item> comment(xhtml_stylesheet_comment(u"b").clone());
  EXPECT_EQ(comment->item_kind(), 2);
  EXPECT_TRUE(same_units(comment->item_text(), u"b"));
}

}  // namespace
}  // namespace test
