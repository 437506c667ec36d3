#include "platform/toolkit/ViewController.h"

namespace wifi_profile::toolkit {

const std::shared_ptr<View>& ViewController::view() {
  if (!view_) {
    view_ = std::make_shared<View>();
    view_->controller_ = weak_from_this();
  }
  return view_;
}

}  // namespace wifi_profile::toolkit
