// The terminal's screen as a value: the diagnostic on fakes, a person's keys, and the frame.
#pragma once

#include <clocale>
#include <string>
#include <vector>

#include "app/terminal/AlertKeys.h"
#include "app/terminal/TerminalFrame.h"
#include "runtime/BuiltInStringTable.h"
#include "support/PickerFixture.h"

namespace wifi_profile::terminal {

// Widths of characters are those of a locale.
inline void useWidthsOfUtf8() { std::setlocale(LC_CTYPE, "C.UTF-8"); }

// Does what the terminal's screen does, with neither a terminal nor a queue.
class ValueScreen final : public runtime::NoScreen {
 public:
  std::shared_ptr<WiFiProfileViewController> controller;
  Look look{.extent = {80, 24}};
  TerminalState state;
  app::TestsDone tests;
  app::EmptyList emptyList;
  std::optional<report::Report> report;
  std::vector<Effect> effects;  // that were not nothing

  Shown shown() const {
    Shown shown{
        .content = {}, .alert = nullptr, .tests = tests, .emptyList = emptyList, .report = nullptr};
    if (controller) {
      shown.content = app::contentOf(*controller->view());
      shown.alert = controller->presentedAlert();
    }
    if (report) shown.report = &*report;
    return shown;
  }
  void tableDid(const toolkit::TableEvent& event) override {
    if (controller) state = afterEvent(shown(), std::move(state), look, event);
  }
  void alertWasPresented(const toolkit::Alert& alert) override {
    state.dialog = initialState(alert);
  }

  Frame frame() {
    state = withValidCursor(shown(), std::move(state), look);
    return frameOf(shown(), state, look);
  }
  void press(const Key& key) {
    const Shown now = shown();
    KeyResult result = handleKey(now, withValidCursor(now, std::move(state), look), look, key);
    state = std::move(result.state);
    if (!std::holds_alternative<std::monostate>(result.effect)) effects.push_back(result.effect);
    applyEffect(now, result.effect);
  }
  void resize(Extent extent) {
    look.extent = extent;
    state = afterResize(shown(), std::move(state), look);
  }
};

class TerminalFixture : public PickerFixture {
 protected:
  TerminalFixture() { useWidthsOfUtf8(); }

  const std::shared_ptr<ValueScreen> terminal = std::make_shared<ValueScreen>();

  // The list after its first scan, on a terminal of that size.
  void showList(std::initializer_list<const char*> names, Extent extent = {80, 24}) {
    nextScanHears(names);
    showEmptyList(extent);
    queues->runUntilIdle();
  }
  // The list before its first scan has an answer.
  void showEmptyList(Extent extent = {80, 24}) {
    look(extent);
    startPicker();
    terminal->controller = controller;
  }
  void look(Extent extent) { terminal->look.extent = extent; }

  void press(const Key& key) { terminal->press(key); }
  void press(Key::Name name) { terminal->press({name, ""}); }
  // One key after another.
  void type(const std::vector<std::string>& characters) {
    for (const std::string& character : characters) terminal->press(typed(character));
  }

  std::string line(int number) { return terminal->frame().textOfLine(number); }
  std::string lastLine() { return line(terminal->look.extent.lines - 1); }
  // The line with the cursor; none: "".
  std::string cursorLine() {
    const Frame frame = terminal->frame();
    const int number = cursorLineNumber(frame);
    return number < 0 ? "" : frame.textOfLine(number);
  }
  int cursorLineNumber() { return cursorLineNumber(terminal->frame()); }
  bool shows(const std::string& text) {
    return terminal->frame().text().find(text) != std::string::npos;
  }

 private:
  static int cursorLineNumber(const Frame& frame) {
    for (int number = 1; number < frame.extent().lines - 1; ++number) {
      if (frame.at({number, 0}).style == Style::cursor) return number;
    }
    return -1;
  }

  runtime::BuiltInStringTable english_{"en"};
  const InstalledPlatform platform_{{.texts = &english_, .screen = terminal.get()}};
};

}  // namespace wifi_profile::terminal
