// Texts as a terminal shows them: characters that each take one or two columns.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace wifi_profile {

// Marks such as accents that one character may carry; more are dropped.
inline constexpr std::size_t kMostMarks = 4;

// A character and the marks on it.
struct Glyph {
  std::array<char32_t, 1 + kMostMarks> points{};  // unused ones are 0
  int width = 1;                                  // columns: 1 or 2
  bool operator==(const Glyph&) const = default;
};
using Glyphs = std::vector<Glyph>;

// Widths are those of the C library for the locale that `LC_CTYPE` was set to, which must be one of
// UTF-8. The result holds nothing that a terminal would act on: what is not valid shows as by
// `safeText`, what the C library knows no width of as `\u{N}`. Joiners, variation selectors and
// skin tones are left out, because terminals disagree on what they do to the width. A mark without
// a character stands on a blank.
Glyphs glyphsOf(std::string_view text);

int widthOf(const Glyphs& glyphs);
std::string textOf(const Glyphs& glyphs);

// At most `columns` wide: what is too long ends with `ellipsis`, one column wide.
Glyphs fitted(Glyphs glyphs, int columns, char32_t ellipsis);

// Lines of at most `columns`, 2 or more, broken between words and beside wide characters; words
// that are too long are broken anywhere. At least one line.
std::vector<Glyphs> wrapped(const Glyphs& glyphs, int columns);

}  // namespace wifi_profile
