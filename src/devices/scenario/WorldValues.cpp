#include "devices/scenario/WorldValues.h"

#include <algorithm>

#include "analysis/facts/IpAddresses.h"
#include "analysis/facts/SecurityKinds.h"
#include "devices/CheckSettings.h"
#include "diagnostic/platform/Number.h"

namespace wifi_profile::scenario {

using runtime::FieldsReader;
using runtime::ValueReader;

using ieee80211::Band;
using ieee80211::Security;

std::string readSsid(const ValueReader& value) {
  constexpr std::size_t kLongest = 32;
  const auto text = as<Text>(value.value());
  if (text && !text->string().empty() && text->string().size() <= kLongest) return text->string();
  value.fail("a text of 1 to 32 bytes");
  return "?";
}

std::string readBssid(const ValueReader& value) {
  const auto text = as<Text>(value.value());
  if (const auto address = devices::macAddressIn(text ? text->string() : "")) return *address;
  value.fail("an address such as \"02:00:00:00:00:01\"");
  return "02:00:00:00:00:00";
}

std::string readCountry(const ValueReader& value) {
  const auto text = as<Text>(value.value());
  if (text && text->string().size() == 2 &&
      std::ranges::all_of(text->string(), [](char c) { return c >= 'A' && c <= 'Z'; })) {
    return text->string();
  }
  value.fail("two capital letters");
  return "DE";
}

std::string readIpv4(const ValueReader& value) {
  const auto text = as<Text>(value.value());
  if (text && facts::ipv4KindOf(text->string())) return text->string();
  value.fail("an IPv4 address such as \"192.0.2.1\"");
  return "0.0.0.0";
}

std::string readIpv6(const ValueReader& value) {
  const auto text = as<Text>(value.value());
  if (text && facts::ipv6KindOf(text->string())) return text->string();
  value.fail("an IPv6 address such as \"2001:db8::1\"");
  return "::";
}

Security readSecurity(const ValueReader& value) { return readChoice(value, facts::kSecurityNames); }

Band readBand(const ValueReader& value) {
  static constexpr std::pair<std::string_view, Band> kChoices[]{
      {"2.4 GHz", Band::ghz2}, {"5 GHz", Band::ghz5}, {"6 GHz", Band::ghz6}};
  if (const auto number = as<Number>(value.value()); number && !number->isBoolean()) {
    if (number->toDouble() == 2.4) return Band::ghz2;
    if (number->toDouble() == 5) return Band::ghz5;
    if (number->toDouble() == 6) return Band::ghz6;
  }
  return readChoice(value, kChoices);
}

int ChannelPlace::frequency() const { return ieee80211::frequencyOf(band, channel).value_or(0); }

ChannelPlace readChannel(const ValueReader& channel, std::optional<Band> band) {
  constexpr int kLast2 = 14;
  constexpr int kLast = 233;
  ChannelPlace place;
  place.channel = static_cast<int>(channel.integer(1, kLast));
  place.band = band.value_or(place.channel <= kLast2 ? Band::ghz2 : Band::ghz5);
  if (ieee80211::isTwentyMHzChannel(place.band, place.channel)) return place;
  channel.fail(place.band == Band::ghz2   ? "a channel of the 2.4 GHz band"
               : place.band == Band::ghz5 ? "a channel of the 5 GHz band"
                                          : "a channel of the 6 GHz band");
  return {};
}

std::optional<ChannelPlace> takeChannel(FieldsReader& fields) {
  std::optional<Band> band;
  std::optional<ChannelPlace> place;
  fields.take("band", [&](const ValueReader& field) { band = readBand(field); });
  fields.take("channel", [&](const ValueReader& field) { place = readChannel(field, band); });
  if (band && !place) {
    fields.object().fail("an object with \"band\" and without \"channel\"", "both or neither");
  }
  return place;
}

}  // namespace wifi_profile::scenario
