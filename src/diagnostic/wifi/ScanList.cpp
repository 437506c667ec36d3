#include "diagnostic/wifi/ScanList.h"

#include <algorithm>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace wifi_profile {
namespace {

// An element of a list that is being sorted.
struct Row {
  std::string_view key;
  std::size_t position;          // in the list
  std::size_t place = SIZE_MAX;  // among rows with equal keys
};
using Rows = std::vector<Row>;

Rows rowsOf(const std::vector<SortKey>& keys) {
  Rows rows;
  rows.reserve(keys.size());
  for (const SortKey& key : keys) rows.push_back({.key = *key, .position = rows.size()});
  return rows;
}

NetworkListRef inOrder(const Rows& rows, NetworkList list) {
  NetworkList sorted;
  sorted.reserve(rows.size());
  for (const Row& row : rows) sorted.push_back(std::move(list[row.position]));
  return std::make_shared<const NetworkList>(std::move(sorted));
}

const std::string& nameOf(const ScanResultRef& network) { return network->ssidString()->string(); }

bool hasSmallerKey(const Row& one, const Row& other) { return one.key < other.key; }

// Gives rows with equal keys the places of their names in `before`. The rows must be sorted by key.
void takePlaces(const NetworkList& before, const NetworkList& list, Rows& rows) {
  std::unordered_map<std::string_view, std::vector<Row*>> tied;  // by name, the last row first
  for (std::size_t i = rows.size(); i-- > 0;) {
    const bool isTied = (i > 0 && rows[i - 1].key == rows[i].key) ||
                        (i + 1 < rows.size() && rows[i + 1].key == rows[i].key);
    if (isTied) tied[nameOf(list[rows[i].position])].push_back(&rows[i]);
  }
  if (tied.empty()) return;
  for (std::size_t i = 0; i < before.size(); ++i) {
    const auto found = tied.find(nameOf(before[i]));
    if (found == tied.end() || found->second.empty()) continue;
    found->second.back()->place = i;
    found->second.pop_back();
  }
}

}  // namespace

Deduplicated deduplicated(const ArrayRef& results, const VqWiFiStatusRef& status,
                          SortKeys& sortKeys) {
  const Array none({});
  const auto& elements = (results ? *results : none).elements();
  const VqWiFiStatus joined = status ? *status : VqWiFiStatus{};
  const auto strongest = std::make_shared<NetworksByName>(elements.size());
  NetworksByName others;  // in `distinct` in addition to the strongest, or instead
  ScanResultRef current;
  for (const ObjectRef& element : elements) {
    const ScanResultRef result = as<VqWiFiScanResult>(element);
    if (!result || !result->ssidString()) continue;
    if (equalNames(joined.bssid, result->bssid())) {
      current = others[result->ssidString()] = result;
    } else if (!equalNames(joined.ssidString, result->ssidString())) {
      ScanResultRef& known = (*strongest)[result->ssidString()];
      if (known && result->rssi() <= known->rssi()) continue;
      known = result;
      others.erase(result->ssidString());
    }
  }
  const NetworkDictionary filtered(strongest);
  NetworkDictionary distinct = filtered;
  for (const auto& [name, network] : others) distinct.set(network);
  NetworkList networks = filtered.networks();
  const std::vector<SortKey> keys = sortKeys.of(networks);
  Rows rows = rowsOf(keys);
  std::sort(rows.begin(), rows.end(), [&](const Row& one, const Row& other) {
    const int order = one.key.compare(other.key);
    return order != 0 ? order < 0
                      : nameOf(networks[one.position]) < nameOf(networks[other.position]);
  });
  return {.distinct = std::make_shared<const NetworkDictionary>(std::move(distinct)),
          .filtered = std::make_shared<const NetworkDictionary>(filtered),
          .listed = inOrder(rows, std::move(networks)),
          .current = current};
}

NetworkListRef sortedByName(const NetworkListRef& list, SortKeys& sortKeys) {
  return sortedByNameAfter(nullptr, list, sortKeys);
}

NetworkListRef sortedByNameAfter(const NetworkListRef& before, const NetworkListRef& list,
                                 SortKeys& sortKeys) {
  if (!list) return list;
  const std::vector<SortKey> keys = sortKeys.of(*list);
  Rows rows = rowsOf(keys);
  const bool wasSorted = std::is_sorted(rows.begin(), rows.end(), hasSmallerKey);
  if (!wasSorted) std::stable_sort(rows.begin(), rows.end(), hasSmallerKey);
  if (before) takePlaces(*before, *list, rows);
  const auto isBefore = [](const Row& one, const Row& other) {
    return std::tie(one.key, one.place) < std::tie(other.key, other.place);
  };
  const bool hasPlaces = std::is_sorted(rows.begin(), rows.end(), isBefore);
  if (wasSorted && hasPlaces) return list;
  if (!hasPlaces) std::stable_sort(rows.begin(), rows.end(), isBefore);
  return inOrder(rows, *list);
}

NetworkListRef without(const NetworkListRef& list, const ScanResultRef& network) {
  if (!list || std::find(list->begin(), list->end(), network) == list->end()) return list;
  NetworkList rest = *list;
  std::erase(rest, network);
  return std::make_shared<const NetworkList>(std::move(rest));
}

NetworkListRef with(const NetworkListRef& list, const ScanResultRef& network) {
  if (!list || !network) return list;
  NetworkList longer = *list;
  longer.push_back(network);
  return std::make_shared<const NetworkList>(std::move(longer));
}

std::vector<std::int64_t> rowsMissingFrom(const NetworkListRef& list,
                                          const NetworkDictionaryRef& dictionary) {
  std::vector<std::int64_t> rows;
  if (!list) return rows;
  for (const ScanResultRef& network : *list) {
    if (!dictionary || !dictionary->contains(network->ssidString())) {
      rows.push_back(&network - list->data());
    }
  }
  return rows;
}

}  // namespace wifi_profile
