#include <string>

#include "tests/report/report_page.h"

namespace test {
namespace {

class Growth : public disk_test {};

ustring number(std::size_t value) {
  const std::string digits = std::to_string(value);
  return ustring(digits.begin(), digits.end());
}

// Headings have the names of those above them in theirs, so each has but one place
// and is on the page once if its sections came together.
TEST_F(Growth, HundredThousandSectionsHaveEachHeadingOnce) {
  constexpr std::size_t count = 100000;
  for (std::size_t i = 0; i < count; ++i) {
    const std::size_t depth = 1 + i % 4;
    const std::size_t spread[] = {i % 20, i / 20 % 20, i / 400 % 5, i / 2000 % 5};
    ustring name;
    for (std::size_t level = 0; level < depth; ++level) {
      (name += u'/') += number(spread[level]);
      report.AddSectionHeading(name.c_str(), static_cast<std::int32_t>(level + 1));
    }
    report.BeginSection(u"", nullptr);
    report.AddText(ustring(u"no ").append(number(i)).c_str(), true);
  }
  const ustring body = saved();
  EXPECT_EQ(count_of(u"<a>no ", body), count);
  // i % 4 follows from i % 20, so the top level decides the depth: 20 headings, of
  // which 15, 10 and 5 have a level below, each with all the 20, 5 and 5.
  EXPECT_EQ(count_of(u"<h1 ", body), 20u);
  EXPECT_EQ(count_of(u"<h2 ", body), 15u * 20);
  EXPECT_EQ(count_of(u"<h3 ", body), 10u * 20 * 5);
  EXPECT_EQ(count_of(u"<h4 ", body), 5u * 20 * 5 * 5);
}

TEST_F(Growth, HundredThousandSectionsOfNoOrOnePathKeepTheirOrder) {
  ustring bare;
  ustring shared = heading(u'1', u"A");
  for (std::size_t i = 0; i < 100000; ++i) {
    const ustring text = number(i);
    if (i % 2 != 0) report.AddSectionHeading(u"A", 1);
    report.BeginSection(u"", nullptr);
    report.AddText(text.c_str(), true);
    (i % 2 != 0 ? shared : bare) += block({text});
  }
  // The path is empty until the first with a heading comes in its turn.
  const ustring first = block({u"0"});
  EXPECT_TRUE(same_units(saved(), first + shared + bare.substr(first.size())));
}

TEST_F(Growth, PathOfAHundredThousandHeadings) {
  constexpr std::size_t depth = 100000;
  ustring expected;
  for (const char16_t* const last : {u"end", u"other end"}) {
    for (std::size_t level = 1; level < depth; ++level) {
      const ustring text = number(level);
      report.AddSectionHeading(text.c_str(), 1);
      if (last == ustring_view(u"end")) expected += heading(u'1', text);
    }
    report.AddSectionHeading(last, 2);
    report.BeginSection(u"", nullptr);
    expected += heading(u'2', last) + block();
  }
  EXPECT_TRUE(same_units(saved(), expected));
}

// Sections under the first heading only, which leave a long path as it is.
TEST_F(Growth, LongPathThatManySectionsLeaveAsItIs) {
  constexpr std::size_t depth = 20000;
  constexpr std::size_t count = 20000;
  for (std::size_t level = 0; level < depth; ++level) report.AddSectionHeading(u"A", 1);
  report.BeginSection(u"", nullptr);
  ustring expected = block();
  for (std::size_t i = 0; i < count; ++i) {
    report.AddSectionHeading(u"A", 1);
    report.BeginSection(u"", nullptr);
    expected += block();
  }
  const ustring body = saved();
  EXPECT_EQ(count_of(u"<h1 ", body), depth);
  EXPECT_EQ(body.substr(body.size() - expected.size()), expected);
}

}  // namespace
}  // namespace test
