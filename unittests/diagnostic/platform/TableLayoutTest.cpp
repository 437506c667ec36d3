// Where a table's headers and rows stand, and how far it scrolls.

#include "diagnostic/platform/toolkit/TableView.h"
#include "support/DiagnosticFixture.h"
#include "support/FakeTableRows.h"

namespace wifi_profile::toolkit {
namespace {

using ::testing::ElementsAre;

// Headers at 0 and 30 + 44 + 5 = 79, rows at 30 and from 89 on.
class TableLayouts : public DiagnosticFixture {
 protected:
  void SetUp() override {
    table->setDataSource(rows);
    table->setDelegate(rows);
    table->registerCell<TableViewCell>(FakeTableRows::kIdentifier);
    rows->sections = {{{"a"}, first, 30, 5}, {{"b", "c", "d"}, second, 10, kAutomaticDimension}};
    table->appear();
  }
  double offsetAfterScrollingTo(IndexPath path) {
    table->scrollToRow(path, ScrollPosition::none, true);
    return table->contentOffset();
  }

  const std::shared_ptr<View> first = std::make_shared<View>();
  const std::shared_ptr<View> second = std::make_shared<View>();
  const std::shared_ptr<FakeTableRows> rows = std::make_shared<FakeTableRows>();
  const std::shared_ptr<TableView> table = std::make_shared<TableView>(Rect{{7, 7}, {200, 100}});
};

TEST_F(TableLayouts, PutHeadersRowsAndFootersOneUnderAnother) {
  EXPECT_EQ(table->rectOfHeader(0), (Rect{{0, 0}, {200, 30}}));
  EXPECT_EQ(table->rectOfRow({0, 0}), (Rect{{0, 30}, {200, 44}}));
  EXPECT_EQ(table->rectOfHeader(1), (Rect{{0, 79}, {200, 10}}));
  EXPECT_EQ(table->rectOfRow({1, 0}), (Rect{{0, 89}, {200, 44}}));
  EXPECT_EQ(table->rectOfRow({1, 2}), (Rect{{0, 177}, {200, 44}}));
}

TEST_F(TableLayouts, MakeAnAutomaticFooterAsHighAsTheTableChooses) {
  EXPECT_EQ(table->contentHeight(), 177 + 44 + TableView::kFooterHeight);
}

TEST_F(TableLayouts, GiveTheSmallestHeightNoRoom) {
  rows->sections[0] = {{}, nullptr, 2.2250738585072014e-308, kAutomaticDimension};
  table->reloadData();
  EXPECT_EQ(table->rectOfHeader(1), (Rect{{0, TableView::kFooterHeight}, {200, 10}}));
}

TEST_F(TableLayouts, PlaceTheHeaderViews) {
  EXPECT_EQ(first->frame(), table->rectOfHeader(0));
  EXPECT_EQ(second->frame(), table->rectOfHeader(1));
}

TEST_F(TableLayouts, WidenTheHeaderViewsWithTheTable) {
  table->setFrame({{0, 0}, {320, 100}});
  EXPECT_EQ(second->frame(), (Rect{{0, 79}, {320, 10}}));
}

TEST_F(TableLayouts, MoveTheHeaderViewsWithTheRowsOfABatch) {
  rows->sections[0].titles = {"a", "new"};
  rows->sections[0].headerHeight = 40;
  table->beginUpdates();
  table->insertRows({{0, 1}}, RowAnimation::fade);
  table->endUpdates();
  EXPECT_EQ(first->frame(), (Rect{{0, 0}, {200, 40}}));
  EXPECT_EQ(second->frame(), (Rect{{0, 133}, {200, 10}}));
}

TEST_F(TableLayouts, ScrollNowhereWhenTheRowIsVisible) {
  EXPECT_EQ(offsetAfterScrollingTo({0, 0}), 0);
  EXPECT_THAT(screen->told, ElementsAre("scroll [0,0]"));
}

TEST_F(TableLayouts, ScrollDownUntilTheWholeRowIsVisible) {
  EXPECT_EQ(offsetAfterScrollingTo({1, 0}), 89 + 44 - 100);
  EXPECT_EQ(offsetAfterScrollingTo({1, 2}), 177 + 44 - 100);
}

TEST_F(TableLayouts, ScrollUpUntilTheWholeRowIsVisible) {
  offsetAfterScrollingTo({1, 2});
  EXPECT_EQ(offsetAfterScrollingTo({1, 1}), 121);  // at 133, visible
  EXPECT_EQ(offsetAfterScrollingTo({1, 0}), 89);
  EXPECT_EQ(offsetAfterScrollingTo({0, 0}), 30);
}

TEST_F(TableLayouts, ScrollToWithinTheInsets) {
  table->setContentInset({.top = 20, .bottom = 10});
  EXPECT_EQ(table->contentOffset(), -20);
  EXPECT_EQ(offsetAfterScrollingTo({0, 0}), 30 + 44 + 10 - 100);
  EXPECT_EQ(offsetAfterScrollingTo({1, 2}), 177 + 44 + 10 - 100);
  EXPECT_EQ(offsetAfterScrollingTo({1, 0}), 89 - 20);
}

TEST_F(TableLayouts, ScrollNowhereWhenThereIsNoSuchRow) {
  for (const IndexPath path : {IndexPath{1, 3}, {1, -1}, {2, 0}}) {
    EXPECT_EQ(offsetAfterScrollingTo(path), 0) << path.section << ", " << path.row;
  }
}

TEST_F(TableLayouts, KeepTheInsetsApart) {
  table->setContentInset({.top = 20});
  table->setScrollIndicatorInsets({.top = 30});
  EXPECT_EQ(table->contentInset(), (Insets{.top = 20}));
  EXPECT_EQ(table->scrollIndicatorInsets(), (Insets{.top = 30}));
}

TEST_F(TableLayouts, SayNothingOfTheirBackgroundUnlessToldTo) {
  EXPECT_EQ(table->backgroundInset(), std::nullopt);
  table->setBackgroundInset(4);
  EXPECT_EQ(table->backgroundInset(), 4);
}

}  // namespace
}  // namespace wifi_profile::toolkit
