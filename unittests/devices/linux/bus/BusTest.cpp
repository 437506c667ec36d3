// How services are asked, whatever they answer.

#include <future>
#include <limits>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "BusFixture.h"
#include "devices/linux/bus/Bus.h"
#include "devices/linux/bus/MessageReader.h"

namespace wifi_profile::linux::bus {
namespace {

using namespace std::chrono_literals;
using Kind = BusError::Kind;

constexpr auto kName = "org.example.Service";

class BusTest : public BusFixture {
 protected:
  BusCall ask(const std::string& method, std::vector<BusArgument> arguments = {}) {
    const BusAnswer owner = bus_->ownerOf(kName, deadline());
    return {owner.first().text().value_or(""), "/object", kName, method, std::move(arguments)};
  }
  // What `value` becomes when a service answers with it.
  template <class T>
  BusAnswer sent(T value) {
    FakeService service(daemon_.address(), kName);
    service.method("/object", kName, "Get", [value = std::move(value)] { return value; });
    service.start();
    return bus_->call(ask("Get"), deadline());
  }
};

TEST_F(BusTest, ValuesComeAsTheyWereSent) {
  EXPECT_EQ(sent(true).first().boolean(), true);
  EXPECT_EQ(sent(std::uint8_t{200}).first().integer(), 200);
  EXPECT_EQ(sent(std::int16_t{-3}).first().integer(), -3);
  EXPECT_EQ(sent(std::uint64_t{1} << 40).first().integer(), std::int64_t{1} << 40);
  EXPECT_EQ(sent(std::string("text")).first().text(), "text");
  EXPECT_EQ(sent(sdbus::ObjectPath("/a")).first().text(), "/a");
  EXPECT_EQ(sent(std::vector<std::uint8_t>{0, 65}).first().bytes(), std::string("\0A", 2));
  const auto pair = sent(sdbus::make_struct(std::string("x"), std::uint32_t{1}));
  ASSERT_EQ(pair.first().list().size(), 2U);
  EXPECT_EQ(pair.first().list()[1].integer(), 1);
}

TEST_F(BusTest, AnUnsignedNumberThatDoesNotFitIsNoInteger) {
  EXPECT_EQ(sent(std::numeric_limits<std::uint64_t>::max()).first().integer(), std::nullopt);
}

TEST_F(BusTest, MapsAndVariantsOpenUp) {
  const auto answer = sent(Sections{{"ipv4", {{"method", sdbus::Variant(std::string("auto"))}}}});
  EXPECT_EQ(answer.first().at("ipv4").at("method").text(), "auto");
  EXPECT_TRUE(answer.first().at("ipv6").at("method").isNothing());
  EXPECT_TRUE(answer.first().at("ipv4").at("method").at("deeper").isNothing());
}

TEST_F(BusTest, KeysThatAreNumbersBecomeTexts) {
  const auto answer = sent(std::map<std::uint16_t, std::string>{{76, "maker"}});
  EXPECT_EQ(answer.first().at("76").text(), "maker");
}

TEST_F(BusTest, TextsAndBytesOfUpTo4096BytesAreKept) {
  EXPECT_EQ(sent(std::string(4096, 'x')).first().text(), std::string(4096, 'x'));
  EXPECT_TRUE(sent(std::string(4097, 'x')).first().isNothing());
  EXPECT_EQ(sent(std::vector<std::uint8_t>(4096)).first().bytes(), std::string(4096, '\0'));
  EXPECT_TRUE(sent(std::vector<std::uint8_t>(4097)).first().isNothing());
}

TEST_F(BusTest, AnAnswerOfTooManyValuesIsUnreadable) {
  const auto answer = sent(std::vector<std::uint32_t>(200'000));
  ASSERT_TRUE(answer.error);
  EXPECT_EQ(answer.error->kind, Kind::unreadable);
  EXPECT_TRUE(sent(std::vector<std::uint32_t>(100'000)).isGood());
}

TEST_F(BusTest, AnAnswerOfTooManyBytesIsUnreadable) {
  const auto answer = sent(std::vector<std::string>(5'000, std::string(1'000, 'x')));
  ASSERT_TRUE(answer.error);
  EXPECT_EQ(answer.error->kind, Kind::unreadable);
}

TEST_F(BusTest, AnAnswerThatIsNestedTooDeeplyIsUnreadable) {
  sdbus::Variant nested(true);
  for (int depth = 0; depth < 30; ++depth) nested = sdbus::Variant(std::vector{nested});
  const auto answer = sent(nested);
  ASSERT_TRUE(answer.error);
  EXPECT_EQ(answer.error->kind, Kind::unreadable);
}

TEST_F(BusTest, AServiceThatIsNotThereIsNoServiceAndIsNotStarted) {
  EXPECT_EQ(bus_->ownerOf("org.example.Startable", deadline()).error->kind, Kind::noService);
  EXPECT_FALSE(daemon_.startedService());
}

TEST_F(BusTest, WhatAServiceDoesNotHaveIsNoSuchThing) {
  FakeService service(daemon_.address(), kName);
  service.method("/object", kName, "Get", [] { return true; });
  service.start();
  const BusCall good = ask("Get");
  BusCall call = good;
  call.method = "Other";
  EXPECT_EQ(bus_->call(call, deadline()).error->kind, Kind::noSuchThing);
  call = good;
  call.path = "/elsewhere";
  EXPECT_EQ(bus_->call(call, deadline()).error->kind, Kind::noSuchThing);
  call.path = "no path";
  EXPECT_EQ(bus_->call(call, deadline()).error->kind, Kind::noSuchThing);
  call = good;
  call.method = "no method";
  EXPECT_EQ(bus_->call(call, deadline()).error->kind, Kind::noSuchThing);
  EXPECT_TRUE(bus_->call(good, deadline()).isGood());
}

TEST_F(BusTest, AServicesOwnErrorKeepsItsNameAndTheBeginningOfItsWords) {
  FakeService service(daemon_.address(), kName);
  service.method("/object", kName, "Get",
                 []() -> bool { throw sdbus::Error("org.example.Odd", std::string(5'000, 'w')); });
  service.start();
  const BusAnswer answer = bus_->call(ask("Get"), deadline());
  EXPECT_EQ(answer.error->kind, Kind::failed);
  EXPECT_EQ(answer.error->name, "org.example.Odd");
  EXPECT_EQ(answer.error->message, std::string(200, 'w'));
}

// Keeps every call and answers none.
class SilentService {
 public:
  explicit SilentService(const std::string& address)
      : service_(std::make_unique<FakeService>(address, kName)) {
    service_->method(
        "/object", kName, "Get",
        [this, kept = std::make_shared<sdbus::Result<bool>>()](sdbus::Result<bool>&& result) {
          *kept = std::move(result);
          asked_.set_value();
        });
    service_->start();
  }
  ~SilentService() { end(); }
  void waitUntilAsked() { ASSERT_EQ(asked_.get_future().wait_for(30s), std::future_status::ready); }
  void end() { service_.reset(); }

 private:
  std::unique_ptr<FakeService> service_;
  std::promise<void> asked_;
};

TEST_F(BusTest, ACallToAServiceThatNeverAnswersEndsAtTheDeadline) {
  SilentService service(daemon_.address());
  EXPECT_EQ(bus_->call(ask("Get"), shortDeadline()).error->kind, Kind::tookTooLong);
}

TEST_F(BusTest, ACallEndsWhenItIsCalledOff) {
  SilentService service(daemon_.address());
  auto answer = std::async(std::launch::async, [&] { return bus_->call(ask("Get"), deadline()); });
  service.waitUntilAsked();
  cancellation_.request_stop();
  EXPECT_EQ(answer.get().error->kind, Kind::cancelled);
}

TEST_F(BusTest, AThreadThatWaitsForItsTurnIsCalledOffToo) {
  SilentService service(daemon_.address());
  std::stop_source other;
  auto first = std::async(std::launch::async, [&] { return bus_->call(ask("Get"), deadline()); });
  service.waitUntilAsked();
  auto second = std::async(std::launch::async, [&] {
    return bus_->ownerOf(kName, Deadline::in(30s, other.get_token()));
  });
  other.request_stop();
  EXPECT_EQ(second.get().error->kind, Kind::cancelled);
  cancellation_.request_stop();
  EXPECT_EQ(first.get().error->kind, Kind::cancelled);
}

TEST_F(BusTest, CallsThatSeveralThreadsGiveUpLeaveTheBusAsItWas) {
  FakeService service(daemon_.address(), kName);
  service.silentMethod<bool>("/object", kName, "Get");
  service.start();
  // In all fewer than the 128 answers that a bus lets a connection wait for.
  const std::vector<BusCall> calls(2, ask("Get"));
  const auto giveUp = [&] {
    for (int round = 0; round < 10; ++round) {
      for (const BusAnswer& answer : bus_->call(calls, deadline().atMost(5ms))) {
        EXPECT_EQ(answer.error->kind, Kind::tookTooLong);
      }
    }
  };
  std::vector<std::future<void>> threads;
  for (int count = 0; count < 4; ++count) threads.push_back(std::async(std::launch::async, giveUp));
  for (auto& thread : threads) thread.get();
  EXPECT_TRUE(bus_->ownerOf(kName, deadline()).isGood());
}

TEST_F(BusTest, AServiceThatEndsBeforeItAnswersIsNoService) {
  SilentService service(daemon_.address());
  auto answer = std::async(std::launch::async, [&] { return bus_->call(ask("Get"), deadline()); });
  service.waitUntilAsked();
  service.end();
  EXPECT_EQ(answer.get().error->kind, Kind::noService);
  EXPECT_EQ(bus_->ownerOf(kName, deadline()).error->kind, Kind::noService);
}

TEST_F(BusTest, AServiceThatComesBackIsAskedAgain) {
  EXPECT_EQ(sent(std::string("first")).first().text(), "first");
  EXPECT_EQ(sent(std::string("second")).first().text(), "second");
}

TEST_F(BusTest, AnswersAreInTheOrderOfTheCalls) {
  FakeService service(daemon_.address(), kName);
  // Answers in the opposite order.
  using Kept = std::vector<std::pair<std::string, sdbus::Result<std::string>>>;
  service.method("/object", kName, "Get",
                 [all = std::make_shared<Kept>()](sdbus::Result<std::string>&& result,
                                                  const std::string& text) {
                   Kept& kept = *all;
                   kept.emplace_back(text, std::move(result));
                   if (kept.size() < 3) return;
                   for (; !kept.empty(); kept.pop_back()) {
                     kept.back().second.returnResults(kept.back().first);
                   }
                 });
  service.start();
  const auto answers =
      bus_->call({ask("Get", {"a"}), ask("Get", {"b"}), ask("Get", {"c"})}, deadline());
  ASSERT_EQ(answers.size(), 3U);
  EXPECT_EQ(answers[0].first().text(), "a");
  EXPECT_EQ(answers[1].first().text(), "b");
  EXPECT_EQ(answers[2].first().text(), "c");
}

TEST_F(BusTest, OneBadCallDoesNotSpoilTheOthers) {
  FakeService service(daemon_.address(), kName);
  service.method("/object", kName, "Get", [] { return true; });
  service.start();
  const auto answers = bus_->call({ask("Get"), ask("Missing"), ask("Get")}, deadline());
  EXPECT_TRUE(answers[0].isGood());
  EXPECT_EQ(answers[1].error->kind, Kind::noSuchThing);
  EXPECT_TRUE(answers[2].isGood());
}

TEST_F(BusTest, AnOverdueDeadlineAsksNothing) {
  const Deadline over{Clock::now(), cancellation_.get_token()};
  EXPECT_EQ(bus_->ownerOf("org.freedesktop.DBus", over).error->kind, Kind::tookTooLong);
}

TEST_F(BusTest, NoCallsAreNoAnswers) {
  EXPECT_TRUE(bus_->call(std::vector<BusCall>{}, deadline()).empty());
}

TEST_F(BusTest, ABusThatIsNotThereIsNoBus) {
  const auto none = Bus::at("unix:path=/nonexistent/socket");
  EXPECT_EQ(none->ownerOf(kName, deadline()).error->kind, Kind::noBus);
}

TEST_F(BusTest, ABusThatDoesNotAnswerIsWaitedForUntilTheDeadline) {
  // Connections are made, and nobody takes them.
  const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
  sockaddr_un address{AF_UNIX, "\0bus-that-does-not-answer"};
  const auto size = static_cast<socklen_t>(sizeof(sa_family_t) + 1 + 24);
  ASSERT_EQ(bind(listener, reinterpret_cast<const sockaddr*>(&address), size), 0);
  ASSERT_EQ(listen(listener, 8), 0);
  const auto silent = Bus::at("unix:abstract=bus-that-does-not-answer");
  EXPECT_EQ(silent->ownerOf(kName, shortDeadline()).error->kind, Kind::tookTooLong);
  cancellation_.request_stop();
  EXPECT_EQ(silent->ownerOf(kName, deadline()).error->kind, Kind::cancelled);
  close(listener);
}

TEST_F(BusTest, ABusThatEndedIsNoBus) {
  EXPECT_EQ(bus_->ownerOf(kName, deadline()).error->kind, Kind::noService);
  daemon_.end();
  EXPECT_EQ(bus_->ownerOf(kName, deadline()).error->kind, Kind::noBus) << "connected anew at once";
  EXPECT_EQ(bus_->ownerOf(kName, deadline()).error->kind, Kind::noBus);
}

}  // namespace
}  // namespace wifi_profile::linux::bus
