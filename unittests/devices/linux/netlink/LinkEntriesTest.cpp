// Interfaces and the link.

#include <gtest/gtest.h>
#include <linux/nl80211.h>

#include "devices/linux/netlink/LinkEntries.h"
#include "devices/linux/netlink/NetlinkBytes.h"

namespace wifi_profile::linux::netlink {
namespace {

using InterfaceRole = facts::RadioInterface::Role;

const ieee80211::Octets kAddress{2, 0, 0, 0, 1, 0};

WifiInterface wlan0() {
  WifiInterface interface;
  interface.name = "wlan0";
  interface.index = 4;
  interface.role = InterfaceRole::station;
  interface.ssid = "Home";
  interface.frequency = 2437;
  return interface;
}

ieee80211::Octets station(const ieee80211::Octets& information) {
  return attribute(NL80211_ATTR_MAC, kAddress) + attribute(NL80211_ATTR_STA_INFO, information);
}

std::optional<StationEntry> readStation(const ieee80211::Octets& bytes) {
  return stationEntryOf(Attributes(bytes));
}

std::optional<WifiInterface> readInterface(const ieee80211::Octets& bytes) {
  return interfaceOf(Attributes(bytes));
}

WifiInterface interfaceLike(InterfaceRole role, int index, std::optional<int> frequency) {
  WifiInterface interface;
  interface.role = role;
  interface.index = index;
  interface.frequency = frequency;
  return interface;
}

TEST(WifiInterfaces, AreReadWhole) {
  const auto read =
      readInterface(numberAttribute(NL80211_ATTR_WIPHY, std::uint32_t{2}) +
                    attribute(NL80211_ATTR_IFNAME, "wlan0") +
                    numberAttribute(NL80211_ATTR_IFINDEX, std::uint32_t{4}) +
                    attribute(NL80211_ATTR_MAC, kAddress) +
                    numberAttribute(NL80211_ATTR_IFTYPE, std::uint32_t{NL80211_IFTYPE_STATION}) +
                    attribute(NL80211_ATTR_SSID, ieee80211::bytesOf("Home")) +
                    numberAttribute(NL80211_ATTR_WIPHY_FREQ, std::uint32_t{2437}));
  ASSERT_TRUE(read);
  WifiInterface expected = wlan0();
  expected.wiphy = 2;
  expected.mac = "02:00:00:00:01:00";
  expected.role = InterfaceRole::station;
  EXPECT_EQ(*read, expected);
}

TEST(WifiInterfaces, OfPeersWithoutAChannelAreNoPeerLinks) {
  for (const std::uint32_t type : {NL80211_IFTYPE_MESH_POINT, NL80211_IFTYPE_ADHOC,
                                   NL80211_IFTYPE_P2P_CLIENT, NL80211_IFTYPE_P2P_GO}) {
    const ieee80211::Octets down = numberAttribute(NL80211_ATTR_WIPHY, std::uint32_t{2}) +
                                   numberAttribute(NL80211_ATTR_IFTYPE, type);
    EXPECT_EQ(readInterface(down)->role, InterfaceRole::other);
    const ieee80211::Octets channel = numberAttribute(NL80211_ATTR_WIPHY_FREQ, std::uint32_t{2437});
    EXPECT_EQ(readInterface(down + channel)->role, InterfaceRole::peerLink);
  }
}

TEST(WifiInterfaces, WithoutARadioAreNone) {
  EXPECT_FALSE(readInterface(attribute(NL80211_ATTR_IFNAME, "wlan0")));
}

TEST(WifiInterfaces, HaveNoNameLongerThanTheStandards) {
  const ieee80211::Octets wiphy = numberAttribute(NL80211_ATTR_WIPHY, std::uint32_t{0});
  EXPECT_FALSE(
      readInterface(wiphy + attribute(NL80211_ATTR_SSID, ieee80211::Octets(33, 'a')))->ssid);
  EXPECT_FALSE(readInterface(wiphy + attribute(NL80211_ATTR_SSID, ieee80211::Octets()))->ssid);
}

TEST(WifiInterfaces, JoinedStationsComeFirst) {
  std::vector<WifiInterface> interfaces{interfaceLike(InterfaceRole::accessPoint, 1, 2412),
                                        interfaceLike(InterfaceRole::station, 2, {}),
                                        interfaceLike(InterfaceRole::station, 5, 2437),
                                        interfaceLike(InterfaceRole::station, 4, 5180)};
  sortForUse(interfaces);
  std::vector<int> order;
  for (const auto& one : interfaces) order.push_back(one.index);
  EXPECT_EQ(order, (std::vector{4, 5, 2, 1}));
}

TEST(StationEntry, HasTheParametersOfTheNetwork) {
  const auto read = readStation(
      station(attribute(NL80211_STA_INFO_BSS_PARAM,
                        numberAttribute(NL80211_STA_BSS_PARAM_BEACON_INTERVAL, std::uint16_t{100}) +
                            numberAttribute(NL80211_STA_BSS_PARAM_DTIM_PERIOD, std::uint8_t{3}))));
  ASSERT_TRUE(read);
  EXPECT_EQ(read->address, "02:00:00:00:01:00");
  EXPECT_EQ(read->beaconInterval, 100);
  EXPECT_EQ(read->dtimPeriod, 3);
}

TEST(StationEntry, MeansComeBeforeTheLastFramesSignal) {
  const ieee80211::Octets last = numberAttribute(NL80211_STA_INFO_SIGNAL, std::int8_t{-40});
  const ieee80211::Octets mean = numberAttribute(NL80211_STA_INFO_SIGNAL_AVG, std::int8_t{-50});
  const ieee80211::Octets beacons =
      numberAttribute(NL80211_STA_INFO_BEACON_SIGNAL_AVG, std::int8_t{-60});
  EXPECT_EQ(readStation(station(last))->signal, -40);
  EXPECT_EQ(readStation(station(mean + last))->signal, -50);
  EXPECT_EQ(readStation(station(mean + last + beacons))->signal, -60);
}

TEST(StationEntry, ZeroMeansThatTheDriverDoesNotKnow) {
  const auto read = readStation(
      station(numberAttribute(NL80211_STA_INFO_SIGNAL, std::int8_t{0}) +
              attribute(NL80211_STA_INFO_BSS_PARAM,
                        numberAttribute(NL80211_STA_BSS_PARAM_BEACON_INTERVAL, std::uint16_t{0}) +
                            numberAttribute(NL80211_STA_BSS_PARAM_DTIM_PERIOD, std::uint8_t{0}))));
  ASSERT_TRUE(read);
  EXPECT_EQ(*read, (StationEntry{.address = "02:00:00:00:01:00"}));
}

TEST(StationEntry, OfADirectLinkIsNotTheAccessPoint) {
  const std::uint32_t bit = 1U << NL80211_STA_FLAG_TDLS_PEER;
  EXPECT_FALSE(readStation(station(attribute(
      NL80211_STA_INFO_STA_FLAGS, octetsOf(nl80211_sta_flag_update{.mask = bit, .set = bit})))));
  EXPECT_TRUE(readStation(station(attribute(
      NL80211_STA_INFO_STA_FLAGS, octetsOf(nl80211_sta_flag_update{.mask = bit, .set = 0})))));
}

TEST(Link, OfAnAccessPointsGuestIsNone) {
  WifiInterface interface = wlan0();
  interface.role = InterfaceRole::accessPoint;
  EXPECT_FALSE(linkOf(interface, StationEntry{.address = "02:00:00:00:01:00"}, {}));
}

TEST(Link, WithoutAStationEntryIsNone) { EXPECT_FALSE(linkOf(wlan0(), {}, {})); }

TEST(Link, WithoutANameIsNone) {
  WifiInterface interface = wlan0();
  interface.ssid.reset();
  EXPECT_FALSE(linkOf(interface, StationEntry{.address = "02:00:00:00:01:00"}, {}));
}

TEST(Link, IsFilledInFromTheScanList) {
  WifiInterface interface = wlan0();
  interface.ssid.reset();
  interface.frequency.reset();
  ScanEntry joined;
  joined.frequency = 5180;
  joined.accessPoint.bssid = "02:00:00:00:01:08";
  joined.accessPoint.ssid = "Home";
  joined.accessPoint.signal = -71;
  joined.accessPoint.beaconInterval = 102;
  joined.accessPoint.dtimPeriod = 2;
  const StationEntry station{.address = "02:00:00:00:01:00", .signal = -55};
  const facts::Link expected{.interface = "wlan0",
                             .ssid = "Home",
                             .bssid = "02:00:00:00:01:08",
                             .signal = -55,
                             .frequency = 5180,
                             .beaconInterval = 102,
                             .dtimPeriod = 2};
  EXPECT_EQ(linkOf(interface, station, joined), expected);
}

LinkEvents saidBy(int command, const ieee80211::Octets& more = {}, int index = 4) {
  LinkEvents events;
  addToLinkEvents({.command = command,
                   .payload = numberAttribute(NL80211_ATTR_IFINDEX, std::int32_t{index}) + more},
                  wlan0(), events);
  return events;
}

TEST(LinkEvents, TellALossAJoiningARoamAndAnotherChannel) {
  EXPECT_EQ(saidBy(NL80211_CMD_DISCONNECT), LinkEvents{.lost = true});
  EXPECT_EQ(saidBy(NL80211_CMD_CONNECT), LinkEvents{.joined = true});
  EXPECT_EQ(saidBy(NL80211_CMD_ROAM), LinkEvents{.joined = true});
  EXPECT_EQ(saidBy(NL80211_CMD_CH_SWITCH_NOTIFY), LinkEvents{.changedChannel = true});
  EXPECT_FALSE(saidBy(NL80211_CMD_NEW_STATION).any());
}

TEST(LinkEvents, OfAJoiningThatFailedTellNothing) {
  const auto status = [](std::uint16_t code) {
    return numberAttribute(NL80211_ATTR_STATUS_CODE, code);
  };
  EXPECT_FALSE(saidBy(NL80211_CMD_CONNECT, status(17)).any());
  EXPECT_TRUE(saidBy(NL80211_CMD_CONNECT, status(0)).joined);
}

TEST(LinkEvents, OfOtherInterfacesTellNothing) {
  EXPECT_FALSE(saidBy(NL80211_CMD_DISCONNECT, {}, 5).any());
  LinkEvents events;
  addToLinkEvents({.command = NL80211_CMD_DISCONNECT, .payload = {}}, wlan0(), events);
  EXPECT_FALSE(events.any());
}

}  // namespace
}  // namespace wifi_profile::linux::netlink
