// The diagnostics service of a simulated device.
#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <vector>

#include "devices/scenario/Scenario.h"
#include "diagnostic/platform/DiagnosticsService.h"
#include "diagnostic/platform/Mutex.h"
#include "diagnostic/platform/WorkQueues.h"

namespace wifi_profile::scenario {

// Answers from the `answers` of a scenario, otherwise from its world. A request or query from a
// background thread is accepted, and traced, after the main thread has handled all work
// posted to it before. With at most one task in the background, two runs of a scenario therefore
// write the same trace. A cancel makes requests that are waiting for a delay fail at once. Any
// thread.
class ScenarioService final : public VqClient {
 public:
  // `pace` must outlive the service.
  ScenarioService(const Scenario& scenario, Pace& pace);

  // Sets a function that is called after a request was accepted, before its delay, on the thread
  // that made the request. Call this before the first request.
  void setWhileServing(std::function<void(DiagnosticsTestID)> whileServing) {
    whileServing_ = std::move(whileServing);
  }

  DiagnosticsTestResults runDiagnosticsTests(const VqDiagnosticsTestRequests& requests,
                                             const VqPeer* peer, const VqTestUpdate& update,
                                             VqErrorRef& error) override;
  std::shared_ptr<const VqStatus> queryStatusForPeer(const VqPeer* peer,
                                                     VqErrorRef& error) override;
  void cancelAllRequests() override;

  // Codes of the service's own errors. A fact that the world does not give has a code of
  // checks::Reason.
  static constexpr std::int64_t kNoAnswer = 1;
  static constexpr std::int64_t kCancelled = 2;

 private:
  using CancelFlag = std::shared_ptr<std::atomic<bool>>;

  Answer serve(const VqDiagnosticsTestRequest& request);
  Answer takeAnswer(const VqDiagnosticsTestRequest& request);
  // Finds an answer of `answers` that matches, and counts down its `times`. Empty if there is none.
  std::optional<Answer> takeWrittenAnswer(DiagnosticsTestID test, const TextRef& networkName);

  Pace& pace_;
  const std::optional<World> world_;
  std::function<void(DiagnosticsTestID)> whileServing_;

  Mutex mutex_;
  std::map<DiagnosticsTestID, std::vector<Answer>> answers_ GUARDED_BY(mutex_);
  std::vector<StatusAnswer> status_ GUARDED_BY(mutex_);
  std::size_t nextStatus_ GUARDED_BY(mutex_) = 0;
  std::set<CancelFlag> inFlight_ GUARDED_BY(mutex_);
};

}  // namespace wifi_profile::scenario
