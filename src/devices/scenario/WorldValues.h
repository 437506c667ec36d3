// Readers for values that occur in several facts of a world. Each records a fault if a value is
// unsuitable and then returns a default, as ValueReader does.
#pragma once

#include <chrono>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "devices/scenario/ValueReader.h"
#include "analysis/ieee80211/Channels.h"
#include "analysis/ieee80211/Security.h"

namespace wifi_profile::scenario {

// Reads one of several texts that stand for values. The first one is the default. `choices`: pairs
// of text and value.
template <class Choices>
auto readChoice(const ValueReader& value, const Choices& choices) {
  const auto text = as<Text>(value.value());
  std::string expected;
  for (const auto& [name, choice] : choices) {
    if (text && text->string() == name) return choice;
    expected += (expected.empty() ? "one of \"" : ", \"") + std::string(name) + "\"";
  }
  value.fail(std::move(expected));
  return std::begin(choices)->second;
}

// Optional fields: the target keeps its value if the field is missing.
void takeText(FieldsReader& fields, std::string_view key, std::string& target);
void takeText(FieldsReader& fields, std::string_view key, std::optional<std::string>& target);
void takeFlag(FieldsReader& fields, std::string_view key, bool& target);
void takeFlag(FieldsReader& fields, std::string_view key, std::optional<bool>& target);
void takeTexts(FieldsReader& fields, std::string_view key, std::vector<std::string>& target);
// The same for a list of texts that `read` reads.
void takeTexts(FieldsReader& fields, std::string_view key, std::vector<std::string>& target,
               std::string (*read)(const ValueReader&));
void takeInteger(FieldsReader& fields, std::string_view key, int least, int most, int& target);
void takeInteger(FieldsReader& fields, std::string_view key, int least, int most,
                 std::optional<int>& target);

// Returns the MAC address in a text, in lower case. Empty if the text is not one.
std::optional<std::string> addressIn(std::string text);

std::string readSsid(const ValueReader& value);     // 1 to 32 bytes
std::string readBssid(const ValueReader& value);    // in lower case
std::string readCountry(const ValueReader& value);  // two capital letters
std::string readIpv4(const ValueReader& value);     // dotted
std::string readIpv6(const ValueReader& value);     // without a scope
ieee80211::Security readSecurity(const ValueReader& value);
ieee80211::Band readBand(const ValueReader& value);

// A 20 MHz channel and its band. Without a given band, channels 1 to 14 belong to 2.4 GHz and all
// others to 5 GHz.
struct ChannelPlace {
  ieee80211::Band band = ieee80211::Band::ghz2;
  int channel = 1;

  int frequency() const;  // MHz
};
ChannelPlace readChannel(const ValueReader& channel, std::optional<ieee80211::Band> band);

// Takes "channel" and "band". Empty if there is no channel.
std::optional<ChannelPlace> takeChannel(FieldsReader& fields);

}  // namespace wifi_profile::scenario
