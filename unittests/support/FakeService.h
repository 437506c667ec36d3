// A Wi-Fi diagnostics service that answers what a test tells it to.
#pragma once

#include <deque>
#include <functional>
#include <map>
#include <memory>
#include <thread>
#include <utility>
#include <vector>

#include "diagnostic/platform/DiagnosticsService.h"
#include "support/Events.h"

namespace wifi_profile {

struct FakeAnswer {
  DiagnosticsTestResults results;
  VqErrorRef error;
};

inline VqErrorRef makeError(std::int64_t code, std::string description) {
  return std::make_shared<const VqError>(code, std::move(description));
}

// The answer of one result, with or without an error beside it.
inline FakeAnswer answerOf(DiagnosticsTestResult result, VqErrorRef error = nullptr) {
  return {{{std::make_shared<const DiagnosticsTestResult>(std::move(result))}}, std::move(error)};
}

// Keeps a record of every request. One thread at a time.
class FakeService final : public VqClient {
 public:
  struct Request {
    DiagnosticsTestID test;
    DictionaryRef configuration;
    std::size_t requestsInTheCall;
    const VqPeer* peer;
    bool asksForUpdates;
    bool errorSlotWasNil;
    std::thread::id thread;
  };

  explicit FakeService(EventsRef events) : events_(std::move(events)) {}

  // The answer to the next request of a test that has not been told an answer for yet.
  void willAnswer(DiagnosticsTestID test, FakeAnswer answer) {
    answers_[test].push_back(std::move(answer));
  }

  // The answer to requests that no `willAnswer` is left for.
  std::function<FakeAnswer(DiagnosticsTestID)> otherwise = [](DiagnosticsTestID) {
    return answerOf({.result = true, .didPass = true, .info = makeDictionary({})});
  };

  // Called before each answer, on the thread of the request.
  std::function<void(const Request&)> whileRunning = [](const Request&) {};

  // The status query's answer: the status may be nil, and may come together with an error.
  std::shared_ptr<const VqStatus> status = std::make_shared<const VqStatus>();
  VqErrorRef statusError;

  void joinTo(TextRef ssid, TextRef bssid = nullptr) {
    status = std::make_shared<const VqStatus>(VqStatus{
        std::make_shared<const VqWiFiStatus>(VqWiFiStatus{std::move(ssid), std::move(bssid)})});
  }

  const std::vector<Request>& requests() const { return requests_; }
  std::vector<int> requestedNumbers() const {
    std::vector<int> numbers;
    for (const Request& request : requests_) numbers.push_back(static_cast<int>(request.test));
    return numbers;
  }
  void forgetRequests() { requests_.clear(); }

  DiagnosticsTestResults runDiagnosticsTests(const VqDiagnosticsTestRequests& requests,
                                             const VqPeer* peer, const VqTestUpdate& update,
                                             VqErrorRef& error) override {
    const auto& first = requests.at(0);
    requests_.push_back({first->testID(), first->configuration(), requests.size(), peer,
                         static_cast<bool>(update), error == nullptr, std::this_thread::get_id()});
    whileRunning(Request(requests_.back()));
    FakeAnswer answer = nextAnswer(first->testID());
    error = answer.error;
    return answer.results;
  }

  std::shared_ptr<const VqStatus> queryStatusForPeer(const VqPeer* peer,
                                                     VqErrorRef& error) override {
    events_->add(peer ? "query status of another device" : "query status");
    error = statusError;
    return status;
  }

  void cancelAllRequests() override { events_->add("cancel all requests"); }

 private:
  FakeAnswer nextAnswer(DiagnosticsTestID test) {
    auto& told = answers_[test];
    if (told.empty()) return otherwise(test);
    FakeAnswer answer = std::move(told.front());
    told.pop_front();
    return answer;
  }

  EventsRef events_;
  std::map<DiagnosticsTestID, std::deque<FakeAnswer>> answers_;
  std::vector<Request> requests_;
};

}  // namespace wifi_profile
