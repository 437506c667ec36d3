#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "analysis/ieee80211/Beacons.h"
#include "analysis/ieee80211/Security.h"

namespace wifi_profile::ieee80211 {
namespace {

using testing::ElementsAre;

constexpr std::uint16_t kRequired = 0xC0;  // management frames must be protected
constexpr std::uint16_t kCapable = 0x80;   // or may be

Security securityOf(const Octets& elements, std::uint16_t capabilities = kPrivateCapabilities) {
  const ElementSet set(elements);
  return summarize(set, readSecurityElements(set), capabilities);
}

TEST(Rsn, TellsKeyManagementAndCapabilities) {
  const auto rsn = parseRsn(rsnPayload({akm::kPsk, akm::kSae}, kRequired));
  ASSERT_TRUE(rsn);
  EXPECT_THAT(rsn->akms,
              ElementsAre(Suite{kStandardOui, akm::kPsk}, Suite{kStandardOui, akm::kSae}));
  EXPECT_TRUE(rsn->requiresManagementProtection());
  EXPECT_TRUE(rsn->hasManagementProtection());
}

// Version, group, pairwise count and one, key management count and one, capabilities, no PMKID,
// management cipher: an element may end after each of these fields.
TEST(Rsn, IsDamagedWhenItEndsWithinAField) {
  const Octets whole =
      rsnPayload({akm::kSae}, kRequired) + Octets{0, 0} + Octets{0x00, 0x0F, 0xAC, 6};
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    const bool fieldsAreWhole = size == 2 || size == 6 || size == 12 || size == 18 || size == 20 ||
                                size == 22 || size == 26;
    EXPECT_EQ(parseRsn(Bytes(whole).first(size)).has_value(), fieldsAreWhole) << size;
  }
}

TEST(Rsn, OfAnotherVersionIsDamaged) {
  Octets payload = rsnPayload({akm::kPsk});
  payload[0] = 2;
  EXPECT_FALSE(parseRsn(payload));
}

TEST(Rsn, WithMoreSuitesThanItHoldsIsDamaged) {
  // 65535 pairwise suites.
  EXPECT_FALSE(parseRsn(Octets{1, 0, 0x00, 0x0F, 0xAC, 4, 0xFF, 0xFF, 0x00, 0x0F, 0xAC, 4}));
  // 65535 PMKIDs.
  EXPECT_FALSE(parseRsn(rsnPayload({akm::kPsk}) + Octets{0xFF, 0xFF} + zeros(16)));
}

TEST(Security, WithoutElementsIsWhatThePrivacyBitSays) {
  EXPECT_EQ(securityOf({}, kOpenCapabilities), Security::none);
  EXPECT_EQ(securityOf({}, kPrivateCapabilities), Security::wep);
}

TEST(Security, OfWpaAloneIsWpa) {
  EXPECT_EQ(securityOf(wpa(akm::kPsk)), Security::wpaPersonal);
  EXPECT_EQ(securityOf(wpa(akm::k8021X)), Security::wpaEnterprise);
  EXPECT_EQ(securityOf(wpa(9)), Security::unknown);
}

TEST(Security, OfWpaAndWpa2IsWpa2) {
  EXPECT_EQ(securityOf(wpa(akm::kPsk) + rsn({akm::kPsk})), Security::wpa2Personal);
}

TEST(Security, WithASharedKeyIsPersonal) {
  EXPECT_EQ(securityOf(rsn({akm::kPsk})), Security::wpa2Personal);
  EXPECT_EQ(securityOf(rsn({akm::kPskSha256}, kRequired)), Security::wpa2Personal);
  EXPECT_EQ(securityOf(rsn({akm::kPsk, akm::kFtPsk})), Security::wpa2Personal);
  EXPECT_EQ(securityOf(rsn({akm::kPsk, akm::kSae}, kCapable)), Security::wpa2Wpa3Personal);
  EXPECT_EQ(securityOf(rsn({akm::kSae}, kRequired)), Security::wpa3Personal);
  EXPECT_EQ(securityOf(rsn({akm::kFtSae, akm::kSaeExtendedKey}, kRequired)),
            Security::wpa3Personal);
}

TEST(Security, WithA8021XServerIsEnterprise) {
  EXPECT_EQ(securityOf(rsn({akm::k8021X})), Security::wpa2Enterprise);
  EXPECT_EQ(securityOf(rsn({akm::k8021X, akm::kFt8021X}, kRequired)), Security::wpa2Enterprise);
  EXPECT_EQ(securityOf(rsn({akm::k8021XSha256}, kCapable)), Security::wpa2Enterprise);
  EXPECT_EQ(securityOf(rsn({akm::k8021X, akm::k8021XSha256})), Security::wpa2Enterprise);
  EXPECT_EQ(securityOf(rsn({akm::k8021X, akm::k8021XSha256}, kCapable)),
            Security::wpa2Wpa3Enterprise);
  EXPECT_EQ(securityOf(rsn({akm::k8021XSha256}, kRequired)), Security::wpa3Enterprise);
  EXPECT_EQ(securityOf(rsn({akm::kSuiteB192})), Security::wpa3Enterprise);
}

TEST(Security, WithoutAPasswordIsOwe) {
  EXPECT_EQ(securityOf(rsn({akm::kOwe}, kRequired)), Security::owe);
}

TEST(Security, PassesOverSuitesThatItDoesNotKnowBesideThoseThatItDoes) {
  EXPECT_EQ(securityOf(rsn({akm::kSae, 21, 200}, kRequired)), Security::wpa3Personal);
  EXPECT_EQ(securityOf(rsn({200})), Security::unknown);
}

TEST(Security, IsUnknownWhenItIsOfTwoKindsOrOfNone) {
  EXPECT_EQ(securityOf(rsn({akm::kPsk, akm::k8021X})), Security::unknown);
  EXPECT_EQ(securityOf(rsn({akm::kOwe, akm::kSae})), Security::unknown);
  EXPECT_EQ(securityOf(rsn({})), Security::unknown);
  EXPECT_EQ(securityOf(element(kRsnId, {1, 0})), Security::unknown);
}

TEST(Security, IsUnknownWhenAnElementAboutItIsDamagedOrContradicts) {
  EXPECT_EQ(securityOf(element(kRsnId, {1})), Security::unknown);
  EXPECT_EQ(securityOf(element(kRsnId, {1}) + wpa(akm::kPsk)), Security::unknown);
  EXPECT_EQ(securityOf(rsn({akm::kPsk}) + rsn({akm::kSae})), Security::unknown);
  EXPECT_EQ(securityOf(vendorElement(kWpaOui, kWpaType, {1, 0, 0})), Security::unknown);
}

TEST(Security, IsUnknownWhenItMayHaveBeenCutOff) {
  const Octets cut{kVendorId, 20, 1};
  EXPECT_EQ(securityOf(cut, kOpenCapabilities), Security::unknown);
  EXPECT_EQ(securityOf(wpa(akm::kPsk) + cut), Security::unknown) << "WPA2 may have been there, too";
  EXPECT_EQ(securityOf(rsn({akm::kPsk}) + cut), Security::wpa2Personal);
}

TEST(Security, OfAnotherStandardIsUnknown) {
  EXPECT_EQ(securityOf(element(kWapiId, {1, 0})), Security::unknown);
  EXPECT_EQ(securityOf(vendorElement(kAllianceOui, kOsenType, {})), Security::unknown);
}

// BSSID, the name's length, the name; operating class and channel if they differ.
TEST(OweTransition, NeedsABssidAndAName) {
  const Octets bssid(kSender.begin(), kSender.end());
  const Octets whole = bssid + Octets{2} + bytesOf("ab") + Octets{115, 36};
  for (std::size_t size = 0; size <= whole.size(); ++size) {
    EXPECT_EQ(isOweTransition(Bytes(whole).first(size)), size == 9 || size == 11) << size;
  }
  EXPECT_FALSE(isOweTransition(bssid + Octets{0}));
  EXPECT_FALSE(isOweTransition(bssid + Octets{33} + zeros(33)));
}

}  // namespace
}  // namespace wifi_profile::ieee80211
