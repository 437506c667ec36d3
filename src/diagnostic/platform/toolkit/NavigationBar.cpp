#include "diagnostic/platform/toolkit/NavigationBar.h"

#include "diagnostic/platform/RunObserver.h"
#include "diagnostic/platform/toolkit/MainThread.h"
#include "diagnostic/platform/toolkit/Screen.h"

namespace wifi_profile::toolkit {
namespace {

constexpr double kBarHeight = 44;

}  // namespace

void BarButtonItem::setEnabled(bool enabled) {
  checkMainThread("BarButtonItem::setEnabled");
  enabled_ = enabled;
  Screen::shared()->buttonWasEnabled(*this);
}

void BarButtonItem::tap() const {
  checkMainThread("BarButtonItem::tap");
  if (!enabled_) return;
  reportPerson(PersonAction::tapButton);
  const auto action = action_;  // the action may remove this button
  action();
}

void NavigationItem::setRightBarButtonItem(std::shared_ptr<BarButtonItem> button) {
  checkMainThread("NavigationItem::setRightBarButtonItem");
  const bool goes = rightBarButtonItem_ && !button;
  rightBarButtonItem_ = std::move(button);
  if (goes) Screen::shared()->buttonWasRemoved();
}

NavigationContainer::NavigationContainer(ViewController& root)
    : navigationBar_(std::make_shared<NavigationBar>(
          Rect{{0, 0}, {root.view()->frame().size.width, kBarHeight}})) {
  navigationBar_->setResizing({.flexibleWidth = true});
}

}  // namespace wifi_profile::toolkit
