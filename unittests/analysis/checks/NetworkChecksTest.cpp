// The checks of the scan, of security and of what kind of network it is.
#include "analysis/checks/CheckFixture.h"
#include "analysis/facts/SecurityKinds.h"

namespace wifi_profile::checks {
namespace {

using ieee80211::Security;
using testing::IsNull;
using namespace std::string_literals;

class NetworkChecks : public CheckTest {};

struct SecurityCase {
  ieee80211::Security security;
  const char* text;
  bool isOpen;
  bool isWep;
  bool isWpa;
};

class SecurityOfANetwork : public CheckTest, public testing::WithParamInterface<SecurityCase> {};

TEST_P(SecurityOfANetwork, IsNamedAndJudged) {
  const SecurityCase& expected = GetParam();
  own().security = expected.security;
  EXPECT_THAT(ask(Id::NoSecurity), says(expected.isOpen));
  EXPECT_THAT(ask(Id::LegacySecurityWEP), says(expected.isWep));
  EXPECT_THAT(ask(Id::LegacySecurityWPA), says(expected.isWpa));
  for (const Id id : {Id::NoSecurity, Id::LegacySecurityWEP, Id::LegacySecurityWPA}) {
    EXPECT_THAT(ask(id), tells("Security", isText(expected.text)));
  }
}

INSTANTIATE_TEST_SUITE_P(
    All, SecurityOfANetwork,
    testing::Values(
        SecurityCase{ieee80211::Security::none, "None", true, false, false},
        SecurityCase{ieee80211::Security::owe, "OWE", false, false, false},
        SecurityCase{ieee80211::Security::wep, "WEP", false, true, false},
        SecurityCase{ieee80211::Security::wpaPersonal, "WPA Personal", false, false, true},
        SecurityCase{ieee80211::Security::wpaEnterprise, "WPA Enterprise", false, false, true},
        SecurityCase{ieee80211::Security::wpa2Personal, "WPA2 Personal", false, false, false},
        SecurityCase{ieee80211::Security::wpa2Enterprise, "WPA2 Enterprise", false, false, false},
        SecurityCase{ieee80211::Security::wpa2Wpa3Personal, "WPA2/WPA3 Personal", false, false,
                     false},
        SecurityCase{ieee80211::Security::wpa2Wpa3Enterprise, "WPA2/WPA3 Enterprise", false, false,
                     false},
        SecurityCase{ieee80211::Security::wpa3Personal, "WPA3 Personal", false, false, false},
        SecurityCase{ieee80211::Security::wpa3Enterprise, "WPA3 Enterprise", false, false, false}));

TEST_F(NetworkChecks, DoNotJudgeASecurityThatIsNotKnown) {
  own().security = ieee80211::Security::unknown;
  for (const Id id : {Id::NoSecurity, Id::LegacySecurityWEP, Id::LegacySecurityWPA}) {
    EXPECT_THAT(ask(id), isUnknownFor(Reason::notTold));
  }
}

TEST_F(NetworkChecks, FindCountriesThatDiffer) {
  facts.regulatory = facts::Regulatory{"00"};
  own().country = "DE";
  EXPECT_THAT(ask(Id::ConflictingCountryCode), says(false));
  auto& other = add(accessPoint("02:00:00:00:00:01", "Cafe", -50, 36));
  other.country = "DE";
  EXPECT_THAT(ask(Id::ConflictingCountryCode), says(false));
  other.country = "US";
  EXPECT_THAT(ask(Id::ConflictingCountryCode), says(true));
  other.country = "XX";
  EXPECT_THAT(ask(Id::ConflictingCountryCode), says(false));
  facts.regulatory = facts::Regulatory{"FR"};
  EXPECT_THAT(ask(Id::ConflictingCountryCode), says(true));
}

TEST_F(NetworkChecks, CannotSayThatCountriesAgreeWithoutTheKernels) {
  facts.regulatory = Error{Reason::failed, ""};
  own().country = "DE";
  EXPECT_THAT(ask(Id::ConflictingCountryCode), isUnknownFor(Reason::failed));
  add(accessPoint("02:00:00:00:00:01", "Cafe", -50, 36)).country = "US";
  EXPECT_THAT(ask(Id::ConflictingCountryCode), says(true));
}

TEST_F(NetworkChecks, TakeAWorldDomainOfTheKernelForNone) {
  own().country = "DE";
  for (const char* unset : {"00", "99", "XX", "", "d", "de"}) {
    facts.regulatory = facts::Regulatory{unset};
    EXPECT_THAT(ask(Id::ConflictingCountryCode), says(false)) << unset;
    EXPECT_THAT(ask(Id::ConflictingCountryCode), tells("AdoptedCountryCode", isText("DE")));
  }
}

TEST_F(NetworkChecks, DoNotTellOfCountriesWhereTheNetworkAskedAboutWasNotHeard) {
  askAbout("Elsewhere");
  EXPECT_THAT(ask(Id::ConflictingCountryCode), isUnknownFor(Reason::notInRange));
}

TEST_F(NetworkChecks, SeeAConflictWhereTheKernelFollowsSeveralCountriesRules) {
  own().country = "DE";
  facts.regulatory = facts::Regulatory{"98"};
  EXPECT_THAT(ask(Id::ConflictingCountryCode), says(true));
  EXPECT_THAT(ask(Id::ConflictingCountryCode), tells("AdoptedCountryCode", isText("DE")));
}

TEST_F(NetworkChecks, TakeCodesThatAreNoCountrysForNone) {
  facts.regulatory = facts::Regulatory{"DE"};
  auto& other = add(accessPoint("02:00:00:00:00:01", "Cafe", -50, 36));
  for (const char* code : {"EU", "AA", "QM", "QZ", "XA", "XK", "XZ", "ZZ"}) {
    other.country = code;
    EXPECT_THAT(ask(Id::ConflictingCountryCode), says(false)) << code;
  }
  for (const char* code : {"AD", "QA", "ZA", "AT"}) {
    other.country = code;
    EXPECT_THAT(ask(Id::ConflictingCountryCode), says(true)) << code;
  }
}

// A user who may not scan: of the air the answer is missing, of the joined access point it is
// there.
TEST_F(NetworkChecks, WithoutANewScanKnowTheJoinedAccessPointAlone) {
  add(accessPoint("02:00:00:00:00:01", "Cafe", -50, 36)).hidesName = true;
  facts.regulatory = facts::Regulatory{"DE"};
  facts.savedNetworks = std::vector<facts::SavedNetwork>();
  facts.scan->incomplete = Error{Reason::notPermitted, "no"};
  for (const Id id : {Id::ConflictingCountryCode, Id::HiddenScanResults, Id::NoScanResults,
                      Id::AmbiguousNetworkName, Id::ConflictingPHYMode11AC,
                      Id::ConflictingPHYMode11N, Id::ConflictingSecurityTypeInPNL}) {
    EXPECT_THAT(ask(id), isUnknownFor(Reason::notPermitted)) << nameOf(id);
  }
  for (const Id id : {Id::NoSecurity, Id::LegacyRates11b, Id::HiddenNetwork, Id::Passpoint,
                      Id::HT402GHzChannel, Id::LongDTIMInterval}) {
    EXPECT_THAT(ask(id), says(false)) << nameOf(id);
  }
  askAbout("Cafe");
  EXPECT_THAT(ask(Id::NoSecurity), isUnknownFor(Reason::notPermitted));
  askAbout("Bar");
  EXPECT_THAT(ask(Id::NoSecurity), isUnknownFor(Reason::notPermitted));
}

TEST_F(NetworkChecks, OfAManagersListKnowWhatTheManagerTells) {
  facts.regulatory = facts::Regulatory{"DE"};
  facts::AccessPoint listed;
  listed.bssid = "02:00:00:00:00:01";
  listed.ssid = "Cafe";
  listed.security = ieee80211::Security::none;
  listed.isSecondHand = true;
  add(listed);
  EXPECT_THAT(ask(Id::ConflictingCountryCode), isUnknownFor(Reason::notTold));
  EXPECT_THAT(ask(Id::HiddenScanResults), says(false));
  askAbout("Cafe");
  EXPECT_THAT(ask(Id::NoSecurity), says(true));
  EXPECT_THAT(ask(Id::Passpoint), isUnknownFor(Reason::notTold));
  EXPECT_THAT(ask(Id::LegacyRates11b), isUnknownFor(Reason::notTold));
}

TEST_F(NetworkChecks, AdoptTheKernelsCountryThenTheNetworksThenTheMostCommon) {
  facts.regulatory = facts::Regulatory{"00"};
  EXPECT_THAT(ask(Id::ConflictingCountryCode), tells("AdoptedCountryCode", IsNull()));
  for (const char* number : {"01", "02"}) {
    add(accessPoint("02:00:00:00:00:"s + number, "Cafe", -50, 36)).country = "US";
  }
  add(accessPoint("02:00:00:00:00:03", "Bar", -50, 36)).country = "AT";
  EXPECT_THAT(ask(Id::ConflictingCountryCode), tells("AdoptedCountryCode", isText("US")));
  own().country = "DE";
  EXPECT_THAT(ask(Id::ConflictingCountryCode), tells("AdoptedCountryCode", isText("DE")));
  facts.regulatory = facts::Regulatory{"FR"};
  EXPECT_THAT(ask(Id::ConflictingCountryCode), tells("AdoptedCountryCode", isText("FR")));
}

TEST_F(NetworkChecks, FindNetworksWhoseBeaconsHideTheirName) {
  EXPECT_THAT(ask(Id::HiddenScanResults), says(false));
  own().hidesName = true;
  EXPECT_THAT(ask(Id::HiddenScanResults), says(true));
  own().hidesName.reset();
  EXPECT_THAT(ask(Id::HiddenScanResults), says(false));
  auto& hidden = add(accessPoint("02:00:00:00:00:01", "", -50, 36));
  hidden.hidesName = true;
  hidden.ssid.reset();
  const auto answer = ask(Id::HiddenScanResults);
  EXPECT_THAT(answer, says(true));
  const auto found = as<Array>(answer->info->objectForKey("ScanResults"));
  ASSERT_EQ(found->elements().size(), 1U);
  EXPECT_EQ(as<VqWiFiScanResult>(found->elements()[0])->bssid()->string(), "02:00:00:00:00:01");
}

TEST_F(NetworkChecks, ListTheScanStrongestFirst) {
  add(accessPoint("02:00:00:00:00:03", "Unknown strength", 0, 36)).signal.reset();
  add(accessPoint("02:00:00:00:00:02", "Strong", -30, 36)).ssid.reset();
  add(accessPoint("02:00:00:00:00:01", "As strong", -30, 36));
  const auto answer = ask(Id::NoScanResults);
  EXPECT_THAT(answer, says(false));
  const auto found = as<Array>(answer->info->objectForKey("ScanResults"));
  std::vector<std::pair<std::string, std::int64_t>> order;
  for (const auto& element : found->elements()) {
    const auto result = as<VqWiFiScanResult>(element);
    order.emplace_back(result->ssidString() ? result->ssidString()->string() : "nil",
                       result->rssi());
  }
  EXPECT_THAT(order,
              testing::ElementsAre(std::pair("As strong", -30), std::pair("nil", -30),
                                   std::pair(kName, -61), std::pair("Unknown strength", -100)));
}

// What the last scan heard is gone: its list must not stay.
TEST_F(NetworkChecks, PassAnEmptyListWhenNothingWasHeard) {
  facts.scan->accessPoints.clear();
  const auto answer = ask(Id::NoScanResults);
  EXPECT_THAT(answer, says(true));
  const auto& result = *answer;
  EXPECT_TRUE(result.didPass);
  const auto list = as<Array>(result.info->objectForKey("ScanResults"));
  ASSERT_NE(list, nullptr);
  EXPECT_TRUE(list->elements().empty());
  EXPECT_THAT(ask(Id::HiddenScanResults), says(false));
  facts.scan = Error{Reason::radioOff, ""};
  EXPECT_THAT(ask(Id::NoScanResults), isUnknownFor(Reason::radioOff));
}

TEST_F(NetworkChecks, SayWhetherTheNetworkHidesItsNameOrIsAPasspoint) {
  EXPECT_THAT(ask(Id::HiddenNetwork), says(false));
  EXPECT_THAT(ask(Id::Passpoint), says(false));
  own().hidesName = true;
  own().isPasspoint = true;
  EXPECT_THAT(ask(Id::HiddenNetwork), says(true));
  EXPECT_THAT(ask(Id::Passpoint), says(true));
  own().hidesName.reset();
  EXPECT_THAT(ask(Id::HiddenNetwork), isUnknownFor(Reason::notTold));
}

TEST_F(NetworkChecks, FindCommonNames) {
  EXPECT_THAT(ask(Id::AmbiguousNetworkName), says(false));
  EXPECT_THAT(ask(Id::AmbiguousNetworkName), tells("NetworkName", isText(kName)));
  facts.scan->accessPoints.clear();
  for (const char* name : {"Linksys", "NETGEAR-5G", "WLAN"}) {
    facts.link->ssid = name;
    EXPECT_THAT(ask(Id::AmbiguousNetworkName), says(true)) << name;
  }
}

TEST_F(NetworkChecks, FindANameWithSeveralKindsOfKeys) {
  auto& other = add(accessPoint("02:00:00:00:00:01", kName, -50, 36));
  for (const ieee80211::Security agreeing :
       {ieee80211::Security::wpaPersonal, ieee80211::Security::wpa3Personal}) {
    other.security = agreeing;
    EXPECT_THAT(ask(Id::AmbiguousNetworkName), says(false)) << facts::textOf(agreeing);
  }
  other.security = ieee80211::Security::unknown;
  EXPECT_THAT(ask(Id::AmbiguousNetworkName), isUnknownFor(Reason::notTold));
  for (const ieee80211::Security differing :
       {ieee80211::Security::none, ieee80211::Security::wep, ieee80211::Security::wpa2Enterprise}) {
    other.security = differing;
    EXPECT_THAT(ask(Id::AmbiguousNetworkName), says(true)) << facts::textOf(differing);
  }
}

TEST_F(NetworkChecks, CannotCallANameItsOwnWithoutAScan) {
  facts.scan = Error{Reason::notPermitted, ""};
  EXPECT_THAT(ask(Id::AmbiguousNetworkName), isUnknownFor(Reason::notPermitted));
  facts.link->ssid = "default";
  EXPECT_THAT(ask(Id::AmbiguousNetworkName), says(true));
}

TEST_F(NetworkChecks, TakeAnyHintForAJoinedHotspot) {
  EXPECT_THAT(ask(Id::NimoPersonalHotspot), isUnknownFor(Reason::notTold));
  facts.activeProfile = facts::ActiveProfile{};
  facts.addresses = facts::Addresses{};
  EXPECT_THAT(ask(Id::NimoPersonalHotspot), isUnknownFor(Reason::notTold));
  facts.addresses->ipv4 = {"192.168.1.7"};
  EXPECT_THAT(ask(Id::NimoPersonalHotspot), isUnknownFor(Reason::notTold));
  facts.addresses->ipv4 = {"192.168.43.7"};
  EXPECT_THAT(ask(Id::NimoPersonalHotspot), says(true));
  facts.addresses->ipv4 = {"192.168.1.7"};
  facts.activeProfile->metered = true;
  EXPECT_THAT(ask(Id::NimoPersonalHotspot), says(true));
  facts.activeProfile->metered = false;
  own().accessNetworkType = 4;
  EXPECT_THAT(ask(Id::NimoPersonalHotspot), says(true));
  own().accessNetworkType = 0;
  EXPECT_THAT(ask(Id::NimoPersonalHotspot), says(false));
}

TEST_F(NetworkChecks, TellAForeignHotspotByItsElementOrFromMemory) {
  auto& phone = add(accessPoint("02:00:00:00:00:01", "Phone", -50, 36));
  askAbout("Phone");
  facts.activeProfile = facts::ActiveProfile{};
  facts.activeProfile->metered = true;
  EXPECT_THAT(ask(Id::NimoPersonalHotspot), isUnknownFor(Reason::outsideNetwork));
  phone.accessNetworkType = 2;
  EXPECT_THAT(ask(Id::NimoPersonalHotspot), says(false));
  facts.savedNetworks = std::vector<facts::SavedNetwork>(1);
  facts.savedNetworks->front().ssid = "Phone";
  facts.savedNetworks->front().metered = true;
  EXPECT_THAT(ask(Id::NimoPersonalHotspot), says(true));
  facts.savedNetworks = Error{};
  phone.accessNetworkType = 4;
  EXPECT_THAT(ask(Id::NimoPersonalHotspot), says(true));
}

TEST_F(NetworkChecks, KnowNoBaseStationUntilSomeAreSet) {
  own().maker = "Brellin";
  EXPECT_THAT(ask(Id::BrellinBaseStation), isUnknownFor(Reason::notTold));
  EXPECT_NE(ask(Id::BrellinBaseStation).error().message.find("baseStationMakers"),
            std::string::npos);
  settings.baseStationMakers = {"brellin"};
  EXPECT_THAT(ask(Id::BrellinBaseStation), says(true));
}

TEST_F(NetworkChecks, KnowABaseStationByMakerOrAddress) {
  settings.baseStationMakers = {"brellin"};
  EXPECT_THAT(ask(Id::BrellinBaseStation), isUnknownFor(Reason::notTold));
  own().maker = "Somebody";
  EXPECT_THAT(ask(Id::BrellinBaseStation), says(false));
  own().maker = "The BRELLIN Co.\0\0"s;
  EXPECT_THAT(ask(Id::BrellinBaseStation), says(true));
  EXPECT_THAT(ask(Id::BrellinBaseStation), tells("BrellinModelName", IsNull()));
  own().model = "Dome \xFF\0"s;
  EXPECT_THAT(ask(Id::BrellinBaseStation), tells("BrellinModelName", isText("Dome \xFF")));
  settings.baseStationMakers.clear();
  settings.baseStationAddressBlocks = {"02:10:2"};
  EXPECT_THAT(ask(Id::BrellinBaseStation), says(true));
  facts.scan->accessPoints.clear();
  EXPECT_THAT(ask(Id::BrellinBaseStation), says(true));
  settings.baseStationAddressBlocks = {"02:11", ""};
  EXPECT_THAT(ask(Id::BrellinBaseStation), says(false));
}

}  // namespace
}  // namespace wifi_profile::checks
