#include <atomic>
#include <filesystem>
#include <gtest/gtest.h>
#include <memory>
#include <pthread.h>
#include <stdexcept>
#include <thread>

#include "devices/linux/FactCollection.h"

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

FactTask linkTask(const std::string& ssid) {
  return {.name = "link",
          .gives = {facts::Fact::link},
          .after = {},
          .limit = kAmple,
          .run = [ssid](const facts::Facts&, const Deadline&) { return linkTo(ssid); }};
}

// Waits until it is called off, or for its deadline.
FactTask waiting(checks::FactSet gives, milliseconds limit, std::atomic<int>* begun = nullptr) {
  return {.name = "long wait",
          .gives = gives,
          .after = {},
          .limit = limit,
          .run = [begun](const facts::Facts&, const Deadline& deadline) -> Found {
            if (begun) ++*begun;
            sleepUntil(deadline);
            return [](facts::Facts&) {};
          }};
}

TEST(FactCollection, FindsWhatIsAwaited) {
  FactCollection collection({linkTask("Home")});
  const auto facts = collection.await({facts::Fact::link});
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->link->ssid, "Home");
}

TEST(FactCollection, DoesEveryTaskOnce) {
  std::atomic<int> times = 0;
  FactTask task = linkTask("Home");
  task.run = [&](const facts::Facts&, const Deadline&) {
    ++times;
    return linkTo("Home");
  };
  FactCollection collection({task});
  collection.begin({facts::Fact::link});
  collection.await({facts::Fact::link});
  collection.await({facts::Fact::link});
  EXPECT_EQ(times, 1);
}

TEST(FactCollection, DoesNotDoWhatNobodyWants) {
  std::atomic<int> begun = 0;
  FactCollection collection({linkTask("Home"), waiting({facts::Fact::scan}, kAmple, &begun)});
  collection.await({facts::Fact::link});
  EXPECT_EQ(begun, 0);
}

TEST(FactCollection, GivesAnTaskWhatItComesAfter) {
  FactTask pings{.name = "pings",
                 .gives = {facts::Fact::lanPings},
                 .after = {facts::Fact::link},
                 .limit = kAmple,
                 .run = [](const facts::Facts& known, const Deadline&) -> Found {
                   return [target = known.link->ssid](facts::Facts& facts) {
                     facts.lanPings = facts::Pings{.target = target};
                   };
                 }};
  FactCollection collection({pings, linkTask("Home")});
  const auto facts = collection.await({facts::Fact::lanPings});
  EXPECT_EQ(facts->lanPings->target, "Home");
}

TEST(FactCollection, WhatNoTaskGivesIsNotKnown) {
  FactCollection collection({});
  const auto facts = collection.await({facts::Fact::scan});
  ASSERT_TRUE(facts);
  EXPECT_FALSE(facts->scan);
}

TEST(FactCollection, TasksGoOnSideBySide) {
  std::atomic<int> begun = 0;
  FactCollection collection({waiting({facts::Fact::lanPings}, kAmple, &begun),
                             waiting({facts::Fact::wanPings}, kAmple, &begun), linkTask("Home")});
  collection.begin({facts::Fact::lanPings, facts::Fact::wanPings});
  EXPECT_TRUE(collection.await({facts::Fact::link})->link);
  while (begun < 2) std::this_thread::yield();
}

TEST(FactCollection, AnTaskThatIsLateIsLeftBehind) {
  const auto go = std::make_shared<std::atomic<bool>>(false);
  FactTask late{.name = "page of the site",
                .gives = {facts::Fact::sitePage, facts::Fact::siteReach},
                .after = {},
                .limit = milliseconds(1),
                .run = [go](const facts::Facts&, const Deadline&) -> Found {
                  while (!*go) std::this_thread::yield();  // looks neither at the clock nor around
                  return [](facts::Facts& facts) {
                    facts.sitePage = facts::SitePage{.retrieved = true};
                  };
                }};
  FactCollection collection({late});
  const auto facts = collection.await({facts::Fact::sitePage});
  *go = true;
  ASSERT_TRUE(facts);
  ASSERT_FALSE(facts->sitePage);
  EXPECT_EQ(facts->sitePage.error().reason, Reason::tookTooLong);
  EXPECT_EQ(facts->sitePage.error().message,
            "The page of the site took too long: try again in a while.");
  EXPECT_EQ(facts->siteReach.error().reason, Reason::tookTooLong);
  EXPECT_FALSE(collection.await({facts::Fact::sitePage})->sitePage);  // whatever comes later
}

