// Draws the parts of the terminal's screen into a frame. The body is the lines between the first
// line and the last.
#pragma once

#include <string>
#include <vector>

#include "app/terminal/Frame.h"
#include "app/terminal/TerminalState.h"

namespace wifi_profile::terminal {

// Draws the bar at the top: a title and, if there is one, a button.
void putTitle(Frame& frame, const Look& look, const app::Content& content, const Shown& shown);

// Draws the list of networks; if the list is empty, the reason is below it.
void putList(Frame& frame, const Look& look, const Shown& shown, const TerminalState& state);

// Draws the message, the progress bar, and the number of tests done.
void putProgress(Frame& frame, const Look& look, const app::Content& content,
                 const app::TestsDone& tests);

// Draws one text in the middle of the body.
void putMessage(Frame& frame, const std::string& text);

// A box over the middle of the screen.
struct Dialog {
  struct Button {
    std::string title;
    bool enabled = true;
  };
  std::string message;
  struct Field {
    EditedText edit;
    std::string placeholder;
  };
  std::optional<Field> field;
  std::vector<Button> buttons;
  std::size_t focus = 0;  // index among the field, if there is one, and the buttons
};
void putDialog(Frame& frame, const Look& look, const Dialog& dialog);

// Draws the report.
void putReport(Frame& frame, const Look& look, const report::Report& report,
               const ReportPlace& place);

// A key, or several keys, and what they do.
struct KeyHint {
  std::string keys;
  std::string text;
};
// Draws the hints that fit into the last line.
void putHints(Frame& frame, const std::vector<KeyHint>& hints);
// Draws all hints in a box. `first` is the first visible hint if not all fit.
void putHelp(Frame& frame, const Look& look, const std::vector<KeyHint>& hints, int first);
// Returns the greatest useful value of `first`.
int lastHelpLine(Extent extent, std::size_t hints);

// Marks at the right edge of lines `from` to `from + lines` that there is more above or below.
void putMore(Frame& frame, const Look& look, int from, int lines, bool above, bool below);

}  // namespace wifi_profile::terminal
