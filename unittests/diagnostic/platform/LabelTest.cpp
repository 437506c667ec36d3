// The size of a text.

#include "diagnostic/platform/toolkit/Label.h"
#include "support/DiagnosticFixture.h"

namespace wifi_profile::toolkit {
namespace {

class Labels : public DiagnosticFixture {
 protected:
  // Of a text in characters 5 points wide and lines 12 points high.
  static Size sizeWithin(double width, int lines, const char* text) {
    Label label;
    label.systemFontSize = 10;
    label.preferredMaxLayoutWidth = width;
    label.numberOfLines = lines;
    label.text = makeText(text);
    return *label.intrinsicContentSize();
  }
};

TEST_F(Labels, AreHalfAsWideAsTheFontIsHighForEachCharacter) {
  EXPECT_EQ(widthOfText("", 13), 0);
  EXPECT_EQ(widthOfText("abc", 13), 19.5);
  EXPECT_EQ(widthOfText("Café", 13), 26);
}

TEST_F(Labels, AreAsWideAsTheFontIsHighFromTheWideScriptsOn) {
  EXPECT_EQ(widthOfText("\u10FF", 13), 6.5);
  EXPECT_EQ(widthOfText("\u1100", 13), 13);
  EXPECT_EQ(widthOfText("無線", 13), 26);
  EXPECT_EQ(widthOfText("\U0001F4F6", 13), 13);
}

TEST_F(Labels, CountEachByteThatIsNoTextAsANarrowCharacter) {
  EXPECT_EQ(widthOfText("\xFF\xFE", 10), 10);
  EXPECT_EQ(widthOfText("a\xE7\x84", 10), 15);  // a wide character cut short
}

TEST_F(Labels, HaveLinesOneFifthHigherThanTheFontRoundedUp) {
  EXPECT_EQ(heightOfLine(10), 12);
  EXPECT_EQ(heightOfLine(13), 16);
  EXPECT_EQ(heightOfLine(17), 21);
  EXPECT_EQ(heightOfLine(27), 33);
}

TEST_F(Labels, AreOneLineHighWithoutAText) {
  const Label label;
  EXPECT_EQ(label.intrinsicContentSize(), (Size{0, 21}));
}

TEST_F(Labels, StandOnOneLineWithoutAWidthToKeepTo) {
  EXPECT_EQ(sizeWithin(0, 3, "one two three"), (Size{65, 12}));
  EXPECT_EQ(sizeWithin(65, 3, "one two three"), (Size{65, 12}));
}

TEST_F(Labels, BreakAtBlanksWhereALineIsFull) {
  EXPECT_EQ(sizeWithin(64, 3, "one two three"), (Size{64, 24}));
  EXPECT_EQ(sizeWithin(35, 3, "one two three"), (Size{35, 24}));  // "one two" fits exactly
  EXPECT_EQ(sizeWithin(34, 3, "one two three"), (Size{34, 36}));
}

TEST_F(Labels, TakeNoMoreLinesThanTheyMay) {
  EXPECT_EQ(sizeWithin(15, 1, "one two six ten"), (Size{15, 12}));
  EXPECT_EQ(sizeWithin(15, 3, "one two six ten"), (Size{15, 36}));
  EXPECT_EQ(sizeWithin(15, 4, "one two six ten"), (Size{15, 48}));
}

TEST_F(Labels, GiveAWordThatIsTooWideALineOfItsOwn) {
  EXPECT_EQ(sizeWithin(20, 9, "incredible"), (Size{20, 12}));
  EXPECT_EQ(sizeWithin(20, 9, "an incredible it"), (Size{20, 36}));
}

TEST_F(Labels, BreakWideCharactersByTheirWidth) {
  EXPECT_EQ(sizeWithin(45, 9, "無線 接続"), (Size{45, 12}));
  EXPECT_EQ(sizeWithin(44, 9, "無線 接続"), (Size{44, 24}));
}

TEST_F(Labels, TakeTheSizeOfTheirTextAndStayInPlace) {
  Label label({{3, 4}, {500, 500}});
  label.systemFontSize = 13;
  label.text = makeText("CHOOSE_NETWORK");
  label.sizeToFit();
  EXPECT_EQ(label.frame(), (Rect{{3, 4}, {91, 16}}));
}

}  // namespace
}  // namespace wifi_profile::toolkit