TEST(FactCollection, TasksOfARequestThatWaitsComeFirst) {
  Workers workers(1);
  std::atomic<bool> go = false;
  FactTask first = linkTask("Home");
  first.run = [&go](const facts::Facts&, const Deadline&) {
    while (!go) std::this_thread::yield();
    return linkTo("Home");
  };
  FactTask begun = linkTask("begun");
  begun.gives = {facts::Fact::sitePage};
  std::atomic<bool> isBegun = false;
  begun.run = [&isBegun](const facts::Facts&, const Deadline& deadline) -> Found {
    isBegun = true;
    sleepUntil(deadline);
    return [](facts::Facts&) {};
  };
  FactTask after = linkTask("awaited");
  after.gives = {facts::Fact::surveys};
  after.after = {facts::Fact::scan};
  FactTask dependency = linkTask("dependency");
  dependency.gives = {facts::Fact::scan};
  FactCollection collection({first, begun, after, dependency}, nullptr, workers);
  collection.begin({facts::Fact::link});
  collection.begin({facts::Fact::sitePage});
  std::thread other([&go] {
    std::this_thread::sleep_for(milliseconds(20));
    go = true;
  });
  EXPECT_TRUE(collection.await({facts::Fact::surveys}));
  other.join();
  while (!isBegun) std::this_thread::yield();
}

TEST(FactCollection, HasNoMoreThreadsThanWorkers) {
  const auto threads = [] {
    const std::filesystem::directory_iterator tasks("/proc/self/task");
    return std::distance(begin(tasks), end(tasks));
  };
  std::thread([] {}).join();  // with it, a sanitizer starts a thread of its own
  const auto before = threads();
  Workers workers(2);
  std::vector<FactTask> tasks;
  for (const auto fact : {Fact::link, Fact::scan, Fact::surveys, Fact::radio, Fact::lanPings}) {
    tasks.push_back(waiting({fact}, milliseconds(10)));
  }
  FactCollection collection(tasks, nullptr, workers);
  EXPECT_TRUE(
      collection.await({Fact::link, Fact::scan, Fact::surveys, Fact::radio, Fact::lanPings}));
  EXPECT_EQ(threads(), before + 2);
}

TEST(FactCollection, ATaskThatWaitsForOthersOccupiesNoWorker) {
  Workers workers(1);
  FactTask second = linkTask("second");
  second.gives = {facts::Fact::surveys};
  second.after = {facts::Fact::link};
  FactCollection collection({second, linkTask("Home")}, nullptr, workers);
  EXPECT_TRUE(collection.await({facts::Fact::surveys}));
}

TEST(FactCollection, AnotherThreadTakesThePlaceOfAStuckOne) {
  std::atomic<bool> go = false;
  Workers workers(1);
  FactTask stuck = linkTask("never");
  stuck.limit = milliseconds(1);
  stuck.gives = {facts::Fact::scan};
  stuck.run = [&go](const facts::Facts&, const Deadline&) {
    while (!go) std::this_thread::yield();
    return linkTo("never");
  };
  FactCollection collection({stuck, linkTask("Home")}, nullptr, workers);
  collection.begin({facts::Fact::scan});
  const auto facts = collection.await({facts::Fact::scan, facts::Fact::link});
  go = true;
  ASSERT_TRUE(facts);
  EXPECT_EQ(facts->scan.error().reason, Reason::tookTooLong);
  EXPECT_EQ(facts->link->ssid, "Home");
}

TEST(FactCollection, ACancelLetsEverybodyGoOn) {
  std::atomic<int> begun = 0;
  FactCollection collection({waiting({facts::Fact::scan}, kAmple, &begun)});
  FactCollection::FactsRef facts = std::make_shared<facts::Facts>();
  std::thread waiter([&] { facts = collection.await({facts::Fact::scan}); });
  while (begun == 0) std::this_thread::yield();
  collection.cancel();
  waiter.join();
  EXPECT_FALSE(facts);
  EXPECT_FALSE(collection.await({facts::Fact::scan}));
}

