#include "xport/vocabulary/tag_table.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <set>
#include <sstream>
#include <string>

#include "tests/support/content_rows.h"
#include "tests/vocabulary/narrow.h"

namespace {

using Xport::attr_id;
using Xport::tag_id;
using Xport::tag_table;
using Xport::Tag_trait;
using numbers = std::set<int>;

const Tag_trait& record(int number) { return *tag_table[tag_id{number}]; }

/// The numbers of the elements whose names stand in `text` with blanks between them.
numbers tags(const std::string& text) {
  numbers found;
  std::istringstream stream(text);
  for (std::string name; stream >> name;)
    found.insert(
        name == "doc_root" ? 0 : static_cast<int>(Xport::xhtml_strict::tag_from_name(widen(name))));
  return found;
}

numbers members(const Xport::tag_set& set) {
  numbers found;
  for (int number = 0; number < 93; ++number)
    if (set.contains(tag_id{number})) found.insert(number);
  return found;
}

TEST(TagTable, HasARecordForEveryNumberFrom0To92) {
  EXPECT_EQ(tag_table.size(), 93u);
  for (int number = 0; number < 93; ++number) EXPECT_NE(tag_table[tag_id{number}], nullptr);
}

TEST(TagTable, HasNoRecordForOtherNumbers) {
  for (int outside :
       {-1, 93, 32767, 32768, 65536, 65536 + 26, std::numeric_limits<std::int32_t>::min(),
        std::numeric_limits<std::int32_t>::max()})
    EXPECT_EQ(tag_table[tag_id{outside}], nullptr) << outside;
}

TEST(TagTable, HoldsTheContentRules) {
  numbers seen;
  for (const test::content_row& row : test::content_rows)
    for (int number : tags(row.elements)) {
      const Tag_trait& trait = record(number);
      const std::string name = narrow(trait.name);
      EXPECT_TRUE(seen.insert(number).second) << name;
      EXPECT_EQ(trait.category_flags, row.category_flags) << name;
      EXPECT_EQ(trait.content_flags, row.content_flags) << name;
      EXPECT_EQ(members(trait.allowed_children), tags(row.allowed_children)) << name;
      EXPECT_EQ(members(trait.excluded_children), tags(row.excluded_children)) << name;
    }
  EXPECT_EQ(seen.size(), 78u) << "the 77 elements of Strict and the document root";
}

TEST(TagTable, NamesItsRecordsAsTheNameTableDoes) {
  int usable = 0;
  for (int number = 1; number < 92; ++number)
    if (record(number).id != tag_id::invalid_tag) {
      EXPECT_EQ(record(number).id, tag_id{number});
      EXPECT_EQ(Xport::xhtml_strict::tag_from_name(record(number).name), tag_id{number});
      ++usable;
    }
  EXPECT_EQ(usable, 77);
}

TEST(TagTable, HasARecordForTheDocumentRoot) {
  const Tag_trait& root = record(0);
  EXPECT_EQ(root.id, tag_id::doc_root);
  EXPECT_EQ(root.name, u"document root");
  EXPECT_EQ(root.category_flags, 1u);
  EXPECT_EQ(root.content_flags, 3u);
  EXPECT_EQ(members(root.allowed_children), numbers{43});
  EXPECT_TRUE(root.excluded_children.empty());
  EXPECT_TRUE(root.allowed_attributes.empty());
}

TEST(TagTable, HasARecordForTheInvalidTag) {
  const Tag_trait& invalid = record(92);
  EXPECT_EQ(invalid.id, tag_id::invalid_tag);
  EXPECT_EQ(invalid.name, u"invalid tag");
  EXPECT_EQ(invalid.category_flags, 0u);
  EXPECT_EQ(invalid.content_flags, 0u);
  EXPECT_TRUE(invalid.allowed_children.empty());
  EXPECT_TRUE(invalid.excluded_children.empty());
  EXPECT_TRUE(invalid.allowed_attributes.empty());
}

struct unusable_row {
  int number;
  const char16_t* table_name;
  std::uint32_t category_flags;
  std::uint32_t content_flags;
};

const unusable_row unusable_rows[] = {
    {5, u"applet", 1, 2},   {9, u"basefont", 0, 0}, {17, u"center", 0, 2},   {25, u"dir", 2, 2},
    {31, u"font", 1, 3},    {33, u"frame", 1, 3},   {34, u"frameset", 1, 3}, {45, u"iframe", 2, 2},
    {49, u"isindex", 0, 3}, {56, u"menu", 2, 1},    {58, u"noframes", 0, 0}, {68, u"s", 2, 2},
    {74, u"strike", 2, 2},  {89, u"u", 2, 2},
};

TEST(TagTable, LeavesElementsThatStrictLacksUnusable) {
  for (const unusable_row& row : unusable_rows) {
    EXPECT_EQ(Xport::xhtml_strict::tag_from_name(row.table_name), tag_id{row.number});
    const Tag_trait& trait = record(row.number);
    EXPECT_EQ(trait.id, tag_id::invalid_tag) << row.number;
    EXPECT_TRUE(trait.name.empty()) << row.number;
    EXPECT_TRUE(trait.allowed_children.empty()) << row.number;
    EXPECT_TRUE(trait.excluded_children.empty()) << row.number;
    EXPECT_TRUE(trait.allowed_attributes.empty()) << row.number;
  }
}

TEST(TagTable, LeavesUnusableRowsTheNumbersOfTheRowBefore) {
  for (const unusable_row& row : unusable_rows) {
    EXPECT_EQ(record(row.number).category_flags, row.category_flags) << row.number;
    EXPECT_EQ(record(row.number).content_flags, row.content_flags) << row.number;
  }
}

TEST(TagTable, HasTenVoidElementsThatCanBeUsed) {
  numbers void_elements;
  for (int number = 0; number < 92; ++number)
    if (record(number).id != tag_id::invalid_tag && record(number).content_flags == 0 &&
        record(number).allowed_children.empty())
      void_elements.insert(number);
  EXPECT_EQ(void_elements, tags("area base br col hr img input link meta param"));
}

TEST(TagTable, KeepsOneCategoryAndAKnownContentInEveryRecord) {
  for (int number = 0; number < 93; ++number) {
    EXPECT_LE(record(number).category_flags, 2u) << number;
    EXPECT_LE(record(number).content_flags, 4u) << number;
    EXPECT_TRUE(record(number).spare_ids.empty()) << number;
  }
}

TEST(TagTable, HoldsTheAttributesOfLinksAndBases) {
  const auto takes = [](tag_id tag, attr_id attribute) {
    return tag_table[tag]->allowed_attributes.contains(attribute);
  };
  EXPECT_TRUE(takes(tag_id::base, attr_id::href));
  EXPECT_FALSE(takes(tag_id::base, attr_id::target));
  EXPECT_EQ(tag_table[tag_id::base]->allowed_attributes.size(), 1u);
  EXPECT_TRUE(takes(tag_id::a, attr_id::target));
  EXPECT_TRUE(takes(tag_id::td, attr_id::char_attr));
  EXPECT_TRUE(takes(tag_id::pre, attr_id::xmlspaceL));
  EXPECT_FALSE(takes(tag_id::div, attr_id::not_found));
}

TEST(TagTable, IsSharedByHandles) {
  const Xport::Tag_trait_handle handle(tag_table[tag_id::div]);
  const Xport::Tag_trait_handle copy = handle;
  EXPECT_EQ(handle.get(), tag_table[tag_id::div]);
  EXPECT_EQ(copy.get(), handle.get());
  EXPECT_EQ(Xport::Tag_trait_handle(tag_table[tag_id{93}]).get(), nullptr);
}

}  // namespace
