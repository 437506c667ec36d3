// The frames of all views of both screens, at several sizes.

#include "diagnostic/platform/toolkit/Label.h"
#include "diagnostic/platform/toolkit/NavigationBar.h"
#include "support/PickerFixture.h"

namespace wifi_profile {
namespace {

using toolkit::Rect;
using toolkit::Size;

struct ExpectedFrames {
  Size screen;
  Rect navigationBar;
  Rect table;
  Rect selectedHeader;
  Rect networksHeader;
  Rect message;  // of one line
  Rect messageOfThreeLines;
  Rect progressBar;
};

class Frames : public PickerFixture, public ::testing::WithParamInterface<ExpectedFrames> {
 protected:
  // The frames of the descendants of a view, each before those of its subviews.
  static void add(const toolkit::View& view, std::vector<Rect>& frames) {
    for (const auto& subview : view.subviews()) {
      frames.push_back(subview->frame());
      add(*subview, frames);
    }
  }
  std::vector<Rect> frames() const {
    std::vector<Rect> frames;
    add(*controller->view(), frames);
    return frames;
  }
  void startRun() {
    setUpController(makeInputs(nullptr));
    controller->start();
    controller->layOut();
  }

 private:
  runtime::NoScreen screen_{GetParam().screen};
  const InstalledPlatform platform_{{.screen = &screen_}};
};

TEST_P(Frames, OfThePicker) {
  joinTo("Home");
  nextScanHears({"Cafe", "Home", "Lab"});
  showPicker();
  controller->layOut();
  const auto& expected = GetParam();
  EXPECT_EQ(frames(), (std::vector<Rect>{expected.table,
                                         expected.networksHeader,
                                         {{18, 10}, {91, 16}},  // its text and its spinner
                                         {{119, 8}, {16, 16}},
                                         expected.selectedHeader,
                                         {{18, 10}, {104, 16}},  // its text
                                         expected.navigationBar}));
}

TEST_P(Frames, OfTheProgressScreen) {
  startRun();
  const auto& expected = GetParam();
  EXPECT_EQ(frames(),
            (std::vector{expected.message, expected.progressBar, expected.navigationBar}));
}

TEST_P(Frames, OfTheProgressScreenAfterThePicker) {
  showPicker();
  controller->nextTapped(nullptr);
  controller->layOut();
  const auto& expected = GetParam();
  EXPECT_EQ(frames(),
            (std::vector{expected.navigationBar, expected.message, expected.progressBar}));
}

TEST_P(Frames, OfALongMessageGrowUpwards) {
  startRun();
  controller->mainLabel()->text =
      makeText("One line of text and then another, and on to a third, and more than fits");
  controller->layOut();
  EXPECT_EQ(controller->mainLabel()->frame(), GetParam().messageOfThreeLines);
}

TEST_P(Frames, StayTheSameAtEveryPass) {
  startRun();
  const auto before = frames();
  for (int pass = 0; pass < 3; ++pass) controller->layOut();
  EXPECT_EQ(frames(), before);
}

TEST_P(Frames, FollowTheSizeOfTheViewAtTheNextPass) {
  startRun();
  controller->view()->setFrame({{0, 0}, {500, 400}});
  controller->layOut();
  EXPECT_EQ(frames(), (std::vector<Rect>{
                          {{20, 185}, {460, 36}}, {{130, 236}, {240, 2}}, {{0, 20}, {500, 44}}}));
}

const std::vector<ExpectedFrames> kScreens{
    {.screen = {320, 568},
     .navigationBar = {{0, 20}, {320, 44}},
     .table = {{0, 0}, {320, 568}},
     .selectedHeader = {{0, 0}, {320, 32.66}},
     .networksHeader = {{0, 94.66}, {320, 33}},
     .message = {{20, 269}, {280, 36}},
     .messageOfThreeLines = {{20, 206}, {280, 99}},
     .progressBar = {{40, 320}, {240, 2}}},
    {.screen = {375, 667},
     .navigationBar = {{0, 20}, {375, 44}},
     .table = {{0, 0}, {375, 667}},
     .selectedHeader = {{0, 0}, {375, 32.66}},
     .networksHeader = {{0, 94.66}, {375, 33}},
     .message = {{20, 318.5}, {335, 36}},
     .messageOfThreeLines = {{20, 255.5}, {335, 99}},
     .progressBar = {{67.5, 369.5}, {240, 2}}},
    {.screen = {768, 1024},
     .navigationBar = {{0, 20}, {768, 44}},
     .table = {{0, 0}, {768, 1024}},
     .selectedHeader = {{0, 0}, {768, 32.66}},
     .networksHeader = {{0, 94.66}, {768, 33}},
     .message = {{20, 497}, {728, 36}},
     .messageOfThreeLines = {{20, 434}, {728, 99}},
     .progressBar = {{264, 548}, {240, 2}}},
    {.screen = {301, 457},
     .navigationBar = {{0, 20}, {301, 44}},
     .table = {{0, 0}, {301, 457}},
     .selectedHeader = {{0, 0}, {301, 32.66}},
     .networksHeader = {{0, 94.66}, {301, 33}},
     .message = {{20, 213.5}, {261, 36}},
     .messageOfThreeLines = {{20, 150.5}, {261, 99}},
     .progressBar = {{30.5, 264.5}, {240, 2}}},
    // Too narrow for the constraints.
    {.screen = {30, 20},
     .navigationBar = {{0, 20}, {30, 44}},
     .table = {{0, 0}, {30, 20}},
     .selectedHeader = {{0, 0}, {30, 32.66}},
     .networksHeader = {{0, 94.66}, {30, 33}},
     .message = {{20, -5}, {-10, 36}},
     .messageOfThreeLines = {{20, -68}, {-10, 99}},
     .progressBar = {{-105, 46}, {240, 2}}},
};
INSTANTIATE_TEST_SUITE_P(Screens, Frames, ::testing::ValuesIn(kScreens), [](const auto& screen) {
  return std::to_string(static_cast<int>(screen.param.screen.width)) + "x" +
         std::to_string(static_cast<int>(screen.param.screen.height));
});

}  // namespace
}  // namespace wifi_profile
