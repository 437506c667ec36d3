#include "app/terminal/Press.h"

#include <algorithm>

#include "app/terminal/PressParts.h"
#include "app/terminal/TerminalFrame.h"

namespace wifi_profile::terminal {
namespace {

constexpr std::size_t kGoOn = 1;  // the initial focus of the question

void pressInHelp(const Shown& shown, TerminalState& state, const Look& look, const Key& key) {
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

Effect press(const Shown& shown, TerminalState& state, const Look& look, const Key& key) {
  switch (modeOf(shown, state, look.extent)) {
    case Mode::help:
      pressInHelp(shown, state, look, key);
      return {};
    case Mode::question:
      return pressedInQuestion(state, key);
    case Mode::dialog:
      return pressedInAlert(shown, state, key);
    case Mode::report:
      return pressedInReport(shown, state, look, key);
    case Mode::find:
      return pressedInFind(shown, state, look, key);
    case Mode::list:
      return pressedInList(shown, state, look, key);
    case Mode::progress:
    case Mode::starting:
      openedHelpOrQuestion(state, key);
      return {};
    case Mode::stopping:
    case Mode::tooSmall:
      return {};
  }
  return {};
}

}  // namespace

bool openedHelpOrQuestion(TerminalState& state, const Key& key) {
  if (key.is("?")) {
    state.help = 0;
  } else if (key.is("q")) {
    state.question = kGoOn;
  } else {
    return false;
  }
  return true;
}

Effect pressedInQuestion(TerminalState& state, const Key& key) {
  std::size_t& focus = *state.question;
  switch (key.name) {
    case Key::Name::enter: {
      const bool stop = focus != kGoOn;
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

Pressed pressed(const Shown& shown, TerminalState state, const Look& look, const Key& key) {
  state.notice.clear();
  if (key.name == Key::Name::repaint) return {std::move(state), effect::Repaint{}};
  const Effect effect = press(shown, state, look, key);
  return {std::move(state), effect};
}

void perform(const Shown& shown, const Effect& effect) {
  const app::Content& content = shown.content;
  if (const auto* tap = std::get_if<effect::TapRow>(&effect)) content.table->tap(tap->path);
  if (std::holds_alternative<effect::TapNext>(effect)) content.item->rightBarButtonItem()->tap();
  if (std::holds_alternative<effect::Pull>(effect)) content.table->refreshControl()->pull();
  if (std::holds_alternative<effect::AskForPower>(effect)) shown.emptyList.askForPower();
  if (const auto* type = std::get_if<effect::Type>(&effect)) shown.alert->type(type->text);
  if (const auto* tap = std::get_if<effect::TapAction>(&effect)) {
    shown.alert->tap(*shown.alert->actions()[tap->action]);
  }
}

}  // namespace wifi_profile::terminal
