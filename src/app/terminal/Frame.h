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

struct Place {
  int line = 0;
  int column = 0;
  bool operator==(const Place&) const = default;
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
  const Cell& at(Place place) const { return cells_[indexOf(place)]; }

  // Writes over the existing content. Returns the number of columns written.
  int put(Place place, const Glyphs& glyphs, Style style);
  int put(Place place, std::string_view text, Style style) {
    return put(place, glyphsOf(text), style);
  }
  // Writes `columns` blanks.
  void fill(Place place, int columns, Style style);
  // Changes the style of existing content.
  void restyle(Place place, int columns, Style style);

  // The position of the terminal's cursor; empty: the cursor is hidden.
  std::optional<Place> caret;

  // Returns a line's text without trailing blanks.
  std::string textOfLine(int line) const;
  // Returns all lines, each with a line feed.
  std::string text() const;
  // Returns a line as spans, without trailing plain blanks.
  std::vector<Span> spansOfLine(int line) const;

 private:
  std::size_t indexOf(Place place) const {
    return static_cast<std::size_t>(place.line) * static_cast<std::size_t>(extent_.columns) +
           static_cast<std::size_t>(place.column);
  }
  bool holds(Place place) const {
    return place.line >= 0 && place.line < extent_.lines && place.column >= 0 &&
           place.column < extent_.columns;
  }
  void putCell(Place place, const Cell& cell);

  Extent extent_;
  std::vector<Cell> cells_;
};

}  // namespace wifi_profile::terminal
