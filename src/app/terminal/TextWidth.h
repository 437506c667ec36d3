// Text as a terminal shows it: characters of one or two columns.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace wifi_profile::terminal {

// Most combining marks, such as accents, of one character; more are dropped.
inline constexpr std::size_t kMaxMarks = 4;

// A character and its combining marks.
struct Glyph {
  std::array<char32_t, 1 + kMaxMarks> points{};  // unused elements are 0
  int width = 1;                                 // columns: 1 or 2
  bool operator==(const Glyph&) const = default;
};
using Glyphs = std::vector<Glyph>;

// Returns the glyphs of a text. Their widths are those of the C library for `LC_CTYPE`, which must
// be a UTF-8 locale. The result has no characters that act on a terminal: invalid bytes are shown
// as by `safeText`, characters of unknown width as `\u{N}`. Joiners, variation selectors and skin
// tones are omitted, because terminals disagree on their effect on the width. A combining mark
// without a character is put on a blank.
Glyphs glyphsOf(std::string_view text);

int widthOf(const Glyphs& glyphs);
std::string textOf(const Glyphs& glyphs);

// Returns the glyphs in at most `columns`. A longer text is cut and ends with `ellipsis`, which is
// one column wide.
Glyphs fitted(Glyphs glyphs, int columns, char32_t ellipsis);

// Returns lines of at most `columns` columns (2 or more), broken between words and beside wide
// characters. A word that is longer than a line is broken anywhere. Returns at least one line.
std::vector<Glyphs> wrapped(const Glyphs& glyphs, int columns);

}  // namespace wifi_profile::terminal
