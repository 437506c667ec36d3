// What an access point says of its make, for pushing a button on it (Wi-Fi Alliance, Wi-Fi Simple
// Configuration). Beacons rarely have it; probe responses do.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ieee80211/Bytes.h"

namespace wifi_profile::ieee80211 {

// Texts as they came, of any bytes: they may be empty, end with zeros or not be UTF-8. One that is
// longer than its limit is cut there.
struct WpsInformation {
  static constexpr std::size_t kLongestManufacturer = 64;  // bytes
  static constexpr std::size_t kLongestOther = 32;         // bytes

  std::optional<std::string> manufacturer;
  std::optional<std::string> modelName;
  std::optional<std::string> modelNumber;
  std::optional<std::string> deviceName;

  bool operator==(const WpsInformation&) const = default;
};

// Takes the payloads, after the vendor's type, of all the network's WPS elements in order: long
// information is cut anywhere and goes on in the next one. An attribute that is not there whole
// ends the reading; one that comes again with another value is not known. Nothing when there is no
// element, and when there are more than a frame has room for. Linear in the bytes.
std::optional<WpsInformation> parseWps(const std::vector<Bytes>& parts);

}  // namespace wifi_profile::ieee80211
