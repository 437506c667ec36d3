// What the collector of outcomes keeps, event by event.
#include <gtest/gtest.h>

#include "report/OutcomeCollector.h"

namespace wifi_profile::report {
namespace {

using enum DiagnosticsTestID;

class OutcomeCollectorTest : public ::testing::Test {
 protected:
  void answer(DiagnosticsTestID test, const Result<bool>& verdict) {
    collector_.testEnded({.section = Section::currentNetwork, .test = test, .verdict = verdict});
  }
  std::optional<TestOutcome> outcomeOf(DiagnosticsTestID test) const {
    return collector_.collected().tests.at({Section::currentNetwork, test});
  }

  OutcomeCollector collector_;
  const Error busy_{Reason::failed, "busy"};
};

TEST_F(OutcomeCollectorTest, IgnoresEventsAfterTheEndOfTheRun) {
  collector_.testStarted(Section::currentNetwork, PingWAN);
  collector_.runEnded();
  answer(PingWAN, Error{Reason::failed, "cancelled"});
  collector_.testStarted(Section::currentNetwork, ResolveDNS);
  collector_.statusWasQueried(busy_);
  EXPECT_EQ(outcomeOf(PingWAN), std::nullopt);
  EXPECT_EQ(collector_.collected().tests.size(), 1U);
  EXPECT_FALSE(collector_.collected().statusError);
}

TEST_F(OutcomeCollectorTest, KeepsTheLatestVerdictOfATestThatRunsSeveralTimes) {
  answer(NoScanResults, busy_);
  answer(NoScanResults, Error{Reason::failed, "still busy"});
  EXPECT_EQ(outcomeOf(NoScanResults)->verdict.error().message, "still busy");
  answer(NoScanResults, true);
  answer(NoScanResults, busy_);
  EXPECT_EQ(outcomeOf(NoScanResults)->verdict, true);
  answer(NoScanResults, false);
  EXPECT_EQ(outcomeOf(NoScanResults)->verdict, false);
}

TEST_F(OutcomeCollectorTest, KeepsTheStatusErrorAsOfTheFirstTestOfTheDevice) {
  collector_.statusWasQueried(busy_);
  EXPECT_EQ(collector_.collected().statusError, busy_);
  collector_.statusWasQueried(std::nullopt);
  collector_.testStarted(Section::currentNetwork, NoScanResults);
  collector_.statusWasQueried(busy_);
  collector_.testStarted(Section::device, CustomDNS);
  collector_.statusWasQueried(std::nullopt);
  EXPECT_EQ(collector_.collected().statusError, busy_);
}

}  // namespace
}  // namespace wifi_profile::report
