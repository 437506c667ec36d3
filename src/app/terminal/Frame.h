// The content of a terminal as a value: a grid of characters with styles.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/terminal/TextWidth.h"

namespace wifi_profile::terminal {

// The role of a text, which determines its colour and attributes. Colour is never the only mark of
// a role.
enum class Style {
  plain,
  dim,
  heading,
  title,     // the bar at the top
  titleOn,   // an enabled button in the bar
  titleOff,  // a disabled button in the bar
  cursor,    // where the next key acts
  chosen,    // the mark of the chosen network
  field,     // a text that is being edited
  bar,       // the completed part of a progress bar
  notice,    // a message in response to a key
  keyName,
  problem,
  look,
  good,
};

struct Extent {
  int columns = 0;
  int lines = 0;
  bool operator==(const Extent&) const = default;
};

struct Position {
  int line = 0;
  int column = 0;
  bool operator==(const Position&) const = default;
};

struct Cell {
  Glyph glyph{{U' '}, 1};  // width 0: the right half of the preceding wide character
  Style style = Style::plain;
  bool operator==(const Cell&) const = default;
};

// A part of a line with one style.
struct Span {
  int column = 0;
  std::string text;
  Style style = Style::plain;
  bool operator==(const Span&) const = default;
};

// Lines and columns count from 0. Text outside the grid is cut off.
class Frame {
 public:
  explicit Frame(Extent extent)
      : extent_(extent),
        cells_(static_cast<std::size_t>(extent.columns) * static_cast<std::size_t>(extent.lines)) {}

  const Extent& extent() const { return extent_; }
  const Cell& at(Position position) const { return cells_[indexOf(position)]; }

  // Writes over the existing content. Returns the number of columns written.
  int put(Position position, const Glyphs& glyphs, Style style);
  int put(Position position, std::string_view text, Style style) {
    return put(position, glyphsOf(text), style);
  }
  // Writes `columns` blanks.
  void fill(Position position, int columns, Style style);
  // Changes the style of existing content.
  void restyle(Position position, int columns, Style style);

  // The position of the terminal's cursor; empty: the cursor is hidden.
  std::optional<Position> caret;

  // Returns a line's text without trailing blanks.
  std::string textOfLine(int line) const;
  // Returns all lines, each with a line feed.
  std::string text() const;
  // Returns a line as spans, without trailing plain blanks.
  std::vector<Span> spansOfLine(int line) const;

 private:
  std::size_t indexOf(Position position) const {
    return static_cast<std::size_t>(position.line) * static_cast<std::size_t>(extent_.columns) +
           static_cast<std::size_t>(position.column);
  }
  bool holds(Position position) const {
    return position.line >= 0 && position.line < extent_.lines && position.column >= 0 &&
           position.column < extent_.columns;
  }
  void putCell(Position position, const Cell& cell);

  Extent extent_;
  std::vector<Cell> cells_;
};

}  // namespace wifi_profile::terminal
