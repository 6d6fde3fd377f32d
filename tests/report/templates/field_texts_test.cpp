#include "report/field_texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <random>
#include <utility>
#include <vector>

#include "xport/text/char16.h"

namespace {

using Xport::char16;
using Xport::ustring;
using texts = std::vector<ustring>;

texts in_order(const field_texts& fields) { return {fields.begin(), fields.end()}; }

TEST(FieldTexts, AreEmptyAtFirst) {
  field_texts fields;
  EXPECT_EQ(in_order(fields), texts{});
  EXPECT_FALSE(fields.contains(u""));
  fields.replace(u"", u"a");
  EXPECT_EQ(in_order(fields), texts{});
}

TEST(FieldTexts, KeepTheirOrder) {
  EXPECT_EQ(in_order(field_texts({u"b", u"", u"a", u"b"})), (texts{u"b", u"", u"a", u"b"}));
}

TEST(FieldTexts, AreComparedAsAWhole) {
  const ustring zero(u"a\0b", 3);
  const field_texts fields({u"Total", zero, u""});
  EXPECT_TRUE(fields.contains(u"Total"));
  EXPECT_TRUE(fields.contains(u""));
  EXPECT_TRUE(fields.contains(zero));
  for (const ustring other : {u"total", u"Tota", u"Totals", u"a", u" "})
    EXPECT_FALSE(fields.contains(other));
}

TEST(FieldTexts, OfEqualOnesTheFirstIsReplaced) {
  field_texts fields({u"a", u"b", u"a", u"a"});
  fields.replace(u"a", u"c");
  EXPECT_EQ(in_order(fields), (texts{u"c", u"b", u"a", u"a"}));
  fields.replace(u"a", u"c");
  EXPECT_EQ(in_order(fields), (texts{u"c", u"b", u"c", u"a"}));
  fields.replace(u"a", u"a");
  EXPECT_EQ(in_order(fields), (texts{u"c", u"b", u"c", u"a"}));
  fields.replace(u"c", u"d");
  EXPECT_EQ(in_order(fields), (texts{u"d", u"b", u"c", u"a"}));
  fields.replace(u"e", u"f");
  EXPECT_EQ(in_order(fields), (texts{u"d", u"b", u"c", u"a"}));
}

TEST(FieldTexts, AreToldApartByEachUnit) {
  const ustring text = u"Item 12";
  const field_texts fields({text});
  for (std::size_t at = 0; at < text.size(); ++at)
    for (const int step : {1, 0x100}) {
      ustring other = text;
      other[at] = static_cast<char16>(other[at] + step);
      EXPECT_FALSE(fields.contains(other)) << at;
    }
}

TEST(FieldTexts, AreMovedWithTheirOrder) {
  field_texts fields({u"a", u"b"});
  field_texts moved;
  moved = std::move(fields);
  fields = {};
  EXPECT_FALSE(fields.contains(u"a"));
  moved.replace(u"b", u"a");
  moved.replace(u"a", u"z");
  EXPECT_EQ(in_order(moved), (texts{u"z", u"a"}));
}

// Beside the plain way to do it. The texts are long enough to have memory of their own.
TEST(FieldTexts, AnySequenceOfReplacements) {
  std::mt19937 random(20);
  const auto text = [&random] { return ustring(20, static_cast<char16>(u'a' + random() % 5)); };
  for (int round = 0; round < 200; ++round) {
    texts expected(random() % 8);
    std::generate(expected.begin(), expected.end(), text);
    field_texts fields(expected);
    for (int step = 0; step < 20; ++step) {
      const ustring old = text();
      const ustring value = text();
      const auto found = std::find(expected.begin(), expected.end(), old);
      ASSERT_EQ(fields.contains(old), found != expected.end());
      if (found != expected.end()) *found = value;
      fields.replace(old, value);
      ASSERT_EQ(in_order(fields), expected);
    }
  }
}

}  // namespace
