// The bar at the top of the screen.

#include "diagnostic/platform/toolkit/NavigationBar.h"
#include "support/DiagnosticFixture.h"
#include "support/Matchers.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;

class NavigationBarOfTheScreen : public DiagnosticFixture {
 protected:
  void SetUp() override { setUpController(makeInputs(nullptr)); }
};

TEST_F(NavigationBarOfTheScreen, SaysWLANWhereTheLowestBitOfTheDevicesAnswerSaysSo) {
  for (const auto& [answer, title] : {std::pair{0, "WIFI_DIAGNOSTICS"},
                                      {1, "WLAN_DIAGNOSTICS"},
                                      {2, "WIFI_DIAGNOSTICS"},
                                      {3, "WLAN_DIAGNOSTICS"},
                                      {-1, "WLAN_DIAGNOSTICS"},
                                      {-2, "WIFI_DIAGNOSTICS"}}) {
    capability->answer = answer;
    controller->setupViewWithNetworkList(false);
    EXPECT_EQ(controller->navigationItem()->title(), title) << answer;
  }
  EXPECT_EQ(capability->asked, std::vector<std::string>(6, "wapi"));
}

TEST_F(NavigationBarOfTheScreen, HoldsTheOneItemAndNoButton) {
  controller->setupViewWithNetworkList(false);
  EXPECT_THAT(controller->navigationBar()->items(), ElementsAre(controller->navigationItem()));
  EXPECT_EQ(controller->navigationItem()->rightBarButtonItem(), nullptr);
}

TEST_F(NavigationBarOfTheScreen, IsLockedAndAnswersToTheController) {
  controller->setupViewWithNetworkList(false);
  EXPECT_TRUE(controller->navigationBar()->isLocked());
  EXPECT_EQ(controller->navigationBar()->delegate(), controller);
}

TEST_F(NavigationBarOfTheScreen, StandsTwentyPointsBelowItsUsualPlace) {
  controller->setupViewWithNetworkList(false);
  const toolkit::NavigationBar& bar = *controller->navigationBar();
  EXPECT_EQ(bar.frame(), (toolkit::Rect{{0, 20}, {320, 44}}));
  EXPECT_EQ(bar.center(), (toolkit::Point{160, 42}));
}

TEST_F(NavigationBarOfTheScreen, StandsInFrontOnAWhiteGround) {
  const auto other = std::make_shared<toolkit::View>();
  controller->view()->addSubview(other);
  controller->setupViewWithNetworkList(false);
  EXPECT_THAT(controller->view()->subviews(), ElementsAre(other, controller->navigationBar()));
  EXPECT_EQ(controller->view()->backgroundColor(), toolkit::kWhite);
}

TEST_F(NavigationBarOfTheScreen, LosesItsButtonAndKeepsItsTitleWhenTheRunBegins) {
  controller->setupViewWithNetworkList(false);
  controller->navigationItem()->setRightBarButtonItem(
      std::make_shared<toolkit::BarButtonItem>("NEXT", toolkit::BarButtonStyle::plain, [] {}));
  controller->displayProgressScreen();
  EXPECT_EQ(controller->navigationItem()->rightBarButtonItem(), nullptr);
  EXPECT_EQ(controller->navigationItem()->title(), "WIFI_DIAGNOSTICS");
}

}  // namespace
}  // namespace wifi_profile
