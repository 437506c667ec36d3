#include "app/terminal/Frame.h"

namespace wifi_profile::terminal {

// Replaces the other half of an overwritten wide character by a blank.
void Frame::putCell(Position position, const Cell& cell) {
  const auto blank = [this](Position half) {
    Cell& there = cells_[indexOf(half)];
    there = {.glyph = {{U' '}, 1}, .style = there.style};
  };
  const Position before{position.line, position.column - 1};
  const Position after{position.line, position.column + 1};
  if (at(position).glyph.width == 0 && cell.glyph.width != 0 && holds(before)) blank(before);
  if (at(position).glyph.width == 2 && holds(after)) blank(after);
  cells_[indexOf(position)] = cell;
}

int Frame::put(Position position, const Glyphs& glyphs, Style style) {
  const int start = position.column;
  for (const Glyph& glyph : glyphs) {
    const Position last{position.line, position.column + glyph.width - 1};
    if (holds(position) && holds(last)) {
      putCell(position, {.glyph = glyph, .style = style});
      if (glyph.width == 2) putCell(last, {.glyph = {{}, 0}, .style = style});
    }
    position.column += glyph.width;
  }
  return position.column - start;
}

void Frame::fill(Position position, int columns, Style style) {
  put(position, Glyphs(static_cast<std::size_t>(columns > 0 ? columns : 0), Glyph{{U' '}, 1}),
      style);
}

void Frame::restyle(Position position, int columns, Style style) {
  for (const int end = position.column + columns; position.column < end; ++position.column) {
    if (holds(position)) cells_[indexOf(position)].style = style;
  }
}

std::vector<Span> Frame::spansOfLine(int line) const {
  std::vector<Span> spans;
  for (Position position{line, 0}; position.column < extent_.columns; ++position.column) {
    const Cell& cell = at(position);
    if (spans.empty() || spans.back().style != cell.style) {
      spans.push_back({.column = position.column, .text = "", .style = cell.style});
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
