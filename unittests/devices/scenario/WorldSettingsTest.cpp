#include <gtest/gtest.h>

#include "WorldTesting.h"

namespace wifi_profile::scenario {
namespace {

TEST(WorldSettings, ReadsSettingsByName) {
  const checks::Settings settings =
      worldOf(R"({"settings":{"poorSignalBelow":-70,"longBeaconIntervalAbove":1,
      "longDtimPeriodAbove":2,"largeSavedListAbove":3,"bluetoothConnectedAbove":4,
      "bluetoothPairedAbove":5,"congestedBusyShare":0.5,"congestedUtilization":100,
      "congestedNeighbours":2.5,"ambiguousNames":["a"],"hotspotSubnets":["192.168.43.0/24"],
      "baseStationMakers":["kontor"],"baseStationAddressBlocks":["02:21:8d"]}})")
          .settings;
  EXPECT_EQ(settings, (checks::Settings{.poorSignalBelow = -70,
                                        .longBeaconIntervalAbove = 1,
                                        .longDtimPeriodAbove = 2,
                                        .largeSavedListAbove = 3,
                                        .bluetoothConnectedAbove = 4,
                                        .bluetoothPairedAbove = 5,
                                        .congestedBusyShare = 0.5,
                                        .congestedUtilization = 100,
                                        .congestedNeighbours = 2.5,
                                        .ambiguousNames = {"a"},
                                        .hotspotSubnets = {"192.168.43.0/24"},
                                        .baseStationMakers = {"kontor"},
                                        .baseStationAddressBlocks = {"02:21:8d"}}));
  EXPECT_EQ(worldOf("{}").settings, checks::defaultSettings());
  EXPECT_EQ(faultIn(R"({"settings":{"congestedBusyShare":70}})"),
            "/world/settings/congestedBusyShare: found the number 70, expected a number from 0 to "
            "1");
  EXPECT_NE(faultIn(R"({"settings":{"poorSignal":-70}})"), "");
}

TEST(WorldSettings, TakesNetworksAndFirstBytesThatCanMatch) {
  for (const char* subnet : {"", "192.168.43.0", "192.168.43.0/", "192.168.43.0/33", "a/24",
                             "192.168.43/24", "fe80::/64", "10.0.0.0/8 "}) {
    EXPECT_EQ(faultIn(R"({"settings":{"hotspotSubnets":["10.0.0.0/0",")" + std::string(subnet) +
                      R"("]}})"),
              "/world/settings/hotspotSubnets/1: found the text \"" + std::string(subnet) +
                  "\", expected a network such as \"192.168.43.0/24\"");
  }
  EXPECT_EQ(
      worldOf(R"({"settings":{"baseStationAddressBlocks":["02:21:8D","02","02:21:8d:00:00:01"]}})")
          .settings.baseStationAddressBlocks,
      (std::vector<std::string>{"02:21:8d", "02", "02:21:8d:00:00:01"}));
  for (const char* block : {"", "02-21-8D", "0", "02:", "02:2", "02:2g", "2:21:8d", ":02",
                            "02:21:8d:00:00:01:02", "02218d"}) {
    EXPECT_EQ(
        faultIn(R"({"settings":{"baseStationAddressBlocks":[")" + std::string(block) + R"("]}})"),
        "/world/settings/baseStationAddressBlocks/0: found the text \"" + std::string(block) +
            "\", expected the first bytes of an address, such as \"02:21:8d\"");
  }
}

}  // namespace
}  // namespace wifi_profile::scenario
