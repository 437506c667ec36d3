#include <algorithm>

#include "app/terminal/PartFrames.h"

namespace wifi_profile::terminal {
namespace {

// Returns the number of visible hints.
int helpLines(Extent extent, std::size_t hints) {
  return std::min(static_cast<int>(hints), extent.lines - 2);
}

}  // namespace

void putHints(Frame& frame, const std::vector<KeyHint>& hints) {
  const int line = frame.extent().lines - 1;
  int column = 1;
  for (const KeyHint& hint : hints) {
    const Glyphs keys = glyphsOf(hint.keys);
    const Glyphs text = glyphsOf(hint.text);
    const int width = widthOf(keys) + 1 + widthOf(text);
    if (column + width > frame.extent().columns) continue;
    const int after = frame.put({line, column}, keys, Style::keyName);
    frame.put({line, column + after + 1}, text, Style::dim);
    column += width + 2;
  }
}

int lastHelpLine(Extent extent, std::size_t hints) {
  return std::max(0, static_cast<int>(hints) - helpLines(extent, hints));
}

void putHelp(Frame& frame, const Look& look, const std::vector<KeyHint>& hints, int first) {
  int keyColumns = 0;
  int textColumns = 0;
  for (const KeyHint& hint : hints) {
    keyColumns = std::max(keyColumns, widthOf(glyphsOf(hint.keys)));
    textColumns = std::max(textColumns, widthOf(glyphsOf(hint.text)));
  }
  const int shown = helpLines(look.extent, hints.size());
  const int columns = std::min(look.extent.columns, keyColumns + textColumns + 6);
  const int height = shown + 2;
  const int left = (look.extent.columns - columns) / 2;
  const int top = std::max(0, (look.extent.lines - height) / 2);
  first = std::clamp(first, 0, lastHelpLine(look.extent, hints.size()));

  frame.fill({top, left}, columns, Style::title);
  frame.put({top, left + 1},
            fitted(glyphsOf(app::screenText("KEYS")), columns - 2, look.marks.ellipsis),
            Style::title);
  for (int line = 0; line < shown; ++line) {
    const KeyHint& hint = hints[static_cast<std::size_t>(first) + static_cast<std::size_t>(line)];
    const int at = top + 1 + line;
    frame.fill({at, left}, columns, Style::plain);
    frame.put({at, left + 1}, glyphsOf(hint.keys), Style::keyName);
    const int column = left + 1 + keyColumns + 2;
    frame.put({at, column},
              fitted(glyphsOf(hint.text), left + columns - 1 - column, look.marks.ellipsis),
              Style::plain);
  }
  frame.fill({top + height - 1, left}, columns, Style::title);
  const int last = top + height - 1;
  if (first > 0) frame.put({top, left + columns - 2}, mark(look.marks.moreAbove), Style::title);
  if (first < lastHelpLine(look.extent, hints.size())) {
    frame.put({last, left + columns - 2}, mark(look.marks.moreBelow), Style::title);
  }
}

}  // namespace wifi_profile::terminal
