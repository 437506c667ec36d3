#include <gtest/gtest.h>

#include "devices/scenario/ScenarioReader.h"
#include "devices/scenario/ScenarioService.h"
#include "diagnostic/platform/Number.h"
#include "diagnostic/platform/Trace.h"
#include "runtime/JsonReader.h"
#include "runtime/JsonWriter.h"
#include "runtime/VirtualTimeRunLoop.h"

namespace wifi_profile::scenario {
namespace {

using namespace std::chrono_literals;

// Notes events as "name field=value ...".
class Events final : public Trace {
 public:
  void event(std::string_view name, const Fields& fields) override {
    std::string line(name);
    for (const auto& [key, value] : fields)
      line += " " + std::string(key) + "=" + runtime::jsonText(value);
    all.push_back(line);
  }
  std::vector<std::string> all;
};

class ScenarioServiceTest : public ::testing::Test {
 protected:
  void answerWith(const std::string& answers) {
    make(R"({"scenario":1,"answers":)" + answers + "}");
  }
  void make(const std::string& text) {
    const auto read = readScenario(*runtime::readJson(text));
    ASSERT_TRUE(read);
    service = std::make_shared<ScenarioService>(*read, loop);
  }
  // The verdict as text, or the error.
  std::string ask(DiagnosticsTestID test, const DictionaryRef& configuration = nullptr) {
    VqErrorRef error;
    const auto results = service->runDiagnosticsTests(
        {VqDiagnosticsTestRequest::requestWithTestID(test, configuration)}, nullptr, nullptr,
        error);
    if (error) return std::to_string(error->code()) + " " + error->description();
    return results && !results->empty() && results->front()->result ? "yes" : "no";
  }
  static DictionaryRef named(const char* name) {
    return makeDictionary({{"NetworkName", makeText(name)}});
  }

  runtime::VirtualTimeRunLoop loop;
  std::shared_ptr<Events> events = std::make_shared<Events>();
  const InstalledPlatform platform{{.trace = events.get()}};
  std::shared_ptr<ScenarioService> service;
};

TEST_F(ScenarioServiceTest, ServesTheFirstAnswerThatMatchesAndIsNotUsedUp) {
  answerWith(R"({"PingLAN":[{"times":2,"result":true},{"times":1,"error":{"code":9}}]})");
  EXPECT_EQ(ask(DiagnosticsTestID::PingLAN), "yes");
  EXPECT_EQ(ask(DiagnosticsTestID::PingLAN), "yes");
  EXPECT_EQ(ask(DiagnosticsTestID::PingLAN), "9 error 9");
  EXPECT_EQ(ask(DiagnosticsTestID::PingLAN), "1 no answer for PingLAN");
}

TEST_F(ScenarioServiceTest, MatchesTheNetworkNameOfTheConfiguration) {
  answerWith(R"({"PoorSignal":[{"when":{"networkName":"Lab"},"result":true},
      {"when":{"networkName":null},"error":{"code":3}},{"error":{"code":4}}]})");
  EXPECT_EQ(ask(DiagnosticsTestID::PoorSignal, named("Lab")), "yes");
  EXPECT_EQ(ask(DiagnosticsTestID::PoorSignal, named("lab")), "4 error 4");
  EXPECT_EQ(ask(DiagnosticsTestID::PoorSignal, makeDictionary({})), "3 error 3");
  EXPECT_EQ(ask(DiagnosticsTestID::PoorSignal), "3 error 3");
}

TEST_F(ScenarioServiceTest, TakesADelaysTime) {
  answerWith(R"({"PingLAN":[{"delay":1.5,"result":true}]})");
  std::string answer;
  loop.postToGlobal([&] { answer = ask(DiagnosticsTestID::PingLAN); });
  loop.runUntilIdle();
  EXPECT_EQ(answer, "yes");
  EXPECT_EQ(loop.now(), 1500ms);
}

TEST_F(ScenarioServiceTest, ACancelFailsWhatWaitsAndNothingLater) {
  answerWith(R"({"PingLAN":[{"delay":60,"result":true}],"PingWAN":[{"result":true}]})");
  std::string waiting;
  std::string later;
  loop.postToGlobal([&] {
    waiting = ask(DiagnosticsTestID::PingLAN);
    later = ask(DiagnosticsTestID::PingWAN);
  });
  loop.postToGlobalAfter(2s, [&] { service->cancelAllRequests(); });
  loop.runUntilIdle();
  EXPECT_EQ(waiting, "2 cancelled");
  EXPECT_EQ(later, "yes");
  EXPECT_EQ(loop.now(), 2s);
}

