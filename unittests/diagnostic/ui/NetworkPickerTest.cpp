// The picker's screen: how it is built, and the small operations on it.

#include "diagnostic/platform/toolkit/Image.h"
#include "diagnostic/ui/WiFiHeaderView.h"
#include "support/Matchers.h"
#include "support/PickerFixture.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class NetworkPicker : public PickerFixture {
 protected:
  void SetUp() override { setUpController(makeInputs(nullptr, true)); }
};

TEST_F(NetworkPicker, StandsUnderTheBarInFrontOfWhatIsThere) {
  const auto other = std::make_shared<toolkit::View>();
  controller->view()->addSubview(other);
  controller->setupViewWithNetworkList(true);
  EXPECT_THAT(controller->view()->subviews(),
              ElementsAre(other, controller->tableView(), controller->navigationBar()));
  EXPECT_EQ(controller->view()->backgroundColor(), toolkit::kWhite);
}

TEST_F(NetworkPicker, HasAButtonThatIsDisabledAtFirst) {
  controller->setupViewWithNetworkList(true);
  EXPECT_EQ(next()->title(), "NEXT");
  EXPECT_EQ(static_cast<int>(next()->style()), 0);
  EXPECT_FALSE(next()->isEnabled());
  EXPECT_THAT(screen->told, ElementsAre("button off"));
}

TEST_F(NetworkPicker, AsksForTheWordingOnceAndHasTheOneItem) {
  capability->answer = 1;
  controller->setupViewWithNetworkList(true);
  EXPECT_THAT(capability->asked, ElementsAre("wapi"));
  EXPECT_EQ(controller->navigationItem()->title(), "WLAN_DIAGNOSTICS");
  EXPECT_THAT(controller->navigationBar()->items(), ElementsAre(controller->navigationItem()));
  EXPECT_TRUE(controller->navigationBar()->isLocked());
  EXPECT_EQ(controller->navigationBar()->frame(), (toolkit::Rect{{0, 20}, {320, 44}}));
}

TEST_F(NetworkPicker, FillsTheViewWithATableThatStretchesWithIt) {
  controller->setupViewWithNetworkList(true);
  const toolkit::TableView& table = *controller->tableView();
  EXPECT_EQ(table.frame(), (toolkit::Rect{{0, 0}, {320, 568}}));
  EXPECT_EQ(table.resizing(), (toolkit::Resizing{.flexibleWidth = true, .flexibleHeight = true}));
  controller->view()->setFrame({{0, 0}, {568, 320}});
  EXPECT_EQ(table.frame().size, (toolkit::Size{568, 320}));
}

TEST_F(NetworkPicker, KeepsTheTablesContentClearOfTheBars) {
  controller->setupViewWithNetworkList(true);
  const toolkit::Insets expected{.top = 44 + 20.0};
  EXPECT_EQ(controller->tableView()->contentInset(), expected);
  EXPECT_EQ(controller->tableView()->scrollIndicatorInsets(), expected);
  EXPECT_EQ(controller->tableView()->contentOffset(), -64);
}

TEST_F(NetworkPicker, AnswersTheTablesQuestionsAndTakesItsTaps) {
  controller->setupViewWithNetworkList(true);
  controller->appear();
  EXPECT_THAT(networkRows(), ElementsAre("OTHER"));
  tapRow(0);
  EXPECT_NE(controller->presentedAlert(), nullptr);
}

TEST_F(NetworkPicker, DrawsTheCheckMarkFlatInTheTint) {
  controller->setupViewWithNetworkList(true);
  EXPECT_EQ(controller->blueCheck()->name(), toolkit::Image::blueCheckMark()->name());
  EXPECT_EQ(controller->blueCheck()->rendering(), toolkit::Rendering::flatInTint);
  EXPECT_EQ(controller->spacer()->name(), "spacer");
  EXPECT_EQ(controller->spacer()->rendering(), toolkit::Rendering::original);
}

TEST_F(NetworkPicker, HasAHeaderForEachSectionAndASpinnerForTheNetworks) {
  controller->setupViewWithNetworkList(true);
  const WiFiHeaderView& selected = *controller->selectedNetworkHeaderView();
  const WiFiHeaderView& networks = *controller->networksGroupHeaderView();
  EXPECT_EQ(selected.headerText()->text->string(), "SELECTED_NETWORK");
  EXPECT_EQ(selected.spinner(), nullptr);
  EXPECT_EQ(selected.frame(), toolkit::Rect());
  EXPECT_EQ(networks.headerText()->text->string(), "CHOOSE_NETWORK");
  ASSERT_NE(networks.spinner(), nullptr);
  EXPECT_FALSE(networks.spinner()->isAnimating());
  EXPECT_EQ(networks.frame(), toolkit::Rect());
}

