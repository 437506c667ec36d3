// How a process ends.

#include <chrono>
#include <cstdlib>
#include <gtest/gtest.h>
#include <thread>

#include "devices/linux/LeftThreads.h"
#include "host/Program.h"

namespace wifi_profile {
namespace {

// The process ends with 1 when it is tidied up, and else with the status 7.
[[noreturn]] void end() {
  std::atexit([] { std::_Exit(1); });
  std::exit(endWith(7));
}

TEST(EndTest, TidiesUpWhenEveryThreadHasEnded) {
  EXPECT_EXIT(end(), ::testing::ExitedWithCode(1), "");
}

TEST(EndTest, NeitherWaitsForAThreadThatWasLeftBehindNorTidiesUpBesideIt) {
  const auto endBesideAThread = [] {
    machine::leaveBehind(std::thread([] { std::this_thread::sleep_for(std::chrono::hours(1)); }));
    end();
  };
  EXPECT_EXIT(endBesideAThread(), ::testing::ExitedWithCode(7), "");
}

}  // namespace
}  // namespace wifi_profile
