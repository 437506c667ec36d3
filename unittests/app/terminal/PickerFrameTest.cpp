// The list of networks on a terminal.

#include "app/terminal/TerminalFixture.h"

namespace wifi_profile::terminal {
namespace {

class ListOnATerminal : public TerminalFixture {};

TEST_F(ListOnATerminal, ShowsTitleButtonSectionsAndKeys) {
  joinTo("Zuhause");
  showList({"Zuhause", "Café Linde", "azur"}, {40, 15});
  EXPECT_EQ(terminal->frame().text(),
            " Wi-Fi Diagnostics             [ Next ]\n"
            " Selected Network\n"
            "  ✓ Zuhause\n"
            "\n"
            " Choose a Network\n"
            "›   azur\n"
            "    Café Linde\n"
            "    Other…\n"
            "\n\n\n\n\n\n"
            " Enter Choose  n Next  ? Help  q Quit\n");
}

TEST_F(ListOnATerminal, FitsIntoTheSmallestOne) {
  joinTo("Zuhause");
  showList({"Zuhause", "Café Linde", "azur"}, {20, 6});
  EXPECT_EQ(terminal->frame().text(),
            " Wi-Fi Diag… [Next]\n"
            " Selected Network\n"
            "  ✓ Zuhause\n"
            " Choose a Network\n"
            "›   azur           ↓\n"
            " Enter Choose\n");
}

TEST_F(ListOnATerminal, MarksAButtonThatCannotBePressed) {
  joinNothing();
  showList({"azur"});
  EXPECT_EQ(line(0).substr(line(0).size() - 8), "( Next )");
  EXPECT_EQ(terminal->frame().at({0, 72}).style, Style::titleOff);
}

TEST_F(ListOnATerminal, BrightensAButtonThatCanBePressed) {
  joinTo("Zuhause");
  showList({"Zuhause"});
  EXPECT_EQ(terminal->frame().at({0, 72}).style, Style::titleOn);
}

TEST_F(ListOnATerminal, HasNoHeaderWhereNothingIsSelected) {
  joinNothing();
  showList({"azur"});
  EXPECT_EQ(line(1), " Choose a Network");
  EXPECT_EQ(cursorLine(), "›   azur");
}

TEST_F(ListOnATerminal, SaysThatNetworksAreLookedFor) {
  joinNothing();
  showEmptyList();
  EXPECT_EQ(line(1), " Choose a Network ⠋ Looking for networks…");
  EXPECT_EQ(line(2), "    Looking for networks…");
  ++terminal->state.spinnerStep;
  EXPECT_EQ(line(1), " Choose a Network ⠙ Looking for networks…");
}

TEST_F(ListOnATerminal, SaysThatNetworksAreLookedForInPlaceOfAHeaderWhereThereIsLittleRoom) {
  joinNothing();
  showEmptyList({24, 6});
  EXPECT_EQ(line(1), " ⠋ Looking for network…");
}

TEST_F(ListOnATerminal, SaysThatThereAreNone) {
  joinNothing();
  showList({});
  terminal->emptyList.why = app::EmptyList::Why::noneInRange;
  EXPECT_EQ(line(1), " Choose a Network");
  EXPECT_EQ(line(2), "    No networks in range.");
  EXPECT_EQ(cursorLine(), "›   Other…");
}

TEST_F(ListOnATerminal, SaysWhyItIsEmpty) {
  using Why = app::EmptyList::Why;
  joinNothing();
  showList({});
  for (const auto& [why, text] : {std::pair{Why::notKnownYet, ""},
                                  {Why::noOtherInRange, "    No other networks in range."},
                                  {Why::onlyHiddenInRange, "    Only hidden networks in range."},
                                  {Why::scanFailed, "    Could not look for networks."},
                                  {Why::radioOff, "    The radio is off."},
                                  {Why::powerOnFailed, "    Could not turn the radio on."}}) {
    terminal->emptyList.why = why;
    EXPECT_EQ(line(2), text);
  }
}

TEST_F(ListOnATerminal, SaysTheReasonBelowAnEmptyList) {
  joinNothing();
  showList({}, {40, 12});
  terminal->emptyList = {.why = app::EmptyList::Why::powerOnFailed,
                         .reason = "The radio is switched off by a switch\x1B of the device.",
                         .askForPower = nullptr};
  EXPECT_EQ(line(2), "    Could not turn the radio on.");
  EXPECT_EQ(line(4), "");
  EXPECT_EQ(line(5), "    The radio is switched off by a");
  EXPECT_EQ(line(6), "    switch\\u{1B} of the device.");
  EXPECT_EQ(line(7), "");
}

TEST_F(ListOnATerminal, SaysNothingOfAnEmptyListWhereThereAreNetworks) {
  joinNothing();
  showList({"Cafe"});
  terminal->emptyList = {
      .why = app::EmptyList::Why::scanFailed, .reason = "radio asleep", .askForPower = nullptr};
  EXPECT_FALSE(shows("Could not look"));
  EXPECT_FALSE(shows("radio asleep"));
}

TEST_F(ListOnATerminal, MarksThatThereIsMore) {
  joinNothing();
  showList({"a", "b", "c", "d", "e", "f"}, {20, 6});
  EXPECT_EQ(terminal->frame().text(),
            " Wi-Fi Diag… (Next)\n"
            " Choose a Network\n"
            "›   a\n"
            "    b\n"
            "    c              ↓\n"
            " Enter Choose\n");
  press(Key::Name::end);
  EXPECT_EQ(terminal->frame().text(),
            " Wi-Fi Diag… (Next)\n"
            "    d              ↑\n"
            "    e\n"
            "    f\n"
            "›   Other…\n"
            " Enter Choose\n");
}

TEST_F(ListOnATerminal, ShowsNamesAtTheirWidth) {
  joinNothing();
  showList({"茶室茶室茶室茶室茶室", "e\u0301tage", "\x1b[2J", "bad\xff"}, {20, 8});
  const std::string text = terminal->frame().text();
  EXPECT_NE(text.find("    茶室茶室茶室茶…\n"), std::string::npos) << text;
  EXPECT_NE(text.find("    e\u0301tage\n"), std::string::npos) << text;
  EXPECT_NE(text.find("   \\u{1B}[2J\n"), std::string::npos) << text;
  EXPECT_NE(text.find("    bad\\xFF\n"), std::string::npos) << text;
}

TEST_F(ListOnATerminal, UsesPlainSignsWhereTheTerminalHasNoOthers) {
  joinTo("Zuhause");
  nextScanHears({"Zuhause", "azur"});
  showEmptyList({30, 6});
  terminal->look.marks = kAsciiMarks;
  EXPECT_TRUE(line(1).starts_with(" | Looking"));
  queues->runUntilIdle();
  EXPECT_EQ(line(2), "  * Zuhause");
  EXPECT_EQ(line(4), ">   azur                     v");
}

TEST_F(ListOnATerminal, SpeaksTheLanguageOfItsTexts) {
  runtime::BuiltInStringTable japanese("ja");
  const InstalledPlatform platform({.texts = &japanese});
  joinTo("家");
  showList({"家", "茶室"}, {24, 8});
  EXPECT_EQ(terminal->frame().text(),
            " Wi-Fi診断       [次へ]\n"
            " 選択したネットワーク\n"
            "  ✓ 家\n"
            " ネットワークを選択\n"
            "›   茶室\n"
            "    その他…\n"
            "\n"
            " Enter 選択  n 次へ\n");
}

}  // namespace
}  // namespace wifi_profile::terminal
