// The layout pass: computes the frames of the subviews of a controller's view from constraints.

#include <algorithm>
#include <map>

#include "diagnostic/platform/toolkit/MainThread.h"
#include "diagnostic/platform/toolkit/ViewController.h"

namespace wifi_profile::toolkit {
namespace {

using A = LayoutAttribute;

double valueIn(const Rect& frame, LayoutAttribute attribute) {
  const auto& [origin, size] = frame;
  switch (attribute) {
    case A::leading:
      return origin.x;
    case A::trailing:
      return origin.x + size.width;
    case A::centerX:
      return origin.x + size.width / 2;
    case A::width:
      return size.width;
    case A::top:
      return origin.y;
    case A::bottom:
      return origin.y + size.height;
    case A::centerY:
      return origin.y + size.height / 2;
    case A::height:
      return size.height;
    case A::notAnAttribute:
      break;
  }
  return 0;
}

// What the constraints say about one view.
struct Rules {
  std::map<LayoutAttribute, double> equal;  // of several values of an attribute, the first
  std::map<LayoutAttribute, double> least;  // of several, the largest
};

// The frames of the controller's view and of the subviews that have their place, in the coordinates
// of the controller's view.
using Placed = std::map<const View*, Rect>;

void addRules(const View& holder, const View& view, const Placed& placed, Rules& rules) {
  for (const LayoutConstraint& constraint : holder.constraints()) {
    const bool isFirst = constraint.first == &view;
    if (!isFirst && constraint.second != &view) continue;
    const View* const other = isFirst ? constraint.second : constraint.first;
    double value = isFirst ? constraint.constant : -constraint.constant;
    if (other) {
      const auto found = placed.find(other);
      if (found == placed.end()) continue;
      value +=
          valueIn(found->second, isFirst ? constraint.secondAttribute : constraint.firstAttribute);
    }
    const LayoutAttribute own = isFirst ? constraint.firstAttribute : constraint.secondAttribute;
    if (constraint.relation == LayoutRelation::equal) {
      rules.equal.try_emplace(own, value);
    } else if (isFirst) {
      double& least = rules.least.try_emplace(own, value).first->second;
      least = std::max(least, value);
    }
  }
}

// Applies the rules of one axis, whose attributes these are, to an origin and a length.
void apply(const Rules& rules, A start, A end, A center, A size, double& origin, double& length) {
  const auto& equal = rules.equal;
  if (equal.contains(size)) {
    length = equal.at(size);
  } else if (equal.contains(start) && equal.contains(end)) {
    length = equal.at(end) - equal.at(start);
  } else if (rules.least.contains(size)) {
    length = std::max(length, rules.least.at(size));
  }
  if (equal.contains(start)) {
    origin = equal.at(start);
  } else if (equal.contains(end)) {
    origin = equal.at(end) - length;
  } else if (equal.contains(center)) {
    origin = equal.at(center) - length / 2;
  }
}

Rect frameBy(const Rules& rules, const View& view) {
  auto [origin, size] = view.frame();
  const Size content = view.intrinsicContentSize().value_or(size);
  if (content.width >= 0) size.width = content.width;
  if (content.height >= 0) size.height = content.height;
  apply(rules, A::leading, A::trailing, A::centerX, A::width, origin.x, size.width);
  apply(rules, A::top, A::bottom, A::centerY, A::height, origin.y, size.height);
  return {origin, size};
}

}  // namespace

void ViewController::layOut() {
  checkMainThread("ViewController::layOut");
  updateViewConstraints();
  const auto& views = view()->subviews();
  Placed placed{{view().get(), {{}, view()->frame().size}}};
  for (const auto& subview : views) {
    if (subview->translatesAutoresizingMaskIntoConstraints()) {
      placed.emplace(subview.get(), subview->frame());
    }
  }
  for (const auto& subview : views) {
    if (placed.contains(subview.get())) continue;
    Rules rules;
    addRules(*view(), *subview, placed, rules);
    for (const auto& holder : views) addRules(*holder, *subview, placed, rules);
    subview->setFrame(frameBy(rules, *subview));
    placed.emplace(subview.get(), subview->frame());
  }
}

}  // namespace wifi_profile::toolkit
