#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>

#include "tests/support/golden.h"
#include "xport/parser/character_reference.h"
#include "xport/parser/xhtml_parser.h"

namespace test {
namespace {

struct stock_row {
  ustring_view name;
  std::int16_t code;
};

constexpr stock_row stock[] = {
    {u"quot", 34},    {u"apos", 39},    {u"amp", 38},     {u"lt", 60},      {u"gt", 62},
    {u"nbsp", 160},   {u"iexcl", 161},  {u"curren", 164}, {u"cent", 162},   {u"pound", 163},
    {u"yen", 165},    {u"brvbar", 166}, {u"sect", 167},   {u"uml", 168},    {u"copy", 169},
    {u"ordf", 170},   {u"laquo", 171},  {u"not", 172},    {u"reg", 174},    {u"macr", 175},
    {u"deg", 176},    {u"plusmn", 177}, {u"sup2", 178},   {u"sup3", 179},   {u"acute", 180},
    {u"micro", 181},  {u"para", 182},   {u"middot", 183}, {u"cedil", 184},  {u"sup1", 185},
    {u"ordm", 186},   {u"raquo", 187},  {u"frac14", 188}, {u"frac12", 189}, {u"frac34", 190},
    {u"iquest", 191}, {u"times", 215},  {u"divide", 247}};

character_reference entry(reference_form form, char16 character, ustring_view name,
                          std::int16_t code) {
  return {form, character, ustring(name), code};
}

ustring spelling_of(const character_reference& reference) {
  ustring text;
  append_spelling(text, reference);
  return text;
}

TEST(ReferenceTable, HoldsThe38StockEntries) {
  references_by_code references;
  load_default_references(references);
  ASSERT_EQ(references.size(), 38u);
  for (const stock_row& row : stock) {
    const auto found = references.find(row.code);
    ASSERT_NE(found, references.end()) << row.code;
    EXPECT_TRUE(same_units(found->name, row.name));
    EXPECT_EQ(found->code, row.code);
    const bool is_blank = row.code == 160;
    EXPECT_EQ(found->character, is_blank ? u' ' : static_cast<char16>(row.code)) << row.code;
    EXPECT_EQ(found->form, is_blank ? reference_form::form_none : reference_form::form_named)
        << row.code;
  }
}

TEST(ReferenceTable, LacksTheSoftHyphenAndTheLetters) {
  references_by_code references;
  load_default_references(references);
  for (std::int16_t code = 0; code < 300; ++code) {
    if (code == 173 || (code >= 192 && code != 215 && code != 247) || code < 34) {
      EXPECT_EQ(references.count(code), 0u) << code;
    }
  }
}

TEST(ReferenceTable, LoadingKeepsAnEntryWhoseCodeIsThere) {
  references_by_code references;
  references.insert(entry(reference_form::form_numeric, u'x', u"mine", 169));
  load_default_references(references);
  EXPECT_EQ(references.size(), 38u);
  EXPECT_TRUE(same_units(references.find(std::int16_t{169})->name, u"mine"));
  load_default_references(references);
  EXPECT_EQ(references.size(), 38u);
}

TEST(ReferenceTable, AParserBeginsWithEmptySets) {
  const xhtml_parser parser(nullptr);
  EXPECT_TRUE(parser.references.empty());
  EXPECT_TRUE(parser.by_character.empty());
  EXPECT_TRUE(parser.by_code.empty());
  EXPECT_TRUE(parser.by_name.empty());
}

TEST(ReferenceTable, TheStockTableIsIndexedByCharacterAndCode) {
  xhtml_parser parser(nullptr);
  load_default_references(parser.references);
  rebuild_reference_indexes(parser);
  EXPECT_EQ(parser.references.size(), 38u);
  EXPECT_EQ(parser.by_name.size(), 0u);
  EXPECT_EQ(parser.by_character.size(), 37u);
  EXPECT_EQ(parser.by_code.size(), 37u);
  for (const stock_row& row : stock) {
    const bool takes_part = row.code != 160;
    EXPECT_EQ(parser.by_code.contains(row.code), takes_part) << row.code;
    EXPECT_EQ(parser.by_character.contains(static_cast<char16>(row.code)), takes_part) << row.code;
  }
  EXPECT_FALSE(parser.by_character.contains(u' '));
}

TEST(ReferenceTable, EachFormIsInTheSetsOfTheOtherSpellings) {
  xhtml_parser parser(nullptr);
  parser.references.insert(entry(reference_form::form_none, u'n', u"none", 1));
  parser.references.insert(entry(reference_form::form_character, u'c', u"character", 2));
  parser.references.insert(entry(reference_form::form_numeric, u'd', u"numeric", 3));
  parser.references.insert(entry(reference_form::form_named, u'e', u"named", 4));
  parser.references.insert(entry(reference_form{4}, u'f', u"unknown", 5));
  rebuild_reference_indexes(parser);
  ustring characters, names, codes;
  for (const character_reference& found : parser.by_character) characters += found.name + u" ";
  for (const character_reference& found : parser.by_code) codes += found.name + u" ";
  for (const character_reference& found : parser.by_name) names += found.name + u" ";
  EXPECT_TRUE(same_units(characters, u"numeric named "));
  EXPECT_TRUE(same_units(codes, u"character named "));
  EXPECT_TRUE(same_units(names, u"character numeric "));
}

TEST(ReferenceTable, OfEqualKeysTheLowestCodeIsUsed) {
  xhtml_parser parser(nullptr);
  parser.references.insert(entry(reference_form::form_named, u'x', u"high", 9));
  parser.references.insert(entry(reference_form::form_named, u'x', u"low", -9));
  parser.references.insert(entry(reference_form::form_numeric, u'y', u"name", 8));
  parser.references.insert(entry(reference_form::form_numeric, u'z', u"name", 7));
  rebuild_reference_indexes(parser);
  EXPECT_TRUE(same_units(parser.by_character.find(u'x')->name, u"low"));
  EXPECT_EQ(parser.by_character.size(), 3u);
  EXPECT_EQ(parser.by_name.size(), 1u);
  EXPECT_EQ(parser.by_name.find(ustring_view(u"name"))->code, 7);
}

TEST(ReferenceTable, RebuildingForgetsWhatWasThere) {
  xhtml_parser parser(nullptr);
  load_default_references(parser.references);
  rebuild_reference_indexes(parser);
  parser.references.clear();
  parser.references.insert(entry(reference_form::form_numeric, u'x', u"only", 5));
  rebuild_reference_indexes(parser);
  EXPECT_EQ(parser.by_character.size(), 1u);
  EXPECT_EQ(parser.by_name.size(), 1u);
  EXPECT_EQ(parser.by_code.size(), 0u);
  parser.references.clear();
  rebuild_reference_indexes(parser);
  EXPECT_TRUE(parser.by_character.empty());
  EXPECT_TRUE(parser.by_name.empty());
}

TEST(ReferenceTable, SetsAreOrderedByTheirKeys) {
  xhtml_parser parser(nullptr);
  std::int16_t code = 0;
  for (const char16_t* name : {u"b", u"ab", u"", u"a", u"\uFF00", u"B"}) {
    ++code;
    parser.references.insert(
        entry(reference_form::form_numeric, static_cast<char16>(0xFFF0 - code), name, code));
  }
  parser.references.insert(entry(reference_form::form_named, u'\0', u"negative", INT16_MIN));
  rebuild_reference_indexes(parser);
  ustring names;
  for (const character_reference& found : parser.by_name) names += found.name + u"|";
  EXPECT_TRUE(same_units(names, u"|B|a|ab|b|\uFF00|"));
  EXPECT_EQ(parser.references.begin()->code, INT16_MIN);
  EXPECT_EQ(parser.by_character.begin()->character, u'\0');
}

TEST(ReferenceSpelling, OfEachForm) {
  EXPECT_TRUE(same_units(spelling_of(entry(reference_form::form_none, u'x', u"name", 5)), u""));
  EXPECT_TRUE(
      same_units(spelling_of(entry(reference_form::form_character, u'x', u"name", 5)), u"x"));
  EXPECT_TRUE(
      same_units(spelling_of(entry(reference_form::form_numeric, u'x', u"name", 5)), u"&#5;"));
  EXPECT_TRUE(
      same_units(spelling_of(entry(reference_form::form_named, u'x', u"name", 5)), u"&name;"));
  EXPECT_TRUE(same_units(spelling_of(entry(reference_form{77}, u'x', u"name", 5)), u""));
}

TEST(ReferenceSpelling, OfNumbersAtTheEdges) {
  const auto numeric = [](std::int16_t code) {
    return spelling_of(entry(reference_form::form_numeric, u'x', u"", code));
  };
  EXPECT_TRUE(same_units(numeric(0), u"&#0;"));
  EXPECT_TRUE(same_units(numeric(-1), u"&#-1;"));
  EXPECT_TRUE(same_units(numeric(INT16_MAX), u"&#32767;"));
  EXPECT_TRUE(same_units(numeric(INT16_MIN), u"&#-32768;"));
  EXPECT_TRUE(same_units(spelling_of(entry(reference_form::form_named, u'x', u"", 1)), u"&;"));
}

TEST(ApplyReference, InsertsTheSpellingAndReturnsItsLastUnit) {
  const character_reference named = entry(reference_form::form_named, u'x', u"name", 5);
  ustring text = u"abcdef";
  EXPECT_EQ(apply_reference(text, 2, 3, named), 7u);
  EXPECT_TRUE(same_units(text, u"ab&name;f"));
  text = u"abcdef";
  EXPECT_EQ(apply_reference(text, 0, 6, named), 5u);
  EXPECT_TRUE(same_units(text, u"&name;"));
  text = u"abcdef";
  EXPECT_EQ(apply_reference(text, 6, 0, named), 11u);
  EXPECT_TRUE(same_units(text, u"abcdef&name;"));
}

TEST(ApplyReference, AnEmptySpellingReturnsTheUnitBefore) {
  const character_reference none = entry(reference_form::form_none, u'x', u"name", 5);
  ustring text = u"abcdef";
  EXPECT_EQ(apply_reference(text, 2, 3, none), 1u);
  EXPECT_TRUE(same_units(text, u"abf"));
  EXPECT_EQ(apply_reference(text, 0, 1, none), static_cast<std::size_t>(-1));
  EXPECT_TRUE(same_units(text, u"bf"));
}

}  // namespace
}  // namespace test
