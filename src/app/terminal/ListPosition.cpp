#include "app/terminal/ListPosition.h"

#include <algorithm>
#include <cwctype>

#include "diagnostic/platform/Text.h"

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

void show(const ListLines& lines, ListPosition& position, int height, std::int64_t line,
          std::int64_t linesAbove) {
  std::int64_t first = firstLineShown(lines, position, height);
  if (line >= first + height) first = line - height + 1;
  if (line - linesAbove < first) first = line - linesAbove;
  position.screenLine = lines.lineOf(position.cursor) - first;
}

// Returns the number of lines directly above a row that the cursor cannot reach: headers, and rows
// that are not usable.
std::int64_t unreachableLinesAbove(const TableView& table, const ListLines& lines, IndexPath row,
                                   int height) {
  const auto before = nextUsable(table, row, Direction::up);
  const std::int64_t above = before ? lines.lineOf(*before) + 1 : 0;
  return std::min<std::int64_t>(lines.lineOf(row) - above, height - 1);
}

// Returns the code points in lower case.
std::u32string folded(std::string_view text) {
  std::u32string points;
  for (; !text.empty(); text.remove_prefix(firstCodePoint(text).length)) {
    points +=
        static_cast<char32_t>(std::towlower(static_cast<std::wint_t>(firstCodePoint(text).value)));
  }
  return points;
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

std::int64_t firstLineShown(const ListLines& lines, const ListPosition& position, int height) {
  const std::int64_t last = std::max<std::int64_t>(0, lines.count - height);
  return std::clamp<std::int64_t>(lines.lineOf(position.cursor) - position.screenLine, 0, last);
}

ListPosition withValidCursor(const TableView& table, const ListLines& lines, ListPosition position,
                             int height) {
  if (table.numberOfSections() == 0) return {};
  if (!position.moved) {
    position.cursor = firstUsable(table).value_or(IndexPath{0, 0});
    position.screenLine = lines.lineOf(position.cursor);
  }
  position.cursor = usableAt(table, position.cursor);
  position.screenLine = lines.lineOf(position.cursor) - firstLineShown(lines, position, height);
  return position;
}

ListPosition movedBy(const TableView& table, const ListLines& lines, ListPosition position,
                     int height, std::int64_t rows) {
  const auto direction = rows < 0 ? Direction::up : Direction::down;
  IndexPath row = position.cursor;
  for (std::int64_t left = std::abs(rows); left > 0; --left) {
    const auto further = nextUsable(table, row, direction);
    if (!further) break;
    row = *further;
  }
  return movedTo(table, lines, position, height, row);
}

ListPosition movedTo(const TableView& table, const ListLines& lines, ListPosition position,
                     int height, IndexPath row) {
  if (table.numberOfSections() == 0) return position;
  const std::int64_t first = firstLineShown(lines, position, height);
  row = usableAt(table, row);
  position.moved = position.moved || row != position.cursor;
  position.cursor = row;
  position.screenLine = lines.lineOf(row) - first;
  show(lines, position, height, lines.lineOf(position.cursor),
       unreachableLinesAbove(table, lines, position.cursor, height));
  return position;
}

ListPosition scrolledTo(const TableView& table, const ListLines& lines, ListPosition position,
                        int height, IndexPath row) {
  if (row.section < 0 || row.row < 0 || row.row >= rowsOf(table, row.section)) return position;
  show(lines, position, height, lines.lineOf(row),
       unreachableLinesAbove(table, lines, row, height));
  return position;
}

ListPosition afterChanges(const TableView& table,
                          const std::map<std::int64_t, toolkit::RowChanges>& changes,
                          ListPosition position) {
  const auto found = changes.find(position.cursor.section);
  if (found == changes.end()) return position;
  const toolkit::RowChanges& change = found->second;
  const auto before = rowsOf(table, position.cursor.section) +
                      static_cast<std::int64_t>(change.deleted.size()) -
                      static_cast<std::int64_t>(change.inserted.size());
  const auto rows = toolkit::rowsAfter(change, before);
  // The row itself or, if it was deleted, the next remaining row.
  const auto at = std::find_if(rows.begin(), rows.end(),
                               [&](std::int64_t old) { return old >= position.cursor.row; });
  position.cursor.row = at - rows.begin();
  return position;
}

std::optional<toolkit::IndexPath> rowWithText(const toolkit::TableView& table,
                                              const std::string& text, toolkit::IndexPath from,
                                              Direction direction) {
  const auto& rows = table.rowsOfSection(from.section);
  const auto count = static_cast<std::int64_t>(rows.size());
  const std::u32string wanted = folded(text);
  const std::int64_t step = direction == Direction::down ? 1 : count - 1;
  for (std::int64_t tried = 0; tried < count; ++tried) {
    const std::int64_t row = (from.row + tried * step) % count;
    const auto& there = rows[static_cast<std::size_t>(row)];
    if (!there.title || !there.userInteractionEnabled) continue;
    if (folded(there.title->string()).find(wanted) != std::u32string::npos) {
      return toolkit::IndexPath{from.section, row};
    }
  }
  return std::nullopt;
}

}  // namespace wifi_profile::terminal
