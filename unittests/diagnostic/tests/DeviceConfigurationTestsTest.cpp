// The tests of the device: their gates, their three forms of a name, and where they read and write.

#include "support/DiagnosticFixture.h"
#include "support/Matchers.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class DeviceConfigurationTests : public DiagnosticFixture {
 protected:
  void SetUp() override { setUpController(makeInputs(nullptr)); }

  void willAnswer(DiagnosticsTestID test, bool passed, const DictionaryRef& info) {
    service->willAnswer(test, answerOf({.result = true, .didPass = passed, .info = info}));
  }
  ObjectRef finding(std::string_view key) { return controller->deviceData()->objectForKey(key); }
};

TEST_F(DeviceConfigurationTests, KeepTheIPv4MethodToThemselvesWhenPassed) {
  willAnswer(DiagnosticsTestID::CustomIPv4, true,
             makeDictionary({{"IPv4ConfigMethod", makeText("Manual")}}));
  controller->runDeviceConfigurationCustomIPv4();
  EXPECT_THAT(keysOf(controller->deviceData()), ElementsAre("isUsingCustomIPv4"));
  EXPECT_THAT(log->errors(), IsEmpty());
}

TEST_F(DeviceConfigurationTests, CopyTheIPv4MethodWhenNotPassed) {
  const ObjectRef method = makeText("Manual");
  willAnswer(DiagnosticsTestID::CustomIPv4, false, makeDictionary({{"IPv4ConfigMethod", method}}));
  controller->runDeviceConfigurationCustomIPv4();
  EXPECT_THAT(finding("IPv4ConfigMethod"), isTheVery(method));
}

TEST_F(DeviceConfigurationTests, MissTheInformationOfIPv6AloudWhenNotPassed) {
  willAnswer(DiagnosticsTestID::CustomIPv6, false, nullptr);
  controller->runDeviceConfigurationCustomIPv6();
  EXPECT_THAT(keysOf(controller->deviceData()), ElementsAre("isUsingCustomIPv6"));
  EXPECT_THAT(log->errors(), ElementsAre("[ERROR] - Wi-Fi Profile: Info not found."));
}

TEST_F(DeviceConfigurationTests, CountConnectedBluetoothDevicesAlsoWhenPassed) {
  willAnswer(DiagnosticsTestID::BluetoothConnected, true,
             makeDictionary({{"BTConnectedCount", Number::withInteger(4)}}));
  controller->runDeviceConfigurationBluetoothConnected();
  EXPECT_THAT(finding("isLargeConnectedBT"), isBoolean(true));
  EXPECT_THAT(finding("bluetoothConnectedCount"), isInteger(4));
}

TEST_F(DeviceConfigurationTests, NumberPairedBeforeConnectedBluetoothDevices) {
  controller->runDeviceConfigurationBluetoothConnected();
  controller->runDeviceConfigurationBluetoothPaired();
  EXPECT_EQ(service->requestedNumbers(), (std::vector<int>{19, 18}));
}

TEST_F(DeviceConfigurationTests, MissACountByItsOutputKeyWithACapital) {
  controller->runDeviceConfigurationLargePNL();
  controller->runDeviceConfigurationBluetoothPaired();
  controller->runDeviceConfigurationBluetoothConnected();
  EXPECT_THAT(keysOf(controller->deviceData()),
              ElementsAre("isLargeConnectedBT", "isLargePNL", "isLargePairedBT"));
  EXPECT_THAT(log->errors(),
              ElementsAre("[ERROR] - Wi-Fi Profile: PreferredNetworkListCount not found.",
                          "[ERROR] - Wi-Fi Profile: BluetoothPairedCount not found.",
                          "[ERROR] - Wi-Fi Profile: BluetoothConnectedCount not found."));
}

TEST_F(DeviceConfigurationTests, AreSentWithoutAConfigurationWhenThereIsNone) {
  controller->configuration.set(nullptr);
  controller->runDeviceConfigurationLargePNL();
  ASSERT_EQ(service->requests().size(), 1U);
  EXPECT_EQ(service->requests().front().configuration, nullptr);
}

TEST_F(DeviceConfigurationTests, NameBluetoothCoexistenceByItsLabelInTheFailureLine) {
  service->willAnswer(DiagnosticsTestID::BTCoex, {std::nullopt, makeError(-1, "no answer")});
  controller->runDeviceConfigurationBTCoex();
  EXPECT_THAT(log->errors(),
              ElementsAre("[ERROR] - Wi-Fi Profile: Bluetooth Coex failed with error: no answer"));
  EXPECT_THAT(finding("isHYBRIDBTCoexistenceMode"), isNil());
}

TEST_F(DeviceConfigurationTests, ReadTheConfigurationAfreshEachTime) {
  const DictionaryRef first = makeDictionary({});
  const DictionaryRef second = makeDictionary({});
  controller->configuration.set(first);
  controller->runDeviceConfigurationCustomDNS();
  controller->configuration.set(second);
  controller->runDeviceConfigurationCustomDNS();
  ASSERT_EQ(service->requests().size(), 2U);
  EXPECT_EQ(service->requests()[0].configuration, first);
  EXPECT_EQ(service->requests()[1].configuration, second);
}

TEST_F(DeviceConfigurationTests, WriteIntoTheFindingsThatThereAreWhenTheAnswerHasCome) {
  const MutableDictionaryRef before = controller->deviceData();
  const auto after = std::make_shared<Dictionary>();
  service->whileRunning = [&](const auto&) { controller->deviceData.set(after); };
  controller->runDeviceConfigurationCustomDNS();
  EXPECT_THAT(keysOf(before), IsEmpty());
  EXPECT_THAT(keysOf(after), ElementsAre("isUsingCustomDNS"));
}

TEST_F(DeviceConfigurationTests, OverwriteTheirKeysWhenRunAgain) {
  willAnswer(DiagnosticsTestID::LargePNL, true,
             makeDictionary({{"PNLCount", Number::withInteger(1)}}));
  willAnswer(DiagnosticsTestID::LargePNL, true,
             makeDictionary({{"PNLCount", Number::withInteger(2)}}));
  controller->runDeviceConfigurationLargePNL();
  controller->runDeviceConfigurationLargePNL();
  EXPECT_THAT(finding("preferredNetworkListCount"), isInteger(2));
}

TEST(LogHandle, ComposesNoLineWhoseLevelIsOff) {
  const auto log = std::make_shared<RecordingLog>();
  const InstalledPlatform platform({.log = log.get()});
  int composed = 0;
  const auto compose = [&composed] { return "line " + std::to_string(++composed); };
  DiagnosticLogHandleForCategory(3).error(compose);
  log->switchOff(LogLevel::error);
  DiagnosticLogHandleForCategory(3).error(compose);
  EXPECT_EQ(composed, 1);
  EXPECT_EQ(log->lines(), (std::vector<RecordingLog::Line>{{3, LogLevel::error, "line 1"}}));
}

}  // namespace
}  // namespace wifi_profile
