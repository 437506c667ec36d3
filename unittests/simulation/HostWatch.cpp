#include "simulation/HostWatch.h"

#include "diagnostic/controller/StatusCodes.h"

namespace wifi_profile::simulation {

const std::set<std::int64_t> kCodesOfTests = {kStatusCompleted, kStatusCurrentNetworkExcluded,
                                              kStatusSelectedNetworkExcluded};

void HostWatch::expectEnd(std::set<std::int64_t> codes) {
  const std::lock_guard lock(mutex_);
  expected_.merge(codes);
}

bool HostWatch::expectsEnd() const {
  const std::lock_guard lock(mutex_);
  return !expected_.empty();
}

bool HostWatch::hasFinished() const {
  const std::lock_guard lock(mutex_);
  return finished_;
}

bool HostWatch::saysThatTestsWereRun() const {
  const std::lock_guard lock(mutex_);
  return testsWereRun_;
}

void HostWatch::checkAtRest() {
  history_.require(hasFinished() || !expectsEnd(),
                   [] { return "the run should have ended and has not"; });
}

void HostWatch::statusCodeWasSet(const NumberRef& statusCode) {
  const auto* code = statusCode ? std::get_if<std::int64_t>(&statusCode->value()) : nullptr;
  history_.require(code, [] { return "the status code is no integer"; });
  if (!code) return;
  history_.note([code] { return "host: status code " + std::to_string(*code); });
  const std::lock_guard lock(mutex_);
  history_.require(expected_.contains(*code), [code] {
    return "a run ended with " + std::to_string(*code) + " unexpectedly";
  });
  if (kCodesOfTests.contains(*code)) testsWereRun_ = true;
  statusCode_ = statusCode;
}

void HostWatch::dataWasSet(const DictionaryRef& data) {
  const std::lock_guard lock(mutex_);
  history_.require(statusCode_ != nullptr, [] { return "the data came before the status code"; });
  for (const char* const key : {"device", "currentNetwork", "selectedNetwork"}) {
    history_.require(data && as<Dictionary>(data->objectForKey(key)),
                     [key] { return std::string("the data has no section ") + key; });
  }
  history_.require(data && data->entries().size() == 3,
                   [] { return "the data has another number of sections than 3"; });
  data_ = data;
}

void HostWatch::finishedWasSet(bool finished) {
  history_.note([] { return "host: finished"; });
  history_.require(finished, [] { return "the run was said not to be finished"; });
  history_.require(!radio_.ownsClients(), [] { return "a run finished that owns handles"; });
  bool first = false;
  {
    const std::lock_guard lock(mutex_);
    history_.require(data_ != nullptr, [] { return "a run finished without data"; });
    first = !std::exchange(finished_, true);
  }
  if (first) whenFinished();
}

}  // namespace wifi_profile::simulation
