// The lines of the list of networks, and the position of the cursor in it.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "diagnostic/platform/toolkit/TableView.h"

namespace wifi_profile::terminal {

inline constexpr std::int64_t kNoLine = -1;

// The lines of a table, counted from 0. A section has a header and rows; the last section has a
// note between them if its only row is the last one (another name). The cost does not depend on the
// number of rows.
struct ListLines {
  struct Section {
    std::int64_t header = kNoLine;
    std::int64_t note = kNoLine;
    std::int64_t firstRow = 0;
    std::int64_t rows = 0;
  };
  std::vector<Section> sections;
  std::int64_t count = 0;

  std::int64_t lineOf(toolkit::IndexPath row) const;
};
// `spaced` adds an empty line between sections.
ListLines linesOf(const toolkit::TableView& table, bool spaced);

// The visible part of the list. It is defined by the cursor's line on the screen, not by the top
// row, because rows may be inserted and deleted above.
struct ListPosition {
  toolkit::IndexPath cursor;
  std::int64_t screenLine = 0;  // the cursor's, from the list's top; out of range: not visible
  bool moved = false;  // the list was used; otherwise the cursor is on the first usable row
  bool operator==(const ListPosition&) const = default;
};

// Returns the first visible line.
std::int64_t firstLineShown(const ListLines& lines, const ListPosition& position, int height);

// The functions below return a position whose cursor is on a usable row, if there is one, and whose
// `screenLine` is the line where that row is visible.

// Call after any change of the rows or of `height`.
ListPosition withValidCursor(const toolkit::TableView& table, const ListLines& lines,
                             ListPosition position, int height);
// Moves the cursor by `rows` usable rows and makes it visible.
ListPosition movedBy(const toolkit::TableView& table, const ListLines& lines, ListPosition position,
                     int height, std::int64_t rows);
// Moves the cursor to `row` and makes it visible.
ListPosition movedTo(const toolkit::TableView& table, const ListLines& lines, ListPosition position,
                     int height, toolkit::IndexPath row);
// Makes `row` visible. The cursor stays on its row.
ListPosition scrolledTo(const toolkit::TableView& table, const ListLines& lines,
                        ListPosition position, int height, toolkit::IndexPath row);

// Returns the position after `changes` have taken effect: the cursor stays on its row, or on the
// row that takes its position.
ListPosition afterChanges(const toolkit::TableView& table,
                          const std::map<std::int64_t, toolkit::RowChanges>& changes,
                          ListPosition position);

// Returns the first usable row in the section of `from` whose title contains `text`, ignoring
// letter case. The search starts at `from`, inclusive, and wraps around at the ends.
enum class Direction { down, up };
std::optional<toolkit::IndexPath> rowWithText(const toolkit::TableView& table,
                                              const std::string& text, toolkit::IndexPath from,
                                              Direction direction);

}  // namespace wifi_profile::terminal
