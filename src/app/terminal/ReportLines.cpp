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
  int room(int column) const { return std::max(2, look_.extent.columns - 1 - column); }
  void blank() {
    if (isRoomy(look_.extent)) written_.lines.emplace_back();
  }
  void startItem() { written_.items.push_back({.first = lineCount()}); }
  void endItem(bool opens) {
    written_.items.back().end = lineCount();
    written_.items.back().opens = opens;
  }

  void writeText(int column, const Glyphs& text, Style style) {
    for (Glyphs& line : wrapped(text, room(column))) {
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

ReportPlace revealed(const ReportLines& lines, ReportPlace place, int height) {
  place.item = std::min(place.item, lines.items.size() - 1);
  const auto& item = lines.items[place.item];
  const int lead = leadOf(lines, place.item);
  if (item.end > place.firstLine + height) place.firstLine = item.end - height;
  if (item.first < place.firstLine) place.firstLine = item.first;
  const int above = std::max(lead, item.end - height);
  if (above < place.firstLine && item.end - item.first < height) {
    place.firstLine = std::min(item.first, std::max(above, 0));
  }
  place.firstLine = std::clamp(place.firstLine, 0, lastFirstLine(lines, height));
  return place;
}

ReportPlace movedBy(const ReportLines& lines, ReportPlace place, int height, int items) {
  const auto& item = lines.items[place.item];
  if (items > 0 && item.end > place.firstLine + height) {
    ++place.firstLine;
    return place;
  }
  const bool fills = item.end - item.first > height;
  if (items < 0 && (fills ? leadOf(lines, place.item) : item.first) < place.firstLine) {
    --place.firstLine;
    return place;
  }
  const int last = static_cast<int>(lines.items.size()) - 1;
  const int target = std::clamp(static_cast<int>(place.item) + items, 0, last);
  if (target == static_cast<int>(place.item)) return place;
  place.item = static_cast<std::size_t>(target);
  const auto& next = lines.items[place.item];
  const bool tall = next.end - next.first > height;
  place = revealed(lines, place, height);
  // An item longer than the screen is entered at its beginning or, upwards, at its end.
  if (tall) place.firstLine = items > 0 ? next.first : next.end - height;
  return place;
}

ReportPlace pagedBy(const ReportLines& lines, ReportPlace place, int height, int pages) {
  const int before = place.firstLine;
  place.firstLine =
      std::clamp(before + pages * std::max(1, height - 1), 0, lastFirstLine(lines, height));
  if (place.firstLine == before) {
    place.item = pages > 0 ? lines.items.size() - 1 : 0;
    return place;
  }
  // Select the first item that begins in the visible lines, or else the item that fills the screen.
  for (std::size_t i = 0; i < lines.items.size(); ++i) {
    if (lines.items[i].end <= place.firstLine) continue;
    place.item = i;
    if (lines.items[i].first >= place.firstLine) break;
    if (lines.items[i].end > place.firstLine + height) break;
  }
  return place;
}

}  // namespace wifi_profile::terminal
