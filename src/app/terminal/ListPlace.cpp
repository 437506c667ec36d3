#include "app/terminal/ListPlace.h"

#include <algorithm>

namespace wifi_profile::terminal {

using toolkit::IndexPath;
using toolkit::TableView;

namespace {

std::int64_t rowsOf(const TableView& table, std::int64_t section) {
  return static_cast<std::int64_t>(table.rowsOfSection(section).size());
}

bool isUsable(const TableView& table, IndexPath path) {
  return table.rowsOfSection(path.section)[static_cast<std::size_t>(path.row)]
      .userInteractionEnabled;
}

// Returns the row after or before `path`; empty at the ends. `path` may be one before the first row
// of a section.
std::optional<IndexPath> next(const TableView& table, IndexPath path, Direction direction) {
  if (direction == Direction::down) {
    for (++path.row; path.row >= rowsOf(table, path.section); path.row = 0) {
      if (++path.section >= table.numberOfSections()) return std::nullopt;
    }
  } else {
    for (--path.row; path.row < 0; path.row = rowsOf(table, path.section) - 1) {
      if (--path.section < 0) return std::nullopt;
    }
  }
  return path;
}

std::optional<IndexPath> nextUsable(const TableView& table, IndexPath path, Direction direction) {
  auto found = next(table, path, direction);
  while (found && !isUsable(table, *found)) found = next(table, *found, direction);
  return found;
}

std::optional<IndexPath> firstUsable(const TableView& table) {
  return nextUsable(table, {0, -1}, Direction::down);
}

IndexPath withinRows(const TableView& table, IndexPath path) {
  path.section = std::clamp<std::int64_t>(path.section, 0, table.numberOfSections() - 1);
  path.row = std::min(std::max<std::int64_t>(path.row, 0), rowsOf(table, path.section) - 1);
  return path;
}

// Returns the usable row at `path`, or else the nearest one: first below, then above.
IndexPath usableAt(const TableView& table, IndexPath path) {
  path = withinRows(table, path);
  if (path.row >= 0 && isUsable(table, path)) return path;
  if (const auto below = nextUsable(table, path, Direction::down)) return *below;
  return nextUsable(table, path, Direction::up).value_or(path);
}

void show(const ListLines& lines, ListPlace& place, int height, std::int64_t line,
          std::int64_t linesAbove) {
  std::int64_t first = firstLineShown(lines, place, height);
  if (line >= first + height) first = line - height + 1;
  if (line - linesAbove < first) first = line - linesAbove;
  place.screenLine = lines.lineOf(place.cursor) - first;
}

// Returns the number of lines directly above a row that the cursor cannot reach: headers, and rows
// that are not usable.
std::int64_t linesLedBy(const TableView& table, const ListLines& lines, IndexPath row, int height) {
  const auto before = nextUsable(table, row, Direction::up);
  const std::int64_t above = before ? lines.lineOf(*before) + 1 : 0;
  return std::min<std::int64_t>(lines.lineOf(row) - above, height - 1);
}

}  // namespace

std::int64_t ListLines::lineOf(IndexPath row) const {
  if (sections.empty()) return 0;
  return sections[static_cast<std::size_t>(row.section)].firstRow + row.row;
}

ListLines linesOf(const TableView& table, bool spaced) {
  ListLines lines;
  for (std::int64_t section = 0; section < table.numberOfSections(); ++section) {
    ListLines::Section part{.rows = rowsOf(table, section)};
    const bool last = section == table.numberOfSections() - 1;
    if (part.rows > 0 || last) {
      if (spaced && lines.count > 0) ++lines.count;
      if (table.headerViewOfSection(section)) part.header = lines.count++;
      if (last && part.rows <= 1) part.note = lines.count++;
    }
    part.firstRow = lines.count;
    lines.count += part.rows;
    lines.sections.push_back(part);
  }
  return lines;
}

std::int64_t firstLineShown(const ListLines& lines, const ListPlace& place, int height) {
  const std::int64_t last = std::max<std::int64_t>(0, lines.count - height);
  return std::clamp<std::int64_t>(lines.lineOf(place.cursor) - place.screenLine, 0, last);
}

ListPlace settled(const TableView& table, const ListLines& lines, ListPlace place, int height) {
  if (table.numberOfSections() == 0) return {};
  if (!place.moved) {
    place.cursor = firstUsable(table).value_or(IndexPath{0, 0});
    place.screenLine = lines.lineOf(place.cursor);
  }
  place.cursor = usableAt(table, place.cursor);
  place.screenLine = lines.lineOf(place.cursor) - firstLineShown(lines, place, height);
  return place;
}

ListPlace movedBy(const TableView& table, const ListLines& lines, ListPlace place, int height,
                  std::int64_t rows) {
  const auto direction = rows < 0 ? Direction::up : Direction::down;
  IndexPath row = place.cursor;
  for (std::int64_t left = std::abs(rows); left > 0; --left) {
    const auto further = nextUsable(table, row, direction);
    if (!further) break;
    row = *further;
  }
  return movedTo(table, lines, place, height, row);
}

ListPlace movedTo(const TableView& table, const ListLines& lines, ListPlace place, int height,
                  IndexPath row) {
  if (table.numberOfSections() == 0) return place;
  const std::int64_t first = firstLineShown(lines, place, height);
  row = usableAt(table, row);
  place.moved = place.moved || row != place.cursor;
  place.cursor = row;
  place.screenLine = lines.lineOf(row) - first;
  show(lines, place, height, lines.lineOf(place.cursor),
       linesLedBy(table, lines, place.cursor, height));
  return place;
}

ListPlace scrolledTo(const TableView& table, const ListLines& lines, ListPlace place, int height,
                     IndexPath row) {
  if (row.section < 0 || row.row < 0 || row.row >= rowsOf(table, row.section)) return place;
  show(lines, place, height, lines.lineOf(row), linesLedBy(table, lines, row, height));
  return place;
}

ListPlace following(const TableView& table,
                    const std::map<std::int64_t, toolkit::RowChanges>& changes, ListPlace place) {
  const auto found = changes.find(place.cursor.section);
  if (found == changes.end()) return place;
  const toolkit::RowChanges& change = found->second;
  const auto before = rowsOf(table, place.cursor.section) +
                      static_cast<std::int64_t>(change.deleted.size()) -
                      static_cast<std::int64_t>(change.inserted.size());
  const auto rows = toolkit::rowsAfter(change, before);
  // The row itself or, if it was deleted, the next remaining row.
  const auto at = std::find_if(rows.begin(), rows.end(),
                               [&](std::int64_t old) { return old >= place.cursor.row; });
  place.cursor.row = at - rows.begin();
  return place;
}

}  // namespace wifi_profile::terminal
