// From the start to the end of a run without the picker.

#include "support/DiagnosticFixture.h"
#include "support/Matchers.h"

namespace wifi_profile {
namespace {

using std::chrono::milliseconds;
using ::testing::AllOf;
using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;

class Lifecycle : public DiagnosticFixture {
 protected:
  void expectEnd(std::int64_t status) {
    ASSERT_EQ(host->statusCodes.size(), 1U);
    EXPECT_THAT(host->statusCodes.front(), isInteger(status));
    EXPECT_EQ(host->data.size(), 1U);
    EXPECT_EQ(host->finishedAt.size(), 1U);
  }
  std::size_t findingsIn(const char* section) {
    return as<Dictionary>(host->data.at(0)->objectForKey(section))->entries().size();
  }
};

TEST_F(Lifecycle, EndsHalfASecondAfterTheLastTestInTheBackground) {
  letRequestsTake(milliseconds(10));
  run(makeText("Home"), nullptr);
  EXPECT_THAT(host->finishedAt, ElementsAre(milliseconds(40 * 10 + 500)));
  EXPECT_THAT(host->finishedOnMainThread, ElementsAre(false));
}

TEST_F(Lifecycle, EndsInOrderAndOnce) {
  run(makeText("Home"), nullptr);
  EXPECT_THAT(events->all(), ElementsAre("query status", "cancel all requests", "status code",
                                         "data", "finished"));
}

TEST_F(Lifecycle, LeavesTheSelectionNilOnADeviceThatIsNotJoined) {
  run(nullptr, nullptr);
  EXPECT_EQ(controller->inputs()->selectedNetworkName(), nullptr);
  EXPECT_EQ(controller->totalTests(), 11);
  expectEnd(0);
  EXPECT_EQ(findingsIn("currentNetwork"), 0U);
  EXPECT_EQ(findingsIn("selectedNetwork"), 0U);
}

TEST_F(Lifecycle, SelectsTheJoinedNetworkByDefaultAndTestsItOnce) {
  const TextRef home = makeText("Home");
  run(home, nullptr);
  EXPECT_EQ(controller->inputs()->selectedNetworkName(), home);
  EXPECT_EQ(controller->totalTests(), 40);
  expectEnd(0);
  EXPECT_EQ(findingsIn("selectedNetwork"), 0U);
}

TEST_F(Lifecycle, KeepsTheSelectionThatTheHostMade) {
  run(makeText("Home"), makeText("home"));
  EXPECT_THAT(controller->inputs()->selectedNetworkName(), isText("home"));
  EXPECT_EQ(controller->totalTests(), 56);
  expectEnd(0);
}

TEST_F(Lifecycle, EndsWithMinusSixOnAJoinedNetworkThatAsksNotToBeSurveyed) {
  run(makeText("Cafe_NoMap"), makeText("Home"));
  expectEnd(-6);
  EXPECT_EQ(findingsIn("currentNetwork"), 0U);
  EXPECT_GT(findingsIn("selectedNetwork"), 0U);
}

// The name defaults to the joined network's, which is then excluded as the selected one, too.
TEST_F(Lifecycle, EndsWithMinusSevenWhenTheExcludedJoinedNetworkIsTheDefaultSelection) {
  run(makeText("Cafe_NoMap"), nullptr);
  EXPECT_EQ(controller->totalTests(), 11);
  expectEnd(-7);
}

TEST_F(Lifecycle, EndsWithMinusSevenOnASelectedNetworkThatAsksNotToBeSurveyed) {
  run(makeText("Home"), makeText("lab_nomap"));
  expectEnd(-7);
  EXPECT_GT(findingsIn("currentNetwork"), 0U);
  EXPECT_EQ(findingsIn("selectedNetwork"), 0U);
}

TEST_F(Lifecycle, EndsWithMinusSevenWhenBothNetworksAreExcluded) {
  run(makeText("Cafe_NoMap"), makeText("lab_nomap"));
  expectEnd(-7);
  EXPECT_GT(findingsIn("device"), 0U);
}

TEST_F(Lifecycle, AsksForTheStatusOfThisDeviceOnceAndBeforeAnyTest) {
  service->whileRunning = [&](const auto&) {
    EXPECT_THAT(events->all(), ElementsAre("query status"));
  };
  run(makeText("Home"), nullptr);
  EXPECT_EQ(service->requests().size(), 40U);
}

TEST_F(Lifecycle, RunsNothingOfTheRunBeforeStartReturns) {
  setUpController(makeInputs(nullptr));
  controller->start();
  EXPECT_TRUE(service->requests().empty());
  EXPECT_TRUE(controller->progressScreenVisible());
  EXPECT_NE(controller->navigationBar(), nullptr);
}

TEST_F(Lifecycle, NeverTouchesTheWiFiManager) {
  run(makeText("Home"), makeText("Cafe"));
  EXPECT_THAT(events->all(), ElementsAre("query status", "cancel all requests", "status code",
                                         "data", "finished"));
  EXPECT_EQ(controller->manager(), nullptr);
}

TEST_F(Lifecycle, StartsTheRunAtTheNextButton) {
  setUpController(makeInputs(makeText("Cafe")));
  controller->nextTapped(nullptr);
  queues->runUntilIdle();
  EXPECT_EQ(service->requests().size(), 27U);
  expectEnd(0);
}

TEST_F(Lifecycle, StaysAliveWhileItsWorkIsQueued) {
  setUpController(makeInputs(nullptr));
  const std::weak_ptr<WiFiProfileViewController> watched = controller;
  controller->start();
  controller.reset();
  EXPECT_FALSE(watched.expired());
  queues->runUntilIdle();
  EXPECT_TRUE(watched.expired());
  expectEnd(0);
}

// A host that lets go of the controller as soon as it hears of a step of the end.
struct ForgetfulHost final : HxDiagnosticObserver {
  enum class At { statusCode, finished };
  ForgetfulHost(std::shared_ptr<WiFiProfileViewController>& controller, At at)
      : held(controller), when(at) {}

