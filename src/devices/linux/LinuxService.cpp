#include "devices/linux/LinuxService.h"

#include <algorithm>

#include "analysis/checks/Subject.h"
#include "devices/DeviceBackEnds.h"
#include "diagnostic/platform/DiagnosticLog.h"
#include "diagnostic/platform/ExcludedNetworks.h"
#include "diagnostic/platform/Number.h"
#include "diagnostic/platform/Trace.h"

namespace wifi_profile::linux {
namespace {

using checks::FactSet;
using facts::Fact;

// The facts that are found by sending packets through the joined network.
constexpr FactSet kReachFacts{Fact::lanPings,     Fact::wanPings,  Fact::nameResolution,
                              Fact::portalProbe,  Fact::siteReach, Fact::sitePage,
                              Fact::routerOutside};

// The facts that the tests of a run need.
FactSet allFacts() {
  FactSet all{};
  for (const checks::Check& check : checks::allChecks()) all = all.with(check.needs);
  return all;
}

VqErrorRef errorOf(const Error& cause) { return std::make_shared<const VqError>(cause); }

// Returns "MaxScanCacheAge" of a request's configuration; 0 (no cached scan is acceptable) if it is
// missing or not a positive number.
std::chrono::seconds oldestScanOf(const VqDiagnosticsTestRequest& request) {
  constexpr double kOldest = 1e9;  // older than any list
  const DictionaryRef& configuration = request.configuration();
  const auto number =
      configuration ? as<Number>(configuration->objectForKey("MaxScanCacheAge")) : nullptr;
  const double age = number ? number->toDouble() : 0;
  return std::chrono::seconds(age > 0 ? static_cast<std::int64_t>(std::min(age, kOldest)) : 0);
}

}  // namespace

LinuxService::LinuxService(std::shared_ptr<FactFinder> finder, checks::Settings settings)
    : finder_(std::move(finder)), settings_(std::move(settings)) {}

DiagnosticsTestResults LinuxService::runDiagnosticsTests(const VqDiagnosticsTestRequests& requests,
                                                         const VqPeer* /*peer*/,
                                                         const VqTestUpdate& /*update*/,
                                                         VqErrorRef& error) {
  DiagnosticsTestResults all;
  for (const auto& request : requests) {
    const Outcome outcome = serve(*request);
    if (const auto* failed = std::get_if<VqErrorRef>(&outcome)) {
      if (!error) error = *failed;
      continue;
    }
    if (!all) all.emplace();
    all->push_back(
        std::make_shared<const DiagnosticsTestResult>(std::get<DiagnosticsTestResult>(outcome)));
  }
  return all;
}

LinuxService::Outcome LinuxService::serve(const VqDiagnosticsTestRequest& request) {
  devices::traceRequest(request);
  const auto facts = factsFor(request);
  if (!facts) return devices::makeError(kCancelled, "cancelled");
  const checks::Question question{
      .facts = *facts, .settings = settings_, .networkName = devices::networkNameOf(request)};
  const checks::Answer answer = checks::checkOf(request.testID()).answer(question);
  if (!answer) return errorOf(answer.error());
  DiagnosticsTestResult result = *answer;
  result.remark = checks::problemOf(question, request.testID());
  if (!result.remark.empty()) {
    DiagnosticLogHandleForCategory(0).error([&] { return result.remark; });
  }
  return result;
}

FactCollection::FactsRef LinuxService::factsFor(const VqDiagnosticsTestRequest& request) {
  if (request.testID() != DiagnosticsTestID::NoScanResults) {
    const auto running = collection(request);
    return running ? awaitFacts(*running, request) : nullptr;
  }
  const std::stop_source cancellation;
  {
    const MutexLock lock(mutex_);
    if (closed_) return nullptr;
    scans_.push_back(cancellation);
  }
  auto facts = std::make_shared<facts::Facts>();
  facts->scan =
      finder_->scan(oldestScanOf(request), Deadline::in(kScanLimit, cancellation.get_token()));
  const MutexLock lock(mutex_);
  scans_.remove(cancellation);
  if (cancellation.stop_requested()) return nullptr;
  return facts;
}

// The tests of the device run first and name the network that the run is about. If that is the
// joined network, the tasks that send packets through it start now, without waiting for those
// tests.
void LinuxService::beginEarly(FactCollection& running, const VqDiagnosticsTestRequest& request) {
  const TextRef name = devices::networkNameOf(request);
  if (!name || isExcludedFromRuns(name)) return;
  const auto known = running.await({Fact::link});
  if (known && known->link && known->link->ssid == name->string()) running.begin(kReachFacts);
}

// Sends no packets through the joined network until a test of that network needs their result: a
// network that must not be tested must not be probed either.
FactCollection::FactsRef LinuxService::awaitFacts(FactCollection& running,
                                                  const VqDiagnosticsTestRequest& request) {
  const FactSet needs = checks::checkOf(request.testID()).needs;
  beginEarly(running, request);
  if (!needs.meets(kReachFacts)) return running.await(needs);
  if (const TextRef name = devices::networkNameOf(request)) {
    auto known = running.await(needs.without(kReachFacts));
    if (!known) return nullptr;
    const checks::Question question{.facts = *known, .settings = settings_, .networkName = name};
    if (checks::whyNotAMember(question)) return known;
  }
  running.begin(kReachFacts);
  return running.await(needs);
}

std::shared_ptr<FactCollection> LinuxService::collection(const VqDiagnosticsTestRequest& request) {
  const MutexLock lock(mutex_);
  if (!collection_ && !closed_) {
    collection_ = std::make_shared<FactCollection>(finder_->tasks(oldestScanOf(request)), finder_);
    collection_->begin(allFacts().without(kReachFacts));
  }
  return collection_;
}

std::shared_ptr<const VqStatus> LinuxService::queryStatusForPeer(const VqPeer* /*peer*/,
                                                                 VqErrorRef& error) {
  VqWiFiStatus wifi;
  const auto link = finder_->link(Deadline::in(kStatusLimit));
  if (link) {
    wifi = {makeText(link->ssid), makeText(link->bssid)};
  } else if (link.error().reason != Reason::notJoined) {
    error = errorOf(link.error());
  }
  devices::traceStatus(wifi, error);
  return std::make_shared<const VqStatus>(VqStatus{std::make_shared<const VqWiFiStatus>(wifi)});
}

void LinuxService::cancelAllRequests() {
  traceEvent("service.cancel");
  const MutexLock lock(mutex_);
  for (auto& scan : scans_) scan.request_stop();
  if (!collection_) return;
  collection_->cancel();
  collection_ = nullptr;
}

void LinuxService::close() {
  const MutexLock lock(mutex_);
  closed_ = true;
  for (auto& scan : scans_) scan.request_stop();
  if (collection_) collection_->cancel();
}

}  // namespace wifi_profile::linux
