// A report as lines, the items that a cursor moves over, and how they are drawn.
#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "app/terminal/TerminalState.h"
#include "report/Report.h"

namespace wifi_profile::terminal {

// A piece of a line.
struct ReportText {
  int column = 0;
  Glyphs text;
  Style style = Style::plain;
};

// The items are the findings in their order and, last, the line that closes the report.
struct ReportLines {
  struct Item {
    int first = 0;       // first line
    int end = 0;         // the line after its last line
    bool opens = false;  // has details that can be opened
  };
  std::vector<std::vector<ReportText>> lines;
  std::vector<Item> items;
};

ReportLines reportLines(const report::Report& report, const Look& look,
                        const std::set<std::size_t>& open);

// Moves the cursor by `items` items, or by single lines within an item that is longer than
// `height`.
ReportPosition movedBy(const ReportLines& lines, ReportPosition position, int height, int items);
// Scrolls by `pages` pages, and moves the cursor along.
ReportPosition pagedBy(const ReportLines& lines, ReportPosition position, int height, int pages);
// Makes as much of the cursor's item visible as fits.
ReportPosition revealed(const ReportLines& lines, ReportPosition position, int height);

// Draws the report.
void putReport(Frame& frame, const Look& look, const report::Report& report,
               const ReportPosition& position);

}  // namespace wifi_profile::terminal
