#include "analysis/checks/CheckFixture.h"

namespace wifi_profile::checks {
namespace {

using ieee80211::Security;
using testing::IsNull;

class SavedNetworkChecks : public CheckTest {
 protected:
  SavedNetworkChecks() { facts.savedNetworks = std::vector<facts::SavedNetwork>(); }

  facts::SavedNetwork& save(std::string name,
                            ieee80211::Security security = ieee80211::Security::wpa2Personal) {
    facts::SavedNetwork& saved = facts.savedNetworks->emplace_back();
    saved.ssid = std::move(name);
    saved.security = security;
    return saved;
  }
  std::shared_ptr<const PreferredNetworkRecord> record() const {
    const auto answer = ask(Id::CaptivePortal);
    return as<PreferredNetworkRecord>(answer->info->objectForKey("PreferredNetwork"));
  }
};

TEST_F(SavedNetworkChecks, CountAboveTheThreshold) {
  for (int i = 0; i < 50; ++i) save("Network " + std::to_string(i));
  EXPECT_THAT(ask(Id::LargePNL), says(false));
  save("One more");
  EXPECT_THAT(ask(Id::LargePNL), says(true));
  EXPECT_THAT(ask(Id::LargePNL), tells("PNLCount", isInteger(51)));
}

TEST_F(SavedNetworkChecks, FindHiddenOnes) {
  save("Seen");
  EXPECT_THAT(ask(Id::PNLContainsHidden), says(false));
  save("Hidden").isHidden = true;
  EXPECT_THAT(ask(Id::PNLContainsHidden), says(true));
}

TEST_F(SavedNetworkChecks, FindOneNameWithDifferentKeys) {
  save("Twice", ieee80211::Security::wpa2Personal);
  auto& second = save("Twice", ieee80211::Security::wpa3Personal);
  EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), says(false));
  second.security = ieee80211::Security::unknown;
  EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), isUnknownFor(Reason::notTold));
  for (const ieee80211::Security other :
       {ieee80211::Security::none, ieee80211::Security::owe, ieee80211::Security::wep,
        ieee80211::Security::wpaEnterprise, ieee80211::Security::wpa3Enterprise}) {
    second.security = other;
    EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), says(true));
  }
  second.ssid = "Once";
  EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), says(false));
}

TEST_F(SavedNetworkChecks, TakeOpenAndItsEncryptedTwinForOne) {
  save("Twice", ieee80211::Security::none);
  save("Twice", ieee80211::Security::owe);
  EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), says(false));
}

TEST_F(SavedNetworkChecks, FindKeysThatNobodyInRangeHas) {
  save(kName, ieee80211::Security::none);
  EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), says(true));
  add(accessPoint("02:00:00:00:00:01", kName, -50, 36)).security = ieee80211::Security::none;
  EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), says(false));
  facts.scan = Error{Reason::failed, ""};
  EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), isUnknownFor(Reason::failed));
}

TEST_F(SavedNetworkChecks, AccuseNoKeyWhereAnAccessPointIsUnclear) {
  save(kName, ieee80211::Security::none);
  add(accessPoint("02:00:00:00:00:01", kName, -50, 36)).security = ieee80211::Security::unknown;
  EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), isUnknownFor(Reason::notTold));
  facts.savedNetworks->back().security = ieee80211::Security::unknown;
  EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), isUnknownFor(Reason::notTold));
  facts.savedNetworks->back().ssid = "Elsewhere";
  EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), says(false));
}

TEST_F(SavedNetworkChecks, TakeThePortalProbeForTheJoinedNetwork) {
  EXPECT_THAT(ask(Id::CaptivePortal), isUnknownFor(Reason::notTold));
  facts.portalProbe = facts::PortalProbe{facts::PortalProbe::Answer::open, ""};
  EXPECT_THAT(ask(Id::CaptivePortal), says(false));
  facts.portalProbe = facts::PortalProbe{facts::PortalProbe::Answer::portal, "302"};
  EXPECT_THAT(ask(Id::CaptivePortal), says(true));
  facts.portalProbe = facts::PortalProbe{facts::PortalProbe::Answer::noAnswer, "timed out"};
  const auto answer = ask(Id::CaptivePortal);
  EXPECT_THAT(answer, isUnknownFor(Reason::failed));
  EXPECT_THAT(answer.error().message, testing::HasSubstr("(timed out)"));
}

