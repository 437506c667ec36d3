// What the picker's table shows, and what its rows do.

#include "diagnostic/ui/WiFiHeaderView.h"
#include "support/Matchers.h"
#include "support/PickerFixture.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class PickerTable : public PickerFixture {
 protected:
  void SetUp() override {
    setUpController(makeInputs(nullptr, true));
    controller->setupViewWithNetworkList(true);
    screen->told.clear();
  }
  void select(const char* name) {
    controller->inputs()->setSelectedNetworkName(name ? makeText(name) : nullptr);
  }
  void list(const std::vector<const char*>& names) {
    NetworkList networks;
    for (const char* const name : names) networks.push_back(heard(name));
    controller->filteredWiFiScanResults.set(std::make_shared<const NetworkList>(networks));
    NetworkDictionary byName;
    for (const auto& network : networks) byName.set(network);
    controller->filteredNetworks.set(std::make_shared<const NetworkDictionary>(byName));
  }
  toolkit::TableView& table() { return *controller->tableView(); }
  std::int64_t rowCount(std::int64_t section) {
    return controller->tableViewNumberOfRowsInSection(table(), section);
  }
  double headerHeight(std::int64_t section) {
    return controller->tableViewHeightForHeaderInSection(table(), section);
  }
  std::shared_ptr<toolkit::View> header(std::int64_t section) {
    return controller->tableViewViewForHeaderInSection(table(), section);
  }
  std::shared_ptr<toolkit::TableViewCell> cell(toolkit::IndexPath path) {
    return controller->tableViewCellForRowAtIndexPath(table(), path);
  }
};

TEST_F(PickerTable, HasTwoSections) {
  EXPECT_EQ(controller->numberOfSectionsInTableView(table()), 2);
}

TEST_F(PickerTable, ShowsNothingAboveTheNetworksWhenNothingIsSelected) {
  EXPECT_EQ(rowCount(0), 0);
  EXPECT_EQ(header(0), nullptr);
  EXPECT_EQ(headerHeight(0), 2.2250738585072014e-308);
  EXPECT_EQ(header(1), controller->networksGroupHeaderView());
  EXPECT_NE(controller->networksGroupHeaderView()->spinner(), nullptr);
}

TEST_F(PickerTable, ShowsTheSelectedNameUnderAHeader) {
  select("Lab");
  EXPECT_EQ(rowCount(0), 1);
  EXPECT_EQ(header(0), controller->selectedNetworkHeaderView());
  EXPECT_EQ(headerHeight(0), 32.66);
}

TEST_F(PickerTable, ShowsTheSelectedNameWithTheCheckMark) {
  select("Lab");
  const auto selected = cell({0, 0});
  EXPECT_THAT(selected->textLabel().text, isText("Lab"));
  EXPECT_EQ(selected->image, controller->blueCheck());
  EXPECT_FALSE(selected->userInteractionEnabled);
  EXPECT_EQ(static_cast<int>(selected->style()), 1);
  EXPECT_EQ(selected->reuseIdentifier(), "cellIdentifier");
  EXPECT_EQ(selected->detailTextLabel().text, nullptr);
}

TEST_F(PickerTable, HasTheRowForAnotherNetworkAloneBeforeAScanAndAfterAnEmptyOne) {
  for (const bool scanned : {false, true}) {
    if (scanned) list({});
    EXPECT_EQ(controller->networksOffset(), 1);
    EXPECT_EQ(rowCount(1), 1);
    EXPECT_THAT(cell({1, 0})->textLabel().text, isText("OTHER"));
  }
}

TEST_F(PickerTable, ShowsTheNetworksAndThenTheRowForAnotherNetwork) {
  list({"Cafe", "Lab"});
  EXPECT_EQ(controller->networksOffset(), 3);
  EXPECT_EQ(rowCount(1), 3);
  const std::vector<const char*> titles{"Cafe", "Lab", "OTHER"};
  for (std::size_t row = 0; row < titles.size(); ++row) {
    const auto shown = cell({1, static_cast<std::int64_t>(row)});
    EXPECT_THAT(shown->textLabel().text, isText(titles[row]));
    EXPECT_EQ(shown->image, controller->spacer());
    EXPECT_TRUE(shown->userInteractionEnabled);
    EXPECT_EQ(shown->detailTextLabel().text, nullptr);
  }
}

TEST_F(PickerTable, MakesTheNetworksHeaderAsHighAsTheSpinnerAndSeventeenPoints) {
  EXPECT_EQ(headerHeight(1), 16 + 12.0 + 5.0);
  controller->networksGroupHeaderView()->spinner()->setFrame({{0, 0}, {40, 40}});
  EXPECT_EQ(headerHeight(1), 40 + 17.0);
}

