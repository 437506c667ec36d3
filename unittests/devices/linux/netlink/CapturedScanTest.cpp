// Eight access points of hostapd's, as the kernel listed them: what the readers make of bytes that
// they did not make themselves.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/nl80211.h>
#include <map>

#include "devices/linux/netlink/Captures.h"
#include "devices/linux/netlink/LinkEntries.h"
#include "devices/linux/netlink/RadioEntries.h"
#include "devices/linux/netlink/ScanEntries.h"

namespace wifi_profile::linux::netlink {
namespace {

using facts::AccessPoint;
using ieee80211::Band;
using ieee80211::Security;
using testing::ElementsAre;

std::vector<CapturedMessage> messagesWith(int attribute) {
  std::vector<CapturedMessage> found;
  for (CapturedMessage& message : capturedMessages(kCapture)) {
    if (Attributes(message.attributes).has(attribute)) found.push_back(std::move(message));
  }
  return found;
}

// By band and name, a hidden one's as none.
std::map<std::pair<ieee80211::Band, std::string>, facts::AccessPoint> captured() {
  std::vector<ScanEntry> entries;
  for (const CapturedMessage& message : messagesWith(NL80211_ATTR_BSS)) {
    const Attributes attributes(message.attributes);
    auto entry = scanEntryOf(attributes.nested(NL80211_ATTR_BSS), std::chrono::hours(1));
    if (entry) entries.push_back(std::move(*entry));
  }
  std::map<std::pair<ieee80211::Band, std::string>, facts::AccessPoint> all;
  for (const facts::AccessPoint& one : scanListOf(std::move(entries)).scan.accessPoints) {
    if (one.channel) all[{one.channel->band, one.ssid.value_or("")}] = one;
  }
  return all;
}

TEST(CapturedScan, HasEachNetworkWithItsSecurity) {
  std::map<std::pair<ieee80211::Band, std::string>, ieee80211::Security> kinds;
  for (const auto& [name, one] : captured()) kinds[name] = one.security;
  EXPECT_EQ(kinds,
            (std::map<std::pair<ieee80211::Band, std::string>, ieee80211::Security>{
                {{ieee80211::Band::ghz2, ""}, ieee80211::Security::wpa2Personal},
                {{ieee80211::Band::ghz2, "Airport"}, ieee80211::Security::wpa2Enterprise},
                {{ieee80211::Band::ghz2, "Attic"}, ieee80211::Security::wep},
                {{ieee80211::Band::ghz2, "Birchlane"}, ieee80211::Security::wpa2Personal},
                {{ieee80211::Band::ghz2, "Cellar"}, ieee80211::Security::wpaPersonal},
                {{ieee80211::Band::ghz2, "Quiet"}, ieee80211::Security::owe},
                {{ieee80211::Band::ghz5, "Birchlane"}, ieee80211::Security::wpa2Wpa3Personal},
                {{ieee80211::Band::ghz5, "Garden"}, ieee80211::Security::wpa3Personal},
            }));
}

TEST(CapturedScan, HasWhatARouterSaysOfItself) {
  const facts::AccessPoint router = captured()[{ieee80211::Band::ghz2, "Birchlane"}];
  EXPECT_EQ(router.maker, "Fictional Radios");
  EXPECT_EQ(router.model, "Home Box");
  EXPECT_EQ(router.country, "DE");
  EXPECT_EQ(router.channelUtilization, 120);
  EXPECT_EQ(router.channel->primary, 6);
  EXPECT_EQ(router.beaconInterval, 100);
  EXPECT_EQ(router.dtimPeriod, 2);
  EXPECT_EQ(router.signal, -45);
}

TEST(CapturedScan, HasGenerationsAndWidths) {
  auto points = captured();
  const facts::AccessPoint wide = points[{ieee80211::Band::ghz5, "Birchlane"}];
  EXPECT_TRUE(wide.modes.ac && wide.modes.ax && !wide.modes.be);
  ASSERT_TRUE(wide.channel->extent);
  EXPECT_EQ(wide.channel->primary, 36);
  const facts::AccessPoint old = points[{ieee80211::Band::ghz2, "Attic"}];
  EXPECT_THAT(old.basicRates, ElementsAre(2, 4));
  EXPECT_TRUE(old.modes.b && !old.modes.g && !old.modes.n);
}

TEST(CapturedScan, KnowsAHiddenNetworkAndAHotspot) {
  auto points = captured();
  EXPECT_EQ((points[{ieee80211::Band::ghz2, ""}].hidesName), true);
  const facts::AccessPoint hotspot = points[{ieee80211::Band::ghz2, "Airport"}];
  EXPECT_TRUE(hotspot.isPasspoint);
  EXPECT_TRUE(hotspot.additionalStepNeeded);
  EXPECT_EQ(hotspot.accessNetworkType, 2);
}

}  // namespace
}  // namespace wifi_profile::linux::netlink
