// The message, the bar, and how far the tests are.

#include "app/terminal/TerminalFixture.h"

namespace wifi_profile::terminal {
namespace {

class ProgressOnATerminal : public TerminalFixture {
 protected:
  void showProgress(Extent extent, float progress) {
    look(extent);
    setUpController(makeInputs(nullptr));
    controller->setupViewWithNetworkList(false);
    controller->displayProgressScreen();
    controller->progressView()->setProgress(progress);
    terminal->controller = controller;
  }
};

TEST_F(ProgressOnATerminal, ShowsMessageBarAndTests) {
  terminal->tests = {.done = 9, .total = 40, .running = "Ping router"};
  showProgress({40, 15}, 0.225F);
  EXPECT_EQ(terminal->frame().text(),
            " Wi-Fi Diagnostics\n"
            "\n\n\n"
            "  Checking Wi-Fi. This takes a moment.\n"
            "\n"
            " ███████▏░░░░░░░░░░░░░░░░░░░░░░░░  22 %\n"
            "\n"
            "           9 of 40 tests done\n"
            "        Now testing: Ping router\n"
            "\n\n\n\n"
            " ? Help  q Quit\n");
}

TEST_F(ProgressOnATerminal, LeavesOutWhatMattersLeastOnTheSmallestOne) {
  terminal->tests = {.done = 9, .total = 40, .running = "Ping router"};
  showProgress({20, 6}, 0.5F);
  EXPECT_EQ(terminal->frame().text(),
            " Wi-Fi Diagnostics\n"
            "  Checking Wi-Fi.\n"
            " ██████░░░░░░  50 %\n"
            " 9 of 40 tests done\n"
            " Now testing: Ping…\n"
            " ? Help  q Quit\n");
}

TEST_F(ProgressOnATerminal, TakesNoMoreLinesThanTheMessageMay) {
  showProgress({20, 24}, 0);
  controller->mainLabel()->text =
      makeText("one two three four five six seven eight nine ten eleven");
  EXPECT_TRUE(shows("one two three four\n"));
  EXPECT_TRUE(shows("eight nine ten…\n")) << terminal->frame().text();
}

TEST_F(ProgressOnATerminal, SaysNothingOfTestsBeforeTheFirst) {
  showProgress({80, 24}, 0);
  EXPECT_FALSE(shows("tests done"));
  EXPECT_TRUE(shows("0 %"));
}

TEST_F(ProgressOnATerminal, FillsTheBarAtMost) {
  showProgress({20, 6}, 1.5F);
  EXPECT_EQ(line(4), " ████████████ 100 %");
}

TEST_F(ProgressOnATerminal, DrawsThePartsOfAColumn) {
  showProgress({20, 6}, 1.0F / 96.0F);
  EXPECT_EQ(line(4), " ▏░░░░░░░░░░░   1 %");
  showProgress({20, 6}, 15.0F / 96.0F);
  EXPECT_EQ(line(4), " █▉░░░░░░░░░░  15 %");
}

TEST_F(ProgressOnATerminal, DrawsWithPlainSignsWhereThereAreNoOthers) {
  showProgress({20, 6}, 0.5F);
  terminal->look.marks = kAsciiMarks;
  EXPECT_EQ(line(4), " ######------  50 %");
}

TEST_F(ProgressOnATerminal, HelpsAndAsksWhetherToStop) {
  showProgress({80, 24}, 0);
  type({"?"});
  EXPECT_TRUE(shows("Keys"));
  press(Key::Name::escape);
  type({"q"});
  EXPECT_TRUE(shows("[ Stop ]"));
}

class WholeScreen : public TerminalFixture {};

TEST_F(WholeScreen, SaysThatItIsStartingBeforeAnythingIsThere) {
  look({40, 15});
  EXPECT_TRUE(shows("               Starting…"));
  EXPECT_EQ(lastLine(), " ? Help  q Quit");
  type({"q"});
  EXPECT_TRUE(shows("[ Stop ]"));
}

TEST_F(WholeScreen, SaysThatTheTerminalIsTooSmall) {
  joinNothing();
  showList({"a"}, {19, 6});
  EXPECT_TRUE(shows("Too small"));
  EXPECT_FALSE(shows("Choose"));
  terminal->resize({20, 5});
  EXPECT_TRUE(shows("Too small"));
  terminal->resize({4, 1});
  EXPECT_EQ(line(0), " To");
  terminal->resize({1, 1});
  EXPECT_EQ(terminal->frame().extent(), (Extent{1, 1}));
  type({"n", "q"});
  EXPECT_TRUE(terminal->effects.empty());
  terminal->resize({20, 6});
  EXPECT_EQ(cursorLine(), "›   a");
}

TEST_F(WholeScreen, ShowsEveryKeyInItsHelp) {
  joinNothing();
  showList({"a"}, {40, 15});
  type({"?"});
  EXPECT_EQ(terminal->frame().text(),
            " Wi-Fi Diagnostics             ( Next )\n"
            " Choose a Network\n"
            "›   a   Keys\n"
            "    Oth ↑ ↓ j k    Move\n"
            "        PgUp PgDn  Page\n"
            "        Home End   First, last\n"
            "        Enter      Choose\n"
            "        n          Next\n"
            "        r          Refresh\n"
            "        /          Find a name\n"
            "        q          Quit\n"
            "        ?          Help\n"
            "\n\n"
            " Esc Close\n");
  type({"x"});
  EXPECT_FALSE(shows("Keys"));
}

TEST_F(WholeScreen, ScrollsItsHelpWhereItDoesNotFit) {
  joinNothing();
  showList({"a"}, {20, 6});
  type({"?"});
  EXPECT_EQ(line(0), " Keys");
  EXPECT_TRUE(shows("Move"));
  EXPECT_FALSE(shows("Help"));
  press(Key::Name::pageDown);
  press(Key::Name::pageDown);
  press(Key::Name::down);
  EXPECT_TRUE(shows("?          Help"));
  EXPECT_FALSE(shows("Move"));
}

}  // namespace
}  // namespace wifi_profile::terminal
