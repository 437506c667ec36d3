// The diagnostics service of a device on paper.
#pragma once

#include <atomic>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <set>
#include <vector>

#include "devices/scenario/Scenario.h"
#include "platform/DiagnosticsService.h"
#include "platform/Trace.h"
#include "platform/WorkQueues.h"

namespace wifi_profile::scenario {

// Answers from a scenario: from its `answers`, or else its world. A request or query from a
// background thread is taken up, and its event written, once the main thread has handled what was
// posted to it before. With one task in the background at most, two runs of a scenario therefore
// give the same trace. A cancel makes requests that are waiting out a delay fail at once. Any
// thread.
class ScenarioService final : public VqClient {
 public:
  // `pace` and `trace` must outlive the service.
  ScenarioService(const Scenario& scenario, Pace& pace, Trace& trace);

  // Called after a request was taken up, before its delay, on the thread that made it. To be set
  // before the first request.
  void setWhileServing(std::function<void(DiagnosticsTestID)> whileServing) {
    whileServing_ = std::move(whileServing);
  }

  DiagnosticsTestResults runDiagnosticsTests(const VqDiagnosticsTestRequests& requests,
                                             const VqPeer* peer, const VqTestUpdate& update,
                                             VqErrorRef& error) override;
  std::shared_ptr<const VqStatus> queryStatusForPeer(const VqPeer* peer,
                                                     VqErrorRef& error) override;
  void cancelAllRequests() override;

  // Codes of the service's own errors. What the world does not tell has those of checks::Reason.
  static constexpr std::int64_t kNoAnswer = 1;
  static constexpr std::int64_t kCancelled = 2;

 private:
  using CancelFlag = std::shared_ptr<std::atomic<bool>>;

  Answer serve(const VqDiagnosticsTestRequest& request);
  Answer takeAnswer(const VqDiagnosticsTestRequest& request);
  // Uses one of `answers` up, if there is one that matches.
  std::optional<Answer> takeWrittenAnswer(DiagnosticsTestID test, const TextRef& networkName);

  Pace& pace_;
  Trace& trace_;
  const std::optional<World> world_;
  std::function<void(DiagnosticsTestID)> whileServing_;

  std::mutex mutex_;  // guards what follows
  std::map<DiagnosticsTestID, std::vector<Answer>> answers_;
  std::vector<StatusAnswer> status_;
  std::size_t nextStatus_ = 0;
  std::set<CancelFlag> inFlight_;
};

}  // namespace wifi_profile::scenario
