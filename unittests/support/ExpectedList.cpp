#include "support/ExpectedList.h"

#include <algorithm>

namespace wifi_profile {
namespace {

bool holds(const NetworkDictionary& dictionary,
           const std::map<std::string, ScanResultRef>& expected) {
  if (dictionary.networks().size() != expected.size()) return false;
  return std::all_of(expected.begin(), expected.end(), [&](const auto& entry) {
    return dictionary.networkNamed(entry.second->ssidString()) == entry.second;
  });
}

}  // namespace

ExpectedList expectedFrom(const ArrayRef& results, const VqWiFiStatusRef& status) {
  ExpectedList expected;
  if (!results) return expected;
  for (const ObjectRef& element : results->elements()) {
    const auto result = as<VqWiFiScanResult>(element);
    if (!result || !result->ssidString()) continue;
    const std::string& name = result->ssidString()->string();
    if (status && equalNames(status->bssid, result->bssid())) {
      expected.current = expected.distinct[name] = result;
      continue;
    }
    if (status && equalNames(status->ssidString, result->ssidString())) continue;
    const auto known = expected.filtered.find(name);
    if (known != expected.filtered.end() && result->rssi() <= known->second->rssi()) continue;
    expected.filtered[name] = expected.distinct[name] = result;
  }
  for (const auto& [name, result] : expected.filtered) expected.listed.push_back(result);
  return expected;
}

void moveSelectedOut(ExpectedList& expected, const TextRef& selectedName, const TextRef& joinedName,
                     const ScanResultRef& current, bool joinedComesIn) {
  if (!selectedName || equalNames(selectedName, joinedName)) return;
  const auto selected = expected.distinct.find(selectedName->string());
  if (selected == expected.distinct.end()) return;
  std::erase(expected.listed, selected->second);
  expected.filtered.erase(selectedName->string());
  if (!joinedComesIn || !current) return;
  expected.listed.push_back(current);
  expected.filtered[current->ssidString()->string()] = current;
}

bool areAsExpected(const ExpectedList& expected, const NetworkList& list,
                   const NetworkDictionary& filtered, const NetworkDictionary& distinct) {
  return std::is_permutation(list.begin(), list.end(), expected.listed.begin(),
                             expected.listed.end()) &&
         holds(filtered, expected.filtered) && holds(distinct, expected.distinct);
}

}  // namespace wifi_profile
