#include "app/terminal/ProgressFrame.h"

#include <algorithm>
#include <cmath>

namespace wifi_profile::terminal {
namespace {

constexpr int kMaxBarColumns = 60;

struct Line {
  enum class Kind { text, bar, blank };
  Kind kind = Kind::blank;
  Glyphs text;
  Style style = Style::plain;
};

void putCentered(Frame& frame, int line, const Glyphs& text, Style style) {
  frame.put({line, (frame.extent().columns - widthOf(text)) / 2}, text, style);
}

std::vector<Line> messageLines(const Look& look, const toolkit::Label& label, int columns) {
  std::vector<Line> lines;
  if (!label.text) return lines;
  auto texts = wrapped(glyphsOf(label.text->string()), columns);
  const auto most = static_cast<std::size_t>(std::max(1, label.numberOfLines));
  if (texts.size() > most) {
    texts.resize(most);
    texts.back().push_back({{look.marks.ellipsis}, 1});
    texts.back() = fitted(std::move(texts.back()), columns, look.marks.ellipsis);
  }
  for (Glyphs& text : texts) lines.push_back({Line::Kind::text, std::move(text), Style::heading});
  return lines;
}

std::vector<Line> testLines(const Look& look, const app::TestsDone& tests, int columns) {
  if (tests.total <= 0) return {};
  std::vector<std::string> texts{app::screenText(
      "TESTS_DONE",
      {{"{done}", std::to_string(tests.done)}, {"{total}", std::to_string(tests.total)}})};
  if (!tests.running.empty()) {
    texts.push_back(app::screenText("TEST_RUNNING", {{"{test}", tests.running}}));
  }
  std::vector<Line> lines;
  lines.reserve(texts.size());
  for (const std::string& text : texts) {
    lines.push_back({Line::Kind::text, fitted(glyphsOf(text), columns, look.marks.ellipsis),
                     lines.empty() ? Style::plain : Style::dim});
  }
  return lines;
}

void putBar(Frame& frame, const Look& look, int line, double fraction, int columns) {
  fraction = std::isfinite(fraction) ? std::clamp(fraction, 0.0, 1.0) : 0;
  const auto percent = std::to_string(static_cast<int>(std::floor(fraction * 100 + 1e-4))) + " %";
  constexpr int kPercentColumns = 6;  // " 100 %"
  const int width = columns - kPercentColumns;
  const int start = (frame.extent().columns - columns) / 2;
  const auto& parts = look.marks.bar;
  const auto steps = static_cast<int>(parts.size());
  const int done = static_cast<int>(std::floor(fraction * width * steps + 1e-4));
  for (int column = 0; column < width; ++column) {
    const int part = std::clamp(done - column * steps, 0, steps);
    const Position position{line, start + column};
    if (part == 0) {
      frame.put(position, mark(look.marks.barRest), Style::dim);
    } else {
      frame.put(position, mark(parts[static_cast<std::size_t>(part - 1)]), Style::bar);
    }
  }
  frame.put({line, start + columns - static_cast<int>(percent.size())}, percent, Style::plain);
}

// Removes the least important lines until the rest fits: empty lines, then all but the first line
// of the message, then the number of tests done.
void shorten(std::vector<Line>& lines, std::size_t messageCount, std::size_t most) {
  if (lines.size() <= most) return;
  std::erase_if(lines, [](const Line& line) { return line.kind == Line::Kind::blank; });
  while (lines.size() > most && messageCount > 1) {
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(--messageCount));
  }
  if (lines.size() > most) lines.resize(most);
}

}  // namespace

void putProgress(Frame& frame, const Look& look, const app::Content& content,
                 const app::TestsDone& tests) {
  const int columns = std::min(look.extent.columns - 2, kMaxBarColumns);
  const int height = bodyLines(look.extent);
  std::vector<Line> lines;
  if (content.label) lines = messageLines(look, *content.label, columns);
  const std::size_t messageCount = lines.size();
  lines.push_back({});
  lines.push_back({.kind = Line::Kind::bar, .text = {}});
  lines.push_back({});
  for (Line& line : testLines(look, tests, columns)) lines.push_back(std::move(line));
  shorten(lines, messageCount, static_cast<std::size_t>(height));
  int at = 1 + (height - static_cast<int>(lines.size())) / 2;
  for (const Line& line : lines) {
    if (line.kind == Line::Kind::text) putCentered(frame, at, line.text, line.style);
    if (line.kind == Line::Kind::bar) {
      putBar(frame, look, at, static_cast<double>(content.progress->progress()), columns);
    }
    ++at;
  }
}

void putMessage(Frame& frame, const std::string& text) {
  const auto lines = wrapped(glyphsOf(text), std::max(2, frame.extent().columns - 2));
  int at = std::max(0, (frame.extent().lines - static_cast<int>(lines.size())) / 2);
  for (const Glyphs& line : lines) putCentered(frame, at++, line, Style::heading);
}

}  // namespace wifi_profile::terminal
