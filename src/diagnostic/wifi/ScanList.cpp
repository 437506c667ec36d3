#include "diagnostic/wifi/ScanList.h"

#include <algorithm>
#include <typeinfo>
#include <utility>

namespace wifi_profile {
namespace {

using NameNumber = NameOrder::Pass::Number;
using Elements = std::vector<ObjectRef>;

constexpr std::uint32_t kNone = UINT32_MAX;

// The results chosen for one name in the two dictionaries, as positions in the array of the scan.
struct Chosen {
  std::uint32_t distinct = kNone;
  std::uint32_t filtered = kNone;
};

const VqWiFiScanResult& resultAt(const Elements& elements, std::size_t position) {
  return static_cast<const VqWiFiScanResult&>(*elements[position]);
}

ScanResultRef refAt(const Elements& elements, std::size_t position) {
  return {elements[position], &resultAt(elements, position)};
}

void append(const Elements& elements, std::size_t position, NetworkList& list) {
  list.emplace_back(elements[position], &resultAt(elements, position));
}

// The class is final, so comparing types is enough. It is much cheaper than a cast.
bool isNamedResult(const ObjectRef& object) {
  if (!object) return false;
  const Object& value = *object;
  return typeid(value) == typeid(VqWiFiScanResult) &&
         static_cast<const VqWiFiScanResult&>(value).ssidString();
}

// The address of the joined access point, if it is known.
class JoinedAddress {
 public:
  explicit JoinedAddress(const TextRef& address)
      : isKnown_(address != nullptr), address_(address ? address->string() : std::string_view()) {}

  // Compares from the end: addresses of one vendor begin with the same bytes.
  bool isThatOf(const VqWiFiScanResult& result) const {
    if (!isKnown_ || !result.bssid()) return false;
    const std::string& address = result.bssid()->string();
    return address.size() == address_.size() &&
           std::equal(address.rbegin(), address.rend(), address_.rbegin());
  }

