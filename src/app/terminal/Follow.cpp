#include "app/terminal/Follow.h"

#include <utility>

#include "app/terminal/ReportLines.h"

namespace wifi_profile::terminal {

TerminalState settled(const Shown& shown, TerminalState state, const Look& look) {
  if (!hasList(shown.content)) return state;
  const toolkit::TableView& table = *shown.content.table;
  const ListLines lines = linesOf(table, isRoomy(look.extent));
  const int height = bodyLines(look.extent);
  state.list = settled(table, lines, state.list, height);
  if (state.find) state.find->origin = settled(table, lines, state.find->origin, height);
  return state;
}

TerminalState following(const Shown& shown, TerminalState state, const Look& look,
                        const toolkit::TableEvent& event) {
  if (!hasList(shown.content)) return state;
  const toolkit::TableView& table = *shown.content.table;
  if (const auto* changed = std::get_if<toolkit::table_event::RowsChanged>(&event)) {
    state.list = following(table, changed->changes, state.list);
    if (state.find) state.find->origin = following(table, changed->changes, state.find->origin);
    return settled(shown, std::move(state), look);
  }
  if (const auto* scrolled = std::get_if<toolkit::table_event::Scrolled>(&event)) {
    const ListLines lines = linesOf(table, isRoomy(look.extent));
    state.list = scrolledTo(table, lines, state.list, bodyLines(look.extent), scrolled->row);
  }
  return state;
}

TerminalState resized(const Shown& shown, TerminalState state, const Look& look) {
  const int height = bodyLines(look.extent);
  if (hasList(shown.content)) {
    const toolkit::TableView& table = *shown.content.table;
    const ListLines lines = linesOf(table, isRoomy(look.extent));
    state.list = scrolledTo(table, lines, state.list, height, state.list.cursor);
  }
  if (shown.report) {
    const ReportLines lines = reportLines(*shown.report, look, state.report.open);
    state.report = revealed(lines, std::move(state.report), height);
  }
  return state;
}

}  // namespace wifi_profile::terminal
