#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "analysis/ieee80211/Beacons.h"
#include "analysis/ieee80211/ElementIds.h"
#include "analysis/ieee80211/MultipleBssid.h"

namespace wifi_profile::ieee80211 {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> namesOf(const AccessPointElements& parsed) {
  std::vector<std::string> names;
  for (const auto& other : parsed.others) names.push_back(other.network.ssid.value().name);
  return names;
}

Octets open(std::string_view name, std::uint8_t index) {
  return profileElements(kOpenCapabilities, name, index);
}

TEST(MultipleBssid, DerivesBssidsWithinItsBits) {
  const Bssid sender{0x02, 0, 0, 0, 0, 0x3E};
  const auto last = [&](int bits, std::uint8_t index) {
    const Bssid derived = deriveBssid(sender, bits, index);
    EXPECT_TRUE(std::equal(derived.begin(), derived.end() - 1, sender.begin()));
    return derived.back();
  };
  EXPECT_EQ(last(2, 1), 0x3F);
  EXPECT_EQ(last(2, 2), 0x3C) << "no carry beyond two bits";
  EXPECT_EQ(last(4, 2), 0x30);
  EXPECT_EQ(last(8, 2), 0x40);
  EXPECT_EQ(last(8, 0xC2), 0x00);
  EXPECT_EQ(last(1, 1), 0x3F);
}

TEST(MultipleBssid, GivesEachNetworkItsOwnNameIndexAndBeacons) {
  const auto parsed =
      parse(ssid("Sender") + multipleBssid(2, profile(open("b", 3)) + profile(open("a", 1))));
  ASSERT_THAT(namesOf(parsed), ElementsAre("a", "b"));
  EXPECT_EQ(parsed.others[0].index, 1);
  EXPECT_EQ(parsed.others[1].index, 3);
  EXPECT_EQ(parsed.others[0].bssid, (Bssid{0x02, 0x00, 0x5E, 0x10, 0x20, 0x3B}));
  EXPECT_EQ(parsed.others[1].bssid, (Bssid{0x02, 0x00, 0x5E, 0x10, 0x20, 0x39}));
  EXPECT_EQ(parsed.others[0].network.dtim, (Dtim{.period = 3}));
  EXPECT_EQ(parsed.others[0].network.capabilities, kOpenCapabilities);
}

TEST(MultipleBssid, OfASenderThatIsNotKnownHasNoBssids) {
  const Octets elements = multipleBssid(2, profile(open("a", 1)));
  const auto parsed = parseAccessPointElements({.elements = elements});
  ASSERT_EQ(parsed.others.size(), 1U);
  EXPECT_EQ(parsed.others[0].bssid, std::nullopt);
}

TEST(MultipleBssid, InheritsSecurityUnlessToldOtherwise) {
  const Octets subelements =
      profile(profileElements(kPrivateCapabilities, "heir", 1)) +
      profile(profileElements(kPrivateCapabilities, "own", 2) + rsn({akm::kPsk})) +
      profile(open("open", 3) + extensionElement(kNonInheritanceExtension, {1, kRsnId, 0}));
  const auto parsed = parse(rsn({akm::kSae}, 0xC0) + multipleBssid(2, subelements));
  ASSERT_THAT(namesOf(parsed), ElementsAre("heir", "own", "open"));
  EXPECT_EQ(parsed.network.security, Security::wpa3Personal);
  EXPECT_EQ(parsed.others[0].network.security, Security::wpa3Personal);
  EXPECT_EQ(parsed.others[1].network.security, Security::wpa2Personal);
  EXPECT_EQ(parsed.others[2].network.security, Security::none);
}

TEST(MultipleBssid, InheritsNoGuessFromADamagedElement) {
  const auto parsed =
      parse(element(kRsnId, {1}) +
            multipleBssid(2, profile(profileElements(kPrivateCapabilities, "heir", 1))));
  ASSERT_EQ(parsed.others.size(), 1U);
  EXPECT_EQ(parsed.others[0].network.security, Security::unknown);
}

TEST(MultipleBssid, LeavesOutAProfileWhoseInheritanceIsDamaged) {
  const auto parsed = parse(multipleBssid(
      2, profile(open("a", 1) + extensionElement(kNonInheritanceExtension, {9, kRsnId})) +
             profile(open("b", 2))));
  EXPECT_THAT(namesOf(parsed), ElementsAre("b"));
}

TEST(MultipleBssid, JoinsAProfileThatWasSplit) {
  // Capability and name; index; load: three elements, with another profile after them.
  const Octets elements = open("a", 1);
  const std::size_t front = 4 + 3;
  const Octets first(elements.begin(), elements.begin() + front);
  const Octets second(elements.begin() + front, elements.end());
  const Octets load = element(kBssLoadId, {7, 0, 9, 0, 0});
  const auto parsed = parse(multipleBssid(2, profile(open("b", 2)) + profile(first)) +
                            multipleBssid(2, profile(second)) +
                            multipleBssid(2, profile(load) + profile(open("c", 3))));
  ASSERT_THAT(namesOf(parsed), ElementsAre("a", "b", "c"));
  EXPECT_EQ(parsed.others[0].network.load, (BssLoad{.channelUtilization = 9}));
  EXPECT_EQ(parsed.others[1].network.load, std::nullopt);
}

TEST(MultipleBssid, AContinuationThatIsNotAtTheFrontContinuesNothing) {
  const auto parsed = parse(
      multipleBssid(2, profile(open("a", 1)) + profile(element(kBssLoadId, {7, 0, 9, 0, 0}))) +
      multipleBssid(2, profile(element(kBssLoadId, {8, 0, 9, 0, 0}))));
  ASSERT_THAT(namesOf(parsed), ElementsAre("a"));
  EXPECT_EQ(parsed.others[0].network.load, std::nullopt);
}

TEST(MultipleBssid, LeavesOutAProfileWithAPieceThatIsCutOff) {
  const auto parsed = parse(multipleBssid(2, profile(open("b", 2)) + profile(open("a", 1))) +
                            multipleBssid(2, profile(Octets{kBssLoadId, 5, 1})));
  EXPECT_THAT(namesOf(parsed), ElementsAre("b"));
}

TEST(MultipleBssid, LeavesOutAProfileWithoutCapabilityNameOrIndex) {
  const Octets capability = element(kNontransmittedCapabilityId, {1, 4});
  const Octets name = ssid("a");
  const Octets index = element(kMultipleBssidIndexId, {1, 3, 0});
  const Octets others = profile(open("b", 2));
  for (const Octets& elements : {name + index, capability + index, capability + name,
                                 element(kNontransmittedCapabilityId, {1}) + name + index,
                                 capability + name + element(kMultipleBssidIndexId, {})}) {
    EXPECT_THAT(namesOf(parse(multipleBssid(2, profile(elements) + others))), ElementsAre("b"));
  }
  EXPECT_THAT(namesOf(parse(multipleBssid(2, profile(capability + name + index) + others))),
              ElementsAre("a", "b"));
}

TEST(MultipleBssid, LeavesOutIndexesOutOfRange) {
  EXPECT_THAT(namesOf(parse(multipleBssid(
                  2, profile(open("a", 0)) + profile(open("b", 4)) + profile(open("c", 3))))),
              ElementsAre("c"));
}

TEST(MultipleBssid, LeavesOutNetworksThatContradictEachOther) {
  EXPECT_THAT(namesOf(parse(multipleBssid(2, profile(open("a", 1)) + profile(open("a", 1))))),
              ElementsAre("a"));
  EXPECT_THAT(namesOf(parse(multipleBssid(2, profile(open("a", 1)) + profile(open("b", 1)) +
                                                 profile(open("a", 1)) + profile(open("c", 2))))),
              ElementsAre("c"));
}

TEST(MultipleBssid, IsNotKnownWhenAnElementIsDamagedAsAWhole) {
  const Octets good = multipleBssid(2, profile(open("a", 1)));
  EXPECT_THAT(namesOf(parse(good)), ElementsAre("a"));
  for (const Octets& bad :
       {element(kMultipleBssidId, {}), multipleBssid(0, {}), multipleBssid(9, {}),
        multipleBssid(3, profile(open("b", 2))), multipleBssid(2, Octets{0, 9, 83})}) {
    EXPECT_THAT(namesOf(parse(good + bad)), IsEmpty());
  }
}

}  // namespace
}  // namespace wifi_profile::ieee80211
