// The layout pass on simple views.

#include "diagnostic/platform/toolkit/ProgressView.h"
#include "support/DiagnosticFixture.h"

namespace wifi_profile::toolkit {
namespace {

using A = LayoutAttribute;

class LayoutPass : public DiagnosticFixture {
 protected:
  void SetUp() override { owner->view()->addSubview(view); }
  static std::shared_ptr<View> makeView(Rect frame) {
    auto view = std::make_shared<View>(frame);
    view->setTranslatesAutoresizingMaskIntoConstraints(false);
    return view;
  }
  // An equation for `view`.
  void fix(A attribute, double constant) {
    view->addConstraint({.first = view.get(), .firstAttribute = attribute, .constant = constant});
  }
  const Rect& frame() {
    owner->layOut();
    return view->frame();
  }

  const std::shared_ptr<ViewController> owner = std::make_shared<ViewController>();
  const std::shared_ptr<View> view = makeView({{10, 20}, {30, 40}});
};

TEST_F(LayoutPass, KeepsTheFrameOfAViewWithoutConstraints) {
  EXPECT_EQ(frame(), (Rect{{10, 20}, {30, 40}}));
}

TEST_F(LayoutPass, KeepsAFrameThatIsSet) {
  view->setTranslatesAutoresizingMaskIntoConstraints(true);
  fix(A::width, 5);
  EXPECT_EQ(frame(), (Rect{{10, 20}, {30, 40}}));
}

TEST_F(LayoutPass, FollowsEachAttribute) {
  const std::vector<std::pair<A, Rect>> expected{
      {A::leading, {{5, 20}, {30, 40}}},    {A::top, {{10, 5}, {30, 40}}},
      {A::trailing, {{-25, 20}, {30, 40}}}, {A::bottom, {{10, -35}, {30, 40}}},
      {A::centerX, {{-10, 20}, {30, 40}}},  {A::centerY, {{10, -15}, {30, 40}}},
      {A::width, {{10, 20}, {5, 40}}},      {A::height, {{10, 20}, {30, 5}}},
  };
  for (const auto& [attribute, result] : expected) {
    const auto other = makeView({{10, 20}, {30, 40}});
    other->addConstraint({.first = other.get(), .firstAttribute = attribute, .constant = 5});
    owner->view()->addSubview(other);
    owner->layOut();
    EXPECT_EQ(other->frame(), result) << static_cast<int>(attribute);
  }
}

TEST_F(LayoutPass, TakesTheSizeFromBothEdges) {
  fix(A::trailing, 50);
  fix(A::leading, 8);
  EXPECT_EQ(frame(), (Rect{{8, 20}, {42, 40}}));
}

TEST_F(LayoutPass, TakesTheSizeFromItsEquationFirst) {
  fix(A::leading, 8);
  fix(A::trailing, 50);
  fix(A::width, 7);
  EXPECT_EQ(frame(), (Rect{{8, 20}, {7, 40}}));
}

TEST_F(LayoutPass, CountsTheFirstOfSeveralEquations) {
  fix(A::top, 3);
  fix(A::top, 4);
  EXPECT_EQ(frame(), (Rect{{10, 3}, {30, 40}}));
}

TEST_F(LayoutPass, RaisesASizeToTheLargestInequality) {
  for (const double least : {35, 50, 45}) {
    view->addConstraint({.first = view.get(),
                         .firstAttribute = A::height,
                         .relation = LayoutRelation::greaterThanOrEqual,
                         .constant = least});
  }
  EXPECT_EQ(frame().size, (Size{30, 50}));
}

TEST_F(LayoutPass, GivesAViewTheSizeOfItsContent) {
  const auto bar = std::make_shared<ProgressView>(ProgressViewStyle::standard);
  bar->setTranslatesAutoresizingMaskIntoConstraints(false);
  bar->setFrame({{1, 2}, {3, 4}});
  owner->view()->addSubview(bar);
  owner->layOut();
  EXPECT_EQ(bar->frame(), (Rect{{1, 2}, {3, 2}}));
}

TEST_F(LayoutPass, PlacesAViewByOneFurtherBack) {
  const auto front = makeView({{0, 0}, {5, 5}});
  owner->view()->addSubview(front);
  fix(A::leading, 100);
  front->addConstraint({.first = front.get(),
                        .firstAttribute = A::leading,
                        .second = view.get(),
                        .secondAttribute = A::trailing,
                        .constant = 2});
  owner->layOut();
  EXPECT_EQ(front->frame(), (Rect{{132, 0}, {5, 5}}));
}

TEST_F(LayoutPass, IgnoresAConstraintToAViewThatIsNotASubview) {
  const auto outside = std::make_shared<View>(Rect{{100, 100}, {100, 100}});
  view->addConstraint({.first = outside.get(), .firstAttribute = A::width, .constant = 5});
  view->addConstraint({.first = view.get(),
                       .firstAttribute = A::leading,
                       .second = outside.get(),
                       .secondAttribute = A::leading});
  fix(A::top, 3);
  EXPECT_EQ(frame(), (Rect{{10, 3}, {30, 40}}));
  EXPECT_EQ(outside->frame(), (Rect{{100, 100}, {100, 100}}));
}

TEST_F(LayoutPass, UpdatesTheConstraintsFirst) {
  class Owner final : public ViewController {
   public:
    void updateViewConstraints() override {
      const auto& child = view()->subviews().front();
      child->addConstraint({.first = child.get(), .firstAttribute = A::width, .constant = 99});
    }
  };
  const auto other = std::make_shared<Owner>();
  other->view()->addSubview(view);
  other->layOut();
  EXPECT_EQ(view->frame().size, (Size{99, 40}));
}

}  // namespace
}  // namespace wifi_profile::toolkit
