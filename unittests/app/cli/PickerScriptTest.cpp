// What a scenario's user does on the network picker.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

#include "app/cli/ScenarioRun.h"

namespace wifi_profile::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

// Joined to Home, with Cafe and Lab in range; the second scan has lost Cafe and found Bistro.
ScenarioResult pick(const std::string& steps, const std::string& device = "{}") {
  Wish wish;
  wish.pick = true;
  return runInVirtualTime(
      R"({"scenario":1,"device":)" + device +
          R"(,"status":[{"ssid":"Home","bssid":"02:01"}],"answers":{"NoScanResults":[
        {"result":true,"didPass":true,"delay":2,"times":1,"info":{"ScanResults":[
          {"ssid":"Lab","bssid":"02:03","rssi":-70},{"ssid":"Home","bssid":"02:01","rssi":-40},
          {"ssid":"Cafe","bssid":"02:02","rssi":-60}]}},
        {"result":true,"didPass":true,"delay":2,"info":{"ScanResults":[
          {"ssid":"Lab","bssid":"02:03","rssi":-70},{"ssid":"Home","bssid":"02:01","rssi":-40},
          {"ssid":"Bistro","bssid":"02:04","rssi":-60}]}}]},"user":)" +
          steps + "}",
      0, wish);
}

std::vector<nlohmann::json> eventsOf(const ScenarioResult& result, const std::string& name) {
  std::vector<nlohmann::json> events;
  std::istringstream lines(result.trace);
  for (std::string line; std::getline(lines, line);) {
    auto event = nlohmann::json::parse(line);
    if (event["event"] == name) events.push_back(std::move(event));
  }
  return events;
}

std::vector<std::string> rows(const nlohmann::json& screen, const char* section) {
  return screen[section].get<std::vector<std::string>>();
}

TEST(PickerScript, SeesTheJoinedNetworkSelectedAndTheOthersListed) {
  const auto screen = eventsOf(pick(R"([{"tapNext":true}])"), "screen").front();
  EXPECT_THAT(rows(screen, "selected"), ElementsAre("Home"));
  EXPECT_THAT(rows(screen, "networks"), ElementsAre("Cafe", "Lab", "OTHER"));
  EXPECT_THAT(rows(screen, "addresses"), ElementsAre("02:02", "02:03"));
  EXPECT_EQ(screen["next"], "enabled");
  EXPECT_EQ(screen["spinner"], false);
  EXPECT_TRUE(screen["alert"].is_null());
  EXPECT_TRUE(screen["label"].is_null());
}

TEST(PickerScript, SeesTheNetworkChosenBeforeBackInTheList) {
  const auto screens =
      eventsOf(pick(R"([{"tapNetwork":"Lab"},{"tapNetwork":"Cafe"},{"tapNext":true}])"), "screen");
  EXPECT_THAT(rows(screens.at(1), "selected"), ElementsAre("Lab"));
  EXPECT_THAT(rows(screens.at(1), "networks"), ElementsAre("Cafe", "Home", "OTHER"));
  EXPECT_THAT(rows(screens.at(2), "selected"), ElementsAre("Cafe"));
  EXPECT_THAT(rows(screens.at(2), "networks"), ElementsAre("Home", "Lab", "OTHER"));
}

TEST(PickerScript, SeesThePickerGiveWayToTheProgressScreen) {
  const auto last = eventsOf(pick(R"([{"tapNext":true}])"), "screen").back();
  EXPECT_TRUE(last["selected"].empty());
  EXPECT_TRUE(last["networks"].empty());
  EXPECT_TRUE(last["next"].is_null());
  EXPECT_EQ(last["label"], "PROGRESS_TEXT");
  EXPECT_EQ(last["progress"], 1.0);
}

TEST(PickerScript, ChangesOnlyTheRowsThatAPullLosesAndFinds) {
  const auto result = pick(R"([{"pullToRefresh":true},{"tapNext":true}])");
  EXPECT_THAT(result.trace, HasSubstr(R"("op":"delete","rows":[[1,0]],"animation":0)"));
  EXPECT_THAT(result.trace, HasSubstr(R"("op":"insert","rows":[[1,0]],"animation":0)"));
  EXPECT_THAT(rows(eventsOf(result, "screen").at(1), "networks"),
              ElementsAre("Bistro", "Lab", "OTHER"));
}

