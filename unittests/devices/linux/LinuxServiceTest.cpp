#include <atomic>
#include <gtest/gtest.h>
#include <limits>
#include <thread>
#include <utility>

#include "devices/linux/Lines.h"
#include "devices/linux/LinuxFacts.h"
#include "devices/linux/LinuxService.h"
#include "devices/linux/ProbeTasks.h"
#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/Number.h"
#include "diagnostic/tests/Batches.h"

namespace wifi_profile::linux {
namespace {

using facts::Fact;
using facts::Facts;

// Facts that are known at once, or never.
class Finder final : public FactFinder {
 public:
  facts::Facts facts;
  bool scansForEver = false;
  std::atomic<int> scans = 0;
  std::atomic<int> runs = 0;
  std::atomic<int> sendings = 0;
  std::chrono::seconds oldest{-1};

  Result<facts::Link> link(const Deadline& /*deadline*/) override { return facts.link; }

  Result<facts::Scan> scan(std::chrono::seconds oldestScan, const Deadline& deadline) override {
    oldest = oldestScan;
    ++scans;
    if (scansForEver) sleepUntil(Deadline::in(std::chrono::minutes(1), deadline.stop));
    return facts.scan;
  }

  std::vector<FactTask> tasks(std::chrono::seconds oldestScan) override {
    ++runs;
    return {{.name = "sending",
             .gives = {facts::Fact::lanPings, facts::Fact::wanPings, facts::Fact::nameResolution,
                       facts::Fact::portalProbe, facts::Fact::siteReach, facts::Fact::sitePage,
                       facts::Fact::routerOutside},
             .after = {},
             .limit = std::chrono::minutes(1),
             .run = [this](const facts::Facts&, const Deadline&) -> Found {
               ++sendings;
               return [this](facts::Facts& all) {
                 all.portalProbe = facts.portalProbe ? facts.portalProbe : facts::PortalProbe{};
                 all.wanPings = facts.wanPings;
                 all.nameResolution = facts.nameResolution;
                 all.siteReach = facts.siteReach;
                 all.sitePage = facts.sitePage;
               };
             }},
            {.name = "link",
             .gives = {facts::Fact::link},
             .after = {},
             .limit = std::chrono::minutes(1),
             .run = [this](const facts::Facts&, const Deadline&) -> Found {
               return [link = facts.link](facts::Facts& all) { all.link = link; };
             }},
            {.name = "scan",
             .gives = {facts::Fact::scan},
             .after = {},
             .limit = std::chrono::minutes(1),
             .run = [this, oldestScan](const facts::Facts&, const Deadline& deadline) -> Found {
               return [found = scan(oldestScan, deadline)](facts::Facts& all) { all.scan = found; };
             }}};
  }
};

class LinuxServiceTest : public ::testing::Test {
 protected:
  LinuxServiceTest() {
    finder->facts.link = facts::Link{.interface = "wlan0",
                                     .ssid = "Home",
                                     .bssid = "02:00:00:00:00:01",
                                     .signal = -80,
                                     .frequency = 2437};
    finder->facts.scan =
        facts::Scan{{{.bssid = "02:00:00:00:00:01", .ssid = "Home", .signal = -80}}};
  }

  DiagnosticsTestResults ask(DiagnosticsTestID test, VqErrorRef& error,
                             std::int64_t oldestScan = 60) {
    return ask(test, error, {{"MaxScanCacheAge", Number::withInteger(oldestScan)}});
  }
  DiagnosticsTestResults ask(DiagnosticsTestID test, VqErrorRef& error,
                             Dictionary::Entries configuration) {
    return service.runDiagnosticsTests({VqDiagnosticsTestRequest::requestWithTestID(
                                           test, makeDictionary(std::move(configuration)))},
                                       nullptr, nullptr, error);
  }

