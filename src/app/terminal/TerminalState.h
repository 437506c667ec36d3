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
#include "app/terminal/ListPlace.h"
#include "app/terminal/Marks.h"
#include "app/terminal/TextEdit.h"
#include "diagnostic/platform/toolkit/Alert.h"

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
  ListPlace origin;  // the place that Esc returns to
};

struct ReportPlace {
  std::size_t item = 0;        // index of the cursor's item
  int firstLine = 0;           // top visible line
  std::set<std::size_t> open;  // items whose details are shown
};

struct TerminalState {
  ListPlace list;
  DialogState dialog;
  std::optional<FindState> find;
  std::optional<std::size_t> question;  // whether to stop: the focused button; empty: not asked
  std::optional<int> help;              // first visible line of the help; empty: no help
  ReportPlace report;
  std::string notice;  // message in response to the last key; empty: none
  bool stopping = false;
  unsigned turn = 0;  // step of the spinners
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

inline constexpr Extent kSmallest{20, 6};

// Returns the number of lines between the bar at the top and the keys at the bottom.
inline int bodyLines(Extent extent) { return extent.lines - 2; }
// Returns true if there is space for empty lines.
inline bool isRoomy(Extent extent) { return extent.lines >= 12; }

// Returns true if the list's table is on the screen and has been read.
bool hasList(const app::Content& content);
// Returns true if a spinner runs in a header of the list.
bool isTurning(const toolkit::TableView& table);
// Returns true if a key can ask again whether to turn the radio on. False without a list on the
// screen.
bool canAskForPower(const Shown& shown);
// Returns the label or the spinner in a section's header; null: none.
std::shared_ptr<toolkit::Label> headerLabel(const toolkit::TableView& table, std::int64_t section);
std::shared_ptr<toolkit::Spinner> headerSpinner(const toolkit::TableView& table,
                                                std::int64_t section);

}  // namespace wifi_profile::terminal
