// The progress screen: its two views, where they stand, and what the bar shows.

#include "diagnostic/platform/toolkit/Label.h"
#include "diagnostic/platform/toolkit/NavigationBar.h"
#include "diagnostic/platform/toolkit/ProgressView.h"
#include "diagnostic/platform/toolkit/TableView.h"
#include "support/DiagnosticFixture.h"
#include "support/Matchers.h"

namespace wifi_profile {
namespace {

using ::testing::ElementsAre;
using toolkit::LayoutAttribute;
using toolkit::LayoutRelation;

class ProgressScreen : public DiagnosticFixture {
 protected:
  void SetUp() override { setUpController(makeInputs(nullptr)); }

  const toolkit::Label& label() { return *controller->mainLabel(); }
  const toolkit::ProgressView& bar() { return *controller->progressView(); }
};

TEST_F(ProgressScreen, HasALargeCentredMessageOfAtMostThreeLines) {
  controller->displayProgressScreen();
  EXPECT_EQ(label().frame(), toolkit::Rect());
  EXPECT_FALSE(label().isOpaque());
  EXPECT_EQ(label().contentMode(), 7);
  EXPECT_EQ(label().huggingPriority(), (toolkit::HuggingPriority{251, 251}));
  EXPECT_EQ(static_cast<int>(label().textAlignment), 1);
  EXPECT_EQ(static_cast<int>(label().lineBreakMode), 0);
  EXPECT_EQ(label().numberOfLines, 3);
  EXPECT_EQ(static_cast<int>(label().baselineAdjustment), 2);
  EXPECT_EQ(label().preferredMaxLayoutWidth, 280.0);
  EXPECT_EQ(label().systemFontSize, 27.0);
  EXPECT_EQ(label().text->string(), "PROGRESS_TEXT");
  EXPECT_EQ(label().textColor, (toolkit::Color{0, 1}));
  EXPECT_FALSE(label().translatesAutoresizingMaskIntoConstraints());
}

TEST_F(ProgressScreen, HasAnEmptyBarInTheUsualStyle) {
  controller->displayProgressScreen();
  EXPECT_EQ(static_cast<int>(bar().style()), 0);
  EXPECT_EQ(bar().progress(), 0.0F);
  EXPECT_EQ(bar().huggingPriority(), (toolkit::HuggingPriority{.vertical = 750}));
  EXPECT_FALSE(bar().translatesAutoresizingMaskIntoConstraints());
}

TEST_F(ProgressScreen, IsVisibleFromTheMomentItIsDisplayed) {
  EXPECT_FALSE(controller->progressScreenVisible());
  controller->displayProgressScreen();
  EXPECT_TRUE(controller->progressScreenVisible());
}

TEST_F(ProgressScreen, PutsTheMessageAndThenTheBarIntoTheView) {
  controller->displayProgressScreen();
  EXPECT_THAT(controller->view()->subviews(),
              ElementsAre(controller->mainLabel(), controller->progressView()));
}

TEST_F(ProgressScreen, AsksForOneLayoutPass) {
  controller->displayProgressScreen();
  EXPECT_EQ(screen->layoutsWanted, 1U);
  EXPECT_TRUE(screen->constraints.empty());
  queues->runUntilIdle();
  EXPECT_EQ(screen->constraints.size(), 8U);
}

TEST_F(ProgressScreen, StandsUnderTheNavigationBarThatComesLater) {
  controller->start();
  EXPECT_THAT(controller->view()->subviews(),
              ElementsAre(controller->mainLabel(), controller->progressView(),
                          controller->navigationBar()));
}

TEST_F(ProgressScreen, TakesThePickersTableOffTheScreenButKeepsIt) {
  const auto table = std::make_shared<toolkit::TableView>();
  controller->tableView.set(table);
  controller->view()->addSubview(table);
  controller->displayProgressScreen();
  EXPECT_EQ(table->superview(), nullptr);
  EXPECT_EQ(controller->view()->subviews().size(), 2U);
  EXPECT_EQ(controller->tableView(), table);
}

TEST_F(ProgressScreen, ConstrainsTheMessageToTheMiddleAndTheBarUnderIt) {
  controller->displayProgressScreen();
  controller->updateViewConstraints();
  const toolkit::View* const view = controller->view().get();
  const toolkit::View* const message = controller->mainLabel().get();
  const toolkit::View* const progress = controller->progressView().get();
  constexpr auto kEqual = LayoutRelation::equal;
  constexpr auto kAtLeast = LayoutRelation::greaterThanOrEqual;
  using A = LayoutAttribute;
  const std::vector<RecordingScreen::AddedConstraint> expected{
      {view, {message, A::leading, kEqual, view, A::leading, 20, 1000}},
      {view, {view, A::trailing, kEqual, message, A::trailing, 20, 1000}},
      {message, {message, A::height, kAtLeast, nullptr, A::notAnAttribute, 36, 750}},
      {view, {message, A::centerX, kEqual, view, A::centerX, 0, 1000}},
      {view, {message, A::bottom, kEqual, view, A::centerY, 21, 1000}},
      {progress, {progress, A::width, kEqual, nullptr, A::notAnAttribute, 240, 1000}},
      {view, {progress, A::centerX, kEqual, view, A::centerX, 0, 1000}},
      {view, {progress, A::top, kEqual, message, A::bottom, 15, 1000}},
  };
  ASSERT_EQ(screen->constraints.size(), expected.size());
  for (std::size_t i = 0; i < expected.size(); ++i) {
    SCOPED_TRACE("constraint " + std::to_string(i + 1));
    const auto& [holder, added] = screen->constraints[i];
    const auto& wanted = expected[i].constraint;
    EXPECT_EQ(holder, expected[i].holder);
    EXPECT_EQ(added.first, wanted.first);
    EXPECT_EQ(added.firstAttribute, wanted.firstAttribute);
    EXPECT_EQ(added.relation, wanted.relation);
    EXPECT_EQ(added.second, wanted.second);
    EXPECT_EQ(added.secondAttribute, wanted.secondAttribute);
    EXPECT_EQ(added.constant, wanted.constant);
    EXPECT_EQ(added.priority, wanted.priority);
  }
}

TEST_F(ProgressScreen, ConstrainsAnewAtEveryPassAndTakesNothingAway) {
  controller->displayProgressScreen();
  controller->updateViewConstraints();
  controller->updateViewConstraints();
  EXPECT_EQ(screen->constraints.size(), 16U);
  EXPECT_EQ(controller->view()->constraints().size(), 12U);
  EXPECT_EQ(label().constraints().size(), 2U);
  EXPECT_EQ(bar().constraints().size(), 2U);
}

TEST_F(ProgressScreen, ConstrainsNothingWhileItIsNotVisible) {
  controller->updateViewConstraints();
  controller->displayProgressScreen();
  controller->progressScreenVisible.set(false);
  queues->runUntilIdle();
  EXPECT_TRUE(screen->constraints.empty());
}

TEST_F(ProgressScreen, CountsAtOnceButMovesTheBarOnTheMainQueue) {
  controller->displayProgressScreen();
  controller->totalTests.set(4);
  controller->updateProgress();
  EXPECT_EQ(controller->completedTests(), 1);
  EXPECT_EQ(bar().progress(), 0.0F);
  std::vector<bool> onMain;
  screen->whenProgressWasSet = [&] { onMain.push_back(queues->onMainThread()); };
  queues->runUntilIdle();
  EXPECT_EQ(bar().progress(), 0.25F);
  EXPECT_THAT(onMain, ElementsAre(true));
}

TEST_F(ProgressScreen, ShowsTheCountOfTheMomentThatTheBarIsMoved) {
  controller->displayProgressScreen();
  controller->totalTests.set(4);
  controller->updateProgress();
  controller->updateProgress();
  controller->totalTests.set(8);
  queues->runUntilIdle();
  EXPECT_THAT(screen->progress, ElementsAre(0.25F, 0.25F));
}

TEST_F(ProgressScreen, DividesInSinglePrecision) {
  controller->displayProgressScreen();
  controller->totalTests.set(40);
  controller->completedTests.set(2);
  controller->updateProgress();
  queues->runUntilIdle();
  EXPECT_EQ(bar().progress(), 3.0F / 40.0F);
}

TEST_F(ProgressScreen, CountsBeyondTheTotalWithoutACap) {
  controller->displayProgressScreen();
  controller->totalTests.set(2);
  controller->completedTests.set(2);
  controller->updateProgress();
  queues->runUntilIdle();
  EXPECT_EQ(bar().progress(), 1.5F);
}

}  // namespace
}  // namespace wifi_profile