 private:
  bool isKnown_;
  std::string_view address_;
};

// Goes through the results once. Returns the chosen results by name number. Sets `current` to the
// position of the joined access point if it is found.
std::vector<Chosen> choose(const Elements& elements, const VqWiFiStatus& status,
                           NameOrder::Pass& names, std::uint32_t& current) {
  const JoinedAddress joinedAddress(status.bssid);
  const NameNumber joined = status.ssidString ? names.numberOf(status.ssidString) : kNone;
  std::vector<Chosen> chosen(names.count());
  std::uint32_t i = UINT32_MAX;
  for (const ObjectRef& element : elements) {
    ++i;
    if (!isNamedResult(element)) continue;
    const auto& result = static_cast<const VqWiFiScanResult&>(*element);
    const NameNumber number = names.numberOf(result.ssidString());
    if (number == chosen.size()) chosen.emplace_back();
    Chosen& best = chosen[number];
    if (joinedAddress.isThatOf(result)) {
      best.distinct = current = i;
    } else if (number != joined && (best.filtered == kNone ||
                                    result.rssi() > resultAt(elements, best.filtered).rssi())) {
      best.distinct = best.filtered = i;
    }
  }
  return chosen;
}

// An element of a list that is being sorted.
struct Row {
  NameNumber name;
  std::uint32_t position;  // in the list
};
using Rows = std::vector<Row>;

// Stable. Returns whether the rows were already in order.
bool sortByKey(Rows& rows, const NameOrder::Pass& names) {
  const auto isBefore = [&](const Row& one, const Row& other) {
    return names.hasSmallerKey(one.name, other.name);
  };
  // Usually one network was appended to a sorted list.
  const auto rest = std::is_sorted_until(rows.begin(), rows.end(), isBefore);
  if (rest == rows.end()) return true;
  std::stable_sort(rest, rows.end(), isBefore);
  std::inplace_merge(rows.begin(), rest, rows.end(), isBefore);
  return false;
}

// The rows must be sorted by key.
bool hasEqualKeys(const Rows& rows, const NameOrder::Pass& names) {
  return std::adjacent_find(rows.begin(), rows.end(), [&](const Row& one, const Row& other) {
           return !names.hasSmallerKey(one.name, other.name);
         }) != rows.end();
}

// Sorts rows with equal keys by their positions in `before`; rows that it lacks come last. Returns
// whether the rows were already in order.
bool takeOrderOf(const NetworkList& before, Rows& rows, NameOrder::Pass& names) {
  std::vector<NameNumber> namesBefore;
  namesBefore.reserve(before.size());
  for (const ScanResultRef& network : before) {
    namesBefore.push_back(names.numberOf(network->ssidString()));
  }
  // The rows of each name as a linked list, in ascending order.
  std::vector<std::uint32_t> first(names.count(), kNone);
  std::vector<std::uint32_t> next(rows.size(), kNone);
  for (std::size_t i = rows.size(); i-- > 0;) {
    next[i] = std::exchange(first[rows[i].name], static_cast<std::uint32_t>(i));
  }
  std::vector<std::uint32_t> place(rows.size(), kNone);  // in `before`, by position in the list
  std::uint32_t i = 0;
  for (const NameNumber name : namesBefore) {
    if (const std::uint32_t row = first[name]; row != kNone) {
      place[rows[row].position] = i;
      first[name] = next[row];
    }
    ++i;
  }
  const auto isBefore = [&](const Row& one, const Row& other) {
    if (names.hasSmallerKey(one.name, other.name)) return true;
    if (names.hasSmallerKey(other.name, one.name)) return false;
    return place[one.position] < place[other.position];
  };
  if (std::is_sorted(rows.begin(), rows.end(), isBefore)) return true;
  std::stable_sort(rows.begin(), rows.end(), isBefore);
  return false;
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
  NetworkList listed;
  NetworkList others;  // in `distinct` instead of a listed one, or not listed
  std::uint32_t current = kNone;
  {
    NameOrder::Pass names(order, NameOrder::Pass::Of::scan);
    const std::vector<Chosen> chosen =
        choose(elements, status ? *status : VqWiFiStatus{}, names, current);
    listed.reserve(chosen.size());
    for (const NameNumber number : names.inOrder()) {
      const Chosen& best = chosen[number];
      if (best.filtered != kNone) append(elements, best.filtered, listed);
      if (best.distinct != best.filtered) append(elements, best.distinct, others);
    }
  }
  const auto filtered = shared(NetworkDictionary(std::move(listed)));
  NetworkDictionary distinct = *filtered;
  for (ScanResultRef& network : others) distinct.set(std::move(network));
  return {.distinct = shared(std::move(distinct)),
          .filtered = filtered,
          .listed = NetworkListRef(filtered, &filtered->networks()),
          .current = current == kNone ? nullptr : refAt(elements, current)};
}

NetworkListRef sortedByName(const NetworkListRef& list, NameOrder& order) {
  return sortedByNameAfter(nullptr, list, order);
}

NetworkListRef sortedByNameAfter(const NetworkListRef& before, const NetworkListRef& list,
                                 NameOrder& order) {
  if (!list) return list;
  NameOrder::Pass names(order, NameOrder::Pass::Of::list);
  Rows rows;
  rows.reserve(list->size());
  for (const ScanResultRef& network : *list) {
    rows.push_back(
        {names.numberOf(network->ssidString()), static_cast<std::uint32_t>(rows.size())});
  }
  names.inOrder();
  const bool wasInOrder = sortByKey(rows, names);
  const bool keptOrder = !before || !hasEqualKeys(rows, names) || takeOrderOf(*before, rows, names);
  if (wasInOrder && keptOrder) return list;
  NetworkList sorted;
  sorted.reserve(list->size());
  for (const Row& row : rows) sorted.push_back((*list)[row.position]);
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
  // Both are in the same order, so a network is usually found directly after the previous one.
  NetworkDictionary::Position next = 0;
  for (const ScanResultRef& network : *list) {
    const auto position =
        dictionary ? dictionary->positionOf(network->ssidString(), next) : NetworkDictionary::kNone;
    if (position != NetworkDictionary::kNone) {
      next = position + 1;
    } else {
      rows.push_back(&network - list->data());
    }
  }
  return rows;
}

}  // namespace wifi_profile
