// The list of networks that is made of a scan, rule by rule.

#include <gmock/gmock.h>
#include <string>
#include <thread>
#include <vector>

#include "diagnostic/wifi/ScanList.h"
#include "support/FoldingCollator.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

TextRef textOrNil(const char* text) { return text ? makeText(text) : nullptr; }

// nullptr: no name, no address.
ScanResultRef heard(const char* name, std::int64_t strength = -50, const char* address = nullptr) {
  return std::make_shared<const VqWiFiScanResult>(textOrNil(name), textOrNil(address), strength);
}

ArrayRef scanOf(std::vector<ObjectRef> results) {
  return std::make_shared<const Array>(std::move(results));
}

VqWiFiStatusRef joined(const char* name, const char* address) {
  return std::make_shared<const VqWiFiStatus>(VqWiFiStatus{textOrNil(name), textOrNil(address)});
}

NetworkListRef listOf(NetworkList networks) {
  return std::make_shared<const NetworkList>(std::move(networks));
}

std::vector<std::string> namesOf(const NetworkListRef& list) {
  std::vector<std::string> names;
  for (const auto& network : *list) names.push_back(network->ssidString()->string());
  return names;
}

class ScanList : public ::testing::Test {
 protected:
  Deduplicated list(std::vector<ObjectRef> results, const VqWiFiStatusRef& status = nullptr) {
    return deduplicated(scanOf(std::move(results)), status, keys);
  }
  NetworkListRef sorted(const NetworkListRef& networks) { return sortedByName(networks, keys); }

  const std::shared_ptr<FoldingCollator> collator = std::make_shared<FoldingCollator>();
  const InstalledPlatform platform{{.collator = collator.get()}};
  SortKeys keys;
};

TEST_F(ScanList, KeepsTheEarlierOfEqualStrengths) {
  const auto first = heard("Home", -60);
  const auto made = list({heard("Home", -70), first, heard("Home", -60)});
  EXPECT_THAT(*made.listed, ElementsAre(first));
  EXPECT_EQ(made.filtered->networkNamed(makeText("Home")), first);
  EXPECT_EQ(made.distinct->networkNamed(makeText("Home")), first);
}

TEST_F(ScanList, KeepsTheStrongestOfAName) {
  const auto strongest = heard("Home", 5);
  EXPECT_THAT(*list({heard("Home", -1), strongest, heard("Home", INT64_MIN)}).listed,
              ElementsAre(strongest));
}

TEST_F(ScanList, ComparesStrengthsAsSignedNumbers) {
  const auto strongest = heard("Home", INT64_MAX);
  EXPECT_THAT(*list({heard("Home", INT64_MIN), strongest}).listed, ElementsAre(strongest));
}

TEST_F(ScanList, IsByNameForPeopleAndThenByBytes) {
  const auto made =
      list({heard("home"), heard("Zoo"), heard("Home"), heard("cafe"), heard("HOME")});
  EXPECT_THAT(namesOf(made.listed), ElementsAre("cafe", "HOME", "Home", "home", "Zoo"));
}

TEST_F(ScanList, LeavesTheJoinedNetworkOut) {
  const auto own = heard("Home", -70, "02:01");
  const auto made = list(
      {heard("Home", -40, "02:02"), own, heard("Home", -30, "02:03"), heard("Cafe", -50, "02:04")},
      joined("Home", "02:01"));
  EXPECT_THAT(namesOf(made.listed), ElementsAre("Cafe"));
  EXPECT_EQ(made.current, own);
  EXPECT_EQ(made.distinct->networkNamed(makeText("Home")), own);
  EXPECT_EQ(made.distinct->networks().size(), 2U);
  EXPECT_EQ(made.filtered->networks().size(), 1U);
}

TEST_F(ScanList, DropsTheJoinedNetworkWhenItsAccessPointIsNotHeard) {
  const auto made = list({heard("Home", -40, "02:02")}, joined("Home", "02:01"));
  EXPECT_EQ(made.current, nullptr);
  EXPECT_EQ(made.distinct->networks().size(), 0U);
  EXPECT_THAT(*made.listed, IsEmpty());
}

