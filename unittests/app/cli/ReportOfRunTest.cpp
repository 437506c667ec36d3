// Reports of whole runs of scenarios.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "app/cli/ScenarioRun.h"
#include "report/ReportText.h"

namespace wifi_profile::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

Wish picking() {
  Wish wish;
  wish.pick = true;
  return wish;
}

report::Report reportOn(const std::string& json, const Wish& wish = picking()) {
  const ScenarioResult result = runInVirtualTime(json, 0, wish);
  EXPECT_EQ(result.ending, cli::Ending::finished) << result.reason;
  return result.report;
}

std::string textOn(const std::string& json, const Wish& wish = picking()) {
  return report::reportText(reportOn(json, wish), {});
}

TEST(ReportOfARun, StopsWhereTheRadioWasSwitchedOff) {
  for (const char* const delay : {"", R"(, "delay": 3)"}) {
    const std::string shown = textOn(R"({"scenario": 1, "status": [{"ssid": "Home"}],
      "answers": {"CustomIPv4": [{"result": false}], "CustomIPv6": [{"result": false}],
                  "CustomDNS": [{"error": {"code": 1, "description": "no bus"}}],
                  "CustomWebProxy": [{"result": false)" +
                                     std::string(delay) + R"(}]},
      "user": [{"tapNext": true}, {"duringTest": "CustomWebProxy", "setPower": false}]})");
    EXPECT_THAT(shown, HasSubstr("Wi-Fi was switched off while the tests ran: 3 of 40 tests"));
    EXPECT_THAT(shown, HasSubstr("Wi-Fi profile: ended early, after 3 of 40 tests: 2 fine, 1 not"));
    EXPECT_THAT(shown, HasSubstr("under way and not answered: Do web pages go through a proxy"));
    EXPECT_THAT(shown, HasSubstr("(no bus)"));
    EXPECT_THAT(shown, Not(HasSubstr("reason unknown")));
    EXPECT_THAT(shown, Not(HasSubstr("cancelled")));
    EXPECT_THAT(shown, Not(HasSubstr("Current network")));
  }
}

TEST(ReportOfARun, SaysThatNothingWasTestedWhenTheRadioWasSwitchedOffInTheList) {
  const std::string shown = textOn(R"({"scenario": 1, "status": [{"ssid": "Home"}],
    "user": [{"setPower": false}]})");
  EXPECT_THAT(shown, HasSubstr("ended early, before the tests"));
  EXPECT_THAT(shown, HasSubstr("Wi-Fi is off, so no network could be chosen."));
}

// The radio comes back: the list, which is no longer shown, asks for the status and scans again.
TEST(ReportOfARun, NamesTheNetworkThatItsTestsBeganWith) {
  const auto report = reportOn(R"({"scenario": 1,
    "status": [{"ssid": "Home"}, {"ssid": "Elsewhere"}],
    "answers": {"NoScanResults": [{"times": 1, "result": false, "didPass": true, "info": {"ScanResults": []}},
                                  {"error": {"code": 1, "description": "busy"}}],
                "PingLAN": [{"result": true, "delay": 1}]},
    "user": [{"tapNext": true}, {"duringTest": "PingLAN", "setPower": true}]})");
  ASSERT_EQ(report.sections.size(), 3U);
  EXPECT_EQ(report.sections[1].title, "Current network: Home");
  EXPECT_THAT(report::reportText(report, {}), Not(HasSubstr("busy")));
}

TEST(ReportOfARun, DoesNotTakeTheListsFailedScanForAGap) {
  const auto report = reportOn(R"({"scenario": 1, "status": [{"ssid": "Home"}],
    "answers": {"NoScanResults": [{"error": {"code": 1, "description": "busy"}, "delay": 2}],
                "CustomDNS": [{"result": false, "delay": 5}]},
    "user": [{"tapNext": true}]})");
  EXPECT_THAT(report::reportText(report, {}), Not(HasSubstr("busy")));
}

TEST(ReportOfARun, SaysOnceThatTheNamedNetworkWasNotHeard) {
  const std::string shown = textOn(projectFile("scenarios/demo.json"), Wish("Nope"));
  std::size_t times = 0;
  for (std::size_t at = 0; (at = shown.find("was not heard", at)) != std::string::npos; ++at) {
    ++times;
  }
  EXPECT_EQ(times, 1U);
  EXPECT_THAT(shown, HasSubstr("could not be answered: The network \"Nope\" was not heard"));
}

}  // namespace
}  // namespace wifi_profile::testing
