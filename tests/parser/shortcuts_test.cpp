// The shortcuts that are functions. All others are covered by the tests of the readers, which
// pass with shortcuts and without.

#include "xport/parser/shortcuts.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <locale>

#include "tests/support/locale.h"
#include "tests/support/names.h"

namespace test {
namespace {

// Without shortcuts nothing is counted.
constexpr std::size_t counted(std::size_t count) { return use_shortcuts ? count : 0; }

TEST(Shortcuts, LettersAreCountedUpToTheFirstOtherUnit) {
  const character_classes classes;
  EXPECT_EQ(count_plain_letters(u"", classes), 0u);
  EXPECT_EQ(count_plain_letters(u"abcxyz", classes), counted(6));
  EXPECT_EQ(count_plain_letters(u"ab1c", classes), counted(2));
  for (const char16 unit :
       {u'\0', u'`', u'{', u'A', u'Z', u'0', u' ', u'\u00E9', u'\u0161', u'\uFF41'})
    EXPECT_EQ(count_plain_letters(ustring(u"az") + unit + u"a", classes), counted(2))
        << static_cast<unsigned>(unit);
}

TEST(Shortcuts, BlanksAreSkippedInRunsInEveryStandardLocale) {
  EXPECT_EQ(has_plain_blanks(character_classes()), use_shortcuts);
  EXPECT_EQ(has_plain_blanks(character_classes(std::locale::classic())), use_shortcuts);
}

TEST(Shortcuts, NoneAppliesWhereAHostHasItsOwnClasses) {
  const character_classes classes(locale_with(L'x', std::ctype_base::space));
  EXPECT_EQ(count_plain_letters(u"abc", classes), 0u);
  EXPECT_FALSE(has_plain_blanks(classes));
}

}  // namespace
}  // namespace test
