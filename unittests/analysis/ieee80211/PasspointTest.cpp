#include <gtest/gtest.h>

#include "analysis/ieee80211/Beacons.h"
#include "analysis/ieee80211/ElementIds.h"
#include "analysis/ieee80211/Passpoint.h"

namespace wifi_profile::ieee80211 {
namespace {

TEST(InterworkingElement, MayHaveAVenueAndAHessid) {
  // Free public, with a page to agree to.
  const Octets options{0x33};
  const Interworking expected{.accessNetworkType = 3, .additionalStepNeeded = true};
  for (const std::size_t size : {0U, 2U, 6U, 8U}) {
    EXPECT_EQ(parseInterworking(options + zeros(size)), expected) << size;
  }
  EXPECT_EQ(parseInterworking(Octets{0x12}), (Interworking{.accessNetworkType = 2}));
}

TEST(InterworkingElement, OfAnotherSizeIsDamaged) {
  for (const std::size_t size : {0U, 2U, 4U, 5U, 6U, 8U, 10U}) {
    EXPECT_FALSE(parseInterworking(zeros(size))) << size;
  }
}

TEST(HotspotElement, IsCompleteWithTheFieldsThatItAnnounces) {
  EXPECT_TRUE(isHotspotIndication(Octets{0x00}));
  EXPECT_TRUE(isHotspotIndication(Octets{0x16, 9, 9, 1, 2}));
  EXPECT_FALSE(isHotspotIndication({}));
  EXPECT_FALSE(isHotspotIndication(Octets{0x02, 1}));
  EXPECT_FALSE(isHotspotIndication(Octets{0x06, 1, 2, 3}));
}

TEST(Passpoint, HasBothTheIndicationAndInterworking) {
  const Octets indication = vendorElement(kAllianceOui, kHotspotType, {0x10});
  const Octets interworking = element(kInterworkingId, {0x13});
  EXPECT_TRUE(parse(indication + interworking).network.isPasspoint());
  EXPECT_FALSE(parse(indication).network.isPasspoint());
  EXPECT_FALSE(parse(interworking).network.isPasspoint());
}

}  // namespace
}  // namespace wifi_profile::ieee80211
