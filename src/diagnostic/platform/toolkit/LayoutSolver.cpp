#include "diagnostic/platform/toolkit/LayoutSolver.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <set>
#include <tuple>
#include <utility>

#include "diagnostic/platform/toolkit/LinearSystem.h"

namespace wifi_profile::toolkit {
namespace {

constexpr double kLargestMultiplier = 1e6;
constexpr double kLargestLength = 1e9;

// The unknowns of a box, at consecutive indices.
enum Unknown { kX, kY, kWidth, kHeight, kUnknowns };

int variableOf(int box, Unknown unknown) { return box * kUnknowns + unknown; }

// False for NaN, too.
bool isWithin(double limit, double value) { return std::abs(value) <= limit; }

// Empty for `notAnAttribute`.
std::optional<LinearForm> formOf(int box, LayoutAttribute attribute) {
  const auto form = [box](Unknown unknown, double size = 0) {
    const auto sizeUnknown = unknown == kX ? kWidth : kHeight;
    LinearForm sum;
    sum.addTerm(variableOf(box, unknown), 1);
    sum.addTerm(variableOf(box, sizeUnknown), size);
    return sum;
  };
  switch (attribute) {
    case LayoutAttribute::leading:
      return form(kX);
    case LayoutAttribute::trailing:
      return form(kX, 1);
    case LayoutAttribute::top:
      return form(kY);
    case LayoutAttribute::bottom:
      return form(kY, 1);
    case LayoutAttribute::width:
      return form(kWidth);
    case LayoutAttribute::height:
      return form(kHeight);
    case LayoutAttribute::centerX:
      return form(kX, 0.5);
    case LayoutAttribute::centerY:
      return form(kY, 0.5);
    case LayoutAttribute::notAnAttribute:
      break;
  }
  return std::nullopt;
}

// Returns the left side minus the right side. Empty if the constraint must be ignored.
std::optional<LinearForm> differenceOf(const BoxConstraint& constraint, int boxes) {
  if (constraint.first < 0 || constraint.first >= boxes) return std::nullopt;
  if (constraint.second < kNoBox || constraint.second >= boxes) return std::nullopt;
  auto difference = formOf(constraint.first, constraint.firstAttribute);
  if (!difference) return std::nullopt;
  difference->constant = -constraint.constant;
  if (constraint.second == kNoBox) return difference;
  if (const auto second = formOf(constraint.second, constraint.secondAttribute)) {
    difference->add(-constraint.multiplier, *second);
  }
  return difference;
}

bool hasUsableNumbers(const BoxConstraint& constraint) {
  return isWithin(kLargestMultiplier, constraint.multiplier) &&
         isWithin(kLargestLength, constraint.constant) && std::isfinite(constraint.priority);
}

// An arbitrary order in which only identical constraints are equivalent.
struct AnyOrder {
  static auto key(const BoxConstraint& c) {
    return std::tie(c.first, c.firstAttribute, c.relation, c.second, c.secondAttribute,
                    c.multiplier, c.constant, c.priority);
  }
  bool operator()(const BoxConstraint& a, const BoxConstraint& b) const { return key(a) < key(b); }
};

// Returns the usable constraints by descending priority. Keeps only the first of identical
// constraints, so that adding the same constraints at every layout pass adds no cost.
std::vector<BoxConstraint> inOrder(const std::vector<BoxConstraint>& constraints) {
  std::set<BoxConstraint, AnyOrder> known;
  std::vector<BoxConstraint> ordered;
  for (const BoxConstraint& constraint : constraints) {
    if (hasUsableNumbers(constraint) && known.insert(constraint).second) {
      ordered.push_back(constraint);
    }
  }
  std::stable_sort(ordered.begin(), ordered.end(),
                   [](const auto& a, const auto& b) { return a.priority > b.priority; });
  return ordered;
}

void apply(const BoxConstraint& constraint, int boxes, LinearSystem& system) {
  auto difference = differenceOf(constraint, boxes);
  if (!difference) return;
  switch (constraint.relation) {
    case LayoutRelation::equal:
      system.makeZero(std::move(*difference));
      break;
    case LayoutRelation::lessThanOrEqual:
      difference->negate();
      [[fallthrough]];
    case LayoutRelation::greaterThanOrEqual:
      system.makeNonNegative(std::move(*difference));
      break;
  }
}

double& numberIn(std::vector<Rect>& frames, int box, Unknown unknown) {
  Rect& frame = frames[static_cast<std::size_t>(box)];
  switch (unknown) {
    case kX:
      return frame.origin.x;
    case kY:
      return frame.origin.y;
    case kWidth:
      return frame.size.width;
    default:
      return frame.size.height;
  }
}

// Calls `action` for each number of each box, sizes before positions.
template <typename Action>
void forEachNumber(std::vector<Rect>& frames, Action action) {
  for (const auto& unknowns : {std::array{kWidth, kHeight}, std::array{kX, kY}}) {
    for (int box = 0; box < static_cast<int>(frames.size()); ++box) {
      for (const Unknown unknown : unknowns) {
        action(numberIn(frames, box, unknown), variableOf(box, unknown));
      }
    }
  }
}

}  // namespace

std::vector<Rect> solvedFrames(const std::vector<Rect>& present,
                               const std::vector<BoxConstraint>& constraints) {
  const int boxes = static_cast<int>(present.size());
  LinearSystem system(boxes * kUnknowns);
  for (const BoxConstraint& constraint : inOrder(constraints)) apply(constraint, boxes, system);

  std::vector<Rect> frames = present;
  std::set<int> kept;  // no arithmetic on these, which could round them
  forEachNumber(frames, [&](double& number, int variable) {
    if (!isWithin(kLargestLength, number)) number = 0;
    if (system.makeZero({-number, {{variable, 1}}})) kept.insert(variable);
  });
  forEachNumber(frames, [&](double& number, int variable) {
    if (!kept.contains(variable)) number = system.value(variable).value_or(number);
  });
  return frames;
}

}  // namespace wifi_profile::toolkit
