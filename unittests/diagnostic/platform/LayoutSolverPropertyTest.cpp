// What holds for the frames of any constraints, tried with seeded random ones.

#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <vector>

#include "diagnostic/platform/toolkit/LayoutSolver.h"

namespace wifi_profile::toolkit {
namespace {

using Constraints = std::vector<BoxConstraint>;

constexpr int kBoxes = 5;
constexpr double kTolerance = 1e-6;

double valueOf(const Rect& rect, LayoutAttribute attribute) {
  switch (attribute) {
    case LayoutAttribute::leading:
      return rect.origin.x;
    case LayoutAttribute::trailing:
      return rect.origin.x + rect.size.width;
    case LayoutAttribute::top:
      return rect.origin.y;
    case LayoutAttribute::bottom:
      return rect.origin.y + rect.size.height;
    case LayoutAttribute::width:
      return rect.size.width;
    case LayoutAttribute::height:
      return rect.size.height;
    case LayoutAttribute::centerX:
      return rect.origin.x + rect.size.width / 2;
    case LayoutAttribute::centerY:
      return rect.origin.y + rect.size.height / 2;
    case LayoutAttribute::notAnAttribute:
      break;
  }
  return 0;
}

// The left side less the right side.
double differenceIn(const std::vector<Rect>& frames, const BoxConstraint& constraint) {
  const auto at = [&](int box, LayoutAttribute attribute) {
    return box == kNoBox ? 0 : valueOf(frames[static_cast<std::size_t>(box)], attribute);
  };
  return at(constraint.first, constraint.firstAttribute) -
         constraint.multiplier * at(constraint.second, constraint.secondAttribute) -
         constraint.constant;
}

// 0 where the constraint holds.
double missIn(const std::vector<Rect>& frames, const BoxConstraint& constraint) {
  const double difference = differenceIn(frames, constraint);
  switch (constraint.relation) {
    case LayoutRelation::equal:
      return std::abs(difference);
    case LayoutRelation::greaterThanOrEqual:
      return std::max(-difference, 0.0);
    case LayoutRelation::lessThanOrEqual:
      return std::max(difference, 0.0);
  }
  return 0;
}

// Of the two numbers that differ most. Infinite where there is something else than numbers.
double distanceOf(const std::vector<Rect>& some, const std::vector<Rect>& others) {
  double distance = 0;
  for (std::size_t box = 0; box < some.size(); ++box) {
    const auto [origin, size] = some[box];
    const auto [otherOrigin, otherSize] = others[box];
    for (const double difference : {origin.x - otherOrigin.x, origin.y - otherOrigin.y,
                                    size.width - otherSize.width, size.height - otherSize.height}) {
      if (!std::isfinite(difference)) return std::numeric_limits<double>::infinity();
      distance = std::max(distance, std::abs(difference));
    }
  }
  return distance;
}

class Randomness {
 public:
  explicit Randomness(unsigned seed) : engine_(seed) {}

  int whole(int from, int to) { return std::uniform_int_distribution(from, to)(engine_); }

  std::vector<Rect> frames() {
    const auto number = [this] { return whole(-1000, 1000) / 2.0; };
    std::vector<Rect> frames(kBoxes);
    for (Rect& frame : frames) frame = {{number(), number()}, {number(), number()}};
    return frames;
  }

  BoxConstraint constraint() {
    const auto attribute = [this] { return static_cast<LayoutAttribute>(whole(1, 8)); };
    return {.first = whole(0, kBoxes - 1),
            .firstAttribute = attribute(),
            .relation = static_cast<LayoutRelation>(whole(0, 2)),
            .second = whole(-1, kBoxes - 1),
            .secondAttribute = attribute(),
            .multiplier = whole(0, 2) > 0 ? 1 : whole(-6, 6) / 2.0,
            .constant = whole(-200, 200) / 2.0};
  }

 private:
  std::mt19937 engine_;
};

TEST(LayoutSolverProperties, MeetsWhateverCanBeMetTogether) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    Randomness random(seed);
    const auto solution = random.frames();
    Constraints constraints;
    for (int count = random.whole(1, 40); count > 0; --count) {
      BoxConstraint constraint = random.constraint();
      double room = constraint.relation == LayoutRelation::equal ? 0 : random.whole(0, 20);
      if (constraint.relation == LayoutRelation::lessThanOrEqual) room = -room;
      constraint.constant += differenceIn(solution, constraint) - room;
      constraints.push_back(constraint);
    }
    const auto frames = solvedFrames(random.frames(), constraints);
    for (const BoxConstraint& constraint : constraints) {
      ASSERT_NEAR(missIn(frames, constraint), 0, kTolerance) << seed;
    }
    ASSERT_LT(distanceOf(solvedFrames(solution, constraints), solution), kTolerance) << seed;
  }
}

