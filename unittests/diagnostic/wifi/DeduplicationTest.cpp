// From a scan's results to the listed networks, and the moves between list and selection.

#include "support/Matchers.h"
#include "support/PickerFixture.h"

namespace wifi_profile {
namespace {

using ::testing::IsEmpty;
using ::testing::UnorderedElementsAre;

class Deduplication : public PickerFixture {
 protected:
  void SetUp() override { setUpController(makeInputs(nullptr, true)); }

  static ScanResultRef result(const char* name, const char* address, std::int64_t rssi) {
    return std::make_shared<const VqWiFiScanResult>(name ? makeText(name) : nullptr,
                                                    makeText(address), rssi);
  }
  void status(const char* name, const char* address) {
    controller->wifiStatus.set(std::make_shared<const VqWiFiStatus>(
        VqWiFiStatus{name ? makeText(name) : nullptr, address ? makeText(address) : nullptr}));
  }
  void select(const char* name) { controller->inputs()->setSelectedNetworkName(makeText(name)); }
  void scan(const std::vector<ScanResultRef>& results) {
    controller->wifiScanResults.set(
        std::make_shared<const Array>(std::vector<ObjectRef>(results.begin(), results.end())));
    controller->dedupScanResultsToHighestRSSI();
  }
  NetworkList listed() const { return *controller->filteredWiFiScanResults(); }
  NetworkList filtered() const { return controller->filteredNetworks()->networks(); }
  NetworkList distinct() const { return controller->distinctNetworks()->networks(); }

