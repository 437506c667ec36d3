#include <algorithm>

#include "app/terminal/PartFrames.h"
#include "app/terminal/ReportLines.h"

namespace wifi_profile::terminal {

void putReport(Frame& frame, const Look& look, const report::Report& report,
               const ReportPlace& place) {
  const ReportLines lines = reportLines(report, look, place.open);
  const int height = bodyLines(look.extent);
  const auto count = static_cast<int>(lines.lines.size());
  const auto& item = lines.items[std::min(place.item, lines.items.size() - 1)];
  for (int row = 0; row < height && place.firstLine + row < count; ++row) {
    const int line = place.firstLine + row;
    for (const ReportText& part : lines.lines[static_cast<std::size_t>(line)]) {
      frame.put({1 + row, part.column}, part.text, part.style);
    }
    if (line < item.first || line >= item.end) continue;
    if (line == item.first) {
      frame.restyle({1 + row, 0}, look.extent.columns - 1, Style::cursor);
      frame.put({1 + row, 0}, mark(look.marks.cursor), Style::cursor);
    }
  }
  putMore(frame, look, 1, height, place.firstLine > 0, place.firstLine + height < count);
}

}  // namespace wifi_profile::terminal
