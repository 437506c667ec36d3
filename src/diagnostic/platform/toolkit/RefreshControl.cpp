#include "diagnostic/platform/toolkit/RefreshControl.h"

#include "diagnostic/platform/RunObserver.h"
#include "diagnostic/platform/toolkit/MainThread.h"
#include "diagnostic/platform/toolkit/Screen.h"

namespace wifi_profile::toolkit {

void RefreshControl::pull() {
  checkMainThread("RefreshControl::pull");
  if (refreshing_) return;
  reportPerson(PersonAction::pullToRefresh);
  refreshing_ = true;
  Screen::shared()->refreshBegan();
  const auto action = action_;  // the action may replace this control
  action();
}

void RefreshControl::endRefreshing() {
  checkMainThread("RefreshControl::endRefreshing");
  refreshing_ = false;
  Screen::shared()->refreshEnded();
}

}  // namespace wifi_profile::toolkit
