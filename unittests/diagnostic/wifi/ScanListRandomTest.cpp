// The list of networks, scan after scan, held to the expected list and to the rules of its order.

#include <algorithm>
#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "diagnostic/wifi/ScanList.h"
#include "support/ExpectedList.h"
#include "support/FoldingCollator.h"

namespace wifi_profile {
namespace {

std::string nameOf(const ScanResultRef& network) { return network->ssidString()->string(); }

std::string keyOf(const ScanResultRef& network) {
  return NameCollator::shared()->sortKey(nameOf(network));
}

// Names of a few letters in either case, so that names repeat, and differ only by case.
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

  VqWiFiStatusRef status() {
    return std::make_shared<const VqWiFiStatus>(VqWiFiStatus{name(), address()});
  }

 private:
  std::mt19937 random_;
};

class ScanListAtRandom : public ::testing::TestWithParam<unsigned> {
 protected:
  // `rows` must be the positions in `list` of the names that `other` lacks.
  static void expectMissing(const std::vector<std::int64_t>& rows, const NetworkList& list,
                            const NetworkList& other) {
    for (std::size_t i = 0; i < list.size(); ++i) {
      const bool isMissing = std::none_of(other.begin(), other.end(), [&](const auto& network) {
        return nameOf(network) == nameOf(list[i]);
      });
      EXPECT_EQ(std::count(rows.begin(), rows.end(), i), isMissing ? 1 : 0) << i;
    }
    EXPECT_TRUE(std::is_sorted(rows.begin(), rows.end()));
  }

  // Both lists must have the same networks, and `sorted` must be in the order of the names, in
  // which `earlier` decides between names that compare equal.
  template <class Order>
  static void expectSorted(const NetworkList& sorted, const NetworkList& list, Order earlier) {
    EXPECT_TRUE(std::is_permutation(sorted.begin(), sorted.end(), list.begin(), list.end()));
    for (std::size_t i = 1; i < sorted.size(); ++i) {
      const auto& one = sorted[i - 1];
      const auto& other = sorted[i];
      EXPECT_TRUE(keyOf(one) < keyOf(other) || (keyOf(one) == keyOf(other) && earlier(one, other)))
          << nameOf(one) << ", " << nameOf(other);
    }
  }

  static std::ptrdiff_t positionIn(const NetworkList& list, const ScanResultRef& network) {
    return std::find(list.begin(), list.end(), network) - list.begin();
  }
  static std::ptrdiff_t positionOfName(const NetworkList& list, const ScanResultRef& network) {
    return std::find_if(list.begin(), list.end(),
                        [&](const auto& other) { return nameOf(other) == nameOf(network); }) -
           list.begin();
  }

  FoldingCollator collator;
  const InstalledPlatform platform{{.collator = &collator}};
};

TEST_P(ScanListAtRandom, IsTheExpectedListInOrder) {
  RandomScans random(GetParam());
  SortKeys keys;
  Deduplicated before = deduplicated(nullptr, nullptr, keys);
  auto shown = std::make_shared<const NetworkList>();
  for (auto left = 1 + random.upTo(8); left > 0; --left) {
    const ArrayRef scan = random.scan();
    const VqWiFiStatusRef status = random.status();
    const Deduplicated made = deduplicated(scan, status, keys);
    const ExpectedList expected = expectedFrom(scan, status);
    ASSERT_TRUE(areAsExpected(expected, *made.listed, *made.filtered, *made.distinct));
    ASSERT_EQ(made.current, expected.current);
    expectSorted(*made.listed, expected.listed,
                 [](const auto& one, const auto& other) { return nameOf(one) < nameOf(other); });
    expectMissing(rowsMissingFrom(before.listed, made.filtered), *before.listed, *made.listed);
    expectMissing(rowsMissingFrom(made.listed, before.filtered), *made.listed, *before.listed);

    const NetworkList mixed = [&] {
      NetworkList list = *made.listed;
      if (!list.empty()) std::rotate(list.begin(), list.begin() + 1, list.end());
      return list;
    }();
    const auto rest = std::make_shared<const NetworkList>(mixed);
    expectSorted(*sortedByName(rest, keys), mixed, [&](const auto& one, const auto& other) {
      return positionIn(mixed, one) < positionIn(mixed, other);
    });
    const auto after = sortedByNameAfter(shown, rest, keys);
    expectSorted(*after, mixed, [&](const auto& one, const auto& other) {
      const auto place = [&](const auto& network) {
        return std::pair(positionOfName(*shown, network), positionIn(mixed, network));
      };
      return place(one) < place(other);
    });
    ASSERT_FALSE(HasFailure());
    shown = after;
    before = made;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, ScanListAtRandom, ::testing::Range(0U, 200U));

}  // namespace
}  // namespace wifi_profile
