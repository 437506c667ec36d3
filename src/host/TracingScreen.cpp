#include "host/TracingScreen.h"

#include "platform/Number.h"
#include "platform/toolkit/ProgressView.h"

namespace wifi_profile {
namespace {

// The progress screen adds eight at every layout pass.
constexpr std::int64_t kConstraintsOfARound = 8;

}  // namespace

void TracingScreen::needsLayout(const std::shared_ptr<toolkit::ViewController>& controller) {
  screen_->needsLayout(controller);
}

void TracingScreen::constraintWasAdded(const toolkit::View& holder,
                                       const toolkit::LayoutConstraint& constraint) {
  const std::int64_t number = constraints_++ % kConstraintsOfARound + 1;
  trace_.event("ui.constraint", {{"number", Number::withInteger(number)}});
  screen_->constraintWasAdded(holder, constraint);
}

void TracingScreen::progressWasSet(const toolkit::ProgressView& progressView) {
  const double progress = progressView.progress();
  trace_.event("ui.progress", {{"value", Number::withDouble(progress)}});
  screen_->progressWasSet(progressView);
}

}  // namespace wifi_profile
