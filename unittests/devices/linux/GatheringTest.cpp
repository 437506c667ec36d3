#include <atomic>
#include <gtest/gtest.h>
#include <memory>
#include <pthread.h>
#include <stdexcept>
#include <thread>

#include "devices/linux/Gathering.h"

namespace wifi_profile::linux {
namespace {

using facts::Fact;
using facts::Facts;
using std::chrono::milliseconds;

// Longer than anything here takes, even on a machine that is busy with something else.
constexpr milliseconds kAmple{60'000};

Found linkTo(const std::string& ssid) {
  return [ssid](facts::Facts& facts) { facts.link = facts::Link{.ssid = ssid}; };
}

Errand linkErrand(const std::string& ssid) {
  return {.name = "link",
          .gives = {facts::Fact::link},
          .after = {},
          .limit = kAmple,
          .run = [ssid](const facts::Facts&, const Patience&) { return linkTo(ssid); }};
}

// Waits until it is called off, or for its deadline.
Errand waiting(checks::FactSet gives, milliseconds limit, std::atomic<int>* begun = nullptr) {
  return {.name = "long wait",
          .gives = gives,
          .after = {},
          .limit = limit,
          .run = [begun](const facts::Facts&, const Patience& patience) -> Found {
            if (begun) ++*begun;
            waitFor(-1, 0, patience);
            return [](facts::Facts&) {};
          }};
}

TEST(Gathering, FindsWhatIsAwaited) {
  Gathering gathering({linkErrand("Home")});
  const auto facts = gathering.await({facts::Fact::link});
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->link->ssid, "Home");
}

TEST(Gathering, DoesEveryErrandOnce) {
  std::atomic<int> times = 0;
  Errand errand = linkErrand("Home");
  errand.run = [&](const facts::Facts&, const Patience&) {
    ++times;
    return linkTo("Home");
  };
  Gathering gathering({errand});
  gathering.begin({facts::Fact::link});
  gathering.await({facts::Fact::link});
  gathering.await({facts::Fact::link});
  EXPECT_EQ(times, 1);
}

TEST(Gathering, DoesNotDoWhatNobodyWants) {
  std::atomic<int> begun = 0;
  Gathering gathering({linkErrand("Home"), waiting({facts::Fact::scan}, kAmple, &begun)});
  gathering.await({facts::Fact::link});
  EXPECT_EQ(begun, 0);
}

TEST(Gathering, GivesAnErrandWhatItComesAfter) {
  Errand pings{.name = "pings",
               .gives = {facts::Fact::lanPings},
               .after = {facts::Fact::link},
               .limit = kAmple,
               .run = [](const facts::Facts& known, const Patience&) -> Found {
                 return [target = known.link->ssid](facts::Facts& facts) {
                   facts.lanPings = facts::Pings{.target = target};
                 };
               }};
  Gathering gathering({pings, linkErrand("Home")});
  const auto facts = gathering.await({facts::Fact::lanPings});
  EXPECT_EQ(facts->lanPings->target, "Home");
}

TEST(Gathering, WhatNoErrandGivesIsNotKnown) {
  Gathering gathering({});
  const auto facts = gathering.await({facts::Fact::scan});
  ASSERT_TRUE(facts);
  EXPECT_FALSE(facts->scan);
}

TEST(Gathering, ErrandsGoOnSideBySide) {
  std::atomic<int> begun = 0;
  Gathering gathering({waiting({facts::Fact::lanPings}, kAmple, &begun),
                       waiting({facts::Fact::wanPings}, kAmple, &begun), linkErrand("Home")});
  gathering.begin({facts::Fact::lanPings, facts::Fact::wanPings});
  EXPECT_TRUE(gathering.await({facts::Fact::link})->link);
  while (begun < 2) std::this_thread::yield();
}

TEST(Gathering, AnErrandThatIsLateIsLeftBehind) {
  std::atomic<bool> go = false;
  Errand late{.name = "page of the site",
              .gives = {facts::Fact::sitePage, facts::Fact::siteReach},
              .after = {},
              .limit = milliseconds(1),
              .run = [&go](const facts::Facts&, const Patience&) -> Found {
                while (!go) std::this_thread::yield();  // looks neither at the clock nor around
                return [](facts::Facts& facts) {
                  facts.sitePage = facts::SitePage{.retrieved = true};
                };
              }};
  Gathering gathering({late});
  const auto facts = gathering.await({facts::Fact::sitePage});
  go = true;
  ASSERT_TRUE(facts);
  ASSERT_FALSE(facts->sitePage);
  EXPECT_EQ(facts->sitePage.error().reason, Reason::tookTooLong);
  EXPECT_EQ(facts->sitePage.error().message,
            "The page of the site took too long: try again in a while.");
  EXPECT_EQ(facts->siteReach.error().reason, Reason::tookTooLong);
  EXPECT_FALSE(gathering.await({facts::Fact::sitePage})->sitePage);  // whatever comes later
}

TEST(Gathering, ACancelLetsEverybodyGoOn) {
  std::atomic<int> begun = 0;
  Gathering gathering({waiting({facts::Fact::scan}, kAmple, &begun)});
  std::optional<facts::Facts> facts{std::in_place};
  std::thread waiter([&] { facts = gathering.await({facts::Fact::scan}); });
  while (begun == 0) std::this_thread::yield();
  gathering.cancel();
  waiter.join();
  EXPECT_FALSE(facts);
  EXPECT_FALSE(gathering.await({facts::Fact::scan}));
}

TEST(Gathering, ACancelReachesThoseThatHaveNotBegun) {
  Errand second = linkErrand("never");
  second.gives = {facts::Fact::surveys};
  second.after = {facts::Fact::scan};
  std::atomic<int> begun = 0;
  Gathering gathering({waiting({facts::Fact::scan}, kAmple, &begun), second});
  gathering.begin({facts::Fact::surveys});
  while (begun == 0) std::this_thread::yield();
  gathering.cancel();
  EXPECT_FALSE(gathering.await({facts::Fact::surveys}));
}

// While it lives, no thread can be had: there is no room for a stack.
class NoThreads {
 public:
  NoThreads() {
    pthread_getattr_default_np(&before_);
    pthread_attr_t huge;
    pthread_attr_init(&huge);
    pthread_attr_setstacksize(&huge, std::size_t{1} << 47U);
    pthread_setattr_default_np(&huge);
    pthread_attr_destroy(&huge);
  }
  ~NoThreads() {
    pthread_setattr_default_np(&before_);
    pthread_attr_destroy(&before_);
  }
  NoThreads(const NoThreads&) = delete;
  NoThreads& operator=(const NoThreads&) = delete;

