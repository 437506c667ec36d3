// Facts of a device that is joined to a network in order, and questions about them.
#pragma once

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "analysis/checks/Checks.h"
#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/Number.h"
#include "support/Matchers.h"

namespace wifi_profile::checks {

using Id = DiagnosticsTestID;

// The tests of something that ought to be so; all others are of problems, or of facts.
inline bool isAbility(Id id) {
  constexpr std::array kAbilities{Id::PingLAN,      Id::PingWAN,           Id::ResolveDNS,
                                  Id::ReachOrvane,  Id::RetrieveOrvane,    Id::IPv4Assigned,
                                  Id::IPv6Assigned, Id::BrellinBaseStation};
  return std::ranges::find(kAbilities, id) != kAbilities.end();
}

MATCHER_P(says, isSo, isSo ? "says that it is so" : "says that it is not so") {
  const DiagnosticsTestResult* result = arg ? &*arg : nullptr;
  if (!result) *result_listener << "which is unknown: " << arg.error().message;
  return result && result->result == isSo;
}

MATCHER_P(isUnknownFor, reason, "is not known") {
  const Error* unknown = arg ? nullptr : &arg.error();
  if (unknown) *result_listener << "for reason " << static_cast<int>(unknown->reason);
  return unknown && unknown->reason == reason;
}

MATCHER_P2(tells, key, value, "tells a value") {
  const DiagnosticsTestResult* result = arg ? &*arg : nullptr;
  return result && ExplainMatchResult(value, result->info->objectForKey(key), result_listener);
}

inline ieee80211::OperatingChannel channelAt(ieee80211::Band band, int primary) {
  return {.band = band, .primary = primary, .extent = ieee80211::extentOfTwentyMHz(band, primary)};
}

inline facts::AccessPoint accessPoint(std::string bssid, std::string ssid, int signal, int channel,
                                      ieee80211::Band band = ieee80211::Band::ghz5) {
  facts::AccessPoint made;
  made.bssid = std::move(bssid);
  made.ssid = std::move(ssid);
  made.hidesName = false;
  made.signal = signal;
  made.channel = channelAt(band, channel);
  made.beaconInterval = 100;
  made.dtimPeriod = 2;
  made.security = ieee80211::Security::wpa2Personal;
  made.basicRates = {12, 24, 48};
  made.modes = {.a = true, .n = true, .ac = band == ieee80211::Band::ghz5};
  return made;
}

class CheckTest : public testing::Test {
 protected:
  static constexpr const char* kName = "Haus am See";
  static constexpr const char* kBssid = "02:10:20:30:40:50";

  CheckTest() {
    facts.link = facts::Link{.interface = "wlan0",
                             .ssid = kName,
                             .bssid = kBssid,
                             .signal = -60,
                             .frequency = 5180,
                             .beaconInterval = {},
                             .dtimPeriod = {}};
    facts.scan = facts::Scan{{accessPoint(kBssid, kName, -61, 36)}};
  }

  facts::AccessPoint& own() { return facts.scan->accessPoints.front(); }
  facts::AccessPoint& add(facts::AccessPoint other) {
    facts.scan->accessPoints.push_back(std::move(other));
    return facts.scan->accessPoints.back();
  }
  void askAbout(const std::string& network) { networkName = makeText(network); }

  // Every answer keeps the rules of its form.
  Answer ask(Id id) const {
    Answer answer = checkOf(id).answer({facts, settings, networkName});
    if (const DiagnosticsTestResult* result = answer ? &*answer : nullptr) {
      EXPECT_EQ(result->didPass,
                id == Id::NoScanResults || (isAbility(id) ? result->result : !result->result));
      EXPECT_NE(result->info, nullptr);
    }
    return answer;
  }

  facts::Facts facts;
  Settings settings = defaultSettings();
  TextRef networkName;
};

}  // namespace wifi_profile::checks
