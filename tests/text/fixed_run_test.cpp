#include "xport/text/fixed_run.h"

#include <gtest/gtest.h>

#include "tests/support/names.h"

namespace test {
namespace {

TEST(FixedRun, JoinsItsParts) {
  EXPECT_EQ(fixed_run().text(), u"");
  EXPECT_EQ(fixed_run({u""}).text(), u"");
  EXPECT_EQ(fixed_run({u"</", u"td", u">"}).text(), u"</td>");
}

TEST(FixedRun, IsEmptyIfItsPartsAreTooLong) {
  EXPECT_EQ(fixed_run({u"0123456789", u"abcdef"}).text(), u"0123456789abcdef");
  EXPECT_EQ(fixed_run({u"0123456789", u"abcdefg"}).text(), u"");
}

}  // namespace
}  // namespace test
