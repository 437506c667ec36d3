// Which tests a run consists of, in which order, with which configuration, and what is counted.

#include "diagnostic/tests/ExpectedTests.h"
#include "support/DiagnosticFixture.h"
#include "support/Matchers.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;

const std::vector<int> kDevice = expectedDeviceBatch();
const std::vector<int> kCurrent = expectedCurrentBatch();
const std::vector<int> kSelected = expectedSelectedBatch();

std::vector<int> inOrder(std::initializer_list<std::vector<int>> batches) {
  std::vector<int> all;
  for (const auto& batch : batches) all.insert(all.end(), batch.begin(), batch.end());
  return all;
}

class RunOrder : public DiagnosticFixture {
 protected:
  void expectRun(const std::vector<int>& numbers) {
    EXPECT_EQ(service->requestedNumbers(), numbers);
    EXPECT_EQ(controller->totalTests(), static_cast<int>(numbers.size()));
    EXPECT_EQ(controller->completedTests(), controller->totalTests());
    EXPECT_EQ(screen->progress.size(), numbers.size());
    ASSERT_FALSE(screen->progress.empty());
    EXPECT_EQ(screen->progress.back(), 1.0F);
  }
};

TEST_F(RunOrder, IsElevenTestsOfADeviceWithoutANetwork) {
  run(nullptr, nullptr);
  expectRun(kDevice);
  EXPECT_EQ(kDevice.size(), 11U);
}

TEST_F(RunOrder, IsFortyTestsOfTheDeviceAndThenItsNetwork) {
  run(makeText("Home"), nullptr);
  expectRun(inOrder({kDevice, kCurrent}));
  EXPECT_EQ(controller->totalTests(), 40);
}

TEST_F(RunOrder, IsTwentySevenTestsOfTheDeviceAndThenTheSelectedNetwork) {
  run(nullptr, makeText("Cafe"));
  expectRun(inOrder({kDevice, kSelected}));
  EXPECT_EQ(controller->totalTests(), 27);
}

TEST_F(RunOrder, IsFiftySixTestsOfTheDeviceThenItsNetworkThenTheSelectedOne) {
  run(makeText("Home"), makeText("Cafe"));
  expectRun(inOrder({kDevice, kCurrent, kSelected}));
  EXPECT_EQ(controller->totalTests(), 56);
}

TEST_F(RunOrder, DoesNotDependOnWhatTestsFind) {
  service->otherwise = [](DiagnosticsTestID test) {
    const int number = static_cast<int>(test);
    if (number % 3 == 0) return FakeAnswer{std::nullopt, makeError(number, "failed")};
    if (number % 3 == 1) return FakeAnswer{};
    return answerOf({.result = false, .didPass = false, .info = nullptr});
  };
  run(makeText("Home"), makeText("Cafe"));
  expectRun(inOrder({kDevice, kCurrent, kSelected}));
}

TEST_F(RunOrder, GivesEachBatchItsConfiguration) {
  run(makeText("Home"), makeText("Cafe"));
  const auto& requests = service->requests();
  ASSERT_EQ(requests.size(), 56U);
  for (std::size_t i = 0; i < requests.size(); ++i) {
    const bool ofCurrent = i >= 11 && i < 40;
    EXPECT_EQ(requests[i].configuration,
              ofCurrent ? controller->currentNetworkConfiguration() : controller->configuration())
        << "request " << i;
  }
  const DictionaryRef configuration = controller->configuration();
  EXPECT_THAT(keysOf(configuration), ElementsAre("MaxScanCacheAge", "NetworkName"));
  EXPECT_THAT(configuration->objectForKey("MaxScanCacheAge"),
              isTheVery(controller->inputs()->maxScanCacheAge()));
  EXPECT_THAT(configuration->objectForKey("NetworkName"),
              isTheVery(controller->inputs()->selectedNetworkName()));
  EXPECT_THAT(keysOf(controller->currentNetworkConfiguration()), ElementsAre("MaxScanCacheAge"));
}

TEST_F(RunOrder, GivesTheDeviceTheNetworksConfigurationItselfWhenNoNameIsSelected) {
  run(nullptr, nullptr);
  EXPECT_EQ(controller->configuration(), controller->currentNetworkConfiguration());
  EXPECT_EQ(service->requests().front().configuration, controller->currentNetworkConfiguration());
}

TEST_F(RunOrder, NamesAnExcludedNetworkInTheConfigurationAllTheSame) {
  run(nullptr, makeText("lab_nomap"));
  EXPECT_THAT(controller->configuration()->objectForKey("NetworkName"), isText("lab_nomap"));
}

TEST_F(RunOrder, NamesTheJoinedNetworkInTheConfigurationWhenItIsTheSelectedOne) {
  run(makeText("Home"), makeText("Home"));
  EXPECT_THAT(controller->configuration()->objectForKey("NetworkName"), isText("Home"));
  expectRun(inOrder({kDevice, kCurrent}));
}

TEST_F(RunOrder, CountsEachTestOnTheBarAsItEnds) {
  letRequestsTake(std::chrono::milliseconds(1));
  run(makeText("Home"), nullptr);
  std::vector<float> expected;
  for (int i = 1; i <= 40; ++i) {
    expected.push_back(static_cast<float>(i) / static_cast<float>(40));
  }
  EXPECT_EQ(screen->progress, expected);
  EXPECT_EQ(screen->progress[2], 0.075F);
}

TEST_F(RunOrder, CountsATestThatFails) {
  service->otherwise = [](DiagnosticsTestID) {
    return FakeAnswer{std::nullopt, makeError(1, "failed")};
  };
  letRequestsTake(std::chrono::milliseconds(1));
  run(nullptr, nullptr);
  ASSERT_EQ(screen->progress.size(), 11U);
  EXPECT_EQ(screen->progress.front(), 1.0F / 11.0F);
}

TEST_F(RunOrder, KnowsTheTotalBeforeTheFirstTest) {
  std::vector<std::int32_t> totals;
  service->whileRunning = [&](const auto&) { totals.push_back(controller->totalTests()); };
  run(nullptr, makeText("Cafe"));
  EXPECT_EQ(totals, std::vector<std::int32_t>(27, 27));
}

TEST_F(RunOrder, RunsEveryTestOnOneBackgroundThread) {
  run(makeText("Home"), makeText("Cafe"));
  for (const auto& request : service->requests()) {
    EXPECT_NE(request.thread, std::this_thread::get_id());
    EXPECT_EQ(request.thread, service->requests().front().thread);
  }
}

TEST_F(RunOrder, ReadsTheCurrentNetworksConfigurationAndFindingsAfreshBeforeEachTest) {
  const DictionaryRef newConfiguration = makeDictionary({});
  const auto newFindings = std::make_shared<Dictionary>();
  service->whileRunning = [&](const FakeService::Request& request) {
    if (request.test != DiagnosticsTestID::DetectDoubleNAT) return;  // the first of the batch
    controller->currentNetworkConfiguration.set(newConfiguration);
    controller->currentNetworkData.set(newFindings);
  };
  service->joinTo(makeText("Home"));
  setUpController(makeInputs(nullptr));
  const MutableDictionaryRef oldFindings = controller->currentNetworkData();
  controller->start();
  queues->runUntilIdle();
  EXPECT_THAT(keysOf(oldFindings), ElementsAre("hasDoubleNATConfiguration"));
  EXPECT_NE(newFindings->objectForKey("isBeaconIntervalLong"), nullptr);
  EXPECT_EQ(service->requests().back().configuration, newConfiguration);
}

}  // namespace
}  // namespace wifi_profile
