#include "simulation/SimulatedService.h"

#include "diagnostic/platform/Number.h"

namespace wifi_profile::simulation {
namespace {

const std::atomic<bool> kNever = false;

VqErrorRef makeError(std::int64_t code) {
  return std::make_shared<const VqError>(code, "error " + std::to_string(code));
}

DiagnosticsTestResults resultOf(bool didPass, DictionaryRef info) {
  return {{std::make_shared<const DiagnosticsTestResult>(
      DiagnosticsTestResult{.result = didPass, .didPass = didPass, .info = std::move(info)})}};
}

std::string namesIn(const ArrayRef& heard) {
  std::string text;
  for (const ObjectRef& element : heard->elements()) {
    const auto result = as<VqWiFiScanResult>(element);
    if (!result) {
      text += " (no result)";
      continue;
    }
    text += " " + quoted(result->ssidString());
    text += "@" + (result->bssid() ? result->bssid()->string().substr(15) : "none");
    text += " " + std::to_string(result->rssi());
  }
  return text;
}

}  // namespace

// Whether the request was left to take the time that it needs.
bool SimulatedService::takesTimeUncut() {
  const std::chrono::nanoseconds time = world_.someTime(world_.longestWait);
  if (time.count() == 0) return true;
  const auto cut = std::make_shared<std::atomic<bool>>(false);
  {
    const std::lock_guard lock(mutex_);
    inFlight_.insert(cut);
  }
  pace_.pause(time, *cut);
  const std::lock_guard lock(mutex_);
  inFlight_.erase(cut);
  return !*cut;
}

DiagnosticsTestResults SimulatedService::runDiagnosticsTests(
    const VqDiagnosticsTestRequests& requests, const VqPeer* /*peer*/,
    const VqTestUpdate& /*update*/, VqErrorRef& error) {
  const bool isScan = requests.front()->testID() == DiagnosticsTestID::NoScanResults;
  if (isScan) {
    whenScanBegins();
    pace_.waitForMain();
  }
  const bool cut = (isScan || world_.random.oneIn(4)) && !takesTimeUncut();
  if (cut) {
    history_.note([] { return "service: a request was cut"; });
    error = makeError(-1);
    return std::nullopt;
  }
  if (isScan) whenAnswering();
  if (world_.odd && world_.random.oneIn(8)) error = makeError(world_.random.oneIn(4) ? 0 : 5);
  return isScan ? scanResults() : otherResults();
}

DiagnosticsTestResults SimulatedService::scanResults() {
  Random& random = world_.random;
  if (world_.odd && random.oneIn(6)) {
    history_.note([] { return "service: a scan that comes to nothing"; });
    switch (random.below(7)) {
      case 0:
        return std::nullopt;
      case 1:
        return std::vector<std::shared_ptr<const DiagnosticsTestResult>>();
      case 2:
        return std::vector<std::shared_ptr<const DiagnosticsTestResult>>(1);
      case 3:
        return resultOf(true, nullptr);
      case 4:
        return resultOf(false, makeDictionary({{"ScanResults", world_.scan()}}));
      case 5:
        return resultOf(true, makeDictionary({}));
      default:
        return resultOf(true, makeDictionary({{"ScanResults", someValue()}}));
    }
  }
  const ArrayRef heard = world_.scan();
  history_.note([&] { return "service: a scan hears" + namesIn(heard); });
  return resultOf(true, makeDictionary({{"ScanResults", heard}}));
}

DiagnosticsTestResults SimulatedService::otherResults() {
  Random& random = world_.random;
  if (world_.odd && random.oneIn(8)) {
    DiagnosticsTestResults none;
    if (random.oneIn(2)) none.emplace();
    return none;
  }
  const bool passes = random.oneIn(2);
  if (random.oneIn(2)) return resultOf(passes, nullptr);
  static const char* const kKeys[] = {"PingResult",  "CurrentChannel", "PreferredNetwork",
                                      "ScanResults", "RSSI",           "Noise"};
  return resultOf(passes, makeDictionary({{kKeys[random.below(std::size(kKeys))], someValue()}}));
}

ObjectRef SimulatedService::someValue() {
  switch (world_.random.below(5)) {
    case 0:
      return nullPlaceholder();
    case 1:
      return makeText(world_.someName());
    case 2:
      return Number::withInteger(-7);
    case 3:
      return std::make_shared<const ChannelRecord>(11);
    default:
      return makeDictionary({});
  }
}

std::shared_ptr<const VqStatus> SimulatedService::queryStatusForPeer(const VqPeer* /*peer*/,
                                                                     VqErrorRef& error) {
  const std::chrono::nanoseconds time = world_.someTime(world_.longestWait);
  if (time.count() > 0) pace_.pause(time, kNever);
  whenAnswering();
  if (world_.odd && world_.random.oneIn(6)) {
    history_.note([] { return "service: a status query that fails"; });
    error = makeError(3);
    return world_.random.oneIn(2) ? std::make_shared<const VqStatus>() : nullptr;
  }
  if (world_.odd && world_.random.oneIn(20)) return nullptr;
  const VqStatus status = world_.status();
  history_.note([&] {
    if (!status.wifi) return std::string("service: status without a Wi-Fi part");
    return "service: joined to " + quoted(status.wifi->ssidString) + " at " +
           quoted(status.wifi->bssid);
  });
  return std::make_shared<const VqStatus>(status);
}

void SimulatedService::cancelAllRequests() {
  history_.note([] { return "service: all requests are cancelled"; });
  {
    const std::lock_guard lock(mutex_);
    for (const auto& cut : inFlight_) *cut = true;
  }
  pace_.cutPauses();
}

}  // namespace wifi_profile::simulation
