#include <csignal>
#include <future>
#include <gtest/gtest.h>
#include <thread>

#include "runtime/Interrupts.h"

namespace wifi_profile::runtime {
namespace {

TEST(InterruptsTest, TellsOfEachOnAThreadOfItsOwn) {
  std::promise<std::thread::id> first;
  std::promise<std::thread::id> second;
  int interrupts = 0;
  const Interrupts watch(
      [&] { (++interrupts == 1 ? first : second).set_value(std::this_thread::get_id()); });
  std::raise(SIGINT);
  const std::thread::id where = first.get_future().get();
  EXPECT_NE(where, std::this_thread::get_id());
  std::raise(SIGTERM);
  EXPECT_EQ(second.get_future().get(), where);
}

TEST(InterruptsTest, LeavesAnIgnoredSignalIgnored) {
  const auto before = std::signal(SIGHUP, SIG_IGN);
  {
    const Interrupts watch([] { FAIL() << "SIGHUP was to be ignored"; });
    std::raise(SIGHUP);
    EXPECT_EQ(std::signal(SIGHUP, SIG_IGN), SIG_IGN);
  }
  std::signal(SIGHUP, before);
}

}  // namespace
}  // namespace wifi_profile::runtime
