// How a screen that draws nothing grants layout passes.

#include <gtest/gtest.h>

#include "diagnostic/platform/WorkQueues.h"
#include "diagnostic/platform/toolkit/ViewController.h"
#include "runtime/NoScreen.h"
#include "runtime/VirtualTimeRunLoop.h"

namespace wifi_profile::runtime {
namespace {

class CountingController final : public toolkit::ViewController {
 public:
  int passes = 0;
  void updateViewConstraints() override { ++passes; }
};

class NoScreens : public ::testing::Test {
 protected:
  const std::shared_ptr<VirtualTimeRunLoop> queues = std::make_shared<VirtualTimeRunLoop>();
  const std::shared_ptr<NoScreen> screen = std::make_shared<NoScreen>();
  const std::shared_ptr<CountingController> controller = std::make_shared<CountingController>();

 private:
  const InstalledPlatform platform_{{.queues = queues.get(), .screen = screen.get()}};
};

TEST_F(NoScreens, GrantAPassAsWorkOnTheMainQueue) {
  screen->needsLayout(controller);
  EXPECT_EQ(controller->passes, 0);
  queues->runUntilIdle();
  EXPECT_EQ(controller->passes, 1);
}

TEST_F(NoScreens, GrantWishesThatComeTogetherWithOnePass) {
  for (int i = 0; i < 3; ++i) screen->needsLayout(controller);
  queues->runUntilIdle();
  EXPECT_EQ(controller->passes, 1);
}

TEST_F(NoScreens, GrantALaterWishWithAPassOfItsOwn) {
  for (int i = 0; i < 3; ++i) {
    screen->needsLayout(controller);
    queues->runUntilIdle();
  }
  EXPECT_EQ(controller->passes, 3);
}

}  // namespace
}  // namespace wifi_profile::runtime
