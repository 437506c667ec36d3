// Where things stand in the list of networks, in lines, and where a person is in it.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <vector>

#include "platform/toolkit/TableView.h"

namespace wifi_profile {

inline constexpr std::int64_t kNoLine = -1;

// The lines of a table, from 0: for each section its header, a note where the last section lists
// nothing but its last row, and its rows. Takes no longer for more rows.
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
// With an empty line between sections, or without.
ListLines linesOf(const toolkit::TableView& table, bool spaced);

// What a person sees of the list. The line on the screen counts more than the row at the top: rows
// may come and go above.
struct ListPlace {
  toolkit::IndexPath cursor;
  std::int64_t screenLine = 0;  // of the cursor, from the top of the list; outside: out of sight
  bool moved = false;           // the person has been at it; else the cursor is at the first row
  bool operator==(const ListPlace&) const = default;
};

// The first line that shows.
std::int64_t firstLineShown(const ListLines& lines, const ListPlace& place, int height);

// The following return a place whose cursor is on a row that can be used, if there is one, and
// whose `screenLine` is where it shows.

// After any change of the rows, or of `height`.
ListPlace settled(const toolkit::TableView& table, const ListLines& lines, ListPlace place,
                  int height);
// The cursor goes by so many usable rows, and comes into sight.
ListPlace movedBy(const toolkit::TableView& table, const ListLines& lines, ListPlace place,
                  int height, std::int64_t rows);
// The cursor goes there, and comes into sight.
ListPlace movedTo(const toolkit::TableView& table, const ListLines& lines, ListPlace place,
                  int height, toolkit::IndexPath row);
// The row comes into sight; the cursor stays on its row.
ListPlace scrolledTo(const toolkit::TableView& table, const ListLines& lines, ListPlace place,
                     int height, toolkit::IndexPath row);

// The place after changes that have taken effect: on the same row, or where it was.
ListPlace following(const toolkit::TableView& table,
                    const std::map<std::int64_t, toolkit::RowChanges>& changes, ListPlace place);

// The next row, from `from` on or up, whose title contains the text, letters of either case being
// equal. Goes around at the ends.
enum class Direction { down, up };
std::optional<toolkit::IndexPath> rowWithText(const toolkit::TableView& table,
                                              const std::string& text, toolkit::IndexPath from,
                                              Direction direction);

}  // namespace wifi_profile
