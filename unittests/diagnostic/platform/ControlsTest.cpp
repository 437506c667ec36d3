// What stands in a bar, turns, or is pulled.

#include "diagnostic/platform/toolkit/NavigationBar.h"
#include "diagnostic/platform/toolkit/RefreshControl.h"
#include "diagnostic/platform/toolkit/Spinner.h"
#include "support/DiagnosticFixture.h"

namespace wifi_profile::toolkit {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Controls : public DiagnosticFixture {
 protected:
  int taps = 0;
  const std::shared_ptr<BarButtonItem> button =
      std::make_shared<BarButtonItem>("GO", BarButtonStyle::plain, [this] { ++taps; });
  NavigationItem item{"TITLE"};
};

TEST_F(Controls, TurnTheirSpinnerFromTheStartToTheStop) {
  Spinner spinner(SpinnerStyle::smallGrey);
  EXPECT_FALSE(spinner.isAnimating());
  spinner.startAnimating();
  EXPECT_TRUE(spinner.isAnimating());
  spinner.stopAnimating();
  EXPECT_FALSE(spinner.isAnimating());
  EXPECT_EQ(static_cast<int>(spinner.style()), 2);
}

TEST_F(Controls, TellOfEverySwitchingOfASpinnerAlsoWhereNothingChanges) {
  Spinner spinner(SpinnerStyle::smallGrey);
  spinner.stopAnimating();
  spinner.startAnimating();
  spinner.startAnimating();
  EXPECT_THAT(screen->told, ElementsAre("spinner stop", "spinner start", "spinner start"));
}

TEST_F(Controls, DoWhatAPullIsForOnceUntilTheRefreshEnds) {
  std::vector<bool> refreshing;
  RefreshControl control([&] { refreshing.push_back(control.isRefreshing()); });
  EXPECT_FALSE(control.isRefreshing());
  control.pull();
  control.pull();
  EXPECT_THAT(refreshing, ElementsAre(true));
  control.endRefreshing();
  EXPECT_FALSE(control.isRefreshing());
  control.pull();
  EXPECT_THAT(refreshing, ElementsAre(true, true));
  EXPECT_THAT(screen->told, ElementsAre("refresh began", "refresh ended", "refresh began"));
}

TEST_F(Controls, TellOfAPullBeforeDoingWhatItIsFor) {
  RefreshControl control([&] { screen->told.emplace_back("what it is for"); });
  control.pull();
  EXPECT_THAT(screen->told, ElementsAre("refresh began", "what it is for"));
}

TEST_F(Controls, TapAButtonOnlyWhileItIsEnabled) {
  EXPECT_TRUE(button->isEnabled());
  button->tap();
  button->setEnabled(false);
  button->tap();
  EXPECT_EQ(taps, 1);
  button->setEnabled(true);
  button->tap();
  EXPECT_EQ(taps, 2);
}

TEST_F(Controls, TellOfEveryEnablingAlsoWhereNothingChanges) {
  button->setEnabled(true);
  button->setEnabled(false);
  button->setEnabled(false);
  EXPECT_THAT(screen->told, ElementsAre("button on", "button off", "button off"));
}

TEST_F(Controls, TellOfAButtonThatGoesAndOfNoOther) {
  item.setRightBarButtonItem(nullptr);
  item.setRightBarButtonItem(button);
  item.setRightBarButtonItem(
      std::make_shared<BarButtonItem>("OTHER", BarButtonStyle::plain, [] {}));
  EXPECT_THAT(screen->told, IsEmpty());
  EXPECT_EQ(item.rightBarButtonItem()->title(), "OTHER");
  item.setRightBarButtonItem(nullptr);
  item.setRightBarButtonItem(nullptr);
  EXPECT_THAT(screen->told, ElementsAre("button removed"));
  EXPECT_EQ(item.title(), "TITLE");
}

TEST_F(Controls, MayBeReplacedByWhatTheyAreFor) {
  const auto canary = std::make_shared<int>(7);
  std::shared_ptr<RefreshControl> control;
  const auto replace = [&control, canary] {
    control = std::make_shared<RefreshControl>([] {});
    EXPECT_EQ(*canary, 7);
  };
  control = std::make_shared<RefreshControl>(replace);
  control->pull();
  std::shared_ptr<BarButtonItem> removable;
  const auto remove = [this, canary, &removable] {
    item.setRightBarButtonItem(nullptr);
    removable.reset();
    EXPECT_EQ(*canary, 7);
  };
  removable = std::make_shared<BarButtonItem>("GO", BarButtonStyle::plain, remove);
  item.setRightBarButtonItem(removable);
  removable->tap();
  EXPECT_EQ(item.rightBarButtonItem(), nullptr);
}

TEST_F(Controls, MakeABarAsWideAsTheControllersView) {
  const auto owner = std::make_shared<ViewController>();
  owner->view()->setFrame({{0, 0}, {400, 300}});
  const auto bar = NavigationContainer(*owner).navigationBar();
  EXPECT_EQ(bar->frame(), (Rect{{0, 0}, {400, 44}}));
  EXPECT_EQ(bar->resizing(), (Resizing{.flexibleWidth = true}));
  EXPECT_TRUE(bar->isLocked());
  EXPECT_EQ(bar->superview(), nullptr);
}

}  // namespace
}  // namespace wifi_profile::toolkit
