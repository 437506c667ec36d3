// The two tests that scan the air.

#include "support/DiagnosticFixture.h"
#include "support/Matchers.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

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

TEST_F(ScanTests, TellThatScanResultsWereFoundAsTheInverseOfTheVerdictAndAsAnInteger) {
  runNoScanResults(true, true, scanInformation());
  EXPECT_THAT(findings->objectForKey("foundScanResults"), isInteger(0));
  runNoScanResults(false, true, scanInformation());
  EXPECT_THAT(findings->objectForKey("foundScanResults"), isInteger(1));
}

TEST_F(ScanTests, MakeTheVeryArrayTheControllersListAndWriteNothingOfIt) {
  runNoScanResults(false, true, scanInformation());
  EXPECT_EQ(controller->wifiScanResults(), scan);
  EXPECT_THAT(keysOf(findings), ElementsAre("foundScanResults"));
  EXPECT_THAT(log->errors(), IsEmpty());
}

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

TEST_F(ScanTests, CountHiddenNetworksInUnsignedNumbersWhenTheTestDidNotPass) {
  runHiddenScanResults(false, scanInformation());
  EXPECT_THAT(findings->objectForKey("hiddenNetworkCount"), isUnsigned(2));
  EXPECT_THAT(findings->objectForKey("foundHiddenNetworks"), isBoolean(true));
  EXPECT_EQ(controller->wifiScanResults(), earlierScan);
}

TEST_F(ScanTests, CountNoHiddenNetworksAsZero) {
  runHiddenScanResults(
      false,
      makeDictionary({{"ScanResults", std::make_shared<const Array>(std::vector<ObjectRef>{})}}));
  EXPECT_THAT(findings->objectForKey("hiddenNetworkCount"), isUnsigned(0));
  EXPECT_THAT(log->errors(), IsEmpty());
}

TEST_F(ScanTests, DoNotCountHiddenNetworksWhenTheTestPassed) {
  runHiddenScanResults(true, scanInformation());
  EXPECT_THAT(keysOf(findings), ElementsAre("foundHiddenNetworks"));
  EXPECT_THAT(log->errors(), IsEmpty());
}

TEST_F(ScanTests, DoNotCountHiddenNetworksThatNobodyListed) {
  runHiddenScanResults(false, makeDictionary({}));
  EXPECT_THAT(keysOf(findings), ElementsAre("foundHiddenNetworks"));
  EXPECT_THAT(log->errors(), ElementsAre("[ERROR] - Wi-Fi Profile: Scan Results not found."));
}

}  // namespace
}  // namespace wifi_profile