 private:
  pthread_attr_t before_{};
};

TEST(Gathering, AnErrandWithoutAThreadFails) {
  Errand second = linkErrand("never");
  second.gives = {facts::Fact::surveys};
  second.after = {facts::Fact::link};
  Gathering gathering({linkErrand("Home"), second});
  std::optional<facts::Facts> facts;
  {
    const NoThreads none;
    facts = gathering.await({facts::Fact::link, facts::Fact::surveys});
  }
  ASSERT_TRUE(facts);
  ASSERT_FALSE(facts->link);
  EXPECT_EQ(facts->link.error().reason, Reason::failed);
  EXPECT_NE(facts->link.error().message.find("no threads left"), std::string::npos);
  EXPECT_EQ(facts->surveys.error(), facts->link.error());
  EXPECT_FALSE(gathering.await({facts::Fact::link})->link);  // whatever there is later
}

TEST(Gathering, ItsEndCallsOffWhatIsUnderWay) {
  std::atomic<int> begun = 0;
  {
    Gathering gathering({waiting({facts::Fact::scan}, kAmple, &begun)});
    gathering.begin({facts::Fact::scan});
    while (begun == 0) std::this_thread::yield();
  }
  EXPECT_EQ(begun, 1);
}

TEST(Gathering, ItsEndWaitsForNoErrandThatIsStuck) {
  const auto go = std::make_shared<std::atomic<bool>>(false);
  const auto over = std::make_shared<std::atomic<bool>>(false);
  const auto used = std::make_shared<int>(0);
  auto gathering = std::make_unique<Gathering>(
      std::vector{Errand{.name = "page of the site",
                         .gives = {facts::Fact::sitePage},
                         .after = {},
                         .limit = milliseconds(1),
                         .run =
                             [go](const facts::Facts&, const Patience&) {
                               while (!*go) std::this_thread::yield();
                               return linkTo("late");
                             }}},
      std::shared_ptr<const void>(used.get(), [used, over](const void*) { *over = true; }));
  gathering->await({facts::Fact::sitePage});
  const auto began = Clock::now();
  gathering.reset();
  EXPECT_LT(Clock::now() - began, milliseconds(5'000));
  EXPECT_FALSE(*over);  // the errand still uses it
  *go = true;
  while (!*over) std::this_thread::yield();
}

TEST(Gathering, AnExceptionIsTheFailureOfItsErrand) {
  Errand throwing = linkErrand("Home");
  throwing.run = [](const facts::Facts&, const Patience&) -> Found {
    throw std::runtime_error("no room");
  };
  Errand worse = linkErrand("Home");
  worse.gives = {facts::Fact::scan};
  worse.run = [](const facts::Facts&, const Patience&) -> Found { throw 1; };
  Errand late = linkErrand("Home");
  late.gives = {facts::Fact::surveys};
  late.run = [](const facts::Facts&, const Patience&) -> Found {
    return [](facts::Facts&) { throw std::runtime_error("no room"); };
  };
  Gathering gathering({throwing, worse, late});
  const auto facts = gathering.await({facts::Fact::link, facts::Fact::scan, facts::Fact::surveys});
  ASSERT_TRUE(facts);
  EXPECT_EQ(
      facts->link.error(),
      (Error{Reason::failed, "The link failed (no room): close other programs, and try again."}));
  EXPECT_EQ(facts->scan.error().reason, Reason::failed);
  EXPECT_EQ(facts->surveys.error().reason, Reason::failed);
}

}  // namespace
}  // namespace wifi_profile::linux
