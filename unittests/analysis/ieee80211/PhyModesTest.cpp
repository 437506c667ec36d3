#include <gtest/gtest.h>

#include "analysis/ieee80211/Beacons.h"
#include "analysis/ieee80211/ElementIds.h"
#include "analysis/ieee80211/PhyModes.h"

namespace wifi_profile::ieee80211 {
namespace {

PhyModes modesOf(const Octets& elements, std::optional<Band> band) {
  return readPhyModes(ElementSet(elements), parse(elements).network.rates, band);
}

TEST(PhyModes, OfRatesDependOnTheBand) {
  EXPECT_EQ(modesOf(bRates(), Band::ghz2), (PhyModes{.b = true}));
  EXPECT_EQ(modesOf(bgRates(), Band::ghz2), (PhyModes{.b = true, .g = true}));
  EXPECT_EQ(modesOf(ofdmRates(), Band::ghz2), (PhyModes{.g = true}));
  EXPECT_EQ(modesOf(ofdmRates(), Band::ghz5), (PhyModes{.a = true}));
  EXPECT_EQ(modesOf(ofdmRates(), Band::ghz6), PhyModes{});
  EXPECT_EQ(modesOf(bgRates(), std::nullopt), PhyModes{});
}

TEST(PhyModes, OfLaterGenerationsAreTheirCapabilities) {
  const Octets all = htCapabilities() + vhtCapabilities() + heCapabilities() + ehtCapabilities();
  EXPECT_EQ(modesOf(all, Band::ghz5), (PhyModes{.n = true, .ac = true, .ax = true, .be = true}));
  EXPECT_EQ(modesOf(all, Band::ghz2), (PhyModes{.n = true, .ax = true, .be = true}));
  EXPECT_EQ(modesOf(element(kHtCapabilitiesId, zeros(25)), Band::ghz5), PhyModes{});
  EXPECT_EQ(modesOf(extensionElement(kHeCapabilitiesExtension, zeros(20)), Band::ghz5), PhyModes{});
}

}  // namespace
}  // namespace wifi_profile::ieee80211
