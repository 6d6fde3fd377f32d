#include <gtest/gtest.h>

#include <clocale>
#include <string>
#include <vector>

#include "tests/support/names.h"
#include "tests/support/vocabulary_numbers.h"
#include "tests/vocabulary/narrow.h"
#include "xport/vocabulary/tag_id.h"
#include "xport/vocabulary/xhtml_strict.h"

namespace test {
namespace {

int tag(ustring_view name) { return static_cast<int>(xhtml_strict::tag_from_name(name)); }

int attribute(ustring_view name) {
  return static_cast<int>(xhtml_strict::attribute_from_name(name));
}

int property(ustring_view name) {
  return static_cast<int>(xhtml_strict::css_property_from_name(name));
}

/// Sets the C locale for the life of the object.
class c_locale {
 public:
  explicit c_locale(const char* name) : before_(std::setlocale(LC_ALL, nullptr)) {
    set_ = std::setlocale(LC_ALL, name) != nullptr;
  }
  c_locale(const c_locale&) = delete;
  c_locale& operator=(const c_locale&) = delete;
  ~c_locale() { std::setlocale(LC_ALL, before_.c_str()); }

  bool is_set() const { return set_; }

 private:
  std::string before_;
  bool set_;
};

TEST(TagLookup, IgnoresCase) {
  EXPECT_EQ(tag(u"DIV"), 26);
  EXPECT_EQ(tag(u"div"), 26);
  EXPECT_EQ(tag(u"dIv"), 26);
}

TEST(TagLookup, FindsTheRootByItsTableNameOnly) {
  EXPECT_EQ(tag(u"doc root"), 0);
  EXPECT_EQ(tag(u"document root"), invalid_number);
}

TEST(TagLookup, FindsElementsThatStrictLacks) { EXPECT_EQ(tag(u"center"), 17); }

TEST(TagLookup, FindsEveryRow) {
  for (const auto& row : Xport::detail::tag_rows)
    EXPECT_EQ(xhtml_strict::tag_from_name(row.name), row.id) << narrow(row.name);
}

TEST(TagLookup, FindsNoNameForTheInvalidTag) {
  EXPECT_EQ(tag(u"invalid tag"), invalid_number);
  EXPECT_EQ(tag(u"invalid_tag"), invalid_number);
  EXPECT_EQ(tag(u"doc_root"), invalid_number);
}

TEST(AttributeLookup, IgnoresCase) {
  EXPECT_EQ(attribute(u"CLASS"), 31);
  EXPECT_EQ(attribute(u"Xml:Lang"), 241);
}

TEST(AttributeLookup, KnowsTheCharAttributeByTheTablesNameOnly) {
  EXPECT_EQ(attribute(u"char"), -1);
  EXPECT_EQ(attribute(u"char-attr"), 26);
}

TEST(AttributeLookup, FindsNoRowThatHoldsCapitals) {
  for (ustring_view name :
       {u"DOMActivate", u"domactivate", u"xmlspaceL", u"xmlspacel", u"xmlspace", u"xml:space"})
    EXPECT_EQ(attribute(name), -1) << narrow(name);
  for (int number : {153, 154, 155, 156, 157, 158, 159, 160, 161, 162, 243})
    EXPECT_EQ(attribute(xhtml_strict::attribute_name(attr_id{number})), -1) << number;
}

TEST(AttributeLookup, FindsEveryOtherRow) {
  for (int number = 0; number < 243; ++number) {
    if (number >= 153 && number <= 162) continue;
    EXPECT_EQ(attribute(xhtml_strict::attribute_name(attr_id{number})), number);
  }
}

TEST(PropertyLookup, MindsCase) {
  EXPECT_EQ(property(u"color"), 32);
  EXPECT_EQ(property(u"COLOR"), -1);
  EXPECT_EQ(property(u"Color"), -1);
}

TEST(PropertyLookup, KnowsWidowsByTheTablesNameOnly) {
  EXPECT_EQ(property(u"widows"), -1);
  EXPECT_EQ(property(u"widowsl"), -1);
  EXPECT_EQ(property(u"widowsL"), 101);
}

TEST(PropertyLookup, FindsEveryRow) {
  for (int number = 0; number < property_end; ++number)
    EXPECT_EQ(property(xhtml_strict::css_property_name(css_property_id{number})), number);
}

TEST(NameLookup, FindsNothingForAnEmptyName) {
  for (ustring_view empty : {ustring_view(), ustring_view(u"")}) {
    EXPECT_EQ(tag(empty), invalid_number);
    EXPECT_EQ(attribute(empty), -1);
    EXPECT_EQ(property(empty), -1);
  }
}

TEST(NameLookup, CutsElementsAndAttributesAtAZeroUnit) {
  EXPECT_EQ(tag(ustring_view(u"div\0ision", 9)), 26);
  EXPECT_EQ(tag(ustring_view(u"DIV\0", 4)), 26);
  EXPECT_EQ(tag(ustring_view(u"\0div", 4)), invalid_number);
  EXPECT_EQ(tag(ustring_view(u"di\0v", 4)), invalid_number);
  EXPECT_EQ(attribute(ustring_view(u"class\0name", 10)), 31);
  EXPECT_EQ(attribute(ustring_view(u"\0class", 6)), -1);
  EXPECT_EQ(tag(u"div" + ustring(1000, u'\0')), 26);
  EXPECT_EQ(tag(u"div" + ustring(1, u'\0') + ustring(1000, u'x')), 26);
  EXPECT_EQ(attribute(u"class" + ustring(1, u'\0') + ustring(1000, u'x')), 31);
}

TEST(NameLookup, DoesNotCutPropertiesAtAZeroUnit) {
  EXPECT_EQ(property(ustring_view(u"color\0", 6)), -1);
  EXPECT_EQ(property(ustring_view(u"\0color", 6)), -1);
}

TEST(NameLookup, FindsNothingForLongNames) {
  for (std::size_t length : {11u, 22u, 28u, 29u, 1000u, 1000000u}) {
    const ustring name(length, u'a');
    EXPECT_EQ(tag(name), invalid_number);
    EXPECT_EQ(attribute(name), -1);
    EXPECT_EQ(property(name), -1);
  }
  EXPECT_EQ(tag(u"blockquote"), 12);
  EXPECT_EQ(tag(u"blockquotes"), invalid_number);
  EXPECT_EQ(property(u"background-attachment"), 1);
  EXPECT_EQ(property(u"background-attachments"), -1);
}

TEST(NameLookup, AcceptsNoSurroundingBlanks) {
  EXPECT_EQ(tag(u" div"), invalid_number);
  EXPECT_EQ(tag(u"div "), invalid_number);
  EXPECT_EQ(attribute(u"class\t"), -1);
  EXPECT_EQ(property(u" color"), -1);
}

TEST(NameLookup, LooksAtWholeUnitsAndNotAtTheirLowBytes) {
  EXPECT_EQ(tag(u"\u0164iv"), invalid_number);
  EXPECT_EQ(attribute(u"\u4163lass"), -1);
  EXPECT_EQ(property(u"colo\u0172"), -1);
  EXPECT_EQ(tag(ustring(1, char16_t{0xd800})), invalid_number);
}

/// What a scan of all rows finds for `name`, or -1.
template <class NameOf>
int scan(int count, const NameOf& name_of, ustring_view name) {
  for (int number = 0; number < count; ++number)
    if (name_of(number) == name) return number;
  return -1;
}

/// Names that are near to `name`: parts of it, and it with one unit changed or added.
std::vector<ustring> near(const ustring& name) {
  std::vector<ustring> names;
  for (std::size_t i = 0; i < name.size(); ++i) {
    names.push_back(name.substr(0, i));
    names.push_back(name.substr(i));
    ustring changed = name;
    for (int step : {-1, 1}) {
      changed[i] = static_cast<char16_t>(name[i] + step);
      names.push_back(changed);
    }
  }
  for (char16_t unit = u'-'; unit <= u'z'; ++unit) names.push_back(name + unit);
  return names;
}

TEST(NameLookup, AgreesWithAScanOfTheTables) {
  const auto tag_name = [](int number) { return Xport::detail::tag_rows[number].name; };
  const auto attribute_name = [](int n) { return xhtml_strict::attribute_name(attr_id{n}); };
  const auto property_name = [](int n) {
    return xhtml_strict::css_property_name(css_property_id{n});
  };
  std::vector<ustring> names;
  for (int number = 0; number < invalid_number; ++number) names.emplace_back(tag_name(number));
  for (int number = 0; number < attribute_end; ++number) names.emplace_back(attribute_name(number));
  for (int number = 0; number < property_end; ++number) names.emplace_back(property_name(number));

  for (const ustring& base : names)
    for (const ustring& name : near(base)) {
      ustring lower = name;
      for (char16_t& unit : lower)
        if (unit >= u'A' && unit <= u'Z') unit = static_cast<char16_t>(unit + (u'a' - u'A'));
      const int tag_number = scan(invalid_number, tag_name, lower);
      EXPECT_EQ(tag(name), tag_number < 0 ? invalid_number : tag_number) << narrow(name);
      EXPECT_EQ(attribute(name), scan(attribute_end, attribute_name, lower)) << narrow(name);
      EXPECT_EQ(property(name), scan(property_end, property_name, name)) << narrow(name);
    }
}

TEST(NameLookup, LowersNoForeignLettersInThePlainLocale) {
  const c_locale plain("C");
  EXPECT_EQ(tag(u"lin\u212a"), invalid_number);
}

TEST(NameLookup, LowersForeignLettersAsTheLocaleDoes) {
  const c_locale unicode("C.UTF-8");
  if (!unicode.is_set()) GTEST_SKIP() << "no locale C.UTF-8";
  EXPECT_EQ(tag(u"lin\u212a"), 54) << "the kelvin sign becomes a k";
  EXPECT_EQ(attribute(u"accept-charset"), 3);
  EXPECT_EQ(property(u"bac\u212aground"), -1);
}

TEST(NameLookup, LowersAsciiCapitalsAsTheLocaleDoes) {
  const c_locale turkish("tr_TR.UTF-8");
  if (!turkish.is_set()) GTEST_SKIP() << "no locale tr_TR.UTF-8";
  EXPECT_EQ(tag(u"DIV"), invalid_number) << "a capital I becomes a dotless i";
  EXPECT_EQ(tag(u"DiV"), 26);
  EXPECT_EQ(tag(u"SPAN"), 73);
}

}  // namespace
}  // namespace test
