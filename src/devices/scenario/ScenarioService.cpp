#include "devices/scenario/ScenarioService.h"

#include <algorithm>

#include "analysis/checks/Checks.h"
#include "devices/DeviceBackEnds.h"
#include "diagnostic/platform/Trace.h"

namespace wifi_profile::scenario {
namespace {

bool matches(const Answer& answer, const TextRef& networkName) {
  if (answer.times && *answer.times == 0) return false;
  if (!answer.when) return true;
  return answer.when->networkName ? equalNames(answer.when->networkName, networkName)
                                  : !networkName;
}

Answer failure(std::int64_t code, std::string description) {
  Answer answer;
  answer.error = devices::makeError(code, std::move(description));
  return answer;
}

Answer answerFrom(const World& world, DiagnosticsTestID test, const TextRef& networkName) {
  auto found = checks::checkOf(test).answer({world.facts, world.settings, networkName});
  Answer answer;
  if (!found) {
    answer.error = std::make_shared<const VqError>(found.error());
  } else {
    answer.results.emplace().push_back(
        std::make_shared<const DiagnosticsTestResult>(*std::move(found)));
  }
  answer.delay = world.delayOf(test);
  return answer;
}

}  // namespace

ScenarioService::ScenarioService(const Scenario& scenario, Pace& pace)
    : pace_(pace), world_(scenario.world), answers_(scenario.answers), status_(scenario.status) {}

DiagnosticsTestResults ScenarioService::runDiagnosticsTests(
    const VqDiagnosticsTestRequests& requests, const VqPeer* /*peer*/,
    const VqTestUpdate& /*update*/, VqErrorRef& error) {
  DiagnosticsTestResults all;
  for (const auto& request : requests) {
    Answer answer = serve(*request);
    if (!error) error = answer.error;
    if (!answer.results) continue;
    if (!all) all.emplace();
    all->insert(all->end(), answer.results->begin(), answer.results->end());
  }
  return all;
}

Answer ScenarioService::serve(const VqDiagnosticsTestRequest& request) {
  pace_.waitForMain();
  devices::traceRequest(request);
  Answer answer = takeAnswer(request);
  const auto cancelled = std::make_shared<std::atomic<bool>>(false);
  const bool waits = answer.delay.count() > 0;
  if (waits) {
    const MutexLock lock(mutex_);
    inFlight_.insert(cancelled);
  }
  if (whileServing_) whileServing_(request.testID());
  if (waits) {
    pace_.pause(answer.delay, *cancelled);
    const MutexLock lock(mutex_);
    inFlight_.erase(cancelled);
    if (*cancelled) return failure(kCancelled, "cancelled");
  }
  return answer;
}

Answer ScenarioService::takeAnswer(const VqDiagnosticsTestRequest& request) {
  const TextRef networkName = devices::networkNameOf(request);
  if (auto answer = takeWrittenAnswer(request.testID(), networkName)) return *std::move(answer);
  if (world_) return answerFrom(*world_, request.testID(), networkName);
  return failure(kNoAnswer, "no answer for " + std::string(nameOf(request.testID())));
}

std::optional<Answer> ScenarioService::takeWrittenAnswer(DiagnosticsTestID test,
                                                         const TextRef& networkName) {
  const MutexLock lock(mutex_);
  auto& answers = answers_[test];
  const auto found = std::find_if(answers.begin(), answers.end(), [&](const Answer& answer) {
    return matches(answer, networkName);
  });
  if (found == answers.end()) return std::nullopt;
  if (found->times) --*found->times;
  return *found;
}

std::shared_ptr<const VqStatus> ScenarioService::queryStatusForPeer(const VqPeer* /*peer*/,
                                                                    VqErrorRef& error) {
  pace_.waitForMain();
  StatusAnswer answer;
  {
    const MutexLock lock(mutex_);
    answer = status_[nextStatus_];
    if (nextStatus_ + 1 < status_.size()) ++nextStatus_;
  }
  const VqWiFiStatus wifi{answer.ssid, answer.bssid};
  devices::traceStatus(wifi, answer.error);
  error = answer.error;
  return std::make_shared<const VqStatus>(VqStatus{std::make_shared<const VqWiFiStatus>(wifi)});
}

void ScenarioService::cancelAllRequests() {
  traceEvent("service.cancel");
  {
    const MutexLock lock(mutex_);
    for (const auto& cancelled : inFlight_) *cancelled = true;
  }
  pace_.cutPauses();
}

}  // namespace wifi_profile::scenario
