#include "app/terminal/Frame.h"

namespace wifi_profile::terminal {

// Replaces the other half of an overwritten wide character by a blank.
void Frame::putCell(Place place, const Cell& cell) {
  const auto blank = [this](Place half) {
    Cell& there = cells_[indexOf(half)];
    there = {.glyph = {{U' '}, 1}, .style = there.style};
  };
  const Place before{place.line, place.column - 1};
  const Place after{place.line, place.column + 1};
  if (at(place).glyph.width == 0 && cell.glyph.width != 0 && holds(before)) blank(before);
  if (at(place).glyph.width == 2 && holds(after)) blank(after);
  cells_[indexOf(place)] = cell;
}

int Frame::put(Place place, const Glyphs& glyphs, Style style) {
  const int start = place.column;
  for (const Glyph& glyph : glyphs) {
    const Place last{place.line, place.column + glyph.width - 1};
    if (holds(place) && holds(last)) {
      putCell(place, {.glyph = glyph, .style = style});
      if (glyph.width == 2) putCell(last, {.glyph = {{}, 0}, .style = style});
    }
    place.column += glyph.width;
  }
  return place.column - start;
}

void Frame::fill(Place place, int columns, Style style) {
  put(place, Glyphs(static_cast<std::size_t>(columns > 0 ? columns : 0), Glyph{{U' '}, 1}), style);
}

void Frame::restyle(Place place, int columns, Style style) {
  for (const int end = place.column + columns; place.column < end; ++place.column) {
    if (holds(place)) cells_[indexOf(place)].style = style;
  }
}

std::vector<Span> Frame::spansOfLine(int line) const {
  std::vector<Span> spans;
  for (Place place{line, 0}; place.column < extent_.columns; ++place.column) {
    const Cell& cell = at(place);
    if (spans.empty() || spans.back().style != cell.style) {
      spans.push_back({.column = place.column, .text = "", .style = cell.style});
    }
    if (cell.glyph.width > 0) spans.back().text += textOf({cell.glyph});
  }
  if (!spans.empty() && spans.back().style == Style::plain) {
    std::string& text = spans.back().text;
    text.erase(text.find_last_not_of(' ') + 1);
    if (text.empty()) spans.pop_back();
  }
  return spans;
}

std::string Frame::textOfLine(int line) const {
  std::string text;
  for (const Span& span : spansOfLine(line)) text += span.text;
  text.erase(text.find_last_not_of(' ') + 1);
  return text;
}

std::string Frame::text() const {
  std::string text;
  for (int line = 0; line < extent_.lines; ++line) text += textOfLine(line) + '\n';
  return text;
}

}  // namespace wifi_profile::terminal
