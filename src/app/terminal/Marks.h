// The symbols that the terminal screen draws.
#pragma once

#include <array>
#include <string_view>

#include "app/terminal/Frame.h"
#include "report/Report.h"

namespace wifi_profile::terminal {

struct Marks {
  char32_t cursor;
  char32_t chosen;
  char32_t moreAbove;
  char32_t moreBelow;
  char32_t ellipsis;
  std::u32string_view spinner;  // one symbol per step
  std::u32string_view bar;      // from the narrowest part of a column to a full column
  char32_t barRest;
  std::array<char32_t, report::kReportMarks> findings;  // by ReportMark
  std::string_view advice;
  std::u32string_view box;  // horizontal, vertical, then the corners: top left, top right, bottom
                            // left, bottom right
  std::string_view arrows;  // names of the up and down keys
};

inline constexpr Marks kUnicodeMarks{.cursor = U'›',
                                     .chosen = U'✓',
                                     .moreAbove = U'↑',
                                     .moreBelow = U'↓',
                                     .ellipsis = U'…',
                                     .spinner = U"⠋⠙⠹⠸⠼⠴⠦⠧⠇⠏",
                                     .bar = U"▏▎▍▌▋▊▉█",
                                     .barRest = U'░',
                                     .findings = {U'✗', U'!', U'·', U'✓', U'?'},
                                     .advice = "→ ",
                                     .box = U"─│┌┐└┘",
                                     .arrows = "↑↓"};

// For terminals with a small character set.
inline constexpr Marks kAsciiMarks{.cursor = U'>',
                                   .chosen = U'*',
                                   .moreAbove = U'^',
                                   .moreBelow = U'v',
                                   .ellipsis = U'~',
                                   .spinner = U"|/-\\",
                                   .bar = U"#",
                                   .barRest = U'-',
                                   .findings = {U'x', U'!', U'.', U'+', U'?'},
                                   .advice = "-> ",
                                   .box = U"-|++++",
                                   .arrows = "j/k"};

inline Glyphs mark(char32_t point) { return {Glyph{{point}, 1}}; }

// The size and the symbols of a frame.
struct Look {
  Extent extent;
  Marks marks = kUnicodeMarks;
};

// Marks at the right edge of lines `from` to `from + lines` that there is more above or below.
inline void putScrollMarks(Frame& frame, const Look& look, int from, int lines, bool above,
                           bool below) {
  const int column = look.extent.columns - 1;
  if (above) frame.put({from, column}, mark(look.marks.moreAbove), Style::keyName);
  if (below) frame.put({from + lines - 1, column}, mark(look.marks.moreBelow), Style::keyName);
}

}  // namespace wifi_profile::terminal
