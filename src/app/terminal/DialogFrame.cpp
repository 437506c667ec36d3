#include "app/terminal/DialogFrame.h"

#include <algorithm>
#include <tuple>

namespace wifi_profile::terminal {
namespace {

constexpr int kMaxDialogColumns = 60;
constexpr int kFieldColumns = 32;  // the longest name of a network

struct Box {
  int line, column, lines, columns;
};

void putBox(Frame& frame, const Look& look, const Box& box) {
  const auto& sign = look.marks.box;
  const auto edge = [&](int line, char32_t left, char32_t between, char32_t right) {
    Glyphs all(static_cast<std::size_t>(box.columns), Glyph{{between}, 1});
    all.front().points[0] = left;
    all.back().points[0] = right;
    frame.put({line, box.column}, all, Style::plain);
  };
  edge(box.line, sign[2], sign[0], sign[3]);
  for (int line = 1; line < box.lines - 1; ++line) edge(box.line + line, sign[1], U' ', sign[1]);
  edge(box.line + box.lines - 1, sign[4], sign[0], sign[5]);
}

// Returns a button as text: "[ Yes ]", with focus "[>Yes<]", disabled "( Done )".
Glyphs buttonText(const Look& look, const Dialog::Button& button, bool focused, bool narrow,
                  int availableColumns) {
  std::string_view left = narrow ? "[" : "[ ";
  std::string_view right = narrow ? "]" : " ]";
  if (focused) {
    left = "[>";
    right = "<]";
  } else if (!button.enabled) {
    left = narrow ? "(" : "( ";
    right = narrow ? ")" : " )";
  }
  const int around = static_cast<int>(left.size() + right.size());
  Glyphs text = glyphsOf(left);
  const Glyphs title =
      fitted(glyphsOf(button.title), std::max(1, availableColumns - around), look.marks.ellipsis);
  text.insert(text.end(), title.begin(), title.end());
  const Glyphs end = glyphsOf(right);
  text.insert(text.end(), end.begin(), end.end());
  return text;
}

struct Buttons {
  std::vector<Glyphs> texts;
  int gap = 2;
  int columns = 0;  // total, with the gaps
};

// Lays out the buttons in one line of at most `availableColumns` columns. If they do not fit,
// reduces the gaps and then shortens the texts.
Buttons buttonsOf(const Look& look, const Dialog& dialog, int availableColumns) {
  const std::size_t firstPart = dialog.field ? 1 : 0;
  const auto count = static_cast<int>(dialog.buttons.size());
  Buttons buttons;
  for (const auto& [narrow, gap, each] :
       {std::tuple{false, 2, availableColumns},
        {true, 1, availableColumns},
        {true, 1, (availableColumns - count + 1) / std::max(1, count)}}) {
    buttons = {.texts = {}, .gap = gap, .columns = -gap};
    for (std::size_t i = 0; i < dialog.buttons.size(); ++i) {
      buttons.texts.push_back(
          buttonText(look, dialog.buttons[i], dialog.focus == firstPart + i, narrow, each));
      buttons.columns += widthOf(buttons.texts.back()) + gap;
    }
    if (buttons.columns <= availableColumns) break;
  }
  return buttons;
}

void putButtons(Frame& frame, const Dialog& dialog, const Buttons& buttons, Position position) {
  const std::size_t firstPart = dialog.field ? 1 : 0;
  for (std::size_t i = 0; i < buttons.texts.size(); ++i) {
    const Style style = dialog.focus == firstPart + i ? Style::cursor
                        : dialog.buttons[i].enabled   ? Style::plain
                                                      : Style::dim;
    position.column += frame.put(position, buttons.texts[i], style) + buttons.gap;
  }
}

// Draws the field, scrolled so that the caret is visible.
void putField(Frame& frame, const Dialog& dialog, Position position, int columns) {
  const auto& [edit, placeholder] = *dialog.field;
  frame.fill(position, columns, Style::field);
  const bool focused = dialog.focus == 0;
  if (edit.text.empty()) {
    frame.put(position, fitted(glyphsOf(placeholder), columns, U' '), Style::field);
    frame.restyle(position, columns, Style::dim);
    if (focused) frame.caret = position;
    return;
  }
  const int caret = widthOf(glyphsOf(std::string_view(edit.text).substr(0, edit.caret)));
  Glyphs text = glyphsOf(edit.text);
  int hidden = 0;  // columns scrolled out to the left
  while (!text.empty() && caret - hidden > columns - 1) {
    hidden += text.front().width;
    text.erase(text.begin());
  }
  int width = 0;
  auto end = text.begin();
  while (end != text.end() && width + end->width <= columns) width += (end++)->width;
  text.erase(end, text.end());
  frame.put(position, text, Style::field);
  if (focused) frame.caret = Position{position.line, position.column + caret - hidden};
}

int fieldColumns(const Look& look, const Dialog& dialog) {
  return dialog.field ? std::min(kFieldColumns, look.extent.columns) : 0;
}

}  // namespace

void putDialog(Frame& frame, const Look& look, const Dialog& dialog) {
  const Glyphs message = glyphsOf(dialog.message);
  const int fixed = (dialog.field ? 1 : 0) + (dialog.buttons.empty() ? 0 : 1);
  // With a border and margins if they fit, otherwise with all lines for the text.
  bool bordered = true;
  int sides = 4;
  int columns = 0;
  std::vector<Glyphs> text;
  for (;; bordered = false, sides = 0) {
    const int availableColumns = std::min(look.extent.columns - sides, kMaxDialogColumns);
    columns = std::max({widthOf(message), fieldColumns(look, dialog),
                        buttonsOf(look, dialog, look.extent.columns).columns, 2});
    columns = std::min(columns, availableColumns);
    text = wrapped(message, columns);
    if (!bordered || static_cast<int>(text.size()) + fixed + 2 <= look.extent.lines) break;
  }
  const int border = bordered ? 1 : 0;
  const int most = std::max(0, look.extent.lines - fixed - 2 * border);
  if (static_cast<int>(text.size()) > most) text.resize(static_cast<std::size_t>(most));
  const int used = static_cast<int>(text.size()) + fixed + 2 * border;
  const bool spaced = bordered && used + 2 <= bodyLines(look.extent);
  const int gap = spaced ? 1 : 0;
  const int lines = used + gap + (dialog.field ? gap : 0);
  const Box box{(look.extent.lines - lines) / 2, (look.extent.columns - columns - sides) / 2, lines,
                columns + sides};
  if (bordered) {
    putBox(frame, look, box);
  } else {
    for (int line = 0; line < look.extent.lines; ++line) {
      frame.fill({line, 0}, look.extent.columns, Style::plain);
    }
  }
  Position at{box.line + border, box.column + sides / 2};
  for (const Glyphs& line : text) {
    frame.put(at, line, Style::plain);
    ++at.line;
  }
  if (dialog.field) {
    at.line += gap;
    putField(frame, dialog, at, std::min(columns, std::max(kFieldColumns, 1)));
    ++at.line;
  }
  at.line += gap;
  const Buttons buttons = buttonsOf(look, dialog, columns);
  putButtons(frame, dialog, buttons, {at.line, at.column + (columns - buttons.columns) / 2});
}

Dialog stopQuestion(std::size_t focus) {
  return {.message = app::screenText("STOP_QUESTION"),
          .field = std::nullopt,
          .buttons = {{.title = app::screenText("STOP")}, {.title = app::screenText("GO_ON")}},
          .focus = focus};
}

Dialog dialogOf(const toolkit::Alert& alert, const DialogState& state) {
  Dialog dialog{
      .message = alert.message(), .field = std::nullopt, .buttons = {}, .focus = state.focus};
  if (!alert.textFields().empty()) {
    dialog.field =
        Dialog::Field{.edit = state.edit, .placeholder = alert.textFields().front()->placeholder};
  }
  for (const auto& action : alert.actions()) {
    dialog.buttons.push_back({.title = action->title(), .enabled = action->isEnabled()});
  }
  return dialog;
}

}  // namespace wifi_profile::terminal
