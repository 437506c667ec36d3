// What a person does in the list of networks, and what the list does to the cursor.

#include "app/terminal/TerminalFixture.h"

namespace wifi_profile::terminal {
namespace {

using Name = Key::Name;

class KeysInTheList : public TerminalFixture {};

TEST_F(KeysInTheList, MoveTheCursor) {
  joinTo("Zuhause");
  showList({"Zuhause", "a", "b", "c"});
  EXPECT_EQ(cursorLine(), "›   a");
  press(Name::down);
  type({"j"});
  EXPECT_EQ(cursorLine(), "›   c");
  press(Name::up);
  type({"k", "k", "k"});
  EXPECT_EQ(cursorLine(), "›   a");
  press(Name::end);
  EXPECT_EQ(cursorLine(), "›   Other…");
  press(Name::down);
  EXPECT_EQ(cursorLine(), "›   Other…");
  press(Name::home);
  EXPECT_EQ(cursorLine(), "›   a");
}

TEST_F(KeysInTheList, MoveByPages) {
  joinNothing();
  showList({"a", "b", "c", "d", "e", "f", "g"}, {20, 6});
  press(Name::pageDown);
  EXPECT_EQ(cursorLine(), "›   d              ↓");
  press(Name::pageDown);
  EXPECT_EQ(cursorLine(), "›   g              ↓");
  press(Name::pageUp);
  press(Name::pageUp);
  EXPECT_EQ(line(1), " Choose a Network");
  EXPECT_EQ(cursorLine(), "›   a");
}

TEST_F(KeysInTheList, PassOverRowsThatCannotBeUsed) {
  joinTo("Zuhause");
  showList({"Zuhause", "a"});
  press(Name::up);
  EXPECT_EQ(cursorLine(), "›   a");
  press(Name::home);
  EXPECT_EQ(cursorLine(), "›   a");
}

TEST_F(KeysInTheList, ShowTheHeadersAgainAtTheTop) {
  joinTo("Zuhause");
  showList({"Zuhause", "a", "b", "c", "d"}, {20, 6});
  press(Name::end);
  EXPECT_NE(line(1), " Selected Network");
  press(Name::home);
  EXPECT_EQ(line(1), " Selected Network");
}

TEST_F(KeysInTheList, ChooseANetwork) {
  joinNothing();
  showList({"a", "b"});
  press(Name::down);
  press(Name::enter);
  EXPECT_EQ(selectedName(), "b");
  EXPECT_EQ(line(2), "  ✓ b");
}

TEST_F(KeysInTheList, GoOn) {
  joinTo("Zuhause");
  showList({"Zuhause", "a"});
  type({"n"});
  EXPECT_EQ(terminal->effects.size(), 1U);
  queues->runUntilIdle();
  EXPECT_FALSE(controller->tableView()->superview());
}

TEST_F(KeysInTheList, SayThatANetworkIsToBeChosenFirst) {
  joinNothing();
  showList({"a"});
  type({"n"});
  EXPECT_EQ(lastLine(), " Choose a network first.");
  EXPECT_TRUE(terminal->effects.empty());
  press(Name::down);
  EXPECT_EQ(lastLine().substr(0, 13), " Enter Choose");
}

TEST_F(KeysInTheList, SayThatTheListIsBusy) {
  joinTo("Zuhause");
  nextScanHears({"Zuhause", "a"});
  showEmptyList();
  type({"r"});
  EXPECT_EQ(lastLine(), " The list is being refreshed.");
  queues->runUntilIdle();
  type({"r"});
  press(Name::enter);
  EXPECT_EQ(lastLine(), " The list is being refreshed.");
  press(Name::down);
  type({"r"});
  EXPECT_EQ(lastLine(), " The list is being refreshed.");
  EXPECT_EQ(terminal->effects, std::vector<Effect>{effect::Refresh{}});
}

TEST_F(KeysInTheList, AreShownAsFarAsTheyWork) {
  joinNothing();
  nextScanHears({"a"});
  showEmptyList();
  EXPECT_EQ(lastLine(), " Enter Choose  ? Help  q Quit  / Find  ↑↓ Move  PgUp PgDn Page");
  queues->runUntilIdle();
  press(Name::enter);
  EXPECT_EQ(lastLine(), " Enter Choose  n Next  ? Help  q Quit  / Find  r Refresh  ↑↓ Move");
}

TEST_F(KeysInTheList, AskAgainForThePowerWhileTheRadioIsOff) {
  joinNothing();
  showList({}, {100, 24});
  type({"p"});
  EXPECT_THAT(terminal->effects, ::testing::IsEmpty());
  EXPECT_FALSE(shows("Turn on"));
  int asked = 0;
  terminal->emptyList = {
      .why = app::EmptyList::Why::radioOff, .reason = {}, .askForPower = [&] { ++asked; }};
  EXPECT_THAT(lastLine(), ::testing::HasSubstr("p Turn on…"));
  type({"p"});
  EXPECT_EQ(asked, 1);
}

TEST_F(KeysInTheList, SayThatTheRadioIsOffWhereTheListCannotBeRefreshed) {
  wifiManager->power = 0;
  showEmptyList();
  queues->runUntilIdle();
  controller->presentedAlert()->tap(*controller->presentedAlert()->actions().back());
  terminal->emptyList = {.why = app::EmptyList::Why::radioOff, .reason = {}, .askForPower = [] {}};
  type({"r"});
  EXPECT_EQ(lastLine(), " The radio is off.");
}

TEST_F(KeysInTheList, RepaintTheScreen) {
  joinNothing();
  showList({"a"});
  press(Name::repaint);
  EXPECT_EQ(terminal->effects, std::vector<Effect>{effect::Repaint{}});
}

class CursorInTheList : public TerminalFixture {
 protected:
  void rescan(std::initializer_list<const char*> names) {
    nextScanHears(names);
    type({"r"});
    queues->runUntilIdle();
  }
};

TEST_F(CursorInTheList, IsAtTheFirstNetworkUntilItIsMoved) {
  joinNothing();
  nextScanHears({"m", "n"});
  showEmptyList();
  EXPECT_EQ(cursorLine(), "›   Other…");
  queues->runUntilIdle();
  EXPECT_EQ(cursorLine(), "›   m");
  rescan({"a", "m", "n"});
  EXPECT_EQ(cursorLine(), "›   a");
}

TEST_F(CursorInTheList, StaysOnItsRowAndLineWhenRowsComeAbove) {
  joinNothing();
  showList({"k", "m", "o", "p", "q", "r"}, {20, 6});
  press(Name::down);
  press(Name::down);
  const int before = cursorLineNumber();
  EXPECT_EQ(cursorLine().substr(0, 7), "›   o");
  rescan({"a", "b", "k", "m", "o", "p", "q", "r"});
  EXPECT_EQ(cursorLine().substr(0, 7), "›   o");
  EXPECT_EQ(cursorLineNumber(), before);
}

TEST_F(CursorInTheList, StaysOnItsRowAndLineWhenRowsGoAbove) {
  joinNothing();
  showList({"a", "b", "c", "d", "e", "f", "g", "h"}, {20, 6});
  for (int i = 0; i < 5; ++i) press(Name::down);
  const int before = cursorLineNumber();
  rescan({"c", "d", "e", "f", "g", "h"});
  EXPECT_EQ(cursorLine().substr(0, 7), "›   f");
  EXPECT_EQ(cursorLineNumber(), before);
}

TEST_F(CursorInTheList, StaysWhereItIsWhenItsRowGoes) {
  joinNothing();
  showList({"a", "b", "c", "d"});
  press(Name::down);
  const int before = cursorLineNumber();
  rescan({"a", "c", "d"});
  EXPECT_EQ(cursorLine(), "›   c");
  EXPECT_EQ(cursorLineNumber(), before);
}

TEST_F(CursorInTheList, StaysWhereItIsWhenANetworkIsChosen) {
  joinNothing();
  showList({"a", "b", "c", "d"});
  press(Name::down);
  press(Name::enter);
  EXPECT_EQ(cursorLine(), "›   c");
  press(Name::enter);
  EXPECT_EQ(selectedRows(), Titles{"c"});
  EXPECT_EQ(cursorLine(), "›   d");
}

TEST_F(CursorInTheList, LeavesSightWhereAnotherRowIsToShow) {
  joinTo("Zuhause");
  showList({"Zuhause", "a", "b", "c", "d", "e", "f", "g"}, {20, 6});
  press(Name::end);
  press(Name::up);
  EXPECT_NE(line(2), "  ✓ Zuhause");
  press(Name::enter);
  EXPECT_EQ(line(1), " Selected Network");
  EXPECT_EQ(line(2), "  ✓ g");
  EXPECT_EQ(cursorLine(), "");
  press(Name::up);
  EXPECT_EQ(cursorLine().substr(0, 13), "›   Zuhause");
}

TEST_F(CursorInTheList, StaysInSightWhenTheTerminalShrinks) {
  joinNothing();
  showList({"a", "b", "c", "d", "e", "f", "g", "h"});
  press(Name::end);
  press(Name::up);
  terminal->resize({20, 6});
  EXPECT_EQ(cursorLine().substr(0, 7), "›   h");
  terminal->resize({80, 24});
  EXPECT_EQ(cursorLine(), "›   h");
  EXPECT_EQ(line(1), " Choose a Network");
}

class SearchInTheList : public TerminalFixture {
 protected:
  SearchInTheList() {
    joinNothing();
    showList({"Bistro", "Café Linde", "Hotel", "Hotel Lindenhof", "ÄRZTEHAUS"});
  }
};

TEST_F(SearchInTheList, GoesToTheFirstNameWithTheText) {
  type({"/", "l", "i"});
  EXPECT_EQ(cursorLine(), "›   Café Linde");
  EXPECT_EQ(lastLine(), " Find a name: li");
  EXPECT_EQ(terminal->frame().caret, (Position{23, 16}));
}

TEST_F(SearchInTheList, TakesLettersOfEitherCaseAsEqual) {
  type({"/", "ä", "R"});
  EXPECT_EQ(cursorLine(), "›   ÄRZTEHAUS");
}

TEST_F(SearchInTheList, GoesToTheHitsAfterAndBefore) {
  type({"/", "l", "i", "n", "d", "e"});
  press(Name::down);
  EXPECT_EQ(cursorLine(), "›   Hotel Lindenhof");
  press(Name::down);
  EXPECT_EQ(cursorLine(), "›   Café Linde");
  press(Name::up);
  EXPECT_EQ(cursorLine(), "›   Hotel Lindenhof");
}

TEST_F(SearchInTheList, BeginsAnewWithEveryEdit) {
  type({"/", "h", "o", "t", "e", "l", " "});
  EXPECT_EQ(cursorLine(), "›   Hotel Lindenhof");
  press(Name::backspace);
  EXPECT_EQ(cursorLine(), "›   Hotel");
}

TEST_F(SearchInTheList, SaysThatThereIsNoSuchName) {
  type({"/", "h", "x"});
  EXPECT_EQ(cursorLine(), "›   Hotel");
  EXPECT_TRUE(lastLine().starts_with(" Find a name: hx"));
  EXPECT_TRUE(lastLine().ends_with("No such name in the list."));
}

TEST_F(SearchInTheList, StaysAtTheHitAtEnter) {
  type({"/", "h"});
  press(Name::enter);
  EXPECT_EQ(cursorLine(), "›   Hotel");
  EXPECT_TRUE(lastLine().starts_with(" Enter Choose"));
}

TEST_F(SearchInTheList, GoesBackAtEscape) {
  press(Name::down);
  type({"/", "h"});
  press(Name::escape);
  EXPECT_EQ(cursorLine(), "›   Café Linde");
}

TEST_F(SearchInTheList, TakesLettersThatAreKeysElsewhere) {
  type({"/", "q", "?"});
  EXPECT_TRUE(lastLine().starts_with(" Find a name: q?"));
}

TEST_F(SearchInTheList, GoesBackToTheSameRowWhenOthersCameAbove) {
  press(Name::down);
  type({"/", "h"});
  nextScanHears({"A", "Bistro", "Café Linde", "Hotel"});
  pull();
  EXPECT_EQ(cursorLine(), "›   Hotel");
  press(Name::escape);
  EXPECT_EQ(cursorLine(), "›   Café Linde");
}

}  // namespace
}  // namespace wifi_profile::terminal