// As many constraints as these contradict each other.
TEST(LayoutSolverProperties, SacrificesNoConstraintToALaterOne) {
  for (unsigned seed = 0; seed < 25; ++seed) {
    Randomness random(seed);
    const auto present = random.frames();
    Constraints all;
    for (int count = 0; count < 40; ++count) all.push_back(random.constraint());
    const auto frames = solvedFrames(present, all);
    Constraints some;
    for (const BoxConstraint& constraint : all) {
      some.push_back(constraint);
      ASSERT_NEAR(missIn(frames, constraint), missIn(solvedFrames(present, some), constraint),
                  kTolerance)
          << seed << ", constraint " << some.size();
    }
  }
}

TEST(LayoutSolverProperties, ChangesNothingTheSecondTime) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    Randomness random(seed);
    Constraints constraints;
    for (int count = random.whole(1, 40); count > 0; --count) {
      constraints.push_back(random.constraint());
    }
    const auto once = solvedFrames(random.frames(), constraints);
    ASSERT_LT(distanceOf(solvedFrames(once, constraints), once), kTolerance) << seed;
  }
}

// Each frame follows from an earlier one, told in any order.
TEST(LayoutSolverProperties, ComputesWholeAndHalfNumbersExactly) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    Randomness random(seed);
    const auto solution = random.frames();
    Constraints constraints;
    for (int box = 0; box < kBoxes; ++box) {
      for (const auto attribute : {LayoutAttribute::centerX, LayoutAttribute::centerY,
                                   LayoutAttribute::width, LayoutAttribute::height}) {
        BoxConstraint constraint = random.constraint();
        constraint.first = box;
        constraint.firstAttribute = attribute;
        constraint.relation = LayoutRelation::equal;
        constraint.second = box == 0 ? kNoBox : random.whole(0, box - 1);
        constraint.multiplier = 1;
        constraint.constant += differenceIn(solution, constraint);
        constraint.priority = static_cast<float>(random.whole(0, 1000));
        constraints.push_back(constraint);
      }
    }
    ASSERT_EQ(solvedFrames(random.frames(), constraints), solution) << seed;
  }
}

// With a single unknown, what is left to choose is an interval.
TEST(LayoutSolverProperties, NarrowsAnInterval) {
  for (unsigned seed = 0; seed < 300; ++seed) {
    Randomness random(seed);
    double low = -std::numeric_limits<double>::infinity();
    double high = -low;
    Constraints constraints;
    for (int count = random.whole(0, 6); count > 0; --count) {
      const auto relation = static_cast<LayoutRelation>(random.whole(0, 2) * random.whole(0, 1));
      const double value = random.whole(-100, 100);
      constraints.push_back({.first = 0,
                             .firstAttribute = LayoutAttribute::width,
                             .relation = relation,
                             .constant = value});
      const double nearest = std::clamp(value, low, high);
      if (relation != LayoutRelation::lessThanOrEqual) low = nearest;
      if (relation != LayoutRelation::greaterThanOrEqual) high = nearest;
    }
    const double present = random.whole(-100, 100);
    const auto frames = solvedFrames({{{0, 0}, {present, 0}}}, constraints);
    ASSERT_EQ(frames[0].size.width, std::clamp(present, low, high)) << seed;
  }
}

// Chains of multipliers can make numbers of any size.
TEST(LayoutSolverProperties, EndsWithNumbersWhateverTheConstraints) {
  const std::vector<Rect> origins(kBoxes);
  for (unsigned seed = 0; seed < 200; ++seed) {
    Randomness random(seed);
    const auto number = [&] { return std::ldexp(random.whole(-9, 9), random.whole(-20, 16)); };
    Constraints constraints;
    for (int count = 0; count < 60; ++count) {
      BoxConstraint constraint = random.constraint();
      constraint.multiplier = number();
      constraint.constant = number();
      constraint.priority = static_cast<float>(random.whole(0, 1000));
      constraints.push_back(constraint);
    }
    const auto frames = solvedFrames(random.frames(), constraints);
    ASSERT_TRUE(std::isfinite(distanceOf(frames, origins))) << seed;
  }
}

}  // namespace
}  // namespace wifi_profile::toolkit
