// How values of a result's information become findings.

#include <limits>

#include "support/DiagnosticFixture.h"
#include "support/Matchers.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

class HandlerTest : public DiagnosticFixture {
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

class Pings : public HandlerTest {
 protected:
  std::shared_ptr<PingResultRecord> record = std::make_shared<PingResultRecord>();

  void SetUp() override {
    HandlerTest::SetUp();
    record->interfaceName = makeText("en0");
    record->count = 5;
    record->packetLoss = 0.2;
    record->min = 1.5;
    record->max = 9.25;
    record->avg = 3;
    record->stddev = 0.125;
    record->timestamp = 700'000'000;
  }

  // The dictionary that a ping of the local network makes of `record`.
  DictionaryRef summary() {
    runPassed(DiagnosticsTestID::PingLAN, {{"PingResult", record}});
    auto made = as<Dictionary>(findings->objectForKey("pingLANResult"));
    EXPECT_TRUE(made);
    return made ? made : makeDictionary({});
  }
};

TEST_F(Pings, AreSummarisedInEightEntriesOfTheirOwnKinds) {
  const DictionaryRef made = summary();
  EXPECT_THAT(keysOf(made), ElementsAre("SSID", "avg", "count", "max", "min", "packetLoss",
                                        "stddev", "timestamp"));
  EXPECT_THAT(made->objectForKey("SSID"), isTheVery(record->interfaceName));
  EXPECT_THAT(made->objectForKey("count"), isInteger(5));
  EXPECT_THAT(made->objectForKey("packetLoss"), isDouble(0.2));
  EXPECT_THAT(made->objectForKey("min"), isDouble(1.5));
  EXPECT_THAT(made->objectForKey("max"), isDouble(9.25));
  EXPECT_THAT(made->objectForKey("avg"), isDouble(3.0));
  EXPECT_THAT(made->objectForKey("stddev"), isDouble(0.125));
  EXPECT_THAT(made->objectForKey("timestamp"), isText("2023-03-08T20:26:40Z"));
}

TEST_F(Pings, StoreNaNOfThreeMeasuresAsNullAndOfTheExtremesAsItIs) {
  for (double* measure :
       {&record->packetLoss, &record->min, &record->max, &record->avg, &record->stddev}) {
    *measure = kNotANumber;
  }
  const DictionaryRef made = summary();
  EXPECT_THAT(made->objectForKey("packetLoss"), isNull());
  EXPECT_THAT(made->objectForKey("avg"), isNull());
  EXPECT_THAT(made->objectForKey("stddev"), isNull());
  EXPECT_THAT(made->objectForKey("min"), isNaN());
  EXPECT_THAT(made->objectForKey("max"), isNaN());
  EXPECT_EQ(made->entries().size(), 8U);
}

TEST_F(Pings, KeepInfiniteMeasuresAsNumbers) {
  record->avg = std::numeric_limits<double>::infinity();
  record->packetLoss = -std::numeric_limits<double>::infinity();
  const DictionaryRef made = summary();
  EXPECT_THAT(made->objectForKey("avg"), isDouble(std::numeric_limits<double>::infinity()));
  EXPECT_THAT(made->objectForKey("packetLoss"), isDouble(-std::numeric_limits<double>::infinity()));
}

TEST_F(Pings, WithoutAnInterfaceNameHaveNullForIt) {
  record->interfaceName = nullptr;
  const DictionaryRef made = summary();
  EXPECT_THAT(made->objectForKey("SSID"), isNull());
  EXPECT_EQ(made->entries().size(), 8U);
}

TEST_F(Pings, CountInSignedNumbers) {
  record->count = -1;
  EXPECT_THAT(summary()->objectForKey("count"), isInteger(-1));
}

TEST_F(Pings, TellTheirTimeInSecondsAfterTheReferenceDate) {
  record->timestamp = 0;
  EXPECT_THAT(summary()->objectForKey("timestamp"), isText("2001-01-01T00:00:00Z"));
  record->timestamp = -0.5;
  EXPECT_THAT(summary()->objectForKey("timestamp"), isText("2000-12-31T23:59:59Z"));
}

TEST_F(Pings, StoreNullForATimeThatHasNoText) {
  for (const double time : {kNotANumber, std::numeric_limits<double>::infinity(), 1e300, -1e300}) {
    record->timestamp = time;
    const DictionaryRef made = summary();
    EXPECT_THAT(made->objectForKey("timestamp"), isNull()) << time;
    EXPECT_EQ(made->entries().size(), 8U);
  }
}

class Channels : public HandlerTest {
 protected:
  static ObjectRef channel(std::int64_t number) {
    return std::make_shared<const ChannelRecord>(number);
  }
};

TEST_F(Channels, OfTheBandTestsLeaveTheCurrentOneAlone) {
  for (const auto test : {DiagnosticsTestID::Congested2GHz, DiagnosticsTestID::Congested5GHz}) {
    runPassed(test, {{"CurrentChannel", channel(11)}});
  }
  EXPECT_THAT(keysOf(findings), ElementsAre("is2GHzCongested", "is5GHzCongested"));
}

TEST_F(Channels, KeepTheValueOfTheLastTestThatFoundOne) {
  runPassed(
      DiagnosticsTestID::CongestedChannel,
      {{"2GHzChannel", channel(1)}, {"5GHzChannel", channel(2)}, {"5GHz40MHzChannel", channel(3)}});
  runPassed(DiagnosticsTestID::Congested2GHz,
            {{"2GHzChannel", channel(11)}, {"5GHzChannel", channel(12)}});
  runPassed(DiagnosticsTestID::Congested5GHz, {{"2GHzChannel", channel(21)}});
  EXPECT_THAT(findings->objectForKey("2GHzChannel"), isInteger(21));
  EXPECT_THAT(findings->objectForKey("5GHzChannel"), isInteger(12));
  EXPECT_THAT(findings->objectForKey("5GHz40MHzChannel"), isInteger(3));
}

class SharedKeys : public HandlerTest {};

TEST_F(SharedKeys, LeaveTheSecurityThatTheLastOfThreeTestsFound) {
  runPassed(DiagnosticsTestID::NoSecurity, {{"Security", makeText("first")}});
  runPassed(DiagnosticsTestID::LegacySecurityWEP, {{"Security", makeText("second")}});
  runPassed(DiagnosticsTestID::LegacySecurityWPA, {{"Security", makeText("third")}});
  EXPECT_THAT(findings->objectForKey("security"), isText("third"));
}

TEST_F(SharedKeys, LeaveTheSecurityThatTheFirstTestFoundWhenTheOthersFindNone) {
  runPassed(DiagnosticsTestID::NoSecurity, {{"Security", makeText("first")}});
  runPassed(DiagnosticsTestID::LegacySecurityWEP, {});
  runPassed(DiagnosticsTestID::LegacySecurityWPA, {});
  EXPECT_THAT(findings->objectForKey("security"), isText("first"));
  EXPECT_THAT(log->errors(), ElementsAre("[ERROR] - Wi-Fi Profile: Security not found.",
                                         "[ERROR] - Wi-Fi Profile: Security not found."));
}

TEST_F(SharedKeys, LeaveThePHYModesThatTheSecondOfTwoTestsFound) {
  const ObjectRef second = std::make_shared<const Array>(std::vector<ObjectRef>{makeText("11n")});
  runPassed(DiagnosticsTestID::ConflictingPHYMode11AC, {{"SupportedPHYModes", makeText("11ac")}});
  runPassed(DiagnosticsTestID::ConflictingPHYMode11N, {{"SupportedPHYModes", second}});
  EXPECT_THAT(findings->objectForKey("supportedPHYModes"), isTheVery(second));
}

class CaptivePortal : public HandlerTest {
 protected:
  std::shared_ptr<PreferredNetworkRecord> record = std::make_shared<PreferredNetworkRecord>();

