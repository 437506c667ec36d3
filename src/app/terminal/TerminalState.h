// The input of a frame: the content to show, and the screen's own state.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "app/Content.h"
#include "app/PersonScreen.h"
#include "app/terminal/ListPosition.h"
#include "app/terminal/Marks.h"
#include "app/terminal/TextEdit.h"
#include "diagnostic/platform/toolkit/Alert.h"
#include "diagnostic/platform/toolkit/TableEvent.h"

namespace wifi_profile::terminal {

// The content from the toolkit and the host.
struct Shown {
  app::Content content;
  std::shared_ptr<toolkit::Alert> alert;  // null: none
  app::TestsDone tests;
  app::EmptyList emptyList = {};
  const report::Report* report = nullptr;  // null: the run has not finished
};

// A dialog's own state. Its parts are its text field, if there is one, and then its buttons.
struct DialogState {
  std::size_t focus = 0;  // index of the part
  EditedText edit;
};

struct FindState {
  EditedText edit;
  ListPosition origin;  // the position that Esc returns to
};

struct ReportPosition {
  std::size_t item = 0;        // index of the cursor's item
  int firstLine = 0;           // top visible line
  std::set<std::size_t> open;  // items whose details are shown
};

struct TerminalState {
  ListPosition list;
  DialogState dialog;
  std::optional<FindState> find;
  std::optional<std::size_t> question;  // whether to stop: the focused button; empty: not asked
  std::optional<int> help;              // first visible line of the help; empty: no help
  ReportPosition report;
  std::string notice;  // message in response to the last key; empty: none
  bool stopping = false;
  unsigned spinnerStep = 0;  // step of the spinners
};

// What receives the keys and is shown, the topmost first.
enum class Mode {
  tooSmall,
  help,
  stopping,
  question,
  dialog,
  report,
  find,
  list,
  progress,
  starting
};
Mode modeOf(const Shown& shown, const TerminalState& state, Extent extent);

inline constexpr Extent kMinimumExtent{20, 6};

// Returns the number of lines between the bar at the top and the keys at the bottom.
inline int bodyLines(Extent extent) { return extent.lines - 2; }
// Returns true if there is space for empty lines.
inline bool hasSpacing(Extent extent) { return extent.lines >= 12; }

// Returns true if the list's table is on the screen and has been read.
bool hasList(const app::Content& content);
// Returns true if a spinner runs in a header of the list.
bool isScanning(const toolkit::TableView& table);
// Returns true if a key can ask again whether to turn the radio on. False without a list on the
// screen.
bool canAskForPower(const Shown& shown);
// Returns the label or the spinner in a section's header; null: none.
std::shared_ptr<toolkit::Label> headerLabel(const toolkit::TableView& table, std::int64_t section);
std::shared_ptr<toolkit::Spinner> headerSpinner(const toolkit::TableView& table,
                                                std::int64_t section);

// Call before making a frame or handling a key: moves the cursor to an existing row.
TerminalState withValidCursor(const Shown& shown, TerminalState state, const Look& look);

// Call after a table's event: the cursor follows its row, and a row that was scrolled to is
// visible.
TerminalState afterEvent(const Shown& shown, TerminalState state, const Look& look,
                         const toolkit::TableEvent& event);

// Call after `look` has changed: the cursor is visible.
TerminalState afterResize(const Shown& shown, TerminalState state, const Look& look);

}  // namespace wifi_profile::terminal
