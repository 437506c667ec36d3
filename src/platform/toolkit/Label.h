// A text on the screen.
#pragma once

#include "platform/Text.h"
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

  TextRef text;                // nil: none
  double systemFontSize = 17;  // points
  Color textColor = kBlack;
  TextAlignment textAlignment = TextAlignment::left;
  LineBreakMode lineBreakMode = LineBreakMode::byWords;
  int numberOfLines = 1;  // at most; 1 or more
  BaselineAdjustment baselineAdjustment = BaselineAdjustment::alignBaselines;
  double preferredMaxLayoutWidth = 0;  // points; 0: none

  // The size of the text, on as many lines as the width and the number of lines allow.
  std::optional<Size> intrinsicContentSize() const override;

  // Makes the frame as large as the text.
  void sizeToFit();
};

// The toolkit's rule for the size of a text: a character is half as wide as the font is high, from
// U+1100 on (where the wide scripts begin) as wide; a line is 1.2 times as high, rounded up to
// whole points. It stands in for the metrics of a font, which only what draws knows.
double widthOfText(std::string_view text, double fontSize);
double heightOfLine(double fontSize);

}  // namespace wifi_profile::toolkit
