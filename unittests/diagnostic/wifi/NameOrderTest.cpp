// The order of names that is remembered from scan to scan.

#include <gmock/gmock.h>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "diagnostic/wifi/NameOrder.h"
#include "support/FoldingCollator.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;
using Names = std::vector<std::string>;
using Of = NameOrder::Pass::Of;

class NameOrderTest : public ::testing::Test {
 protected:
  // Runs a pass over the names and returns all that are remembered, in order.
  Names pass(const Names& names, Of what = Of::scan) {
    NameOrder::Pass pass(order, what);
    Names all(pass.count());
    for (const std::string& name : names) {
      const auto number = pass.numberOf(makeText(name));
      all.resize(pass.count());
      all[number] = name;
    }
    Names inOrder;
    for (const auto number : pass.inOrder()) inOrder.push_back(all[number]);
    std::erase(inOrder, "");
    return inOrder;
  }

  static Names numbered(int begin, int end) {
    Names names;
    for (int i = begin; i < end; ++i) names.push_back("name" + std::to_string(i));
    return names;
  }

  const std::shared_ptr<FoldingCollator> collator = std::make_shared<FoldingCollator>();
  const InstalledPlatform platform{{.collator = collator.get()}};
  NameOrder order;
};

TEST_F(NameOrderTest, IsByKeyAndThenByBytes) {
  EXPECT_THAT(pass({"home", "Zoo", "HOME", "apple", "Home"}),
              ElementsAre("apple", "HOME", "Home", "home", "Zoo"));
}

TEST_F(NameOrderTest, HoldsForNamesWhoseKeysBeginAlike) {
  const std::string front(16, 'x');
  EXPECT_THAT(pass({front + "b", front, front + "A", "x", front + "a", "xx"}),
              ElementsAre("x", "xx", front, front + "A", front + "a", front + "b"));
}

TEST_F(NameOrderTest, TellsAKeyFromOneWithZerosBehindIt) {
  const std::string zeros("a\0\0", 3);
  EXPECT_THAT(pass({zeros, "b", "a"}), ElementsAre("a", zeros, "b"));
}

TEST_F(NameOrderTest, TakesNewNamesInBetween) {
  pass({"b", "d", "f"});
  EXPECT_THAT(pass({"a", "b", "c", "d", "e", "f", "g"}),
              ElementsAre("a", "b", "c", "d", "e", "f", "g"));
}

TEST_F(NameOrderTest, AsksForAKeyOnceForEachName) {
  pass({"b", "d", "b"});
  EXPECT_EQ(collator->calls(), 2);
  pass({"d", "b", "c"});
  EXPECT_EQ(collator->calls(), 3);
  pass({});
  pass({"b", "c", "d"}, Of::list);
  EXPECT_EQ(collator->calls(), 3);
}

TEST_F(NameOrderTest, ComparesKeysOnly) {
  NameOrder::Pass pass(order, Of::list);
  const auto upper = pass.numberOf(makeText("HOME"));
  const auto lower = pass.numberOf(makeText("home"));
  const auto other = pass.numberOf(makeText("Zoo"));
  pass.inOrder();
  EXPECT_FALSE(pass.hasSmallerKey(upper, lower));
  EXPECT_FALSE(pass.hasSmallerKey(lower, upper));
  EXPECT_TRUE(pass.hasSmallerKey(lower, other));
}

TEST_F(NameOrderTest, RemembersThreeTimesTheLargestPassAtMost) {
  for (int scan = 0; scan < 50; ++scan) {
    pass(numbered(scan * 20, scan * 20 + 100));
    EXPECT_LE(order.count(), 300U);
    EXPECT_GE(order.count(), 100U);
  }
}

TEST_F(NameOrderTest, ForgetsNamesThatTheLatestScanLacksFirst) {
  pass(numbered(0, 100));
  pass(numbered(100, 200));
  pass(numbered(200, 300));
  EXPECT_EQ(order.count(), 300U);
  pass({"one more"}, Of::list);
  EXPECT_EQ(order.count(), 101U);
  const int calls = collator->calls();
  pass(numbered(200, 300));
  EXPECT_EQ(collator->calls(), calls);
  pass({"name7"});
  EXPECT_EQ(collator->calls(), calls + 1);
}

TEST_F(NameOrderTest, IsBoundedWithoutScans) {
  for (int i = 0; i < 50; ++i) pass(numbered(i * 10, i * 10 + 10), Of::list);
  EXPECT_LE(order.count(), 30U);
}

TEST_F(NameOrderTest, StaysRightWhenItForgets) {
  std::mt19937 random(11);
  for (int scan = 0; scan < 300; ++scan) {
    Names names;
    for (auto left = random() % 12; left > 0; --left)
      names.push_back(std::to_string(random() % 99));
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    Names shuffled = names;
    std::shuffle(shuffled.begin(), shuffled.end(), random);
    ASSERT_EQ(pass(shuffled), names);
  }
}

TEST_F(NameOrderTest, ServesSeveralThreads) {
  std::vector<std::thread> threads;
  for (int thread = 0; thread < 4; ++thread) {
    threads.emplace_back([this, thread] {
      for (int i = 0; i < 50; ++i) {
        NameOrder::Pass pass(order, i % 2 == 0 ? Of::scan : Of::list);
        const Names names = numbered(thread * 10 + i, thread * 10 + i + 30);
        for (const std::string& name : names) pass.numberOf(makeText(name));
        EXPECT_EQ(pass.inOrder().size(), pass.count());
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_LE(order.count(), 90U);
}

}  // namespace
}  // namespace wifi_profile