TEST_F(NetworkPicker, IsABarAloneWithoutAList) {
  controller->setupViewWithNetworkList(false);
  EXPECT_THAT(controller->view()->subviews(), ElementsAre(controller->navigationBar()));
  EXPECT_EQ(controller->tableView(), nullptr);
  EXPECT_EQ(controller->selectedNetworkHeaderView(), nullptr);
  EXPECT_EQ(controller->networksGroupHeaderView(), nullptr);
  EXPECT_EQ(controller->blueCheck(), nullptr);
  EXPECT_EQ(next(), nullptr);
  EXPECT_THAT(screen->told, IsEmpty());
}

TEST_F(NetworkPicker, LeavesAloneWhatIsNotThere) {
  for (const bool built : {false, true}) {
    if (built) controller->setupViewWithNetworkList(false);
    controller->showSpinner();
    controller->hideSpinner();
    controller->enableTableViewSelection(false);
    controller->enableRightBarButtonItem(true);
    controller->removeNavigationBarButtons();
    controller->scrollToSelectedNetwork();
    controller->setupRefreshControl();
    controller->loadInitialNetworkList();
    controller->updateNetworkList();
  }
  EXPECT_THAT(screen->told, IsEmpty());
}

TEST_F(NetworkPicker, TurnsTheNetworksSpinnerWhileAScanIsOn) {
  controller->setupViewWithNetworkList(true);
  screen->told.clear();
  controller->showSpinner();
  EXPECT_FALSE(controller->scanFinished());
  EXPECT_TRUE(controller->networksGroupHeaderView()->spinner()->isAnimating());
  controller->hideSpinner();
  EXPECT_TRUE(controller->scanFinished());
  EXPECT_THAT(screen->told, ElementsAre("spinner start", "spinner stop"));
}

TEST_F(NetworkPicker, ScrollsNoFurtherThanTheSelectedRowNeeds) {
  controller->setupViewWithNetworkList(true);
  screen->told.clear();
  controller->scrollToSelectedNetwork();
  EXPECT_THAT(screen->told, ElementsAre("scroll [0,0]"));
}

TEST_F(NetworkPicker, DoesNothingWhereThereIsNothingToDo) {
  controller->setupViewWithNetworkList(true);
  screen->told.clear();
  controller->reloadRefreshCell();
  controller->scrollToLastFocusedItem();
  EXPECT_THAT(screen->told, IsEmpty());
}

TEST_F(NetworkPicker, PutsARefreshControlIntoTheTable) {
  controller->setupViewWithNetworkList(true);
  EXPECT_FALSE(controller->refreshEnabled());
  controller->setupRefreshControl();
  EXPECT_TRUE(controller->refreshEnabled());
  EXPECT_EQ(controller->tableView()->refreshControl(), controller->refreshControl());
  screen->told.clear();
  controller->refreshControl()->pull();
  EXPECT_THAT(screen->told, ElementsAre("refresh began", "selection off", "spinner start"));
}

TEST_F(NetworkPicker, SwitchesTheTablesSelectionAndTheButton) {
  controller->setupViewWithNetworkList(true);
  screen->told.clear();
  controller->enableTableViewSelection(false);
  controller->enableTableViewSelection(true);
  controller->enableRightBarButtonItem(true);
  controller->removeNavigationBarButtons();
  controller->enableRightBarButtonItem(true);
  EXPECT_THAT(screen->told,
              ElementsAre("selection off", "selection on", "button on", "button removed"));
}

TEST_F(NetworkPicker, GivesWayToTheProgressScreenAtNext) {
  controller->setupViewWithNetworkList(true);
  controller->enableRightBarButtonItem(true);
  screen->told.clear();
  const auto button = next();
  button->tap();
  EXPECT_TRUE(controller->progressScreenVisible());
  EXPECT_THAT(screen->told, ElementsAre("button removed", "table removed"));
  EXPECT_THAT(controller->view()->subviews(),
              ElementsAre(controller->navigationBar(), controller->mainLabel(),
                          controller->progressView()));
}

TEST_F(NetworkPicker, StaysUprightUnderAStatusBarAndATopAttachedBar) {
  EXPECT_FALSE(controller->prefersStatusBarHidden());
  EXPECT_FALSE(controller->shouldAutorotate());
  EXPECT_EQ(controller->supportedInterfaceOrientations(), 2U);
  EXPECT_EQ(static_cast<int>(controller->preferredInterfaceOrientationForPresentation()), 1);
  EXPECT_EQ(static_cast<int>(controller->positionForBar()), 3);
}

}  // namespace
}  // namespace wifi_profile
