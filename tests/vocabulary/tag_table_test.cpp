#include "xport/vocabulary/tag_table.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <set>
#include <sstream>
#include <string>

#include "tests/support/names.h"
#include "tests/support/vocabulary_numbers.h"
#include "tests/vocabulary/narrow.h"

namespace test {
namespace {

using numbers = std::set<int>;

const Tag_trait& record(int number) { return *tag_table[tag_id{number}]; }

/// The numbers of the elements that `text` names, with blanks between the names.
numbers tags(const std::string& text) {
  numbers found;
  std::istringstream stream(text);
  for (std::string name; stream >> name;)
    found.insert(name == "doc_root" ? 0
                                    : static_cast<int>(xhtml_strict::tag_from_name(widen(name))));
  return found;
}

numbers members(const tag_set& set) {
  numbers found;
  for (int number = 0; number < first_number_without_record; ++number)
    if (set.contains(tag_id{number})) found.insert(number);
  return found;
}

TEST(TagTable, HasARecordForEveryElementAndTheInvalidTag) {
  EXPECT_EQ(static_cast<int>(tag_table.size()), first_number_without_record);
  for (int number = 0; number < first_number_without_record; ++number)
    EXPECT_NE(tag_table[tag_id{number}], nullptr);
}

TEST(TagTable, HasNoRecordForOtherNumbers) {
  for (int outside :
       {-1, first_number_without_record, 32767, 32768, 65536, 65536 + 26,
        std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()})
    EXPECT_EQ(tag_table[tag_id{outside}], nullptr) << outside;
}

/// The content rules of elements that are alike. Names have blanks between them.
struct content_row {
  const char* elements;
  std::uint32_t category_flags;  ///< 1 block, 2 inline, 0 neither
  std::uint32_t content_flags;   ///< 1 blocks, 2 inline elements and text, 4 text
  const char* allowed_children;
  const char* excluded_children;
};

/// The rules of the 77 elements of XHTML 1.0 Strict and of the document root.
const content_row content_rows[] = {
    {"area base col link meta param", 0, 0, "", ""},
    {"head", 0, 0, "base link meta script style title", ""},
    {"html", 0, 0, "body head", ""},
    {"colgroup", 0, 0, "col", ""},
    {"optgroup", 0, 0, "option", ""},
    {"tr", 0, 0, "td th", ""},
    {"tbody tfoot thead", 0, 0, "tr", ""},
    {"body", 0, 1, "del ins script", ""},
    {"caption dt legend", 0, 2, "", ""},
    {"dd del ins li td th", 0, 3, "", ""},
    {"option style title", 0, 4, "", ""},
    {"hr", 1, 0, "", ""},
    {"table", 1, 0, "caption col colgroup tbody tfoot thead tr", ""},
    {"dl", 1, 0, "dd dt", ""},
    {"ol ul", 1, 0, "li", ""},
    {"blockquote", 1, 1, "script", ""},
    {"h1 h2 h3 h4 h5 h6 p", 1, 2, "", ""},
    {"pre", 1, 2, "", "big img object small sub sup"},
    {"address", 1, 2, "p", ""},
    {"div noscript", 1, 3, "", ""},
    {"form", 1, 3, "", "form"},
    {"doc_root", 1, 3, "html", ""},
    {"fieldset", 1, 3, "legend", ""},
    {"br img input", 2, 0, "", ""},
    {"select", 2, 0, "optgroup option", ""},
    {"map", 2, 1, "area", ""},
    {"abbr acronym b bdo big cite code dfn em i kbd q samp small span strong sub sup tt var", 2, 2,
     "", ""},
    {"a", 2, 2, "", "a"},
    {"label", 2, 2, "", "label"},
    {"button", 2, 3, "", "a button fieldset form input label select textarea"},
    {"object", 2, 3, "param", ""},
    {"script textarea", 2, 4, "", ""},
};

TEST(TagTable, HoldsTheContentRules) {
  numbers seen;
  for (const content_row& row : content_rows)
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
  for (int number = 1; number < invalid_number; ++number)
    if (record(number).id != tag_id::invalid_tag) {
      EXPECT_EQ(record(number).id, tag_id{number});
      EXPECT_EQ(xhtml_strict::tag_from_name(record(number).name), tag_id{number});
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
  const Tag_trait& invalid = record(invalid_number);
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
    EXPECT_EQ(xhtml_strict::tag_from_name(row.table_name), tag_id{row.number});
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
  for (int number = 0; number < invalid_number; ++number)
    if (record(number).id != tag_id::invalid_tag && record(number).content_flags == 0 &&
        record(number).allowed_children.empty())
      void_elements.insert(number);
  EXPECT_EQ(void_elements, tags("area base br col hr img input link meta param"));
}

TEST(TagTable, KeepsOneCategoryAndAKnownContentInEveryRecord) {
  for (int number = 0; number < first_number_without_record; ++number) {
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

// The writer copies them, so they must be the whole tags.
TEST(TagTable, HasTheTagsOfEachName) {
  for (int number = 0; number < first_number_without_record; ++number) {
    const ustring name(record(number).name);
    EXPECT_EQ(record(number).start_run.text(), u"<" + name) << number;
    EXPECT_EQ(record(number).end_run.text(), u"</" + name + u">") << number;
  }
}

TEST(TagTable, IsSharedByHandles) {
  const Tag_trait_handle handle(tag_table[tag_id::div]);
  const Tag_trait_handle copy = handle;
  EXPECT_EQ(handle.get(), tag_table[tag_id::div]);
  EXPECT_EQ(copy.get(), handle.get());
}

TEST(TagTable, AHandleWithoutARecordHasTheRulesOfInvalidTag) {
  const Tag_trait_handle handle(tag_table[tag_id{first_number_without_record}]);
  EXPECT_EQ(handle.get(), nullptr);
  EXPECT_EQ(handle.rules().id, tag_id::invalid_tag);
  EXPECT_EQ(handle.rules().name, u"invalid tag");
  EXPECT_TRUE(handle.rules().allowed_attributes.empty());
  EXPECT_TRUE(takes_nothing(handle.rules()));
  EXPECT_FALSE(takes_text(handle.rules()));
}

}  // namespace
}  // namespace test
