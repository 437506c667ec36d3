#include "analysis/ieee80211/PhyModes.h"

namespace wifi_profile::ieee80211 {

PhyModes readPhyModes(const ElementSet& elements, const std::optional<Rates>& rates,
                      std::optional<Band> band) {
  const auto isWhole = [&](Kind kind, std::size_t size) {
    const auto payload = elements.payload(kind);
    return payload && payload->size() >= size;
  };
  PhyModes modes;
  modes.a = band == Band::ghz5 && rates && rates->hasOfdmRates();
  modes.b = band == Band::ghz2 && rates && rates->hasBRates();
  modes.g = band == Band::ghz2 && rates && rates->hasOfdmRates();
  // Minimum sizes: 802.11-2020, 9.4.2.55 and 9.4.2.157; 802.11ax, 9.4.2.248; 802.11be. For the last
  // two: MAC capabilities, PHY capabilities and the shortest set of rates, after the extension id.
  modes.n = isWhole(Kind::htCapabilities, 26);
  modes.ac = isWhole(Kind::vhtCapabilities, 12) && band && band != Band::ghz2;
  modes.ax = isWhole(Kind::heCapabilities, 6 + 11 + 4);
  modes.be = isWhole(Kind::ehtCapabilities, 2 + 9 + 3);
  return modes;
}

}  // namespace wifi_profile::ieee80211
