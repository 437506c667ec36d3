// A report in lines, with the items that a cursor goes over.
#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <vector>

#include "screens/Report.h"
#include "screens/terminal/TerminalState.h"

namespace wifi_profile {

// A piece of a line.
struct ReportText {
  int column = 0;
  Glyphs text;
  Style style = Style::plain;
};

// Items are the findings in their order and, last, what closes the report.
struct ReportLines {
  struct Item {
    int first = 0;       // its lines
    int end = 0;         // the line after them
    bool opens = false;  // there is more to show of it
  };
  std::vector<std::vector<ReportText>> lines;
  std::vector<Item> items;
};

ReportLines reportLines(const Report& report, const Look& look, const std::set<std::size_t>& open);

// The cursor goes by so many items; within one that is longer than `height`, by lines.
ReportPlace movedBy(const ReportLines& lines, ReportPlace place, int height, int items);
// The lines go by a page, and the cursor with them.
ReportPlace pagedBy(const ReportLines& lines, ReportPlace place, int height, int pages);
// The item with the cursor comes into sight, as much of it as there is room for.
ReportPlace revealed(const ReportLines& lines, ReportPlace place, int height);

}  // namespace wifi_profile
