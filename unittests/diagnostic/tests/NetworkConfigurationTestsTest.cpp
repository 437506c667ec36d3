// The tests of a network's configuration, where they go beyond copying a value or share keys.

#include "support/DiagnosticFixture.h"
#include "support/Matchers.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class NetworkConfigurationTests : public DiagnosticFixture {
 protected:
  const MutableDictionaryRef findings = std::make_shared<Dictionary>();

  void SetUp() override { setUpController(makeInputs(nullptr)); }

  void run(DiagnosticsTestID test, const DiagnosticsTestResult& result) {
    service->willAnswer(test, answerOf(result));
    controller->runCurrentNetworkTest(test, nullptr, findings);
  }
  void runPassed(DiagnosticsTestID test, Dictionary::Entries info) {
    run(test, {.result = true, .didPass = true, .info = makeDictionary(std::move(info))});
  }
};

TEST_F(NetworkConfigurationTests, KeepTheBaseStationsModelToThemselvesUnlessPassed) {
  run(DiagnosticsTestID::BrellinBaseStation,
      {.result = true,
       .didPass = false,
       .info = makeDictionary({{"BrellinModelName", makeText("B7")}})});
  EXPECT_THAT(keysOf(findings), ElementsAre("isHostedByBrellinBaseStation"));
  EXPECT_THAT(log->errors(), IsEmpty());
}

TEST_F(NetworkConfigurationTests, MissTheInformationOfAPassedBaseStationAloud) {
  run(DiagnosticsTestID::BrellinBaseStation, {.result = true, .didPass = true, .info = nullptr});
  EXPECT_THAT(keysOf(findings), ElementsAre("isHostedByBrellinBaseStation"));
  EXPECT_THAT(log->errors(), ElementsAre("[ERROR] - Wi-Fi Profile: Info not found."));
}

TEST_F(NetworkConfigurationTests, KeepTheCapitalsOfTheDTIMIntervalAndOfNoOtherKey) {
  runPassed(DiagnosticsTestID::LongDTIMInterval, {{"DTIMInterval", Number::withInteger(3)}});
  runPassed(DiagnosticsTestID::LongBeaconInterval, {{"BeaconInterval", Number::withInteger(100)}});
  EXPECT_THAT(keysOf(findings), ElementsAre("DTIMInterval", "beaconInterval",
                                            "isBeaconIntervalLong", "isDTIMIntervalLong"));
}

TEST_F(NetworkConfigurationTests, StoreTheNetworksNameUnderTheKeyOfTheParameter) {
  const ObjectRef name = makeText("Home");
  runPassed(DiagnosticsTestID::AmbiguousNetworkName, {{"NetworkName", name}});
  EXPECT_THAT(findings->objectForKey("networkName"), isTheVery(name));
}

TEST_F(NetworkConfigurationTests, LeaveTheSecurityThatTheLastOfThreeTestsFound) {
  runPassed(DiagnosticsTestID::NoSecurity, {{"Security", makeText("first")}});
  runPassed(DiagnosticsTestID::LegacySecurityWEP, {{"Security", makeText("second")}});
  runPassed(DiagnosticsTestID::LegacySecurityWPA, {{"Security", makeText("third")}});
  EXPECT_THAT(findings->objectForKey("security"), isText("third"));
}

TEST_F(NetworkConfigurationTests, LeaveTheSecurityThatTheFirstTestFoundWhenTheOthersFindNone) {
  runPassed(DiagnosticsTestID::NoSecurity, {{"Security", makeText("first")}});
  runPassed(DiagnosticsTestID::LegacySecurityWEP, {});
  runPassed(DiagnosticsTestID::LegacySecurityWPA, {});
  EXPECT_THAT(findings->objectForKey("security"), isText("first"));
  EXPECT_THAT(log->errors(), ElementsAre("[ERROR] - Wi-Fi Profile: Security not found.",
                                         "[ERROR] - Wi-Fi Profile: Security not found."));
}

TEST_F(NetworkConfigurationTests, LeaveThePHYModesThatTheSecondOfTwoTestsFound) {
  const ObjectRef second = std::make_shared<const Array>(std::vector<ObjectRef>{makeText("11n")});
  runPassed(DiagnosticsTestID::ConflictingPHYMode11AC, {{"SupportedPHYModes", makeText("11ac")}});
  runPassed(DiagnosticsTestID::ConflictingPHYMode11N, {{"SupportedPHYModes", second}});
  EXPECT_THAT(findings->objectForKey("supportedPHYModes"), isTheVery(second));
}

