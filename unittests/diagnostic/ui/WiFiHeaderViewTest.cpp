// The header of a section, and the rows' cells.

#include "diagnostic/platform/toolkit/TableView.h"
#include "diagnostic/ui/WiFiHeaderView.h"
#include "diagnostic/ui/WiFiTableViewCell.h"
#include "support/DiagnosticFixture.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;
using toolkit::Rect;

// "NETWORKS" is eight characters of 6.5 points, on a line of 16.
class HeaderViews : public DiagnosticFixture {
 protected:
  static std::shared_ptr<WiFiHeaderView> make(bool showSpinner, Rect frame = {}) {
    return WiFiHeaderView::initWithFrame(frame, makeText("NETWORKS"), showSpinner);
  }
};

TEST_F(HeaderViews, AreClearAndStretchWithTheirContainersWidth) {
  const auto header = make(false, {{1, 2}, {3, 4}});
  EXPECT_EQ(header->frame(), (Rect{{1, 2}, {3, 4}}));
  EXPECT_EQ(header->backgroundColor(), toolkit::kClear);
  EXPECT_EQ(header->resizing(), (toolkit::Resizing{.flexibleWidth = true}));
}

TEST_F(HeaderViews, HaveASmallGreyText) {
  const auto header = make(false);
  const toolkit::Label& label = *header->headerText();
  EXPECT_EQ(label.text->string(), "NETWORKS");
  EXPECT_EQ(label.systemFontSize, 13.0);
  EXPECT_EQ(label.textColor, (toolkit::Color{0.4, 1.0}));
  EXPECT_EQ(label.backgroundColor(), toolkit::kClear);
}

TEST_F(HeaderViews, HaveASmallGreySpinnerAtRestWhereOneIsAskedFor) {
  const auto header = make(true);
  EXPECT_THAT(header->subviews(), ElementsAre(header->headerText(), header->spinner()));
  EXPECT_EQ(static_cast<int>(header->spinner()->style()), 2);
  EXPECT_FALSE(header->spinner()->isAnimating());
  EXPECT_TRUE(screen->told.empty());
}

TEST_F(HeaderViews, HaveNoSpinnerWhereNoneIsAskedFor) {
  const auto header = make(false);
  EXPECT_EQ(header->spinner(), nullptr);
  EXPECT_THAT(header->subviews(), ElementsAre(header->headerText()));
}

TEST_F(HeaderViews, AreLaidOutFromTheStart) {
  const auto header = make(true);
  EXPECT_EQ(header->headerText()->frame(), (Rect{{18.0, 10.0}, {52, 16}}));
  EXPECT_EQ(header->spinner()->frame(), (Rect{{18.0 + 52 + 10.0, 8.0}, {16, 16}}));
}

TEST_F(HeaderViews, StandFifteenPointsWithinTheTablesBackground) {
  const auto table = std::make_shared<toolkit::TableView>();
  const auto header = make(true);
  table->addSubview(header);
  table->setBackgroundInset(4.5);
  header->layoutSubviews();
  EXPECT_EQ(header->headerText()->frame(), (Rect{{19.5, 10.0}, {52, 16}}));
  EXPECT_EQ(header->spinner()->frame(), (Rect{{81.5, 8.0}, {16, 16}}));
  table->setBackgroundInset(0);
  header->layoutSubviews();
  EXPECT_EQ(header->headerText()->frame().origin.x, 15.0);
}

TEST_F(HeaderViews, StandEighteenPointsInWhereTheTableDoesNotSay) {
  const auto table = std::make_shared<toolkit::TableView>();
  const auto header = make(false);
  table->addSubview(header);
  header->layoutSubviews();
  EXPECT_EQ(header->headerText()->frame().origin.x, 18.0);
}

TEST_F(HeaderViews, AskTheViewThatHoldsThemOnly) {
  const auto table = std::make_shared<toolkit::TableView>();
  table->setBackgroundInset(4.5);
  const auto between = std::make_shared<toolkit::View>();
  const auto header = make(false);
  table->addSubview(between);
  between->addSubview(header);
  header->layoutSubviews();
  EXPECT_EQ(header->headerText()->frame().origin.x, 18.0);
}

TEST_F(HeaderViews, FollowTheirTextAtTheNextLayout) {
  const auto header = make(true);
  header->headerText()->text = makeText("AB");
  header->layoutSubviews();
  EXPECT_EQ(header->headerText()->frame(), (Rect{{18, 10}, {13, 16}}));
  EXPECT_EQ(header->spinner()->frame(), (Rect{{41, 8}, {16, 16}}));
}

TEST_F(HeaderViews, AreLaidOutWhenTheirContainerChangesTheirWidth) {
  const auto container = std::make_shared<toolkit::View>(Rect{{0, 0}, {100, 30}});
  const auto header = make(false, {{0, 0}, {100, 30}});
  container->addSubview(header);
  header->headerText()->text = makeText("AB");
  container->setFrame({{0, 0}, {150, 30}});
  EXPECT_EQ(header->frame(), (Rect{{0, 0}, {150, 30}}));
  EXPECT_EQ(header->headerText()->frame().size.width, 13);
}

TEST(TableViewCells, HaveATitleAndADetailWhateverStyleIsAskedFor) {
  for (const auto style : {toolkit::CellStyle::plain, toolkit::CellStyle::titleAndDetail}) {
    WiFiTableViewCell cell(style, "identifier");
    EXPECT_EQ(static_cast<int>(cell.style()), 1);
    EXPECT_EQ(cell.reuseIdentifier(), "identifier");
    EXPECT_EQ(cell.textLabel().text, nullptr);
    EXPECT_EQ(cell.detailTextLabel().text, nullptr);
  }
}

}  // namespace
}  // namespace wifi_profile
