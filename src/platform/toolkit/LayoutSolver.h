// From constraints between rectangles to their frames. Knows nothing of views: the rectangles, here
// called boxes, are numbered from 0 and share one coordinate system, in points.
#pragma once

#include <vector>

#include "platform/toolkit/Constraint.h"
#include "platform/toolkit/Geometry.h"

namespace wifi_profile::toolkit {

inline constexpr int kNoBox = -1;

// first.firstAttribute (relation) multiplier x second.secondAttribute + constant, in points.
// Leading is left and trailing right.
struct BoxConstraint {
  int first = kNoBox;
  LayoutAttribute firstAttribute = LayoutAttribute::notAnAttribute;
  LayoutRelation relation = LayoutRelation::equal;
  int second = kNoBox;  // none, or no attribute: the constant alone
  LayoutAttribute secondAttribute = LayoutAttribute::notAnAttribute;
  double multiplier = 1;
  double constant = 0;
  float priority = kRequiredPriority;  // 0 to 1000
};

// The boxes' frames, as many as are present ones. Constraints count in descending priority, those
// of equal priority in order, and each is met as nearly as those before it allow: an equation that
// contradicts them changes nothing, an inequality matters where it would not hold anyway. Last and
// least, sizes and then positions keep their present values, those of lower boxes first.
//
// Never fails. Constraints are left out that name no such box or attribute, or whose numbers are
// not finite or beyond 1e6 (multiplier) and 1e9 (constant); present values of that kind count as 0.
// Sizes can be negative where the constraints say so. Where multipliers are 1, whole and half
// numbers make exact frames.
std::vector<Rect> solvedFrames(const std::vector<Rect>& present,
                               const std::vector<BoxConstraint>& constraints);

}  // namespace wifi_profile::toolkit
