#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "analysis/ieee80211/Beacons.h"
#include "analysis/ieee80211/ElementIds.h"
#include "analysis/ieee80211/ElementSet.h"
#include "analysis/ieee80211/Elements.h"

namespace wifi_profile::ieee80211 {
namespace {

using testing::ElementsAre;

TEST(Elements, ComeInOrderWithTheirPayloads) {
  // SSID "ab"; an element without payload; extension 36 with one octet.
  const Octets bytes{0, 2, 'a', 'b', 70, 0, 255, 2, 36, 9};
  ElementWalker walker(bytes);
  auto element = walker.next();
  ASSERT_TRUE(element);
  EXPECT_EQ(element->id, 0);
  EXPECT_EQ(toText(element->payload), "ab");
  element = walker.next();
  ASSERT_TRUE(element);
  EXPECT_EQ(element->id, 70);
  EXPECT_TRUE(element->payload.empty());
  element = walker.next();
  ASSERT_TRUE(element);
  EXPECT_EQ(element->id, kExtensionId);
  EXPECT_EQ(element->extension, 36);
  EXPECT_THAT(element->payload, ElementsAre(9));
  EXPECT_FALSE(walker.next());
  EXPECT_FALSE(walker.truncated());
}

TEST(Elements, EndWhereOneIsCutOff) {
  for (const Octets& tail : {Octets{3}, Octets{3, 1}, Octets{3, 2, 6}, Octets{255, 9, 36}}) {
    const Octets bytes = ssid("ab") + tail;
    ElementWalker walker(bytes);
    EXPECT_TRUE(walker.next());
    EXPECT_FALSE(walker.truncated());
    EXPECT_FALSE(walker.next());
    EXPECT_TRUE(walker.truncated());
    EXPECT_FALSE(walker.next());
  }
}

TEST(Elements, OfNoBytesAreNone) {
  ElementWalker walker({});
  EXPECT_FALSE(walker.next());
  EXPECT_FALSE(walker.truncated());
}

TEST(Elements, AnExtensionWithoutItsIdIsPassedOver) {
  const Octets bytes{255, 0, 3, 1, 6};
  ElementWalker walker(bytes);
  const auto element = walker.next();
  ASSERT_TRUE(element);
  EXPECT_EQ(element->id, kDsParameterSetId);
}

TEST(Elements, OfAVendorHaveAnOrganisationAndAType) {
  const Octets payload{0x50, 0x6F, 0x9A, 16, 1};
  const auto vendor = asVendorElement({.id = kVendorId, .extension = 0, .payload = payload});
  ASSERT_TRUE(vendor);
  EXPECT_EQ(vendor->oui, kAllianceOui);
  EXPECT_EQ(vendor->type, kHotspotType);
  EXPECT_THAT(vendor->payload, ElementsAre(1));
  EXPECT_FALSE(asVendorElement({.id = 220, .extension = 0, .payload = payload}));
  for (std::size_t size = 0; size < 4; ++size) {
    EXPECT_FALSE(
        asVendorElement({.id = kVendorId, .extension = 0, .payload = Bytes(payload).first(size)}));
  }
}

TEST(ElementSet, FindsElementsByKind) {
  const Octets bytes = ssid("ab") + wpa(1) + heCapabilities() + element(200, {1});
  const ElementSet set(bytes);
  EXPECT_EQ(toText(set.payload(Kind::ssid).value()), "ab");
  EXPECT_TRUE(set.has(Kind::wpa));
  EXPECT_TRUE(set.has(Kind::heCapabilities));
  EXPECT_FALSE(set.has(Kind::heOperation));
  EXPECT_FALSE(set.has(Kind::wps));
  EXPECT_FALSE(set.payload(Kind::rsn));
}

TEST(ElementSet, AnElementThatIsRepeatedCountsOnce) {
  const Octets bytes = ssid("ab") + ssid("ab");
  EXPECT_EQ(toText(ElementSet(bytes).payload(Kind::ssid).value()), "ab");
}

TEST(ElementSet, ElementsOfAKindThatDifferCountAsDamaged) {
  const Octets bytes = ssid("ab") + ssid("ac") + ssid("ab");
  const ElementSet set(bytes);
  EXPECT_TRUE(set.has(Kind::ssid));
  EXPECT_FALSE(set.payload(Kind::ssid));
}

TEST(ElementSet, AProfileInheritsWhatItDoesNotHaveItself) {
  const Octets sender = ssid("one") + element(kBssLoadId, {1, 0, 2, 0, 0}) + rsn({akm::kSae});
  const Octets own = ssid("two") + element(kBssLoadId, {9});
  ElementSet set(own);
  ASSERT_TRUE(set.inherit(ElementSet(sender)));
  EXPECT_EQ(toText(set.payload(Kind::ssid).value()), "two");
  EXPECT_THAT(set.payload(Kind::bssLoad).value(), ElementsAre(9));
  EXPECT_TRUE(set.has(Kind::rsn));
}

TEST(ElementSet, AProfileDoesNotInheritAName) {
  const Octets sender = ssid("one");
  ElementSet set({});
  ASSERT_TRUE(set.inherit(ElementSet(sender)));
  EXPECT_FALSE(set.has(Kind::ssid));
}

TEST(ElementSet, AProfileDoesNotInheritWhatItsNonInheritanceNames) {
  const Octets sender = rsn({akm::kSae}) + wpa(1) + heCapabilities() + ehtCapabilities() +
                        vendorElement(kWpaOui, kWpsType, {}) + htCapabilities();
  // Two ids, one extension id.
  const Octets own = extensionElement(kNonInheritanceExtension,
                                      {2, kRsnId, kVendorId, 1, kHeCapabilitiesExtension});
  ElementSet set(own);
  ASSERT_TRUE(set.inherit(ElementSet(sender)));
  EXPECT_FALSE(set.has(Kind::rsn));
  EXPECT_FALSE(set.has(Kind::wpa));
  EXPECT_FALSE(set.has(Kind::wps));
  EXPECT_TRUE(set.parts(Kind::wps).empty());
  EXPECT_FALSE(set.has(Kind::heCapabilities));
  EXPECT_TRUE(set.has(Kind::ehtCapabilities));
  EXPECT_TRUE(set.has(Kind::htCapabilities));
}

TEST(ElementSet, ADamagedNonInheritanceLeavesNothingToInherit) {
  const Octets sender = rsn({akm::kSae});
  for (const Octets& lists : {Octets{}, Octets{1}, Octets{1, 48}, Octets{2, 48, 0}}) {
    const Octets own = extensionElement(kNonInheritanceExtension, lists);
    ElementSet set(own);
    EXPECT_FALSE(set.inherit(ElementSet(sender)));
    EXPECT_FALSE(set.has(Kind::rsn));
  }
}

}  // namespace
}  // namespace wifi_profile::ieee80211
