// A progress bar.
#pragma once

#include "platform/toolkit/View.h"

namespace wifi_profile::toolkit {

enum class ProgressViewStyle { standard = 0 };

// Main thread only. Shows the empty bar until told otherwise.
class ProgressView final : public View {
 public:
  explicit ProgressView(ProgressViewStyle style) : style_(style) {}

  ProgressViewStyle style() const { return style_; }

  // The fraction as it was set: from 0 on; a value above 1 shows as the full bar.
  float progress() const { return progress_; }
  // Told to the screen.
  void setProgress(float progress);

  // As high as the bar is thick; of any width.
  std::optional<Size> intrinsicContentSize() const override { return Size{-1, kThickness}; }

 private:
  static constexpr double kThickness = 2;  // points
  ProgressViewStyle style_;
  float progress_ = 0;
};

}  // namespace wifi_profile::toolkit
