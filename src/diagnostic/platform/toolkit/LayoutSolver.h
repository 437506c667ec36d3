// Solves constraints between rectangles into frames. Independent of views: the rectangles, called
// boxes here, are numbered from 0 and share one coordinate system, in points.
#pragma once

#include <vector>

#include "diagnostic/platform/toolkit/Constraint.h"
#include "diagnostic/platform/toolkit/Geometry.h"

namespace wifi_profile::toolkit {

inline constexpr int kNoBox = -1;

// first.firstAttribute (relation) multiplier x second.secondAttribute + constant, in points.
// Leading is left and trailing right.
struct BoxConstraint {
  int first = kNoBox;
  LayoutAttribute firstAttribute = LayoutAttribute::notAnAttribute;
  LayoutRelation relation = LayoutRelation::equal;
  int second = kNoBox;  // kNoBox, or no attribute: the constant alone
  LayoutAttribute secondAttribute = LayoutAttribute::notAnAttribute;
  double multiplier = 1;
  double constant = 0;
  float priority = kRequiredPriority;  // 0 to 1000
};

// Returns the frames of the boxes, one for each of `present`. Constraints apply in descending order
// of priority, those of equal priority in the given order. Each is met as nearly as the earlier
// ones allow: an equation that contradicts them changes nothing; an inequality has an effect only
// where it would not hold anyway. Last, sizes and then positions keep their present values, those
// of boxes with lower numbers first.
//
// Never fails. Ignores a constraint that names an unknown box or attribute, or whose numbers are
// not finite or exceed 1e6 (multiplier) or 1e9 (constant). A present value that is not finite or
// exceeds 1e9 counts as 0. Sizes can be negative if the constraints require it. If all multipliers
// are 1, whole and half numbers give exact frames.
std::vector<Rect> solvedFrames(const std::vector<Rect>& present,
                               const std::vector<BoxConstraint>& constraints);

}  // namespace wifi_profile::toolkit
