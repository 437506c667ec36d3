// The cache of sort keys.

#include <gmock/gmock.h>
#include <string>
#include <thread>
#include <vector>

#include "diagnostic/wifi/SortKeys.h"
#include "support/FoldingCollator.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;
using Names = std::vector<std::string>;

class SortKeysTest : public ::testing::Test {
 protected:
  Names keysOf(const Names& names) {
    NetworkList list;
    for (const std::string& name : names) {
      list.push_back(std::make_shared<const VqWiFiScanResult>(makeText(name), nullptr, -50));
    }
    Names result;
    for (const SortKey& key : keys.of(list)) result.push_back(*key);
    return result;
  }
  static Names numbered(int begin, int end) {
    Names names;
    for (int i = begin; i < end; ++i) names.push_back("name" + std::to_string(i));
    return names;
  }

  const std::shared_ptr<FoldingCollator> collator = std::make_shared<FoldingCollator>();
  const InstalledPlatform platform{{.collator = collator.get()}};
  SortKeys keys;
};

TEST_F(SortKeysTest, AreInTheOrderOfTheNetworks) {
  EXPECT_THAT(keysOf({"Zoo", "HOME", "", "home"}), ElementsAre("zoo", "home", "", "home"));
}

TEST_F(SortKeysTest, AreComputedOnceForEachName) {
  keysOf({"b", "d", "b"});
  EXPECT_EQ(collator->calls(), 2);
  keysOf({"d", "b", "c"});
  EXPECT_EQ(collator->calls(), 3);
}

TEST_F(SortKeysTest, AreKeptForAsManyOtherNames) {
  keysOf(numbered(0, 100));
  keysOf(numbered(100, 200));
  keysOf(numbered(0, 100));
  EXPECT_EQ(collator->calls(), 200);
}

TEST_F(SortKeysTest, AreForgottenBeyondThat) {
  keysOf(numbered(0, 100));
  keysOf(numbered(100, 199));
  EXPECT_EQ(collator->calls(), 199);
  keysOf(numbered(100, 199));
  EXPECT_EQ(collator->calls(), 199);
  keysOf(numbered(0, 1));
  EXPECT_EQ(collator->calls(), 200);
}

TEST_F(SortKeysTest, ServeSeveralThreads) {
  std::vector<std::thread> threads;
  for (int thread = 0; thread < 4; ++thread) {
    threads.emplace_back([this, thread] {
      for (int i = 0; i < 50; ++i) {
        const Names names = numbered(thread * 10 + i, thread * 10 + i + 30);
        EXPECT_EQ(keysOf(names), names);
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
}  // namespace wifi_profile
