// The editing of one line.

#include "app/terminal/TerminalFixture.h"
#include "app/terminal/TextEdit.h"

namespace wifi_profile::terminal {
namespace {

class EditedLine : public ::testing::Test {
 protected:
  EditedLine() { useWidthsOfUtf8(); }

  void type(std::string_view characters) {
    for (const char c : characters) text = edited(text, typed(std::string(1, c)));
  }
  void press(Key::Name name, int times = 1) {
    for (; times > 0; --times) text = edited(text, {name, ""});
  }
  // With the caret.
  std::string shown() const {
    std::string marked = text.text;
    return marked.insert(text.caret, "|");
  }
  EditedText text;
};

using Name = Key::Name;

TEST_F(EditedLine, TakesCharactersAtTheCaret) {
  type("ab");
  press(Name::left);
  text = edited(text, typed("茶"));
  EXPECT_EQ(shown(), "a茶|b");
}

TEST_F(EditedLine, MovesTheCaretWithinTheText) {
  type("abc");
  press(Name::left, 5);
  EXPECT_EQ(shown(), "|abc");
  press(Name::right);
  EXPECT_EQ(shown(), "a|bc");
  press(Name::end);
  press(Name::right);
  EXPECT_EQ(shown(), "abc|");
  press(Name::home);
  EXPECT_EQ(shown(), "|abc");
}

TEST_F(EditedLine, ErasesBeforeAndUnderTheCaret) {
  type("abcd");
  press(Name::left, 2);
  press(Name::backspace);
  EXPECT_EQ(shown(), "a|cd");
  press(Name::erase);
  EXPECT_EQ(shown(), "a|d");
  press(Name::home);
  press(Name::backspace);
  press(Name::end);
  press(Name::erase);
  EXPECT_EQ(shown(), "ad|");
}

TEST_F(EditedLine, TakesACharacterAndItsMarksAsOne) {
  text = edited(text, {Name::paste, "e\u0301x"});
  press(Name::left, 2);
  EXPECT_EQ(shown(), "|e\u0301x");
  press(Name::right);
  EXPECT_EQ(shown(), "e\u0301|x");
  press(Name::backspace);
  EXPECT_EQ(shown(), "|x");
}

TEST_F(EditedLine, ErasesToItsStart) {
  type("ab cd");
  press(Name::left);
  press(Name::eraseToStart);
  EXPECT_EQ(shown(), "|d");
}

TEST_F(EditedLine, ErasesAWord) {
  type("Haus am See  ");
  press(Name::eraseWord);
  EXPECT_EQ(shown(), "Haus am |");
  press(Name::eraseWord, 3);
  EXPECT_EQ(shown(), "|");
}

TEST_F(EditedLine, DropsControlsFromWhatIsPasted) {
  text = edited(text, {Name::paste, "Haus\n am\x1b See\u0085"});
  EXPECT_EQ(shown(), "Haus am See|");
}

TEST_F(EditedLine, StaysAsItIsAtOtherKeys) {
  type("ab");
  press(Name::enter);
  press(Name::up);
  EXPECT_EQ(shown(), "ab|");
}

}  // namespace
}  // namespace wifi_profile::terminal
