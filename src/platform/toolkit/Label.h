// A text on the screen.
#pragma once

#include <string>

#include "platform/toolkit/View.h"

namespace wifi_profile::toolkit {

enum class TextAlignment { left = 0, center = 1 };
enum class LineBreakMode { byWords = 0 };
enum class BaselineAdjustment { alignBaselines = 0, none = 2 };

inline constexpr int kContentModeLeft = 7;

// Main thread only.
class Label final : public View {
 public:
  using View::View;

  std::string text;
  double systemFontSize = 17;  // points
  Color textColor = kBlack;
  TextAlignment textAlignment = TextAlignment::left;
  LineBreakMode lineBreakMode = LineBreakMode::byWords;
  int numberOfLines = 1;  // at most
  BaselineAdjustment baselineAdjustment = BaselineAdjustment::alignBaselines;
  double preferredMaxLayoutWidth = 0;  // points; 0: none
};

}  // namespace wifi_profile::toolkit
