#include "xport/stream/null_codecvt.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <locale>
#include <type_traits>

#include "tests/support/names.h"

namespace test {
namespace {

using facet = std::codecvt<char16_t, char, std::mbstate_t>;

static_assert(std::is_base_of_v<facet, NullCodecvt>);

/// The facet as streams meet it: through the standard interface of a locale.
class NullConversion : public ::testing::Test {
 protected:
  const std::locale locale = with_null_codecvt(std::locale::classic());
  const facet& conversion = std::use_facet<facet>(locale);
  std::mbstate_t state{};
  char bytes[8] = {'a', 'b', 'c', 'd', 'e', 'f', 'g', 'h'};
  char16_t units[4] = {u'w', u'x', u'y', 0xFFFF};
};

TEST_F(NullConversion, IsTheFacetOfTheLocale) {
  EXPECT_NE(dynamic_cast<const NullCodecvt*>(&conversion), nullptr);
  EXPECT_EQ(locale.name(), "*");
  EXPECT_EQ(with_null_codecvt(locale).name(), "*");
}

TEST_F(NullConversion, LeavesTheRestOfTheLocaleAlone) {
  using other = std::codecvt<char, char, std::mbstate_t>;
  EXPECT_EQ(&std::use_facet<std::ctype<wchar_t>>(locale),
            &std::use_facet<std::ctype<wchar_t>>(std::locale::classic()));
  EXPECT_EQ(&std::use_facet<other>(locale), &std::use_facet<other>(std::locale::classic()));
  EXPECT_EQ(dynamic_cast<const NullCodecvt*>(&std::use_facet<facet>(std::locale::classic())),
            nullptr);
}

TEST_F(NullConversion, ReportsThatItConvertsNothing) {
  EXPECT_TRUE(conversion.always_noconv());
  EXPECT_EQ(conversion.max_length(), 2);
  EXPECT_EQ(conversion.encoding(), 2);
}

TEST_F(NullConversion, ReadsNothing) {
  const char* from_next = nullptr;
  char16_t* to_next = nullptr;
  EXPECT_EQ(conversion.in(state, bytes, bytes + 8, from_next, units, units + 4, to_next),
            facet::noconv);
  EXPECT_EQ(from_next, bytes);
  EXPECT_EQ(to_next, units);
  EXPECT_EQ(units[0], u'w');
}

TEST_F(NullConversion, WritesNothing) {
  const char16_t* from_next = nullptr;
  char* to_next = nullptr;
  EXPECT_EQ(conversion.out(state, units, units + 4, from_next, bytes, bytes + 8, to_next),
            facet::noconv);
  EXPECT_EQ(from_next, units);
  EXPECT_EQ(to_next, bytes);
  EXPECT_EQ(bytes[0], 'a');
}

TEST_F(NullConversion, HasNoShiftState) {
  char* to_next = nullptr;
  EXPECT_EQ(conversion.unshift(state, bytes, bytes + 8, to_next), facet::noconv);
  EXPECT_EQ(to_next, bytes);
}

TEST_F(NullConversion, MeasuresTheSmallerOfCountAndBytes) {
  EXPECT_EQ(conversion.length(state, bytes, bytes + 8, 0), 0);
  EXPECT_EQ(conversion.length(state, bytes, bytes + 8, 3), 3);
  EXPECT_EQ(conversion.length(state, bytes, bytes + 8, 8), 8);
  EXPECT_EQ(conversion.length(state, bytes, bytes + 8, 9), 8);
  EXPECT_EQ(conversion.length(state, bytes, bytes, 9), 0);
}

}  // namespace
}  // namespace test
