// A progress bar.
#pragma once

#include "diagnostic/platform/toolkit/View.h"

namespace wifi_profile::toolkit {

enum class ProgressViewStyle { standard = 0 };

// Main thread only. The initial progress is 0.
class ProgressView final : public View {
 public:
  explicit ProgressView(ProgressViewStyle style) : style_(style) {}

  ProgressViewStyle style() const { return style_; }

  // Returns the fraction as it was set, 0 or more. A value above 1 shows as a full bar.
  float progress() const { return progress_; }
  // Reports the change to the screen.
  void setProgress(float progress);

  // The height is the thickness of the bar. There is no intrinsic width.
  std::optional<Size> intrinsicContentSize() const override { return Size{-1, kThickness}; }

 private:
  static constexpr double kThickness = 2;  // points
  ProgressViewStyle style_;
  float progress_ = 0;
};

}  // namespace wifi_profile::toolkit
