// The screen of a host that draws nothing.
#pragma once

#include "platform/toolkit/Screen.h"

namespace wifi_profile {

// Grants every wish for a layout pass, as work on the main queue; several wishes that come before
// it share one pass.
class NoScreen : public toolkit::Screen, public std::enable_shared_from_this<NoScreen> {
 public:
  // As large as a small phone's, unless told otherwise.
  explicit NoScreen(toolkit::Size size = {320, 568}) : size_(size) {}

  toolkit::Size size() const override { return size_; }
  void needsLayout(const std::shared_ptr<toolkit::ViewController>& controller) override;
  void constraintWasAdded(const toolkit::View& /*holder*/,
                          const toolkit::LayoutConstraint& /*constraint*/) override {}
  void progressWasSet(const toolkit::ProgressView& /*progressView*/) override {}
  void tableDid(const toolkit::TableEvent& /*event*/) override {}
  void buttonWasEnabled(const toolkit::BarButtonItem& /*button*/) override {}
  void buttonWasRemoved() override {}
  void spinnerWasSwitched(const toolkit::Spinner& /*spinner*/) override {}
  void refreshWasInstalled() override {}
  void refreshBegan() override {}
  void refreshEnded() override {}
  void alertWasPresented(const toolkit::Alert& /*alert*/) override {}
  void alertTextWasEdited(const toolkit::Alert& /*alert*/) override {}
  void alertActionWasTapped(const toolkit::Alert& /*alert*/,
                            const toolkit::AlertAction& /*action*/) override {}

 private:
  toolkit::Size size_;
  bool passIsPosted_ = false;
};

}  // namespace wifi_profile
