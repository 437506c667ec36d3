// Networks by name.

#include <gmock/gmock.h>
#include <map>
#include <random>

#include "diagnostic/wifi/NetworkDictionary.h"

namespace wifi_profile {
namespace {

ScanResultRef network(std::string_view name, std::int64_t strength = -50) {
  return std::make_shared<const VqWiFiScanResult>(makeText(name), nullptr, strength);
}

TEST(NetworkDictionary, FindsNetworksByTheBytesOfTheirNames) {
  const auto home = network("Home");
  const NetworkDictionary networks({home, network("home"), network("")});
  EXPECT_EQ(networks.networkNamed(makeText("Home")), home);
  EXPECT_NE(networks.networkNamed(makeText("home")), home);
  EXPECT_TRUE(networks.contains(makeText("")));
  EXPECT_EQ(networks.networkNamed(makeText("HOME")), nullptr);
  EXPECT_EQ(networks.count(), 3U);
}

TEST(NetworkDictionary, FindsNothingUnderNil) {
  NetworkDictionary networks({network("")});
  EXPECT_EQ(networks.networkNamed(nullptr), nullptr);
  EXPECT_FALSE(networks.contains(nullptr));
  networks.remove(nullptr);
  EXPECT_EQ(networks.count(), 1U);
}

TEST(NetworkDictionary, IsEmptyAtFirst) {
  EXPECT_EQ(NetworkDictionary().count(), 0U);
  EXPECT_FALSE(NetworkDictionary().contains(makeText("Home")));
}

TEST(NetworkDictionary, ReplacesTheNetworkOfAName) {
  NetworkDictionary networks({network("Home")});
  const auto other = network("Home");
  networks.set(other);
  EXPECT_EQ(networks.networkNamed(makeText("Home")), other);
  EXPECT_EQ(networks.count(), 1U);
}

TEST(NetworkDictionary, LeavesACopyAlone) {
  const NetworkDictionary before({network("Home"), network("Cafe")});
  NetworkDictionary after = before;
  after.remove(makeText("Home"));
  after.set(network("Bistro"));
  EXPECT_TRUE(before.contains(makeText("Home")));
  EXPECT_FALSE(before.contains(makeText("Bistro")));
  EXPECT_FALSE(after.contains(makeText("Home")));
  EXPECT_EQ(after.count(), 2U);
}

TEST(NetworkDictionary, KeepsTheOrderOfItsList) {
  const NetworkList list{network("b"), network("a"), network("c")};
  EXPECT_EQ(NetworkDictionary(list).networks(), list);
}

TEST(NetworkDictionary, FindsThePositionWhateverTheGuess) {
  const NetworkDictionary networks({network("a"), network("b")});
  for (const NetworkDictionary::Position guess : {0U, 1U, 2U, 77U, NetworkDictionary::kNone}) {
    EXPECT_EQ(networks.positionOf(makeText("b"), guess), 1U);
    EXPECT_EQ(networks.positionOf(makeText("c"), guess), NetworkDictionary::kNone);
    EXPECT_EQ(networks.positionOf(nullptr, guess), NetworkDictionary::kNone);
  }
}

TEST(NetworkDictionary, DoesAsAMapDoes) {
  std::mt19937 random(3);
  for (int round = 0; round < 200; ++round) {
    NetworkDictionary networks;
    std::map<std::string, ScanResultRef> map;
    for (int step = 0; step < 200; ++step) {
      const std::string name = std::to_string(random() % 40);
      if (random() % 2 == 0) {
        const auto added = network(name);
        networks.set(added);
        map[name] = added;
      } else {
        networks.remove(makeText(name));
        map.erase(name);
      }
    }
    ASSERT_EQ(networks.count(), map.size());
    for (int name = 0; name < 40; ++name) {
      const auto found = map.find(std::to_string(name));
      ASSERT_EQ(networks.networkNamed(makeText(std::to_string(name))),
                found == map.end() ? nullptr : found->second);
    }
  }
}

// The table is searched from the upper bits of a hash; these names agree in all lower ones that a
// table of their number could be searched from.
TEST(NetworkDictionary, HoldsManyNamesWhoseHashesEndAlike) {
  constexpr std::uint64_t kEnd = 0x1F;
  NetworkList list;
  for (int i = 0; list.size() < 100'000; ++i) {
    auto candidate = network(std::to_string(i));
    if ((candidate->ssidString()->hash() & kEnd) == 1) list.push_back(std::move(candidate));
  }
  const NetworkDictionary networks(list);
  for (const auto& one : list) ASSERT_EQ(networks.networkNamed(one->ssidString()), one);
}

TEST(TextHash, IsThatOfTheBytes) {
  EXPECT_EQ(makeText("Home")->hash(), makeText("Home")->hash());
  EXPECT_NE(makeText("Home")->hash(), makeText("home")->hash());
  EXPECT_NE(makeText("")->hash(), 0U);
}

TEST(TextHash, TellsTextsOfAllLengthsApart) {
  std::map<std::uint64_t, std::size_t> lengths;
  for (std::size_t length = 0; length < 200; ++length) {
    lengths[makeText(std::string(length, '\0'))->hash()] = length;
    for (std::size_t i = 0; i < length; ++i) {
      std::string text(length, '\0');
      text[i] = 'a';
      lengths[makeText(text)->hash()] = length;
    }
  }
  EXPECT_EQ(lengths.size(), 200U + 199U * 200U / 2U);
}

}  // namespace
}  // namespace wifi_profile
