// The diagnostics service of this machine.
#pragma once

#include <chrono>
#include <functional>
#include <list>
#include <memory>
#include <stop_token>

#include "analysis/checks/Checks.h"
#include "devices/linux/FactCollection.h"
#include "diagnostic/platform/DiagnosticsService.h"
#include "diagnostic/platform/Mutex.h"

namespace wifi_profile::linux {

// Finds the facts that the service needs. Any thread.
class FactFinder : public Interface {
 public:
  virtual Result<facts::Link> link(const Deadline& deadline) = 0;

  // Returns a scan no older than `oldest`; 0 requests a new scan.
  virtual Result<facts::Scan> scan(std::chrono::seconds oldest, const Deadline& deadline) = 0;

  // Returns the tasks that find all facts of one run of tests.
  virtual std::vector<FactTask> tasks(std::chrono::seconds oldestScan) = 0;
};

// Answers every test by applying its check to the facts.
//
// The first request of a run starts all tasks in parallel, except those that send packets through
// the joined network. These start, all at once, with the first request that needs one of them for
// the joined network or that names the joined network as the one that the run is about. A request
// for the scan of the list (NoScanResults) is not part of a run: it makes a scan of its own.
//
// The reason why something was not reached is the remark of the result that it decides, and is
// logged with it. A cancel ends the run and the requests that wait for it, at once. Any thread.
class LinuxService final : public VqClient {
 public:
  LinuxService(std::shared_ptr<FactFinder> finder, checks::Settings settings);

  DiagnosticsTestResults runDiagnosticsTests(const VqDiagnosticsTestRequests& requests,
                                             const VqPeer* peer, const VqTestUpdate& update,
                                             VqErrorRef& error) override;
  std::shared_ptr<const VqStatus> queryStatusForPeer(const VqPeer* peer,
                                                     VqErrorRef& error) override;
  void cancelAllRequests() override;

  // Cancels the requests under way and all later ones.
  void close();

  // Error code of a cancelled request; the other codes are those of checks::Reason.
  static constexpr std::int64_t kCancelled = 2;

  // Longest time that a status query takes.
  static constexpr std::chrono::milliseconds kStatusLimit{2'000};

 private:
  using Outcome = std::variant<DiagnosticsTestResult, VqErrorRef>;

  Outcome serve(const VqDiagnosticsTestRequest& request);
  FactCollection::FactsRef factsFor(const VqDiagnosticsTestRequest& request);
  void beginEarly(FactCollection& running, const VqDiagnosticsTestRequest& request);
  FactCollection::FactsRef awaitFacts(FactCollection& running,
                                      const VqDiagnosticsTestRequest& request);
  std::shared_ptr<FactCollection> collection(const VqDiagnosticsTestRequest& request);

  const std::shared_ptr<FactFinder> finder_;
  const checks::Settings settings_;
  Mutex mutex_;
  bool closed_ GUARDED_BY(mutex_) = false;
  std::shared_ptr<FactCollection> collection_ GUARDED_BY(mutex_);
  // Scans of the list (NoScanResults) under way.
  std::list<std::stop_source> scans_ GUARDED_BY(mutex_);
};

}  // namespace wifi_profile::linux
