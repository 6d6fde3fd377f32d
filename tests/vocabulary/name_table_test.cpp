#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <limits>
#include <set>
#include <string>
#include <vector>

#include "tests/support/names.h"
#include "tests/support/vocabulary_numbers.h"
#include "tests/vocabulary/narrow.h"
#include "xport/vocabulary/tag_table.h"
#include "xport/vocabulary/xhtml_strict.h"

namespace test {
namespace {

std::vector<std::string> tag_names() {
  std::vector<std::string> names;
  for (const auto& row : Xport::detail::tag_rows) names.push_back(narrow(row.name));
  return names;
}

std::vector<std::string> attribute_names() {
  std::vector<std::string> names;
  for (const auto& row : Xport::detail::attribute_rows) names.push_back(narrow(row.name));
  return names;
}

std::vector<std::string> css_property_names() {
  std::vector<std::string> names;
  for (const auto& row : Xport::detail::css_property_rows) names.push_back(narrow(row.name));
  return names;
}

std::size_t longest(const std::vector<std::string>& names) {
  std::size_t length = 0;
  for (const std::string& name : names) length = std::max(length, name.size());
  return length;
}

/// Whether rows `first` to `last` ascend strictly.
bool ascend(const std::vector<std::string>& names, int first, int last) {
  return std::adjacent_find(names.begin() + first, names.begin() + last + 1,
                            [](const auto& a, const auto& b) { return !(a < b); }) ==
         names.begin() + last + 1;
}

std::string attribute(int number) { return narrow(xhtml_strict::attribute_name(attr_id{number})); }

std::string property(int number) {
  return narrow(xhtml_strict::css_property_name(css_property_id{number}));
}

TEST(NameTables, HaveTheirNumberOfRows) {
  EXPECT_EQ(tag_names().size(), 92u);
  EXPECT_EQ(element_count, 92u);
  EXPECT_EQ(tag_record_count, 93u);
  EXPECT_EQ(attribute_names().size(), 244u);
  EXPECT_EQ(attribute_count, 244u);
  EXPECT_EQ(css_property_names().size(), 102u);
  EXPECT_EQ(css_property_count, 102u);
}

TEST(NameTables, HaveRowsOfLimitedLength) {
  EXPECT_EQ(longest(tag_names()), 10u);
  EXPECT_EQ(longest(attribute_names()), 27u);
  EXPECT_EQ(longest(css_property_names()), 21u);
}

TEST(NameTables, HoldNoNameTwice) {
  for (const auto& names : {tag_names(), attribute_names(), css_property_names()})
    EXPECT_EQ(std::set<std::string>(names.begin(), names.end()).size(), names.size());
}

TEST(NameTables, AreSortedInTheirSections) {
  EXPECT_TRUE(ascend(tag_names(), 1, 91));
  EXPECT_TRUE(ascend(attribute_names(), 0, 152));
  EXPECT_TRUE(ascend(attribute_names(), 153, 162));
  EXPECT_TRUE(ascend(attribute_names(), 163, 240));
  EXPECT_TRUE(ascend(css_property_names(), 0, 93));
}

TEST(NameTables, HoldPrintableAsciiOnly) {
  for (const auto& names : {tag_names(), attribute_names(), css_property_names()})
    for (const std::string& name : names)
      for (char unit : name) EXPECT_TRUE(unit >= ' ' && unit < 0x7f) << name;
}

TEST(NameTables, EndEachRowWithAZeroUnit) {
  for (int i = 0; i < attribute_end; ++i) {
    const ustring_view name = xhtml_strict::attribute_name(attr_id{i});
    EXPECT_EQ(name.data()[name.size()], u'\0') << narrow(name);
  }
  for (int i = 0; i < property_end; ++i) {
    const ustring_view name = xhtml_strict::css_property_name(css_property_id{i});
    EXPECT_EQ(name.data()[name.size()], u'\0') << narrow(name);
  }
}

TEST(NameTables, GiveAnEmptyNameForNumbersOutside) {
  constexpr int lowest = std::numeric_limits<std::int32_t>::min();
  constexpr int highest = std::numeric_limits<std::int32_t>::max();
  for (int outside : {-1, attribute_end, 1000, lowest, highest})
    EXPECT_TRUE(xhtml_strict::attribute_name(attr_id{outside}).empty()) << outside;
  for (int outside : {-1, property_end, 1000, lowest, highest})
    EXPECT_TRUE(xhtml_strict::css_property_name(css_property_id{outside}).empty()) << outside;
}

TEST(NameTables, NumberTheAttributes) {
  EXPECT_EQ(attribute(0), "abbr");
  EXPECT_EQ(attribute(3), "accept-charset");
  EXPECT_EQ(attribute(26), "char-attr");
  EXPECT_EQ(attribute(31), "class");
  EXPECT_EQ(attribute(60), "for");
  EXPECT_EQ(attribute(69), "href");
  EXPECT_EQ(attribute(73), "id");
  EXPECT_EQ(attribute(92), "name");
  EXPECT_EQ(attribute(124), "src");
  EXPECT_EQ(attribute(127), "style");
  EXPECT_EQ(attribute(132), "title");
  EXPECT_EQ(attribute(152), "z-index");
  EXPECT_EQ(attribute(153), "DOMActivate");
  EXPECT_EQ(attribute(159), "DOMNodeInsertedIntoDocument");
  EXPECT_EQ(attribute(162), "DOMSubtreeModified");
  EXPECT_EQ(attribute(163), "onabort");
  EXPECT_EQ(attribute(180), "onclick");
  EXPECT_EQ(attribute(240), "onunload");
  EXPECT_EQ(attribute(241), "xml:lang");
  EXPECT_EQ(attribute(242), "xmlns");
  EXPECT_EQ(attribute(243), "xmlspaceL");
}

TEST(NameTables, NumberTheProperties) {
  EXPECT_EQ(property(0), "background");
  EXPECT_EQ(property(1), "background-attachment");
  EXPECT_EQ(property(32), "color");
  EXPECT_EQ(property(40), "float");
  EXPECT_EQ(property(57), "margin");
  EXPECT_EQ(property(91), "width");
  EXPECT_EQ(property(93), "z-index");
  EXPECT_EQ(property(94), "marks");
  EXPECT_EQ(property(95), "orphans");
  EXPECT_EQ(property(96), "page");
  EXPECT_EQ(property(97), "page-break-after");
  EXPECT_EQ(property(98), "page-break-before");
  EXPECT_EQ(property(99), "page-break-inside");
  EXPECT_EQ(property(100), "size");
  EXPECT_EQ(property(101), "widowsL");
}

TEST(NameTables, NumberTheElements) {
  const std::vector<std::string> names = tag_names();
  EXPECT_EQ(names[0], "doc root");
  EXPECT_EQ(names[1], "a");
  EXPECT_EQ(names[12], "blockquote");
  EXPECT_EQ(names[13], "body");
  EXPECT_EQ(names[17], "center");
  EXPECT_EQ(names[26], "div");
  EXPECT_EQ(names[41], "head");
  EXPECT_EQ(names[43], "html");
  EXPECT_EQ(names[64], "p");
  EXPECT_EQ(names[79], "table");
  EXPECT_EQ(names[86], "title");
  EXPECT_EQ(names[91], "var");
}

TEST(NameTables, NameTheEnumeratorsAfterTheRows) {
  EXPECT_EQ(static_cast<int>(tag_id::doc_root), 0);
  EXPECT_EQ(static_cast<int>(tag_id::h1), 35);
  EXPECT_EQ(static_cast<int>(tag_id::var), 91);
  EXPECT_EQ(invalid_number, 92);
  EXPECT_EQ(first_number_without_record, 93);
  EXPECT_EQ(static_cast<int>(attr_id::accept_charset), 3);
  EXPECT_EQ(static_cast<int>(attr_id::class_), 31);
  EXPECT_EQ(static_cast<int>(attr_id::for_), 60);
  EXPECT_EQ(static_cast<int>(attr_id::xml_lang), 241);
  EXPECT_EQ(static_cast<int>(attr_id::not_found), -1);
  EXPECT_EQ(static_cast<int>(css_property_id::background_color), 2);
  EXPECT_EQ(static_cast<int>(css_property_id::float_), 40);
  EXPECT_EQ(static_cast<int>(css_property_id::not_found), -1);
}

}  // namespace
}  // namespace test
