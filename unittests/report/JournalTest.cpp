// What the journal of a run keeps, event by event.
#include <functional>
#include <gtest/gtest.h>
#include <thread>

#include "report/ReportFixture.h"

namespace wifi_profile::report {
namespace {

class JournalTest : public ReportFixture {
 protected:
  static void onAnotherThread(const std::function<void()>& work) { std::thread(work).join(); }

  void statusFailed(const std::string& why) {
    journal_.event("service.status",
                   {{"error", integer(9)}, {"ssid", nullptr}, {"bssid", nullptr}});
    log("Query Status failed with error: " + why);
  }

  TestLines ofDevice(DiagnosticsTestID test) const {
    return journal_.linesOf(Section::device, test);
  }
  TestLines ofCurrent(DiagnosticsTestID test) const {
    return journal_.linesOf(Section::currentNetwork, test);
  }
};

using Texts = std::vector<std::string>;

TEST_F(JournalTest, GivesALineToTheTestThatItsThreadAskedForLast) {
  request(DiagnosticsTestID::CustomDNS);
  onAnotherThread([this] {
    request(DiagnosticsTestID::NoScanResults);
    log("No Scan Results failed with error: busy");
  });
  log("Custom DNS failed with error: timed out");
  EXPECT_EQ(ofDevice(DiagnosticsTestID::CustomDNS).ofDiagnostic,
            Texts{"Custom DNS failed with error: timed out"});
  EXPECT_EQ(ofCurrent(DiagnosticsTestID::NoScanResults).ofDiagnostic,
            Texts{"No Scan Results failed with error: busy"});
}

TEST_F(JournalTest, GivesNoTestALineOfAThreadThatAskedForNone) {
  request(DiagnosticsTestID::CustomDNS);
  onAnotherThread([this] { logOfService("The system bus: no answer."); });
  EXPECT_TRUE(ofDevice(DiagnosticsTestID::CustomDNS).empty());
}

TEST_F(JournalTest, KeepsTheServicesLinesApartFromTheDiagnostics) {
  request(DiagnosticsTestID::PoorSignal);
  logOfService("The driver: too old.");
  log("Noise not found.");
  EXPECT_EQ(ofCurrent(DiagnosticsTestID::PoorSignal).ofService, Texts{"The driver: too old."});
  EXPECT_EQ(ofCurrent(DiagnosticsTestID::PoorSignal).ofDiagnostic, Texts{"Noise not found."});
}

TEST_F(JournalTest, EndsWithTheOrderToEnd) {
  request(DiagnosticsTestID::PingWAN);
  journal_.event("service.cancel", {});
  log("Ping WAN failed with error: cancelled");
  request(DiagnosticsTestID::ResolveDNS);
  EXPECT_TRUE(journal_.wasRequested(Section::currentNetwork, DiagnosticsTestID::PingWAN));
  EXPECT_TRUE(ofCurrent(DiagnosticsTestID::PingWAN).empty());
  EXPECT_FALSE(journal_.wasRequested(Section::currentNetwork, DiagnosticsTestID::ResolveDNS));
}

TEST_F(JournalTest, KeepsWhyTheStatusIsNotKnownAsOfTheFirstTest) {
  statusFailed("no bus");
  EXPECT_NE(journal_.statusFailure().find("no bus"), std::string::npos);
  journal_.event("service.status", {{"error", nullptr}, {"ssid", nullptr}, {"bssid", nullptr}});
  EXPECT_EQ(journal_.statusFailure(), "");
  request(DiagnosticsTestID::CustomDNS);
  onAnotherThread([this] { statusFailed("a refresh's"); });
  EXPECT_EQ(journal_.statusFailure(), "");
  EXPECT_TRUE(ofDevice(DiagnosticsTestID::CustomDNS).empty());
}

}  // namespace
}  // namespace wifi_profile::report
