#include "app/terminal/KeyHandler.h"

#include <algorithm>

#include "app/terminal/AlertKeys.h"
#include "app/terminal/KeyHints.h"
#include "app/terminal/ListKeys.h"
#include "app/terminal/ReportLines.h"

namespace wifi_profile::terminal {
namespace {

constexpr std::size_t kContinue = 1;  // the initial focus of the question

void handleHelpKey(const Shown& shown, TerminalState& state, const Look& look, const Key& key) {
  const int last = lastHelpLine(look.extent, helpHints(shown, look).size());
  const int page = std::max(1, look.extent.lines - 2);
  int first = *state.help;
  if (key.name == Key::Name::down || key.is("j")) {
    ++first;
  } else if (key.name == Key::Name::up || key.is("k")) {
    --first;
  } else if (key.name == Key::Name::pageDown) {
    first += page;
  } else if (key.name == Key::Name::pageUp) {
    first -= page;
  } else {
    state.help.reset();
    return;
  }
  state.help = std::clamp(first, 0, last);
}

Effect handleQuestionKey(TerminalState& state, const Key& key) {
  std::size_t& focus = *state.question;
  switch (key.name) {
    case Key::Name::enter: {
      const bool stop = focus != kContinue;
      state.question.reset();
      state.stopping = stop;
      if (stop) return effect::Stop{};
      break;
    }
    case Key::Name::escape:
      state.question.reset();
      break;
    case Key::Name::tab:
    case Key::Name::backTab:
      focus = 1 - focus;
      break;
    case Key::Name::left:
    case Key::Name::up:
      focus = 0;
      break;
    case Key::Name::right:
    case Key::Name::down:
      focus = 1;
      break;
    default:
      break;
  }
  return {};
}

bool moveInReport(const ReportLines& lines, ReportPosition& position, int height, const Key& key) {
  if (key.name == Key::Name::down || key.is("j")) {
    position = movedBy(lines, std::move(position), height, 1);
  } else if (key.name == Key::Name::up || key.is("k")) {
    position = movedBy(lines, std::move(position), height, -1);
  } else if (key.name == Key::Name::pageDown) {
    position = pagedBy(lines, std::move(position), height, 1);
  } else if (key.name == Key::Name::pageUp) {
    position = pagedBy(lines, std::move(position), height, -1);
  } else if (key.name == Key::Name::home || key.name == Key::Name::end) {
    position.item = key.name == Key::Name::home ? 0 : lines.items.size() - 1;
    position = revealed(lines, std::move(position), height);
  } else {
    return false;
  }
  return true;
}

Effect handleReportKey(const Shown& shown, TerminalState& state, const Look& look, const Key& key) {
  ReportPosition& position = state.report;
  const ReportLines lines = reportLines(*shown.report, look, position.open);
  const int height = bodyLines(look.extent);
  if (key.is("q") || key.name == Key::Name::escape) return effect::Close{};
  if (key.is("?")) state.help = 0;
  if (moveInReport(lines, position, height, key) || key.name != Key::Name::enter) return {};
  if (position.item + 1 >= lines.items.size()) return effect::Close{};
  if (position.open.erase(position.item) == 0 && lines.items[position.item].opens) {
    position.open.insert(position.item);
  }
  const ReportLines after = reportLines(*shown.report, look, position.open);
  const auto& item = after.items[position.item];
  // An item that is higher than the screen is shown from its beginning.
  if (item.end - item.first > height) position.firstLine = item.first;
  position = revealed(after, std::move(position), height);
  return {};
}

Effect handleKeyInMode(const Shown& shown, TerminalState& state, const Look& look, const Key& key) {
  switch (modeOf(shown, state, look.extent)) {
    case Mode::help:
      handleHelpKey(shown, state, look, key);
      return {};
    case Mode::question:
      return handleQuestionKey(state, key);
    case Mode::dialog:
      return handleAlertKey(shown, state, key);
    case Mode::report:
      return handleReportKey(shown, state, look, key);
    case Mode::find:
      return handleFindKey(shown, state, look, key);
    case Mode::list:
      return handleListKey(shown, state, look, key);
    case Mode::progress:
    case Mode::starting:
      handleHelpOrQuit(state, key);
      return {};
    case Mode::stopping:
    case Mode::tooSmall:
      return {};
  }
  return {};
}

}  // namespace

bool handleHelpOrQuit(TerminalState& state, const Key& key) {
  if (key.is("?")) {
    state.help = 0;
  } else if (key.is("q")) {
    state.question = kContinue;
  } else {
    return false;
  }
  return true;
}

KeyResult handleKey(const Shown& shown, TerminalState state, const Look& look, const Key& key) {
  state.notice.clear();
  if (key.name == Key::Name::repaint) return {std::move(state), effect::Repaint{}};
  const Effect effect = handleKeyInMode(shown, state, look, key);
  return {std::move(state), effect};
}

void applyEffect(const Shown& shown, const Effect& effect) {
  const app::Content& content = shown.content;
  if (const auto* tap = std::get_if<effect::TapRow>(&effect)) content.table->tap(tap->path);
  if (std::holds_alternative<effect::TapNext>(effect)) content.item->rightBarButtonItem()->tap();
  if (std::holds_alternative<effect::Refresh>(effect)) content.table->refreshControl()->pull();
  if (std::holds_alternative<effect::AskForPower>(effect)) shown.emptyList.askForPower();
  if (const auto* type = std::get_if<effect::Type>(&effect)) shown.alert->type(type->text);
  if (const auto* tap = std::get_if<effect::TapAction>(&effect)) {
    shown.alert->tap(*shown.alert->actions()[tap->action]);
  }
}

}  // namespace wifi_profile::terminal
