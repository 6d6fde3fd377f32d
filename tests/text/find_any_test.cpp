#include "xport/text/find_any.h"

#include <gtest/gtest.h>

#include <cstddef>

#include "tests/support/names.h"

namespace test {
namespace {

TEST(FindUnit, NothingToFind) {
  EXPECT_EQ(find_unit(u"", u'\n'), 0u);
  for (std::size_t size = 0; size < 20; ++size)
    EXPECT_EQ(find_unit(ustring(size, u'a'), u'\n'), size);
}

TEST(FindUnit, TheFirstOfTwoAtEachPlace) {
  for (std::size_t size = 1; size < 20; ++size)
    for (std::size_t first = 0; first < size; ++first)
      for (std::size_t second = first; second < size; ++second) {
        ustring text(size, u'a');
        text[first] = text[second] = u'\n';
        EXPECT_EQ(find_unit(text, u'\n'), first) << size;
      }
}

// Neighbours of the unit in value, and units that share a byte with it.
TEST(FindUnit, UnitsThatResembleTheOneSought) {
  for (const char16 sought : {u'\0', u'\n', u'\x7FFF', u'\x8000', u'\xFFFF'})
    for (const int step : {1, -1, 2, 0x0100, 0x7FFF, 0x8000, 0x8001}) {
      const auto other = static_cast<char16>(sought + step);
      for (std::size_t at = 0; at < 12; ++at) {
        ustring text(12, other);
        EXPECT_EQ(find_unit(text, sought), 12u);
        text[at] = sought;
        EXPECT_EQ(find_unit(text, sought), at);
      }
    }
}

TEST(FindUnit, LooksAtTheGivenRunOnly) {
  const ustring text = u"aaaaaaa\naaa";
  for (std::size_t size = 0; size <= 7; ++size)
    EXPECT_EQ(find_unit(ustring_view(text).substr(0, size), u'\n'), size);
  EXPECT_EQ(find_unit(ustring_view(text).substr(3), u'\n'), 4u);
}

TEST(FindUnit, EveryUnitIsFoundAfterAllLowerOnes) {
  ustring text;
  for (unsigned unit = 0; unit <= 0xFFFF; ++unit) text += static_cast<char16>(unit);
  for (unsigned unit = 0; unit <= 0xFFFF; unit += 97)
    EXPECT_EQ(find_unit(text, static_cast<char16>(unit)), unit);
}

TEST(FindAny, TheFirstOfSeveralAtEachPlace) {
  for (std::size_t size = 0; size < 20; ++size)
    for (const char16 stop : {u'<', u'"', u'\xFFFF'}) {
      EXPECT_EQ((find_any<u'<', u'"', u'\xFFFF'>(ustring(size, u'a'))), size);
      for (std::size_t first = 0; first < size; ++first) {
        ustring text(size, u'a');
        text.back() = u'<';
        text[first] = stop;
        EXPECT_EQ((find_any<u'<', u'"', u'\xFFFF'>(text)), first) << size;
      }
    }
}

TEST(CountLeading, EndsAtTheFirstOtherUnit) {
  for (std::size_t size = 0; size < 20; ++size) {
    EXPECT_EQ(count_leading(ustring(size, u' '), u' '), size);
    for (std::size_t first = 0; first < size; ++first)
      for (std::size_t second = first; second < size; ++second) {
        ustring text(size, u' ');
        text[first] = text[second] = u'\n';
        EXPECT_EQ(count_leading(text, u' '), first) << size;
      }
  }
}

}  // namespace
}  // namespace test
