// What happened to each test of a run, for the report to people.
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <utility>
#include <vector>

#include "platform/DiagnosticsTestID.h"
#include "platform/Trace.h"

namespace wifi_profile {

enum class Section { device, currentNetwork, selectedNetwork };

// Key of a section in the record.
constexpr std::string_view keyOf(Section section) {
  return section == Section::device           ? "device"
         : section == Section::currentNetwork ? "currentNetwork"
                                              : "selectedNetwork";
}

// What the log says of a test, in order.
struct TestLines {
  // The diagnostic's own lines, without the leading "[ERROR] - Wi-Fi Profile: ".
  std::vector<std::string> ofDiagnostic = {};
  // The service's: why an answer is as it is.
  std::vector<std::string> ofService = {};

  bool empty() const { return ofDiagnostic.empty() && ofService.empty(); }
};

// Follows a run by its events. A log line belongs to the test that its thread asked for last: the
// list's scan may go on beside the run's tests. What comes after the order to end (the cancel of
// all requests) does not count. Any thread.
class Journal final : public Trace {
 public:
  void event(std::string_view name, const Fields& fields) override;

  TestLines linesOf(Section section, DiagnosticsTestID test) const;

  // Tests that were requested for the section.
  bool wasRequested(Section section, DiagnosticsTestID test) const;

  // Why the last status query before the first test of the device failed; empty: it did not.
  std::string statusFailure() const;

 private:
  using Test = std::pair<Section, DiagnosticsTestID>;
  void noteRequest(const Fields& fields);
  void noteStatus(const Fields& fields);
  void noteLine(const std::string& text);

  mutable std::mutex mutex_;                     // guards what follows
  std::map<std::thread::id, Test> underWay_;     // the last request of each thread
  std::set<std::thread::id> statusQueryFailed_;  // threads of which that was the last event
  std::map<Test, TestLines> lines_;
  bool testsBegan_ = false;
  std::string statusFailure_;
  bool ended_ = false;
};

}  // namespace wifi_profile
