// What stands on a terminal, as a value: a grid of characters with styles.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "screens/terminal/TextWidth.h"

namespace wifi_profile {

// What a text is, from which its colour and the like follow. None is told by its colour alone.
enum class Style {
  plain,
  dim,
  heading,
  title,     // the bar at the top
  titleOn,   // a button in it that can be pressed
  titleOff,  // and one that cannot
  cursor,    // where the next key acts
  chosen,    // the mark of the chosen network
  field,     // a text that is being edited
  bar,       // the done part of a bar
  notice,    // an answer to a key
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
  Glyph glyph{{U' '}, 1};  // width 0: the right half of the wide character before it
  Style style = Style::plain;
  bool operator==(const Cell&) const = default;
};

// A part of a line in one style.
struct Span {
  int column = 0;
  std::string text;
  Style style = Style::plain;
  bool operator==(const Span&) const = default;
};

// Lines and columns count from 0. What lies outside is not put.
class Frame {
 public:
  explicit Frame(Extent extent)
      : extent_(extent),
        cells_(static_cast<std::size_t>(extent.columns) * static_cast<std::size_t>(extent.lines)) {}

  const Extent& extent() const { return extent_; }
  const Cell& at(Place place) const { return cells_[indexOf(place)]; }

  // Over what stands there. Returns the columns that it takes.
  int put(Place place, const Glyphs& glyphs, Style style);
  int put(Place place, std::string_view text, Style style) {
    return put(place, glyphsOf(text), style);
  }
  // Blanks over `columns`.
  void fill(Place place, int columns, Style style);
  // Another style for what stands there.
  void restyle(Place place, int columns, Style style);

  // Where the terminal's own cursor is; nothing: it does not show.
  std::optional<Place> caret;

  // A line's text, without blanks at its end.
  std::string textOfLine(int line) const;
  // All lines, each with its end.
  std::string text() const;
  // A line in parts, without plain blanks at its end.
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

}  // namespace wifi_profile
