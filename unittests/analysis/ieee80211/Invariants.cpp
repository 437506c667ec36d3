#include "analysis/ieee80211/Invariants.h"

#include <algorithm>
#include <functional>

namespace wifi_profile::ieee80211 {
namespace {

using OptionalText = std::optional<std::string>;

bool isStrictlyAscending(const auto& list) {
  return std::ranges::adjacent_find(list, std::greater_equal<>{}) == list.end();
}

bool isNotLongerThan(std::size_t limit, const OptionalText& text) {
  return !text || text->size() <= limit;
}

std::string brokenRule(const Rates& rates) {
  if (!isStrictlyAscending(rates.supported)) return "rates are in order";
  if (!std::ranges::includes(rates.supported, rates.basic)) return "basic rates are supported";
  for (const int rate : rates.supported) {
    if (rate < 1 || rate > 108) return "rates are rates";
  }
  return {};
}

std::string brokenRule(const OperatingChannel& channel) {
  if (!isTwentyMHzChannel(channel.band, channel.primary)) return "the channel is one of the band's";
  const auto overlapped = overlappedChannels(channel);
  if (overlapped.empty() == channel.extent.has_value()) return "an extent overlaps channels";
  if (!isStrictlyAscending(overlapped)) return "overlapped channels are in order";
  for (const int other : overlapped) {
    if (!isTwentyMHzChannel(channel.band, other)) return "overlapped channels are the band's";
  }
  if (!channel.extent) return {};
  if (std::ranges::count(overlapped, channel.primary) != 1) return "a network has its own channel";
  const Extent& extent = *channel.extent;
  if (extent.secondary.has_value() == (extent.width == Width::mhz20)) {
    return "what is wider than 20 MHz has a secondary channel";
  }
  if (!frequencyOf(channel.band, extent.center)) return "the middle has a frequency";
  if ((extent.secondCenter != 0) != (extent.width == Width::mhz80Plus80)) {
    return "two halves have two middles";
  }
  return {};
}

std::string brokenRule(const NetworkElements& network) {
  if (network.ssid && network.ssid->name.size() > 32) return "names have 32 bytes at most";
  if (network.dtim && network.dtim->period == 0) return "a DTIM has a period";
  if (network.wps) {
    const auto& wps = *network.wps;
    if (!isNotLongerThan(64, wps.manufacturer) || !isNotLongerThan(32, wps.modelName)) {
      return "texts of WPS are short";
    }
  }
  const bool isPrivate = (network.capabilities & 0x10U) != 0;
  const bool hasElements = network.securityElements.rsn || network.securityElements.wpa;
  switch (network.security) {
    case Security::none:
      if (isPrivate || hasElements) return "an open network has nothing that closes it";
      break;
    case Security::wep:
      if (!isPrivate || hasElements) return "WEP is a bit alone";
      break;
    case Security::wpaPersonal:
    case Security::wpaEnterprise:
      if (!network.securityElements.wpa || network.securityElements.rsn) return "WPA stands alone";
      break;
    case Security::unknown:
      break;
    default:
      if (!network.securityElements.rsn) return "all others have RSN";
  }
  return network.rates ? brokenRule(*network.rates) : std::string();
}

std::string brokenRule(const ReceivedFrame& frame, const NontransmittedNetwork& other) {
  if (other.index == 0) return "indexes begin at 1";
  if (other.bssid.has_value() != frame.bssid.has_value()) return "a sender makes BSSIDs";
  if (other.bssid && *other.bssid == *frame.bssid) return "no two networks have one BSSID";
  return brokenRule(other.network);
}

}  // namespace

std::string brokenRule(const ReceivedFrame& frame, const AccessPointElements& result) {
  if (auto broken = brokenRule(result.network); !broken.empty()) return broken;
  if (result.truncated &&
      (result.network.security == Security::none || result.network.security == Security::wep)) {
    return "what was cut off may have been the security";
  }
  if (result.channel) {
    if (auto broken = brokenRule(*result.channel); !broken.empty()) return broken;
    if (result.truncated && result.channel->extent) return "what was cut off may have been wider";
  }
  if (result.country) {
    const auto isCapital = [](char c) { return c >= 'A' && c <= 'Z'; };
    if (result.country->code.size() != 2 || !std::ranges::all_of(result.country->code, isCapital)) {
      return "a country's code has two capital letters";
    }
  }
  if (!std::ranges::is_sorted(result.others, std::less<>{}, &NontransmittedNetwork::index) ||
      result.others.size() > 255) {
    return "other networks are in order";
  }
  for (const auto& other : result.others) {
    if (auto broken = brokenRule(frame, other); !broken.empty()) return broken;
  }
  if (result.modes.a + (result.modes.b || result.modes.g) > 1) return "a network has one band";
  return {};
}

}  // namespace wifi_profile::ieee80211
