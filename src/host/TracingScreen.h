// A screen in front of another, which writes what happens into the trace.
#pragma once

#include <cstdint>
#include <memory>

#include "platform/Trace.h"
#include "platform/toolkit/Screen.h"

namespace wifi_profile {

// Main thread only. `trace` must outlive it.
class TracingScreen final : public toolkit::Screen {
 public:
  TracingScreen(std::shared_ptr<toolkit::Screen> screen, Trace& trace)
      : screen_(std::move(screen)), trace_(trace) {}

  void needsLayout(const std::shared_ptr<toolkit::ViewController>& controller) override;
  void constraintWasAdded(const toolkit::View& holder,
                          const toolkit::LayoutConstraint& constraint) override;
  void progressWasSet(const toolkit::ProgressView& progressView) override;

 private:
  std::shared_ptr<toolkit::Screen> screen_;
  Trace& trace_;
  std::int64_t constraints_ = 0;
};

}  // namespace wifi_profile
