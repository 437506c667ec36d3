#include "devices/linux/netlink/RadioEntries.h"

#include <algorithm>
#include <array>
#include <linux/nl80211.h>

namespace wifi_profile::linux::netlink {

namespace {

// The cipher of WAPI, SMS4, as nl80211 numbers suites: organisation and type.
constexpr std::uint32_t kSms4Cipher = 0x00147201;
// More than the standard's bands have: a driver that reports more is broken.
constexpr std::size_t kMostChannels = 1024;

std::optional<facts::RadioChannel> channelOf(const Attributes& attributes) {
  const auto frequency = attributes.number<std::int32_t>(NL80211_FREQUENCY_ATTR_FREQ);
  if (!frequency || *frequency <= 0) return std::nullopt;
  return facts::RadioChannel{.frequency = *frequency,
                             .disabled = attributes.has(NL80211_FREQUENCY_ATTR_DISABLED),
                             .radarDetection = attributes.has(NL80211_FREQUENCY_ATTR_RADAR)};
}

std::optional<std::chrono::milliseconds> timeOf(const Attributes& survey, int type) {
  const auto time = survey.number<std::uint64_t>(type);
  // No radio has listened for a hundred years: a longer time is wrong.
  constexpr std::uint64_t kLongest = std::uint64_t{100} * 366 * 24 * 3600 * 1000;
  if (!time || *time > kLongest) return std::nullopt;
  return std::chrono::milliseconds(static_cast<std::int64_t>(*time));
}

bool hasSms4(ieee80211::Bytes suites) {
  for (; suites.size() >= sizeof kSms4Cipher; suites = suites.subspan(sizeof kSms4Cipher)) {
    std::uint32_t suite = 0;
    std::memcpy(&suite, suites.data(), sizeof suite);
    if (suite == kSms4Cipher) return true;
  }
  return false;
}

}  // namespace

void addToRadio(const Attributes& attributes, facts::Radio& radio) {
  for (const Attribute& band : attributes.nested(NL80211_ATTR_WIPHY_BANDS)) {
    for (const Attribute& one : Attributes(band.payload).nested(NL80211_BAND_ATTR_FREQS)) {
      const auto channel = channelOf(Attributes(one.payload));
      if (channel && radio.channels.size() < kMostChannels) radio.channels.push_back(*channel);
    }
  }
  if (hasSms4(attributes.find(NL80211_ATTR_CIPHER_SUITES).value_or(ieee80211::Bytes()))) {
    radio.knowsWapi = true;
  }
}

void finishChannels(facts::Radio& radio) {
  std::ranges::stable_sort(radio.channels, {}, &facts::RadioChannel::frequency);
  const auto isSame = [](const auto& one, const auto& other) {
    return one.frequency == other.frequency;
  };
  radio.channels.erase(std::unique(radio.channels.begin(), radio.channels.end(), isSame),
                       radio.channels.end());
}

std::vector<facts::RadioInterface> interfacesBeside(const WifiInterface& inUse,
                                                    const std::vector<WifiInterface>& all) {
  std::vector<facts::RadioInterface> interfaces;
  for (const WifiInterface& one : all) {
    const bool isOther = one.wiphy == inUse.wiphy && one.index != inUse.index;
    if (isOther) interfaces.push_back({.name = one.name, .role = one.role});
  }
  return interfaces;
}

std::optional<facts::ChannelSurvey> surveyOf(const Attributes& attributes) {
  const Attributes information = attributes.nested(NL80211_ATTR_SURVEY_INFO);
  const auto frequency = information.number<std::int32_t>(NL80211_SURVEY_INFO_FREQUENCY);
  if (!frequency || *frequency <= 0) return std::nullopt;
  facts::ChannelSurvey survey;
  survey.frequency = *frequency;
  survey.inUse = information.has(NL80211_SURVEY_INFO_IN_USE);
  const auto noise = information.number<std::int8_t>(NL80211_SURVEY_INFO_NOISE);
  // Drivers report 0 dBm of noise if they did not measure.
  if (noise && *noise != 0) survey.noise = *noise;
  survey.active = timeOf(information, NL80211_SURVEY_INFO_TIME);
  survey.busy = timeOf(information, NL80211_SURVEY_INFO_TIME_BUSY);
  survey.transmit = timeOf(information, NL80211_SURVEY_INFO_TIME_TX);
  survey.receive = timeOf(information, NL80211_SURVEY_INFO_TIME_BSS_RX);
  if (survey.busy && (!survey.active || *survey.busy > *survey.active)) survey.busy.reset();
  if (survey.transmit && (!survey.busy || *survey.transmit > *survey.busy)) {
    survey.transmit.reset();
  }
  if (survey.receive && (!survey.busy || *survey.receive > *survey.busy)) survey.receive.reset();
  return survey;
}

std::vector<facts::ChannelSurvey> surveysBetween(const std::vector<facts::ChannelSurvey>& first,
                                                 std::vector<facts::ChannelSurvey> second) {
  constexpr std::array kTimes{&facts::ChannelSurvey::active, &facts::ChannelSurvey::busy,
                              &facts::ChannelSurvey::transmit, &facts::ChannelSurvey::receive};
  for (facts::ChannelSurvey& survey : second) {
    const auto found = std::ranges::find(first, survey.frequency, &facts::ChannelSurvey::frequency);
    if (found == first.end()) {
      for (const auto time : kTimes) (survey.*time).reset();
      continue;
    }
    const facts::ChannelSurvey& before = *found;
    const bool wentBack = std::ranges::any_of(kTimes, [&](auto time) {
      return survey.*time && before.*time && *(survey.*time) < *(before.*time);
    });
    if (wentBack) continue;
    for (const auto time : kTimes) {
      if (survey.*time && before.*time) {
        *(survey.*time) -= *(before.*time);
      } else {
        (survey.*time).reset();
      }
    }
  }
  return second;
}

std::optional<facts::Regulatory> regulatoryOf(const Attributes& attributes) {
  const auto country = attributes.text(NL80211_ATTR_REG_ALPHA2);
  if (!country || country->size() != 2) return std::nullopt;
  const bool letters =
      std::ranges::all_of(*country, [](char letter) { return letter >= 'A' && letter <= 'Z'; });
  if (!letters && *country != "00" && *country != "98") return std::nullopt;
  return facts::Regulatory{*country};
}

}  // namespace wifi_profile::linux::netlink
