#include "app/terminal/TerminalState.h"

#include <utility>

#include "app/terminal/ReportLines.h"

namespace wifi_profile::terminal {

bool hasList(const app::Content& content) {
  return content.table && content.table->numberOfSections() > 0;
}

Mode modeOf(const Shown& shown, const TerminalState& state, Extent extent) {
  if (extent.columns < kMinimumExtent.columns || extent.lines < kMinimumExtent.lines)
    return Mode::tooSmall;
  if (state.help) return Mode::help;
  if (shown.report) return Mode::report;
  if (state.stopping) return Mode::stopping;
  if (state.question) return Mode::question;
  if (shown.alert) return Mode::dialog;
  if (hasList(shown.content)) return state.find ? Mode::find : Mode::list;
  return shown.content.progress ? Mode::progress : Mode::starting;
}

std::shared_ptr<toolkit::Label> headerLabel(const toolkit::TableView& table, std::int64_t section) {
  const auto header = table.headerViewOfSection(section);
  return header ? app::subviewOf<toolkit::Label>(*header) : nullptr;
}

std::shared_ptr<toolkit::Spinner> headerSpinner(const toolkit::TableView& table,
                                                std::int64_t section) {
  const auto header = table.headerViewOfSection(section);
  return header ? app::subviewOf<toolkit::Spinner>(*header) : nullptr;
}

bool isScanning(const toolkit::TableView& table) {
  for (std::int64_t section = 0; section < table.numberOfSections(); ++section) {
    const auto spinner = headerSpinner(table, section);
    if (spinner && spinner->isAnimating()) return true;
  }
  return false;
}

bool canAskForPower(const Shown& shown) {
  return shown.emptyList.askForPower && !isScanning(*shown.content.table);
}

TerminalState withValidCursor(const Shown& shown, TerminalState state, const Look& look) {
  if (!hasList(shown.content)) return state;
  const toolkit::TableView& table = *shown.content.table;
  const ListLines lines = linesOf(table, hasSpacing(look.extent));
  const int height = bodyLines(look.extent);
  state.list = withValidCursor(table, lines, state.list, height);
  if (state.find) state.find->origin = withValidCursor(table, lines, state.find->origin, height);
  return state;
}

TerminalState afterEvent(const Shown& shown, TerminalState state, const Look& look,
                         const toolkit::TableEvent& event) {
  if (!hasList(shown.content)) return state;
  const toolkit::TableView& table = *shown.content.table;
  if (const auto* changed = std::get_if<toolkit::table_event::RowsChanged>(&event)) {
    state.list = afterChanges(table, changed->changes, state.list);
    if (state.find) state.find->origin = afterChanges(table, changed->changes, state.find->origin);
    return withValidCursor(shown, std::move(state), look);
  }
  if (const auto* scrolled = std::get_if<toolkit::table_event::Scrolled>(&event)) {
    const ListLines lines = linesOf(table, hasSpacing(look.extent));
    state.list = scrolledTo(table, lines, state.list, bodyLines(look.extent), scrolled->row);
  }
  return state;
}

TerminalState afterResize(const Shown& shown, TerminalState state, const Look& look) {
  const int height = bodyLines(look.extent);
  if (hasList(shown.content)) {
    const toolkit::TableView& table = *shown.content.table;
    const ListLines lines = linesOf(table, hasSpacing(look.extent));
    state.list = scrolledTo(table, lines, state.list, height, state.list.cursor);
  }
  if (shown.report) {
    const ReportLines lines = reportLines(*shown.report, look, state.report.open);
    state.report = revealed(lines, std::move(state.report), height);
  }
  return state;
}

}  // namespace wifi_profile::terminal
