// The parts of the terminal's screen, each put into a frame. The body is what lies between the
// first line and the last.
#pragma once

#include <string>
#include <vector>

#include "screens/terminal/Frame.h"
#include "screens/terminal/TerminalState.h"

namespace wifi_profile {

// The bar at the top: a title, and perhaps a button.
void putTitle(Frame& frame, const Look& look, const Content& content, const Shown& shown);

// The list of networks; below an empty one the reason, where there is one.
void putList(Frame& frame, const Look& look, const Shown& shown, const TerminalState& state);

// The message, the bar, and how far the tests are.
void putProgress(Frame& frame, const Look& look, const Content& content, const TestsDone& tests);

// One text in the middle of the body.
void putMessage(Frame& frame, const std::string& text);

// A box over the middle of everything.
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
  std::size_t focus = 0;  // the field, if there is one, then the buttons
};
void putDialog(Frame& frame, const Look& look, const Dialog& dialog);

// The report.
void putReport(Frame& frame, const Look& look, const Report& report, const ReportPlace& place);

// One of the keys that work.
struct KeyHint {
  std::string keys;
  std::string text;
};
// As many as fit into the last line.
void putHints(Frame& frame, const std::vector<KeyHint>& hints);
// All of them, in a box; `first` is the first line that shows, if they do not all fit.
void putHelp(Frame& frame, const Look& look, const std::vector<KeyHint>& hints, int first);
// How far `first` can go.
int lastHelpLine(Extent extent, std::size_t hints);

// Marks at the right that there is more above and below lines `from` to `from + lines`.
void putMore(Frame& frame, const Look& look, int from, int lines, bool above, bool below);

}  // namespace wifi_profile
