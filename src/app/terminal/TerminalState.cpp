#include "app/terminal/TerminalState.h"

namespace wifi_profile::terminal {

bool hasList(const app::Content& content) {
  return content.table && content.table->numberOfSections() > 0;
}

Mode modeOf(const Shown& shown, const TerminalState& state, Extent extent) {
  if (extent.columns < kSmallest.columns || extent.lines < kSmallest.lines) return Mode::tooSmall;
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

bool isTurning(const toolkit::TableView& table) {
  for (std::int64_t section = 0; section < table.numberOfSections(); ++section) {
    const auto spinner = headerSpinner(table, section);
    if (spinner && spinner->isAnimating()) return true;
  }
  return false;
}

bool canAskForPower(const Shown& shown) {
  return shown.emptyList.askForPower && !isTurning(*shown.content.table);
}

}  // namespace wifi_profile::terminal
