// Wraps text.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "diagnostic/platform/Text.h"

namespace wifi_profile::report {

// The width that wrapped text keeps to where possible, in columns.
inline constexpr std::size_t kTextWidth = 98;

// Joins `pieces` with `separator`, without breaking any of them, on lines of at most `width`
// columns where possible. The first line is assumed to start at column `indent`; the following
// lines are indented by that many blanks.
inline std::string joinedWithin(std::size_t width, std::size_t indent,
                                const std::vector<std::string>& pieces,
                                std::string_view separator) {
  std::string lines;
  std::size_t column = indent;
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    const std::string piece =
        pieces[i] + (i + 1 < pieces.size() ? std::string(separator) : std::string());
    const std::size_t columns = characterCount(piece);
    // The blank at the end of a separator may exceed the width.
    if (column > indent && column + columns > width + (piece.ends_with(' ') ? 1 : 0)) {
      while (lines.ends_with(' ')) lines.pop_back();
      lines += '\n' + std::string(indent, ' ');
      column = indent;
    }
    lines += piece;
    column += columns;
  }
  return lines;
}

// Wraps a text at its blanks.
inline std::string wrapped(std::size_t width, std::size_t indent, std::string_view text) {
  std::vector<std::string> words;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = std::min(text.find(' ', start), text.size());
    if (end > start) words.emplace_back(text.substr(start, end - start));
    start = end + 1;
  }
  return joinedWithin(width, indent, words, " ");
}

}  // namespace wifi_profile::report
