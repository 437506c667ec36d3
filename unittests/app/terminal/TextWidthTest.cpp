// Texts in columns, whatever a network calls itself.

#include <gtest/gtest.h>

#include "app/terminal/TerminalFixture.h"
#include "app/terminal/TextWidth.h"

namespace wifi_profile::terminal {
namespace {

class TextsInColumns : public ::testing::Test {
 protected:
  TextsInColumns() { useWidthsOfUtf8(); }

  static std::string shown(std::string_view text) { return textOf(glyphsOf(text)); }
  static int width(std::string_view text) { return widthOf(glyphsOf(text)); }
  static std::string cut(std::string_view text, int columns) {
    return textOf(fitted(glyphsOf(text), columns, U'…'));
  }
  static std::vector<std::string> lines(std::string_view text, int columns) {
    std::vector<std::string> texts;
    for (const Glyphs& line : wrapped(glyphsOf(text), columns)) texts.push_back(textOf(line));
    return texts;
  }
};

using Lines = std::vector<std::string>;

TEST_F(TextsInColumns, AreAsWideAsTheirCharacters) {
  EXPECT_EQ(width(""), 0);
  EXPECT_EQ(width("Café"), 4);
  EXPECT_EQ(width("茶室"), 4);
  EXPECT_EQ(width("📶x"), 3);
  EXPECT_EQ(width("مقهى"), 4);
}

TEST_F(TextsInColumns, CarryMarksWithoutWidth) {
  EXPECT_EQ(width("e\u0301"), 1);
  EXPECT_EQ(shown("e\u0301x"), "e\u0301x");
}

TEST_F(TextsInColumns, KeepFourMarksOnACharacterAndDropTheRest) {
  std::string tower = "Z";
  for (int i = 0; i < 30; ++i) tower += "\u0301";
  EXPECT_EQ(shown(tower + "a"), "Z\u0301\u0301\u0301\u0301a");
  EXPECT_EQ(width(tower + "a"), 2);
}

TEST_F(TextsInColumns, PutAMarkWithoutACharacterOnABlank) {
  EXPECT_EQ(shown("\u0301x"), " \u0301x");
  EXPECT_EQ(width("\u0301x"), 2);
}

TEST_F(TextsInColumns, LeaveOutWhatTerminalsDisagreeOn) {
  EXPECT_EQ(shown("a\u200Db\u200Cc\uFE0Fd"), "abcd");
  EXPECT_EQ(shown("👍\U0001F3FD"), "👍");
}

TEST_F(TextsInColumns, ShowControlsBadBytesAndUnknownCharactersAsCodes) {
  EXPECT_EQ(shown("a\x1b[2Jb"), "a\\u{1B}[2Jb");
  EXPECT_EQ(shown("a\xff"), "a\\xFF");
  EXPECT_EQ(shown("\u202Eabc"), "\\u{202E}abc");
  EXPECT_EQ(shown("x\U000E0100"), "x\\u{E0100}");
  EXPECT_EQ(shown("\u0378"), "\\u{378}");
  EXPECT_EQ(width("\u0378"), 7);
}

TEST_F(TextsInColumns, EndWithAnEllipsisWhereTheyAreTooLong) {
  EXPECT_EQ(cut("Werkstatt", 9), "Werkstatt");
  EXPECT_EQ(cut("Werkstatt", 8), "Werksta…");
  EXPECT_EQ(cut("Werkstatt", 1), "…");
  EXPECT_EQ(cut("Werkstatt", 0), "");
  EXPECT_EQ(cut("Werkstatt", -3), "");
}

TEST_F(TextsInColumns, AreNotCutWithinAWideCharacter) {
  EXPECT_EQ(cut("茶室茶室", 6), "茶室…");
  EXPECT_EQ(cut("茶室茶室", 7), "茶室茶…");
  EXPECT_EQ(cut("e\u0301e\u0301e\u0301", 2), "e\u0301…");
}

TEST_F(TextsInColumns, BreakBetweenWords) {
  EXPECT_EQ(lines("Enter the name of another network.", 16),
            (Lines{"Enter the name", "of another", "network."}));
  EXPECT_EQ(lines("aa bb", 5), Lines{"aa bb"});
  EXPECT_EQ(lines("aa  bb", 4), (Lines{"aa", "bb"}));
  EXPECT_EQ(lines("", 4), Lines{""});
}

TEST_F(TextsInColumns, BreakLongWordsAnywhere) {
  EXPECT_EQ(lines("abcdefgh ij", 3), (Lines{"abc", "def", "gh", "ij"}));
}

TEST_F(TextsInColumns, BreakBesideWideCharacters) {
  EXPECT_EQ(lines("ネットワーク", 5), (Lines{"ネッ", "トワ", "ーク"}));
  EXPECT_EQ(lines("Wi-Fiを確認", 7), (Lines{"Wi-Fiを", "確認"}));
}

}  // namespace
}  // namespace wifi_profile::terminal
