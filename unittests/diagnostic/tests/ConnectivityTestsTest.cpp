// The tests of connectivity and the radio, where they go beyond copying a value.

#include <limits>

#include "support/DiagnosticFixture.h"
#include "support/Matchers.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

class ConnectivityTests : public DiagnosticFixture {
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

class Pings : public ConnectivityTests {
 protected:
  std::shared_ptr<PingResultRecord> record = std::make_shared<PingResultRecord>();

  void SetUp() override {
    ConnectivityTests::SetUp();
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

TEST_F(Pings, OfTheWideAreaGoUnderAKeyOfTheirOwn) {
  runPassed(DiagnosticsTestID::PingWAN, {{"PingResult", record}});
  EXPECT_THAT(keysOf(findings), ElementsAre("pingWANResult", "pingedWAN"));
  const auto made = as<Dictionary>(findings->objectForKey("pingWANResult"));
  ASSERT_TRUE(made);
  EXPECT_THAT(made->objectForKey("max"), isDouble(9.25));
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

TEST_F(Pings, ThatDidNotPassStoreTheirVerdictAlone) {
  run(DiagnosticsTestID::PingLAN,
      {.result = true, .didPass = false, .info = makeDictionary({{"PingResult", record}})});
  EXPECT_THAT(keysOf(findings), ElementsAre("pingedLAN"));
  EXPECT_THAT(findings->objectForKey("pingedLAN"), isBoolean(true));
  EXPECT_THAT(log->errors(), IsEmpty());
}

class Channels : public ConnectivityTests {
 protected:
  static ObjectRef channel(std::int64_t number) {
    return std::make_shared<const ChannelRecord>(number);
  }
};

TEST_F(Channels, AreStoredAsSignedNumbersAndTheCurrentOneInLowerCase) {
  runPassed(DiagnosticsTestID::CongestedChannel, {{"CurrentChannel", channel(11)},
                                                  {"2GHzChannel", channel(1)},
                                                  {"5GHzChannel", channel(36)},
                                                  {"5GHz40MHzChannel", channel(149)},
                                                  {"5GHzNonDFSChannel", channel(-1)}});
  EXPECT_THAT(keysOf(findings),
              ElementsAre("2GHzChannel", "5GHz40MHzChannel", "5GHzChannel", "5GHzNonDFSChannel",
                          "currentChannel", "isChannelCongested"));
  EXPECT_THAT(findings->objectForKey("currentChannel"), isInteger(11));
  EXPECT_THAT(findings->objectForKey("2GHzChannel"), isInteger(1));
  EXPECT_THAT(findings->objectForKey("5GHzChannel"), isInteger(36));
  EXPECT_THAT(findings->objectForKey("5GHz40MHzChannel"), isInteger(149));
  EXPECT_THAT(findings->objectForKey("5GHzNonDFSChannel"), isInteger(-1));
}

TEST_F(Channels, OfTheBandTestsLeaveTheCurrentOneAlone) {
  for (const auto test : {DiagnosticsTestID::Congested2GHz, DiagnosticsTestID::Congested5GHz}) {
    runPassed(test, {{"CurrentChannel", channel(11)}});
  }
  EXPECT_THAT(keysOf(findings), ElementsAre("is2GHzCongested", "is5GHzCongested"));
}

TEST_F(Channels, ThatAreAllMissingAreMissedInSilence) {
  runPassed(DiagnosticsTestID::CongestedChannel, {});
  EXPECT_THAT(keysOf(findings), ElementsAre("isChannelCongested"));
  EXPECT_THAT(log->errors(), IsEmpty());
}

TEST_F(Channels, WithoutInformationAtAllAreMissedAloud) {
  run(DiagnosticsTestID::Congested5GHz, {.result = true, .didPass = true, .info = nullptr});
  EXPECT_THAT(keysOf(findings), ElementsAre("is5GHzCongested"));
  EXPECT_THAT(log->errors(), ElementsAre("[ERROR] - Wi-Fi Profile: Info not found."));
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

TEST_F(ConnectivityTests, CopyTheCountryCodeUnchanged) {
  const ObjectRef code = makeText("DE");
  runPassed(DiagnosticsTestID::ConflictingCountryCode, {{"AdoptedCountryCode", code}});
  EXPECT_THAT(findings->objectForKey("adoptedCountryCode"), isTheVery(code));
}

TEST_F(ConnectivityTests, KeepTheOddLetterCasesOfSignalAndNoise) {
  const ObjectRef signal = Number::withInteger(-61);
  const ObjectRef noise = Number::withInteger(-92);
  runPassed(DiagnosticsTestID::PoorSignal, {{"RSSI", signal}, {"Noise", noise}});
  EXPECT_THAT(keysOf(findings), ElementsAre("RSSI", "hasPoorSignal", "noise"));
  EXPECT_THAT(findings->objectForKey("RSSI"), isTheVery(signal));
  EXPECT_THAT(findings->objectForKey("noise"), isTheVery(noise));
}

TEST_F(ConnectivityTests, StoreTheNoiseWithoutASignalStrength) {
  runPassed(DiagnosticsTestID::PoorSignal, {{"Noise", Number::withInteger(-92)}});
  EXPECT_THAT(findings->objectForKey("noise"), isInteger(-92));
  EXPECT_THAT(log->errors(), ElementsAre("[ERROR] - Wi-Fi Profile: RSSI not found."));
}

TEST_F(ConnectivityTests, WriteTheSameKeysForTheSelectedNetwork) {
  service->otherwise = [](DiagnosticsTestID) {
    return answerOf(
        {.result = true,
         .didPass = true,
         .info = makeDictionary({{"5GHzChannel", std::make_shared<const ChannelRecord>(36)},
                                 {"AdoptedCountryCode", makeText("NO")},
                                 {"RSSI", Number::withInteger(-50)},
                                 {"Noise", Number::withInteger(-90)}})});
  };
  controller->runSelectedNetworkCongestedChannel();
  controller->runSelectedNetworkConflictingCountryCode();
  controller->runSelectedNetworkPoorSignal();
  EXPECT_THAT(
      keysOf(controller->selectedNetworkData()),
      ElementsAre("5GHzChannel", "RSSI", "adoptedCountryCode", "foundConflictingCountryCode",
                  "hasPoorSignal", "isChannelCongested", "noise"));
  EXPECT_THAT(keysOf(controller->currentNetworkData()), IsEmpty());
}

}  // namespace
}  // namespace wifi_profile
