// Every scenario with a list, worked by a person's keys in a terminal: the screens, the exit
// status, and the record, which is that of the scripted user.

#include "app/terminal/TerminalRun.h"

namespace wifi_profile::testing {
namespace {

class InATerminal : public ::testing::TestWithParam<terminal::Extent> {
 protected:
  TerminalRun run{GetParam()};
  Tmux& tmux = run.tmux;

  // Waits for the list with its first scan's last name.
  std::string list(const std::string& name) {
    return tmux.screenWhere([&](const std::string& screen) {
      return screen.find(name) != std::string::npos && !isScanning(screen);
    });
  }
  static bool isScanning(const std::string& screen) {
    return screen.find("Looking for") != std::string::npos;
  }
  // Waits for the report, closes it, and waits for the end.
  void closeReport(ScreenBook& book, int status) {
    book.add("report", tmux.screenWith({" Report\n", "Enter Explain"}));
    tmux.press({"q"});
    EXPECT_EQ(run.status(), status);
    run.expectTerminalAsBefore();
  }
};

TEST_P(InATerminal, ANetworkIsChosenAndChosenAgain) {
  ScreenBook book(tmux, "pick-another", GetParam());
  run.start("pick-another", "--pick");
  book.add("list", list("Werkstatt"));
  tmux.press({"Down", "Down", "Down", "Enter"});
  book.add("Werkstatt is chosen", tmux.screenWith({"✓ Werkstatt"}));
  tmux.press({"/"});
  tmux.type("nord");
  book.add("a name is looked for", tmux.screenWith({"nord", "›   Nordlicht"}));
  tmux.press({"Enter", "Enter"});
  tmux.screenWith({"✓ Nordlicht"});
  tmux.press({"/"});
  tmux.type("café");
  tmux.press({"Enter", "Enter"});
  book.add("Café Linde is chosen", tmux.screenWith({"✓ Café Linde"}));
  tmux.press({"n"});
  closeReport(book, 0);
  run.expectRecord("pick-another");
}

TEST_P(InATerminal, ANetworkIsTypedIn) {
  ScreenBook book(tmux, "pick-typed", GetParam());
  run.start("pick-typed", "--pick");
  list("Other…");
  tmux.screenWhere([](const std::string& screen) { return !isScanning(screen); });
  tmux.press({"End", "Enter"});
  book.add("prompt", tmux.screenWith({"Network name", "( Done )"}));
  tmux.type("Keller");
  book.add("typed", tmux.screenWith({"Keller", "[ Done ]"}));
  tmux.press({"C-u"});
  tmux.screenWith({"Network name", "( Done )"});
  tmux.press({"Tab", "Enter"});
  tmux.screenWhere(
      [](const std::string& screen) { return screen.find("Cancel") == std::string::npos; });
  tmux.press({"End", "Enter"});
  tmux.screenWith({"Network name"});
  tmux.paste("Kellerkneipe");
  tmux.screenWith({"Kellerkneipe", "[ Done ]"});
  tmux.press({"Enter"});
  book.add("chosen", tmux.screenWith({"✓ Kellerkneipe"}));
  tmux.press({"n"});
  closeReport(book, 0);
  run.expectRecord("pick-typed");
}

TEST_P(InATerminal, TheListIsRefreshed) {
  ScreenBook book(tmux, "pick-rescan", GetParam());
  run.start("pick-rescan", "--pick");
  book.add("list", list("Nordlicht"));
  tmux.press({"n"});
  book.add("nothing is chosen", tmux.screenWith({"Choose a network first."}));
  tmux.press({"r"});
  tmux.screenWith({"Looking for"});
  book.add("refreshed", list("Nordlicht"));
  tmux.press({"/"});
  tmux.type("nordl");
  tmux.press({"Enter", "Enter"});
  tmux.screenWith({"✓ Nordlicht"});
  tmux.press({"r"});
  tmux.screenWith({"Looking for"});
  book.add("refreshed again", list("Bistro am Tor"));
  tmux.press({"/"});
  tmux.type("bistro");
  tmux.press({"Enter", "Enter"});
  book.add("Bistro am Tor is chosen", tmux.screenWith({"✓ Bistro am Tor"}));
  tmux.press({"n"});
  closeReport(book, 0);
  run.expectRecord("pick-rescan");
}

TEST_P(InATerminal, ANameThatAsksToBeLeftAloneIsChosen) {
  ScreenBook book(tmux, "pick-nomap", GetParam());
  run.start("pick-nomap", "--pick");
  list("Labor_nomap");
  tmux.press({"/"});
  tmux.type("LABOR");
  tmux.press({"Enter", "Enter"});
  tmux.screenWith({"✓ Labor_nomap"});
  tmux.press({"n"});
  closeReport(book, 7);
  run.expectRecord("pick-nomap");
}

TEST_P(InATerminal, TheRadioIsSwitchedOn) {
  ScreenBook book(tmux, "pick-radio-off-yes", GetParam());
  run.start("pick-radio-off-yes", "--pick");
  book.add("question", tmux.screenWith({"[>Yes<]"}));
  tmux.press({"Enter"});
  book.add("list", list("Café Linde"));
  tmux.press({"/"});
  tmux.type("café");
  tmux.press({"Enter", "Enter"});
  tmux.screenWith({"✓ Café Linde"});
  tmux.press({"n"});
  closeReport(book, 0);
  run.expectRecord("pick-radio-off-yes");
}

TEST_P(InATerminal, TheRadioStaysOff) {
  ScreenBook book(tmux, "pick-radio-off-no", GetParam());
  run.start("pick-radio-off-no", "--pick");
  book.add("question", tmux.screenWith({"[>Yes<]"}));
  tmux.press({"Escape"});
  book.add("Esc answers nothing", tmux.screenWith({"[>No<]"}));
  tmux.press({"Enter"});
  closeReport(book, 4);
  run.expectRecord("pick-radio-off-no");
}

TEST_P(InATerminal, TheRadioIsLostInTheList) {
  ScreenBook book(tmux, "pick-radio-lost-in-list", GetParam());
  run.start("pick-radio-lost-in-list", "--pick");
  list("Werkstatt");
  tmux.press({"/"});
  tmux.type("werk");
  tmux.press({"Enter", "Enter"});
  closeReport(book, 5);
  run.expectRecord("pick-radio-lost-in-list");
}

TEST_P(InATerminal, TheRadioIsLostInTheRun) {
  ScreenBook book(tmux, "pick-radio-lost-in-run", GetParam());
  run.start("pick-radio-lost-in-run", "--pick");
  list("Café Linde");
  tmux.press({"/"});
  tmux.type("café");
  tmux.press({"Enter", "Enter"});
  tmux.screenWith({"✓ Café Linde"});
  tmux.press({"n"});
  closeReport(book, 5);
  run.expectRecord("pick-radio-lost-in-run");
}

TEST_P(InATerminal, ThereIsNoRadio) {
  ScreenBook book(tmux, "pick-no-radio", GetParam());
  run.start("pick-no-radio", "--pick");
  closeReport(book, 2);
  run.expectRecord("pick-no-radio");
}

TEST_P(InATerminal, ThereIsNoManager) {
  ScreenBook book(tmux, "pick-no-manager", GetParam());
  run.start("pick-no-manager", "--pick");
  closeReport(book, 2);
  run.expectRecord("pick-no-manager");
}

TEST_P(InATerminal, ThereIsNoDevice) {
  ScreenBook book(tmux, "pick-no-device", GetParam());
  run.start("pick-no-device", "--pick");
  closeReport(book, 3);
  run.expectRecord("pick-no-device");
}

TEST_P(InATerminal, TheReportIsReadAfterTheTests) {
  ScreenBook book(tmux, "demo", GetParam());
  run.start("demo", "");
  tmux.screenWith({"Checking Wi-Fi.", "tests done", "Now testing: "});
  book.add("report", tmux.screenWith({" Report\n"}));
  tmux.press({"Enter"});
  book.add("a finding is explained", tmux.screenWith({"→"}));
  tmux.press({"Enter"});
  tmux.screenWhere([](const std::string& screen) { return screen.find("→") == std::string::npos; });
  tmux.press({"PageDown"});
  book.add("a page further", tmux.screenWith({"↑\n"}));
  tmux.press({"End"});
  book.add("the end", tmux.screenWith({"› [ Close ]"}));
  tmux.press({"Enter"});
  EXPECT_EQ(run.status(), 0);
  run.expectTerminalAsBefore();
  run.expectRecord("demo");
}

INSTANTIATE_TEST_SUITE_P(Size, InATerminal,
                         ::testing::Values(terminal::Extent{80, 24}, terminal::Extent{40, 15}),
                         [](const auto& size) {
                           return std::to_string(size.param.columns) + "x" +
                                  std::to_string(size.param.lines);
                         });

}  // namespace
}  // namespace wifi_profile::testing
