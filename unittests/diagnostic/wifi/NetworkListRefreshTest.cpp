// A pull: the rescan, and the rows that it changes.

#include "support/Matchers.h"
#include "support/PickerFixture.h"

namespace wifi_profile {
namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Not;
using ::testing::StartsWith;

class Refresh : public PickerFixture {
 protected:
  // What the screen is told of the outer batch of a refresh.
  Titles batch() const {
    const auto& told = screen->told;
    return {std::find(told.begin(), told.end(), "begin"), told.end()};
  }
};

TEST_F(Refresh, LocksTheTableWhileItScansAndShowsItInOneBatch) {
  joinTo("Home");
  nextScanHears({"Home", "Amber", "Bee", "Cafe"});
  showPicker();
  nextScanHears({"Home", "Amber", "Bistro", "Bee"});
  service->whileRunning = [this](const FakeService::Request& request) {
    queues->waitForMain();
    screen->told.push_back("scan " + std::to_string(static_cast<int>(request.test)));
    EXPECT_FALSE(controller->tableView()->allowsSelection());
    EXPECT_FALSE(controller->scanFinished());
  };
  pull();
  EXPECT_THAT(screen->told,
              ElementsAre("refresh began", "selection off", "spinner start", "scan 31",
                          "spinner stop", "selection on", "refresh ended",  //
                          "begin",                                          //
                          "begin", "delete [0,0]", "insert [0,0]", "end",   //
                          "begin", "begin", "delete [1,2]", "end", "begin", "insert [1,2]", "end",
                          "end", "end"));
  EXPECT_TRUE(controller->scanFinished());
  EXPECT_THAT(networkRows(), ElementsAre("Amber", "Bee", "Bistro", "OTHER"));
}

TEST_F(Refresh, TakesAnOldRowTwoOutAndPutsANewRowOneIn) {
  joinNothing();
  nextScanHears({"Alpha", "Bravo", "Cafe", "Delta"});
  showPicker();
  nextScanHears({"Alpha", "Bistro", "Bravo", "Delta"});
  pull();
  EXPECT_THAT(batch(), ElementsAre("begin", "begin", "begin", "delete [1,2]", "end", "begin",
                                   "insert [1,1]", "end", "end", "end"));
  EXPECT_THAT(networkRows(), ElementsAre("Alpha", "Bistro", "Bravo", "Delta", "OTHER"));
}

TEST_F(Refresh, ChangesNoRowWhenNothingIsNewAndNothingIsLost) {
  joinNothing();
  nextScanHears({"Cafe", "Lab"});
  showPicker();
  nextScanHears({heard("Lab", -20), heard("Cafe", -90)});
  pull();
  EXPECT_THAT(batch(), ElementsAre("begin", "begin", "begin", "delete", "end", "begin", "insert",
                                   "end", "end", "end"));
  EXPECT_THAT(networkRows(), ElementsAre("Cafe", "Lab", "OTHER"));
}

TEST_F(Refresh, RemembersTheRowsThatTheTableShows) {
  joinNothing();
  nextScanHears({"Cafe"});
  showPicker();
  EXPECT_EQ(controller->previousScanFilteredWiFiScanResults(), nullptr);
  EXPECT_EQ(controller->previousScanFilteredNetworks(), nullptr);
  const NetworkList before = *controller->filteredWiFiScanResults();
  nextScanHears({"Lab"});
  pull();
  EXPECT_EQ(*controller->previousScanFilteredWiFiScanResults(), before);
  EXPECT_EQ(controller->previousScanFilteredNetworks()->networks(), before);
}

// --- Names that compare equal

TEST_F(Refresh, LeavesNamesThatCompareEqualWhereTheirRowsAre) {
  joinNothing();
  nextScanHears({"Guest", "guest", "Cafe"});
  showPicker();
  tapNetwork("Guest");
  tapNetwork("Cafe");
  ASSERT_THAT(networkRows(), ElementsAre("guest", "Guest", "OTHER"));
  nextScanHears({"Guest", "guest", "Cafe"});
  pull();
  EXPECT_THAT(networkRows(), ElementsAre("guest", "Guest", "OTHER"));
  tapNetwork("guest");
  EXPECT_EQ(selectedName(), "guest");
}

TEST_F(Refresh, PutsTheJoinedNetworkWhereItsRowIs) {
  joinTo("guest");
  nextScanHears({"guest", "Cafe", "Guest", "GUEST"});
  showPicker();
  tapNetwork("GUEST");
  tapNetwork("Cafe");
  ASSERT_THAT(networkRows(), ElementsAre("Guest", "guest", "GUEST", "OTHER"));
  nextScanHears({"guest", "Cafe", "Guest", "GUEST"});
  pull();
  EXPECT_THAT(networkRows(), ElementsAre("Guest", "guest", "GUEST", "OTHER"));
  tapRow(1);
  EXPECT_EQ(selectedName(), "guest");
}

TEST_F(Refresh, PutsNewNamesBehindThoseThatCompareEqual) {
  joinNothing();
  nextScanHears({"guest"});
  showPicker();
  nextScanHears({"GUEST", "guest", "Guest"});
  pull();
  EXPECT_THAT(networkRows(), ElementsAre("guest", "GUEST", "Guest", "OTHER"));
}

// --- With nothing selected when it begins

TEST_F(Refresh, SelectsTheNetworkJoinedMeanwhileAndInsertsItsRow) {
  joinNothing();
  nextScanHears({"Cafe", "Home"});
  showPicker();
  joinTo("Home");
  nextScanHears({"Cafe", "Home"});
  pull();
  EXPECT_EQ(selectedName(), "Home");
  EXPECT_TRUE(next()->isEnabled());
  EXPECT_THAT(selectedRows(), ElementsAre("Home"));
  EXPECT_THAT(networkRows(), ElementsAre("Cafe", "OTHER"));
  EXPECT_THAT(batch(), ElementsAre("begin", "begin", "insert [0,0]", "end", "begin", "begin",
                                   "delete [1,1]", "end", "begin", "insert", "end", "end", "end"));
}

TEST_F(Refresh, SelectsTheJoinedNetworkAlsoWhereTheScanLacksIt) {
  joinNothing();
  nextScanHears({"Cafe"});
  showPicker();
  joinTo("Home");
  nextScanHears({"Cafe"});
  pull();
  EXPECT_THAT(selectedRows(), ElementsAre("Home"));
  EXPECT_THAT(networkRows(), ElementsAre("Cafe", "OTHER"));
}

TEST_F(Refresh, EnablesTheButtonEvenWhereNothingIsJoined) {
  joinNothing();
  nextScanHears({"Cafe"});
  showPicker();
  EXPECT_FALSE(next()->isEnabled());
  nextScanHears({"Cafe"});
  pull();
  EXPECT_EQ(selectedName(), "-");
  EXPECT_TRUE(next()->isEnabled());
  EXPECT_THAT(screen->told,
              ElementsAre("refresh began", "selection off", "spinner start", "button on",
                          "spinner stop", "selection on", "refresh ended", "begin", "begin",
                          "begin", "delete", "end", "begin", "insert", "end", "end", "end"));
  EXPECT_THAT(selectedRows(), IsEmpty());
}

// --- With a network selected when it begins

TEST_F(Refresh, LeavesTheListAloneWhenTheJoinedNetworkIsTheSelectedOne) {
  joinTo("Home");
  nextScanHears({"Home", "Cafe"});
  showPicker();
  nextScanHears({"Home", "Cafe"});
  pull();
  EXPECT_THAT(selectedRows(), ElementsAre("Home"));
  EXPECT_THAT(networkRows(), ElementsAre("Cafe", "OTHER"));
  EXPECT_EQ(std::count(screen->told.begin(), screen->told.end(), "button on"), 0);
}

TEST_F(Refresh, KeepsTheSelectedNetworkOutAndTheJoinedOneIn) {
  joinTo("Home");
  nextScanHears({"Home", "Cafe", "Lab"});
  showPicker(makeText("Cafe"));
  nextScanHears({"Home", "Cafe", "Lab", "Zoo"});
  pull();
  EXPECT_THAT(selectedRows(), ElementsAre("Cafe"));
  EXPECT_THAT(networkRows(), ElementsAre("Home", "Lab", "Zoo", "OTHER"));
  EXPECT_THAT(batch(),
              ElementsAre("begin", "begin", "delete [0,0]", "insert [0,0]", "end", "begin", "begin",
                          "delete", "end", "begin", "insert [1,2]", "end", "end", "end"));
}

TEST_F(Refresh, LosesTheJoinedNetworksRowWhenTheSelectedOneIsNotHeard) {
  joinTo("Home");
  nextScanHears({"Home", "Cafe", "Lab"});
  showPicker(makeText("Cafe"));
  nextScanHears({"Home", "Lab"});
  pull();
  EXPECT_THAT(selectedRows(), ElementsAre("Cafe"));
  EXPECT_THAT(networkRows(), ElementsAre("Lab", "OTHER"));
}

TEST_F(Refresh, AddsWhatIsKnownOfTheJoinedNetworkAlsoAfterLeavingIt) {
  joinTo("Home");
  nextScanHears({"Home", "Cafe", "Lab"});
  showPicker(makeText("Cafe"));
  joinNothing();
  nextScanHears({"Cafe", "Lab"});
  pull();
  EXPECT_THAT(networkRows(), ElementsAre("Home", "Lab", "OTHER"));
}

TEST_F(Refresh, PutsTheOldAccessPointInWhereTheScanLacksTheJoinedOne) {
  joinTo("Home");
  nextScanHears({"Home", "Cafe", "Lab"});
  showPicker(makeText("Cafe"));
  const auto old = controller->currentNetwork();
  nextScanHears({"Cafe", "Lab"});
  pull();
  EXPECT_THAT(networkRows(), ElementsAre("Home", "Lab", "OTHER"));
  EXPECT_EQ(controller->currentNetwork(), old);
  EXPECT_EQ(controller->filteredWiFiScanResults()->front(), old);
}

TEST_F(Refresh, ShowsALeftOverAccessPointASecondTimeUnderItsName) {
  joinTo("Home");
  nextScanHears({"Home", "Cafe", "Lab"});
  showPicker(makeText("Cafe"));
  joinTo("Office");
  nextScanHears({"Home", "Cafe", "Lab"});
  pull();
  EXPECT_THAT(networkRows(), ElementsAre("Home", "Home", "Lab", "OTHER"));
  EXPECT_EQ(controller->filteredNetworks()->networks().size(), 2U);
  EXPECT_EQ(screen->told.back(), "repaired 1: 3 - 0 + 0, expected 4");
}

// --- Scans that bring nothing

TEST_F(Refresh, KeepsTheRowsAfterAScanThatFailedOrDidNotPassOrToldNothing) {
  joinTo("Home");
  nextScanHears({"Home", "Cafe", "Lab"});
  showPicker();
  for (const FakeAnswer& answer : {answerOf({}, makeError(5, "radio asleep")), FakeAnswer{},
                                   answerOf({.didPass = false, .info = nullptr}),
                                   answerOf({.didPass = true, .info = nullptr})}) {
    nextScanIs(answer);
    pull();
    EXPECT_THAT(networkRows(), ElementsAre("Cafe", "Lab", "OTHER"));
    EXPECT_TRUE(controller->scanFinished());
    EXPECT_FALSE(controller->refreshControl()->isRefreshing());
  }
  EXPECT_THAT(screen->told, Not(Contains(StartsWith("delete [1"))));
}

TEST_F(Refresh, DeletesEveryRowAfterAScanWithoutResults) {
  joinTo("Home");
  nextScanHears({"Home", "Cafe", "Lab"});
  showPicker();
  nextScanIs(answerOf({.didPass = true, .info = makeDictionary({})}));
  pull();
  EXPECT_EQ(controller->wifiScanResults(), nullptr);
  EXPECT_THAT(networkRows(), ElementsAre("OTHER"));
  EXPECT_THAT(screen->told, Contains("delete [1,0] [1,1]"));
}

TEST_F(Refresh, CanBePulledAgainOnlyWhenItIsOver) {
  joinNothing();
  nextScanHears({"Cafe"});
  showPicker();
  service->forgetRequests();
  controller->refreshControl()->pull();
  controller->refreshControl()->pull();
  queues->runUntilIdle();
  EXPECT_EQ(service->requests().size(), 1U);
  pull();
  EXPECT_EQ(service->requests().size(), 2U);
}

}  // namespace
}  // namespace wifi_profile