TEST_F(ScanList, PassesOverResultsWithoutAName) {
  const auto made =
      list({heard(nullptr), heard(nullptr, -20, "02:01"), heard("Cafe")}, joined("Home", "02:01"));
  EXPECT_THAT(namesOf(made.listed), ElementsAre("Cafe"));
  EXPECT_EQ(made.current, nullptr);
}

TEST_F(ScanList, ListsANetworkWhoseNameIsEmpty) {
  EXPECT_THAT(namesOf(list({heard("")}).listed), ElementsAre(""));
}

TEST_F(ScanList, TakesTheLastResultWithTheJoinedAddress) {
  const auto last = heard("Home", -90, "02:01");
  const auto made = list({heard("Home", -30, "02:01"), last}, joined("Home", "02:01"));
  EXPECT_EQ(made.current, last);
  EXPECT_EQ(made.distinct->networkNamed(makeText("Home")), last);
}

TEST_F(ScanList, GivesTheJoinedAccessPointUnderAnotherNameItsPlace) {
  const auto other = heard("Cafe", -20, "02:02");
  const auto own = heard("Cafe", -90, "02:01");
  const auto stronger = heard("Cafe", -10, "02:03");
  const auto made = list({other, own}, joined("Home", "02:01"));
  EXPECT_EQ(made.distinct->networkNamed(makeText("Cafe")), own);
  EXPECT_EQ(made.filtered->networkNamed(makeText("Cafe")), other);
  EXPECT_THAT(*made.listed, ElementsAre(other));
  const auto again = list({other, own, stronger}, joined("Home", "02:01"));
  EXPECT_EQ(again.distinct->networkNamed(makeText("Cafe")), stronger);
  EXPECT_THAT(*again.listed, ElementsAre(stronger));
}

TEST_F(ScanList, TakesANilAddressForUnequalToEverything) {
  EXPECT_EQ(list({heard("Cafe")}, joined("Home", nullptr)).current, nullptr);
  EXPECT_EQ(list({heard("Cafe")}, joined("Home", "")).current, nullptr);
  EXPECT_EQ(list({heard("Cafe", -50, "")}, joined("Home", nullptr)).current, nullptr);
  EXPECT_NE(list({heard("Cafe", -50, "")}, joined("Home", "")).current, nullptr);
}

TEST_F(ScanList, ComparesTheWholeAddress) {
  for (const char* address : {"02:0", "02:012", "12:01", "02:02", ""}) {
    EXPECT_EQ(list({heard("Cafe", -50, address)}, joined("Home", "02:01")).current, nullptr);
  }
}

TEST_F(ScanList, ListsEverythingOfADeviceThatIsNotJoined) {
  for (const auto& status : {VqWiFiStatusRef(), joined(nullptr, nullptr)}) {
    const auto made = list({heard("Home", -50, "02:01"), heard("Cafe")}, status);
    EXPECT_THAT(namesOf(made.listed), ElementsAre("Cafe", "Home"));
    EXPECT_EQ(made.current, nullptr);
  }
}

TEST_F(ScanList, PassesOverObjectsOfOtherKinds) {
  const auto made = list({makeText("Home"), nullPlaceholder(), heard("Cafe"), scanOf({})});
  EXPECT_THAT(namesOf(made.listed), ElementsAre("Cafe"));
}

TEST_F(ScanList, IsEmptyWithoutResults) {
  for (const ArrayRef& results : {ArrayRef(), scanOf({})}) {
    const auto made = deduplicated(results, joined("Home", "02:01"), keys);
    EXPECT_THAT(*made.listed, IsEmpty());
    EXPECT_EQ(made.distinct->networks().size(), 0U);
    EXPECT_EQ(made.filtered->networks().size(), 0U);
  }
}

