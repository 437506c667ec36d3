// A Wi-Fi diagnostics service that takes its time and answers as chance has it.
#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <set>

#include "diagnostic/platform/DiagnosticsService.h"
#include "diagnostic/platform/WorkQueues.h"
#include "simulation/History.h"
#include "simulation/World.h"

namespace wifi_profile::simulation {

// Takes a request up when the main thread has handled what was posted to it before, as a service
// must for which a scan takes longer than a reload of the table. Any thread.
class SimulatedService final : public VqClient {
 public:
  // All must outlive the service.
  SimulatedService(World& world, Pace& pace, History& history)
      : world_(world), pace_(pace), history_(history) {}

  // Called on a scan's thread before the scan is begun.
  std::function<void()> whenScanBegins = [] {};
  // Called on the thread of a scan or a status query, as the last thing before the answer.
  std::function<void()> whenAnswering = [] {};

  DiagnosticsTestResults runDiagnosticsTests(const VqDiagnosticsTestRequests& requests,
                                             const VqPeer* peer, const VqTestUpdate& update,
                                             VqErrorRef& error) override;
  std::shared_ptr<const VqStatus> queryStatusForPeer(const VqPeer* peer,
                                                     VqErrorRef& error) override;
  void cancelAllRequests() override;

 private:
  bool takesTimeUncut();
  DiagnosticsTestResults scanResults();
  DiagnosticsTestResults otherResults();
  ObjectRef someValue();

  World& world_;
  Pace& pace_;
  History& history_;
  std::mutex mutex_;  // guards what follows
  std::set<std::shared_ptr<std::atomic<bool>>> inFlight_;
};

}  // namespace wifi_profile::simulation
