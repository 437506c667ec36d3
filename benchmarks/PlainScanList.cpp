#include "benchmarks/PlainScanList.h"

#include <algorithm>
#include <unicode/unistr.h>
#include <unordered_set>
#include <utility>

namespace wifi_profile {
namespace {

const std::string& nameOf(const ScanResultRef& network) { return network->ssidString()->string(); }

// Every object of the array is taken for a result; a type check would make this slower.
PlainNetworks unsorted(const ArrayRef& results, const VqWiFiStatus& status) {
  PlainNetworks networks;
  for (const ObjectRef& object : results->elements()) {
    const auto result = std::static_pointer_cast<const VqWiFiScanResult>(object);
    if (!result->ssidString()) continue;
    const std::string& name = nameOf(result);
    if (equalNames(status.bssid, result->bssid())) {
      networks.distinct[name] = result;
    } else if (!equalNames(status.ssidString, result->ssidString())) {
      const auto [entry, isNew] = networks.filtered.try_emplace(name, result);
      if (!isNew && result->rssi() <= entry->second->rssi()) continue;
      entry->second = result;
      networks.distinct[name] = result;
    }
  }
  networks.listed.reserve(networks.filtered.size());
  for (const auto& [name, network] : networks.filtered) networks.listed.push_back(network);
  return networks;
}

std::string sortKey(const UCollator* collator, const std::string& name) {
  const auto units = icu::UnicodeString::fromUTF8(name);
  std::string key(name.size() * 3 + 16, '\0');  // enough for every name of the measurements
  const std::int32_t size = ucol_getSortKey(collator, units.getBuffer(), units.length(),
                                            reinterpret_cast<std::uint8_t*>(key.data()),
                                            static_cast<std::int32_t>(key.size()));
  key.resize(static_cast<std::size_t>(size));
  return key;
}

std::vector<std::int64_t> rowsMissing(const std::vector<ScanResultRef>& list,
                                      const std::unordered_set<std::string>& names) {
  std::vector<std::int64_t> rows;
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (!names.contains(nameOf(list[i]))) rows.push_back(static_cast<std::int64_t>(i));
  }
  return rows;
}

std::unordered_set<std::string> namesOf(const std::vector<ScanResultRef>& list) {
  std::unordered_set<std::string> names;
  for (const ScanResultRef& network : list) names.insert(nameOf(network));
  return names;
}

}  // namespace

PlainScanList::PlainScanList() : collator_(nullptr, &ucol_close) {
  UErrorCode error = U_ZERO_ERROR;
  collator_.reset(ucol_open("en", &error));
  ucol_setStrength(collator_.get(), UCOL_SECONDARY);
}

PlainNetworks PlainScanList::pairByPair(const ArrayRef& results, const VqWiFiStatus& status) const {
  PlainNetworks networks = unsorted(results, status);
  sortPairByPair(networks.listed);
  return networks;
}

void PlainScanList::sortPairByPair(std::vector<ScanResultRef>& networks) const {
  std::stable_sort(networks.begin(), networks.end(), [&](const auto& one, const auto& other) {
    const std::string& name = nameOf(one);
    const std::string& otherName = nameOf(other);
    UErrorCode error = U_ZERO_ERROR;
    const UCollationResult order =
        ucol_strcollUTF8(collator_.get(), name.data(), static_cast<std::int32_t>(name.size()),
                         otherName.data(), static_cast<std::int32_t>(otherName.size()), &error);
    return order == UCOL_LESS || (order == UCOL_EQUAL && name < otherName);
  });
}

PlainNetworks PlainScanList::bySortKeys(const ArrayRef& results, const VqWiFiStatus& status) const {
  PlainNetworks networks = unsorted(results, status);
  std::vector<std::pair<std::string, ScanResultRef>> keyed;
  keyed.reserve(networks.listed.size());
  for (const ScanResultRef& network : networks.listed) {
    keyed.emplace_back(sortKey(collator_.get(), nameOf(network)), network);
  }
  std::stable_sort(keyed.begin(), keyed.end(), [](const auto& one, const auto& other) {
    const int order = one.first.compare(other.first);
    return order < 0 || (order == 0 && nameOf(one.second) < nameOf(other.second));
  });
  std::transform(keyed.begin(), keyed.end(), networks.listed.begin(),
                 [](auto& entry) { return std::move(entry.second); });
  return networks;
}

PlainRows PlainScanList::rows(const std::vector<ScanResultRef>& before,
                              const std::vector<ScanResultRef>& after) {
  return {.lost = rowsMissing(before, namesOf(after)),
          .found = rowsMissing(after, namesOf(before))};
}

}  // namespace wifi_profile