TEST_F(ScanList, FindsTheRowsOfLostAndOfNewNames) {
  const auto before = list({heard("Alm"), heard("Bar"), heard("Cafe"), heard("Home")});
  const auto after = list({heard("Home"), heard("Bistro"), heard("Alm"), heard("Bar")});
  EXPECT_THAT(namesOf(after.listed), ElementsAre("Alm", "Bar", "Bistro", "Home"));
  EXPECT_THAT(rowsMissingFrom(before.listed, after.filtered), ElementsAre(2));
  EXPECT_THAT(rowsMissingFrom(after.listed, before.filtered), ElementsAre(2));
}

TEST_F(ScanList, LosesCafeAndFindsBistro) {
  const auto before = list({heard("Alm"), heard("Bus"), heard("Cafe"), heard("Home")});
  const auto after = list({heard("Home"), heard("Bistro"), heard("Alm"), heard("Bus")});
  EXPECT_THAT(rowsMissingFrom(before.listed, after.filtered), ElementsAre(2));
  EXPECT_THAT(rowsMissingFrom(after.listed, before.filtered), ElementsAre(1));
}

TEST_F(ScanList, ChangesNoRowAndAsksNoCollatorForTheSameNames) {
  const auto before = list({heard("Home", -40), heard("Cafe", -50), heard("home", -60)});
  const int calls = collator->calls();
  const auto after = list({heard("home", -30), heard("Home", -70), heard("Cafe", -20)});
  EXPECT_THAT(rowsMissingFrom(before.listed, after.filtered), IsEmpty());
  EXPECT_THAT(rowsMissingFrom(after.listed, before.filtered), IsEmpty());
  EXPECT_EQ(collator->calls(), calls);
  EXPECT_EQ(namesOf(before.listed), namesOf(after.listed));
}

TEST_F(ScanList, MissesEveryRowWithoutADictionaryAndNoneWithoutAList) {
  const auto made = list({heard("Home"), heard("Cafe")});
  EXPECT_THAT(rowsMissingFrom(made.listed, nullptr), ElementsAre(0, 1));
  EXPECT_THAT(rowsMissingFrom(nullptr, made.filtered), IsEmpty());
  EXPECT_THAT(rowsMissingFrom(nullptr, nullptr), IsEmpty());
}

TEST_F(ScanList, FindsMissingRowsInAnyOrder) {
  const auto dictionary = list({heard("a"), heard("b"), heard("c"), heard("d")}).filtered;
  const auto rows =
      listOf({heard("d"), heard("x"), heard("a"), heard("c"), heard("y"), heard("b")});
  EXPECT_THAT(rowsMissingFrom(rows, dictionary), ElementsAre(1, 4));
}

TEST_F(ScanList, LosesEveryElementThatIsTheObject) {
  const auto home = heard("Home");
  const auto same = heard("Home");
  const auto before = listOf({home, same, heard("Cafe"), home});
  const auto after = without(before, home);
  EXPECT_EQ(after->size(), 2U);
  EXPECT_EQ(after->front(), same);
  EXPECT_EQ(before->size(), 4U);
  EXPECT_EQ(without(after, home), after);
  EXPECT_EQ(without(after, nullptr), after);
  EXPECT_EQ(without(nullptr, home), nullptr);
}

TEST_F(ScanList, GetsANetworkAtItsEnd) {
  const auto home = heard("Home");
  const auto before = listOf({heard("Zoo"), home});
  const auto after = with(before, home);
  EXPECT_THAT(namesOf(after), ElementsAre("Zoo", "Home", "Home"));
  EXPECT_EQ(after->back(), home);
  EXPECT_EQ(before->size(), 2U);
  EXPECT_EQ(with(before, nullptr), before);
  EXPECT_EQ(with(nullptr, home), nullptr);
}

TEST_F(ScanList, SortsWithoutSwappingNamesThatCompareEqual) {
  EXPECT_THAT(namesOf(sorted(listOf(
                  {heard("home"), heard("Zoo"), heard("HOME"), heard("cafe"), heard("Home")}))),
              ElementsAre("cafe", "home", "HOME", "Home", "Zoo"));
}

