#include <gtest/gtest.h>

#include "WorldTesting.h"

namespace wifi_profile::scenario {
namespace {

using namespace std::chrono_literals;

TEST(WorldAir, ReadsALink) {
  const auto all = facts(R"({"link":{"interface":"wlp3s0","ssid":"Home","bssid":"02:AB:00:00:00:0f",
      "signal":-61,"channel":36,"beaconInterval":100,"dtim":2}})");
  EXPECT_EQ(*all.link, (facts::Link{.interface = "wlp3s0",
                                    .ssid = "Home",
                                    .bssid = "02:ab:00:00:00:0f",
                                    .signal = -61,
                                    .frequency = 5180,
                                    .beaconInterval = 100,
                                    .dtimPeriod = 2}));
  const auto bare =
      facts(R"({"link":{"interface":"a","ssid":"b","bssid":"02:00:00:00:00:01"}})").link;
  facts::Link expected;
  expected.interface = "a";
  expected.ssid = "b";
  expected.bssid = "02:00:00:00:00:01";
  EXPECT_EQ(*bare, expected);
}

TEST(WorldAir, ReadsSurveys) {
  const auto all = facts(R"({"surveys":[{"channel":6,"inUse":true,"noise":-88,"active":1000,
      "busy":810,"transmit":10},{"channel":5,"band":6}]})");
  facts::ChannelSurvey bare;
  bare.frequency = 5975;
  EXPECT_EQ(*all.surveys, (std::vector<facts::ChannelSurvey>{{.frequency = 2437,
                                                              .inUse = true,
                                                              .noise = -88,
                                                              .active = 1000ms,
                                                              .busy = 810ms,
                                                              .transmit = 10ms},
                                                             bare}));
  EXPECT_EQ(faultIn(R"({"surveys":[{"noise":-90}]})"),
            "/world/surveys/0: found an object without \"channel\", expected an object with "
            "\"channel\"");
  EXPECT_EQ(faultIn(R"({"surveys":[{"channel":6,"busy":0.5}]})").find("/world/surveys/0/busy: "),
            0U);
}

TEST(WorldAir, ReadsTheRadio) {
  const auto all = facts(R"({"radio":{"knowsWapi":true,
      "channels":[{"channels":[1,36]},{"channels":[52],"radarDetection":true},
                  {"band":"6 GHz","channels":[5],"disabled":true}],
      "interfaces":[{"name":"wlan0","role":"station"},{"role":"accessPoint"},
                    {"role":"peerLink"},{"name":"mon0","role":"other"}]}})");
  using Role = facts::RadioInterface::Role;
  EXPECT_EQ(*all.radio, (facts::Radio{.channels = {{.frequency = 2412},
                                                   {.frequency = 5180},
                                                   {.frequency = 5260, .radarDetection = true},
                                                   {.frequency = 5975, .disabled = true}},
                                      .interfaces = {{"wlan0", Role::station},
                                                     {"", Role::accessPoint},
                                                     {"", Role::peerLink},
                                                     {"mon0", Role::other}},
                                      .knowsWapi = true}));
  EXPECT_EQ(faultIn(R"({"radio":{"channels":[{"channels":[36,37]}]}})"),
            "/world/radio/channels/0/channels/1: found the number 37, expected a channel of the 5 "
            "GHz band");
  EXPECT_NE(faultIn(R"({"radio":{"interfaces":[{"name":"a"}]}})"), "");
  EXPECT_NE(faultIn(R"({"radio":{"interfaces":[{"role":"mesh"}]}})"), "");
}

TEST(WorldAir, ReadsTheCountry) {
  EXPECT_EQ(facts(R"({"regulatory":{"country":"DE"}})").regulatory->country, "DE");
  EXPECT_EQ(facts(R"({"regulatory":{"country":"00"}})").regulatory->country, "00");
  EXPECT_EQ(faultIn(R"({"regulatory":{"country":"Germany"}})"),
            "/world/regulatory/country: found the text \"Germany\", expected two capital letters");
  EXPECT_NE(faultIn(R"({"regulatory":{}})"), "");
}

}  // namespace
}  // namespace wifi_profile::scenario
