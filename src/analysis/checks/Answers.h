// Constructs the answers of the checks. Pure functions; any thread.
#pragma once

#include <string>
#include <utility>

#include "analysis/checks/Checks.h"

namespace wifi_profile::checks {

// The answer to whether a problem, or a fact worth knowing, exists. The test passes if it does not.
inline Answer finding(bool isSo, Dictionary::Entries info = {}) {
  return DiagnosticsTestResult{isSo, !isSo, makeDictionary(std::move(info))};
}

// The answer to whether something works or exists as expected. The test passes if it does.
inline Answer ability(bool isSo, Dictionary::Entries info = {}) {
  return DiagnosticsTestResult{isSo, isSo, makeDictionary(std::move(info))};
}

inline Error notTold(std::string sentence) { return {Reason::notTold, std::move(sentence)}; }

}  // namespace wifi_profile::checks
