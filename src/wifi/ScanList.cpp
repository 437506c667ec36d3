#include "wifi/ScanList.h"

#include <algorithm>
#include <typeinfo>
#include <utility>

namespace wifi_profile {
namespace {

using Number = NameOrder::Pass::Number;
using Elements = std::vector<ObjectRef>;

constexpr std::uint32_t kNone = UINT32_MAX;

// Which results stand for one name in the two dictionaries: positions in the scan's array.
struct Chosen {
  std::uint32_t distinct = kNone;
  std::uint32_t filtered = kNone;
};

const VqWiFiScanResult& resultAt(const Elements& elements, std::size_t position) {
  return static_cast<const VqWiFiScanResult&>(*elements[position]);
}

ScanResultRef refAt(const Elements& elements, std::size_t position) {
  return std::static_pointer_cast<const VqWiFiScanResult>(elements[position]);
}

// The class is final, so that comparing types, which is much cheaper than a cast, is enough.
bool isNamedResult(const ObjectRef& object) {
  if (!object) return false;
  const Object& value = *object;
  return typeid(value) == typeid(VqWiFiScanResult) &&
         static_cast<const VqWiFiScanResult&>(value).ssidString();
}

// Goes through the results once. Gives what was chosen for each name by the name's number, and in
// `current` the position of the joined access point.
std::vector<Chosen> choose(const Elements& elements, const VqWiFiStatus& status,
                           NameOrder::Pass& names, std::uint32_t& current) {
  std::vector<Chosen> chosen(names.count());
  for (std::uint32_t i = 0; i < elements.size(); ++i) {
    if (!isNamedResult(elements[i])) continue;
    const VqWiFiScanResult& result = resultAt(elements, i);
    const bool isCurrent = equalNames(status.bssid, result.bssid());
    if (!isCurrent && equalNames(status.ssidString, result.ssidString())) continue;
    const Number number = names.numberOf(result.ssidString());
    if (number == chosen.size()) chosen.emplace_back();
    Chosen& best = chosen[number];
    if (isCurrent) {
      best.distinct = current = i;
    } else if (best.filtered == kNone || result.rssi() > resultAt(elements, best.filtered).rssi()) {
      best.distinct = best.filtered = i;
    }
  }
  return chosen;
}

template <class T>
std::shared_ptr<const T> shared(T value) {
  return std::make_shared<const T>(std::move(value));
}

}  // namespace

Deduplicated deduplicated(const ArrayRef& results, const VqWiFiStatusRef& status,
                          NameOrder& order) {
  static const Elements kNoElements;
  const Elements& elements = results ? results->elements() : kNoElements;
  NetworkList distinct;
  NetworkList listed;
  std::uint32_t current = kNone;
  {
    NameOrder::Pass names(order, NameOrder::Pass::Of::scan);
    const std::vector<Chosen> chosen =
        choose(elements, status ? *status : VqWiFiStatus{}, names, current);
    for (const Number number : names.inOrder()) {
      const Chosen& best = chosen[number];
      if (best.distinct != kNone) distinct.push_back(refAt(elements, best.distinct));
      if (best.filtered != kNone) listed.push_back(refAt(elements, best.filtered));
    }
  }
  return {.distinct = shared(NetworkDictionary(std::move(distinct))),
          .filtered = shared(NetworkDictionary(listed)),
          .listed = shared(std::move(listed)),
          .current = current == kNone ? nullptr : refAt(elements, current)};
}

NetworkListRef sortedByName(const NetworkListRef& list, NameOrder& order) {
  if (!list) return list;
  NameOrder::Pass names(order, NameOrder::Pass::Of::list);
  std::vector<std::pair<Number, std::uint32_t>> rows;  // the name, and the position in `list`
  rows.reserve(list->size());
  for (const ScanResultRef& network : *list) {
    rows.emplace_back(names.numberOf(network->ssidString()),
                      static_cast<std::uint32_t>(rows.size()));
  }
  names.inOrder();
  const auto before = [&](const auto& one, const auto& other) {
    return names.hasSmallerKey(one.first, other.first);
  };
  // Mostly, one network was put behind a list that is in order.
  const auto rest = std::is_sorted_until(rows.begin(), rows.end(), before);
  if (rest == rows.end()) return list;
  std::stable_sort(rest, rows.end(), before);
  std::inplace_merge(rows.begin(), rest, rows.end(), before);
  NetworkList sorted;
  sorted.reserve(list->size());
  for (const auto& row : rows) sorted.push_back((*list)[row.second]);
  return shared(std::move(sorted));
}

NetworkListRef without(const NetworkListRef& list, const ScanResultRef& network) {
  if (!list || std::find(list->begin(), list->end(), network) == list->end()) return list;
  NetworkList rest;
  rest.reserve(list->size());
  std::remove_copy(list->begin(), list->end(), std::back_inserter(rest), network);
  return shared(std::move(rest));
}

NetworkListRef with(const NetworkListRef& list, const ScanResultRef& network) {
  if (!list || !network) return list;
  NetworkList longer;
  longer.reserve(list->size() + 1);
  longer = *list;
  longer.push_back(network);
  return shared(std::move(longer));
}

std::vector<std::int64_t> rowsMissingFrom(const NetworkListRef& list,
                                          const NetworkDictionaryRef& dictionary) {
  std::vector<std::int64_t> rows;
  if (!list) return rows;
  for (std::size_t i = 0; i < list->size(); ++i) {
    if (dictionary && dictionary->contains((*list)[i]->ssidString())) continue;
    rows.push_back(static_cast<std::int64_t>(i));
  }
  return rows;
}

}  // namespace wifi_profile
