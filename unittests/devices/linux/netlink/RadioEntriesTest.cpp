#include <gtest/gtest.h>
#include <linux/nl80211.h>

#include "devices/linux/netlink/NetlinkBytes.h"
#include "devices/linux/netlink/RadioEntries.h"

namespace wifi_profile::linux::netlink {
namespace {

using std::chrono::milliseconds;

ieee80211::Octets frequency(std::uint32_t number, const ieee80211::Octets& flags = {}) {
  return attribute(0, numberAttribute(NL80211_FREQUENCY_ATTR_FREQ, number) + flags);
}

ieee80211::Octets bandWith(const ieee80211::Octets& frequencies) {
  return attribute(NL80211_ATTR_WIPHY_BANDS,
                   attribute(0, attribute(NL80211_BAND_ATTR_FREQS, frequencies)));
}

facts::Radio radioOf(std::initializer_list<ieee80211::Octets> answers) {
  facts::Radio radio;
  for (const ieee80211::Octets& answer : answers) addToRadio(Attributes(answer), radio);
  finishChannels(radio);
  return radio;
}

TEST(Radio, ChannelsOfAllAnswersComeInOrderAndOnce) {
  const auto radio = radioOf(
      {bandWith(frequency(5260, attribute(NL80211_FREQUENCY_ATTR_RADAR, ieee80211::Octets())) +
                frequency(5180)),
       bandWith(frequency(2484, attribute(NL80211_FREQUENCY_ATTR_DISABLED, ieee80211::Octets())) +
                frequency(5180))});
  const std::vector<facts::RadioChannel> expected{{.frequency = 2484, .disabled = true},
                                                  {.frequency = 5180},
                                                  {.frequency = 5260, .radarDetection = true}};
  EXPECT_EQ(radio.channels, expected);
}

TEST(Radio, ChannelsAreBounded) {
  ieee80211::Octets many;
  for (std::uint32_t number = 1; number <= 3000; ++number) many = many + frequency(number);
  EXPECT_EQ(radioOf({bandWith(many)}).channels.size(), 1024U);
}

TEST(Radio, KnowsWapiByItsCipher) {
  const ieee80211::Octets ccmp = octetsOf(std::uint32_t{0x000FAC04});
  const ieee80211::Octets sms4 = octetsOf(std::uint32_t{0x00147201});
  EXPECT_FALSE(radioOf({attribute(NL80211_ATTR_CIPHER_SUITES, ccmp)}).knowsWapi);
  EXPECT_TRUE(radioOf({attribute(NL80211_ATTR_CIPHER_SUITES, ccmp + sms4)}).knowsWapi);
  EXPECT_FALSE(
      radioOf({attribute(NL80211_ATTR_CIPHER_SUITES, ieee80211::Octets{1, 0x72, 0x14})}).knowsWapi);
}

TEST(Radio, HasTheInterfacesOfItsNumberBesidesTheOneInUse) {
  using Role = facts::RadioInterface::Role;
  WifiInterface inUse;
  inUse.name = "wlan0";
  inUse.index = 3;
  inUse.wiphy = 1;
  inUse.role = Role::peerLink;
  WifiInterface peer = inUse;
  peer.name = "mesh0";
  peer.index = 4;
  WifiInterface ofAnotherRadio;
  ofAnotherRadio.name = "wlan1";
  const std::vector<facts::RadioInterface> expected{{.name = "mesh0", .role = Role::peerLink}};
  EXPECT_EQ(interfacesBeside(inUse, {inUse, peer, ofAnotherRadio}), expected);
}

std::optional<facts::ChannelSurvey> survey(const ieee80211::Octets& information) {
  const ieee80211::Octets bytes = attribute(NL80211_ATTR_SURVEY_INFO, information);
  return surveyOf(Attributes(bytes));
}

ieee80211::Octets times(std::uint64_t active, std::uint64_t busy, std::uint64_t transmit) {
  return numberAttribute(NL80211_SURVEY_INFO_FREQUENCY, std::uint32_t{2437}) +
         numberAttribute(NL80211_SURVEY_INFO_TIME, active) +
         numberAttribute(NL80211_SURVEY_INFO_TIME_BUSY, busy) +
         numberAttribute(NL80211_SURVEY_INFO_TIME_TX, transmit);
}

TEST(Survey, IsReadWhole) {
  const facts::ChannelSurvey expected{.frequency = 2437,
                                      .inUse = true,
                                      .noise = -92,
                                      .active = milliseconds(64),
                                      .busy = milliseconds(8),
                                      .transmit = milliseconds(2),
                                      .receive = milliseconds(5)};
  EXPECT_EQ(survey(times(64, 8, 2) + attribute(NL80211_SURVEY_INFO_IN_USE, ieee80211::Octets()) +
                   numberAttribute(NL80211_SURVEY_INFO_TIME_BSS_RX, std::uint64_t{5}) +
                   numberAttribute(NL80211_SURVEY_INFO_NOISE, std::int8_t{-92})),
            expected);
}

TEST(Survey, TimesThatContradictEachOtherAreLeftOut) {
  EXPECT_FALSE(survey(times(64, 65, 2))->busy);
  EXPECT_FALSE(survey(times(64, 65, 2))->transmit);
  EXPECT_FALSE(survey(times(64, 8, 9))->transmit);
  EXPECT_EQ(survey(times(64, 8, 9))->busy, milliseconds(8));
  EXPECT_FALSE(survey(times(~std::uint64_t{0}, 1, 1))->active);
}

facts::ChannelSurvey counted(int frequency, int active, int busy, std::optional<int> transmit) {
  facts::ChannelSurvey made{
      .frequency = frequency, .active = milliseconds(active), .busy = milliseconds(busy)};
  if (transmit) made.transmit = milliseconds(*transmit);
  return made;
}

// Drivers count for as long as they are loaded: what was long ago must not count.
TEST(Surveys, TellWhatHappenedBetweenThem) {
  const std::vector first{counted(2412, 1'000'000, 900'000, 500), counted(2437, 50'000, 100, {})};
  const std::vector second{counted(2412, 1'001'000, 900'050, 530), counted(2437, 50'000, 100, {})};
  EXPECT_EQ(surveysBetween(first, second),
            (std::vector{counted(2412, 1000, 50, 30), counted(2437, 0, 0, {})}));
}

TEST(Surveys, CountWhatADriverCountsAnewAtEveryVisit) {
  EXPECT_EQ(surveysBetween({counted(2412, 900, 800, 1)}, {counted(2412, 120, 30, 0)}),
            std::vector{counted(2412, 120, 30, 0)});
}

TEST(Surveys, OfAChannelThatTheFirstOneLacksHaveNoTimes) {
  auto second = counted(2412, 120, 30, 0);
  second.noise = -95;
  const facts::ChannelSurvey expected{.frequency = 2412, .noise = -95};
  EXPECT_EQ(surveysBetween({counted(2437, 1, 1, 1)}, {second}), std::vector{expected});
}

TEST(Survey, WithoutAFrequencyIsNone) {
  EXPECT_FALSE(survey(numberAttribute(NL80211_SURVEY_INFO_NOISE, std::int8_t{-92})));
}

TEST(Regulatory, IsACountryTheWorldOrWhatSeveralCountriesShare) {
  const auto read = [](std::string_view country) {
    const ieee80211::Octets bytes = attribute(NL80211_ATTR_REG_ALPHA2, country);
    return regulatoryOf(Attributes(bytes));
  };
  EXPECT_EQ(read("DE")->country, "DE");
  EXPECT_EQ(read("00")->country, "00");
  EXPECT_EQ(read("98")->country, "98");
  for (const std::string_view none : {"99", "de", "D", "DEU", ""}) EXPECT_FALSE(read(none));
}

}  // namespace
}  // namespace wifi_profile::linux::netlink
