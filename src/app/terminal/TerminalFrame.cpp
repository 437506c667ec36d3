#include "app/terminal/TerminalFrame.h"

#include <algorithm>

#include "app/terminal/DialogFrame.h"
#include "app/terminal/KeyHints.h"
#include "app/terminal/PickerFrame.h"
#include "app/terminal/ProgressFrame.h"
#include "app/terminal/ReportLines.h"

namespace wifi_profile::terminal {
namespace {

constexpr int kNarrow = 40;  // screens with fewer columns get a compact layout

void putTitle(Frame& frame, const Look& look, const Shown& shown) {
  const app::Content& content = shown.content;
  const int columns = look.extent.columns;
  frame.fill({0, 0}, columns, Style::title);
  std::string title = shown.report ? app::screenText("REPORT") : "";
  int availableColumns = columns - 2;
  if (!shown.report && content.item) {
    title = content.item->title();
    if (const auto& button = content.item->rightBarButtonItem()) {
      const bool on = button->isEnabled();
      const std::string blank = columns < kNarrow ? "" : " ";
      const Glyphs text =
          fitted(glyphsOf((on ? "[" : "(") + blank + button->title() + blank + (on ? "]" : ")")),
                 columns / 2, look.marks.ellipsis);
      const int column = columns - 1 - widthOf(text);
      frame.put({0, column}, text, on ? Style::titleOn : Style::titleOff);
      availableColumns = column - 2;
    }
  }
  frame.put({0, 1}, fitted(glyphsOf(title), availableColumns, look.marks.ellipsis), Style::title);
}

void putBody(Frame& frame, const Look& look, const Shown& shown, const TerminalState& state) {
  if (shown.report) {
    putReport(frame, look, *shown.report, state.report);
  } else if (hasList(shown.content)) {
    putList(frame, look, shown, state);
  } else if (shown.content.progress) {
    putProgress(frame, look, shown.content, shown.tests);
  } else {
    putMessage(frame, app::screenText("STARTING"));
  }
}

void putFind(Frame& frame, const Look& look, const FindState& find) {
  const int line = look.extent.lines - 1;
  const int columns = look.extent.columns;
  const bool wide = columns >= kNarrow;
  const Glyphs prompt = glyphsOf(wide ? app::screenText("FIND_NAME") + ": " : "/");
  int column =
      1 + frame.put({line, 1}, fitted(prompt, columns / 2, look.marks.ellipsis), Style::keyName);
  Glyphs text = glyphsOf(find.edit.text);
  const Glyphs before = glyphsOf(std::string_view(find.edit.text).substr(0, find.edit.caret));
  int caret = widthOf(before);
  while (!text.empty() && column + caret >= columns) {
    caret -= text.front().width;
    text.erase(text.begin());
  }
  frame.put({line, column}, text, Style::plain);
  frame.caret = Position{line, column + caret};
}

// Draws the last line: the notice, the search text, or the keys.
void putLastLine(Frame& frame, const Look& look, const Shown& shown, const TerminalState& state,
                 Mode mode) {
  const int line = look.extent.lines - 1;
  const int columns = look.extent.columns;
  const auto say = [&](const std::string& text) {
    frame.fill({line, 0}, columns, Style::notice);
    frame.put({line, 1}, fitted(glyphsOf(text), columns - 1, look.marks.ellipsis), Style::notice);
  };
  if (mode == Mode::stopping) {
    say(app::screenText("STOPPING"));
    return;
  }
  if (state.find && mode == Mode::find) putFind(frame, look, *state.find);
  if (!state.notice.empty() && mode == Mode::find) {
    const Glyphs notice = glyphsOf(state.notice);
    const int column = columns - 1 - widthOf(notice);
    if (column > (frame.caret ? frame.caret->column + 1 : 0)) {
      frame.put({line, column}, notice, Style::notice);
    } else {
      say(state.notice);
      frame.caret.reset();
    }
  } else if (!state.notice.empty()) {
    say(state.notice);
  } else if (mode != Mode::find) {
    putHints(frame, keyHints(mode, shown, look));
  }
}

}  // namespace

Frame frameOf(const Shown& shown, const TerminalState& state, const Look& look) {
  Frame frame(look.extent);
  const Mode mode = modeOf(shown, state, look.extent);
  if (mode == Mode::tooSmall) {
    putMessage(frame, app::screenText("SCREEN_TOO_SMALL"));
    return frame;
  }
  putTitle(frame, look, shown);
  putBody(frame, look, shown, state);
  putLastLine(frame, look, shown, state, mode);
  if (!shown.report && state.question) {
    putDialog(frame, look, stopQuestion(*state.question));
  } else if (!shown.report && shown.alert) {
    putDialog(frame, look, dialogOf(*shown.alert, state.dialog));
  }
  if (state.help) {
    frame.caret.reset();
    putHelp(frame, look, helpHints(shown, look), *state.help);
  }
  return frame;
}

}  // namespace wifi_profile::terminal
