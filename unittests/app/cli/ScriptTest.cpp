// What a scenario's script does to a run.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/cli/ScenarioRun.h"
#include "runtime/VirtualTimeRunLoop.h"

namespace wifi_profile::testing {
namespace {

using ::testing::AnyOf;
using ::testing::HasSubstr;
using ::testing::Not;

// Joined to Home, every test answered, PingLAN after a delay, with the given script.
ScenarioResult runWithScript(const std::string& steps, const std::string& delay = "5") {
  return runInVirtualTime(R"({"scenario":1,"status":[{"ssid":"Home","bssid":"02:00:00:00:00:01"}],
      "answers":{"PingLAN":[{"result":true,"didPass":true,"delay":)" +
                          delay + R"(}],"PingWAN":[{"result":true}]},"user":)" + steps + "}");
}

std::size_t positionOf(const std::string& trace, const std::string& event) {
  const auto position = trace.find(event);
  EXPECT_NE(position, std::string::npos) << event;
  return position;
}

TEST(Script, TeardownDuringATestEndsWithoutARecordAndDrainsTheWork) {
  const auto result = runWithScript(R"([{"teardown":true,"duringTest":"PingLAN"}])");
  EXPECT_EQ(result.ending, cli::Ending::tornDown);
  EXPECT_EQ(result.record, "");
  EXPECT_LT(positionOf(result.trace, R"("test":"PingLAN")"),
            positionOf(result.trace, R"("event":"host.teardown")"));
  EXPECT_LT(positionOf(result.trace, R"("event":"host.teardown")"),
            positionOf(result.trace, R"("test":"PingWAN")"));
  EXPECT_THAT(result.trace, HasSubstr(R"("event":"host.finished")"));  // late, and only shown
}

// Or else a request could begin something between the cancel and that.
TEST(Script, ATeardownClosesTheDeviceBeforeItCancelsItsRequests) {
  Wish wish;
  wish.traceClose = true;
  const auto result = runInVirtualTime(R"({"scenario":1,"user":[]})", 0, wish);
  EXPECT_LT(positionOf(result.trace, "host.teardown"), positionOf(result.trace, "device.close"));
  EXPECT_LT(positionOf(result.trace, "device.close"), result.trace.rfind("service.cancel"));
}

TEST(Script, ACancelReachesARequestThatWaitsOutADelay) {
  const auto result = runWithScript(R"([{"teardown":true,"duringTest":"PingLAN"}])");
  EXPECT_THAT(result.lines, HasSubstr("Ping LAN failed with error: cancelled"));
}

TEST(Script, ACancelPassesByARequestWithoutADelay) {
  const auto result = runWithScript(R"([{"teardown":true,"duringTest":"PingLAN"}])", "0");
  EXPECT_EQ(result.ending, cli::Ending::tornDown);
  EXPECT_THAT(result.lines, Not(HasSubstr("cancelled")));
}

TEST(Script, ATornDownRunIsNotTornDownAgainWhenItFinishes) {
  const auto result = runWithScript(R"([{"teardown":true,"duringTest":"PingLAN"}])");
  const auto first = positionOf(result.trace, "host.teardown");
  EXPECT_EQ(result.trace.find("host.teardown", first + 1), std::string::npos);
}

TEST(Script, TheHostTearsDownOnceAfterTheFinish) {
  const auto result = runWithScript("[]");
  EXPECT_EQ(result.ending, cli::Ending::finished);
  const auto finished = positionOf(result.trace, "host.finished");
  const auto first = positionOf(result.trace, "host.teardown");
  EXPECT_LT(finished, first);
  EXPECT_EQ(result.trace.find("host.teardown", first + 1), std::string::npos);
}

TEST(Script, LeftOverStepsAreIgnoredAfterTheFinish) {
  const auto result =
      runWithScript(R"([{"tapNext":true},{"teardown":true,"duringTest":"NoScanResults"}])");
  EXPECT_EQ(result.ending, cli::Ending::finished);
}

TEST(Script, PowerSwitchedFromOutsideIsNoNewsToARunWithoutAPicker) {
  const auto result = runWithScript(R"([{"setPower":false,"duringTest":"PingLAN"}])");
  EXPECT_EQ(result.ending, cli::Ending::finished);
  EXPECT_THAT(result.trace, Not(HasSubstr("device.power")));
}

TEST(Script, AWaitDuringATestHoldsUpItsAnswer) {
  const auto result = runWithScript(R"([{"wait":3,"duringTest":"PingLAN"}])");
  EXPECT_EQ(result.ending, cli::Ending::finished);
}

TEST(Script, StepsDuringTestsComeOneForEachRequest) {
  const auto result = runWithScript(
      R"([{"wait":1,"duringTest":"PingLAN"},{"teardown":true,"duringTest":"PingWAN"}])");
  EXPECT_EQ(result.ending, cli::Ending::tornDown);
  EXPECT_LT(positionOf(result.trace, R"("test":"PingWAN")"),
            positionOf(result.trace, "host.teardown"));
}

TEST(Interrupt, BeforeTheRunKeepsItFromStarting) {
  runtime::VirtualTimeRunLoop loop;
  const auto result =
      runScenario(R"({"scenario":1})", loop, {}, [](cli::DiagnosticRun& run) { run.interrupt(); });
  EXPECT_EQ(result.ending, cli::Ending::interrupted);
  EXPECT_THAT(result.trace, HasSubstr("host.teardown"));
  EXPECT_THAT(result.trace, Not(HasSubstr("host.setup")));
}

class ImpossibleStep : public ::testing::TestWithParam<const char*> {};

TEST_P(ImpossibleStep, StopsTheRunAndNamesTheStep) {
  const auto result = runWithScript("[" + std::string(GetParam()) + "]");
  EXPECT_EQ(result.ending, cli::Ending::stuck);
  EXPECT_THAT(result.reason,
              AnyOf("/user/0: the list of networks is not on the screen",
                    "/user/0: no alert is presented", "/user/0: the navigation bar has no button"));
  EXPECT_EQ(result.record, "");
}

INSTANTIATE_TEST_SUITE_P(Steps, ImpossibleStep,
                         ::testing::Values(R"({"tapNetwork":"Cafe","duringTest":"PingLAN"})",
                                           R"({"tapRow":[1,0],"duringTest":"PingLAN"})",
                                           R"({"tapOther":true,"duringTest":"PingLAN"})",
                                           R"({"type":"x","duringTest":"PingLAN"})",
                                           R"({"tapAction":"x","duringTest":"PingLAN"})",
                                           R"({"tapNext":true,"duringTest":"PingLAN"})",
                                           R"({"pullToRefresh":true,"duringTest":"PingLAN"})",
                                           R"({"scrollAway":1,"duringTest":"PingLAN"})"));

}  // namespace
}  // namespace wifi_profile::testing