  void SetUp() override {
    HandlerTest::SetUp();
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

TEST_F(CaptivePortal, ReplacesAnEarlierSummary) {
  const DictionaryRef first = summary();
  record = std::make_shared<PreferredNetworkRecord>();
  record->security = 9;
  const DictionaryRef second = summary();
  EXPECT_NE(first, second);
  EXPECT_THAT(second->objectForKey("security"), isInteger(9));
  EXPECT_THAT(first->objectForKey("security"), isInteger(2));
}

class ScanTests : public DiagnosticFixture {
 protected:
  const MutableDictionaryRef findings = std::make_shared<Dictionary>();
  const ArrayRef scan = std::make_shared<const Array>(
      std::vector<ObjectRef>{std::make_shared<const VqWiFiScanResult>(
                                 makeText("Home"), makeText("02:00:00:00:00:01"), -50),
                             std::make_shared<const VqWiFiScanResult>(nullptr, nullptr, -80)});
  const ArrayRef earlierScan = std::make_shared<const Array>(std::vector<ObjectRef>{});

  void SetUp() override {
    setUpController(makeInputs(nullptr));
    controller->wifiScanResults.set(earlierScan);
  }

  void run(DiagnosticsTestID test, bool result, bool passed, const DictionaryRef& info) {
    service->willAnswer(test, answerOf({.result = result, .didPass = passed, .info = info}));
    controller->runCurrentNetworkTest(test, nullptr, findings);
  }
  void runNoScanResults(bool result, bool passed, const DictionaryRef& info) {
    run(DiagnosticsTestID::NoScanResults, result, passed, info);
  }
  void runHiddenScanResults(bool passed, const DictionaryRef& info) {
    run(DiagnosticsTestID::HiddenScanResults, true, passed, info);
  }
  DictionaryRef scanInformation() const { return makeDictionary({{"ScanResults", scan}}); }
};

TEST_F(ScanTests, ClearTheListWhenAPassedScanHasNone) {
  runNoScanResults(false, true, makeDictionary({}));
  EXPECT_EQ(controller->wifiScanResults(), nullptr);
  EXPECT_THAT(log->errors(), ElementsAre("[ERROR] - Wi-Fi Profile: Scan Results not found."));
  EXPECT_THAT(findings->objectForKey("foundScanResults"), isInteger(1));
}

TEST_F(ScanTests, ClearTheListWhenWhatStandsForItIsNoList) {
  runNoScanResults(false, true, makeDictionary({{"ScanResults", nullPlaceholder()}}));
  EXPECT_EQ(controller->wifiScanResults(), nullptr);
  EXPECT_THAT(log->errors(), ElementsAre("[ERROR] - Wi-Fi Profile: Scan Results not found."));
}

TEST_F(ScanTests, KeepTheEarlierListWhenTheScanDidNotPass) {
  runNoScanResults(true, false, scanInformation());
  EXPECT_EQ(controller->wifiScanResults(), earlierScan);
  EXPECT_THAT(findings->objectForKey("foundScanResults"), isInteger(0));
  EXPECT_THAT(log->errors(), IsEmpty());
}

TEST_F(ScanTests, KeepTheEarlierListWithoutInformation) {
  runNoScanResults(false, true, nullptr);
  EXPECT_EQ(controller->wifiScanResults(), earlierScan);
  EXPECT_THAT(log->errors(), ElementsAre("[ERROR] - Wi-Fi Profile: Info not found."));
}

TEST_F(ScanTests, KeepTheEarlierListAfterAnErrorOrWithoutAResult) {
  FakeAnswer answer = answerOf({.result = false, .didPass = true, .info = scanInformation()});
  answer.error = makeError(7, "busy");
  service->willAnswer(DiagnosticsTestID::NoScanResults, answer);
  service->willAnswer(DiagnosticsTestID::NoScanResults, {});
  for (int i = 0; i < 2; ++i) {
    controller->runCurrentNetworkTest(DiagnosticsTestID::NoScanResults, nullptr, findings);
    EXPECT_EQ(controller->wifiScanResults(), earlierScan);
  }
  EXPECT_THAT(log->errors(),
              ElementsAre("[ERROR] - Wi-Fi Profile: No Scan Results failed with error: busy",
                          "[ERROR] - Wi-Fi Profile: Results not found."));
  EXPECT_THAT(keysOf(findings), IsEmpty());
}

TEST_F(ScanTests, ReplaceTheVerdictOfTheScanBefore) {
  runNoScanResults(true, false, nullptr);
  runNoScanResults(false, true, scanInformation());
  EXPECT_THAT(findings->objectForKey("foundScanResults"), isInteger(1));
  EXPECT_EQ(findings->entries().size(), 1U);
}

TEST_F(ScanTests, CountNoHiddenNetworksAsZero) {
  runHiddenScanResults(
      false,
      makeDictionary({{"ScanResults", std::make_shared<const Array>(std::vector<ObjectRef>{})}}));
  EXPECT_THAT(findings->objectForKey("hiddenNetworkCount"), isUnsigned(0));
  EXPECT_THAT(log->errors(), IsEmpty());
}

}  // namespace
}  // namespace wifi_profile
