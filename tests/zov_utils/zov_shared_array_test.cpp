#include <zov_utils/zov_shared_array.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <stdexcept>
#include <vector>

#include <zov_utils/czov_string.h>

#include "tests/zov_utils/counted.h"

namespace test {
namespace {

typedef zov_shared_array<counted> counted_array;

class ZovSharedArray : public ::testing::Test {
 protected:
  void SetUp() override { counted::reset(); }

  // Every element was destroyed once.
  void TearDown() override { EXPECT_EQ(counted::alive(), 0u); }

  static void fill(counted_array& array, int count) {
    for (int value = 0; value < count; ++value) array.push_back(counted(value));
  }

  static std::vector<int> values(const counted_array& array) {
    std::vector<int> found;
    for (const counted& element : array) found.push_back(element.value());
    return found;
  }

  static std::vector<int> up_to(int count) {
    std::vector<int> all;
    for (int value = 0; value < count; ++value) all.push_back(value);
    return all;
  }
};

TEST_F(ZovSharedArray, StartsEmptyWithoutStorage) {
  const counted_array array;
  EXPECT_TRUE(array.empty());
  EXPECT_EQ(array.size(), 0u);
  EXPECT_EQ(array.capacity(), 0u);
  EXPECT_TRUE(array.begin() == array.end());
}

// Full storage is replaced by one of capacity size + 1 + size / 2.
TEST_F(ZovSharedArray, GrowsByHalf) {
  counted_array array;
  std::vector<std::size_t> capacities;
  for (int value = 0; value < 50; ++value) {
    array.push_back(counted(value));
    if (capacities.empty() || capacities.back() != array.capacity())
      capacities.push_back(array.capacity());
    ASSERT_EQ(values(array), up_to(value + 1));
    ASSERT_EQ(counted::alive(), array.size());
  }
  const std::size_t expected[] = {1, 2, 4, 7, 11, 17, 26, 40, 61};
  EXPECT_EQ(capacities, std::vector<std::size_t>(expected, expected + 9));
}

TEST_F(ZovSharedArray, ElementsStayWhereTheyAreWhileThereIsRoom) {
  counted_array array;
  fill(array, 5);
  ASSERT_EQ(array.capacity(), 7u);
  const counted* const first = array.begin();
  const std::size_t copies = counted::copies();
  array.push_back(counted(5));
  array.push_back(counted(6));
  EXPECT_EQ(array.begin(), first);
  EXPECT_EQ(counted::copies(), copies + 2);
  array.push_back(counted(7));
  EXPECT_EQ(values(array), up_to(8));
}

TEST_F(ZovSharedArray, CopiesShare) {
  counted_array array;
  fill(array, 3);
  const std::size_t copies = counted::copies();
  const counted_array second(array);
  counted_array third;
  third = second;
  EXPECT_EQ(counted::copies(), copies);
  EXPECT_EQ(array.begin(), second.begin());
  EXPECT_EQ(array.begin(), third.begin());
  EXPECT_EQ(third.capacity(), array.capacity());
  EXPECT_EQ(counted::alive(), 3u);
}

// In whichever order the copies are destroyed, the elements are destroyed once, with the last copy.
TEST_F(ZovSharedArray, TheLastCopyDestroysTheElements) {
  const int orders[][3] = {{0, 1, 2}, {0, 2, 1}, {1, 0, 2}, {1, 2, 0}, {2, 0, 1}, {2, 1, 0}};
  for (const auto& order : orders) {
    counted_array copies[3];
    fill(copies[0], 5);
    copies[1] = copies[0];
    copies[2] = copies[1];
    copies[order[0]].clear();
    copies[order[1]] = counted_array();
    EXPECT_EQ(counted::alive(), 5u);
    EXPECT_EQ(values(copies[order[2]]), up_to(5));
    copies[order[2]].clear();
    EXPECT_EQ(counted::alive(), 0u);
    EXPECT_EQ(copies[order[2]].capacity(), 7u) << "the storage is the last one's own";
    EXPECT_EQ(copies[order[0]].capacity(), 0u);
  }
}

// From there both grow by half, each in its own storage.
TEST_F(ZovSharedArray, SharedStorageGrowsToSizeAndOneAndHalfFromEverySize) {
  for (int size = 0; size < 20; ++size) {
    counted_array array;
    fill(array, size);
    counted_array copy(array);
    const std::size_t copies = counted::copies();
    copy.push_back(counted(size));
    EXPECT_EQ(values(copy), up_to(size + 1));
    EXPECT_EQ(values(array), up_to(size));
    EXPECT_EQ(counted::copies() - copies, static_cast<std::size_t>(size) + 1);
    EXPECT_EQ(copy.capacity(), static_cast<std::size_t>(size + 1 + size / 2));
  }
}

TEST_F(ZovSharedArray, AppendingToACopyLeavesTheOtherAlone) {
  counted_array array;
  fill(array, 3);
  ASSERT_EQ(array.capacity(), 4u) << "there is room, but the storage is shared";
  counted_array copy(array);
  copy.push_back(counted(99));
  EXPECT_NE(array.begin(), copy.begin());
  EXPECT_EQ(values(array), up_to(3));
  ASSERT_EQ(copy.size(), 4u);
  EXPECT_EQ(copy.capacity(), 5u);
  EXPECT_EQ(copy[3].value(), 99);
  EXPECT_EQ(counted::alive(), 7u);
  array.push_back(counted(3));
  EXPECT_EQ(values(array), up_to(4));
  EXPECT_EQ(copy[3].value(), 99);
}

TEST_F(ZovSharedArray, StorageThatIsNoLongerSharedIsUsedAgain) {
  counted_array array;
  fill(array, 3);
  const counted* const first = array.begin();
  { const counted_array copy(array); }
  array.push_back(counted(3));
  EXPECT_EQ(array.begin(), first);
  EXPECT_EQ(values(array), up_to(4));
}

TEST_F(ZovSharedArray, ClearingOwnStorageDestroysTheElementsAndKeepsIt) {
  counted_array array;
  fill(array, 5);
  const counted* const first = array.begin();
  array.clear();
  EXPECT_EQ(counted::alive(), 0u);
  EXPECT_EQ(array.size(), 0u);
  EXPECT_EQ(array.capacity(), 7u);
  fill(array, 7);
  EXPECT_EQ(array.begin(), first);
  EXPECT_EQ(array.capacity(), 7u);
  EXPECT_EQ(values(array), up_to(7));
}

TEST_F(ZovSharedArray, ClearingReleasesSharedStorage) {
  counted_array array;
  fill(array, 5);
  const counted_array copy(array);
  array.clear();
  EXPECT_EQ(array.size(), 0u);
  EXPECT_EQ(array.capacity(), 0u);
  EXPECT_EQ(values(copy), up_to(5));
  EXPECT_EQ(counted::alive(), 5u);
  fill(array, 2);
  EXPECT_EQ(values(array), up_to(2));
  EXPECT_EQ(values(copy), up_to(5));
}

TEST_F(ZovSharedArray, ClearingNothingIsHarmless) {
  counted_array array;
  array.clear();
  array.clear();
  EXPECT_EQ(array.capacity(), 0u);
  fill(array, 1);
  array.clear();
  array.clear();
  EXPECT_EQ(array.capacity(), 1u);
}

TEST_F(ZovSharedArray, AClearedArrayCanBeShared) {
  counted_array array;
  fill(array, 2);
  array.clear();
  counted_array copy(array);
  fill(copy, 3);
  fill(array, 1);
  EXPECT_EQ(values(copy), up_to(3));
  EXPECT_EQ(values(array), up_to(1));
}

TEST_F(ZovSharedArray, AnElementOfItsOwnCanBeAppended) {
  counted_array array;
  array.push_back(counted(42));
  for (int count = 0; count < 30; ++count) array.push_back(array[0]);  // with and without room
  ASSERT_EQ(array.size(), 31u);
  for (const counted& element : array) EXPECT_EQ(element.value(), 42);
}

TEST_F(ZovSharedArray, AssigningReplacesTheElements) {
  counted_array array;
  fill(array, 3);
  counted_array other;
  fill(other, 6);
  array = other;
  EXPECT_EQ(values(array), up_to(6));
  EXPECT_EQ(counted::alive(), 6u) << "the old elements are gone";
  array = counted_array();
  EXPECT_TRUE(array.empty());
  EXPECT_EQ(values(other), up_to(6));
}

TEST_F(ZovSharedArray, AssigningToItselfChangesNothing) {
  counted_array array;
  fill(array, 3);
  const counted* const first = array.begin();
  counted_array& itself = array;
  array = itself;
  EXPECT_EQ(array.begin(), first);
  EXPECT_EQ(values(array), up_to(3));
  array.push_back(counted(3));
  EXPECT_EQ(array.begin(), first) << "the storage isn't shared by that";
}

TEST_F(ZovSharedArray, SwapExchangesEverything) {
  counted_array array;
  fill(array, 3);
  counted_array other;
  other.swap(array);
  EXPECT_TRUE(array.empty());
  EXPECT_EQ(array.capacity(), 0u);
  EXPECT_EQ(values(other), up_to(3));
}

TEST_F(ZovSharedArray, ACopyOutlivesWhatItWasCopiedFrom) {
  counted_array copy;
  {
    counted_array array;
    fill(array, 10);
    copy = array;
  }
  EXPECT_EQ(counted::alive(), 10u);
  EXPECT_EQ(values(copy), up_to(10));
  copy.push_back(counted(10));
  EXPECT_EQ(values(copy), up_to(11));
}

// The n-th copy of an element throws, for every n until none does: the array is unchanged.
TEST_F(ZovSharedArray, AppendingThatFailsLeavesTheArrayAsItWas) {
  for (int size = 0; size < 12; ++size) {
    for (int shared = 0; shared < 2; ++shared) {
      for (int failing = 1;; ++failing) {
        counted_array array;
        fill(array, size);
        const counted_array copy(shared ? array : counted_array());
        const counted* const first = array.begin();
        const std::size_t capacity = array.capacity();
        const std::size_t alive = counted::alive();
        const counted value(size);
        counted::throw_at_copy(failing);
        try {
          array.push_back(value);
        } catch (const std::runtime_error&) {
          counted::throw_at_copy(0);
          ASSERT_EQ(values(array), up_to(size));
          ASSERT_EQ(array.begin(), first);
          ASSERT_EQ(array.capacity(), capacity);
          ASSERT_EQ(counted::alive(), alive + 1);
          array.push_back(value);
          ASSERT_EQ(values(array), up_to(size + 1));
          continue;
        }
        counted::throw_at_copy(0);
        ASSERT_EQ(values(array), up_to(size + 1));
        ASSERT_GT(failing, 1) << "nothing failed";
        break;
      }
    }
  }
}

TEST_F(ZovSharedArray, HoldsTheTextsOfTemplateFields) {
  zov_shared_array<CZovString> copy;
  {
    zov_shared_array<CZovString> fields;
    fields.push_back(CZovString(u"A"));
    fields.push_back(CZovString(u"a longer text, of which there is one more copy"));
    copy = fields;
    fields.clear();
    fields.push_back(CZovString(u"B"));
  }
  ASSERT_EQ(copy.size(), 2u);
  EXPECT_TRUE(copy[0] == CZovString(u"A"));
  EXPECT_TRUE(copy[1] == CZovString(u"a longer text, of which there is one more copy"));
}

struct alignas(16) wide {
  explicit wide(int n) : number(n) {}
  int number;
};

TEST_F(ZovSharedArray, ElementsStandAtTheirAlignment) {
  zov_shared_array<wide> array;
  for (int number = 0; number < 20; ++number) array.push_back(wide(number));
  for (std::size_t i = 0; i < array.size(); ++i) {
    EXPECT_EQ(reinterpret_cast<std::size_t>(&array[i]) % 16, 0u);
    EXPECT_EQ(array[i].number, static_cast<int>(i));
  }
}

}  // namespace
}  // namespace test
