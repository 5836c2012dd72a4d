// The rules of the store that no operation shows on its own: what a full table, a spent id range, a full counter and
// a walk over a changing table do.
#include "driver/store.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace lmq::sim;

TEST(Store, TableTellsDuplicateFromFull) {
    Table<int, std::string> table(2);
    EXPECT_EQ(table.insert(1, "one"), Insert::ok);
    EXPECT_EQ(table.insert(2, "two"), Insert::ok);
    EXPECT_EQ(table.insert(3, "three"), Insert::full);
    EXPECT_EQ(table.insert(1, "other"), Insert::exists);
    EXPECT_EQ(*table.find(1), "one");

    EXPECT_TRUE(table.erase(1));
    EXPECT_FALSE(table.erase(1));
    EXPECT_EQ(table.find(1), nullptr);
    EXPECT_EQ(table.insert(3, "three"), Insert::ok);
}

TEST(Store, WalkSurvivesErasure) {
    Table<int, int> table(8);
    for (int key : {5, 1, 3, 7}) table.insert(key, key * 10);

    std::vector<int> seen;
    for (auto at = table.begin(); at != table.end();) {
        const int key = at->first;
        seen.push_back(key);
        table.erase(key);
        at = table.after(key);
    }
    EXPECT_EQ(seen, (std::vector{1, 3, 5, 7}));

    for (int key : {1, 2, 3, 4}) table.insert(key, key);
    EXPECT_EQ(table.erase_if([](int key, int value) { return key % 2 == 0 && value > 0; }), 2U);
    EXPECT_EQ(table.size(), 2U);
}

TEST(Store, IdsAreUniqueAndAReturnedOneRests) {
    Ids ids(1000, 1002);
    EXPECT_EQ(ids.give(), 1000U);
    EXPECT_EQ(ids.give(), 1001U);
    EXPECT_TRUE(ids.take_back(1000));
    EXPECT_FALSE(ids.take_back(1000));
    EXPECT_FALSE(ids.held(1000));
    EXPECT_EQ(ids.give(), 1002U) << "an id must rest while others are free";
    EXPECT_EQ(ids.give(), 1000U);
    EXPECT_EQ(ids.give(), std::nullopt);
    EXPECT_TRUE(ids.take_back(1001));
    EXPECT_EQ(ids.give(), 1001U);
}

TEST(Store, CounterStopsAtItsWidthAndClears) {
    Counter<std::uint32_t> counter;
    counter.add(0xFFFFFFFE);
    counter.add(5);
    EXPECT_EQ(counter.read(), 0xFFFFFFFF);
    EXPECT_EQ(counter.read(true), 0xFFFFFFFF);
    EXPECT_EQ(counter.read(), 0U);
}

TEST(Store, MergeTakesFlaggedMembersOfAnyKind) {
    struct Config {
        int number;
        unsigned char bytes[3];
    };
    Config kept{1, {1, 2, 3}};
    const Config given{2, {4, 5, 6}};
    merge(false, kept.number, given.number);
    merge(true, kept.bytes, given.bytes);
    EXPECT_EQ(kept.number, 1);
    EXPECT_EQ(kept.bytes[2], 6);
}

}  // namespace