class CaptivePortal : public NetworkConfigurationTests {
 protected:
  std::shared_ptr<PreferredNetworkRecord> record = std::make_shared<PreferredNetworkRecord>();

  void SetUp() override {
    NetworkConfigurationTests::SetUp();
    record->ssidString = makeText("Hotel");
    record->security = 2;
    record->lastJoinedTimestamp = Date{86400};
  }

  DictionaryRef summary() {
    runPassed(DiagnosticsTestID::CaptivePortal, {{"PreferredNetwork", record}});
    auto made = as<Dictionary>(findings->objectForKey("preferredNetwork"));
    EXPECT_TRUE(made);
    return made ? made : makeDictionary({});
  }
};

TEST_F(CaptivePortal, SummarisesTheProfileInEightEntriesOfTheirOwnKinds) {
  const DictionaryRef made = summary();
  EXPECT_THAT(keysOf(made), ElementsAre("SSID", "isCaptive", "isEnabled", "isHidden", "isMultiAP",
                                        "isPasspoint", "lastJoined", "security"));
  EXPECT_THAT(made->objectForKey("SSID"), isTheVery(record->ssidString));
  EXPECT_THAT(made->objectForKey("security"), isInteger(2));
  EXPECT_THAT(made->objectForKey("lastJoined"), isText("2001-01-02T00:00:00Z"));
}

TEST_F(CaptivePortal, KeepsEachMarkOfTheProfileApart) {
  const std::vector<std::pair<std::string, bool PreferredNetworkRecord::*>> marks{
      {"isPasspoint", &PreferredNetworkRecord::isPasspoint},
      {"isEnabled", &PreferredNetworkRecord::isEnabled},
      {"isCaptive", &PreferredNetworkRecord::isCaptive},
      {"isHidden", &PreferredNetworkRecord::isHidden},
      {"isMultiAP", &PreferredNetworkRecord::isMultiAP}};
  for (const auto& [set, mark] : marks) {
    record.get()->*mark = true;
    const DictionaryRef made = summary();
    for (const auto& [key, other] : marks) {
      EXPECT_THAT(made->objectForKey(key), isBoolean(key == set)) << key << " with " << set;
    }
    record.get()->*mark = false;
  }
}

TEST_F(CaptivePortal, HoldsTheVerdictAboveAndTheProfilesOwnMarkInTheSummary) {
  record->isCaptive = false;
  EXPECT_THAT(summary()->objectForKey("isCaptive"), isBoolean(false));
  EXPECT_THAT(findings->objectForKey("isCaptive"), isBoolean(true));
}

TEST_F(CaptivePortal, SummarisesANamelessProfileWithNullForTheName) {
  record->ssidString = nullptr;
  const DictionaryRef made = summary();
  EXPECT_THAT(made->objectForKey("SSID"), isNull());
  EXPECT_EQ(made->entries().size(), 8U);
}

TEST_F(CaptivePortal, SummarisesAProfileNeverJoinedWithNullForTheDate) {
  record->lastJoinedTimestamp = std::nullopt;
  const DictionaryRef made = summary();
  EXPECT_THAT(made->objectForKey("lastJoined"), isNull());
  EXPECT_EQ(made->entries().size(), 8U);
}

TEST_F(CaptivePortal, SummarisesADateThatNoCalendarHoldsAsNull) {
  record->lastJoinedTimestamp = Date{1e18};
  const DictionaryRef made = summary();
  EXPECT_THAT(made->objectForKey("lastJoined"), isNull());
  EXPECT_EQ(made->entries().size(), 8U);
}

TEST_F(CaptivePortal, MissesTheProfileByANameOfItsOwn) {
  runPassed(DiagnosticsTestID::CaptivePortal, {{"Other", makeText("x")}});
  EXPECT_THAT(keysOf(findings), ElementsAre("isCaptive"));
  EXPECT_THAT(log->errors(),
              ElementsAre("[ERROR] - Wi-Fi Profile: currentPreferredNetwork not found."));
}

TEST_F(CaptivePortal, ReplacesAnEarlierSummary) {
  const DictionaryRef first = summary();
  record = std::make_shared<PreferredNetworkRecord>();
  record->security = 9;
  const DictionaryRef second = summary();
  EXPECT_NE(first, second);
  EXPECT_THAT(second->objectForKey("security"), isInteger(9));
  EXPECT_THAT(first->objectForKey("security"), isInteger(2));
}

}  // namespace
}  // namespace wifi_profile
