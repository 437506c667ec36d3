// Records what happened to each test of a run, for the report.
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

#include "diagnostic/platform/DiagnosticsTestID.h"
#include "diagnostic/platform/Trace.h"

namespace wifi_profile::report {

enum class Section { device, currentNetwork, selectedNetwork };

// The section's key in the record.
constexpr std::string_view keyOf(Section section) {
  return section == Section::device           ? "device"
         : section == Section::currentNetwork ? "currentNetwork"
                                              : "selectedNetwork";
}

// Log lines about a test, in order.
struct TestLines {
  // The diagnostic's own lines, without the leading "[ERROR] - Wi-Fi Profile: ".
  std::vector<std::string> ofDiagnostic = {};
  // The service's lines: the reasons for an answer.
  std::vector<std::string> ofService = {};

  bool empty() const { return ofDiagnostic.empty() && ofService.empty(); }
};

// Follows a run by its trace events. A log line belongs to the test that its thread requested last,
// because the scan for the list may run in parallel with the run's tests. Events after the cancel
// of all requests are ignored. Any thread.
class Journal final : public Trace {
 public:
  void event(std::string_view name, const Fields& fields) override;

  TestLines linesOf(Section section, DiagnosticsTestID test) const;

  // Returns true if the test was requested for the section.
  bool wasRequested(Section section, DiagnosticsTestID test) const;

  // Why the last status query before the first test of the device failed; empty: it succeeded.
  std::string statusFailure() const;

 private:
  using Test = std::pair<Section, DiagnosticsTestID>;
  void noteRequest(const Fields& fields);
  void noteStatus(const Fields& fields);
  void noteLine(const std::string& text);

  mutable std::mutex mutex_;                     // guards the members below
  std::map<std::thread::id, Test> underWay_;     // the last request of each thread
  std::set<std::thread::id> statusQueryFailed_;  // whose last event was a failed query
  std::map<Test, TestLines> lines_;
  bool testsBegan_ = false;
  std::string statusFailure_;
  bool ended_ = false;
};

}  // namespace wifi_profile::report
