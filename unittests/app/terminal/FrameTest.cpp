// The grid of characters.

#include "app/terminal/Frame.h"
#include "app/terminal/TerminalFixture.h"

namespace wifi_profile::terminal {
namespace {

class FrameOfCharacters : public ::testing::Test {
 protected:
  FrameOfCharacters() { useWidthsOfUtf8(); }
  Frame frame{{10, 3}};
};

TEST_F(FrameOfCharacters, IsBlankAtFirst) {
  EXPECT_EQ(frame.text(), "\n\n\n");
  EXPECT_TRUE(frame.spansOfLine(0).empty());
}

TEST_F(FrameOfCharacters, HoldsTextWhereItWasPut) {
  EXPECT_EQ(frame.put({1, 2}, "茶 x", Style::heading), 4);
  EXPECT_EQ(frame.text(), "\n  茶 x\n\n");
  EXPECT_EQ(frame.spansOfLine(1),
            (std::vector<Span>{{0, "  ", Style::plain}, {2, "茶 x", Style::heading}}));
}

TEST_F(FrameOfCharacters, KeepsNothingOfWhatLiesOutside) {
  frame.put({0, 8}, "abc", Style::plain);
  frame.put({0, -1}, "xy", Style::plain);
  frame.put({3, 0}, "below", Style::plain);
  frame.put({-1, 0}, "above", Style::plain);
  EXPECT_EQ(frame.text(), "y       ab\n\n\n");
}

TEST_F(FrameOfCharacters, HasNoRoomForHalfAWideCharacter) {
  frame.put({0, 9}, "茶", Style::plain);
  frame.put({1, -1}, "茶a", Style::plain);
  EXPECT_EQ(frame.text(), "\n a\n\n");
}

TEST_F(FrameOfCharacters, BlanksWhatIsLeftOfAWideCharacter) {
  frame.put({0, 0}, "茶室茶", Style::plain);
  frame.put({0, 1}, "x", Style::plain);
  frame.put({0, 4}, "y", Style::plain);
  EXPECT_EQ(frame.textOfLine(0), " x室y");
  EXPECT_EQ(frame.at({0, 5}), Cell{});
}

TEST_F(FrameOfCharacters, ShowsStyledBlanks) {
  frame.fill({2, 0}, 10, Style::title);
  frame.restyle({2, 4}, 2, Style::cursor);
  EXPECT_EQ(frame.spansOfLine(2),
            (std::vector<Span>{
                {0, "    ", Style::title}, {4, "  ", Style::cursor}, {6, "    ", Style::title}}));
  EXPECT_EQ(frame.textOfLine(2), "");
}

}  // namespace
}  // namespace wifi_profile::terminal