  const ScanResultRef home = result("Home", "a1", -70);
  const ScanResultRef cafe = result("Cafe", "b1", -60);
  const ScanResultRef lab = result("Lab", "c1", -50);
};

TEST_F(Deduplication, TakesTheStrongestOfANameAndOfEquallyStrongOnesTheFirst) {
  const auto first = result("Cafe", "b2", -60);
  scan({result("Cafe", "b1", -70), first, result("Cafe", "b3", -60)});
  EXPECT_EQ(listed(), NetworkList{first});
  EXPECT_EQ(filtered(), NetworkList{first});
  EXPECT_EQ(distinct(), NetworkList{first});
  EXPECT_EQ(controller->currentNetwork(), nullptr);
}

TEST_F(Deduplication, ComparesStrengthsAsSignedNumbers) {
  const auto strongest = result("Cafe", "b2", 1);
  scan({result("Cafe", "b1", -1), strongest, result("Cafe", "b3", INT64_MIN)});
  EXPECT_EQ(listed(), NetworkList{strongest});
}

TEST_F(Deduplication, ListsNoAccessPointOfTheJoinedNetwork) {
  status("Home", "a1");
  scan({result("Home", "a2", -30), home, result("Home", "a3", -20)});
  EXPECT_THAT(listed(), IsEmpty());
  EXPECT_THAT(filtered(), IsEmpty());
  EXPECT_EQ(distinct(), NetworkList{home});
  EXPECT_EQ(controller->currentNetwork(), home);
}

TEST_F(Deduplication, TakesTheLastOfSeveralResultsWithTheJoinedAddress) {
  const auto last = result("Home", "a1", -90);
  status("Home", "a1");
  scan({home, last});
  EXPECT_EQ(distinct(), NetworkList{last});
  EXPECT_EQ(controller->currentNetwork(), last);
}

TEST_F(Deduplication, KnowsTheJoinedNetworkByItsAddressOnly) {
  status("Home", "a9");
  scan({home, cafe});
  EXPECT_EQ(listed(), NetworkList{cafe});
  EXPECT_EQ(distinct(), NetworkList{cafe});
  EXPECT_EQ(controller->currentNetwork(), nullptr);
}

TEST_F(Deduplication, TellsNamesApartByCase) {
  status("Home", "a1");
  const auto other = result("home", "a2", -50);
  scan({home, other});
  EXPECT_EQ(listed(), NetworkList{other});
}

TEST_F(Deduplication, NeverListsAHiddenNetworkNotEvenAsTheJoinedOne) {
  status(nullptr, "a1");
  scan({result(nullptr, "a1", -20), cafe, result(nullptr, "a2", -30)});
  EXPECT_EQ(listed(), NetworkList{cafe});
  EXPECT_EQ(distinct(), NetworkList{cafe});
  EXPECT_EQ(controller->currentNetwork(), nullptr);
}

TEST_F(Deduplication, ListsEverythingWhereNothingIsJoined) {
  status(nullptr, nullptr);
  scan({home, cafe});
  EXPECT_THAT(listed(), UnorderedElementsAre(home, cafe));
}

TEST_F(Deduplication, ListsNothingWithoutAScan) {
  scan({home});
  controller->wifiScanResults.set(nullptr);
  controller->dedupScanResultsToHighestRSSI();
  EXPECT_THAT(listed(), IsEmpty());
  EXPECT_THAT(filtered(), IsEmpty());
  EXPECT_THAT(distinct(), IsEmpty());
}

TEST_F(Deduplication, KeepsTheJoinedAccessPointThatALaterScanLacks) {
  status("Home", "a1");
  scan({home, cafe});
  scan({cafe});
  EXPECT_EQ(controller->currentNetwork(), home);
  EXPECT_EQ(distinct(), NetworkList{cafe});
}

TEST_F(Deduplication, SortsByNameForPeopleAndKeepsEqualNamesInOrder) {
  const auto second = result("lab", "c2", -50);
  const auto list = std::make_shared<const NetworkList>(NetworkList{second, home, cafe, lab});
  controller->filteredWiFiScanResults.set(list);
  controller->sortWiFiScanResults();
  EXPECT_EQ(listed(), (NetworkList{cafe, home, second, lab}));
}

// --- The selected network out, the joined one in

TEST_F(Deduplication, PutsTheJoinedNetworkInTheSelectedOnesPlace) {
  status("Home", "a1");
  select("Cafe");
  scan({home, cafe, lab});
  controller->updateFilteredNetworkListIfNeeded();
  controller->sortWiFiScanResults();
  EXPECT_EQ(listed(), (NetworkList{home, lab}));
  EXPECT_THAT(filtered(), UnorderedElementsAre(home, lab));
}

TEST_F(Deduplication, DoesNotListTheJoinedNetworkWhenTheSelectedOneIsNotHeard) {
  status("Home", "a1");
  select("Elsewhere");
  scan({home, cafe, lab});
  controller->updateFilteredNetworkListIfNeeded();
  EXPECT_THAT(listed(), UnorderedElementsAre(cafe, lab));
}

TEST_F(Deduplication, MovesNothingWhenTheJoinedNetworkIsTheSelectedOne) {
  status("Home", "a1");
  select("Home");
  scan({home, cafe});
  controller->updateFilteredNetworkListIfNeeded();
  EXPECT_EQ(listed(), NetworkList{cafe});
}

TEST_F(Deduplication, OnlyTakesTheSelectedNetworkOutWhereNothingIsJoined) {
  controller->currentNetwork.set(home);
  status(nullptr, nullptr);
  select("Cafe");
  scan({cafe, lab});
  controller->updateFilteredNetworkListIfNeeded();
  EXPECT_EQ(listed(), NetworkList{lab});
}

TEST_F(Deduplication, AddsNothingWhereTheJoinedAccessPointWasNeverHeard) {
  status("Home", "a1");
  select("Cafe");
  scan({cafe, lab});
  controller->updateFilteredNetworkListIfNeeded();
  EXPECT_EQ(listed(), NetworkList{lab});
}

TEST_F(Deduplication, ListsALeftOverAccessPointASecondTimeUnderItsName) {
  status("Home", "a1");
  scan({home});
  status("Office", "d1");
  select("Cafe");
  const auto again = result("Home", "a2", -40);
  scan({again, cafe, lab});
  controller->updateFilteredNetworkListIfNeeded();
  controller->sortWiFiScanResults();
  EXPECT_EQ(listed(), (NetworkList{again, home, lab}));
  EXPECT_THAT(filtered(), UnorderedElementsAre(home, lab));
}

TEST_F(Deduplication, AddsAndRemovesNothingForNil) {
  scan({cafe, lab});
  controller->removeNetworkFromFilteredNetworkList(nullptr);
  controller->addNetworkToFilteredNetworkList(nullptr);
  EXPECT_THAT(listed(), UnorderedElementsAre(cafe, lab));
}

TEST_F(Deduplication, AddsAtTheEndAndRemovesEveryOccurrence) {
  scan({cafe});
  controller->addNetworkToFilteredNetworkList(home);
  controller->addNetworkToFilteredNetworkList(cafe);
  EXPECT_EQ(listed(), (NetworkList{cafe, home, cafe}));
  controller->removeNetworkFromFilteredNetworkList(cafe);
  EXPECT_EQ(listed(), NetworkList{home});
  EXPECT_EQ(filtered(), NetworkList{home});
}

}  // namespace
}  // namespace wifi_profile
