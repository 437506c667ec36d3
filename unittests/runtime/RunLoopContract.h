// What every run loop promises. A file that tests one instantiates this suite for it.
#pragma once

#include <atomic>
#include <chrono>
#include <gtest/gtest.h>
#include <memory>
#include <thread>
#include <vector>

#include "runtime/RunLoop.h"

namespace wifi_profile::runtime {

template <class Loop>
class RunLoopContract : public ::testing::Test {
 protected:
  Loop loop;
};

TYPED_TEST_SUITE_P(RunLoopContract);

TYPED_TEST_P(RunLoopContract, RunsMainWorkOnTheMainThreadInOrder) {
  std::vector<int> order;
  for (int i = 0; i < 3; ++i) {
    this->loop.postToMain([&, i] {
      EXPECT_TRUE(this->loop.onMainThread());
      order.push_back(i);
    });
  }
  EXPECT_TRUE(order.empty());
  this->loop.runUntilIdle();
  EXPECT_EQ(order, (std::vector<int>{0, 1, 2}));
}

TYPED_TEST_P(RunLoopContract, RunsMainWorkThatMainWorkPosts) {
  std::vector<int> order;
  this->loop.postToMain([&] {
    this->loop.postToMain([&] { order.push_back(3); });
    order.push_back(1);
  });
  this->loop.postToMain([&] { order.push_back(2); });
  this->loop.runUntilIdle();
  EXPECT_EQ(order, (std::vector<int>{1, 2, 3}));
}

TYPED_TEST_P(RunLoopContract, RunsGlobalWorkInTheBackground) {
  std::atomic<int> ran = 0;
  for (int i = 0; i < 10; ++i) {
    this->loop.postToGlobal([&] {
      EXPECT_FALSE(this->loop.onMainThread());
      ++ran;
    });
  }
  this->loop.runUntilIdle();
  EXPECT_EQ(ran, 10);
}

TYPED_TEST_P(RunLoopContract, HandlesTheMainQueueWhileGlobalWorkGoesOn) {
  std::vector<int> order;
  this->loop.postToGlobal([&] {
    for (int i = 0; i < 3; ++i) {
      this->loop.postToMain([&, i] { order.push_back(i); });
    }
  });
  this->loop.runUntilIdle();
  EXPECT_EQ(order, (std::vector<int>{0, 1, 2}));
}

TYPED_TEST_P(RunLoopContract, RunsAwaitedWorkOnTheCallersThreadBeforeItReturns) {
  std::thread::id ranOn;
  this->loop.runOnGlobalAndWait([&] { ranOn = std::this_thread::get_id(); });
  EXPECT_EQ(ranOn, std::this_thread::get_id());
  std::atomic<bool> same = false;
  this->loop.postToGlobal([&] {
    const auto caller = std::this_thread::get_id();
    this->loop.runOnGlobalAndWait([&, caller] { same = std::this_thread::get_id() == caller; });
  });
  this->loop.runUntilIdle();
  EXPECT_TRUE(same);
}

TYPED_TEST_P(RunLoopContract, IsNotIdleBeforeDelayedWorkAndWhatItPostsHasRun) {
  std::vector<int> order;
  this->loop.postToGlobalAfter(std::chrono::milliseconds(5), [&] {
    EXPECT_FALSE(this->loop.onMainThread());
    this->loop.postToMain([&] {
      order.push_back(1);
      this->loop.postToGlobalAfter(std::chrono::milliseconds(1),
                                   [&] { this->loop.postToMain([&] { order.push_back(2); }); });
    });
  });
  this->loop.runUntilIdle();
  EXPECT_EQ(order, (std::vector<int>{1, 2}));
}

TYPED_TEST_P(RunLoopContract, WaitsForMainUntilWhatWasPostedBeforeIsHandled) {
  std::atomic<int> handled = 0;
  std::atomic<int> seen = -1;
  this->loop.postToGlobal([&] {
    for (int i = 0; i < 5; ++i) this->loop.postToMain([&] { ++handled; });
    this->loop.waitForMain();
    seen = handled.load();
  });
  this->loop.runUntilIdle();
  EXPECT_EQ(seen, 5);
}

TYPED_TEST_P(RunLoopContract, WaitsForMainOnTheMainThreadNotAtAll) {
  bool handled = false;
  this->loop.postToMain([&] { handled = true; });
  this->loop.waitForMain();
  EXPECT_FALSE(handled);
  this->loop.runUntilIdle();
  EXPECT_TRUE(handled);
}

TYPED_TEST_P(RunLoopContract, EndsAPauseThatIsCut) {
  std::atomic<bool> cut = false;
  std::atomic<bool> went = false;
  this->loop.postToGlobal([&] {
    this->loop.pause(std::chrono::hours(1), cut);
    went = true;
  });
  this->loop.postToGlobalAfter(std::chrono::milliseconds(5), [&] {
    cut = true;
    this->loop.cutPauses();
  });
  this->loop.runUntilIdle();
  EXPECT_TRUE(went);
}

TYPED_TEST_P(RunLoopContract, BeginsNoPauseThatIsCutAlready) {
  const std::atomic<bool> cut = true;
  bool went = false;
  this->loop.postToGlobal([&] {
    this->loop.pause(std::chrono::hours(1), cut);
    this->loop.postToMain([&] { went = true; });
  });
  this->loop.runUntilIdle();
  EXPECT_TRUE(went);
}

TYPED_TEST_P(RunLoopContract, LetsGoOfWhatWorkHeldOnceItHasRun) {
  auto held = std::make_shared<int>(0);
  const std::weak_ptr<int> watched = held;
  this->loop.postToMain([held] { ++*held; });
  this->loop.postToGlobal([held] {});
  this->loop.postToGlobalAfter(std::chrono::milliseconds(1), [held] {});
  held.reset();
  EXPECT_FALSE(watched.expired());
  this->loop.runUntilIdle();
  EXPECT_TRUE(watched.expired());
}

TYPED_TEST_P(RunLoopContract, IsIdleAtOnceWithNothingToDoAndAgainAfterWork) {
  this->loop.runUntilIdle();
  std::atomic<int> ran = 0;
  for (int round = 1; round <= 3; ++round) {
    this->loop.postToGlobal([&] { ++ran; });
    this->loop.runUntilIdle();
    EXPECT_EQ(ran, round);
  }
}

REGISTER_TYPED_TEST_SUITE_P(RunLoopContract, RunsMainWorkOnTheMainThreadInOrder,
                            RunsMainWorkThatMainWorkPosts, RunsGlobalWorkInTheBackground,
                            HandlesTheMainQueueWhileGlobalWorkGoesOn,
                            RunsAwaitedWorkOnTheCallersThreadBeforeItReturns,
                            IsNotIdleBeforeDelayedWorkAndWhatItPostsHasRun,
                            WaitsForMainUntilWhatWasPostedBeforeIsHandled,
                            WaitsForMainOnTheMainThreadNotAtAll, EndsAPauseThatIsCut,
                            BeginsNoPauseThatIsCutAlready, LetsGoOfWhatWorkHeldOnceItHasRun,
                            IsIdleAtOnceWithNothingToDoAndAgainAfterWork);

}  // namespace wifi_profile::runtime
