// A screen that forwards to another screen and writes the calls into the trace.
#pragma once

#include <cstdint>
#include <memory>

#include "diagnostic/platform/Trace.h"
#include "diagnostic/platform/toolkit/Screen.h"

namespace wifi_profile::cli {

// Main thread only. `trace` must outlive it.
class TracingScreen final : public toolkit::Screen {
 public:
  TracingScreen(std::shared_ptr<toolkit::Screen> screen, Trace& trace)
      : screen_(std::move(screen)), trace_(trace) {}

  toolkit::Size size() const override { return screen_->size(); }
  void needsLayout(const std::shared_ptr<toolkit::ViewController>& controller) override;
  void constraintWasAdded(const toolkit::View& holder,
                          const toolkit::LayoutConstraint& constraint) override;
  void progressWasSet(const toolkit::ProgressView& progressView) override;
  void tableDid(const toolkit::TableEvent& event) override;
  void buttonWasEnabled(const toolkit::BarButtonItem& button) override;
  void buttonWasRemoved() override;
  void spinnerWasSwitched(const toolkit::Spinner& spinner) override;
  void refreshWasInstalled() override;
  void refreshBegan() override;
  void refreshEnded() override;
  void alertWasPresented(const toolkit::Alert& alert) override;
  void alertTextWasEdited(const toolkit::Alert& alert) override;
  void alertActionWasTapped(const toolkit::Alert& alert,
                            const toolkit::AlertAction& action) override;
  // Writes no event: later events show the dismissal.
  void alertWasDismissed(const toolkit::Alert& alert) override {
    screen_->alertWasDismissed(alert);
  }

 private:
  std::shared_ptr<toolkit::Screen> screen_;
  Trace& trace_;
  std::int64_t constraints_ = 0;
};

}  // namespace wifi_profile::cli