TEST_F(PickerTable, HasNothingInAnyOtherSection) {
  select("Lab");
  for (const std::int64_t section : {2, 7, -1}) {
    EXPECT_EQ(rowCount(section), 0);
    EXPECT_EQ(header(section), nullptr);
    EXPECT_EQ(headerHeight(section), 32.66);
    const auto fresh = cell({section, 0});
    EXPECT_EQ(fresh->textLabel().text, nullptr);
    EXPECT_EQ(fresh->image, nullptr);
    EXPECT_TRUE(fresh->userInteractionEnabled);
  }
}

TEST_F(PickerTable, LeavesACellOfAnyOtherSectionAsItsLastRowLeftIt) {
  select("Lab");
  table().appear();
  const auto used = cell({2, 0});
  EXPECT_THAT(used->textLabel().text, isText("OTHER"));
  EXPECT_EQ(used->image, controller->spacer());
}

TEST_F(PickerTable, LeavesTheHeightOfItsFootersToTheTable) {
  for (const std::int64_t section : {0, 1, 2}) {
    EXPECT_EQ(controller->tableViewHeightForFooterInSection(table(), section),
              toolkit::kAutomaticDimension);
  }
}

TEST_F(PickerTable, HasNoTitleForARowBeyondAListThatHasBecomeShorter) {
  list({"Cafe"});
  const auto beyond = cell({1, 2});
  EXPECT_EQ(beyond->textLabel().text, nullptr);
  EXPECT_EQ(beyond->image, controller->spacer());
}

TEST_F(PickerTable, GivesAReusedCellItsInteractionBack) {
  select("Lab");
  list({"Cafe"});
  table().appear();
  EXPECT_FALSE(table().rowsOfSection(0).at(0).userInteractionEnabled);
  EXPECT_TRUE(table().rowsOfSection(1).at(0).userInteractionEnabled);
  EXPECT_TRUE(table().rowsOfSection(1).at(1).userInteractionEnabled);
}

TEST_F(PickerTable, TurnsTheSpinnerOfAHeaderThatComesBackDuringAScan) {
  controller->wifiPoweredOn.set(true);
  table().appear();
  screen->told.clear();
  table().scrollHeaderAwayAndBack(1);
  EXPECT_THAT(screen->told, ElementsAre("spinner start"));
  table().scrollHeaderAwayAndBack(0);
  EXPECT_THAT(screen->told, ElementsAre("spinner start"));
}

TEST_F(PickerTable, LeavesTheSpinnerAtRestWithTheRadioOffOrTheScanFinished) {
  header(1);
  EXPECT_FALSE(controller->scanFinished());
  controller->wifiPoweredOn.set(true);
  controller->scanFinished.set(true);
  header(1);
  EXPECT_TRUE(controller->scanFinished());
  EXPECT_THAT(screen->told, IsEmpty());
}

TEST_F(PickerTable, SelectsTheNetworkThatIsTappedScrollsUpAndDeselectsTheRow) {
  list({"Cafe", "Lab"});
  table().appear();
  tapRow(1);
  EXPECT_EQ(selectedName(), "Lab");
  const auto& told = screen->told;
  EXPECT_EQ(Titles(told.end() - 2, told.end()), (Titles{"scroll [0,0]", "deselect [1,1]"}));
}

TEST_F(PickerTable, OpensThePromptAtTheLastRowAndDoesNotScroll) {
  list({"Cafe"});
  table().appear();
  tapOther();
  EXPECT_THAT(screen->told, ElementsAre("alert OTHER_NETWORK_MESSAGE", "deselect [1,1]"));
  EXPECT_EQ(selectedName(), "-");
}

TEST_F(PickerTable, CannotHaveItsSelectedRowTapped) {
  select("Lab");
  table().appear();
  table().tap({0, 0});
  EXPECT_THAT(screen->told, IsEmpty());
}

TEST_F(PickerTable, OnlyDeselectsARowOfAnotherSectionOrBeyondTheList) {
  select("Lab");
  list({"Cafe"});
  for (const toolkit::IndexPath path : {toolkit::IndexPath{0, 0}, {1, 2}, {2, 0}}) {
    controller->tableViewDidSelectRowAtIndexPath(table(), path);
  }
  EXPECT_THAT(screen->told, ElementsAre("deselect [0,0]", "deselect [1,2]", "deselect [2,0]"));
  EXPECT_EQ(selectedName(), "Lab");
}

}  // namespace
}  // namespace wifi_profile