TEST_F(ScanList, StaysTheSameObjectWhenItIsInOrder) {
  const auto inOrder = listOf({heard("cafe"), heard("home"), heard("HOME"), heard("home")});
  EXPECT_EQ(sorted(inOrder), inOrder);
  EXPECT_EQ(sorted(nullptr), nullptr);
  const auto none = listOf({});
  EXPECT_EQ(sorted(none), none);
}

TEST_F(ScanList, PutsAnAppendedNetworkBehindThoseThatCompareEqual) {
  const auto made = list({heard("HOME"), heard("Home"), heard("Zoo"), heard("cafe")});
  const auto longer = sorted(with(made.listed, heard("hOME")));
  EXPECT_THAT(namesOf(longer), ElementsAre("cafe", "HOME", "Home", "hOME", "Zoo"));
}

TEST_F(ScanList, KeepsTheOrderBeforeAmongNamesThatCompareEqual) {
  const auto before = listOf({heard("home"), heard("Home"), heard("Zoo")});
  const auto after = listOf({heard("cafe"), heard("HOME"), heard("Home"), heard("hOME"),
                             heard("home"), heard("zoo"), heard("Zoo")});
  EXPECT_THAT(namesOf(sortedByNameAfter(before, after, keys)),
              ElementsAre("cafe", "home", "Home", "HOME", "hOME", "Zoo", "zoo"));
}

TEST_F(ScanList, PutsAnAppendedNetworkWhereItsNameWasBefore) {
  const auto before = listOf({heard("home"), heard("HOME"), heard("Home")});
  const auto after = listOf({heard("HOME"), heard("Home"), heard("home")});
  EXPECT_THAT(namesOf(sortedByNameAfter(before, after, keys)), ElementsAre("home", "HOME", "Home"));
}

TEST_F(ScanList, PutsTheRowsOfANameThatStandsTwiceWhereTheyWereBefore) {
  const auto before = listOf({heard("Home"), heard("home"), heard("Home")});
  const auto first = heard("Home", -10);
  const auto second = heard("Home", -20);
  const auto sortedAfter = sortedByNameAfter(before, listOf({first, second, heard("home")}), keys);
  EXPECT_THAT(namesOf(sortedAfter), ElementsAre("Home", "home", "Home"));
  EXPECT_EQ(sortedAfter->front(), first);
  EXPECT_EQ(sortedAfter->back(), second);
}

TEST_F(ScanList, StaysTheSameObjectWhenItIsInTheOrderBefore) {
  const auto before = listOf({heard("home"), heard("Home")});
  const auto after = listOf({heard("cafe"), heard("home"), heard("Home"), heard("HOME")});
  EXPECT_EQ(sortedByNameAfter(before, after, keys), after);
  EXPECT_EQ(sortedByNameAfter(nullptr, after, keys), after);
  EXPECT_EQ(sortedByNameAfter(before, nullptr, keys), nullptr);
}

TEST_F(ScanList, SortsNamesThatNoScanFound) {
  list({heard("Home")});
  EXPECT_THAT(namesOf(sorted(listOf({heard("d"), heard("C"), heard("b"), heard("A")}))),
              ElementsAre("A", "b", "C", "d"));
}

TEST_F(ScanList, IsMadeOnSeveralThreadsWithOneOrder) {
  std::vector<std::thread> threads;
  for (int thread = 0; thread < 3; ++thread) {
    threads.emplace_back([this, thread] {
      for (int i = 0; i < 30; ++i) {
        const auto made =
            list({heard("Home"), heard(std::to_string(thread).c_str()),
                  heard(std::to_string(i).c_str(), -20), heard(std::to_string(i).c_str())});
        EXPECT_EQ(sorted(made.listed), made.listed);
        EXPECT_THAT(rowsMissingFrom(made.listed, made.filtered), IsEmpty());
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
}

}  // namespace
}  // namespace wifi_profile
