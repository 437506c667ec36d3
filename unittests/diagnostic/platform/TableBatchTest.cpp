// The arithmetic of a table's batches.

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <numeric>
#include <random>

#include "diagnostic/platform/toolkit/TableBatch.h"

namespace wifi_profile::toolkit {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr auto kNew = kNewRow;

TEST(TableBatches, AddUpWhenNothingChanges) {
  EXPECT_TRUE(addsUp({}, 0, 0));
  EXPECT_TRUE(addsUp({}, 3, 3));
  EXPECT_FALSE(addsUp({}, 3, 4));
  EXPECT_FALSE(addsUp({}, 3, 2));
}

TEST(TableBatches, AddUpWhenOldLessDeletedPlusInsertedIsNew) {
  EXPECT_TRUE(addsUp({{0, 2}, {1}}, 4, 3));
  EXPECT_FALSE(addsUp({{0, 2}, {1}}, 4, 2));
  EXPECT_FALSE(addsUp({{0, 2}, {1}}, 4, 4));
  EXPECT_TRUE(addsUp({{0, 1, 2}, {}}, 3, 0));
  EXPECT_TRUE(addsUp({{}, {1, 0}}, 0, 2));
}

TEST(TableBatches, DoNotAddUpWhenARowIsNamedTwice) {
  EXPECT_FALSE(addsUp({{1, 0, 1}, {}}, 4, 1));
  EXPECT_FALSE(addsUp({{}, {2, 0, 2}}, 1, 4));
}

TEST(TableBatches, MayDeleteAndInsertTheSameRow) { EXPECT_TRUE(addsUp({{0}, {0}}, 1, 1)); }

TEST(TableBatches, DoNotAddUpWhenARowIsOutOfRange) {
  EXPECT_FALSE(addsUp({{3}, {}}, 3, 2));
  EXPECT_FALSE(addsUp({{-1}, {}}, 3, 2));
  EXPECT_FALSE(addsUp({{}, {4}}, 3, 4));
  EXPECT_FALSE(addsUp({{}, {-1}}, 3, 4));
  EXPECT_TRUE(addsUp({{2}, {}}, 3, 2));
  EXPECT_TRUE(addsUp({{}, {3}}, 3, 4));
}

TEST(TableBatches, KeepEveryRowWhenNothingChanges) {
  EXPECT_THAT(rowsAfter({}, 3), ElementsAre(0, 1, 2));
  EXPECT_THAT(rowsAfter({}, 0), IsEmpty());
}

TEST(TableBatches, DeleteRowsByTheirOldPlaces) {
  EXPECT_THAT(rowsAfter({{0, 2}, {}}, 4), ElementsAre(1, 3));
  EXPECT_THAT(rowsAfter({{2, 0}, {}}, 4), ElementsAre(1, 3));
}

TEST(TableBatches, InsertRowsAtTheirNewPlaces) {
  EXPECT_THAT(rowsAfter({{}, {0, 2, 4}}, 2), ElementsAre(kNew, 0, kNew, 1, kNew));
  EXPECT_THAT(rowsAfter({{}, {4, 0, 2}}, 2), ElementsAre(kNew, 0, kNew, 1, kNew));
}

TEST(TableBatches, LoseAnOldRowTwoAndGainANewRowOne) {
  EXPECT_THAT(rowsAfter({{2}, {1}}, 4), ElementsAre(0, kNew, 1, 3));
}

TEST(TableBatches, ReplaceRowsInPlace) {
  EXPECT_THAT(rowsAfter({{0}, {0}}, 1), ElementsAre(kNew));
  EXPECT_THAT(rowsAfter({{0, 1}, {1, 0}}, 3), ElementsAre(kNew, kNew, 2));
}

// A list edited at random, and the same edit as a batch.
TEST(TableBatches, ComeOutAsAnEditOfAPlainListDoes) {
  std::mt19937 random(20240607);
  const auto below = [&](std::size_t end) { return static_cast<std::size_t>(random()) % end; };
  for (int round = 0; round < 2000; ++round) {
    std::vector<std::int64_t> edited(below(9));
    std::iota(edited.begin(), edited.end(), 0);
    const auto before = static_cast<std::int64_t>(edited.size());
    RowChanges changes;
    std::erase_if(edited, [&](std::int64_t row) {
      const bool goes = below(3) == 0;
      if (goes) changes.deleted.push_back(row);
      return goes;
    });
    for (std::size_t i = below(5); i > 0; --i) {
      edited.insert(edited.begin() + static_cast<std::ptrdiff_t>(below(edited.size() + 1)), kNew);
    }
    for (std::size_t place = 0; place < edited.size(); ++place) {
      if (edited[place] == kNew) changes.inserted.push_back(static_cast<std::int64_t>(place));
    }
    std::shuffle(changes.deleted.begin(), changes.deleted.end(), random);
    std::shuffle(changes.inserted.begin(), changes.inserted.end(), random);
    const auto expected = static_cast<std::int64_t>(edited.size());
    ASSERT_TRUE(addsUp(changes, before, expected)) << "round " << round;
    ASSERT_EQ(rowsAfter(changes, before), edited) << "round " << round;
    ASSERT_FALSE(addsUp(changes, before, expected + 1)) << "round " << round;
    ASSERT_FALSE(addsUp(changes, before + 1, expected)) << "round " << round;
  }
}

}  // namespace
}  // namespace wifi_profile::toolkit
