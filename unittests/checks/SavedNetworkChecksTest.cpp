#include "checks/CheckFixture.h"

namespace wifi_profile::checks {
namespace {

using ieee80211::Security;
using testing::IsNull;

class SavedNetworkChecks : public CheckTest {
 protected:
  SavedNetworkChecks() { facts.savedNetworks = std::vector<SavedNetwork>(); }

  SavedNetwork& save(std::string name, Security security = Security::wpa2Personal) {
    SavedNetwork& saved = facts.savedNetworks->emplace_back();
    saved.ssid = std::move(name);
    saved.security = security;
    return saved;
  }
  std::shared_ptr<const PreferredNetworkRecord> record() const {
    const auto answer = ask(Id::CaptivePortal);
    return as<PreferredNetworkRecord>(
        std::get<DiagnosticsTestResult>(answer).info->objectForKey("PreferredNetwork"));
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
  save("Twice", Security::wpa2Personal);
  auto& second = save("Twice", Security::wpa3Personal);
  EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), says(false));
  second.security = Security::unknown;
  EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), isUnknownFor(Reason::notTold));
  for (const Security other : {Security::none, Security::owe, Security::wep,
                               Security::wpaEnterprise, Security::wpa3Enterprise}) {
    second.security = other;
    EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), says(true));
  }
  second.ssid = "Once";
  EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), says(false));
}

TEST_F(SavedNetworkChecks, TakeOpenAndItsEncryptedTwinForOne) {
  save("Twice", Security::none);
  save("Twice", Security::owe);
  EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), says(false));
}

TEST_F(SavedNetworkChecks, FindKeysThatNobodyInRangeHas) {
  save(kName, Security::none);
  EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), says(true));
  add(accessPoint("02:00:00:00:00:01", kName, -50, 36)).security = Security::none;
  EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), says(false));
  facts.scan = Unknown{Reason::failed, ""};
  EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), isUnknownFor(Reason::failed));
}

TEST_F(SavedNetworkChecks, AccuseNoKeyWhereAnAccessPointIsUnclear) {
  save(kName, Security::none);
  add(accessPoint("02:00:00:00:00:01", kName, -50, 36)).security = Security::unknown;
  EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), isUnknownFor(Reason::notTold));
  facts.savedNetworks->back().security = Security::unknown;
  EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), isUnknownFor(Reason::notTold));
  facts.savedNetworks->back().ssid = "Elsewhere";
  EXPECT_THAT(ask(Id::ConflictingSecurityTypeInPNL), says(false));
}

TEST_F(SavedNetworkChecks, TakeThePortalProbeForTheJoinedNetwork) {
  EXPECT_THAT(ask(Id::CaptivePortal), isUnknownFor(Reason::notTold));
  facts.portalProbe = PortalProbe{PortalProbe::Answer::open, ""};
  EXPECT_THAT(ask(Id::CaptivePortal), says(false));
  facts.portalProbe = PortalProbe{PortalProbe::Answer::portal, "302"};
  EXPECT_THAT(ask(Id::CaptivePortal), says(true));
  facts.portalProbe = PortalProbe{PortalProbe::Answer::noAnswer, "timed out"};
  const auto answer = ask(Id::CaptivePortal);
  EXPECT_THAT(answer, isUnknownFor(Reason::failed));
  EXPECT_THAT(std::get<Unknown>(answer).sentence, testing::HasSubstr("(timed out)"));
}

TEST_F(SavedNetworkChecks, TakeAForeignNetworksOwnWordForAPortal) {
  auto& cafe = add(accessPoint("02:00:00:00:00:01", "Cafe", -50, 36));
  askAbout("Cafe");
  facts.portalProbe = PortalProbe{PortalProbe::Answer::open, ""};
  EXPECT_THAT(ask(Id::CaptivePortal), isUnknownFor(Reason::outsideNetwork));
  cafe.additionalStepNeeded = true;
  EXPECT_THAT(ask(Id::CaptivePortal), says(true));
}

TEST_F(SavedNetworkChecks, TellWhatIsRememberedOfTheNetwork) {
  facts.portalProbe = PortalProbe{PortalProbe::Answer::portal, ""};
  EXPECT_EQ(record(), nullptr);
  save(kName, Security::wep).lastJoined = Date{1};
  auto& last = save(kName, Security::wpa3Personal);
  last.lastJoined = Date{2};
  last.joinsByItself = false;
  last.isHidden = true;
  last.isPasspoint = true;
  save(kName, Security::none);
  save("Other").lastJoined = Date{3};
  const auto told = record();
  ASSERT_NE(told, nullptr);
  EXPECT_EQ(told->ssidString->string(), kName);
  EXPECT_EQ(told->security, static_cast<std::int64_t>(Security::wpa3Personal));
  EXPECT_EQ(told->lastJoinedTimestamp, Date{2});
  EXPECT_FALSE(told->isEnabled);
  EXPECT_TRUE(told->isHidden);
  EXPECT_TRUE(told->isPasspoint);
  EXPECT_TRUE(told->isCaptive);
  EXPECT_FALSE(told->isMultiAP);
}

TEST_F(SavedNetworkChecks, CallANetworkOfSeveralAccessPointsHeardOrRemembered) {
  facts.portalProbe = PortalProbe{PortalProbe::Answer::open, ""};
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
  facts.portalProbe = PortalProbe{PortalProbe::Answer::open, ""};
  own().security = Security::none;
  save(kName, Security::wpa2Personal).lastJoined = Date{2};
  save(kName, Security::none).lastJoined = Date{1};
  EXPECT_EQ(record()->security, static_cast<int>(Security::none));
  own().security = Security::unknown;
  EXPECT_EQ(record()->security, static_cast<int>(Security::wpa2Personal));
}

TEST_F(SavedNetworkChecks, NeedTheListOfThem) {
  facts.savedNetworks = Unknown{Reason::notPermitted, ""};
  for (const Id id : {Id::LargePNL, Id::PNLContainsHidden, Id::ConflictingSecurityTypeInPNL}) {
    EXPECT_THAT(ask(id), isUnknownFor(Reason::notPermitted));
  }
}

}  // namespace
}  // namespace wifi_profile::checks
