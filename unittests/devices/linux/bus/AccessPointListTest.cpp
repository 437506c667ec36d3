// What NetworkManager's list of access points says of the air.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "devices/linux/bus/AccessPointList.h"
#include "devices/linux/bus/Values.h"

namespace wifi_profile::linux::bus {
namespace {

using namespace std::chrono_literals;
using ieee80211::Security;

constexpr auto kNow = 1000s;

BusValue::Map cafe() {
  return {{"HwAddress", text("02:AA:00:00:00:01")},
          {"Ssid", bytes("Cafe")},
          {"Strength", number(75)},
          {"Frequency", number(2462)},
          {"Flags", number(1)},
          {"WpaFlags", number(0)},
          {"RsnFlags", number(0x188)},
          {"LastSeen", number(960)}};
}

std::optional<facts::AccessPoint> read(BusValue::Map properties) {
  return accessPointFrom(map(std::move(properties)), kNow);
}

facts::AccessPoint with(const char* key, BusValue value) {
  auto properties = cafe();
  properties[key] = std::move(value);
  return read(std::move(properties)).value();
}

TEST(ListedAccessPoint, HasWhatTheManagerTells) {
  const auto point = read(cafe());
  ASSERT_TRUE(point);
  EXPECT_TRUE(point->isSecondHand);
  EXPECT_EQ(point->bssid, "02:aa:00:00:00:01");
  EXPECT_EQ(point->ssid, "Cafe");
  EXPECT_EQ(point->hidesName, std::nullopt);
  EXPECT_EQ(point->signal, -55);
  ASSERT_TRUE(point->channel);
  EXPECT_EQ(point->channel->primary, 11);
  EXPECT_FALSE(point->channel->extent);
  EXPECT_EQ(point->security, ieee80211::Security::wpa2Personal);
  EXPECT_EQ(point->age, 40s);
}

TEST(ListedAccessPoint, WithoutAnAddressIsNone) {
  for (const char* none : {"", "02:AA:00:00:00", "02:AA:00:00:00:0G", "02-AA-00-00-00-01"}) {
    auto properties = cafe();
    properties["HwAddress"] = text(none);
    EXPECT_FALSE(read(properties)) << none;
  }
  EXPECT_FALSE(read({}));
}

TEST(ListedAccessPoint, HidesANameThatIsEmptyOrZeros) {
  for (const std::string& none : {std::string(), std::string(4, '\0')}) {
    const auto point = with("Ssid", bytes(none));
    EXPECT_EQ(point.hidesName, true);
    EXPECT_FALSE(point.ssid);
  }
  EXPECT_FALSE(with("Ssid", bytes(std::string(33, 'x'))).ssid);
  EXPECT_EQ(with("Ssid", number(3)).hidesName, std::nullopt);
}

TEST(ListedAccessPoint, HasTheSignalThatThePercentWereMadeFrom) {
  for (int signal = -100; signal <= -40; ++signal) {
    const int percent = 100 - static_cast<int>(100.0 * (-40 - signal) / 60.0);
    EXPECT_EQ(with("Strength", number(percent)).signal, signal) << percent;
  }
  EXPECT_FALSE(with("Strength", number(101)).signal);
  EXPECT_FALSE(with("Strength", number(-1)).signal);
}

TEST(ListedAccessPoint, HasTheSecurityThatItsFlagsSay) {
  const auto security = [](std::int64_t flags, std::int64_t wpa, std::int64_t rsn) {
    auto properties = cafe();
    properties["Flags"] = number(flags);
    properties["WpaFlags"] = number(wpa);
    properties["RsnFlags"] = number(rsn);
    return read(properties)->security;
  };
  EXPECT_EQ(security(0, 0, 0), ieee80211::Security::none);
  EXPECT_EQ(security(1, 0, 0), ieee80211::Security::wep);
  EXPECT_EQ(security(1, 0x144, 0), ieee80211::Security::wpaPersonal);
  EXPECT_EQ(security(1, 0x244, 0), ieee80211::Security::wpaEnterprise);
  EXPECT_EQ(security(1, 0x144, 0x188), ieee80211::Security::wpa2Personal);
  EXPECT_EQ(security(1, 0, 0x288), ieee80211::Security::wpa2Enterprise);
  EXPECT_EQ(security(1, 0, 0x588), ieee80211::Security::wpa2Wpa3Personal);
  EXPECT_EQ(security(1, 0, 0x488), ieee80211::Security::wpa3Personal);
  EXPECT_EQ(security(1, 0, 0x2000), ieee80211::Security::wpa3Enterprise);
  EXPECT_EQ(security(1, 0, 0x888), ieee80211::Security::owe);
  EXPECT_EQ(security(0, 0, 0x1000), ieee80211::Security::none) << "the open half of a transition";
  EXPECT_EQ(security(1, 0, 0x8), ieee80211::Security::unknown);
  EXPECT_EQ(with("RsnFlags", text("no")).security, ieee80211::Security::unknown);
}

TEST(ListedAccessPoint, WasNeverHeardWhereTheManagerSaysSo) {
  EXPECT_FALSE(with("LastSeen", number(-1)).age);
  EXPECT_EQ(with("LastSeen", number(1001)).age, 0s);
  EXPECT_FALSE(with("LastSeen", number(INT64_MAX)).age);
}

TEST(ListedAccessPoints, AreAddedToThoseThatTheKernelStillHas) {
  facts::Scan scan;
  scan.accessPoints.emplace_back().bssid = "02:aa:00:00:00:02";
  std::vector<facts::AccessPoint> listed(4);
  for (std::size_t i = 0; i < listed.size(); ++i) {
    listed[i].bssid = "02:aa:00:00:00:0" + std::to_string(i);
    listed[i].isSecondHand = true;
    listed[i].age = 10s;
  }
  listed[0].age = 61s;
  listed[3].age.reset();
  addSecondHand(listed, 60s, scan);
  ASSERT_EQ(scan.accessPoints.size(), 2U);
  EXPECT_FALSE(scan.accessPoints[0].isSecondHand) << "the kernel's entry says more";
  EXPECT_EQ(scan.accessPoints[1].bssid, "02:aa:00:00:00:01");
}

}  // namespace
}  // namespace wifi_profile::linux::bus
