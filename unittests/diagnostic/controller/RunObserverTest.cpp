// What an observer of a run is told, and in which order.

#include <gmock/gmock.h>

#include "diagnostic/platform/RunObserver.h"
#include "diagnostic/tests/Batches.h"
#include "support/PickerFixture.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;

// Writes every event as a text.
class RunRecorder final : public RunObserver {
 public:
  std::vector<std::string> events;
  std::vector<TestOutcome> outcomes;

  void statusWasQueried(const std::optional<Error>& error) override {
    events.push_back("status" + (error ? ": " + error->message : ""));
  }
  void testStarted(Section section, DiagnosticsTestID test) override {
    events.push_back("start " + nameIn(section, test));
  }
  void testEnded(const TestOutcome& outcome) override {
    events.push_back("end " + nameIn(outcome.section, outcome.test));
    outcomes.push_back(outcome);
  }
  void progressed(std::int32_t done, std::int32_t total) override {
    events.push_back(std::to_string(done) + "/" + std::to_string(total));
  }
  void personDid(PersonAction action) override {
    events.push_back("person " + std::to_string(static_cast<int>(action)));
  }
  void runEnded() override { events.emplace_back("ended"); }

 private:
  static std::string nameIn(Section section, DiagnosticsTestID test) {
    return std::string(keyOf(section)) + "/" + std::string(nameOf(test));
  }
};

class RunObserverTest : public PickerFixture {
 protected:
  // The outcome of the next test, of the current network.
  TestOutcome outcomeOf(DiagnosticsTestID test, FakeAnswer answer) {
    service->willAnswer(test, std::move(answer));
    controller->runCurrentNetworkTest(test, nullptr, controller->currentNetworkData());
    return recorder->outcomes.back();
  }

  const std::shared_ptr<RunRecorder> recorder = std::make_shared<RunRecorder>();

 private:
  const InstalledPlatform platform_{{.observer = recorder.get()}};
};

TEST_F(RunObserverTest, IsToldOfEveryTestAndCountInOrder) {
  run(makeText("Home"), makeText("Cafe"));
  std::vector<std::string> expected{"status", "0/56"};
  int done = 0;
  const auto add = [&](Section section, const auto& batch) {
    for (const DiagnosticsTestID test : batch) {
      const std::string name = std::string(keyOf(section)) + "/" + std::string(nameOf(test));
      expected.insert(expected.end(),
                      {"start " + name, "end " + name, std::to_string(++done) + "/56"});
    }
  };
  add(Section::device, kDeviceConfigurationBatch);
  add(Section::currentNetwork, kCurrentNetworkBatch);
  add(Section::selectedNetwork, kSelectedNetworkBatch);
  expected.emplace_back("ended");
  EXPECT_EQ(recorder->events, expected);
}

TEST_F(RunObserverTest, IsToldOfTheEndBeforeRequestsAreCancelled) {
  service->whileRunning = [this](const FakeService::Request& request) {
    if (request.test != DiagnosticsTestID::CustomIPv6) return;
    controller->teardown();
    EXPECT_EQ(recorder->events.back(), "ended");
  };
  run(nullptr, nullptr);
  const auto& told = recorder->events;
  const auto end = std::find(told.begin(), told.end(), "ended");
  EXPECT_THAT(std::vector(end - 2, end + 2),
              ElementsAre("1/11", "start device/CustomIPv6", "ended", "end device/CustomIPv6"));
}

TEST_F(RunObserverTest, IsToldWhyTheStatusIsNotKnown) {
  service->statusError = makeError(9, "no bus");
  run(nullptr, nullptr);
  EXPECT_EQ(recorder->events.front(), "status: no bus");
}

TEST_F(RunObserverTest, IsToldWhyATestHasNoVerdict) {
  setUpController(makeInputs(nullptr));
  const auto why = [this](FakeAnswer answer) {
    return outcomeOf(DiagnosticsTestID::PoorSignal, std::move(answer)).verdict.error();
  };
  const Error cause{Reason::notJoined, "not joined", "Join a network."};
  EXPECT_EQ(why({std::nullopt, std::make_shared<const VqError>(cause)}), cause);
  EXPECT_EQ(why({std::nullopt, nullptr}).message, "Results not found.");
  EXPECT_EQ(why({{{nullptr}}, nullptr}).message, "Test Result not found.");
}

TEST_F(RunObserverTest, IsToldTheVerdictTheRemarkAndTheValues) {
  setUpController(makeInputs(nullptr));
  const auto rssi = Number::withInteger(-50);
  const TestOutcome outcome = outcomeOf(
      DiagnosticsTestID::PoorSignal,
      answerOf({.result = true, .info = makeDictionary({{"RSSI", rssi}}), .remark = "Old."}));
  EXPECT_EQ(outcome.verdict, true);
  EXPECT_EQ(outcome.remark, "Old.");
  ASSERT_EQ(outcome.values.size(), 2U);
  EXPECT_EQ(outcome.values[0].key, "RSSI");
  EXPECT_EQ(outcome.values[0].value, rssi);
  EXPECT_EQ(outcome.values[1].key, "noise");
  EXPECT_EQ(outcome.values[1].value, nullptr);
  EXPECT_TRUE(outcome.hasDetails);
  EXPECT_FALSE(outcomeOf(DiagnosticsTestID::PoorSignal, answerOf({})).hasDetails);
}

TEST_F(RunObserverTest, TakesTheListsScanAsATestOfTheCurrentNetwork) {
  nextScanHears({"Home"});
  showPicker();
  EXPECT_THAT(recorder->events, ElementsAre("status", "start currentNetwork/NoScanResults",
                                            "end currentNetwork/NoScanResults"));
  EXPECT_EQ(recorder->outcomes.front().verdict, true);  // networks were found
}

TEST_F(RunObserverTest, IsToldWhatThePersonDoes) {
  nextScanHears({"Home"});
  showPicker();
  recorder->events.clear();
  const auto kind = [](PersonAction action) {
    return "person " + std::to_string(static_cast<int>(action));
  };
  typeAnother("Cafe");
  EXPECT_THAT(recorder->events, ElementsAre(kind(PersonAction::tapRow), kind(PersonAction::type),
                                            kind(PersonAction::tapAlertAction)));
  recorder->events.clear();
  controller->refreshControl()->pull();
  EXPECT_THAT(recorder->events, ElementsAre(kind(PersonAction::pullToRefresh)));
  queues->runUntilIdle();
  recorder->events.clear();
  next()->tap();
  EXPECT_EQ(recorder->events.front(), kind(PersonAction::tapButton));
}

}  // namespace
}  // namespace wifi_profile
