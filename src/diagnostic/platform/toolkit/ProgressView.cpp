#include "diagnostic/platform/toolkit/ProgressView.h"

#include "diagnostic/platform/toolkit/MainThread.h"
#include "diagnostic/platform/toolkit/Screen.h"

namespace wifi_profile::toolkit {

void ProgressView::setProgress(float progress) {
  checkMainThread("ProgressView::setProgress");
  progress_ = progress;
  Screen::shared()->progressWasSet(*this);
}

}  // namespace wifi_profile::toolkit
