#include "app/terminal/KeyHints.h"

#include <algorithm>

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

// Returns the number of visible hints.
int helpLines(Extent extent, std::size_t hints) {
  return std::min(static_cast<int>(hints), extent.lines - 2);
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

void putHints(Frame& frame, const std::vector<KeyHint>& hints) {
  const int line = frame.extent().lines - 1;
  int column = 1;
  for (const KeyHint& hint : hints) {
    const Glyphs keys = glyphsOf(hint.keys);
    const Glyphs text = glyphsOf(hint.text);
    const int width = widthOf(keys) + 1 + widthOf(text);
    if (column + width > frame.extent().columns) continue;
    const int after = frame.put({line, column}, keys, Style::keyName);
    frame.put({line, column + after + 1}, text, Style::dim);
    column += width + 2;
  }
}

int lastHelpLine(Extent extent, std::size_t hints) {
  return std::max(0, static_cast<int>(hints) - helpLines(extent, hints));
}

void putHelp(Frame& frame, const Look& look, const std::vector<KeyHint>& hints, int first) {
  int keyColumns = 0;
  int textColumns = 0;
  for (const KeyHint& hint : hints) {
    keyColumns = std::max(keyColumns, widthOf(glyphsOf(hint.keys)));
    textColumns = std::max(textColumns, widthOf(glyphsOf(hint.text)));
  }
  const int shown = helpLines(look.extent, hints.size());
  const int columns = std::min(look.extent.columns, keyColumns + textColumns + 6);
  const int height = shown + 2;
  const int left = (look.extent.columns - columns) / 2;
  const int top = std::max(0, (look.extent.lines - height) / 2);
  first = std::clamp(first, 0, lastHelpLine(look.extent, hints.size()));

  frame.fill({top, left}, columns, Style::title);
  frame.put({top, left + 1},
            fitted(glyphsOf(app::screenText("KEYS")), columns - 2, look.marks.ellipsis),
            Style::title);
  for (int line = 0; line < shown; ++line) {
    const KeyHint& hint = hints[static_cast<std::size_t>(first) + static_cast<std::size_t>(line)];
    const int at = top + 1 + line;
    frame.fill({at, left}, columns, Style::plain);
    frame.put({at, left + 1}, glyphsOf(hint.keys), Style::keyName);
    const int column = left + 1 + keyColumns + 2;
    frame.put({at, column},
              fitted(glyphsOf(hint.text), left + columns - 1 - column, look.marks.ellipsis),
              Style::plain);
  }
  frame.fill({top + height - 1, left}, columns, Style::title);
  const int last = top + height - 1;
  if (first > 0) frame.put({top, left + columns - 2}, mark(look.marks.moreAbove), Style::title);
  if (first < lastHelpLine(look.extent, hints.size())) {
    frame.put({last, left + columns - 2}, mark(look.marks.moreBelow), Style::title);
  }
}

}  // namespace wifi_profile::terminal
