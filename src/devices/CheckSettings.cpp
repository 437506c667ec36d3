#include "devices/CheckSettings.h"

#include <algorithm>
#include <utility>

#include "analysis/facts/IpAddresses.h"

namespace wifi_profile::devices {

using runtime::FieldsReader;
using runtime::ValueReader;

namespace {

// Reads an IPv4 network, such as 192.168.43.0/24.
std::string readSubnet(const ValueReader& value) {
  std::string subnet = value.text();
  if (!facts::isInSubnet(subnet.substr(0, subnet.find('/')), subnet)) {
    value.fail("a network such as \"192.168.43.0/24\"");
  }
  return subnet;
}

// Reads the first bytes of an address, in lower case.
std::string readAddressBlock(const ValueReader& value) {
  constexpr std::string_view kAnyRest = "00:00:00:00:00:00";
  const std::string block = value.text();
  const bool isWhole = block.size() % 3 == 2 && block.size() <= kAnyRest.size();
  const auto address =
      isWhole ? macAddressIn(block + std::string(kAnyRest.substr(block.size()))) : std::nullopt;
  if (address) return address->substr(0, block.size());
  value.fail("the first bytes of an address, such as \"02:21:8d\"");
  return {};
}

}  // namespace

void readCheckSettings(const ValueReader& value, checks::Settings& settings) {
  constexpr int kMost = 1'000'000;
  value.object([&](FieldsReader& fields) {
    takeInteger(fields, "poorSignalBelow", -127, 0, settings.poorSignalBelow);
    const std::pair<std::string_view, int*> counts[]{
        {"longBeaconIntervalAbove", &settings.longBeaconIntervalAbove},
        {"longDtimPeriodAbove", &settings.longDtimPeriodAbove},
        {"largeSavedListAbove", &settings.largeSavedListAbove},
        {"bluetoothConnectedAbove", &settings.bluetoothConnectedAbove},
        {"bluetoothPairedAbove", &settings.bluetoothPairedAbove}};
    for (const auto& [key, target] : counts) takeInteger(fields, key, 0, kMost, *target);
    fields.take("congestedBusyShare", [&](const ValueReader& field) {
      settings.congestedBusyShare = field.number(0, 1);
    });
    takeInteger(fields, "congestedUtilization", 0, 255, settings.congestedUtilization);
    fields.take("congestedNeighbours", [&](const ValueReader& field) {
      settings.congestedNeighbours = field.number(0, kMost);
    });
    takeTexts(fields, "ambiguousNames", settings.ambiguousNames);
    takeTexts(fields, "hotspotSubnets", settings.hotspotSubnets, readSubnet);
    takeTexts(fields, "baseStationMakers", settings.baseStationMakers);
    takeTexts(fields, "baseStationAddressBlocks", settings.baseStationAddressBlocks,
              readAddressBlock);
  });
}

std::optional<std::string> macAddressIn(std::string text) {
  constexpr std::string_view kPattern = "xx:xx:xx:xx:xx:xx";
  const auto isDigit = [](char c) { return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f'); };
  for (char& c : text) {
    if (c >= 'A' && c <= 'F') c = static_cast<char>(c - 'A' + 'a');
  }
  const bool fits =
      std::equal(text.begin(), text.end(), kPattern.begin(), kPattern.end(),
                 [&](char c, char pattern) { return pattern == 'x' ? isDigit(c) : c == pattern; });
  return fits ? std::optional(std::move(text)) : std::nullopt;
}

}  // namespace wifi_profile::devices