TEST_F(SavedNetworkChecks, TakeAForeignNetworksOwnWordForAPortal) {
  auto& cafe = add(accessPoint("02:00:00:00:00:01", "Cafe", -50, 36));
  askAbout("Cafe");
  facts.portalProbe = facts::PortalProbe{facts::PortalProbe::Answer::open, ""};
  EXPECT_THAT(ask(Id::CaptivePortal), isUnknownFor(Reason::outsideNetwork));
  cafe.additionalStepNeeded = true;
  EXPECT_THAT(ask(Id::CaptivePortal), says(true));
}

TEST_F(SavedNetworkChecks, TellWhatIsRememberedOfTheNetwork) {
  facts.portalProbe = facts::PortalProbe{facts::PortalProbe::Answer::portal, ""};
  EXPECT_EQ(record(), nullptr);
  save(kName, ieee80211::Security::wep).lastJoined = Date{1};
  auto& last = save(kName, ieee80211::Security::wpa3Personal);
  last.lastJoined = Date{2};
  last.joinsByItself = false;
  last.isHidden = true;
  last.isPasspoint = true;
  save(kName, ieee80211::Security::none);
  save("Other").lastJoined = Date{3};
  const auto told = record();
  ASSERT_NE(told, nullptr);
  EXPECT_EQ(told->ssidString->string(), kName);
  EXPECT_EQ(told->security, static_cast<std::int64_t>(ieee80211::Security::wpa3Personal));
  EXPECT_EQ(told->lastJoinedTimestamp, Date{2});
  EXPECT_FALSE(told->isEnabled);
  EXPECT_TRUE(told->isHidden);
  EXPECT_TRUE(told->isPasspoint);
  EXPECT_TRUE(told->isCaptive);
  EXPECT_FALSE(told->isMultiAP);
}

TEST_F(SavedNetworkChecks, CallANetworkOfSeveralAccessPointsHeardOrRemembered) {
  facts.portalProbe = facts::PortalProbe{facts::PortalProbe::Answer::open, ""};
  save(kName).accessPoints = 1;
  EXPECT_FALSE(record()->isMultiAP);
  EXPECT_FALSE(record()->isCaptive);
  facts.savedNetworks->front().accessPoints = 2;
  EXPECT_TRUE(record()->isMultiAP);
  facts.savedNetworks->front().accessPoints = 0;
  add(accessPoint("02:00:00:00:00:01", kName, -50, 36));
  EXPECT_TRUE(record()->isMultiAP);
  own().additionalStepNeeded = true;
  EXPECT_TRUE(record()->isCaptive);
}

TEST_F(SavedNetworkChecks, RememberOfANetworkTheProfileWithItsKeys) {
  facts.portalProbe = facts::PortalProbe{facts::PortalProbe::Answer::open, ""};
  own().security = ieee80211::Security::none;
  save(kName, ieee80211::Security::wpa2Personal).lastJoined = Date{2};
  save(kName, ieee80211::Security::none).lastJoined = Date{1};
  EXPECT_EQ(record()->security, static_cast<int>(ieee80211::Security::none));
  own().security = ieee80211::Security::unknown;
  EXPECT_EQ(record()->security, static_cast<int>(ieee80211::Security::wpa2Personal));
}

TEST_F(SavedNetworkChecks, NeedTheListOfThem) {
  facts.savedNetworks = Error{Reason::notPermitted, ""};
  for (const Id id : {Id::LargePNL, Id::PNLContainsHidden, Id::ConflictingSecurityTypeInPNL}) {
    EXPECT_THAT(ask(id), isUnknownFor(Reason::notPermitted));
  }
}

}  // namespace
}  // namespace wifi_profile::checks
