// How the checks say what they found. Pure functions; any thread.
#pragma once

#include <string>
#include <utility>

#include "checks/Checks.h"

namespace wifi_profile::checks {

// Whether a problem, or a fact worth knowing, is there: the test passes when it is not.
inline Answer finding(bool isSo, Dictionary::Entries info = {}) {
  return DiagnosticsTestResult{isSo, !isSo, makeDictionary(std::move(info))};
}

// Whether something works or is there as asked: the test passes when it does.
inline Answer ability(bool isSo, Dictionary::Entries info = {}) {
  return DiagnosticsTestResult{isSo, isSo, makeDictionary(std::move(info))};
}

inline Unknown notTold(std::string sentence) { return {Reason::notTold, std::move(sentence)}; }

}  // namespace wifi_profile::checks
