#include "app/terminal/ReportLines.h"

#include <algorithm>

namespace wifi_profile::terminal {
namespace {

constexpr int kSectionColumn = 1;
constexpr int kSignColumn = 2;
constexpr int kSentenceColumn = 4;
constexpr int kDetailColumn = 6;

Style styleOf(report::ReportMark mark) {
  switch (mark) {
    case report::ReportMark::problem:
      return Style::problem;
    case report::ReportMark::look:
      return Style::look;
    case report::ReportMark::good:
      return Style::good;
    default:
      return Style::dim;
  }
}

std::vector<std::string> linesOfText(const std::string& text) {
  std::vector<std::string> lines;
  for (std::size_t start = 0; start <= text.size();) {
    const std::size_t end = std::min(text.find('\n', start), text.size());
    lines.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  while (!lines.empty() && lines.back().empty()) lines.pop_back();
  return lines;
}

class Writer {
 public:
  Writer(const Look& look, const std::set<std::size_t>& open) : look_(look), open_(open) {}

  ReportLines write(const report::Report& report) {
    writeText(kSectionColumn, glyphsOf(report.summary), Style::heading);
    if (report.earlyEnd) writeFinding(*report.earlyEnd);
    for (const report::ReportSection& section : report.sections) writeSection(section);
    blank();
    startItem();
    writeText(kSignColumn, glyphsOf("[ " + app::screenText("CLOSE") + " ]"), Style::plain);
    endItem(false);
    return std::move(written_);
  }

 private:
  int lineCount() const { return static_cast<int>(written_.lines.size()); }
  // The last column is reserved for the scroll marks.
  int availableColumns(int column) const { return std::max(2, look_.extent.columns - 1 - column); }
  void blank() {
    if (hasSpacing(look_.extent)) written_.lines.emplace_back();
  }
  void startItem() { written_.items.push_back({.first = lineCount()}); }
  void endItem(bool opens) {
    written_.items.back().end = lineCount();
    written_.items.back().opens = opens;
  }

  void writeText(int column, const Glyphs& text, Style style) {
    for (Glyphs& line : wrapped(text, availableColumns(column))) {
      written_.lines.push_back({{column, std::move(line), style}});
    }
  }

  void writeSection(const report::ReportSection& section) {
    blank();
    writeText(kSectionColumn, glyphsOf(section.title), Style::heading);
    writeCounts(section);
    if (!section.note.empty()) writeText(kSignColumn, glyphsOf(section.note), Style::dim);
    for (const report::ReportFinding& finding : section.findings) writeFinding(finding);
  }

  // Writes the counts after the title, as far as they fit.
  void writeCounts(const report::ReportSection& section) {
    auto& line = written_.lines.back();
    int column = kSectionColumn + widthOf(line.back().text) + 2;
    for (std::size_t i = 0; i < report::kReportMarks; ++i) {
      if (section.counts[i] == 0) continue;
      Glyphs count = mark(look_.marks.findings[i]);
      const Glyphs number = glyphsOf(' ' + std::to_string(section.counts[i]));
      count.insert(count.end(), number.begin(), number.end());
      const int width = widthOf(count);
      if (column + width > look_.extent.columns - 1) return;
      line.push_back({column, std::move(count), styleOf(static_cast<report::ReportMark>(i))});
      column += width + 2;
    }
  }

  void writeFinding(const report::ReportFinding& finding) {
    const std::size_t item = written_.items.size();
    startItem();
    const auto line = static_cast<std::size_t>(lineCount());
    writeText(kSentenceColumn, glyphsOf(finding.sentence), Style::plain);
    const auto sign = look_.marks.findings[static_cast<std::size_t>(finding.mark)];
    auto& first = written_.lines[line];
    first.insert(first.begin(), {kSignColumn, mark(sign), styleOf(finding.mark)});
    if (open_.contains(item)) writeDetails(finding);
    endItem(!finding.values.empty() || !finding.advice.empty() || !finding.explanation.empty());
  }

  void writeDetails(const report::ReportFinding& finding) {
    const int column = look_.extent.columns < 40 ? kSentenceColumn : kDetailColumn;
    for (const std::string& value : finding.values) {
      writeText(column, glyphsOf(value), Style::dim);
    }
    if (!finding.advice.empty()) {
      writeText(column, glyphsOf(std::string(look_.marks.advice) + finding.advice), Style::notice);
    }
    for (const std::string& line : linesOfText(finding.explanation)) {
      writeText(column, glyphsOf(line), Style::plain);
    }
  }

  const Look& look_;
  const std::set<std::size_t>& open_;
  ReportLines written_;
};

// Returns the first of the lines above an item that are shown together with it, such as a section's
// title.
int leadOf(const ReportLines& lines, std::size_t item) {
  return item == 0 ? 0 : lines.items[item - 1].end;
}

int lastFirstLine(const ReportLines& lines, int height) {
  return std::max(0, static_cast<int>(lines.lines.size()) - height);
}

}  // namespace

ReportLines reportLines(const report::Report& report, const Look& look,
                        const std::set<std::size_t>& open) {
  return Writer(look, open).write(report);
}

ReportPosition revealed(const ReportLines& lines, ReportPosition position, int height) {
  position.item = std::min(position.item, lines.items.size() - 1);
  const auto& item = lines.items[position.item];
  const int lead = leadOf(lines, position.item);
  if (item.end > position.firstLine + height) position.firstLine = item.end - height;
  if (item.first < position.firstLine) position.firstLine = item.first;
  const int above = std::max(lead, item.end - height);
  if (above < position.firstLine && item.end - item.first < height) {
    position.firstLine = std::min(item.first, std::max(above, 0));
  }
  position.firstLine = std::clamp(position.firstLine, 0, lastFirstLine(lines, height));
  return position;
}

ReportPosition movedBy(const ReportLines& lines, ReportPosition position, int height, int items) {
  const auto& item = lines.items[position.item];
  if (items > 0 && item.end > position.firstLine + height) {
    ++position.firstLine;
    return position;
  }
  const bool fills = item.end - item.first > height;
  if (items < 0 && (fills ? leadOf(lines, position.item) : item.first) < position.firstLine) {
    --position.firstLine;
    return position;
  }
  const int last = static_cast<int>(lines.items.size()) - 1;
  const int target = std::clamp(static_cast<int>(position.item) + items, 0, last);
  if (target == static_cast<int>(position.item)) return position;
  position.item = static_cast<std::size_t>(target);
  const auto& next = lines.items[position.item];
  const bool tall = next.end - next.first > height;
  position = revealed(lines, position, height);
  // An item longer than the screen is entered at its beginning or, upwards, at its end.
  if (tall) position.firstLine = items > 0 ? next.first : next.end - height;
  return position;
}

ReportPosition pagedBy(const ReportLines& lines, ReportPosition position, int height, int pages) {
  const int before = position.firstLine;
  position.firstLine =
      std::clamp(before + pages * std::max(1, height - 1), 0, lastFirstLine(lines, height));
  if (position.firstLine == before) {
    position.item = pages > 0 ? lines.items.size() - 1 : 0;
    return position;
  }
  // Select the first item that begins in the visible lines, or else the item that fills the screen.
  for (std::size_t i = 0; i < lines.items.size(); ++i) {
    if (lines.items[i].end <= position.firstLine) continue;
    position.item = i;
    if (lines.items[i].first >= position.firstLine) break;
    if (lines.items[i].end > position.firstLine + height) break;
  }
  return position;
}

void putReport(Frame& frame, const Look& look, const report::Report& report,
               const ReportPosition& position) {
  const ReportLines lines = reportLines(report, look, position.open);
  const int height = bodyLines(look.extent);
  const auto count = static_cast<int>(lines.lines.size());
  const auto& item = lines.items[std::min(position.item, lines.items.size() - 1)];
  for (int row = 0; row < height && position.firstLine + row < count; ++row) {
    const int line = position.firstLine + row;
    for (const ReportText& part : lines.lines[static_cast<std::size_t>(line)]) {
      frame.put({1 + row, part.column}, part.text, part.style);
    }
    if (line < item.first || line >= item.end) continue;
    if (line == item.first) {
      frame.restyle({1 + row, 0}, look.extent.columns - 1, Style::cursor);
      frame.put({1 + row, 0}, mark(look.marks.cursor), Style::cursor);
    }
  }
  putScrollMarks(frame, look, 1, height, position.firstLine > 0,
                 position.firstLine + height < count);
}

}  // namespace wifi_profile::terminal
