// The list of networks against the plain way to make it, scan after scan from seeds.

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "diagnostic/wifi/ScanList.h"
#include "support/FoldingCollator.h"

namespace wifi_profile {
namespace {

std::string nameOf(const ScanResultRef& network) { return network->ssidString()->string(); }

std::string folded(const ScanResultRef& network) {
  std::string key;
  runtime::SimpleNameCollator().appendSortKey(nameOf(network), key);
  return key;
}

NetworkList plainlySorted(NetworkList list) {
  std::stable_sort(list.begin(), list.end(),
                   [](const auto& one, const auto& other) { return folded(one) < folded(other); });
  return list;
}

// First the networks whose names `before` has, in its order, then the others; then sorted.
NetworkList plainlySortedAfter(const NetworkList& before, NetworkList list) {
  NetworkList inOrder;
  for (const auto& one : before) {
    const auto found = std::find_if(list.begin(), list.end(), [&](const auto& network) {
      return nameOf(network) == nameOf(one);
    });
    if (found == list.end()) continue;
    inOrder.push_back(*found);
    list.erase(found);
  }
  inOrder.insert(inOrder.end(), list.begin(), list.end());
  return plainlySorted(std::move(inOrder));
}

struct PlainLists {
  std::map<std::string, ScanResultRef> distinct;
  std::map<std::string, ScanResultRef> filtered;
  NetworkList listed;
  ScanResultRef current;
};

PlainLists plainLists(const ArrayRef& results, const VqWiFiStatus& status) {
  PlainLists lists;
  for (const ObjectRef& object : results->elements()) {
    const auto result = as<VqWiFiScanResult>(object);
    if (!result || !result->ssidString()) continue;
    const std::string name = nameOf(result);
    if (equalNames(status.bssid, result->bssid())) {
      lists.current = result;
      lists.distinct[name] = result;
    } else if (equalNames(status.ssidString, result->ssidString())) {
      continue;
    } else if (!lists.filtered.contains(name) || result->rssi() > lists.filtered[name]->rssi()) {
      lists.filtered[name] = result;
      lists.distinct[name] = result;
    }
  }
  for (const auto& [name, network] : lists.filtered) lists.listed.push_back(network);
  lists.listed = plainlySorted(std::move(lists.listed));
  return lists;
}

std::vector<std::int64_t> plainRows(const NetworkList& list, const NetworkList& other) {
  std::set<std::string> names;
  for (const auto& network : other) names.insert(nameOf(network));
  std::vector<std::int64_t> rows;
  for (std::size_t i = 0; i < list.size(); ++i) {
    if (!names.contains(nameOf(list[i]))) rows.push_back(static_cast<std::int64_t>(i));
  }
  return rows;
}

void expectSame(const NetworkDictionary& networks,
                const std::map<std::string, ScanResultRef>& expected) {
  ASSERT_EQ(networks.count(), expected.size());
  for (const auto& [name, network] : expected) {
    ASSERT_EQ(networks.networkNamed(makeText(name)), network);
  }
}

// A few letters in either case, so that names meet, and meet but for their case.
class RandomScans {
 public:
  explicit RandomScans(unsigned seed) : random_(seed) {}

  std::size_t upTo(std::size_t end) { return random_() % end; }

  TextRef name() {
    if (upTo(15) == 0) return nullptr;
    std::string name(upTo(4), ' ');
    for (char& c : name) c = "aAbB\xC3z"[upTo(6)];
    return makeText(upTo(4) == 0 ? "a name of some length " + name : name);
  }

  TextRef address() {
    return upTo(10) == 0 ? nullptr : makeText("02:0" + std::to_string(upTo(30)));
  }

  ArrayRef scan() {
    std::vector<ObjectRef> results(upTo(40));
    for (ObjectRef& result : results) {
      result = upTo(20) == 0 ? ObjectRef(makeText("a"))
                             : std::make_shared<const VqWiFiScanResult>(
                                   name(), address(), -static_cast<std::int64_t>(upTo(5)));
    }
    return std::make_shared<const Array>(std::move(results));
  }

  VqWiFiStatus status() { return {name(), address()}; }

 private:
  std::mt19937 random_;
};

// A network taken out or put in, as choices of the person do it, and the list sorted again. Returns
// the list then.
NetworkListRef listAfterATap(RandomScans& random, NetworkListRef list, NameOrder& order) {
  if (list->empty()) return list;
  const ScanResultRef out = (*list)[random.upTo(list->size())];
  const ScanResultRef in = std::make_shared<const VqWiFiScanResult>(makeText("Ab"), nullptr, -1);
  NetworkList plain = *list;
  std::erase(plain, out);
  plain.push_back(in);
  plain.push_back(out);
  list = with(with(without(list, out), in), out);
  EXPECT_EQ(*list, plain);
  const NetworkListRef sorted = sortedByName(list, order);
  EXPECT_EQ(*sorted, plainlySorted(plain));
  return sorted;
}

TEST(ScanListAtRandom, IsThatOfThePlainWay) {
  FoldingCollator collator;
  const InstalledPlatform platform({.collator = &collator});
  for (unsigned seed = 0; seed < 1500; ++seed) {
    SCOPED_TRACE(seed);
    RandomScans random(seed);
    NameOrder order;
    PlainLists plainBefore;
    Deduplicated before = deduplicated(nullptr, nullptr, order);
    NetworkListRef shown;
    for (auto left = 1 + random.upTo(8); left > 0; --left) {
      const ArrayRef scan = random.scan();
      const VqWiFiStatus status = random.status();
      const PlainLists plain = plainLists(scan, status);
      const Deduplicated made =
          deduplicated(scan, std::make_shared<const VqWiFiStatus>(status), order);
      ASSERT_EQ(*made.listed, plain.listed);
      ASSERT_EQ(made.current, plain.current);
      ASSERT_NO_FATAL_FAILURE(expectSame(*made.filtered, plain.filtered));
      ASSERT_NO_FATAL_FAILURE(expectSame(*made.distinct, plain.distinct));
      ASSERT_EQ(rowsMissingFrom(before.listed, made.filtered),
                plainRows(plainBefore.listed, plain.listed));
      ASSERT_EQ(rowsMissingFrom(made.listed, before.filtered),
                plainRows(plain.listed, plainBefore.listed));
      const NetworkListRef refreshed = sortedByNameAfter(shown, made.listed, order);
      ASSERT_EQ(*refreshed, plainlySortedAfter(shown ? *shown : NetworkList(), *made.listed));
      shown = listAfterATap(random, refreshed, order);
      ASSERT_FALSE(::testing::Test::HasFailure());
      before = made;
      plainBefore = plain;
    }
  }
}

}  // namespace
}  // namespace wifi_profile
