// Networks by name.

#include <gmock/gmock.h>

#include "diagnostic/wifi/NetworkDictionary.h"

namespace wifi_profile {
namespace {

using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

ScanResultRef network(std::string_view name) {
  return std::make_shared<const VqWiFiScanResult>(makeText(name), nullptr, -50);
}

class NetworkDictionaryTest : public ::testing::Test {
 protected:
  static NetworkDictionary scanned(const NetworkList& networks) {
    const auto byName = std::make_shared<NetworksByName>();
    for (const auto& one : networks) byName->emplace(one->ssidString(), one);
    return NetworkDictionary(byName);
  }
  const ScanResultRef home = network("Home");
  const ScanResultRef cafe = network("Cafe");
  NetworkDictionary networks = scanned({home, cafe});
};

TEST_F(NetworkDictionaryTest, FindsNetworksByTheBytesOfTheirNames) {
  EXPECT_EQ(networks.networkNamed(makeText("Home")), home);
  EXPECT_EQ(networks.networkNamed(makeText("home")), nullptr);
  EXPECT_TRUE(scanned({network("")}).contains(makeText("")));
}

TEST_F(NetworkDictionaryTest, HasNothingUnderNil) {
  networks.remove(nullptr);
  EXPECT_EQ(networks.networkNamed(nullptr), nullptr);
  EXPECT_THAT(networks.networks(), UnorderedElementsAre(home, cafe));
}

TEST_F(NetworkDictionaryTest, IsEmptyAtFirst) {
  EXPECT_THAT(NetworkDictionary().networks(), IsEmpty());
  EXPECT_FALSE(NetworkDictionary().contains(makeText("Home")));
}

TEST_F(NetworkDictionaryTest, AddsANetwork) {
  const auto zoo = network("Zoo");
  networks.set(zoo);
  EXPECT_EQ(networks.networkNamed(makeText("Zoo")), zoo);
  EXPECT_THAT(networks.networks(), UnorderedElementsAre(home, cafe, zoo));
}

TEST_F(NetworkDictionaryTest, ReplacesTheNetworkOfAName) {
  const auto other = network("Home");
  networks.set(other);
  EXPECT_EQ(networks.networkNamed(makeText("Home")), other);
  EXPECT_THAT(networks.networks(), UnorderedElementsAre(other, cafe));
}

TEST_F(NetworkDictionaryTest, RemovesANetworkUntilItIsAddedAgain) {
  networks.remove(makeText("Home"));
  networks.remove(makeText("Elsewhere"));
  EXPECT_FALSE(networks.contains(makeText("Home")));
  EXPECT_THAT(networks.networks(), UnorderedElementsAre(cafe));
  networks.set(home);
  EXPECT_THAT(networks.networks(), UnorderedElementsAre(home, cafe));
}

TEST_F(NetworkDictionaryTest, LeavesACopyAlone) {
  NetworkDictionary copy = networks;
  copy.remove(makeText("Home"));
  copy.set(network("Bistro"));
  EXPECT_THAT(networks.networks(), UnorderedElementsAre(home, cafe));
}

}  // namespace
}  // namespace wifi_profile
