#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "analysis/ieee80211/Beacons.h"
#include "analysis/ieee80211/ElementIds.h"
#include "analysis/ieee80211/Passpoint.h"

namespace wifi_profile::ieee80211 {
namespace {

using testing::ElementsAre;

TEST(InterworkingElement, TellsWhatItsSizeHasRoomFor) {
  // Free public, with Internet, with a page to agree to.
  const Octets options{0x33};
  const Octets venue{10, 1};
  const Octets hessid(kSender.begin(), kSender.end());

  const Interworking least{.accessNetworkType = 3, .internet = true, .additionalStepNeeded = true};
  EXPECT_EQ(parseInterworking(options), least);

  Interworking withVenue = least;
  withVenue.venueGroup = 10;
  withVenue.venueType = 1;
  EXPECT_EQ(parseInterworking(options + venue), withVenue);

  Interworking withHessid = least;
  withHessid.hessid = kSender;
  EXPECT_EQ(parseInterworking(options + hessid), withHessid);

  Interworking all = withVenue;
  all.hessid = kSender;
  EXPECT_EQ(parseInterworking(options + venue + hessid), all);
}

TEST(InterworkingElement, OfAnotherSizeIsDamaged) {
  for (const std::size_t size : {0U, 2U, 4U, 5U, 6U, 8U, 10U}) {
    EXPECT_FALSE(parseInterworking(zeros(size))) << size;
  }
}

TEST(RoamingConsortiumElement, HasOneToThreeOrganizations) {
  // How many more, lengths of the first two, organizations.
  EXPECT_THAT(parseRoamingConsortium(Octets{0, 0x03, 'a', 'b', 'c'}).value().organizations,
              ElementsAre("abc"));
  const auto all = parseRoamingConsortium(Octets{255, 0x53} + bytesOf("abcdefghijk"));
  ASSERT_TRUE(all);
  EXPECT_EQ(all->more, 255);
  EXPECT_THAT(all->organizations, ElementsAre("abc", "defgh", "ijk"));
}

TEST(RoamingConsortiumElement, ThatCannotBeIsDamaged) {
  EXPECT_FALSE(parseRoamingConsortium({}));
  EXPECT_FALSE(parseRoamingConsortium(Octets{0}));
  EXPECT_FALSE(parseRoamingConsortium(Octets{0, 0})) << "none";
  EXPECT_FALSE(parseRoamingConsortium(Octets{0, 0x05, 1, 2, 3, 4})) << "cut off";
  EXPECT_FALSE(parseRoamingConsortium(Octets{0, 0x30, 1, 2, 3})) << "a second without a first";
  EXPECT_FALSE(parseRoamingConsortium(Octets{0, 0x03} + zeros(6))) << "a third without a second";
  EXPECT_FALSE(parseRoamingConsortium(Octets{0, 0x02, 1, 2})) << "too short for an organization";
  EXPECT_FALSE(parseRoamingConsortium(Octets{0, 0x33} + zeros(6 + 16))) << "too long for one";
}

TEST(HotspotElement, TellsReleaseAndDomain) {
  EXPECT_EQ(parseHotspot(Octets{0x00}), (Hotspot{.release = 1}));
  EXPECT_EQ(parseHotspot(Octets{0x21}), (Hotspot{.release = 3, .groupForwardingDisabled = true}));
  // Two octets about subscriptions stand before the domain's.
  EXPECT_EQ(parseHotspot(Octets{0x16, 9, 9, 1, 2}), (Hotspot{.release = 2, .anqpDomain = 0x0201}));
}

TEST(HotspotElement, ThatIsCutOffIsDamaged) {
  EXPECT_FALSE(parseHotspot({}));
  EXPECT_FALSE(parseHotspot(Octets{0x02, 1}));
  EXPECT_FALSE(parseHotspot(Octets{0x06, 1, 2, 3}));
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
