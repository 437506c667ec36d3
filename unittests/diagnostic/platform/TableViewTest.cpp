// A table's rows and header views: when they are asked for, what is kept, and what can be tapped.

#include "diagnostic/platform/toolkit/TableView.h"
#include "diagnostic/platform/toolkit/ViewController.h"
#include "support/DiagnosticFixture.h"
#include "support/FakeTableRows.h"

namespace wifi_profile::toolkit {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Tables : public DiagnosticFixture {
 protected:
  void SetUp() override {
    table->setDataSource(rows);
    table->setDelegate(rows);
    table->registerCell<TableViewCell>(FakeTableRows::kIdentifier);
    rows->sections = {{{"a"}, header, 20}, {{"b", "c"}, secondHeader, 10}};
  }
  void showTable() {
    table->appear();
    rows->asked.clear();
  }

  const std::shared_ptr<View> header = std::make_shared<View>();
  const std::shared_ptr<View> secondHeader = std::make_shared<View>();
  const std::shared_ptr<FakeTableRows> rows = std::make_shared<FakeTableRows>();
  const std::shared_ptr<TableView> table = std::make_shared<TableView>(Rect{{0, 0}, {100, 100}});
};

TEST_F(Tables, ReadTheirRowsAndThenTheirHeadersWhenTheyAppear) {
  EXPECT_EQ(table->numberOfSections(), 0);
  table->appear();
  EXPECT_THAT(rows->asked,
              ElementsAre("row [0,0]", "row [1,0]", "row [1,1]", "header 0", "header 1"));
  EXPECT_EQ(table->numberOfSections(), 2);
  EXPECT_THAT(titlesOf(*table, 1), ElementsAre("b", "c"));
  EXPECT_THAT(screen->told, IsEmpty());
}

TEST_F(Tables, ReadTheirRowsOnlyAtTheFirstAppearance) {
  showTable();
  table->appear();
  EXPECT_THAT(rows->asked, IsEmpty());
}

TEST_F(Tables, AppearWithTheViewThatTheyStandIn) {
  const auto owner = std::make_shared<ViewController>();
  const auto between = std::make_shared<View>();
  owner->view()->addSubview(between);
  between->addSubview(table);
  owner->appear();
  EXPECT_THAT(titlesOf(*table, 0), ElementsAre("a"));
}

TEST_F(Tables, KeepTheRowsThatTheyShowWhateverBecomesOfTheList) {
  showTable();
  rows->sections[1].titles = {"x"};
  EXPECT_THAT(titlesOf(*table, 1), ElementsAre("b", "c"));
  EXPECT_THAT(rows->asked, IsEmpty());
}

TEST_F(Tables, ReadEverythingAnewAtAReload) {
  showTable();
  rows->sections[1].titles = {"x"};
  table->reloadData();
  EXPECT_THAT(titlesOf(*table, 1), ElementsAre("x"));
  EXPECT_THAT(rows->asked, ElementsAre("row [0,0]", "row [1,0]", "header 0", "header 1"));
  EXPECT_THAT(screen->told, ElementsAre("reload"));
}

TEST_F(Tables, AskForAHeaderThatIsScrolledAwayAndBack) {
  showTable();
  table->scrollHeaderAwayAndBack(0);
  EXPECT_THAT(rows->asked, ElementsAre("header 0"));
  table->scrollHeaderAwayAndBack(2);
  table->scrollHeaderAwayAndBack(-1);
  EXPECT_THAT(rows->asked, ElementsAre("header 0"));
}

TEST_F(Tables, HoldTheirHeaderViews) {
  rows->sections[1].header = nullptr;
  showTable();
  EXPECT_EQ(table->headerViewOfSection(0), header);
  EXPECT_EQ(header->superview(), table);
  EXPECT_EQ(table->headerViewOfSection(1), nullptr);
  EXPECT_EQ(table->headerViewOfSection(2), nullptr);
  EXPECT_EQ(table->headerViewOfSection(-1), nullptr);
}

TEST_F(Tables, LetGoOfAHeaderViewInWhosePlaceAnotherCame) {
  showTable();
  const auto other = std::make_shared<View>();
  rows->sections[0].header = other;
  table->reloadData();
  EXPECT_EQ(table->headerViewOfSection(0), other);
  EXPECT_EQ(header->superview(), nullptr);
  EXPECT_THAT(table->subviews(), ElementsAre(secondHeader, other));
}

TEST_F(Tables, HandOutUsedCellsAsTheirLastRowLeftThem) {
  showTable();
  EXPECT_THAT(rows->cells, ElementsAre(rows->cells[0], rows->cells[0], rows->cells[0]));
  EXPECT_THAT(rows->titlesBefore, ElementsAre("", "a", "b"));
}

TEST_F(Tables, HandOutACellOfTheirOwnToEachThatKeepsIt) {
  const auto one = table->dequeueReusableCell(FakeTableRows::kIdentifier, {0, 0});
  const auto other = table->dequeueReusableCell(FakeTableRows::kIdentifier, {0, 0});
  EXPECT_NE(one, other);
  EXPECT_EQ(one->reuseIdentifier(), FakeTableRows::kIdentifier);
}

TEST_F(Tables, TellOfTheRowThatIsTapped) {
  showTable();
  EXPECT_TRUE(table->canTap({1, 1}));
  table->tap({1, 1});
  EXPECT_THAT(rows->asked, ElementsAre("tap [1,1]"));
}

TEST_F(Tables, CannotBeTappedWhereThereIsNoRow) {
  showTable();
  for (const IndexPath path : {IndexPath{1, 2}, {1, -1}, {2, 0}, {-1, 0}}) {
    EXPECT_FALSE(table->canTap(path)) << path.section << ", " << path.row;
    table->tap(path);
  }
  EXPECT_THAT(rows->asked, IsEmpty());
}

TEST_F(Tables, CannotBeTappedWhereTheRowIsDisabled) {
  rows->rowsAreEnabled = false;
  showTable();
  EXPECT_FALSE(table->canTap({1, 0}));
  table->tap({1, 0});
  EXPECT_THAT(rows->asked, IsEmpty());
}

TEST_F(Tables, CannotBeTappedWithoutSelection) {
  showTable();
  EXPECT_TRUE(table->allowsSelection());
  table->setAllowsSelection(false);
  EXPECT_FALSE(table->canTap({1, 0}));
  table->tap({1, 0});
  EXPECT_THAT(rows->asked, IsEmpty());
  table->setAllowsSelection(true);
  EXPECT_TRUE(table->canTap({1, 0}));
  EXPECT_THAT(screen->told, ElementsAre("selection off", "selection on"));
}

TEST_F(Tables, TellOfADeselection) {
  showTable();
  table->deselectRow({1, 0}, true);
  table->deselectRow({1, 1}, false);
  EXPECT_THAT(screen->told, ElementsAre("deselect [1,0]", "deselect [1,1] at once"));
}

TEST_F(Tables, TakeAnotherRefreshControlInPlaceOfTheOneThatTheyHave) {
  EXPECT_EQ(table->refreshControl(), nullptr);
  const auto one = std::make_shared<RefreshControl>([] {});
  const auto other = std::make_shared<RefreshControl>([] {});
  table->setRefreshControl(one);
  EXPECT_EQ(table->refreshControl(), one);
  table->setRefreshControl(other);
  EXPECT_EQ(table->refreshControl(), other);
  EXPECT_THAT(screen->told, ElementsAre("refresh installed", "refresh installed"));
}

TEST_F(Tables, TellOnceThatTheyWereTakenOffTheScreen) {
  const auto root = std::make_shared<View>();
  root->addSubview(table);
  root->addSubview(table);  // only to the front
  EXPECT_THAT(screen->told, IsEmpty());
  table->removeFromSuperview();
  table->removeFromSuperview();
  EXPECT_THAT(screen->told, ElementsAre("table removed"));
}

TEST_F(Tables, DoNotKeepTheirDataSourceAlive) {
  auto brief = std::make_shared<FakeTableRows>();
  const std::weak_ptr<FakeTableRows> watch = brief;
  table->setDataSource(brief);
  table->setDelegate(brief);
  brief.reset();
  EXPECT_TRUE(watch.expired());
  table->reloadData();
  EXPECT_EQ(table->numberOfSections(), 0);
}

}  // namespace
}  // namespace wifi_profile::toolkit
