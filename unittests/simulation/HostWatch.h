// The host's side of a run: what it is told of the end, held to the rules.
#pragma once

#include <cstdint>
#include <mutex>
#include <optional>
#include <set>

#include "diagnostic/controller/WiFiProfileViewController.h"
#include "simulation/History.h"
#include "simulation/SimulatedRadio.h"

namespace wifi_profile::simulation {

// The status codes of runs that came to their tests.
extern const std::set<std::int64_t> kCodesOfTests;

// Any thread.
class HostWatch final : public HxDiagnosticObserver {
 public:
  // Both must outlive the watch.
  HostWatch(History& history, const SimulatedRadio& radio) : history_(history), radio_(radio) {}

  // Called at the first finish.
  std::function<void()> whenFinished = [] {};

  // Something has happened that has the run end, by and by, with one of these codes.
  void expectEnd(std::set<std::int64_t> codes);
  bool expectsEnd() const;
  bool hasFinished() const;
  // Whether a status code has come that only tests lead to.
  bool saysThatTestsWereRun() const;

  // When everything has been drained.
  void checkAtRest();

  void statusCodeWasSet(const NumberRef& statusCode) override;
  void dataWasSet(const DictionaryRef& data) override;
  void finishedWasSet(bool finished) override;

 private:
  History& history_;
  const SimulatedRadio& radio_;
  mutable std::mutex mutex_;  // guards what follows
  std::set<std::int64_t> expected_;
  NumberRef statusCode_;
  DictionaryRef data_;
  bool finished_ = false;
  bool testsWereRun_ = false;
};

}  // namespace wifi_profile::simulation
