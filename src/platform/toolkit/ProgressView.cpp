#include "platform/toolkit/ProgressView.h"

#include "platform/toolkit/MainThread.h"
#include "platform/toolkit/Screen.h"

namespace wifi_profile::toolkit {

void ProgressView::setProgress(float progress) {
  checkMainThread("ProgressView::setProgress");
  progress_ = progress;
  Screen::shared()->progressWasSet(*this);
}

}  // namespace wifi_profile::toolkit
