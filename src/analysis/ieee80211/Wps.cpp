#include "analysis/ieee80211/Wps.h"

#include <array>
#include <cstdint>

namespace wifi_profile::ieee80211 {
namespace {

// The body of a management frame has at most 2304 octets (802.11-2020, 9.2.4.7.1, without VHT),
// and an element at most 257.
constexpr std::size_t kMostParts = 8;

struct Attribute {
  std::uint16_t id;
  std::size_t limit;
  std::optional<std::string> WpsInformation::*field;
};

constexpr std::array<Attribute, 2> kAttributes{{
    {0x1021, WpsInformation::kLongestManufacturer, &WpsInformation::manufacturer},
    {0x1023, WpsInformation::kLongestModelName, &WpsInformation::modelName},
}};

}  // namespace

std::optional<WpsInformation> parseWps(const std::vector<Bytes>& parts) {
  if (parts.empty() || parts.size() > kMostParts) return std::nullopt;
  std::vector<std::uint8_t> whole;
  for (const Bytes& part : parts) whole.insert(whole.end(), part.begin(), part.end());

  std::array<std::optional<Bytes>, kAttributes.size()> found;
  std::array<bool, kAttributes.size()> contradicting{};
  ByteReader reader(whole);
  while (!reader.atEnd()) {
    const std::uint16_t id = reader.bigEndian16();
    const Bytes value = reader.take(reader.bigEndian16());
    if (reader.failed()) break;
    for (std::size_t i = 0; i < kAttributes.size(); ++i) {
      if (kAttributes[i].id != id) continue;
      if (found[i] && !areEqual(*found[i], value)) contradicting[i] = true;
      found[i] = value;
    }
  }

  WpsInformation information;
  for (std::size_t i = 0; i < kAttributes.size(); ++i) {
    if (!found[i] || contradicting[i]) continue;
    const Bytes value = *found[i];
    information.*kAttributes[i].field =
        toText(value.first(std::min(value.size(), kAttributes[i].limit)));
  }
  return information;
}

}  // namespace wifi_profile::ieee80211
