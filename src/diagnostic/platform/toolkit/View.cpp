#include "diagnostic/platform/toolkit/View.h"

#include <algorithm>

#include "diagnostic/platform/toolkit/MainThread.h"
#include "diagnostic/platform/toolkit/Screen.h"

namespace wifi_profile::toolkit {

void View::setFrame(Rect frame) {
  checkMainThread("View::setFrame");
  const Size before = frame_.size;
  frame_ = frame;
  if (frame_.size == before) return;
  resizeSubviews(before);
  layoutSubviews();
}

void View::resizeSubviews(Size before) {
  for (const auto& view : subviews_) {
    Rect frame = view->frame();
    if (view->resizing_.flexibleWidth) frame.size.width += frame_.size.width - before.width;
    if (view->resizing_.flexibleHeight) frame.size.height += frame_.size.height - before.height;
    view->setFrame(frame);
  }
}

Point View::center() const {
  return {frame_.origin.x + frame_.size.width / 2, frame_.origin.y + frame_.size.height / 2};
}

void View::setCenter(Point center) {
  setFrame({{center.x - frame_.size.width / 2, center.y - frame_.size.height / 2}, frame_.size});
}

void View::addSubview(const std::shared_ptr<View>& view) {
  checkMainThread("View::addSubview");
  view->leaveSuperview();
  subviews_.push_back(view);
  view->superview_ = weak_from_this();
}

void View::bringSubviewToFront(const std::shared_ptr<View>& view) {
  checkMainThread("View::bringSubviewToFront");
  const auto found = std::find(subviews_.begin(), subviews_.end(), view);
  if (found != subviews_.end()) std::rotate(found, found + 1, subviews_.end());
}

std::shared_ptr<View> View::leaveSuperview() {
  auto superview = superview_.lock();
  superview_.reset();
  if (superview) std::erase(superview->subviews_, shared_from_this());
  return superview;
}

void View::removeFromSuperview() {
  checkMainThread("View::removeFromSuperview");
  if (leaveSuperview()) wasRemovedFromSuperview();
}

void View::addConstraint(const LayoutConstraint& constraint) {
  checkMainThread("View::addConstraint");
  constraints_.push_back(constraint);
  Screen::shared()->constraintWasAdded(*this, constraint);
}

void View::setNeedsUpdateConstraints() {
  if (const auto controller = controller_.lock()) Screen::shared()->needsLayout(controller);
}

}  // namespace wifi_profile::toolkit
