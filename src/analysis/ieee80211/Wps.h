// The maker and model of an access point, from its WPS elements (Wi-Fi Alliance, Wi-Fi Simple
// Configuration). Beacons rarely contain them; probe responses do.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analysis/ieee80211/Bytes.h"

namespace wifi_profile::ieee80211 {

// Texts as received: they may be empty, end with zeros or not be UTF-8. A text that is longer than
// its limit is cut to it.
struct WpsInformation {
  static constexpr std::size_t kLongestManufacturer = 64;  // bytes
  static constexpr std::size_t kLongestModelName = 32;     // bytes

  std::optional<std::string> manufacturer;
  std::optional<std::string> modelName;

  bool operator==(const WpsInformation&) const = default;
};

// Takes the payloads, after the vendor's type, of all the network's WPS elements in order. Long
// information may be split at any byte and continues in the next element. Parsing ends at an
// incomplete attribute; an attribute that occurs with different values is empty. Returns empty if
// there is no element or if there are more than a frame can hold. Linear in the number of bytes.
std::optional<WpsInformation> parseWps(const std::vector<Bytes>& parts);

}  // namespace wifi_profile::ieee80211
