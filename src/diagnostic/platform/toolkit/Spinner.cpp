#include "diagnostic/platform/toolkit/Spinner.h"

#include "diagnostic/platform/toolkit/MainThread.h"
#include "diagnostic/platform/toolkit/Screen.h"

namespace wifi_profile::toolkit {

void Spinner::setAnimating(bool animating) {
  checkMainThread("Spinner::setAnimating");
  animating_ = animating;
  Screen::shared()->spinnerWasSwitched(*this);
}

}  // namespace wifi_profile::toolkit