TEST_F(ScenarioServiceTest, TakesABackgroundRequestUpAfterTheMainQueueWasHandled) {
  answerWith(R"({"PingLAN":[{"result":true}]})");
  loop.postToGlobal([&] {
    loop.postToMain([&] { events->event("main", {}); });
    ask(DiagnosticsTestID::PingLAN);
  });
  loop.runUntilIdle();
  ASSERT_EQ(events->all.size(), 2U);
  EXPECT_EQ(events->all[0], "main");
  EXPECT_EQ(events->all[1], R"(service.request test="PingLAN" id=3 configuration=null)");
}

TEST_F(ScenarioServiceTest, AnswersFromTheWorldWhatNoAnswerIsFor) {
  make(R"({"scenario":1,
      "answers":{"PoorSignal":[{"times":1,"error":{"code":7}},
                               {"when":{"networkName":"Cafe"},"result":false}]},
      "world":{"link":{"interface":"wlan0","ssid":"Home","bssid":"02:00:00:00:00:01","signal":-80},
               "scan":[{"bssid":"02:00:00:00:00:02","ssid":"Lab","signal":-50}]}})");
  EXPECT_EQ(ask(DiagnosticsTestID::PoorSignal), "7 error 7");
  EXPECT_EQ(ask(DiagnosticsTestID::PoorSignal), "yes");
  EXPECT_EQ(ask(DiagnosticsTestID::PoorSignal, named("Lab")), "no");
  EXPECT_EQ(ask(DiagnosticsTestID::PoorSignal, named("Cafe")), "no");
}

TEST_F(ScenarioServiceTest, HasTheReasonsNumberAndSentenceWhereTheWorldCannotTell) {
  make(R"({"scenario":1,"world":{
      "bluetooth":{"unknown":"noHardware","sentence":"There is no adapter."}}})");
  EXPECT_EQ(ask(DiagnosticsTestID::BluetoothPaired), "16 There is no adapter.");
  EXPECT_EQ(ask(DiagnosticsTestID::LargePNL),
            "12 The scenario's world does not say which networks are remembered.");
}

TEST_F(ScenarioServiceTest, AsksTheWorldWithItsSettings) {
  make(R"({"scenario":1,"world":{
      "bluetooth":{"paired":3},"settings":{"bluetoothPairedAbove":2}}})");
  EXPECT_EQ(ask(DiagnosticsTestID::BluetoothPaired), "yes");
}

TEST_F(ScenarioServiceTest, TakesAWorldsDelayUnlessItIsCancelled) {
  make(R"({"scenario":1,
      "answers":{"PingLAN":[{"times":1,"result":true}]},
      "world":{"bluetooth":{"paired":30},"delay":{"BluetoothPaired":1.5,"PingLAN":60}}})");
  std::string paired;
  std::string written;
  std::string waiting;
  loop.postToGlobal([&] {
    paired = ask(DiagnosticsTestID::BluetoothPaired);
    written = ask(DiagnosticsTestID::PingLAN);  // the delay of an answer is its own
    waiting = ask(DiagnosticsTestID::PingLAN);
  });
  loop.postToGlobalAfter(2s, [&] { service->cancelAllRequests(); });
  loop.runUntilIdle();
  EXPECT_EQ(paired, "yes");
  EXPECT_EQ(written, "yes");
  EXPECT_EQ(waiting, "2 cancelled");
  EXPECT_EQ(loop.now(), 2s);
}

TEST_F(ScenarioServiceTest, TheLastStatusRepeats) {
  make(R"({"scenario":1,"status":[{"error":{"code":5}},{"ssid":"Home","bssid":"b"}]})");
  VqErrorRef error;
  service->queryStatusForPeer(nullptr, error);
  EXPECT_EQ(codeOf(error), 5);
  for (int i = 0; i < 2; ++i) {
    error = nullptr;
    const auto status = service->queryStatusForPeer(nullptr, error);
    EXPECT_EQ(codeOf(error), 0);
    EXPECT_EQ(status->wifi->ssidString->string(), "Home");
    EXPECT_EQ(status->wifi->bssid->string(), "b");
  }
  EXPECT_EQ(events->all[0], "service.status error=5 ssid=null bssid=null");
  EXPECT_EQ(events->all[2], R"(service.status error=null ssid="Home" bssid="b")");
}

}  // namespace
}  // namespace wifi_profile::scenario
