#include "xport/markup/text_map.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <map>
#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/markup/tree_text.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/golden.h"

namespace test {
namespace {

/// The entries as "key=value " in the order of the walk.
template <class Map>
std::string listing(const Map& map) {
  EXPECT_EQ(detail::map_fault(map), "");
  std::string text;
  for (const auto& entry : map)
    text += std::to_string(static_cast<std::int32_t>(entry.first)) + "=" + printable(entry.second) +
            " ";
  return text;
}

TEST(TextMap, IsEmptyAtFirst) {
  const attribute_map map;
  EXPECT_TRUE(map.empty());
  EXPECT_EQ(map.size(), 0u);
  EXPECT_TRUE(map.begin() == map.end());
  EXPECT_EQ(map[attr_id::id], u"");
  EXPECT_FALSE(map.contains(attr_id::id));
  EXPECT_EQ(map.pool(), nullptr);
}

TEST(TextMap, AscendsByNumberInAnyOrderOfStoring) {
  int keys[] = {0, 31, 73, 127, 243};
  do {
    attribute_map map;
    for (const int key : keys) map.insert_or_assign(attr_id{key}, ustring(1, u'v'));
    ASSERT_EQ(listing(map), "0=v 31=v 73=v 127=v 243=v ");
  } while (std::next_permutation(std::begin(keys), std::end(keys)));
}

TEST(TextMap, KeepsNumbersOutsideTheTables) {
  style_map map;
  for (const int key : {INT32_MAX, 0, INT32_MIN, -1, 1000})
    map.insert_or_assign(css_property_id{key}, u"x");
  EXPECT_EQ(listing(map), "-2147483648=x -1=x 0=x 1000=x 2147483647=x ");
}

TEST(TextMap, ReplacesTheTextOfAKey) {
  attribute_map map;
  for (const int key : {1, 2, 3}) map.insert_or_assign(attr_id{key}, u"ab");
  for (const char16_t* value : {u"", u"longer than before", u"c", u"cd", u"cde"}) {
    map.insert_or_assign(attr_id{2}, value);
    EXPECT_EQ(listing(map), "1=ab 2=" + printable(value) + " 3=ab ");
  }
}

TEST(TextMap, DistinguishesAnEmptyTextFromNone) {
  attribute_map map;
  map.insert_or_assign(attr_id::id, u"");
  EXPECT_TRUE(map.contains(attr_id::id));
  EXPECT_EQ(map.size(), 1u);
  EXPECT_FALSE(map.empty());
  EXPECT_EQ(map[attr_id::id], u"");
}

TEST(TextMap, ErasesEntries) {
  attribute_map map;
  for (const int key : {1, 2, 3}) map.insert_or_assign(attr_id{key}, ustring(3, u'a'));
  EXPECT_FALSE(map.erase(attr_id{4}));
  EXPECT_TRUE(map.erase(attr_id{2}));
  EXPECT_FALSE(map.erase(attr_id{2}));
  EXPECT_EQ(listing(map), "1=aaa 3=aaa ");
  EXPECT_TRUE(map.erase(attr_id{1}));
  EXPECT_TRUE(map.erase(attr_id{3}));
  EXPECT_TRUE(map.empty());
  map.insert_or_assign(attr_id{5}, u"b");
  EXPECT_EQ(listing(map), "5=b ");
}

TEST(TextMap, ClearsItself) {
  attribute_map map;
  map.clear();
  map.insert_or_assign(attr_id{1}, u"a");
  map.clear();
  map.clear();
  EXPECT_TRUE(map.empty());
  EXPECT_EQ(map[attr_id{1}], u"");
}

TEST(TextMap, StoresTextsOutOfItsOwnMemory) {
  attribute_map map;
  map.insert_or_assign(attr_id{2}, u"0123456789");
  map.insert_or_assign(attr_id{1}, map[attr_id{2}]);
  map.insert_or_assign(attr_id{3}, map[attr_id{2}].substr(3, 4));
  map.insert_or_assign(attr_id{2}, map[attr_id{2}].substr(5));
  EXPECT_EQ(listing(map), "1=0123456789 2=56789 3=3456 ");
  map.insert_or_assign(attr_id{1}, map[attr_id{3}]);
  EXPECT_EQ(listing(map), "1=3456 2=56789 3=3456 ");
}

TEST(TextMap, KeepsTextsOfEveryLength) {
  attribute_map map;
  for (int size = 0; size <= 600; ++size)
    map.insert_or_assign(attr_id{size}, ustring(static_cast<std::size_t>(size), u'\uFFFF'));
  for (int size = 0; size <= 600; ++size)
    ASSERT_EQ(map[attr_id{size}], ustring(static_cast<std::size_t>(size), u'\uFFFF'));
  map.insert_or_assign(attr_id{7}, ustring(5000000, u'z'));
  EXPECT_TRUE(same_units(map[attr_id{7}], ustring(5000000, u'z')));
  EXPECT_EQ(map.size(), 601u);
}

TEST(TextMap, RefusesTextsThatCantBeCounted) {
  attribute_map map;
  map.insert_or_assign(attr_id{1}, u"kept");
  const char16_t unit = u'a';
  const ustring_view endless(&unit, std::size_t{1} << 32);
  EXPECT_THROW(map.insert_or_assign(attr_id{1}, endless), std::length_error);
  EXPECT_THROW(map.insert_or_assign(attr_id{2}, endless), std::length_error);
  EXPECT_EQ(listing(map), "1=kept ");
}

using entries = std::vector<attribute_map::value_type>;

TEST(TextMap, StoresSeveralNewEntriesInTheOrderOfTheirNumbers) {
  const attribute_map::value_type given[] = {
      {attr_id{31}, u"b"}, {attr_id{0}, u""}, {attr_id{243}, u"dddd"}, {attr_id{73}, u"ccc"}};
  std::vector<int> order = {0, 1, 2, 3};
  do {
    entries shuffled;
    for (const int number : order) shuffled.push_back(given[number]);
    attribute_map map;
    map.insert_missing(shuffled);
    ASSERT_EQ(listing(map), "0= 31=b 73=ccc 243=dddd ");
  } while (std::next_permutation(order.begin(), order.end()));
}

TEST(TextMap, KeepsEntriesThatAreThereWhenSeveralAreStored) {
  attribute_map map;
  for (const int key : {2, 4, 6}) map.insert_or_assign(attr_id{key}, u"old");
  map.insert_missing(entries{{attr_id{6}, u"new"}, {attr_id{7}, u"g"}, {attr_id{2}, u"new"}});
  EXPECT_EQ(listing(map), "2=old 4=old 6=old 7=g ");
  map.insert_missing(
      entries{{attr_id{5}, u"e"}, {attr_id{4}, u"new"}, {attr_id{3}, u"c"}, {attr_id{1}, u"a"}});
  EXPECT_EQ(listing(map), "1=a 2=old 3=c 4=old 5=e 6=old 7=g ");
}

TEST(TextMap, AnEmptyTextThatIsThereCountsAsThere) {
  attribute_map map;
  map.insert_or_assign(attr_id{1}, u"");
  map.insert_missing(entries{{attr_id{1}, u"new"}});
  EXPECT_EQ(listing(map), "1= ");
}

TEST(TextMap, StoresTheFirstOfEqualKeysOfSeveralNewEntries) {
  attribute_map map;
  map.insert_missing(entries{{attr_id{3}, u"first"},
                             {attr_id{1}, u""},
                             {attr_id{3}, u"second"},
                             {attr_id{1}, u"second"},
                             {attr_id{2}, u"x"},
                             {attr_id{3}, u"third"}});
  EXPECT_EQ(listing(map), "1= 2=x 3=first ");
}

TEST(TextMap, StoresSeveralNumbersOutsideTheTables) {
  style_map map;
  std::vector<style_map::value_type> given;
  for (const int key : {INT32_MAX, 0, INT32_MIN, -1, 1000})
    given.push_back({css_property_id{key}, u"x"});
  map.insert_missing(given);
  EXPECT_EQ(listing(map), "-2147483648=x -1=x 0=x 1000=x 2147483647=x ");
}

TEST(TextMap, AllocatesOneBlockForSeveralNewEntries) {
  attribute_map map;
  const entries given = {{attr_id{3}, u"a"}, {attr_id{1}, u"b"}, {attr_id{2}, u"c"}};
  const std::size_t before = allocation_calls();
  map.insert_missing(given);
  EXPECT_EQ(allocation_calls() - before, 1u);
  EXPECT_EQ(listing(map), "1=b 2=c 3=a ");
  const entries more = {{attr_id{9}, u"d"}, {attr_id{1}, u"e"}, {attr_id{0}, u"f"}};
  const std::size_t middle = allocation_calls();
  map.insert_missing(more);
  EXPECT_EQ(allocation_calls() - middle, 1u);
  EXPECT_EQ(listing(map), "0=f 1=b 2=c 3=a 9=d ");
}

TEST(TextMap, AllocatesNothingWhereNothingIsNew) {
  attribute_map map;
  map.insert_missing({});
  EXPECT_TRUE(map.empty());
  map.insert_or_assign(attr_id{1}, u"a");
  map.insert_or_assign(attr_id{2}, u"b");
  const ustring_view text = map[attr_id{1}];
  const entries given = {{attr_id{2}, u"x"}, {attr_id{1}, u"y"}, {attr_id{2}, u"z"}};
  const std::size_t before = allocation_calls();
  map.insert_missing(given);
  map.insert_missing({});
  EXPECT_EQ(allocation_calls(), before);
  EXPECT_EQ(map[attr_id{1}].data(), text.data());
  EXPECT_EQ(listing(map), "1=a 2=b ");
}

TEST(TextMap, StoresSeveralTextsOutOfItsOwnMemory) {
  attribute_map map;
  map.insert_or_assign(attr_id{5}, u"0123456789");
  const ustring_view own = map[attr_id{5}];
  map.insert_missing(
      entries{{attr_id{6}, own}, {attr_id{1}, own.substr(7)}, {attr_id{3}, own.substr(2, 3)}});
  EXPECT_EQ(listing(map), "1=789 3=234 5=0123456789 6=0123456789 ");
}

TEST(TextMap, RefusesSeveralEntriesWithATextThatCantBeCounted) {
  attribute_map map;
  map.insert_or_assign(attr_id{1}, u"kept");
  const char16_t unit = u'a';
  const ustring_view endless(&unit, std::size_t{1} << 32);
  EXPECT_THROW(map.insert_missing(entries{{attr_id{2}, u"b"}, {attr_id{3}, endless}}),
               std::length_error);
  EXPECT_EQ(listing(map), "1=kept ");
  map.insert_missing(entries{{attr_id{1}, endless}, {attr_id{2}, u"b"}, {attr_id{2}, endless}});
  EXPECT_EQ(listing(map), "1=kept 2=b ");
}

TEST(TextMap, LimitsTheDifferentKeysOfOneCall) {
  attribute_map map;
  map.insert_or_assign(attr_id{1000}, u"kept");
  entries given;
  for (int key = 7; key >= 0; --key) {
    given.push_back({attr_id{key}, u"v"});
    given.push_back({attr_id{key}, u"w"});
  }
  ASSERT_EQ(given.size(), 2 * attribute_map::most_additions);
  entries too_many = given;
  too_many.push_back({attr_id{8}, u"x"});
  EXPECT_THROW(map.insert_missing(too_many), std::length_error);
  EXPECT_EQ(listing(map), "1000=kept ");
  map.insert_missing(given);
  EXPECT_EQ(listing(map), "0=v 1=v 2=v 3=v 4=v 5=v 6=v 7=v 1000=kept ");
}

TEST(TextMap, StaysAsItWasWhenMemoryRunsOutForSeveralEntries) {
  attribute_map map;
  map.insert_or_assign(attr_id{2}, u"kept");
  const entries given = {{attr_id{3}, u"c"}, {attr_id{1}, u"a"}};
  const std::size_t failures = fail_each_allocation([&] { map.insert_missing(given); },
                                                    [&] { EXPECT_EQ(listing(map), "2=kept "); });
  EXPECT_EQ(failures, 1u);
  EXPECT_EQ(listing(map), "1=a 2=kept 3=c ");
}

/// Random batches for a map and for one of the standard library.
void store_batches_by_chance(attribute_map& map) {
  std::mt19937 random(2);
  std::map<int, ustring> expected;
  for (int step = 0; step < 3000; ++step) {
    std::vector<ustring> values(random() % 7);
    for (ustring& value : values)
      value.assign(random() % 4 == 0 ? random() % 300 : random() % 9,
                   static_cast<char16_t>(u'a' + random() % 26));
    entries given;
    for (const ustring& value : values) {
      const int key = static_cast<int>(random() % 40);
      given.push_back({attr_id{key}, value});
      expected.emplace(key, value);
    }
    map.insert_missing(given);
    if (random() % 8 == 0) {
      map.clear();
      expected.clear();
    }
    ASSERT_EQ(map.size(), expected.size());
    auto entry = map.begin();
    for (const auto& [number, text] : expected) {
      ASSERT_EQ((*entry).first, attr_id{number});
      ASSERT_TRUE(same_units((*entry).second, text));
      ++entry;
    }
  }
}

TEST(TextMap, OnTheHeapStoresBatchesAsAStandardMapDoes) {
  attribute_map map;
  store_batches_by_chance(map);
}

TEST(TextMap, InAPoolStoresBatchesAsAStandardMapDoes) {
  node_pool pool;
  attribute_map map(&pool);
  store_batches_by_chance(map);
}

TEST(TextMap, OfAPoolShareEqualEntries) {
  node_pool pool;
  attribute_map first(&pool);
  attribute_map second(&pool);
  attribute_map other(&pool);
  first.insert_or_assign(attr_id::class_, u"cell");
  second.insert_or_assign(attr_id::class_, u"cell");
  other.insert_or_assign(attr_id::class_, u"cel1");
  EXPECT_EQ(first[attr_id::class_].data(), second[attr_id::class_].data());
  EXPECT_NE(first[attr_id::class_].data(), other[attr_id::class_].data());
  EXPECT_EQ(other[attr_id::class_], u"cel1");
  const attribute_map copy(first, &pool);
  EXPECT_EQ(copy[attr_id::class_].data(), first[attr_id::class_].data());

  const entries several = {{attr_id{7}, u"x"}, {attr_id{3}, u""}};
  attribute_map third(&pool);
  attribute_map fourth(&pool);
  third.insert_missing(several);
  fourth.insert_missing(several);
  EXPECT_EQ(third[attr_id{7}].data(), fourth[attr_id{7}].data());

  second.insert_or_assign(attr_id::class_, u"changed");
  fourth.erase(attr_id{3});
  EXPECT_EQ(listing(first), listing(copy));
  EXPECT_EQ(first[attr_id::class_], u"cell");
  EXPECT_EQ(second[attr_id::class_], u"changed");
  EXPECT_EQ(listing(third), "3= 7=x ");
  EXPECT_EQ(listing(fourth), "7=x ");
}

TEST(TextMap, OnTheHeapShareNothing) {
  attribute_map first;
  attribute_map second;
  first.insert_or_assign(attr_id::class_, u"cell");
  second.insert_or_assign(attr_id::class_, u"cell");
  EXPECT_NE(first[attr_id::class_].data(), second[attr_id::class_].data());
  const attribute_map copy(first);
  EXPECT_NE(copy[attr_id::class_].data(), first[attr_id::class_].data());
}

// Few different entries, so that blocks are shared, changed and released all the time.
TEST(TextMap, ManyOfAPoolDoWhatStandardMapsDo) {
  node_pool pool;
  std::mt19937 random(11);
  std::vector<std::unique_ptr<attribute_map>> maps;
  std::vector<std::map<int, ustring>> expected(30);
  while (maps.size() != expected.size()) maps.push_back(std::make_unique<attribute_map>(&pool));
  const ustring values[] = {u"", u"a", u"top", ustring(300, u'l')};
  for (int step = 0; step < 20'000; ++step) {
    const std::size_t at = random() % maps.size();
    const int key = static_cast<int>(random() % 3);
    const ustring& value = values[random() % 4];
    switch (random() % 5) {
      case 0:
        maps[at]->clear();
        expected[at].clear();
        break;
      case 1:
        ASSERT_EQ(maps[at]->erase(attr_id{key}), expected[at].erase(key) == 1);
        break;
      case 2: {
        const std::size_t from = random() % maps.size();
        maps[at] = std::make_unique<attribute_map>(*maps[from], &pool);
        expected[at] = std::map<int, ustring>(expected[from]);
        break;
      }
      case 3: {
        const entries given = {{attr_id{key}, value}, {attr_id{2}, u"b"}};
        maps[at]->insert_missing(given);
        expected[at].try_emplace(key, value);
        expected[at].try_emplace(2, u"b");
        break;
      }
      default:
        maps[at]->insert_or_assign(attr_id{key}, value);
        expected[at][key] = value;
    }
    std::string listed;
    for (const auto& [number, text] : expected[at])
      listed += std::to_string(number) + "=" + printable(text) + " ";
    ASSERT_EQ(listing(*maps[at]), listed) << step;
  }
}

TEST(TextMap, OfAPoolNeedNoMoreMemoryHoweverOftenTheyChange) {
  node_pool pool;
  attribute_map first(&pool);
  attribute_map second(&pool);
  std::size_t before = 0;
  for (int step = 0; step < 100'000; ++step) {
    if (step == 100) before = allocation_calls();
    const char16 text[] = {static_cast<char16>(u'a' + step % 20), u'\0'};
    first.insert_or_assign(attr_id::id, text);
    second.insert_or_assign(attr_id::id, text);
    first.clear();
    second.clear();
  }
  EXPECT_EQ(allocation_calls(), before);
}

TEST(TextMap, CopiesAreIndependent) {
  node_pool pool;
  attribute_map map(&pool);
  map.insert_or_assign(attr_id{1}, u"a");
  attribute_map on_heap(map);
  attribute_map in_pool(on_heap, &pool);
  const attribute_map empty{attribute_map(), &pool};
  EXPECT_EQ(map.pool(), &pool);
  EXPECT_EQ(on_heap.pool(), nullptr);
  EXPECT_EQ(in_pool.pool(), &pool);
  on_heap.insert_or_assign(attr_id{1}, u"b");
  in_pool.insert_or_assign(attr_id{2}, u"c");
  EXPECT_EQ(listing(map), "1=a ");
  EXPECT_EQ(listing(on_heap), "1=b ");
  EXPECT_EQ(listing(in_pool), "1=a 2=c ");
  EXPECT_TRUE(empty.empty());
}

/// The same random changes of a map and of one of the standard library.
void change_by_chance(attribute_map& map) {
  std::mt19937 random(1);
  std::map<int, ustring> expected;
  for (int step = 0; step < 5000; ++step) {
    const int key = static_cast<int>(random() % 12);
    const std::size_t size = random() % 4 == 0 ? random() % 400 : random() % 9;
    const ustring value(size, static_cast<char16_t>(u'a' + random() % 26));
    if (random() % 3 == 0) {
      ASSERT_EQ(map.erase(attr_id{key}), expected.erase(key) == 1);
    } else {
      map.insert_or_assign(attr_id{key}, value);
      expected[key] = value;
    }
    ASSERT_EQ(map.size(), expected.size());
    auto entry = map.begin();
    for (const auto& [number, text] : expected) {
      ASSERT_EQ((*entry).first, attr_id{number});
      ASSERT_TRUE(same_units((*entry).second, text));
      ++entry;
    }
    ASSERT_TRUE(entry == map.end());
  }
}

TEST(TextMap, OnTheHeapDoesWhatAStandardMapDoes) {
  attribute_map map;
  change_by_chance(map);
}

TEST(TextMap, InAPoolDoesWhatAStandardMapDoes) {
  node_pool pool;
  attribute_map map(&pool);
  change_by_chance(map);
}

// Reading by key returns no reference into the map: an assignment would be lost.
template <class Map, class Text>
concept assigns_by_key = requires(Map& map, const Text& text) {
  map[attr_id::id] = text;
};

TEST(TextMap, AssignmentByKeyDoesNotCompile) {
  EXPECT_FALSE((assigns_by_key<attribute_map, ustring>));
  EXPECT_FALSE((assigns_by_key<attribute_map, ustring_view>));
  EXPECT_FALSE((assigns_by_key<attribute_map, const char16_t*>));
}

}  // namespace
}  // namespace test
