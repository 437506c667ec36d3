// The first list of networks: what is posted in which order, and what it shows.

#include "support/Matchers.h"
#include "support/PickerFixture.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class FirstList : public PickerFixture {};

TEST_F(FirstList, ReloadsTheTableBeforeTheScanAndShowsTheNetworksAfterIt) {
  joinTo("Home");
  nextScanHears({"Lab", "Home", "Cafe"});
  startPicker();
  screen->told.clear();
  service->whileRunning = [this](const FakeService::Request& request) {
    queues->waitForMain();
    screen->told.push_back("scan " + std::to_string(static_cast<int>(request.test)));
  };
  queues->runUntilIdle();
  EXPECT_THAT(screen->told,
              ElementsAre("reload", "spinner start", "button on", "scan 31", "spinner stop",
                          "refresh installed", "begin", "insert [1,0] [1,1]", "end"));
}

TEST_F(FirstList, ShowsTheSelectedRowAndTheOneForAnotherNetworkBeforeTheScan) {
  joinTo("Home");
  nextScanHears({"Cafe"});
  startPicker();
  std::vector<Titles> rows;
  service->whileRunning = [&](const FakeService::Request&) {
    queues->waitForMain();
    rows = {selectedRows(), networkRows()};
  };
  queues->runUntilIdle();
  EXPECT_EQ(rows, (std::vector<Titles>{{"Home"}, {"OTHER"}}));
}

TEST_F(FirstList, AsksForAFreshScan) {
  showPicker();
  ASSERT_EQ(service->requests().size(), 1U);
  const auto& request = service->requests().front();
  EXPECT_EQ(request.test, DiagnosticsTestID::NoScanResults);
  EXPECT_THAT(keysOf(request.configuration), ElementsAre("MaxScanCacheAge"));
  EXPECT_THAT(request.configuration->objectForKey("MaxScanCacheAge"), isInteger(0));
  EXPECT_THAT(keysOf(controller->currentNetworkData()), ElementsAre("foundScanResults"));
}

TEST_F(FirstList, SelectsTheJoinedNetworkAndEnablesTheButton) {
  joinTo("Home");
  nextScanHears({"Cafe", "Home"});
  showPicker();
  EXPECT_EQ(selectedName(), "Home");
  EXPECT_TRUE(next()->isEnabled());
  EXPECT_THAT(selectedRows(), ElementsAre("Home"));
  EXPECT_THAT(networkRows(), ElementsAre("Cafe", "OTHER"));
}

TEST_F(FirstList, SelectsNothingAndLeavesTheButtonDisabledWhereNothingIsJoined) {
  joinNothing();
  nextScanHears({"Lab", "cafe", "Home"});
  showPicker();
  EXPECT_EQ(selectedName(), "-");
  EXPECT_FALSE(next()->isEnabled());
  EXPECT_THAT(selectedRows(), IsEmpty());
  EXPECT_THAT(networkRows(), ElementsAre("cafe", "Home", "Lab", "OTHER"));
}

TEST_F(FirstList, KeepsTheNameThatTheHostAskedForAndSortsTheJoinedNetworkIn) {
  joinTo("Home");
  nextScanHears({"Lab", "Home", "Cafe"});
  showPicker(makeText("Cafe"));
  EXPECT_EQ(selectedName(), "Cafe");
  EXPECT_TRUE(next()->isEnabled());
  EXPECT_THAT(selectedRows(), ElementsAre("Cafe"));
  EXPECT_THAT(networkRows(), ElementsAre("Home", "Lab", "OTHER"));
}

TEST_F(FirstList, DoesNotShowTheJoinedNetworkWhenTheNameAskedForIsNotHeard) {
  joinTo("Home");
  nextScanHears({"Home", "Cafe"});
  showPicker(makeText("Elsewhere"));
  EXPECT_THAT(selectedRows(), ElementsAre("Elsewhere"));
  EXPECT_THAT(networkRows(), ElementsAre("Cafe", "OTHER"));
}

TEST_F(FirstList, InstallsTheRefreshControlOnlyWithTheNetworks) {
  startPicker();
  EXPECT_EQ(controller->refreshControl(), nullptr);
  EXPECT_FALSE(controller->refreshEnabled());
  EXPECT_FALSE(controller->scanFinished());
  queues->runUntilIdle();
  EXPECT_EQ(controller->tableView()->refreshControl(), controller->refreshControl());
  EXPECT_TRUE(controller->refreshEnabled());
  EXPECT_TRUE(controller->scanFinished());
}

TEST_F(FirstList, IsEmptyAfterAScanThatFailed) {
  joinTo("Home");
  nextScanIs(answerOf({}, makeError(5, "radio asleep")));
  showPicker();
  EXPECT_THAT(selectedRows(), ElementsAre("Home"));
  EXPECT_THAT(networkRows(), ElementsAre("OTHER"));
  EXPECT_TRUE(controller->scanFinished());
  EXPECT_NE(controller->refreshControl(), nullptr);
}

TEST_F(FirstList, IsEmptyWhereNoNetworkHasAName) {
  joinNothing();
  nextScanHears({std::make_shared<const VqWiFiScanResult>(nullptr, makeText("a1"), -50)});
  showPicker();
  EXPECT_THAT(networkRows(), ElementsAre("OTHER"));
}

TEST_F(FirstList, KeepsTheLastKnownStatusWhenTheQueryFails) {
  setUpController(makeInputs(nullptr, true));
  controller->wifiStatus.set(
      std::make_shared<const VqWiFiStatus>(VqWiFiStatus{makeText("Home"), makeText("ap of Home")}));
  service->statusError = makeError(3, "busy");
  nextScanHears({"Home", "Cafe"});
  controller->start();
  controller->appear();
  queues->runUntilIdle();
  EXPECT_EQ(selectedName(), "Home");
  EXPECT_THAT(networkRows(), ElementsAre("Cafe", "OTHER"));
}

TEST_F(FirstList, IsRepairedWhenItIsDisplayedAgainOverNetworks) {
  joinTo("Home");
  nextScanHears({"Home", "Cafe", "Lab"});
  showPicker();
  nextScanHears({"Home", "Bistro"});
  controller->displayNetworkList();
  queues->runUntilIdle();
  EXPECT_THAT(networkRows(), ElementsAre("Bistro", "OTHER"));
  EXPECT_THAT(screen->told,
              ElementsAre("reload", "button on", "spinner stop", "refresh installed", "begin",
                          "insert [1,0]", "end", "repaired 1: 3 - 0 + 1, expected 2"));
}

TEST_F(FirstList, StaysAliveWithoutItsOwnerUntilItIsShown) {
  startPicker();
  const std::weak_ptr<WiFiProfileViewController> watch = controller;
  controller.reset();
  EXPECT_FALSE(watch.expired());
  queues->runUntilIdle();
  EXPECT_TRUE(watch.expired());
}

}  // namespace
}  // namespace wifi_profile
