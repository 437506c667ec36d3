#include "diagnostic/platform/toolkit/ViewController.h"

#include "diagnostic/platform/toolkit/MainThread.h"
#include "diagnostic/platform/toolkit/Screen.h"
#include "diagnostic/platform/toolkit/TableView.h"

namespace wifi_profile::toolkit {
namespace {

void readTablesIn(const View& view) {
  for (const auto& subview : view.subviews()) {
    if (const auto table = std::dynamic_pointer_cast<TableView>(subview)) table->appear();
    readTablesIn(*subview);
  }
}

}  // namespace

const std::shared_ptr<View>& ViewController::view() {
  if (!view_) {
    view_ = std::make_shared<View>(Rect{{0, 0}, Screen::shared()->size()});
    view_->controller_ = weak_from_this();
  }
  return view_;
}

void ViewController::appear() {
  checkMainThread("ViewController::appear");
  readTablesIn(*view());
}

}  // namespace wifi_profile::toolkit
