// Queues in real time. Waits are short, and no check says that something came soon.

#include <future>
#include <latch>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "runtime/RunLoopContract.h"
#include "runtime/ThreadRunLoop.h"

namespace wifi_profile::runtime {
namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

INSTANTIATE_TYPED_TEST_SUITE_P(OfThreads, RunLoopContract, ThreadRunLoop);

const std::atomic<bool> kUncut = false;

TEST(ThreadRunLoops, DoNotRunDelayedWorkTooEarly) {
  ThreadRunLoop loop;
  const auto posted = steady_clock::now();
  std::atomic<steady_clock::time_point> ran{};
  loop.postToGlobalAfter(milliseconds(20), [&] { ran = steady_clock::now(); });
  loop.runUntilIdle();
  EXPECT_GE(ran.load() - posted, milliseconds(20));
}

TEST(ThreadRunLoops, DoNotEndAPauseTooEarly) {
  ThreadRunLoop loop;
  std::atomic<steady_clock::duration> paused{};
  loop.postToGlobal([&] {
    const auto begin = steady_clock::now();
    loop.pause(milliseconds(20), kUncut);
    paused = steady_clock::now() - begin;
  });
  loop.postToGlobalAfter(milliseconds(5), [&] { loop.cutPauses(); });
  loop.runUntilIdle();
  EXPECT_GE(paused.load(), milliseconds(20));
}

TEST(ThreadRunLoops, HoldNoWorkerForADelay) {
  ThreadRunLoop loop(1);
  std::vector<std::string> order;  // by the one worker
  loop.postToGlobalAfter(std::chrono::hours(1), [&] { order.push_back("delayed"); });
  loop.postToGlobal([&] {
    order.push_back("meanwhile");
    loop.hurry();
  });
  loop.runUntilIdle();
  EXPECT_EQ(order, (std::vector<std::string>{"meanwhile", "delayed"}));
}

TEST(ThreadRunLoops, RunGlobalWorkSideBySide) {
  ThreadRunLoop loop(2);
  std::latch bothAreUnderWay(2);
  std::atomic<int> met = 0;
  for (int i = 0; i < 2; ++i) {
    loop.postToGlobal([&] {
      bothAreUnderWay.arrive_and_wait();
      ++met;
    });
  }
  loop.runUntilIdle();
  EXPECT_EQ(met, 2);
}

TEST(ThreadRunLoops, HaveAtLeastOneWorker) {
  ThreadRunLoop loop(0);
  std::atomic<bool> ran = false;
  loop.postToGlobal([&] { ran = true; });
  loop.runUntilIdle();
  EXPECT_TRUE(ran);
}

TEST(ThreadRunLoops, EndDelaysAndPausesUnderWayWhenHurried) {
  ThreadRunLoop loop;
  std::atomic<int> ran = 0;
  std::latch pauseIsNear(1);
  loop.postToGlobalAfter(std::chrono::hours(1), [&] { ++ran; });
  loop.postToGlobal([&] {
    pauseIsNear.count_down();
    loop.pause(std::chrono::hours(1), kUncut);
    ++ran;
  });
  loop.postToGlobal([&] {
    pauseIsNear.wait();
    loop.hurry();
  });
  loop.runUntilIdle();
  EXPECT_EQ(ran, 2);
}

TEST(ThreadRunLoops, WaitForNothingOnceHurried) {
  ThreadRunLoop loop;
  loop.hurry();
  std::atomic<int> ran = 0;
  loop.postToGlobalAfter(std::chrono::hours(1), [&] {
    EXPECT_FALSE(loop.onMainThread());
    ++ran;
  });
  loop.postToGlobal([&] {
    loop.pause(std::chrono::hours(1), kUncut);
    ++ran;
  });
  loop.runUntilIdle();
  EXPECT_EQ(ran, 2);
}

TEST(ThreadRunLoops, InAHurryDelayedWorkComesAfterWhatTheMainQueueHas) {
  ThreadRunLoop loop;
  std::mutex mutex;
  std::vector<std::string> order;
  const auto note = [&](const char* what) {
    return [&, what] {
      const std::lock_guard lock(mutex);
      order.emplace_back(what);
    };
  };
  loop.postToGlobalAfter(std::chrono::hours(1), note("delayed"));
  loop.postToMain(note("main"));
  loop.hurry();
  loop.postToGlobalAfter(std::chrono::hours(1), note("delayed"));
  std::this_thread::sleep_for(milliseconds(50));  // the workers have time for mistakes
  loop.runUntilIdle();
  EXPECT_EQ(order, (std::vector<std::string>{"main", "delayed", "delayed"}));
}

TEST(ThreadRunLoops, FinishTheirWorkInAHurryBeforeTheyEnd) {
  std::atomic<int> ran = 0;
  {
    ThreadRunLoop loop;
    loop.postToGlobalAfter(std::chrono::hours(1), [&] { loop.postToMain([&] { ++ran; }); });
    loop.postToGlobal([&] { ++ran; });
  }
  EXPECT_EQ(ran, 2);
}

TEST(ThreadRunLoops, KeepCountUnderManyPosts) {
  ThreadRunLoop loop;
  std::atomic<int> global = 0;
  int main = 0;
  for (int i = 0; i < 500; ++i) {
    loop.postToGlobal([&] {
      ++global;
      loop.postToMain([&] { ++main; });
    });
  }
  loop.runUntilIdle();
  EXPECT_EQ(global, 500);
  EXPECT_EQ(main, 500);
}

}  // namespace
}  // namespace wifi_profile::runtime
