// Questions over the screen, and what keys do there.

#include "app/terminal/TerminalFixture.h"

namespace wifi_profile::terminal {
namespace {

using Name = Key::Name;

class PromptOnATerminal : public TerminalFixture {
 protected:
  void showPrompt(Extent extent = {80, 24}) {
    joinNothing();
    showList({"a"}, extent);
    press(Name::end);
    press(Name::enter);
  }
  std::string typedText() const { return controller->presentedAlert()->textFields().front()->text; }
};

TEST_F(PromptOnATerminal, StandsInABoxOverTheList) {
  showPrompt({40, 15});
  EXPECT_EQ(terminal->frame().text(),
            " Wi-Fi Diagnostics             ( Next )\n"
            " Choose a Network\n"
            "    a\n"
            "›   Other…\n"
            " ┌────────────────────────────────────┐\n"
            " │ Enter the name of another network. │\n"
            " │                                    │\n"
            " │ Network name                       │\n"
            " │                                    │\n"
            " │        [ Cancel ]  ( Done )        │\n"
            " └────────────────────────────────────┘\n"
            "\n\n\n"
            " Enter Choose  Tab Next part  Esc Cancel\n");
  EXPECT_EQ(terminal->frame().caret, (Position{7, 3}));
  EXPECT_EQ(terminal->frame().at({7, 3}).style, Style::dim);
}

TEST_F(PromptOnATerminal, HasTheSmallestTerminalForItself) {
  showPrompt({20, 6});
  type({"x"});
  EXPECT_EQ(terminal->frame().text(),
            "\n"
            "Enter the name of\n"
            "another network.\n"
            "x\n"
            "[ Cancel ]  [ Done ]\n"
            "\n");
}

TEST_F(PromptOnATerminal, TellsTheAlertOfEveryEdit) {
  showPrompt();
  type({"K", "ä", "q"});
  press(Name::backspace);
  EXPECT_EQ(terminal->effects,
            (std::vector<Effect>{effect::TapRow{{1, 1}}, effect::Type{"K"}, effect::Type{"Kä"},
                                 effect::Type{"Käq"}, effect::Type{"Kä"}}));
  EXPECT_EQ(typedText(), "Kä");
}

TEST_F(PromptOnATerminal, TellsNothingWhereOnlyTheCaretMoves) {
  showPrompt();
  type({"a"});
  const auto before = terminal->effects.size();
  press(Name::home);
  press(Name::backspace);
  EXPECT_EQ(terminal->effects.size(), before);
  type({"b"});
  EXPECT_EQ(typedText(), "ba");
}

TEST_F(PromptOnATerminal, TakesAPasteAsOneEdit) {
  showPrompt();
  press({Name::paste, "Haus\nam See"});
  EXPECT_EQ(typedText(), "Hausam See");
  EXPECT_EQ(terminal->effects.size(), 2U);
}

TEST_F(PromptOnATerminal, KeepsTheCaretInSightOfALongText) {
  showPrompt({20, 6});
  press({Name::paste, "abcdefghijklmnopqrstuvwxyz"});
  EXPECT_EQ(line(3), "hijklmnopqrstuvwxyz");
  EXPECT_EQ(terminal->frame().caret, (Position{3, 19}));
  press(Name::home);
  EXPECT_EQ(line(3), "abcdefghijklmnopqrst");
  EXPECT_EQ(terminal->frame().caret, (Position{3, 0}));
}

TEST_F(PromptOnATerminal, PressesDoneAtEnterInTheField) {
  showPrompt();
  type({"b"});
  press(Name::enter);
  EXPECT_FALSE(controller->presentedAlert());
  EXPECT_EQ(selectedName(), "b");
}

TEST_F(PromptOnATerminal, StaysAtEnterWhileDoneIsDisabled) {
  showPrompt();
  press(Name::enter);
  EXPECT_TRUE(controller->presentedAlert());
}

TEST_F(PromptOnATerminal, IsCancelledAtEscape) {
  showPrompt();
  type({"b"});
  press(Name::escape);
  EXPECT_FALSE(controller->presentedAlert());
  EXPECT_EQ(selectedName(), "-");
}

TEST_F(PromptOnATerminal, GoesThroughItsPartsWithTab) {
  showPrompt();
  press(Name::tab);
  EXPECT_TRUE(shows("[>Cancel<]  ( Done )"));
  EXPECT_EQ(terminal->frame().caret, std::nullopt);
  press(Name::tab);
  EXPECT_TRUE(shows("[ Cancel ]  ( Done )"));
  EXPECT_NE(terminal->frame().caret, std::nullopt);
  type({"b"});
  press(Name::backTab);
  EXPECT_TRUE(shows("[ Cancel ]  [>Done<]"));
  press(Name::left);
  EXPECT_TRUE(shows("[>Cancel<]  [ Done ]"));
  press(Name::left);
  EXPECT_TRUE(shows("[>Cancel<]  [ Done ]"));
  press(Name::right);
  press(Name::enter);
  EXPECT_EQ(selectedName(), "b");
}

TEST_F(PromptOnATerminal, BeginsAnewWhenItComesAgain) {
  showPrompt();
  type({"b"});
  press(Name::tab);
  press(Name::escape);
  press(Name::enter);
  EXPECT_EQ(typedText(), "");
  EXPECT_TRUE(shows("Network name"));
  EXPECT_NE(terminal->frame().caret, std::nullopt);
}

class QuestionOfPower : public TerminalFixture {
 protected:
  void ask(Extent extent = {80, 24}) {
    wifiManager->power = 0;
    showEmptyList(extent);
  }
};

TEST_F(QuestionOfPower, FitsIntoTheSmallestTerminal) {
  ask({20, 6});
  EXPECT_EQ(terminal->frame().text(),
            "┌──────────────────┐\n"
            "│ Wi-Fi is off.    │\n"
            "│ Turn it on to    │\n"
            "│ show networks?   │\n"
            "│ [ No ]  [>Yes<]  │\n"
            "└──────────────────┘\n");
}

TEST_F(QuestionOfPower, IsAnsweredByTheButtonInFocus) {
  ask();
  EXPECT_TRUE(shows("[ No ]  [>Yes<]"));
  press(Name::left);
  EXPECT_TRUE(shows("[>No<]  [ Yes ]"));
  press(Name::enter);
  EXPECT_EQ(terminal->effects, std::vector<Effect>{effect::TapAction{0}});
}

// Neither answer is of cancel style.
TEST_F(QuestionOfPower, IsNotAnsweredByEscape) {
  ask();
  press(Name::escape);
  EXPECT_TRUE(controller->presentedAlert());
  EXPECT_TRUE(shows("[>No<]  [ Yes ]"));
}

class QuestionWhetherToStop : public TerminalFixture {};

TEST_F(QuestionWhetherToStop, IsAskedAtQAndGoesOnByItself) {
  joinTo("Zuhause");
  showList({"Zuhause"});
  type({"q"});
  EXPECT_TRUE(shows("Stop the diagnostic? There will be no report."));
  EXPECT_TRUE(shows("[ Stop ]  [>Continue<]"));
  press(Name::enter);
  EXPECT_FALSE(shows("Stop the diagnostic?"));
  EXPECT_TRUE(terminal->effects.empty());
  type({"q"});
  press(Name::escape);
  EXPECT_FALSE(shows("Stop the diagnostic?"));
}

TEST_F(QuestionWhetherToStop, FitsIntoTheSmallestTerminal) {
  joinTo("Zuhause");
  showList({"Zuhause"}, {20, 6});
  type({"q"});
  EXPECT_EQ(terminal->frame().text(),
            "\n"
            "Stop the diagnostic?\n"
            "There will be no\n"
            "report.\n"
            "[Stop] [>Continue<]\n"
            "\n");
}

TEST_F(QuestionWhetherToStop, SaysThatItIsStoppingAndTakesNoMoreKeys) {
  joinTo("Zuhause");
  showList({"Zuhause", "a"});
  type({"q"});
  press(Name::left);
  press(Name::enter);
  EXPECT_EQ(terminal->effects, std::vector<Effect>{effect::Stop{}});
  EXPECT_EQ(lastLine(), " Stopping…");
  type({"q", "n"});
  press(Name::enter);
  EXPECT_EQ(terminal->effects.size(), 1U);
}

TEST_F(QuestionWhetherToStop, ComesOverAnAlertAndLeavesItAsItWas) {
  wifiManager->power = 0;
  showEmptyList();
  type({"q"});
  EXPECT_FALSE(shows("Turn it on"));
  press(Name::escape);
  EXPECT_TRUE(shows("[ No ]  [>Yes<]"));
}

}  // namespace
}  // namespace wifi_profile::terminal
