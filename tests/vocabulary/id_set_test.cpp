#include "xport/vocabulary/id_set.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>

#include "tests/support/names.h"

namespace test {
namespace {

enum class number : std::int32_t {};
constexpr number operator""_n(unsigned long long value) { return number{static_cast<int>(value)}; }

using numbers = id_set<number, 93>;

TEST(IdSet, IsEmptyWhenNew) {
  const numbers set;
  EXPECT_TRUE(set.empty());
  EXPECT_EQ(set.size(), 0u);
  for (int i = 0; i < 93; ++i) EXPECT_FALSE(set.contains(number{i})) << i;
}

TEST(IdSet, HoldsWhatItIsMadeFromAndNothingElse) {
  const numbers set{0_n, 63_n, 64_n, 92_n};
  EXPECT_FALSE(set.empty());
  EXPECT_EQ(set.size(), 4u);
  for (int i = 0; i < 93; ++i)
    EXPECT_EQ(set.contains(number{i}), i == 0 || i == 63 || i == 64 || i == 92) << i;
}

TEST(IdSet, KeepsOneEntryForAnIdInsertedTwice) {
  numbers set{7_n, 7_n};
  set.insert(7_n);
  EXPECT_EQ(set.size(), 1u);
}

TEST(IdSet, ErasesTheGivenIdOnly) {
  numbers set{1_n, 65_n};
  set.erase(65_n);
  EXPECT_EQ(set, numbers{1_n});
  set.erase(65_n);
  EXPECT_EQ(set, numbers{1_n});
  set.erase(1_n);
  EXPECT_TRUE(set.empty());
}

TEST(IdSet, InsertsAllOfAnotherSet) {
  numbers set{1_n, 70_n};
  set.insert(numbers{2_n, 70_n, 92_n});
  EXPECT_EQ(set, (numbers{1_n, 2_n, 70_n, 92_n}));
}

TEST(IdSet, ContainsNoNumberOutsideItsRange) {
  numbers set;
  for (int i = 0; i < 93; ++i) set.insert(number{i});
  EXPECT_EQ(set.size(), 93u);
  for (int outside : {-1, 93, 127, 128, 64 * 1024, std::numeric_limits<int>::min(),
                      std::numeric_limits<int>::max()})
    EXPECT_FALSE(set.contains(number{outside})) << outside;
}

TEST(IdSet, HasRoomForAFullLastWord) {
  id_set<number, 64> set;
  set.insert(63_n);
  EXPECT_TRUE(set.contains(63_n));
  EXPECT_FALSE(set.contains(64_n));
}

TEST(IdSet, CanBeAskedAtCompileTime) {
  constexpr numbers set{5_n, 80_n};
  static_assert(set.contains(80_n) && !set.contains(79_n) && set.size() == 2 && !set.empty());
}

}  // namespace
}  // namespace test
