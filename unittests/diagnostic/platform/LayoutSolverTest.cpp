// Frames from constraints: which ones hold, and to which digit.

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <utility>
#include <vector>

#include "diagnostic/platform/toolkit/LayoutSolver.h"

namespace wifi_profile::toolkit {

namespace {

using ::testing::ElementsAre;
using enum LayoutAttribute;
using enum LayoutRelation;
using Constraints = std::vector<BoxConstraint>;

constexpr Rect kPresent{{3, 5}, {70, 90}};

// Of box 0 alone.
BoxConstraint fixed(LayoutAttribute attribute, double value, float priority = kRequiredPriority) {
  return {0, attribute, equal, kNoBox, notAnAttribute, 1, value, priority};
}

BoxConstraint atLeast(LayoutAttribute attribute, double value, float priority = kRequiredPriority) {
  return {0, attribute, greaterThanOrEqual, kNoBox, notAnAttribute, 1, value, priority};
}

BoxConstraint atMost(LayoutAttribute attribute, double value, float priority = kRequiredPriority) {
  return {0, attribute, lessThanOrEqual, kNoBox, notAnAttribute, 1, value, priority};
}

Rect solvedFrame(const Constraints& constraints, Rect present = kPresent) {
  return solvedFrames({present}, constraints).at(0);
}

// A screen, a text in its middle and a bar below the text.
Constraints screenWithTextAndBar(double width, double height) {
  return {fixed(leading, 0),
          fixed(top, 0),
          fixed(LayoutAttribute::width, width),
          fixed(LayoutAttribute::height, height),
          {1, leading, equal, 0, leading, 1, 20},
          {0, trailing, equal, 1, trailing, 1, 20},
          {1, LayoutAttribute::height, greaterThanOrEqual, kNoBox, notAnAttribute, 1, 36, 750},
          {1, centerX, equal, 0, centerX},
          {1, bottom, equal, 0, centerY, 1, 21},
          {1, LayoutAttribute::height, equal, kNoBox, notAnAttribute, 1, 33, 251},
          {1, LayoutAttribute::height, greaterThanOrEqual, kNoBox, notAnAttribute, 1, 33, 750},
          {2, LayoutAttribute::width, equal, kNoBox, notAnAttribute, 1, 240},
          {2, centerX, equal, 0, centerX},
          {2, top, equal, 1, bottom, 1, 15},
          {2, LayoutAttribute::height, equal, kNoBox, notAnAttribute, 1, 2, 750}};
}

TEST(LayoutSolver, LaysOutATextAndABarExactly) {
  for (const Rect& present : {Rect{}, kPresent, Rect{{0.1, -7.3}, {1000, 1.0 / 3}}}) {
    const std::vector<Rect> boxes(3, present);
    EXPECT_THAT(solvedFrames(boxes, screenWithTextAndBar(320, 480)),
                ElementsAre(Rect{{0, 0}, {320, 480}}, Rect{{20, 225}, {280, 36}},
                            Rect{{40, 276}, {240, 2}}));
    EXPECT_THAT(solvedFrames(boxes, screenWithTextAndBar(768, 1024)),
                ElementsAre(Rect{{0, 0}, {768, 1024}}, Rect{{20, 497}, {728, 36}},
                            Rect{{264, 548}, {240, 2}}));
    EXPECT_THAT(solvedFrames(boxes, screenWithTextAndBar(375, 667)),
                ElementsAre(Rect{{0, 0}, {375, 667}}, Rect{{20, 318.5}, {335, 36}},
                            Rect{{67.5, 369.5}, {240, 2}}));
  }
}

TEST(LayoutSolver, LetsDuplicatesDoNoHarm) {
  const Constraints once = screenWithTextAndBar(320, 480);
  Constraints often;
  for (int pass = 0; pass < 1000; ++pass) often.insert(often.end(), once.begin(), once.end());
  const std::vector<Rect> boxes(3);
  EXPECT_EQ(solvedFrames(boxes, often), solvedFrames(boxes, once));
}

TEST(LayoutSolver, KnowsEveryAttribute) {
  const Rect screen{{10, 20}, {100, 60}};
  const std::vector<std::pair<LayoutAttribute, double>> values = {
      {leading, 10}, {trailing, 110}, {centerX, 60}, {width, 100},
      {top, 20},     {bottom, 80},    {centerY, 50}, {height, 60}};
  for (const auto& [attribute, value] : values) {
    const auto frames = solvedFrames({screen, kPresent}, {fixed(leading, 10),
                                                          fixed(top, 20),
                                                          fixed(width, 100),
                                                          fixed(height, 60),
                                                          {1, width, equal, 0, attribute}});
    EXPECT_EQ(frames[1].size.width, value);
    EXPECT_EQ(frames[1].origin, kPresent.origin);
  }
}

TEST(LayoutSolver, Multiplies) {
  const auto frames = solvedFrames({kPresent, {}}, {fixed(width, 300),
                                                    {1, width, equal, 0, width, 0.5, 7},
                                                    {1, height, equal, 1, width, 3, -1},
                                                    {1, leading, equal, 0, width, 0, 9}});
  EXPECT_EQ(frames[1], (Rect{{9, 0}, {157, 470}}));
}

TEST(LayoutSolver, TakesABoxWithItself) {
  EXPECT_EQ(solvedFrame({{0, width, equal, 0, height}}).size, (Size{70, 70}));
  EXPECT_EQ(solvedFrame({{0, width, equal, 0, width, 0.5, 10}}).size, (Size{20, 90}));
  EXPECT_EQ(solvedFrame({{0, width, equal, 0, width, 1, 10}}), kPresent);  // never true
  EXPECT_EQ(solvedFrame({{0, width, equal, 0, width}}), kPresent);         // always true
}

TEST(LayoutSolver, KeepsWhatNothingFixes) {
  const Rect odd{{0.1, 1.0 / 3}, {1e-7, 12345.6789}};
  EXPECT_EQ(solvedFrame({}, odd), odd);
  EXPECT_EQ(solvedFrame({atMost(leading, 7.7), atLeast(top, -1)}, odd), odd);
  EXPECT_TRUE(solvedFrames({}, {}).empty());
  for (double x = 10; x < 11; x += 0.01) {
    EXPECT_EQ(solvedFrame({atLeast(leading, 0.3)}, {{x, 0}, {}}).origin.x, x);
  }
}

TEST(LayoutSolver, MakesNoNegativeZero) {
  EXPECT_FALSE(std::signbit(solvedFrame({fixed(leading, 0)}).origin.x));
  EXPECT_FALSE(
      std::signbit(solvedFrame({{0, leading, equal, 0, width, -1}, fixed(width, 0)}).origin.x));
}

TEST(LayoutSolver, LeavesOutWhatGrowsBeyondUse) {
  const auto times = [](int first, int second) {
    return BoxConstraint{first, width, equal, second, width, 1e6};
  };
  const Rect unit{{0, 0}, {1, 1}};
  const std::vector<Rect> units(5, unit);
  const Rect millionth{{0, 0}, {1e-6, 1}};
  EXPECT_THAT(solvedFrames(units, {times(0, 1), times(1, 2), times(2, 3), times(3, 4)}),
              ElementsAre(unit, millionth, unit, millionth, unit));
}

TEST(LayoutSolver, KeepsSizesRatherThanPositions) {
  EXPECT_EQ(solvedFrame({fixed(trailing, 100), fixed(centerY, 100)}), (Rect{{30, 55}, {70, 90}}));
  EXPECT_EQ(solvedFrame({fixed(trailing, 100), fixed(leading, 10)}), (Rect{{10, 5}, {90, 90}}));
}

TEST(LayoutSolver, MovesTheLaterBoxToTheEarlierOne) {
  const Rect other{{100, 200}, {10, 20}};
  EXPECT_THAT(solvedFrames({kPresent, other}, {{0, leading, equal, 1, leading, 1, 5}}),
              ElementsAre(kPresent, Rect{{-2, 200}, {10, 20}}));
}

TEST(LayoutSolver, HeedsAnInequalityOnlyWhereItWouldNotHold) {
  EXPECT_EQ(solvedFrame({atLeast(width, 69), atMost(height, 91)}), kPresent);
  EXPECT_EQ(solvedFrame({atLeast(width, 71), atMost(height, 89)}).size, (Size{71, 89}));
  EXPECT_EQ(solvedFrame({fixed(width, 33, 251), atLeast(width, 36, 750)}).size.width, 36);
  EXPECT_EQ(solvedFrame({fixed(width, 33, 251), atLeast(width, 30, 750)}).size.width, 33);
  EXPECT_EQ(solvedFrame({fixed(width, 33, 751), atLeast(width, 36, 750)}).size.width, 33);
}

TEST(LayoutSolver, TakesTheTightestOfSeveralInequalities) {
  EXPECT_EQ(solvedFrame({atLeast(width, 80), atLeast(width, 100), atLeast(width, 90)}).size.width,
            100);
  EXPECT_EQ(solvedFrame({{0, width, greaterThanOrEqual, 0, width, -1, 200}, atLeast(width, 120)})
                .size.width,
            120);
}

TEST(LayoutSolver, FollowsAChainOfInequalities) {
  const Constraints chain = {{1, leading, greaterThanOrEqual, 0, trailing, 1, 8},
                             {2, leading, greaterThanOrEqual, 1, trailing, 1, 8}};
  const std::vector<Rect> boxes = {
      {{0, 0}, {100, 10}}, {{50, 0}, {100, 10}}, {{200, 0}, {100, 10}}};
  EXPECT_THAT(solvedFrames(boxes, chain),
              ElementsAre(boxes[0], Rect{{108, 0}, {100, 10}}, Rect{{216, 0}, {100, 10}}));
}

TEST(LayoutSolver, GivesWayWhereInequalitiesLeaveNoRoom) {
  // Between two walls the sum of three widths has to shrink, the latest first.
  Constraints row = {fixed(leading, 0), fixed(width, 100)};
  for (int box = 1; box <= 3; ++box) {
    row.push_back({box, leading, greaterThanOrEqual, box - 1, box == 1 ? leading : trailing});
    row.push_back({box, width, greaterThanOrEqual, kNoBox, notAnAttribute, 1, 10});
    row.push_back({box, width, equal, kNoBox, notAnAttribute, 1, 50, 250});
  }
  row.push_back({3, trailing, lessThanOrEqual, 0, trailing});
  EXPECT_THAT(solvedFrames(std::vector<Rect>(4), row),
              ElementsAre(Rect{{0, 0}, {100, 0}}, Rect{{0, 0}, {50, 0}}, Rect{{50, 0}, {40, 0}},
                          Rect{{90, 0}, {10, 0}}));
}

TEST(LayoutSolver, PrefersTheHigherPriorityThenTheEarlier) {
  EXPECT_EQ(solvedFrame({fixed(width, 1, 10), fixed(width, 2, 11)}).size.width, 2);
  EXPECT_EQ(solvedFrame({fixed(width, 1, 10), fixed(width, 2, 10)}).size.width, 1);
  EXPECT_EQ(solvedFrame({fixed(width, 2), fixed(width, 1)}).size.width, 2);
  EXPECT_EQ(solvedFrame({fixed(width, 1, 0)}).size.width, 1);
  EXPECT_EQ(solvedFrame({fixed(leading, 0), fixed(width, 9), fixed(trailing, 8)}),
            (Rect{{0, 5}, {9, 90}}));
  EXPECT_EQ(solvedFrame({atLeast(width, 10, 750), atMost(width, 5)}).size.width, 5);
  EXPECT_EQ(solvedFrame({atMost(width, 5), atLeast(width, 10)}).size.width, 5);
  EXPECT_EQ(solvedFrame({atLeast(width, 10), atMost(width, 5)}).size.width, 10);
}

TEST(LayoutSolver, LeavesOutWhatNamesNoBoxOrAttribute) {
  EXPECT_EQ(solvedFrame({{-1, width, equal, kNoBox, notAnAttribute, 1, 9},
                         {1, width, equal, kNoBox, notAnAttribute, 1, 9},
                         {0, notAnAttribute, equal, kNoBox, notAnAttribute, 1, 9},
                         {0, static_cast<LayoutAttribute>(99), equal, 0, width},
                         {0, width, equal, 1, width},
                         {0, width, equal, -2, width}}),
            kPresent);
  EXPECT_EQ(solvedFrame({{0, width, equal, 0, notAnAttribute, 1, 9}}).size.width, 9);
  EXPECT_EQ(solvedFrame({{0, width, equal, kNoBox, height, 1, 9}}).size.width, 9);
}

TEST(LayoutSolver, LeavesOutNonsenseNumbers) {
  using Limits = std::numeric_limits<double>;
  for (const double nonsense : {Limits::quiet_NaN(), Limits::infinity(), -Limits::infinity(),
                                Limits::max(), Limits::lowest(), 1e10}) {
    EXPECT_EQ(solvedFrame({fixed(width, nonsense),
                           atLeast(width, nonsense),
                           {0, height, equal, 0, width, nonsense, 1}}),
              kPresent);
    EXPECT_EQ(solvedFrame({}, {{nonsense, 1}, {2, nonsense}}), (Rect{{0, 1}, {2, 0}}));
  }
  for (const float nonsense :
       {std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()}) {
    EXPECT_EQ(solvedFrame({fixed(width, 1, nonsense)}), kPresent);
  }
}

}  // namespace
}  // namespace wifi_profile::toolkit
