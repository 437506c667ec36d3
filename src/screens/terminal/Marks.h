// The signs that the terminal screen draws with, besides texts.
#pragma once

#include <array>
#include <string_view>

#include "screens/Report.h"
#include "screens/terminal/Frame.h"

namespace wifi_profile {

struct Marks {
  char32_t cursor;
  char32_t chosen;
  char32_t moreAbove;
  char32_t moreBelow;
  char32_t ellipsis;
  std::u32string_view spinner;  // one after the other
  std::u32string_view bar;      // from the least part of a column to the whole
  char32_t barRest;
  std::array<char32_t, kReportMarks> findings;  // by ReportMark
  std::string_view advice;
  std::u32string_view box;  // horizontal, vertical, then the corners in reading order
  std::string_view arrows;  // the names of the keys up and down
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

// For terminals whose set of characters is small.
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

// What a frame is made for.
struct Look {
  Extent extent;
  Marks marks = kUnicodeMarks;
};

}  // namespace wifi_profile
