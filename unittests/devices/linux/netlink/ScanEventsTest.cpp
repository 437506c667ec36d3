#include <gtest/gtest.h>
#include <linux/nl80211.h>

#include "devices/linux/netlink/NetlinkBytes.h"
#include "devices/linux/netlink/ScanEvents.h"

namespace wifi_profile::linux::netlink {
namespace {

using End = ScanEvents::End;

WifiInterface scanningInterface() {
  WifiInterface interface;
  interface.index = 4;
  interface.wiphy = 1;
  return interface;
}

const WifiInterface kScanning = scanningInterface();

Message event(int command, std::int32_t index = 4) {
  return {.command = command,
          .payload = numberAttribute(NL80211_ATTR_WIPHY, std::uint32_t{1}) +
                     numberAttribute(NL80211_ATTR_IFINDEX, index)};
}

TEST(ScanEvents, AnEndBeforeTheScanBeganIsAnotherScans) {
  ScanEvents events(kScanning, ScansThat::beganAndEnded);
  EXPECT_EQ(events.take(event(NL80211_CMD_NEW_SCAN_RESULTS)), std::nullopt);
  EXPECT_EQ(events.take(event(NL80211_CMD_SCAN_ABORTED)), std::nullopt);
  EXPECT_EQ(events.take(event(NL80211_CMD_TRIGGER_SCAN)), std::nullopt);
  EXPECT_EQ(events.take(event(NL80211_CMD_NEW_SCAN_RESULTS)), End::results);
}

TEST(ScanEvents, AScanThatWasGivenUpEndsToo) {
  ScanEvents events(kScanning, ScansThat::beganAndEnded);
  events.take(event(NL80211_CMD_TRIGGER_SCAN));
  EXPECT_EQ(events.take(event(NL80211_CMD_SCAN_ABORTED)), End::aborted);
}

TEST(ScanEvents, TheEndOfAScanUnderWayCountsWhereItIsAwaited) {
  ScanEvents events(kScanning, ScansThat::ended);
  EXPECT_EQ(events.take(event(NL80211_CMD_NEW_SCAN_RESULTS)), End::results);
}

TEST(ScanEvents, OfOtherInterfacesDoNotCount) {
  ScanEvents events(kScanning, ScansThat::beganAndEnded);
  events.take(event(NL80211_CMD_TRIGGER_SCAN, 5));
  EXPECT_EQ(events.take(event(NL80211_CMD_NEW_SCAN_RESULTS)), std::nullopt);
  events.take(event(NL80211_CMD_TRIGGER_SCAN));
  EXPECT_EQ(events.take(event(NL80211_CMD_NEW_SCAN_RESULTS, 5)), std::nullopt);
}

Message eventOfRadio(int command, std::uint32_t radio) {
  return {.command = command, .payload = numberAttribute(NL80211_ATTR_WIPHY, radio)};
}

TEST(ScanEvents, OfTheSameRadioWithoutAnInterfaceCountWhereABusyRadioIsAwaited) {
  ScanEvents events(kScanning, ScansThat::ended);
  EXPECT_EQ(events.take(eventOfRadio(NL80211_CMD_NEW_SCAN_RESULTS, 2)), std::nullopt);
  EXPECT_EQ(events.take(eventOfRadio(NL80211_CMD_NEW_SCAN_RESULTS, 1)), End::results);
}

TEST(ScanEvents, OfTheSameRadioWithoutAnInterfaceAreNotTheScanThatWasAskedFor) {
  ScanEvents events(kScanning, ScansThat::beganAndEnded);
  events.take(eventOfRadio(NL80211_CMD_TRIGGER_SCAN, 1));
  EXPECT_EQ(events.take(event(NL80211_CMD_NEW_SCAN_RESULTS)), std::nullopt);
  events.take(event(NL80211_CMD_TRIGGER_SCAN));
  EXPECT_EQ(events.take(eventOfRadio(NL80211_CMD_NEW_SCAN_RESULTS, 1)), std::nullopt);
  EXPECT_EQ(events.take(event(NL80211_CMD_NEW_SCAN_RESULTS)), End::results);
}

}  // namespace
}  // namespace wifi_profile::linux::netlink
