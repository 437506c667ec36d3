// Readers for values that occur in several facts of a world. Each records an error if a value is
// unsuitable and then returns a default, as runtime::ValueReader does.
#pragma once

#include <chrono>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "analysis/ieee80211/Channels.h"
#include "analysis/ieee80211/Security.h"
#include "runtime/JsonFields.h"

namespace wifi_profile::scenario {

std::string readSsid(const runtime::ValueReader& value);     // 1 to 32 bytes
std::string readBssid(const runtime::ValueReader& value);    // in lower case
std::string readCountry(const runtime::ValueReader& value);  // two capital letters
std::string readIpv4(const runtime::ValueReader& value);     // dotted
std::string readIpv6(const runtime::ValueReader& value);     // without a scope
ieee80211::Security readSecurity(const runtime::ValueReader& value);
ieee80211::Band readBand(const runtime::ValueReader& value);

// A 20 MHz channel and its band. Without a given band, channels 1 to 14 belong to 2.4 GHz and all
// others to 5 GHz.
struct ChannelPlace {
  ieee80211::Band band = ieee80211::Band::ghz2;
  int channel = 1;

  int frequency() const;  // MHz
};
ChannelPlace readChannel(const runtime::ValueReader& channel, std::optional<ieee80211::Band> band);

// Takes "channel" and "band". Empty if there is no channel.
std::optional<ChannelPlace> takeChannel(runtime::FieldsReader& fields);

}  // namespace wifi_profile::scenario
