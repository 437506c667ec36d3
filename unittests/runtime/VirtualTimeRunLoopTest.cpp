#include <gmock/gmock.h>
#include <set>
#include <string>

#include "runtime/RunLoopContract.h"
#include "runtime/VirtualTimeRunLoop.h"

namespace wifi_profile::runtime {
namespace {

using std::chrono::milliseconds;
using ::testing::ElementsAre;

INSTANTIATE_TYPED_TEST_SUITE_P(OfVirtualTime, RunLoopContract, VirtualTimeRunLoop);

const std::atomic<bool> kUncut = false;

using Steps = std::vector<std::string>;

TEST(VirtualTime, StandsStillWhileAnythingCanRun) {
  VirtualTimeRunLoop loop;
  std::vector<std::chrono::nanoseconds> times;
  loop.postToGlobal([&] { times.push_back(loop.now()); });
  loop.postToMain([&] { times.push_back(loop.now()); });
  loop.runUntilIdle();
  EXPECT_THAT(times, ElementsAre(milliseconds(0), milliseconds(0)));
}

TEST(VirtualTime, JumpsToWhatIsDueNext) {
  VirtualTimeRunLoop loop;
  std::vector<std::chrono::nanoseconds> times;
  for (const int delay : {300, 100, 200}) {
    loop.postToGlobalAfter(milliseconds(delay), [&] { times.push_back(loop.now()); });
  }
  loop.runUntilIdle();
  EXPECT_THAT(times, ElementsAre(milliseconds(100), milliseconds(200), milliseconds(300)));
  EXPECT_EQ(loop.now(), milliseconds(300));
}

TEST(VirtualTime, BringsUpWhatIsDueTogetherInTheOrderOfPosting) {
  VirtualTimeRunLoop loop;
  std::vector<int> order;
  for (int i = 0; i < 4; ++i) {
    loop.postToGlobalAfter(milliseconds(10), [&, i] { order.push_back(i); });
  }
  loop.runUntilIdle();
  EXPECT_THAT(order, ElementsAre(0, 1, 2, 3));
}

TEST(VirtualTime, PassesInPausesAndCountsDelaysFromThen) {
  VirtualTimeRunLoop loop;
  std::chrono::nanoseconds end{};
  loop.postToGlobal([&] {
    loop.pause(std::chrono::hours(1), kUncut);
    EXPECT_EQ(loop.now(), std::chrono::hours(1));
    loop.postToGlobalAfter(milliseconds(500), [&] { end = loop.now(); });
  });
  loop.runUntilIdle();
  EXPECT_EQ(end, std::chrono::hours(1) + milliseconds(500));
}

TEST(VirtualTime, PassesInPausesOfTheMainThreadTooWhileOthersGoOn) {
  VirtualTimeRunLoop loop;
  Steps steps;
  loop.postToGlobal([&] { steps.push_back("global"); });
  loop.postToMain([&] {
    loop.pause(milliseconds(5), kUncut);
    steps.push_back("main");
  });
  loop.runUntilIdle();
  EXPECT_THAT(steps, ElementsAre("global", "main"));
  EXPECT_EQ(loop.now(), milliseconds(5));
}

TEST(VirtualTime, WithSeedZeroPrefersMainAndThenWhatBecameReadyFirst) {
  VirtualTimeRunLoop loop;
  Steps steps;
  loop.postToGlobal([&] {
    steps.push_back("first");
    loop.pause(milliseconds(1), kUncut);
    steps.push_back("first again");
  });
  loop.postToGlobal([&] {
    steps.push_back("second");
    loop.postToMain([&] { steps.push_back("main of second"); });
  });
  loop.postToGlobal([&] { steps.push_back("third"); });
  loop.postToMain([&] { steps.push_back("main"); });
  loop.runUntilIdle();
  EXPECT_THAT(steps,
              ElementsAre("main", "first", "second", "main of second", "third", "first again"));
}

TEST(VirtualTime, CutsOnlyThePausesWhoseFlagIsSet) {
  VirtualTimeRunLoop loop;
  std::atomic<bool> cut = false;
  std::chrono::nanoseconds cutAt{};
  std::chrono::nanoseconds uncutAt{};
  loop.postToGlobal([&] {
    loop.pause(milliseconds(1000), cut);
    cutAt = loop.now();
  });
  loop.postToGlobal([&] {
    loop.pause(milliseconds(1000), kUncut);
    uncutAt = loop.now();
  });
  loop.postToGlobalAfter(milliseconds(10), [&] {
    cut = true;
    loop.cutPauses();
  });
  loop.runUntilIdle();
  EXPECT_EQ(cutAt, milliseconds(10));
  EXPECT_EQ(uncutAt, milliseconds(1000));
}

TEST(VirtualTime, LeavesPausesAloneWhoseFlagIsSetButNobodyCutThem) {
  VirtualTimeRunLoop loop;
  std::atomic<bool> cut = false;
  loop.postToGlobal([&] { loop.pause(milliseconds(1000), cut); });
  loop.postToGlobalAfter(milliseconds(10), [&] { cut = true; });
  loop.runUntilIdle();
  EXPECT_EQ(loop.now(), milliseconds(1000));
}

TEST(VirtualTime, DoesNotPassInAPauseThatIsCutAlready) {
  VirtualTimeRunLoop loop;
  const std::atomic<bool> cut = true;
  loop.postToGlobal([&] { loop.pause(milliseconds(1000), cut); });
  loop.runUntilIdle();
  EXPECT_EQ(loop.now(), milliseconds(0));
}

TEST(VirtualTime, RunsOneThreadAtATime) {
  VirtualTimeRunLoop loop(7);
  int unguarded = 0;  // safe only because no two threads ever run together
  for (int i = 0; i < 8; ++i) {
    loop.postToGlobal([&] {
      for (int j = 0; j < 50; ++j) {
        ++unguarded;
        if (j % 10 == 0) loop.waitForMain();
      }
    });
  }
  loop.runUntilIdle();
  EXPECT_EQ(unguarded, 8 * 50);
}

// What happens in a busy run, step by step.
Steps busyRun(std::uint64_t seed) {
  VirtualTimeRunLoop loop(seed);
  Steps steps;
  for (int i = 0; i < 4; ++i) {
    const std::string name = std::to_string(i);
    loop.postToGlobal([&, name] {
      steps.push_back("begin " + name);
      loop.postToMain([&, name] { steps.push_back("main " + name); });
      loop.pause(milliseconds(1), kUncut);
      steps.push_back("go on " + name);
      loop.waitForMain();
      steps.push_back("end " + name);
    });
  }
  loop.runUntilIdle();
  return steps;
}

TEST(VirtualTime, RunsAlikeWithTheSameSeed) {
  for (std::uint64_t seed = 0; seed < 10; ++seed) EXPECT_EQ(busyRun(seed), busyRun(seed)) << seed;
}

TEST(VirtualTime, RunsDifferentlyWithOtherSeedsButAlwaysToTheEnd) {
  std::set<Steps> runs;
  for (std::uint64_t seed = 0; seed < 20; ++seed) {
    runs.insert(busyRun(seed));
    EXPECT_EQ(busyRun(seed).size(), 16U) << seed;
  }
  EXPECT_GT(runs.size(), 10U);
}

TEST(VirtualTime, FinishesItsWorkBeforeItEnds) {
  int ran = 0;
  {
    VirtualTimeRunLoop loop;
    loop.postToGlobalAfter(milliseconds(5), [&] { loop.postToMain([&] { ++ran; }); });
    loop.postToGlobal([&] { ++ran; });
  }
  EXPECT_EQ(ran, 2);
}

}  // namespace
}  // namespace wifi_profile::runtime