TEST(PickerScript, TurnsTheSpinnerOnWhenItsHeaderComesBackDuringAScan) {
  const auto events = eventsOf(
      pick(R"([{"scrollAway":1,"duringTest":"NoScanResults"},{"tapNext":true}])"), "ui.spinner");
  // Shown, reloaded, scrolled back, and then the scan's end.
  EXPECT_EQ(events.size(), 4U);
  EXPECT_EQ(events.back()["op"], "stop");
}

TEST(PickerScript, EditsATextAndSeesTheActionFollow) {
  const auto result = pick(R"([{"tapOther":true},{"type":" "},{"type":""},{"type":"Keller"},
      {"tapAction":"DONE"},{"tapNext":true}])");
  const auto alerts = eventsOf(result, "ui.alert");
  ASSERT_EQ(alerts.size(), 5U);
  EXPECT_EQ(alerts[0]["message"], "OTHER_NETWORK_MESSAGE");
  EXPECT_EQ(alerts[0]["actions"].dump(), R"([{"enabled":true,"style":"cancel","title":"CANCEL"},)"
                                         R"({"enabled":false,"style":"default","title":"DONE"}])");
  EXPECT_EQ(alerts[0]["textField"]["placeholder"], "OTHER_NETWORK_PLACEHOLDER");
  EXPECT_EQ(alerts[1]["enabled"], true);
  EXPECT_EQ(alerts[2]["enabled"], false);
  EXPECT_EQ(alerts[3]["enabled"], true);
  EXPECT_EQ(alerts[4]["title"], "DONE");
  EXPECT_THAT(result.trace, HasSubstr(R"("NetworkName":"Keller")"));
}

TEST(PickerScript, IsRepairedWhereARepeatedPowerOnAddsRowsThatAreThere) {
  const auto result = pick(R"([{"setPower":true},{"tapNext":true}])");
  std::string repaired;
  for (const auto& event : eventsOf(result, "ui.table")) {
    if (event["op"] == "repaired") repaired += event.dump();
  }
  EXPECT_THAT(repaired, HasSubstr(R"("before":3,"deleted":0,"event":"ui.table","expected":3,)"
                                  R"("inserted":2,"op":"repaired","section":1)"));
  EXPECT_THAT(rows(eventsOf(result, "screen").at(1), "networks"),
              ElementsAre("Bistro", "Lab", "OTHER"));
}

// Two scans that hear the same.
ScenarioResult pickAmong(const std::string& results, const std::string& steps) {
  Wish wish;
  wish.pick = true;
  return runInVirtualTime(
      R"({"scenario":1,"answers":{"NoScanResults":[{"result":true,"didPass":true,"info":
        {"ScanResults":)" +
          results + R"(}}]},"user":)" + steps + "}",
      0, wish);
}

TEST(PickerScript, TestsTheNetworkOfTheRowThatIsTappedAmongEqualNames) {
  for (const char* const other : {"guest", "\uFF27uest"}) {
    SCOPED_TRACE(other);
    const auto result = pickAmong(
        R"([{"ssid":"Guest","bssid":"02:01"},{"ssid":")" + std::string(other) +
            R"(","bssid":"02:02"},{"ssid":"Cafe","bssid":"02:03"}])",
        R"([{"tapNetwork":"Guest"},{"tapNetwork":"Cafe"},{"pullToRefresh":true},{"tapNetwork":")" +
            std::string(other) + R"("},{"tapNext":true}])");
    int requests = 0;
    for (const auto& event : eventsOf(result, "service.request")) {
      const auto& configuration = event["configuration"];
      if (!configuration.is_object() || !configuration.contains("NetworkName")) continue;
      ++requests;
      EXPECT_EQ(configuration["NetworkName"], other);
    }
    EXPECT_GT(requests, 0);
  }
}

