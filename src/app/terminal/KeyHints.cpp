#include "app/terminal/TerminalFrame.h"

namespace wifi_profile::terminal {
namespace {

using Hints = std::vector<KeyHint>;

KeyHint hint(std::string keys, std::string_view text) {
  return {std::move(keys), app::screenText(text)};
}

KeyHint move(const Look& look) { return hint(look.marks.arrows.data(), "KEY_MOVE"); }
KeyHint help() { return hint("?", "KEY_HELP"); }
KeyHint quit() { return hint("q", "KEY_QUIT"); }
KeyHint pages() { return hint("PgUp PgDn", "KEY_PAGE"); }
KeyHint ends() { return hint("Home End", "KEY_ENDS"); }

// Returns true if there is a button and it is enabled.
bool nextWorks(const app::Content& content) {
  return content.item && content.item->rightBarButtonItem() &&
         content.item->rightBarButtonItem()->isEnabled();
}

bool refreshWorks(const app::Content& content) {
  const auto& control = content.table->refreshControl();
  return control && !control->isRefreshing();
}

Hints listHints(const Shown& shown, const Look& look) {
  Hints hints;
  if (shown.content.table->allowsSelection()) hints.push_back(hint("Enter", "KEY_CHOOSE"));
  if (nextWorks(shown.content)) hints.push_back(hint("n", "NEXT"));
  if (canAskForPower(shown)) hints.push_back(hint("p", "TURN_ON"));
  hints.insert(hints.end(), {help(), quit(), hint("/", "KEY_FIND")});
  if (refreshWorks(shown.content)) hints.push_back(hint("r", "KEY_REFRESH"));
  hints.insert(hints.end(), {move(look), pages(), ends()});
  return hints;
}

Hints dialogHints(const Shown& shown) {
  Hints hints{hint("Enter", "KEY_CHOOSE"), hint("Tab", "KEY_SWITCH")};
  for (const auto& action : shown.alert->actions()) {
    if (action->style() == toolkit::ActionStyle::cancel) hints.push_back({"Esc", action->title()});
  }
  // A text field takes these keys as characters.
  if (shown.alert->textFields().empty()) hints.insert(hints.end(), {help(), quit()});
  return hints;
}

}  // namespace

std::vector<KeyHint> keyHints(Mode mode, const Shown& shown, const Look& look) {
  switch (mode) {
    case Mode::list:
      return listHints(shown, look);
    case Mode::question:
      return {hint("Enter", "KEY_CHOOSE"), hint("Tab", "KEY_SWITCH"), hint("Esc", "GO_ON")};
    case Mode::dialog:
      return dialogHints(shown);
    case Mode::report:
      return {
          hint("Enter", "KEY_EXPLAIN"), hint("q", "CLOSE"), help(), move(look), pages(), ends()};
    case Mode::progress:
    case Mode::starting:
      return {help(), quit()};
    case Mode::help:
      return {hint("Esc", "CLOSE")};
    case Mode::find:
    case Mode::stopping:
    case Mode::tooSmall:
      return {};
  }
  return {};
}

std::vector<KeyHint> helpHints(const Shown& shown, const Look& look) {
  const std::string arrows = look.marks.arrows == kUnicodeMarks.arrows ? "↑ ↓ j k" : "Up Down j k";
  const Hints moving{hint(arrows, "KEY_MOVE"), pages(), ends()};
  Hints hints;
  if (shown.report) {
    hints = moving;
    hints.insert(hints.end(), {hint("Enter", "KEY_EXPLAIN"), hint("Esc q", "CLOSE")});
  } else if (shown.alert) {
    hints = {hint("Tab", "KEY_SWITCH"), hint("Enter", "KEY_CHOOSE"), quit()};
  } else if (hasList(shown.content)) {
    hints = moving;
    hints.insert(hints.end(), {hint("Enter", "KEY_CHOOSE"), hint("n", "NEXT"),
                               hint("r", "KEY_REFRESH"), hint("/", "FIND_NAME")});
    if (canAskForPower(shown)) hints.push_back(hint("p", "TURN_ON"));
    hints.push_back(quit());
  } else {
    hints = {quit()};
  }
  hints.push_back(help());
  return hints;
}

}  // namespace wifi_profile::terminal
