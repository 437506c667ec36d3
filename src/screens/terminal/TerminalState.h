// Everything that a frame is made from: what is there to be shown, and the screen's own state.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <string_view>

#include "platform/toolkit/Alert.h"
#include "screens/Content.h"
#include "screens/PersonScreen.h"
#include "screens/terminal/ListPlace.h"
#include "screens/terminal/Marks.h"
#include "screens/terminal/TextEdit.h"

namespace wifi_profile {

// What the toolkit and the host show.
struct Shown {
  Content content;
  std::shared_ptr<toolkit::Alert> alert;  // null: none
  TestsDone tests;
  EmptyList emptyList = {};
  const Report* report = nullptr;  // null: the run is not over
};

// A dialog's own state. Its parts are its text field, if it has one, and then its buttons.
struct DialogState {
  std::size_t focus = 0;  // the part
  EditedText edit;
};

struct FindState {
  EditedText edit;
  ListPlace origin;  // where Esc goes back to
};

struct ReportPlace {
  std::size_t item = 0;        // the cursor
  int firstLine = 0;           // at the top
  std::set<std::size_t> open;  // items whose details show
};

struct TerminalState {
  ListPlace list;
  DialogState dialog;
  std::optional<FindState> find;
  std::optional<std::size_t> question;  // whether to stop is being asked: the button in focus
  std::optional<int> help;              // the keys are shown: the first line of them
  ReportPlace report;
  std::string notice;  // what there is to say to the last key; empty: nothing
  bool stopping = false;
  unsigned turn = 0;  // of the spinners
};

// Where keys go and what shows, the topmost first.
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

// The lines between the bar at the top and the keys at the bottom.
inline int bodyLines(Extent extent) { return extent.lines - 2; }
// Whether there is room for empty lines.
inline bool isRoomy(Extent extent) { return extent.lines >= 12; }

// Whether the list's table is on the screen and has been read.
bool hasList(const Content& content);
// Whether a wheel turns in a header of the list.
bool isTurning(const toolkit::TableView& table);
// Whether a key asks again whether to turn the radio on. Only with a list on the screen.
bool canAskForPower(const Shown& shown);
// The label and the wheel in a section's header; null: none.
std::shared_ptr<toolkit::Label> headerLabel(const toolkit::TableView& table, std::int64_t section);
std::shared_ptr<toolkit::Spinner> headerSpinner(const toolkit::TableView& table,
                                                std::int64_t section);

}  // namespace wifi_profile
