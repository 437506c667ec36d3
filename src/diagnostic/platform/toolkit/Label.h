// A text on the screen.
#pragma once

#include "diagnostic/platform/Text.h"
#include "diagnostic/platform/toolkit/View.h"

namespace wifi_profile::toolkit {

enum class TextAlignment { left = 0, center = 1 };
enum class LineBreakMode { byWords = 0 };
enum class BaselineAdjustment { alignBaselines = 0, none = 2 };

inline constexpr int kContentModeLeft = 7;

// Main thread only.
class Label final : public View {
 public:
  using View::View;

  TextRef text;                // nil: no text
  double systemFontSize = 17;  // points
  Color textColor = kBlack;
  TextAlignment textAlignment = TextAlignment::left;
  LineBreakMode lineBreakMode = LineBreakMode::byWords;
  int numberOfLines = 1;  // the maximum; 1 or more
  BaselineAdjustment baselineAdjustment = BaselineAdjustment::alignBaselines;
  double preferredMaxLayoutWidth = 0;  // points; 0: no limit

  // Returns the size of the text, on as many lines as the maximum width and the number of lines
  // allow.
  std::optional<Size> intrinsicContentSize() const override;

  // Sets the size of the frame to that of the text.
  void sizeToFit();
};

// The size of a text. A character is half as wide as the font size; from U+1100 on, where the wide
// scripts begin, it is as wide as the font size. A line is 1.2 times as high as the font size,
// rounded up to whole points. This rule replaces the metrics of a font, which only the drawing code
// knows.
double widthOfText(std::string_view text, double fontSize);
double heightOfLine(double fontSize);

}  // namespace wifi_profile::toolkit
