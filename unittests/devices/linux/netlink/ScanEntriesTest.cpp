#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/nl80211.h>
#include <map>
#include <random>

#include "analysis/ieee80211/ElementIds.h"
#include "devices/linux/netlink/NetlinkBytes.h"
#include "devices/linux/netlink/ScanEntries.h"

namespace wifi_profile::linux::netlink {
namespace {

using namespace ieee80211;  // the words that beacons are made of
using std::chrono::milliseconds;
using std::chrono::seconds;
using testing::ElementsAre;

const Octets kBssid{2, 0, 0, 0, 0, 0x10};
constexpr auto kUptime = seconds(1000);

Octets tim(std::uint8_t period) { return element(kTimId, {0, period, 0, 0}); }
Octets country(std::string_view code) {
  return element(kCountryId, bytesOf(code) + Octets{' ', 1, 13, 20});
}

Octets bss(const Octets& more, const Octets& bssid = kBssid) {
  return attribute(NL80211_BSS_BSSID, bssid) +
         numberAttribute(NL80211_BSS_CAPABILITY, kPrivateCapabilities) + more;
}
Octets newest(const Octets& elements) {
  return attribute(NL80211_BSS_INFORMATION_ELEMENTS, elements);
}
Octets beacon(const Octets& elements) { return attribute(NL80211_BSS_BEACON_IES, elements); }
Octets answered() { return attribute(NL80211_BSS_PRESP_DATA, Octets()); }

std::optional<ScanEntry> entryOf(const Octets& bytes) {
  return scanEntryOf(Attributes(bytes), kUptime);
}
facts::AccessPoint accessPoint(const Octets& more) {
  return entryOf(bss(more)).value().accessPoint;
}

ScanEntry entry(std::string bssid, std::optional<milliseconds> age = {}) {
  ScanEntry made;
  made.accessPoint.bssid = std::move(bssid);
  made.age = age;
  return made;
}

std::map<std::string, facts::AccessPoint> byBssid(std::vector<ScanEntry> entries) {
  std::map<std::string, facts::AccessPoint> points;
  for (auto& point : scanListOf(std::move(entries)).scan.accessPoints) {
    EXPECT_TRUE(points.emplace(point.bssid, point).second) << point.bssid << " comes twice";
  }
  return points;
}

TEST(ScanEntry, TellsWhatTheAttributesAndTheElementsSay) {
  const auto all = entryOf(
      bss(newest(ssid("Home") + bgRates() + rsn({akm::kPsk}) + country("DE") +
                 element(kBssLoadId, {9, 0, 230, 0, 0})) +
          numberAttribute(NL80211_BSS_FREQUENCY, std::uint32_t{2437}) +
          numberAttribute(NL80211_BSS_BEACON_INTERVAL, std::uint16_t{100}) +
          numberAttribute(NL80211_BSS_SIGNAL_MBM, std::int32_t{-4500}) +
          numberAttribute(NL80211_BSS_STATUS, std::uint32_t{NL80211_BSS_STATUS_ASSOCIATED})));
  ASSERT_TRUE(all);
  EXPECT_TRUE(all->joined);
  EXPECT_EQ(all->frequency, 2437);
  const facts::AccessPoint& point = all->accessPoint;
  EXPECT_EQ(point.bssid, "02:00:00:00:00:10");
  EXPECT_EQ(point.ssid, "Home");
  EXPECT_EQ(point.hidesName, false);
  EXPECT_EQ(point.signal, -45);
  ASSERT_TRUE(point.channel);
  EXPECT_EQ(point.channel->primary, 6);
  EXPECT_EQ(point.beaconInterval, 100);
  EXPECT_EQ(point.security, Security::wpa2Personal);
  EXPECT_TRUE(point.modes.g);
  EXPECT_EQ(point.country, "DE");
  EXPECT_EQ(point.channelUtilization, 230);
}

TEST(ScanEntry, WithoutABssidIsNone) {
  EXPECT_FALSE(entryOf(newest(ssid("Home"))));
  EXPECT_FALSE(entryOf(bss(newest(ssid("Home")), Octets{1, 2, 3})));
}

TEST(ScanEntry, HasTheNameOfTheProbeResponseAndHidesItAsTheBeaconDoes) {
  const auto point = accessPoint(answered() + newest(ssid("Secret")) + beacon(ssid("")));
  EXPECT_EQ(point.ssid, "Secret");
  EXPECT_EQ(point.hidesName, true);
  EXPECT_EQ(accessPoint(answered() + newest(ssid("Home")) + beacon(ssid("Home"))).hidesName, false);
}

TEST(ScanEntry, OfABeaconAloneHidesWhatTheBeaconHides) {
  const auto zeros = accessPoint(newest(element(kSsidId, Octets(6, 0))));
  EXPECT_EQ(zeros.hidesName, true);
  EXPECT_FALSE(zeros.ssid);
  EXPECT_EQ(accessPoint(newest(ssid("Home"))).hidesName, false);
}

TEST(ScanEntry, OfAProbeResponseAloneDoesNotTellWhetherItHides) {
  EXPECT_EQ(accessPoint(answered() + newest(ssid("Home"))).hidesName, std::nullopt);
}

TEST(ScanEntry, TakesFromTheBeaconWhatTheProbeResponseLacks) {
  const auto point = accessPoint(answered() + newest(ssid("Home")) +
                                 beacon(ssid("Home") + tim(3) + country("FR")));
  EXPECT_EQ(point.dtimPeriod, 3);
  EXPECT_EQ(point.country, "FR");
}

TEST(ScanEntry, LeavesOutSignalsThatNoRadioHas) {
  const auto signal = [](std::int32_t hundredths) {
    return accessPoint(numberAttribute(NL80211_BSS_SIGNAL_MBM, hundredths)).signal;
  };
  EXPECT_EQ(signal(-9250), -93);  // rounded down
  EXPECT_EQ(signal(-7501), -76);
  EXPECT_EQ(signal(-7500), -75);
  EXPECT_EQ(signal(-50), -1);
  EXPECT_EQ(signal(150), 1);
  EXPECT_FALSE(signal(-2'000'000'000));
  EXPECT_FALSE(signal(10'000));
}

TEST(ScanEntry, KnowsItsAgeByTheClockSinceBootOrAsTheKernelTellsIt) {
  const Octets heard =
      numberAttribute(NL80211_BSS_LAST_SEEN_BOOTTIME, std::uint64_t{998'500'000'000});
  const Octets ago = numberAttribute(NL80211_BSS_SEEN_MS_AGO, std::uint32_t{4000});
  EXPECT_EQ(entryOf(bss(heard + ago))->age, milliseconds(1500));
  EXPECT_EQ(entryOf(bss(ago))->age, milliseconds(4000));
  EXPECT_FALSE(entryOf(bss({}))->age);
  const Octets toCome = numberAttribute(NL80211_BSS_LAST_SEEN_BOOTTIME, ~std::uint64_t{0});
  EXPECT_EQ(entryOf(bss(toCome))->age, milliseconds(0));
}

TEST(ScanList, IsAsOldAsTheYoungestThatIsNotJoined) {
  ScanEntry joined = entry("02:00:00:00:00:01", milliseconds(10));
  joined.joined = true;
  EXPECT_FALSE(scanListOf({joined}).age);
  EXPECT_EQ(scanListOf({joined, entry("02:00:00:00:00:02", milliseconds(9000)),
                        entry("02:00:00:00:00:03", milliseconds(7000)), entry("02:00:00:00:00:04")})
                .age,
            milliseconds(7000));
}

TEST(ScanList, IsWholeUntilTheKernelForgetsWhatTheScanHeardFirst) {
  ScanEntry joined = entry("02:00:00:00:00:01");
  EXPECT_EQ(wholeFor(scanListOf({joined})), seconds(25));
  joined.joined = true;
  EXPECT_EQ(wholeFor(scanListOf({joined})), seconds(15)) << "its scans take longer";
}

TEST(ScanEntry, OfTheEncryptedHalfOfAnOpenNetworkHidesNoName) {
  const Octets twin{2, 0, 0, 0, 0, 0x20};
  const Octets transition =
      element(kVendorId, Octets{0x50, 0x6f, 0x9a, 28} + twin + Octets{4} + bytesOf("Cafe"));
  EXPECT_EQ(accessPoint(newest(ssid("") + transition)).hidesName, false);
  EXPECT_EQ(accessPoint(newest(ssid(""))).hidesName, true);
}

std::vector<std::string> keptOf(std::vector<ScanEntry> entries, milliseconds age) {
  removeOlderThan(age, entries);
  std::vector<std::string> kept;
  for (const ScanEntry& one : entries) kept.push_back(one.accessPoint.bssid);
  return kept;
}

TEST(ScanEntries, OfANewScanAreThoseHeardSinceItBegan) {
  EXPECT_THAT(keptOf({entry("heard", milliseconds(2999)), entry("at the start", milliseconds(3000)),
                      entry("gone", milliseconds(3001)), entry("of unknown age")},
                     milliseconds(3000)),
              ElementsAre("heard", "at the start", "of unknown age"));
}

TEST(ScanEntries, OfANewScanAreAlsoTheJoinedOneAndWhatSharesItsBeacons) {
  ScanEntry joined = entry("02:00:00:00:00:01", milliseconds(9000));
  joined.joined = true;
  joined.others.emplace_back().bssid = "02:00:00:00:00:02";
  EXPECT_THAT(keptOf({joined, entry("02:00:00:00:00:02", milliseconds(9000)),
                      entry("02:00:00:00:00:03", milliseconds(9000))},
                     milliseconds(3000)),
              ElementsAre("02:00:00:00:00:01", "02:00:00:00:00:02"));
}

TEST(ScanList, NamesTheJoinedAccessPoint) {
  ScanEntry joined = entry("02:00:00:00:00:02", {});
  EXPECT_FALSE(scanListOf({entry("02:00:00:00:00:01", {}), joined}).joinedBssid);
  joined.joined = true;
  EXPECT_EQ(scanListOf({entry("02:00:00:00:00:01", {}), joined}).joinedBssid, "02:00:00:00:00:02");
}

TEST(ScanList, IsNotYoungerForWhatIsHeardWithoutScans) {
  ScanEntry joined = entry("02:00:00:00:00:01", milliseconds(10));
  joined.joined = true;
  // The hidden half of the joined network, and the one whose beacons it shares with another one.
  const ScanEntry hidden = entry("02:00:00:00:00:01", milliseconds(20));
  ScanEntry sender = entry("02:00:00:00:00:02", milliseconds(30));
  sender.others.emplace_back().bssid = "02:00:00:00:00:01";
  sender.others.emplace_back().bssid = "02:00:00:00:00:03";
  const ScanEntry sibling = entry("02:00:00:00:00:03", milliseconds(40));
  EXPECT_FALSE(scanListOf({joined, hidden, sender, sibling}).age);
  const ScanEntry other = entry("02:00:00:00:00:04", milliseconds(5000));
  EXPECT_EQ(scanListOf({joined, hidden, sender, sibling, other}).age, milliseconds(5000));
}

TEST(ScanList, KeepsTheEntryWithTheNameAndThatItIsHidden) {
  ScanEntry hidden = entry("02:00:00:00:00:01", milliseconds(10));
  hidden.accessPoint.hidesName = true;
  hidden.accessPoint.country = "DE";
  ScanEntry named = entry("02:00:00:00:00:01", milliseconds(5000));
  named.accessPoint.ssid = "Secret";
  for (const auto& entries : {std::vector{hidden, named}, std::vector{named, hidden}}) {
    const auto points = byBssid(entries);
    ASSERT_EQ(points.size(), 1U);
    const auto& point = points.begin()->second;
    EXPECT_EQ(point.ssid, "Secret");
    EXPECT_EQ(point.hidesName, true);
    EXPECT_EQ(point.country, "DE");
  }
}

Octets announcing() {
  return ssid("Sender") + ofdmRates() +
         multipleBssid(2, profile(profileElements(kOpenCapabilities, "Guests", 1)));
}

TEST(ScanList, AddsNetworksThatOnlyAnotherOnesBeaconsAnnounce) {
  const auto points = byBssid({*entryOf(
      bss(newest(announcing()) + numberAttribute(NL80211_BSS_FREQUENCY, std::uint32_t{5180}) +
          numberAttribute(NL80211_BSS_SIGNAL_MBM, std::int32_t{-6000})))});
  ASSERT_EQ(points.size(), 2U);
  const auto& guests = points.at("02:00:00:00:00:11");
  EXPECT_EQ(guests.ssid, "Guests");
  EXPECT_EQ(guests.transmitterBssid, "02:00:00:00:00:10");
  EXPECT_EQ(guests.signal, -60);
  EXPECT_EQ(guests.dtimPeriod, 3);
  ASSERT_TRUE(guests.channel);
  EXPECT_EQ(guests.channel->primary, 36);
  EXPECT_EQ(guests.security, Security::none);
  EXPECT_FALSE(points.at("02:00:00:00:00:10").transmitterBssid);
}

TEST(ScanList, TellsTheSenderOfAnEntryThatSharesItsBeacons) {
  const Octets guests{2, 0, 0, 0, 0, 0x11};
  const Octets inherited = ssid("Guests") + tim(1) + element(kMultipleBssidIndexId, {1, 3, 1});
  const auto points =
      byBssid({*entryOf(bss(newest(inherited), guests)), *entryOf(bss(newest(announcing())))});
  ASSERT_EQ(points.size(), 2U);
  EXPECT_EQ(points.at("02:00:00:00:00:11").transmitterBssid, "02:00:00:00:00:10");
  EXPECT_EQ(points.at("02:00:00:00:00:11").dtimPeriod, 3) << "not that of the sender's own map";
}

TEST(ScanList, BelievesNobodyWhoAnnouncesANeighbourWithBeaconsOfItsOwn) {
  const Octets neighbour{2, 0, 0, 0, 0, 0x11};
  const auto points = byBssid({*entryOf(bss(newest(announcing()))),
                               *entryOf(bss(newest(ssid("Mine") + tim(1)), neighbour))});
  ASSERT_EQ(points.size(), 2U);
  EXPECT_EQ(points.at("02:00:00:00:00:11").ssid, "Mine");
  EXPECT_FALSE(points.at("02:00:00:00:00:11").transmitterBssid);
  EXPECT_EQ(points.at("02:00:00:00:00:11").dtimPeriod, 1);
}

TEST(ScanList, IsBounded) {
  std::vector<ScanEntry> entries;
  for (std::size_t count = 0; count < kMostAccessPoints + 100; ++count) {
    entries.push_back(entry(std::to_string(count)));
    entries.back().others.emplace_back().bssid = "other " + std::to_string(count);
  }
  EXPECT_EQ(scanListOf(std::move(entries)).scan.accessPoints.size(), kMostAccessPoints);
}

TEST(ScanEntry, OfManyAnnouncedNetworksHasTheFirst) {
  Octets profiles;
  for (std::uint8_t index = 1; index <= 10; ++index) {
    profiles = profiles + profile(profileElements(kOpenCapabilities, "n", index));
  }
  Octets elements = ssid("Sender") + multipleBssid(6, profiles);
  for (int part = 1; part <= 4; ++part) {
    profiles.clear();
    for (int index = 1; index <= 10; ++index) {
      const auto number = static_cast<std::uint8_t>(part * 10 + index);
      profiles = profiles + profile(profileElements(kOpenCapabilities, "n", number));
    }
    elements = elements + multipleBssid(6, profiles);
  }
  EXPECT_EQ(entryOf(bss(newest(elements)))->others.size(), ScanEntry::kMostAnnounced);
}

// Damaged octets may make other values, never one that cannot be.
TEST(ScanEntry, OfDamagedBytesKeepsTheRanges) {
  const Octets whole = bss(answered() + newest(announcing()) + beacon(ssid("") + tim(2)));
  std::mt19937 random(20);
  for (int round = 0; round < 20'000; ++round) {
    Octets bytes = whole;
    for (int change = 0; change < 3; ++change) {
      bytes[random() % bytes.size()] = static_cast<std::uint8_t>(random());
    }
    bytes.resize(bytes.size() - random() % bytes.size());
    const auto made = entryOf(bytes);
    if (!made) continue;
    const auto& point = made->accessPoint;
    ASSERT_EQ(point.bssid.size(), 17U);
    const std::string name = point.ssid.value_or("none");
    ASSERT_TRUE(!name.empty() && name.size() <= kLongestSsid);
    ASSERT_GT(point.dtimPeriod.value_or(1), 0);
    for (const auto& other : made->others) ASSERT_EQ(other.transmitterBssid, point.bssid);
  }
}

}  // namespace
}  // namespace wifi_profile::linux::netlink