TEST(FactCollection, ACancelReachesThoseThatHaveNotBegun) {
  FactTask second = linkTask("never");
  second.gives = {facts::Fact::surveys};
  second.after = {facts::Fact::scan};
  std::atomic<int> begun = 0;
  FactCollection collection({waiting({facts::Fact::scan}, kAmple, &begun), second});
  collection.begin({facts::Fact::surveys});
  while (begun == 0) std::this_thread::yield();
  collection.cancel();
  EXPECT_FALSE(collection.await({facts::Fact::surveys}));
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

TEST(FactCollection, AnTaskWithoutAThreadFails) {
  FactTask second = linkTask("never");
  second.gives = {facts::Fact::surveys};
  second.after = {facts::Fact::link};
  Workers workers(1);
  FactCollection collection({linkTask("Home"), second}, nullptr, workers);
  FactCollection::FactsRef facts;
  {
    const NoThreads none;
    facts = collection.await({facts::Fact::link, facts::Fact::surveys});
  }
  ASSERT_TRUE(facts);
  ASSERT_FALSE(facts->link);
  EXPECT_EQ(facts->link.error().reason, Reason::failed);
  EXPECT_NE(facts->link.error().message.find("no threads left"), std::string::npos);
  EXPECT_EQ(facts->surveys.error(), facts->link.error());
  EXPECT_FALSE(collection.await({facts::Fact::link})->link);  // whatever there is later
}

TEST(FactCollection, ItsEndCallsOffWhatIsUnderWay) {
  std::atomic<int> begun = 0;
  {
    FactCollection collection({waiting({facts::Fact::scan}, kAmple, &begun)});
    collection.begin({facts::Fact::scan});
    while (begun == 0) std::this_thread::yield();
  }
  EXPECT_EQ(begun, 1);
}

TEST(FactCollection, ItsEndWaitsForNoTaskThatIsStuck) {
  const auto go = std::make_shared<std::atomic<bool>>(false);
  const auto over = std::make_shared<std::atomic<bool>>(false);
  const auto used = std::make_shared<int>(0);
  auto collection = std::make_unique<FactCollection>(
      std::vector{FactTask{.name = "page of the site",
                           .gives = {facts::Fact::sitePage},
                           .after = {},
                           .limit = milliseconds(1),
                           .run =
                               [go](const facts::Facts&, const Deadline&) {
                                 while (!*go) std::this_thread::yield();
                                 return linkTo("late");
                               }}},
      std::shared_ptr<const void>(used.get(), [used, over](const void*) { *over = true; }));
  collection->await({facts::Fact::sitePage});
  const auto began = Clock::now();
  collection.reset();
  EXPECT_LT(Clock::now() - began, milliseconds(1'000));
  EXPECT_FALSE(*over);  // the task still uses it
  *go = true;
  while (!*over) std::this_thread::yield();
}

TEST(FactCollection, AnExceptionIsTheFailureOfItsTask) {
  FactTask throwing = linkTask("Home");
  throwing.run = [](const facts::Facts&, const Deadline&) -> Found {
    throw std::runtime_error("no room");
  };
  FactTask worse = linkTask("Home");
  worse.gives = {facts::Fact::scan};
  worse.run = [](const facts::Facts&, const Deadline&) -> Found { throw 1; };
  FactTask late = linkTask("Home");
  late.gives = {facts::Fact::surveys};
  late.run = [](const facts::Facts&, const Deadline&) -> Found {
    return [](facts::Facts&) { throw std::runtime_error("no room"); };
  };
  FactCollection collection({throwing, worse, late});
  const auto facts = collection.await({facts::Fact::link, facts::Fact::scan, facts::Fact::surveys});
  ASSERT_TRUE(facts);
  EXPECT_EQ(
      facts->link.error(),
      (Error{Reason::failed, "The link failed (no room): close other programs, and try again."}));
  EXPECT_EQ(facts->scan.error().reason, Reason::failed);
  EXPECT_EQ(facts->surveys.error().reason, Reason::failed);
}

}  // namespace
}  // namespace wifi_profile::linux
