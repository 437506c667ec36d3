#include "diagnostic/platform/toolkit/Label.h"

#include <algorithm>
#include <cmath>

namespace wifi_profile::toolkit {
namespace {

constexpr char32_t kFirstOfWideScripts = 0x1100;

// Returns the number of lines of a text that is broken at spaces. A word wider than a line has a
// line of its own.
int linesWithin(double width, std::string_view text, double fontSize) {
  const double blank = widthOfText(" ", fontSize);
  int lines = 1;
  double used = 0;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find(' ', start), text.size());
    const double word = widthOfText(text.substr(start, end - start), fontSize);
    if (used > 0 && used + blank + word > width) {
      ++lines;
      used = 0;
    }
    used += (used > 0 ? blank : 0) + word;
    start = end + 1;
  }
  return lines;
}

}  // namespace

double widthOfText(std::string_view text, double fontSize) {
  double width = 0;
  while (!text.empty()) {
    const CodePoint character = firstCodePoint(text);
    const bool wide = character.valid && character.value >= kFirstOfWideScripts;
    width += wide ? fontSize : fontSize / 2;
    text.remove_prefix(character.length);
  }
  return width;
}

double heightOfLine(double fontSize) { return std::ceil(fontSize * 1.2); }

std::optional<Size> Label::intrinsicContentSize() const {
  const std::string_view shown = text ? std::string_view(text->string()) : std::string_view();
  const double width = widthOfText(shown, systemFontSize);
  const bool breaks = preferredMaxLayoutWidth > 0 && width > preferredMaxLayoutWidth;
  if (!breaks) return Size{width, heightOfLine(systemFontSize)};
  const int lines =
      std::min(linesWithin(preferredMaxLayoutWidth, shown, systemFontSize), numberOfLines);
  return Size{preferredMaxLayoutWidth, lines * heightOfLine(systemFontSize)};
}

void Label::sizeToFit() { setFrame({frame().origin, *intrinsicContentSize()}); }

}  // namespace wifi_profile::toolkit
