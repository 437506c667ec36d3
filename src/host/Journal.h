// What happened to each test of a run, for the report to people.
#pragma once

#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "platform/DiagnosticsTestID.h"
#include "platform/Text.h"
#include "platform/Trace.h"

namespace wifi_profile {

enum class Section { device, currentNetwork, selectedNetwork };

// Key of a section in the record.
constexpr std::string_view keyOf(Section section) {
  return section == Section::device           ? "device"
         : section == Section::currentNetwork ? "currentNetwork"
                                              : "selectedNetwork";
}

// Follows a run by its events. Any thread.
class Journal final : public Trace {
 public:
  void event(std::string_view name, const Fields& fields) override;

  // The texts of the log lines that a test of the section gave rise to, in order, without the
  // leading "[ERROR] - Wi-Fi Profile: ".
  std::vector<std::string> linesOf(Section section, DiagnosticsTestID test) const;

  // Tests that were requested for the section.
  bool wasRequested(Section section, DiagnosticsTestID test) const;

  // SSID that the last successful status query gave; nil: not joined, or the query failed.
  TextRef joinedNetworkName() const;

  // The text of the status query's failure, empty when it did not fail.
  std::string statusFailure() const;

 private:
  using Test = std::pair<Section, DiagnosticsTestID>;
  void noteRequest(const Fields& fields);
  void noteLine(const std::string& text);

  mutable std::mutex mutex_;
  std::optional<Test> underWay_;    // whose request came last
  bool statusQueryIsLast_ = false;  // it came after any request
  std::map<Test, std::vector<std::string>> lines_;
  TextRef joinedNetworkName_;
  std::string statusFailure_;
};

}  // namespace wifi_profile
