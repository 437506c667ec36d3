// The layout pass, on the progress screen and on views that one can look through.

#include "diagnostic/platform/toolkit/Label.h"
#include "diagnostic/platform/toolkit/NavigationBar.h"
#include "diagnostic/platform/toolkit/ProgressView.h"
#include "support/DiagnosticFixture.h"

namespace wifi_profile::toolkit {
namespace {

using A = LayoutAttribute;

class ProgressScreenLayout : public DiagnosticFixture, public ::testing::WithParamInterface<Size> {
 protected:
  void SetUp() override {
    setUpController(makeInputs(nullptr));
    controller->displayProgressScreen();
    controller->setupViewWithNetworkList(false);
    controller->layOut();
  }
  Rect label() const { return controller->mainLabel()->frame(); }
  Rect bar() const { return controller->progressView()->frame(); }

 private:
  runtime::NoScreen screen_{GetParam()};
  const InstalledPlatform platform_{{.screen = &screen_}};
};

TEST_P(ProgressScreenLayout, PutsTheMessageTwentyOnePointsBelowTheMiddle) {
  EXPECT_EQ(label().origin.y + label().size.height, GetParam().height / 2 + 21.0);
}

TEST_P(ProgressScreenLayout, KeepsTheMessageTwentyPointsFromEachSide) {
  EXPECT_EQ(label().origin.x, 20.0);
  EXPECT_EQ(label().size.width, GetParam().width - 40.0);
}

TEST_P(ProgressScreenLayout, MakesTheMessageAtLeastThirtySixPointsHigh) {
  EXPECT_EQ(heightOfLine(27), 33);
  EXPECT_EQ(label().size.height, 36.0);
}

TEST_P(ProgressScreenLayout, CentresTheBarFifteenPointsUnderTheMessage) {
  EXPECT_EQ(bar().size, (Size{240.0, 2.0}));
  EXPECT_EQ(bar().origin.x, (GetParam().width - 240.0) / 2);
  EXPECT_EQ(bar().origin.y, GetParam().height / 2 + 21.0 + 15.0);
}

TEST_P(ProgressScreenLayout, ComesOutTheSameAtEveryPass) {
  const Rect labelBefore = label();
  const Rect barBefore = bar();
  for (int pass = 0; pass < 3; ++pass) controller->layOut();
  EXPECT_EQ(label(), labelBefore);
  EXPECT_EQ(bar(), barBefore);
}

TEST_P(ProgressScreenLayout, LeavesTheNavigationBarWhereItStands) {
  EXPECT_EQ(controller->navigationBar()->frame(), (Rect{{0, 20}, {GetParam().width, 44}}));
}

TEST_P(ProgressScreenLayout, GrowsUpwardsWithAMessageOfSeveralLines) {
  controller->mainLabel()->text = makeText("One line of text and then another");
  controller->layOut();
  EXPECT_EQ(label().size.height, 2 * heightOfLine(27));
  EXPECT_EQ(label().origin.y + label().size.height, GetParam().height / 2 + 21.0);
}

TEST_P(ProgressScreenLayout, FollowsTheViewsSizeAtTheNextPass) {
  controller->view()->setFrame({{0, 0}, {500, 400}});
  controller->layOut();
  EXPECT_EQ(label(), (Rect{{20, 185}, {460, 36}}));
  EXPECT_EQ(bar(), (Rect{{130, 236}, {240, 2}}));
}

std::string nameOfSize(const ::testing::TestParamInfo<Size>& size) {
  return std::to_string(static_cast<int>(size.param.width)) + "x" +
         std::to_string(static_cast<int>(size.param.height));
}
INSTANTIATE_TEST_SUITE_P(Screens, ProgressScreenLayout,
                         ::testing::Values(Size{320, 568}, Size{375, 667}, Size{768, 1024}),
                         nameOfSize);

class LayoutPasses : public DiagnosticFixture {
 protected:
  void SetUp() override { owner->view()->addSubview(placed); }
  std::shared_ptr<View> makePlaced(Rect frame) {
    auto view = std::make_shared<View>(frame);
    view->setTranslatesAutoresizingMaskIntoConstraints(false);
    return view;
  }

  const std::shared_ptr<ViewController> owner = std::make_shared<ViewController>();
  const std::shared_ptr<View> placed = makePlaced({{10, 20}, {30, 40}});
};

TEST_F(LayoutPasses, LeaveAViewInPlaceThatNothingDecidesOn) {
  owner->layOut();
  EXPECT_EQ(placed->frame(), (Rect{{10, 20}, {30, 40}}));
}

TEST_F(LayoutPasses, PassOverAConstraintThatNamesAViewOutsideTheHierarchy) {
  const auto outside = std::make_shared<View>(Rect{{100, 100}, {100, 100}});
  placed->addConstraint({.first = outside.get(), .firstAttribute = A::width, .constant = 5});
  placed->addConstraint({.first = placed.get(),
                         .firstAttribute = A::leading,
                         .second = outside.get(),
                         .secondAttribute = A::leading});
  placed->addConstraint({.first = placed.get(), .firstAttribute = A::top, .constant = 3});
  owner->layOut();
  EXPECT_EQ(placed->frame(), (Rect{{10, 3}, {30, 40}}));
  EXPECT_EQ(outside->frame(), (Rect{{100, 100}, {100, 100}}));
}

TEST_F(LayoutPasses, LeaveAViewInPlaceWhoseFrameIsItsOwn) {
  placed->setTranslatesAutoresizingMaskIntoConstraints(true);
  placed->addConstraint({.first = placed.get(), .firstAttribute = A::width, .constant = 5});
  owner->layOut();
  EXPECT_EQ(placed->frame(), (Rect{{10, 20}, {30, 40}}));
}

TEST_F(LayoutPasses, PlaceAViewWithinTheOneThatHoldsIt) {
  const auto inner = makePlaced({{1, 1}, {5, 5}});
  placed->addSubview(inner);
  placed->addConstraint({.first = inner.get(),
                         .firstAttribute = A::trailing,
                         .second = placed.get(),
                         .secondAttribute = A::trailing,
                         .constant = -2});
  owner->layOut();
  EXPECT_EQ(inner->frame(), (Rect{{23, 1}, {5, 5}}));
}

TEST_F(LayoutPasses, UpdateTheConstraintsFirst) {
  class Owner final : public ViewController {
   public:
    void updateViewConstraints() override {
      const auto& child = view()->subviews().front();
      child->addConstraint({.first = child.get(), .firstAttribute = A::width, .constant = 99});
    }
  };
  const auto other = std::make_shared<Owner>();
  other->view()->addSubview(placed);
  other->layOut();
  EXPECT_EQ(placed->frame().size, (Size{99, 40}));
}

}  // namespace
}  // namespace wifi_profile::toolkit
