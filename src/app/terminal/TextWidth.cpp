#include "app/terminal/TextWidth.h"

#include <algorithm>
#include <cstdio>
#include <cwchar>

#include "diagnostic/platform/Text.h"
#include "runtime/SafeText.h"

namespace wifi_profile::terminal {
namespace {

bool isWithin(char32_t point, char32_t first, char32_t last) {
  return point >= first && point <= last;
}

// Returns true for joiners, variation selectors and skin tones.
bool isLeftOut(char32_t point) {
  return point == 0x034F || isWithin(point, 0x180B, 0x180F) || isWithin(point, 0x200C, 0x200D) ||
         isWithin(point, 0xFE00, 0xFE0F) || isWithin(point, 0x1F3FB, 0x1F3FF);
}

void append(Glyphs& glyphs, char32_t point, int width) {
  glyphs.push_back({});
  glyphs.back().points[0] = point;
  glyphs.back().width = width;
}

void appendMark(Glyphs& glyphs, char32_t mark) {
  if (glyphs.empty()) append(glyphs, U' ', 1);
  auto& points = glyphs.back().points;
  const auto free = std::find(points.begin(), points.end(), U'\0');
  if (free != points.end()) *free = mark;
}

void appendCode(Glyphs& glyphs, char32_t point) {
  std::array<char, 16> code{};
  std::snprintf(code.data(), code.size(), "\\u{%X}", static_cast<unsigned>(point));
  for (const char c : std::string_view(code.data())) {
    append(glyphs, static_cast<char32_t>(static_cast<unsigned char>(c)), 1);
  }
}

void appendUtf8(std::string& text, char32_t point) {
  const auto byte = [&text](char32_t value) { text += static_cast<char>(value); };
  const auto next = [&](int shift) { byte(0x80 | ((point >> shift) & 0x3F)); };
  if (point < 0x80) {
    byte(point);
  } else if (point < 0x800) {
    byte(0xC0 | (point >> 6));
    next(0);
  } else if (point < 0x10000) {
    byte(0xE0 | (point >> 12));
    next(6);
    next(0);
  } else {
    byte(0xF0 | (point >> 18));
    next(12);
    next(6);
    next(0);
  }
}

bool isBlank(const Glyph& glyph) { return glyph.points[0] == U' '; }

}  // namespace

Glyphs glyphsOf(std::string_view text) {
  const std::string safe = runtime::safeText(text);
  Glyphs glyphs;
  glyphs.reserve(safe.size());
  for (std::string_view rest = safe; !rest.empty();) {
    const CodePoint point = firstCodePoint(rest);
    rest.remove_prefix(point.length);
    if (isLeftOut(point.value)) continue;
    const int width = wcwidth(static_cast<wchar_t>(point.value));
    if (width < 0) {
      appendCode(glyphs, point.value);
    } else if (width == 0) {
      appendMark(glyphs, point.value);
    } else {
      append(glyphs, point.value, std::min(width, 2));
    }
  }
  return glyphs;
}

int widthOf(const Glyphs& glyphs) {
  int width = 0;
  for (const Glyph& glyph : glyphs) width += glyph.width;
  return width;
}

std::string textOf(const Glyphs& glyphs) {
  std::string text;
  for (const Glyph& glyph : glyphs) {
    for (const char32_t point : glyph.points) {
      if (point != 0) appendUtf8(text, point);
    }
  }
  return text;
}

Glyphs fitted(Glyphs glyphs, int columns, char32_t ellipsis) {
  if (columns <= 0) return {};
  if (widthOf(glyphs) <= columns) return glyphs;
  int width = 0;
  auto end = glyphs.begin();
  while (width + end->width <= columns - 1) width += (end++)->width;
  glyphs.erase(end, glyphs.end());
  append(glyphs, ellipsis, 1);
  return glyphs;
}

std::vector<Glyphs> wrapped(const Glyphs& glyphs, int columns) {
  std::vector<Glyphs> lines;
  auto start = glyphs.begin();
  while (start != glyphs.end()) {
    int width = 0;
    auto end = start;        // end of the part that fits
    auto lastBreak = start;  // where the line may end
    for (; end != glyphs.end() && width + end->width <= columns; ++end) {
      if (end != start && (end->width == 2 || (end - 1)->width == 2)) lastBreak = end;
      if (isBlank(*end)) lastBreak = end;
      width += end->width;
    }
    const bool mayEndHere = end == glyphs.end() || isBlank(*end) || end->width == 2;
    if (!mayEndHere && lastBreak != start) end = lastBreak;
    if (end == start) ++end;  // one glyph wider than the line
    auto next = end;
    while (next != glyphs.end() && isBlank(*next)) ++next;
    while (end != start && isBlank(*(end - 1))) --end;
    lines.emplace_back(start, end);
    start = next;
  }
  if (lines.empty()) lines.emplace_back();
  return lines;
}

}  // namespace wifi_profile::terminal
