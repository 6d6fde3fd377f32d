#include "xport/text/character_class.h"

#include <gtest/gtest.h>

#include <locale>
#include <memory>
#include <stdexcept>

#include "tests/support/golden.h"
#include "tests/support/locale.h"

namespace test {
namespace {

// Makes a locale the global one, for the C library too, until the end of the scope.
class CharacterClass : public testing::Test {
 protected:
  ~CharacterClass() override { std::locale::global(before_); }

  static bool use_locale(const char* name) {
    try {
      std::locale::global(std::locale(name));
      return true;
    } catch (const std::runtime_error&) {
      return false;
    }
  }

 private:
  std::locale before_;
};

TEST_F(CharacterClass, WhiteSpaceOfTheClassicLocale) {
  const character_classes classes;
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
    const bool expected = unit == 0x20 || (unit >= 0x09 && unit <= 0x0D);
    EXPECT_EQ(classes.is_space(static_cast<char16>(unit)), expected) << unit;
  }
}

TEST_F(CharacterClass, WhiteSpaceOfAUnicodeLocale) {
  if (!use_locale("C.UTF-8")) GTEST_SKIP() << "there is no locale C.UTF-8";
  const character_classes classes;
  for (const char16 unit : {u' ', u'\t', u'\n', u'\v', u'\f', u'\r', u'\u1680', u'\u2003',
                            u'\u2028', u'\u2029', u'\u3000'})
    EXPECT_TRUE(classes.is_space(unit)) << static_cast<unsigned>(unit);
  // A no-break space is no white space.
  for (const char16 unit : {u'\0', u'a', u'\u00A0', u'\u202F', u'\u4E2D', u'\uFEFF',
                            static_cast<char16_t>(0xD83D), u'\uFFFF'})
    EXPECT_FALSE(classes.is_space(unit)) << static_cast<unsigned>(unit);
}

TEST_F(CharacterClass, TheLocaleIsThatOfTheConstruction) {
  const character_classes before;
  if (!use_locale("C.UTF-8")) GTEST_SKIP() << "there is no locale C.UTF-8";
  const character_classes after;
  EXPECT_FALSE(before.is_space(u'\u3000'));
  EXPECT_TRUE(after.is_space(u'\u3000'));
  use_locale("C");
  EXPECT_TRUE(after.is_space(u'\u3000'));
  EXPECT_FALSE(character_classes().is_space(u'\u3000'));
}

TEST_F(CharacterClass, ALocaleReplacesTheGlobalOneAtConstruction) {
  const std::locale more_space = locale_with(L'x', std::ctype_base::space);
  EXPECT_TRUE(character_classes(more_space).is_space(u'x'));
  EXPECT_FALSE(character_classes(more_space).is_alnum(u'x'));
  EXPECT_FALSE(character_classes().is_space(u'x'));

  const global_locale global(more_space);
  EXPECT_TRUE(character_classes().is_space(u'x'));
  EXPECT_FALSE(character_classes(std::locale::classic()).is_space(u'x'));
  EXPECT_TRUE(character_classes(std::locale::classic()).is_alnum(u'x'));
}

TEST_F(CharacterClass, ALocaleIsKeptAsLongAsItIsUsed) {
  const character_classes classes(locale_with(L'x', std::ctype_base::blank));
  EXPECT_FALSE(classes.is_space(u'x'));
  EXPECT_TRUE(classes.is_space_or_blank(u'x'));
  EXPECT_TRUE(classes.is_space_or_blank(u' '));
  EXPECT_EQ(classes.to_lower(u'X'), u'x');
}

TEST_F(CharacterClass, ClassesOfTheClassicLocale) {
  const character_classes classes;
  for (unsigned number = 0; number <= 0xFFFF; ++number) {
    const auto unit = static_cast<char16>(number);
    const bool digit = number >= '0' && number <= '9';
    const bool letter = (number >= 'a' && number <= 'z') || (number >= 'A' && number <= 'Z');
    const bool space = number == ' ' || (number >= '\t' && number <= '\r');
    EXPECT_EQ(classes.is_digit(unit), digit) << number;
    EXPECT_EQ(classes.is_alnum(unit), digit || letter) << number;
    EXPECT_EQ(classes.is_space_or_blank(unit), space) << number;
    const unsigned lower = number >= 'A' && number <= 'Z' ? number + ('a' - 'A') : number;
    EXPECT_EQ(classes.to_lower(unit), lower) << number;
  }
}

TEST_F(CharacterClass, ClassesOfAUnicodeLocale) {
  if (!use_locale("C.UTF-8")) GTEST_SKIP() << "there is no locale C.UTF-8";
  const character_classes classes;
  for (const char16 unit : {u'a', u'Z', u'0', u'\u00E9', u'\u0416', u'\u4E2D'})
    EXPECT_TRUE(classes.is_alnum(unit)) << static_cast<unsigned>(unit);
  for (const char16 unit : {u'\0', u' ', u'-', u'_', u':', u'\u00A0', u'\u2014', u'\u3000',
                            static_cast<char16>(0xD83D), u'\uFFFF'})
    EXPECT_FALSE(classes.is_alnum(unit)) << static_cast<unsigned>(unit);
  EXPECT_TRUE(classes.is_digit(u'7'));
  EXPECT_FALSE(classes.is_digit(u'\u0664')) << "digits of other scripts are none";
  EXPECT_TRUE(classes.is_space_or_blank(u'\t'));
  EXPECT_TRUE(classes.is_space_or_blank(u'\u3000'));
  EXPECT_FALSE(classes.is_space_or_blank(u'\u00A0'));
  EXPECT_EQ(classes.to_lower(u'\u00C9'), u'\u00E9');
  EXPECT_EQ(classes.to_lower(u'\u0416'), u'\u0436');
  EXPECT_EQ(classes.to_lower(u'\uFFFF'), u'\uFFFF');
}

// Cached results are the same as new ones, in any order of the classes.
TEST_F(CharacterClass, ResultsDoNotDependOnEarlierCalls) {
  const character_classes used;
  for (unsigned number = 0; number <= 0x1FF; ++number) {
    const auto unit = static_cast<char16>(number);
    for (int round = 0; round < 2; ++round) {
      EXPECT_EQ(used.is_digit(unit), character_classes().is_digit(unit)) << number;
      EXPECT_EQ(used.is_space(unit), character_classes().is_space(unit)) << number;
      EXPECT_EQ(used.is_alnum(unit), character_classes().is_alnum(unit)) << number;
      EXPECT_EQ(used.is_space_or_blank(unit), character_classes().is_space_or_blank(unit));
    }
  }
}

TEST_F(CharacterClass, ACopyUsesTheSameLocale) {
  auto original = std::make_unique<character_classes>();
  EXPECT_FALSE(original->is_space(u'\u3000'));
  const character_classes copy(*original);
  original.reset();
  if (!use_locale("C.UTF-8")) GTEST_SKIP() << "there is no locale C.UTF-8";
  EXPECT_FALSE(copy.is_space(u'\u3000'));
  EXPECT_TRUE(copy.is_alnum(u'a'));
  EXPECT_EQ(copy.to_lower(u'\u00C9'), u'\u00C9');
}

TEST_F(CharacterClass, ClassesOfAHostAreNotStandard) {
  EXPECT_TRUE(character_classes().are_standard());
  EXPECT_FALSE(character_classes(locale_with(L'x', std::ctype_base::space)).are_standard());
}

TEST_F(CharacterClass, StandardClassesAgreeOnSmallLettersBlankAndNewline) {
  for (const char* const name : {"C", "C.UTF-8"}) {
    if (!use_locale(name)) continue;
    const character_classes classes;
    for (char16 unit = u'a'; unit <= u'z'; ++unit) {
      EXPECT_TRUE(classes.is_alnum(unit)) << name;
      EXPECT_FALSE(classes.is_space_or_blank(unit)) << name;
    }
    EXPECT_TRUE(classes.is_space(u' ')) << name;
    EXPECT_TRUE(classes.is_space(u'\n')) << name;
  }
}

TEST_F(CharacterClass, TrimRight) {
  const character_classes classes;
  EXPECT_TRUE(same_units(classes.trim_right(u" a b \t\n"), u" a b"));
  EXPECT_TRUE(same_units(classes.trim_right(u" \n "), u""));
  EXPECT_TRUE(same_units(classes.trim_right(u""), u""));
  EXPECT_TRUE(same_units(classes.trim_right(u"ab"), u"ab"));
}

TEST_F(CharacterClass, Trim) {
  const character_classes classes;
  EXPECT_TRUE(same_units(classes.trim(u"\t a b \r\n"), u"a b"));
  EXPECT_TRUE(same_units(classes.trim(u" \n "), u""));
  EXPECT_TRUE(same_units(classes.trim(u""), u""));
  EXPECT_TRUE(same_units(classes.trim(u"\u3000a\u3000"), u"\u3000a\u3000"));
}

TEST_F(CharacterClass, TrimInAUnicodeLocale) {
  if (!use_locale("C.UTF-8")) GTEST_SKIP() << "there is no locale C.UTF-8";
  const character_classes classes;
  EXPECT_TRUE(same_units(classes.trim(u"\u3000a\u00A0\u2003"), u"a\u00A0"));
}

TEST_F(CharacterClass, LowerCaseOfTheClassicLocale) {
  EXPECT_TRUE(same_units(to_lower(u""), u""));
  EXPECT_TRUE(same_units(to_lower(u"AbZ@[`{19"), u"abz@[`{19"));
  EXPECT_TRUE(same_units(to_lower(u"\u00C9\u0416"), u"\u00C9\u0416"));
}

TEST_F(CharacterClass, LowerCaseOfAUnicodeLocale) {
  if (!use_locale("C.UTF-8")) GTEST_SKIP() << "there is no locale C.UTF-8";
  EXPECT_TRUE(same_units(to_lower(u"AbZ\u00C9\u0416\u4E2D"), u"abz\u00E9\u0436\u4E2D"));
}

TEST_F(CharacterClass, LowerCaseWorksUnitByUnit) {
  for (const char* const name : {"C", "C.UTF-8"}) {
    if (!use_locale(name)) continue;
    // A capital beyond the first 65536 code points, a lone surrogate, the zero unit.
    const ustring text(u"A\0\xD801\xDC00\xDC00\xFFFF", 6);
    const ustring lower(u"a\0\xD801\xDC00\xDC00\xFFFF", 6);
    EXPECT_TRUE(same_units(to_lower(text), lower)) << name;
  }
}

}  // namespace
}  // namespace test