  void statusCodeWasSet(const NumberRef& /*statusCode*/) override {
    if (when == At::statusCode) held.reset();
  }
  void dataWasSet(const DictionaryRef& /*data*/) override {}
  void finishedWasSet(bool /*finished*/) override {
    ++timesFinished;
    wasAliveAtTheEnd = !watched.expired();
    held.reset();
  }

  std::shared_ptr<WiFiProfileViewController>& held;
  const std::weak_ptr<WiFiProfileViewController> watched = held;
  const At when;
  bool wasAliveAtTheEnd = false;
  int timesFinished = 0;
};

// Notes for every text whether the controller that asks for it is still there.
struct WatchingTable final : StringTable {
  explicit WatchingTable(std::weak_ptr<WiFiProfileViewController> controller)
      : watched(std::move(controller)) {}
  std::string textForKey(std::string_view /*key*/, std::string_view fallback) const override {
    asked.push_back(!watched.expired());
    return std::string(fallback);
  }
  const std::weak_ptr<WiFiProfileViewController> watched;
  mutable std::vector<bool> asked;
};

TEST_F(Lifecycle, LivesUntilStartReturnsWhenTheHostLetsGoOfItMeanwhile) {
  wifiManager->radio = 0;
  setUpController(makeInputs(nullptr, true));
  const auto forgetful = std::make_shared<ForgetfulHost>(controller, ForgetfulHost::At::finished);
  controller->setObserver(forgetful);
  const auto table = std::make_shared<WatchingTable>(controller);
  const InstalledPlatform texts({.texts = table.get()});
  WiFiProfileViewController& started = *controller;
  started.start();
  EXPECT_EQ(forgetful->timesFinished, 1);
  EXPECT_THAT(table->asked, AllOf(Not(IsEmpty()), Each(true)));
  EXPECT_TRUE(table->watched.expired());
}

TEST_F(Lifecycle, TellsOfEveryStepOfItsEndWhenTheHostLetsGoOfItAtTheFirst) {
  setUpController(makeInputs(nullptr));
  const auto forgetful = std::make_shared<ForgetfulHost>(controller, ForgetfulHost::At::statusCode);
  controller->setObserver(forgetful);
  WiFiProfileViewController& ended = *controller;
  ended.endTestWithStatusCode(Number::withInteger(0));
  EXPECT_EQ(forgetful->timesFinished, 1);
  EXPECT_TRUE(forgetful->wasAliveAtTheEnd);
  EXPECT_TRUE(forgetful->watched.expired());
}

class LifecycleDeathTest : public Lifecycle {
 protected:
  void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(LifecycleDeathTest, DoesNotStartBeforeSetUp) {
  const auto fresh = std::make_shared<WiFiProfileViewController>();
  EXPECT_DEATH(fresh->start(), "wifi-profile: start was called before setupWithInputs");
}

TEST_F(LifecycleDeathTest, IsNotSetUpWithInputsThatAreNotValid) {
  const char* const message =
      "wifi-profile: setupWithInputs was called with inputs that are not valid";
  EXPECT_DEATH(setUpController(nullptr), message);
  EXPECT_DEATH(setUpController(std::make_shared<WiFiProfileInputs>()), message);
  const auto refused = std::make_shared<WiFiProfileInputs>();
  refused->validateAndInitializeParameters(makeDictionary({}));
  EXPECT_DEATH(setUpController(refused), message);
}

class StatusQuery : public Lifecycle {
 protected:
  void SetUp() override { setUpController(makeInputs(nullptr)); }
};

TEST_F(StatusQuery, KeepsTheVeryStatusThatTheServiceGives) {
  service->joinTo(makeText("Home"));
  controller->determineCurrentNetwork();
  EXPECT_EQ(controller->wifiStatus(), service->status->wifi);
  EXPECT_THAT(log->errors(), IsEmpty());
}

TEST_F(StatusQuery, KeepsTheEarlierStatusAndLogsWhenItFails) {
  const auto earlier = std::make_shared<const VqWiFiStatus>();
  controller->wifiStatus.set(earlier);
  service->joinTo(makeText("Home"));
  service->statusError = makeError(-71, "service gone");
  controller->determineCurrentNetwork();
  EXPECT_EQ(controller->wifiStatus(), earlier);
  EXPECT_THAT(log->errors(),
              ElementsAre("[ERROR] - Wi-Fi Profile: Query Status failed with error: service gone"));
}

TEST_F(StatusQuery, TakesAnErrorOfCodeZeroForSuccess) {
  service->joinTo(makeText("Home"));
  service->statusError = makeError(0, "fine");
  controller->determineCurrentNetwork();
  EXPECT_EQ(controller->wifiStatus(), service->status->wifi);
  EXPECT_THAT(log->errors(), IsEmpty());
}

TEST_F(StatusQuery, ForgetsTheEarlierStatusWhenThereIsNone) {
  controller->wifiStatus.set(std::make_shared<const VqWiFiStatus>());
  service->status = nullptr;
  controller->determineCurrentNetwork();
  EXPECT_EQ(controller->wifiStatus(), nullptr);
}

TEST_F(StatusQuery, FailureLeavesTheSelectedNetworkToBeTested) {
  controller->inputs()->setSelectedNetworkName(makeText("Cafe"));
  service->statusError = makeError(1, "no");
  controller->start();
  queues->runUntilIdle();
  EXPECT_EQ(service->requests().size(), 27U);
  expectEnd(0);
}

}  // namespace
}  // namespace wifi_profile
