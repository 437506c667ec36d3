// How a process ends.

#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <gtest/gtest.h>
#include <new>
#include <system_error>
#include <thread>

#include "app/cli/LastResort.h"
#include "app/cli/Program.h"
#include "devices/linux/Workers.h"

namespace wifi_profile::cli {
namespace {

// The process ends with 1 when it is tidied up, and else with the status 7.
[[noreturn]] void end() {
  std::atexit([] { std::_Exit(1); });
  std::exit(endWith(7));
}

TEST(EndTest, TidiesUpWhenNoWorkerIsBusy) { EXPECT_EXIT(end(), ::testing::ExitedWithCode(1), ""); }

TEST(EndTest, NeitherWaitsForAWorkerThatIsStuckNorTidiesUpBesideIt) {
  const auto endBesideAWorker = [] {
    linux::Workers::shared().run([] { std::this_thread::sleep_for(std::chrono::hours(1)); });
    end();
  };
  EXPECT_EXIT(endBesideAWorker(), ::testing::ExitedWithCode(7), "");
}

TEST(EndTest, SaysWhatTheSystemLacksWhereNothingElseDoes) {
  const auto lackMemory = [] {
    installLastResort();
    std::thread([] { throw std::bad_alloc(); }).join();
  };
  EXPECT_EXIT(lackMemory(), ::testing::ExitedWithCode(71),
              "^wifi-profile: out of resources: no memory; close");
  const auto lackThreads = [] {
    installLastResort();
    std::thread([] { throw std::system_error(EAGAIN, std::generic_category()); }).join();
  };
  EXPECT_EXIT(lackThreads(), ::testing::ExitedWithCode(71), "temporarily unavailable; close");
}

}  // namespace
}  // namespace wifi_profile::cli
