#include "report/field_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <utility>
#include <vector>

#include "tests/support/names.h"
#include "xport/text/char16.h"

namespace test {
namespace {

using report::FieldTexts;
using texts = std::vector<ustring>;

texts in_order(const FieldTexts& fields) { return {fields.begin(), fields.end()}; }

TEST(FieldTexts, AreEmptyAtFirst) {
  FieldTexts fields;
  EXPECT_EQ(in_order(fields), texts{});
  EXPECT_FALSE(fields.Contains(u""));
  fields.Replace(u"", u"a");
  EXPECT_EQ(in_order(fields), texts{});
}

TEST(FieldTexts, KeepTheirOrder) {
  EXPECT_EQ(in_order(FieldTexts({u"b", u"", u"a", u"b"})), (texts{u"b", u"", u"a", u"b"}));
}

TEST(FieldTexts, AreComparedAsAWhole) {
  const ustring zero(u"a\0b", 3);
  const FieldTexts fields({u"Total", zero, u""});
  EXPECT_TRUE(fields.Contains(u"Total"));
  EXPECT_TRUE(fields.Contains(u""));
  EXPECT_TRUE(fields.Contains(zero));
  for (const ustring other : {u"total", u"Tota", u"Totals", u"a", u" "})
    EXPECT_FALSE(fields.Contains(other));
}

TEST(FieldTexts, OfEqualOnesTheFirstIsReplaced) {
  FieldTexts fields({u"a", u"b", u"a", u"a"});
  fields.Replace(u"a", u"c");
  EXPECT_EQ(in_order(fields), (texts{u"c", u"b", u"a", u"a"}));
  fields.Replace(u"a", u"c");
  EXPECT_EQ(in_order(fields), (texts{u"c", u"b", u"c", u"a"}));
  fields.Replace(u"a", u"a");
  EXPECT_EQ(in_order(fields), (texts{u"c", u"b", u"c", u"a"}));
  fields.Replace(u"c", u"d");
  EXPECT_EQ(in_order(fields), (texts{u"d", u"b", u"c", u"a"}));
  fields.Replace(u"e", u"f");
  EXPECT_EQ(in_order(fields), (texts{u"d", u"b", u"c", u"a"}));
}

TEST(FieldTexts, DifferIfAnyUnitDiffers) {
  const ustring text = u"Item 12";
  const FieldTexts fields({text});
  for (std::size_t at = 0; at < text.size(); ++at)
    for (const int step : {1, 0x100}) {
      ustring other = text;
      other[at] = static_cast<char16>(other[at] + step);
      EXPECT_FALSE(fields.Contains(other)) << at;
    }
}

TEST(FieldTexts, AreMovedWithTheirOrder) {
  FieldTexts fields({u"a", u"b"});
  FieldTexts moved;
  moved = std::move(fields);
  fields = {};
  EXPECT_FALSE(fields.Contains(u"a"));
  moved.Replace(u"b", u"a");
  moved.Replace(u"a", u"z");
  EXPECT_EQ(in_order(moved), (texts{u"z", u"a"}));
}

// Compared with the plain way. The texts are long enough to be allocated.
TEST(FieldTexts, AnySequenceOfReplacements) {
  std::mt19937 random(20);
  const auto text = [&random] { return ustring(20, static_cast<char16>(u'a' + random() % 5)); };
  for (int round = 0; round < 200; ++round) {
    texts expected(random() % 8);
    std::generate(expected.begin(), expected.end(), text);
    FieldTexts fields(expected);
    for (int step = 0; step < 20; ++step) {
      const ustring old = text();
      const ustring value = text();
      const auto found = std::find(expected.begin(), expected.end(), old);
      ASSERT_EQ(fields.Contains(old), found != expected.end());
      if (found != expected.end()) *found = value;
      fields.Replace(old, value);
      ASSERT_EQ(in_order(fields), expected);
    }
  }
}

}  // namespace
}  // namespace test
