#include "diagnostic/platform/toolkit/Alert.h"

#include "diagnostic/platform/RunObserver.h"
#include "diagnostic/platform/toolkit/MainThread.h"
#include "diagnostic/platform/toolkit/Screen.h"
#include "diagnostic/platform/toolkit/ViewController.h"

namespace wifi_profile::toolkit {

void Alert::type(const std::string& text) {
  checkMainThread("Alert::type");
  if (textFields_.empty()) return;
  reportPerson(PersonAction::type);
  const auto field = textFields_.front();
  field->text = text;
  if (field->onEditingChanged) field->onEditingChanged();
  Screen::shared()->alertTextWasEdited(*this);
}

void Alert::tap(const AlertAction& action) {
  checkMainThread("Alert::tap");
  const auto presenter = presenter_.lock();  // alive until the handler returns
  if (!presenter || !action.isEnabled()) return;
  reportPerson(PersonAction::tapAlertAction);
  const auto alive = shared_from_this();
  Screen::shared()->alertActionWasTapped(*this, action);
  dismiss();
  if (action.handler_) action.handler_();
}

void Alert::dismiss() {
  const auto alive = shared_from_this();
  const auto presenter = presenter_.lock();
  if (presenter) presenter->presentedAlert_ = nullptr;
  presenter_.reset();
  if (presenter) Screen::shared()->alertWasDismissed(*this);
}

void ViewController::disappear() {
  checkMainThread("ViewController::disappear");
  if (const auto alert = presentedAlert_) alert->dismiss();
}

void ViewController::present(const std::shared_ptr<Alert>& alert, bool /*animated*/) {
  checkMainThread("ViewController::present");
  if (presentedAlert_) {
    if (presentedAlert_ != alert) alert->dismiss();
    return;
  }
  presentedAlert_ = alert;
  alert->presenter_ = weak_from_this();
  Screen::shared()->alertWasPresented(*alert);
}

}  // namespace wifi_profile::toolkit
