// The outcome of one test.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "diagnostic/platform/DiagnosticsTestID.h"
#include "diagnostic/platform/Object.h"
#include "diagnostic/platform/Result.h"

namespace wifi_profile {

// A section of the record.
enum class Section { device, currentNetwork, selectedNetwork };

// The section's key in the record.
constexpr std::string_view keyOf(Section section) {
  return section == Section::device           ? "device"
         : section == Section::currentNetwork ? "currentNetwork"
                                              : "selectedNetwork";
}

// A value that a test wrote into the record, or should have written. The catalogue has its name and
// unit.
struct TestValue {
  std::string_view key;  // output key
  ObjectRef value;       // nil: the service did not give it
};

// How one test of one section ended.
struct TestOutcome {
  Section section{};
  DiagnosticsTestID test{};
  Result<bool> verdict = {};  // true: the record says yes
  bool passed = false;        // the service's own judgement; which answers pass differs by test
  std::string remark = {};    // the service's reason for its answer, a sentence; may be empty
  std::vector<TestValue> values = {};
  bool hasDetails = true;  // false: the service gave none of the values that were due
};

}  // namespace wifi_profile
