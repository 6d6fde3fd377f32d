#include <zov_utils/czov_string.h>

#include <gtest/gtest.h>

#include <string>

namespace test {
namespace {

TEST(CZovString, CopiesTheTextUpToItsZero) {
  char16_t text[] = {u'a', 0xD800, 0xFFFF, u'b', 0, u'c', 0};
  const CZovString string(text);
  text[0] = u'?';
  EXPECT_EQ(string.size(), 4u);
  EXPECT_EQ(std::u16string(string.c_str()), std::u16string({u'a', 0xD800, 0xFFFF, u'b'}));
}

TEST(CZovString, EmptyAndNullTextsAreEmpty) {
  EXPECT_EQ(CZovString(u"").size(), 0u);
  EXPECT_EQ(CZovString(nullptr).size(), 0u);
  EXPECT_EQ(CZovString(nullptr).c_str()[0], u'\0');
  EXPECT_TRUE(CZovString(nullptr) == CZovString(u""));
}

TEST(CZovString, CopiesOutliveTheOriginal) {
  CZovString* const original = new CZovString(u"a text that is too long for any short form");
  const CZovString copy(*original);
  delete original;
  EXPECT_TRUE(copy == CZovString(u"a text that is too long for any short form"));
}

TEST(CZovString, ComparesUnitByUnit) {
  EXPECT_TRUE(CZovString(u"abc") == CZovString(u"abc"));
  EXPECT_FALSE(CZovString(u"abc") != CZovString(u"abc"));
  EXPECT_TRUE(CZovString(u"abc") != CZovString(u"abd"));
  EXPECT_TRUE(CZovString(u"abc") != CZovString(u"ab"));
  EXPECT_TRUE(CZovString(u"") != CZovString(u"a"));
  EXPECT_TRUE(CZovString(u"A") != CZovString(u"a"));
}

}  // namespace
}  // namespace test