  std::shared_ptr<Finder> finder = std::make_shared<Finder>();
  LinuxService service{finder, checks::defaultSettings()};
};

TEST_F(LinuxServiceTest, AnswersATestByItsCheck) {
  VqErrorRef error;
  const auto results = ask(DiagnosticsTestID::PoorSignal, error);
  ASSERT_EQ(error, nullptr);
  ASSERT_EQ(results->size(), 1U);
  EXPECT_TRUE(results->front()->result);
  EXPECT_EQ(as<Number>(results->front()->info->objectForKey("RSSI"))->toDouble(), -80);
}

TEST_F(LinuxServiceTest, WhatIsNotKnownIsAnErrorThatSaysWhy) {
  finder->facts.link = Error{Reason::notJoined, "Join a network."};
  VqErrorRef error;
  EXPECT_FALSE(ask(DiagnosticsTestID::PoorSignal, error));
  ASSERT_NE(error, nullptr);
  EXPECT_EQ(error->code(), static_cast<std::int64_t>(Reason::notJoined));
  EXPECT_EQ(error->description(), "Join a network.");
}

TEST_F(LinuxServiceTest, RemarksAndLogsWhyATestIsAnsweredBadly) {
  const auto log = std::make_shared<Lines>();
  const InstalledPlatform platform({.log = log.get()});
  finder->facts.wanPings = facts::Pings{.target = "192.0.2.1", .sent = 3};
  finder->facts.nameResolution =
      facts::NameResolution{.name = "example.com", .problem = "no name server"};
  finder->facts.siteReach = facts::SiteReach{.problem = "name: no name server"};
  finder->facts.sitePage = facts::SitePage{.problem = "name: no name server"};
  const auto remarkOn = [&](DiagnosticsTestID test) {
    VqErrorRef error;
    const auto results = ask(test, error);
    EXPECT_EQ(error, nullptr) << nameOf(test);
    const std::string remark = results->front()->remark;
    EXPECT_TRUE(remark.empty() || log->lines().back() == "0 error " + remark) << remark;
    return remark;
  };
  EXPECT_EQ(remarkOn(DiagnosticsTestID::PingWAN),
            "The ping of the Internet: no echo was answered by 192.0.2.1.");
  EXPECT_EQ(remarkOn(DiagnosticsTestID::PoorSignal), "");
  EXPECT_EQ(remarkOn(DiagnosticsTestID::ResolveDNS),
            "DNS lookup of example.com failed: no name server.");
  EXPECT_EQ(remarkOn(DiagnosticsTestID::ReachOrvane),
            "The connection to the site: name: no name server.");
  EXPECT_EQ(remarkOn(DiagnosticsTestID::RetrieveOrvane),
            "The page of the site: name: no name server.");
  EXPECT_EQ(log->lines().size(), 4U);
}

TEST_F(LinuxServiceTest, LogsNothingOfTheJoinedNetworkForTestsOfAnother) {
  const auto log = std::make_shared<Lines>();
  const InstalledPlatform platform({.log = log.get()});
  using facts::PortalProbe;
  finder->facts.portalProbe =
      facts::PortalProbe{.answer = facts::PortalProbe::Answer::portal, .detail = "status 511"};
  finder->facts.scan->accessPoints.push_back({.bssid = "02:00:00:00:00:02",
                                              .ssid = "Elsewhere",
                                              .signal = -60,
                                              .additionalStepNeeded = true});
  VqErrorRef error;
  ASSERT_TRUE(ask(DiagnosticsTestID::CaptivePortal, error));
  EXPECT_EQ(log->lines().size(), 1U);
  ASSERT_TRUE(
      ask(DiagnosticsTestID::CaptivePortal, error, {{"NetworkName", makeText("Elsewhere")}}));
  EXPECT_EQ(log->lines().size(), 1U);
}

TEST_F(LinuxServiceTest, FindsEverythingOutOnceARun) {
  VqErrorRef error;
  ask(DiagnosticsTestID::PoorSignal, error);
  ask(DiagnosticsTestID::HiddenNetwork, error);
  EXPECT_EQ(finder->runs, 1);
  EXPECT_EQ(finder->scans, 1);
  EXPECT_EQ(finder->oldest, std::chrono::seconds(60));
}

TEST_F(LinuxServiceTest, TakesAnAgeThatIsNoTimeForNone) {
  VqErrorRef error;
  for (const double age : {std::numeric_limits<double>::quiet_NaN(), -1.0, -1e300}) {
    ask(DiagnosticsTestID::NoScanResults, error, {{"MaxScanCacheAge", Number::withDouble(age)}});
    EXPECT_EQ(finder->oldest, std::chrono::seconds(0)) << age;
  }
  for (const double age : {1e9, 1e300, std::numeric_limits<double>::infinity()}) {
    ask(DiagnosticsTestID::NoScanResults, error, {{"MaxScanCacheAge", Number::withDouble(age)}});
    EXPECT_EQ(finder->oldest, std::chrono::seconds(1'000'000'000)) << age;
  }
}

TEST_F(LinuxServiceTest, SendsNothingForTestsOfTheDevice) {
  VqErrorRef error;
  for (const DiagnosticsTestID test : kDeviceConfigurationBatch) ask(test, error);
  EXPECT_EQ(finder->sendings, 0);
  ask(DiagnosticsTestID::PingLAN, error);
  EXPECT_EQ(finder->sendings, 1);
}

TEST_F(LinuxServiceTest, BeginsToSendWithTestsOfTheDeviceThatNameTheJoinedNetwork) {
  const auto sendingsAfter = [this](const char* joined, const char* named) {
    finder->facts.link->ssid = joined;
    finder->sendings = 0;
    VqErrorRef error;
    ask(DiagnosticsTestID::PoorSignal, error, {{"NetworkName", makeText(named)}});
    service.cancelAllRequests();
    return finder->sendings.load();
  };
  EXPECT_EQ(sendingsAfter("Home", "Elsewhere"), 0);
  EXPECT_EQ(sendingsAfter("Home_nomap", "Home_nomap"), 0);  // which are not tested
  finder->facts.link->ssid = "Home";
  VqErrorRef error;
  ask(DiagnosticsTestID::PoorSignal, error, {{"NetworkName", makeText("Home")}});
  ask(DiagnosticsTestID::PingLAN, error);
  EXPECT_EQ(finder->sendings, 1);
}

// What is sent first waits for the services at most, where the scan is the kernel's last one.
TEST(LimitsOfARun, LeaveTheLastAnswerWithin15SecondsOfTheScan) {
  Lines log;
  const InstalledPlatform platform({.log = &log});
  std::vector<FactTask> tasks;
  addProbeTasks(tasks, "lo", {});
  for (const FactTask& task : tasks) {
    EXPECT_LT(kServicesLimit + kGrace + task.limit + kGrace, std::chrono::seconds(15)) << task.name;
  }
}

TEST_F(LinuxServiceTest, SendsNothingThroughTheJoinedNetworkForTestsOfAnother) {
  VqErrorRef error;
  ask(DiagnosticsTestID::CaptivePortal, error, {{"NetworkName", makeText("Elsewhere")}});
  EXPECT_EQ(finder->sendings, 0);
  error = nullptr;
  ask(DiagnosticsTestID::CaptivePortal, error, {{"NetworkName", makeText("Home")}});
  EXPECT_EQ(finder->sendings, 1);
}

TEST_F(LinuxServiceTest, ACancelEndsTheRunAndTheNextFindsOutAnew) {
  VqErrorRef error;
  ask(DiagnosticsTestID::PoorSignal, error);
  service.cancelAllRequests();
  ask(DiagnosticsTestID::PoorSignal, error);
  EXPECT_EQ(error, nullptr);
  EXPECT_EQ(finder->runs, 2);
}

TEST_F(LinuxServiceTest, EveryScanOfTheListScans) {
  VqErrorRef error;
  ask(DiagnosticsTestID::NoScanResults, error, 0);
  const auto results = ask(DiagnosticsTestID::NoScanResults, error, 0);
  EXPECT_EQ(error, nullptr);
  EXPECT_FALSE(results->front()->result);
  EXPECT_TRUE(results->front()->didPass);
  EXPECT_EQ(finder->scans, 2);
  EXPECT_EQ(finder->oldest, std::chrono::seconds(0));
  EXPECT_EQ(finder->runs, 0);  // nothing else is found out for a list
}

TEST_F(LinuxServiceTest, ACancelFailsWhatIsUnderWay) {
  finder->scansForEver = true;
  for (const auto test : {DiagnosticsTestID::NoScanResults, DiagnosticsTestID::HiddenNetwork}) {
    const int before = finder->scans;
    VqErrorRef error;
    std::thread request([&] { ask(test, error); });
    while (finder->scans == before) std::this_thread::yield();
    service.cancelAllRequests();
    request.join();
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->code(), LinuxService::kCancelled);
  }
}

TEST_F(LinuxServiceTest, AClosedServiceCancelsEverything) {
  service.close();
  for (const auto test : {DiagnosticsTestID::NoScanResults, DiagnosticsTestID::PoorSignal}) {
    VqErrorRef error;
    EXPECT_FALSE(ask(test, error));
    ASSERT_NE(error, nullptr);
    EXPECT_EQ(error->code(), LinuxService::kCancelled);
  }
  EXPECT_EQ(finder->scans + finder->runs, 0);
}

TEST_F(LinuxServiceTest, TheStatusIsTheLink) {
  VqErrorRef error;
  const auto status = service.queryStatusForPeer(nullptr, error);
  EXPECT_EQ(error, nullptr);
  EXPECT_EQ(status->wifi->ssidString->string(), "Home");
  EXPECT_EQ(status->wifi->bssid->string(), "02:00:00:00:00:01");
}

TEST_F(LinuxServiceTest, NotBeingJoinedIsAStatusToo) {
  finder->facts.link = Error{Reason::notJoined, "Join a network."};
  VqErrorRef error;
  EXPECT_EQ(service.queryStatusForPeer(nullptr, error)->wifi->ssidString, nullptr);
  EXPECT_EQ(error, nullptr);
  finder->facts.link = Error{Reason::noHardware, "It is gone."};
  service.queryStatusForPeer(nullptr, error);
  ASSERT_NE(error, nullptr);
  EXPECT_EQ(error->description(), "It is gone.");
}

}  // namespace
}  // namespace wifi_profile::linux
