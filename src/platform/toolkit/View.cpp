#include "platform/toolkit/View.h"

#include <algorithm>

#include "platform/toolkit/Screen.h"

namespace wifi_profile::toolkit {

Point View::center() const {
  return {frame_.origin.x + frame_.size.width / 2, frame_.origin.y + frame_.size.height / 2};
}

void View::setCenter(Point center) {
  frame_.origin = {center.x - frame_.size.width / 2, center.y - frame_.size.height / 2};
}

void View::addSubview(const std::shared_ptr<View>& view) {
  view->removeFromSuperview();
  subviews_.push_back(view);
  view->superview_ = weak_from_this();
}

void View::bringSubviewToFront(const std::shared_ptr<View>& view) {
  const auto found = std::find(subviews_.begin(), subviews_.end(), view);
  if (found != subviews_.end()) std::rotate(found, found + 1, subviews_.end());
}

void View::removeFromSuperview() {
  const auto superview = superview_.lock();
  superview_.reset();
  if (superview) std::erase(superview->subviews_, shared_from_this());
}

void View::addConstraint(const LayoutConstraint& constraint) {
  constraints_.push_back(constraint);
  Screen::shared()->constraintWasAdded(*this, constraint);
}

void View::setNeedsUpdateConstraints() {
  if (const auto controller = controller_.lock()) Screen::shared()->needsLayout(controller);
}

}  // namespace wifi_profile::toolkit
