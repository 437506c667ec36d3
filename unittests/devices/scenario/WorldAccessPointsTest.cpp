#include <gtest/gtest.h>

#include "WorldTesting.h"

namespace wifi_profile::scenario {
namespace {

using ieee80211::Band;
using ieee80211::Security;
using ieee80211::Width;

TEST(WorldAccessPoints, ReadsAnAccessPointInFull) {
  const auto point = accessPoint(R"(,"ssid":"Lab","hidden":true,"signal":-60,"band":"5 GHz",
      "channel":44,"width":80,"beaconInterval":200,"dtim":3,"security":"WPA3 Personal",
      "basicRates":[6,5.5,24],"modes":["802.11a","802.11n","802.11ac","802.11ax"],"country":"DE",
      "utilization":255,"accessNetworkType":4,"additionalStepNeeded":true,
      "passpoint":true,"maker":"Kontor","model":"Box 1","transmitter":"02:00:00:00:00:02")");
  facts::AccessPoint expected{.bssid = "02:00:00:00:00:01",
                              .ssid = "Lab",
                              .hidesName = true,
                              .signal = -60,
                              .channel = {},
                              .beaconInterval = 200,
                              .dtimPeriod = 3,
                              .security = ieee80211::Security::wpa3Personal,
                              .basicRates = {12, 11, 48},
                              .modes = {.a = true, .n = true, .ac = true, .ax = true},
                              .country = "DE",
                              .channelUtilization = 255,
                              .accessNetworkType = 4,
                              .additionalStepNeeded = true,
                              .isPasspoint = true,
                              .maker = "Kontor",
                              .model = "Box 1",
                              .transmitterBssid = "02:00:00:00:00:02"};
  expected.channel = {
      ieee80211::Band::ghz5, 44,
      ieee80211::Extent{.width = ieee80211::Width::mhz80, .center = 42, .secondary = 48}};
  EXPECT_EQ(point, expected);
}

TEST(WorldAccessPoints, InventsNothingForAnAccessPoint) {
  facts::AccessPoint expected;
  expected.bssid = "02:00:00:00:00:01";
  expected.hidesName = false;  // what is written down was heard
  EXPECT_EQ(accessPoint(""), expected);
  EXPECT_EQ(accessPoint(R"(,"ssid":null)"), accessPoint(""));
}

TEST(WorldAccessPoints, KnowsEverySecurityAsPeopleWriteIt) {
  const std::pair<const char*, ieee80211::Security> texts[]{
      {"None", ieee80211::Security::none},
      {"OWE", ieee80211::Security::owe},
      {"WEP", ieee80211::Security::wep},
      {"WPA Personal", ieee80211::Security::wpaPersonal},
      {"WPA Enterprise", ieee80211::Security::wpaEnterprise},
      {"WPA2 Personal", ieee80211::Security::wpa2Personal},
      {"WPA2 Enterprise", ieee80211::Security::wpa2Enterprise},
      {"WPA2/WPA3 Personal", ieee80211::Security::wpa2Wpa3Personal},
      {"WPA2/WPA3 Enterprise", ieee80211::Security::wpa2Wpa3Enterprise},
      {"WPA3 Personal", ieee80211::Security::wpa3Personal},
      {"WPA3 Enterprise", ieee80211::Security::wpa3Enterprise},
      {"unknown", ieee80211::Security::unknown}};
  for (const auto& [text, security] : texts) {
    EXPECT_EQ(accessPoint(R"(,"security":")" + std::string(text) + '"').security, security);
  }
}

TEST(WorldAccessPoints, ReadsBandsAsTextAndAsNumber) {
  const auto bandOf = [](const std::string& band) {
    return accessPoint(R"(,"channel":1)" + band).channel.value().band;
  };
  EXPECT_EQ(bandOf(""), ieee80211::Band::ghz2);
  EXPECT_EQ(bandOf(R"(,"band":"2.4 GHz")"), ieee80211::Band::ghz2);
  EXPECT_EQ(bandOf(R"(,"band":2.4)"), ieee80211::Band::ghz2);
  EXPECT_EQ(bandOf(R"(,"band":"6 GHz")"), ieee80211::Band::ghz6);
  EXPECT_EQ(bandOf(R"(,"band":6)"), ieee80211::Band::ghz6);
  EXPECT_EQ(accessPoint(R"(,"channel":36)").channel->band, ieee80211::Band::ghz5);
  EXPECT_EQ(accessPoint(R"(,"channel":36,"band":5)").channel->band, ieee80211::Band::ghz5);
}

TEST(WorldAccessPoints, FindsTheWideChannelAroundThePrimaryOne) {
  const auto extent = [](const std::string& fields) {
    return *accessPoint(fields).channel->extent;
  };
  using ieee80211::Extent;
  EXPECT_EQ(extent(R"(,"channel":6)"),
            (ieee80211::Extent{.width = ieee80211::Width::mhz20, .center = 6}));
  EXPECT_EQ(extent(R"(,"channel":6,"width":40,"secondary":"above")"),
            (ieee80211::Extent{.width = ieee80211::Width::mhz40, .center = 8, .secondary = 10}));
  EXPECT_EQ(extent(R"(,"channel":6,"width":40,"secondary":"below")"),
            (ieee80211::Extent{.width = ieee80211::Width::mhz40, .center = 4, .secondary = 2}));
  EXPECT_EQ(extent(R"(,"channel":40,"width":40)"),
            (ieee80211::Extent{.width = ieee80211::Width::mhz40, .center = 38, .secondary = 36}));
  EXPECT_EQ(
      extent(R"(,"channel":112,"width":160)"),
      (ieee80211::Extent{.width = ieee80211::Width::mhz160, .center = 114, .secondary = 108}));
  EXPECT_EQ(extent(R"(,"band":6,"channel":37,"width":320)"),
            (ieee80211::Extent{.width = ieee80211::Width::mhz320, .center = 31, .secondary = 33}));
}

TEST(WorldAccessPoints, RefusesChannelsAndWidthsThatThereAreNot) {
  EXPECT_EQ(faultInAccessPoint(R"(,"channel":37)"),
            "/world/scan/0/channel: found the number 37, expected a channel of the 5 GHz band");
  EXPECT_EQ(faultInAccessPoint(R"(,"channel":36,"band":2.4)"),
            "/world/scan/0/channel: found the number 36, expected a channel of the 2.4 GHz band");
  EXPECT_EQ(faultInAccessPoint(R"(,"channel":3,"band":6)"),
            "/world/scan/0/channel: found the number 3, expected a channel of the 6 GHz band");
  EXPECT_EQ(faultInAccessPoint(R"(,"band":5)"),
            "/world/scan/0: found an object with \"band\" and without \"channel\", expected both "
            "or neither");
  EXPECT_EQ(faultInAccessPoint(R"(,"band":true)")
                .find("/world/scan/0/band: found true, expected one of \"2.4 GHz\""),
            0U);
  EXPECT_EQ(faultInAccessPoint(R"(,"width":40)"),
            "/world/scan/0: found an object without \"channel\", expected a channel beside its "
            "width");
  EXPECT_EQ(faultInAccessPoint(R"(,"channel":36,"width":60)"),
            "/world/scan/0/width: found the number 60, expected 20, 40, 80, 160 or 320");
  for (const char* fields :
       {R"(,"channel":36,"width":320)", R"(,"channel":144,"width":160)",
        R"(,"channel":11,"width":80)", R"(,"channel":2,"width":40,"secondary":"below")",
        R"(,"channel":12,"width":40,"secondary":"above")"}) {
    EXPECT_NE(faultInAccessPoint(fields).find("expected a width that the band has there"),
              std::string::npos)
        << fields << faultInAccessPoint(fields);
  }
  for (const char* fields : {R"(,"channel":6,"width":40)", R"(,"channel":6,"secondary":"above")",
                             R"(,"channel":36,"width":40,"secondary":"above")"}) {
    EXPECT_EQ(faultInAccessPoint(fields).find("/world/scan/0: found an access point with"), 0U);
  }
}

TEST(WorldAccessPoints, RefusesAccessPointsThatCannotBe) {
  const std::pair<const char*, const char*> faults[]{
      {R"(,"ssid":"")", "ssid: found the text \"\", expected a text of 1 to 32 bytes"},
      {R"(,"ssid":"123456789012345678901234567890123")", "ssid"},
      {R"(,"signal":-128)", "signal"},
      {R"(,"beaconInterval":0)", "beaconInterval"},
      {R"(,"dtim":256)", "dtim"},
      {R"(,"security":"wpa2")", "security"},
      {R"(,"basicRates":[6,0])", "basicRates/1: found the number 0, expected a rate in Mbit/s"},
      {R"(,"basicRates":[5.4])", "basicRates/0"},
      {R"(,"modes":["802.11x"])", "modes/0"},
      {R"(,"country":"de")", "country: found the text \"de\", expected two capital letters"},
      {R"(,"utilization":256)", "utilization"},
      {R"(,"utilization":-1)", "utilization"},
      {R"(,"accessNetworkType":16)", "accessNetworkType"},
      {R"(,"transmitter":"02:00:00:00:00")", "transmitter"},
      {R"(,"rssi":-60)", "rssi: found an unknown field"}};
  for (const auto& [fields, fault] : faults) {
    EXPECT_EQ(faultInAccessPoint(fields).find("/world/scan/0/" + std::string(fault)), 0U)
        << faultInAccessPoint(fields);
  }
  EXPECT_EQ(faultIn(R"({"scan":[{"bssid":"02:00:00:00:00:0g"}]})"),
            "/world/scan/0/bssid: found the text \"02:00:00:00:00:0g\", expected an address such "
            "as \"02:00:00:00:00:01\"");
  EXPECT_EQ(faultIn(R"({"scan":[{"bssid":"02:00:00:00:00:0a"},{"bssid":"02:00:00:00:00:0A"}]})"),
            "/world/scan/1: found a second access point 02:00:00:00:00:0a, expected each "
            "\"bssid\" once");
  EXPECT_EQ(faultIn(R"({"scan":[{}]})").find("/world/scan/0: found an object without \"bssid\""),
            0U);
}

}  // namespace
}  // namespace wifi_profile::scenario
