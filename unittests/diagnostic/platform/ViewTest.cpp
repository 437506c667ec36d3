// Views as a tree.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "diagnostic/platform/toolkit/View.h"
#include "diagnostic/platform/toolkit/ViewController.h"
#include "support/DiagnosticFixture.h"

namespace wifi_profile::toolkit {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Views : public DiagnosticFixture {
 protected:
  const std::shared_ptr<View> root = std::make_shared<View>();
  const std::shared_ptr<View> a = std::make_shared<View>();
  const std::shared_ptr<View> b = std::make_shared<View>();
  const std::shared_ptr<View> c = std::make_shared<View>();
};

TEST_F(Views, AreAddedInFront) {
  root->addSubview(a);
  root->addSubview(b);
  EXPECT_THAT(root->subviews(), ElementsAre(a, b));
  EXPECT_EQ(a->superview(), root);
}

TEST_F(Views, ComeToTheFrontWhenAddedAgain) {
  root->addSubview(a);
  root->addSubview(b);
  root->addSubview(a);
  EXPECT_THAT(root->subviews(), ElementsAre(b, a));
}

TEST_F(Views, LeaveTheViewTheyWereInWhenAddedToAnother) {
  root->addSubview(a);
  b->addSubview(a);
  EXPECT_THAT(root->subviews(), IsEmpty());
  EXPECT_EQ(a->superview(), b);
}

TEST_F(Views, AreBroughtToTheFrontPastTheOthers) {
  for (const auto& view : {a, b, c}) root->addSubview(view);
  root->bringSubviewToFront(a);
  EXPECT_THAT(root->subviews(), ElementsAre(b, c, a));
  root->bringSubviewToFront(std::make_shared<View>());  // a stranger
  EXPECT_THAT(root->subviews(), ElementsAre(b, c, a));
}

TEST_F(Views, AreTakenOutOnce) {
  root->addSubview(a);
  a->removeFromSuperview();
  a->removeFromSuperview();
  EXPECT_THAT(root->subviews(), IsEmpty());
  EXPECT_EQ(a->superview(), nullptr);
}

TEST_F(Views, DoNotKeepTheirSuperviewAlive) {
  auto parent = std::make_shared<View>();
  parent->addSubview(a);
  parent.reset();
  EXPECT_EQ(a->superview(), nullptr);
}

TEST_F(Views, MoveByTheirCentre) {
  a->setFrame({{10, 20}, {30, 40}});
  EXPECT_EQ(a->center(), (Point{25, 40}));
  a->setCenter({0, 0});
  EXPECT_EQ(a->frame(), (Rect{{-15, -20}, {30, 40}}));
}

TEST_F(Views, GrowByTheirMasksWithTheSuperview) {
  root->setFrame({{0, 0}, {100, 80}});
  const auto both = std::make_shared<View>();
  a->setResizing({.flexibleWidth = true});
  b->setResizing({.flexibleHeight = true});
  both->setResizing({.flexibleWidth = true, .flexibleHeight = true});
  for (const auto& view : {a, b, c, both}) {
    view->setFrame({{5, 6}, {50, 40}});
    root->addSubview(view);
  }
  root->setFrame({{7, 7}, {130, 60}});
  EXPECT_EQ(a->frame(), (Rect{{5, 6}, {80, 40}}));
  EXPECT_EQ(b->frame(), (Rect{{5, 6}, {50, 20}}));
  EXPECT_EQ(c->frame(), (Rect{{5, 6}, {50, 40}}));
  EXPECT_EQ(both->frame(), (Rect{{5, 6}, {80, 20}}));
}

TEST_F(Views, PassTheirGrowthOnToTheViewsInThem) {
  root->addSubview(a);
  a->addSubview(b);
  a->setResizing({.flexibleWidth = true});
  b->setResizing({.flexibleWidth = true});
  root->setFrame({{0, 0}, {20, 20}});
  EXPECT_EQ(b->frame(), (Rect{{0, 0}, {20, 0}}));
}

TEST_F(Views, AreLaidOutWhenTheirSizeChangesAndOnlyThen) {
  class CountingView final : public View {
   public:
    int layouts = 0;
    void layoutSubviews() override { ++layouts; }
  };
  const auto outer = std::make_shared<CountingView>();
  const auto inner = std::make_shared<CountingView>();
  outer->addSubview(inner);
  outer->setFrame({{0, 0}, {10, 10}});
  EXPECT_EQ(outer->layouts, 1);
  outer->setFrame({{5, 5}, {10, 10}});
  outer->setCenter({50, 50});
  EXPECT_EQ(outer->layouts, 1);
  EXPECT_EQ(inner->layouts, 0);
  inner->setResizing({.flexibleWidth = true});
  outer->setFrame({{5, 5}, {30, 10}});
  EXPECT_EQ(outer->layouts, 2);
  EXPECT_EQ(inner->layouts, 1);
}

TEST_F(Views, TellTheScreenOfEachConstraint) {
  a->addConstraint({.first = a.get(), .firstAttribute = LayoutAttribute::width, .constant = 5});
  ASSERT_EQ(screen->constraints.size(), 1U);
  EXPECT_EQ(screen->constraints[0].holder, a.get());
  EXPECT_EQ(screen->constraints[0].constraint.constant, 5);
  EXPECT_EQ(a->constraints().size(), 1U);
}

TEST_F(Views, AskForALayoutPassOnlyOnBehalfOfAController) {
  a->setNeedsUpdateConstraints();
  EXPECT_EQ(screen->layoutsWanted, 0U);
  const auto owner = std::make_shared<ViewController>();
  EXPECT_EQ(owner->view(), owner->view());
  owner->view()->setNeedsUpdateConstraints();
  EXPECT_EQ(screen->layoutsWanted, 1U);
}

}  // namespace
}  // namespace wifi_profile::toolkit
