// Values that several facts of a world have. Each notes a fault when a value will not do, and then
// returns a default, as ValueReader does.
#pragma once

#include <chrono>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "devices/scenario/ValueReader.h"
#include "ieee80211/Channels.h"
#include "ieee80211/Security.h"

namespace wifi_profile::scenario {

// One of several texts, each of which stands for a value. The first one is the default.
// `choices`: pairs of text and value.
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

// Fields that need not be there: the target keeps its value without them.
void takeText(FieldsReader& fields, std::string_view key, std::string& target);
void takeText(FieldsReader& fields, std::string_view key, std::optional<std::string>& target);
void takeFlag(FieldsReader& fields, std::string_view key, bool& target);
void takeFlag(FieldsReader& fields, std::string_view key, std::optional<bool>& target);
void takeTexts(FieldsReader& fields, std::string_view key, std::vector<std::string>& target);
// The same of a list of texts that `read` must take.
void takeTexts(FieldsReader& fields, std::string_view key, std::vector<std::string>& target,
               std::string (*read)(const ValueReader&));
void takeInteger(FieldsReader& fields, std::string_view key, int least, int most, int& target);
void takeInteger(FieldsReader& fields, std::string_view key, int least, int most,
                 std::optional<int>& target);

// The MAC address that is a text, made lower-case; nothing: it is none.
std::optional<std::string> addressIn(std::string text);

std::string readSsid(const ValueReader& value);     // 1 to 32 bytes
std::string readBssid(const ValueReader& value);    // made lower-case
std::string readCountry(const ValueReader& value);  // two capital letters
std::string readIpv4(const ValueReader& value);     // dotted
std::string readIpv6(const ValueReader& value);     // without a scope
ieee80211::Security readSecurity(const ValueReader& value);
ieee80211::Band readBand(const ValueReader& value);

// A channel of 20 MHz and its band. Where the band is not said, channels 1 to 14 are of 2.4 GHz and
// all others of 5 GHz.
struct ChannelPlace {
  ieee80211::Band band = ieee80211::Band::ghz2;
  int channel = 1;

  int frequency() const;  // MHz
};
ChannelPlace readChannel(const ValueReader& channel, std::optional<ieee80211::Band> band);

// Takes "channel" and "band"; nothing where there is no channel.
std::optional<ChannelPlace> takeChannel(FieldsReader& fields);

}  // namespace wifi_profile::scenario