TEST(PickerScript, EmptiesTheListWhenARescanHearsNothing) {
  Wish wish;
  wish.pick = true;
  const auto result = runInVirtualTime(R"({"scenario":1,"answers":{"NoScanResults":[
      {"times":1,"result":true,"didPass":true,"info":{"ScanResults":[
        {"ssid":"Cafe","bssid":"02:01"},{"ssid":"Lab","bssid":"02:02"}]}},
      {"result":true,"didPass":true,"info":{"ScanResults":[]}}]},
      "user":[{"pullToRefresh":true},{"tapNetwork":"Cafe"}]})",
                                       0, wish);
  const auto last = eventsOf(result, "screen").back();
  EXPECT_THAT(rows(last, "networks"), ElementsAre("OTHER"));
  EXPECT_TRUE(last["addresses"].empty());
  EXPECT_EQ(result.ending, cli::Ending::stuck);
  EXPECT_THAT(result.reason, HasSubstr("no row \"Cafe\""));
}

TEST(PickerScript, GivesUpEveryHandleOnceManagerFirst) {
  for (const char* const steps :
       {R"([{"tapNext":true}])", R"([{"setPower":false}])", R"([{"teardown":true}])",
        R"([{"pullToRefresh":true},{"duringTest":"NoScanResults","setPower":false}])"}) {
    SCOPED_TRACE(steps);
    const std::string trace = pick(steps).trace;
    const auto manager = trace.find("manager.release");
    const auto device = trace.find("device.release");
    EXPECT_LT(manager, device);
    EXPECT_EQ(trace.find("manager.release", manager + 1), std::string::npos);
    EXPECT_EQ(trace.find("device.release", device + 1), std::string::npos);
    const auto list = trace.find("devices.release");
    EXPECT_EQ(trace.find("devices.release", list + 1), std::string::npos);
  }
}

struct Obstacle {
  const char* steps;
  const char* reason;
  const char* device = "{}";
};

std::ostream& operator<<(std::ostream& out, const Obstacle& obstacle) {
  return out << obstacle.steps;
}

class PickerObstacle : public ::testing::TestWithParam<Obstacle> {};

TEST_P(PickerObstacle, StopsTheRunAndSaysWhatIsInTheWay) {
  const auto result = pick(GetParam().steps, GetParam().device);
  EXPECT_EQ(result.ending, cli::Ending::stuck);
  EXPECT_EQ(result.reason, GetParam().reason);
  EXPECT_THAT(result.trace, HasSubstr("host.teardown"));
}

TEST(PickerScript, CannotTapAButtonThatWaitsForAChoice) {
  Wish wish;
  wish.pick = true;
  const auto result = runInVirtualTime(R"({"scenario":1,"user":[{"tapNext":true}]})", 0, wish);
  EXPECT_EQ(result.reason, "/user/0: the button is disabled");
}

INSTANTIATE_TEST_SUITE_P(
    Steps, PickerObstacle,
    ::testing::Values(
        Obstacle{R"([{"tapNetwork":"Nowhere"}])",
                 R"(/user/0: no row "Nowhere" in the list of networks)"},
        Obstacle{R"([{"tapRow":[1,3]}])", "/user/0: no row 3 in section 1, which has 3 rows"},
        Obstacle{R"([{"tapRow":[0,0]}])", "/user/0: the row cannot be tapped"},
        Obstacle{R"([{"pullToRefresh":true},{"duringTest":"NoScanResults","tapRow":[1,0]}])",
                 "/user/1: the list is being refreshed"},
        Obstacle{R"([{"pullToRefresh":true},{"duringTest":"NoScanResults","pullToRefresh":true}])",
                 "/user/1: the list is being refreshed"},
        Obstacle{R"([{"wait":1}])",
                 "/user: the run waits after step 0, and there is no further step"},
        Obstacle{R"([{"pullToRefresh":true,"duringTest":"NoScanResults"}])",
                 "/user/0: the list cannot be refreshed yet"},
        Obstacle{R"([{"scrollAway":2}])", "/user/0: no section 2 in the table"},
        Obstacle{R"([{"tapOther":true},{"tapNext":true}])", "/user/1: an alert covers the screen"},
        Obstacle{R"([{"tapOther":true},{"tapAction":"DONE"}])",
                 R"(/user/1: the action "DONE" is disabled)"},
        Obstacle{R"([{"tapOther":true},{"tapAction":"YES"}])",
                 R"(/user/1: no action "YES" in the alert)"},
        Obstacle{R"([{"type":"x"}])", "/user/0: no alert is presented"},
        Obstacle{R"([{"type":"x"}])", "/user/0: the alert has no text field",
                 R"({"power":false})"}),
    [](const auto& test) { return std::to_string(test.index); });

}  // namespace
}  // namespace wifi_profile::testing
