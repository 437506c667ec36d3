// The diagnostics service of this machine.
#pragma once

#include <chrono>
#include <functional>
#include <list>
#include <memory>
#include <mutex>

#include "checks/Checks.h"
#include "devices/linux/Gathering.h"
#include "platform/DiagnosticsService.h"
#include "platform/Trace.h"

namespace wifi_profile::machine {

// Who finds facts out. Any thread.
class FactFinder : public Interface {
 public:
  virtual checks::Known<checks::Link> link(const Patience& patience) = 0;

  // A scan no older than `oldest`; with 0 a new one.
  virtual checks::Known<checks::Scan> scan(std::chrono::seconds oldest,
                                           const Patience& patience) = 0;

  // How everything is found out for one run of tests.
  virtual std::vector<Errand> errands(std::chrono::seconds oldestScan) = 0;
};

// Answers every test from facts, by its check. The first request of a run (other than for the scan
// of the list, NoScanResults, which scans for itself) begins to find everything out, side by side,
// but for what must be sent through the joined network: the first that asks that network for some
// of it, or names it as the one that the run is about, begins with all of it. Why something was not
// reached goes to the log with the test that it decides, on the thread that asks. A cancel ends
// that run, and the requests that wait for it, at once. Any thread.
class LinuxService final : public VqClient {
 public:
  // `trace` must outlive the service.
  LinuxService(std::shared_ptr<FactFinder> finder, checks::Settings settings, Trace& trace);

  DiagnosticsTestResults runDiagnosticsTests(const VqDiagnosticsTestRequests& requests,
                                             const VqPeer* peer, const VqTestUpdate& update,
                                             VqErrorRef& error) override;
  std::shared_ptr<const VqStatus> queryStatusForPeer(const VqPeer* peer,
                                                     VqErrorRef& error) override;
  void cancelAllRequests() override;

  // Ends everything: requests under way, and all that come later, are cancelled.
  void close();

  // Code of a request that was cancelled; the others are those of checks::Reason.
  static constexpr std::int64_t kCancelled = 2;

  // Longest time for the status.
  static constexpr std::chrono::milliseconds kStatusLimit{2'000};

 private:
  using Outcome = std::variant<DiagnosticsTestResult, VqErrorRef>;

  Outcome serve(const VqDiagnosticsTestRequest& request);
  std::optional<checks::Facts> factsFor(const VqDiagnosticsTestRequest& request);
  void beginEarly(Gathering& running, const VqDiagnosticsTestRequest& request);
  std::optional<checks::Facts> awaitFacts(Gathering& running,
                                          const VqDiagnosticsTestRequest& request);
  std::shared_ptr<Gathering> gathering(const VqDiagnosticsTestRequest& request);

  const std::shared_ptr<FactFinder> finder_;
  const checks::Settings settings_;
  Trace& trace_;
  std::mutex mutex_;  // guards what follows
  bool closed_ = false;
  std::shared_ptr<Gathering> gathering_;
  // Those that were cancelled: nobody waits for their threads but the destructor.
  std::vector<std::shared_ptr<Gathering>> ended_;
  // Scans of the list that are under way.
  std::list<std::shared_ptr<Cancellation>> scans_;
};

}  // namespace wifi_profile::machine
