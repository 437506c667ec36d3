#include <array>
#include <gtest/gtest.h>
#include <netinet/ip_icmp.h>
#include <poll.h>
#include <sched.h>
#include <thread>

#include "devices/linux/probes/ConnectPings.h"
#include "devices/linux/probes/LocalServers.h"
#include "devices/linux/probes/OwnNetwork.h"
#include "devices/linux/probes/Ping.h"

namespace wifi_profile::linux::probes {
namespace {

using namespace std::chrono_literals;

const PingPlan kQuick{.count = 3, .interval = 1ms, .time = 30s, .ports = {}};

// A new network allows the kernel's own echoes to nobody.
bool allowEchoes() { return writeFile("/proc/sys/net/ipv4/ping_group_range", "0 0"); }

// All three answered, by echoes.
bool answered(const Result<facts::Pings>& pings) {
  return pings && !pings->byConnecting && pings->sent == 3 && pings->answers.size() == 3 &&
         pings->answers[0].count() > 0;
}

TEST(Ping, WithTheKernelsOwnEchoesOfBothProtocols) {
  const int status = inOwnNetwork([] {
    if (!allowEchoes()) return false;
    if (!openSocket(AF_INET, SOCK_DGRAM, IPPROTO_ICMP, "")) return false;
    return answered(ping("127.0.0.1", "lo", kQuick, longDeadline())) &&
           answered(ping("::1", "lo", kQuick, longDeadline()));
  });
  if (status == kNotPossible) GTEST_SKIP() << "no user namespaces here";
  EXPECT_EQ(status, 0);
}

TEST(Ping, WithRawEchoesWhereTheKernelHasNoOthersForTheUser) {
  const int status = inOwnNetwork([] {
    if (openSocket(AF_INET, SOCK_DGRAM, IPPROTO_ICMP, "")) return false;
    return answered(ping("127.0.0.1", "lo", kQuick, longDeadline())) &&
           answered(ping("::1", "lo", kQuick, longDeadline()));
  });
  if (status == kNotPossible) GTEST_SKIP() << "no user namespaces here";
  EXPECT_EQ(status, 0);
}

TEST(Ping, ConnectsWhereTheUserMaySendNoEchoes) {
  const int status = inOwnNetwork([] {
    // Nobody but this network's root may send them, and a process without capabilities is nobody.
    if (unshare(CLONE_NEWUSER) != 0) return false;
    PingPlan plan = kQuick;
    plan.ports = {9, 10};  // refused, as nobody listens
    const auto pings = ping("127.0.0.1", "lo", plan, longDeadline());
    return pings && pings->byConnecting && pings->sent == 3 && pings->answers.size() == 3;
  });
  if (status == kNotPossible) GTEST_SKIP() << "no user namespaces here";
  EXPECT_EQ(status, 0);
}

TEST(Ping, WithoutARouteIsSentWithoutAnAnswer) {
  const int status = inOwnNetwork([] {
    const auto pings = ping("203.0.113.9", "", {.interval = 1ms, .time = 20ms}, longDeadline());
    return pings && pings->sent == 3 && pings->answers.empty();
  });
  if (status == kNotPossible) GTEST_SKIP() << "no user namespaces here";
  EXPECT_EQ(status, 0);
}

TEST(Ping, TakesEachOfItsOwnAnswersOnceAndNobodyElses) {
  const int status = inOwnNetwork([] {
    // The kernel answers nothing; a stranger does: garbage, another's token, and each answer
    // thrice.
    if (!allowEchoes() || !writeFile("/proc/sys/net/ipv4/icmp_echo_ignore_all", "1")) return false;
    const Descriptor air(socket(AF_INET, SOCK_RAW, IPPROTO_ICMP));
    std::atomic<bool> over = false;
    std::thread stranger([&] {
      while (!over) {
        std::array<char, 128> packet{};
        pollfd watched{air.number(), POLLIN, 0};
        if (poll(&watched, 1, 10) <= 0) continue;
        if (recv(air.number(), packet.data(), packet.size(), 0) != 44 || packet[20] != ICMP_ECHO) {
          continue;
        }
        std::string reply(packet.data() + 20, 24);
        reply[0] = ICMP_ECHOREPLY;
        const auto send = [&](std::string text) {
          text[2] = text[3] = 0;
          std::uint32_t sum = 0;
          for (std::size_t i = 0; i + 1 < text.size(); i += 2) {
            sum += static_cast<unsigned>(static_cast<unsigned char>(text[i]) |
                                         static_cast<unsigned char>(text[i + 1]) << 8);
          }
          sum = (sum & 0xffffU) + (sum >> 16U);
          sum = ~((sum & 0xffffU) + (sum >> 16U));
          text[2] = static_cast<char>(sum);
          text[3] = static_cast<char>(sum >> 8);
          const auto to = addressOf("127.0.0.1", 0, "");
          sendto(air.number(), text.data(), text.size(), 0, to->get(), to->size);
        };
        std::string foreign = reply;
        foreign[10] ^= 1;
        send(foreign);
        send(reply + "and more");
        std::string beyond = reply;
        beyond[6] = 0x7f;
        send(beyond);
        if (reply[7] != 2) {  // the second is lost
          for (int i = 0; i < 3; ++i) send(reply);
        }
      }
    });
    const auto pings = ping("127.0.0.1", "", {.interval = 100ms, .time = 600ms}, longDeadline());
    over = true;
    stranger.join();
    return pings && pings->sent == 3 && pings->answers.size() == 2;
  });
  if (status == kNotPossible) GTEST_SKIP() << "no user namespaces here";
  EXPECT_EQ(status, 0);
}

RoundTrips pingByConnecting(const PingPlan& plan, const Deadline& deadline) {
  const std::string interface;
  ConnectPings pings(kHere, interface, plan);
  while (!pings.isDone() && !deadline.isOver()) {
    const auto next = pings.next();
    if (next && Clock::now() >= *next && !pings.startRound()) return {};
    std::vector<pollfd> watched;
    pings.addWatched(watched);
    waitFor(watched, pings.next() ? deadline.until(*pings.next()) : deadline);
    pings.take(watched);
  }
  return pings.roundTrips();
}

TEST(PingByConnecting, CountsAConnectionAndARefusal) {
  const TcpServer server([](int) {});
  for (const std::uint16_t port : {server.port(), refusedPort()}) {
    PingPlan plan = kQuick;
    plan.ports = {port};
    const auto roundTrips = pingByConnecting(plan, longDeadline());
    ASSERT_EQ(roundTrips.size(), 3U);
    for (const auto& roundTrip : roundTrips) EXPECT_TRUE(roundTrip);
  }
}

TEST(PingByConnecting, GoesOnWithThePortThatAnswered) {
  const TcpServer silent([](int) {}), server([](int) {});
  PingPlan plan = kQuick;
  plan.ports = {server.port(), silent.port()};
  ASSERT_TRUE(anyAnswered(pingByConnecting(plan, longDeadline())));
  EXPECT_LE(silent.connections(), 1);  // of three rounds
}

// A port whose queue of connections is full: further ones get no answer until `accept`s.
class FullPort {
 public:
  FullPort() {
    listen(listener_.number(), 0);
    const auto address = addressOf(kHere, port(), "");
    for (const Descriptor* one : {&first_, &second_}) {
      connect(one->number(), address->get(), address->size);
    }
  }
  std::uint16_t port() const { return portOf(listener_); }
  void makeRoom() {
    for (int i = 0; i < 2; ++i) Descriptor(accept(listener_.number(), nullptr, nullptr));
  }

 private:
  Descriptor listener_ = boundSocket(kHere, SOCK_STREAM);
  Descriptor first_ = openSocket(AF_INET, SOCK_STREAM, 0, "");
  Descriptor second_ = openSocket(AF_INET, SOCK_STREAM, 0, "");
};

TEST(PingByConnecting, LeavesOutWhatDoesNotAnswerInTime) {
  const FullPort full;
  const PingPlan plan{.count = 2, .interval = 50ms, .ports = {full.port()}};
  const auto roundTrips = pingByConnecting(plan, Deadline::in(300ms));
  EXPECT_EQ(roundTrips, RoundTrips(2));
}

TEST(PingByConnecting, WaitsForAnswersUpToItsDeadline) {
  FullPort full;
  std::thread slow([&] {
    std::this_thread::sleep_for(1200ms);
    full.makeRoom();
  });
  const PingPlan plan{.count = 2, .interval = 50ms, .ports = {full.port()}};
  const auto roundTrips = pingByConnecting(plan, Deadline::in(20s));
  slow.join();
  ASSERT_EQ(roundTrips.size(), 2U);
  EXPECT_TRUE(roundTrips.front());
  EXPECT_GT(*roundTrips.front(), 1s);
}

TEST(Ping, ConnectsWhereEchoesAreNotAnswered) {
  const int status = inOwnNetwork([] {
    if (!allowEchoes() || !writeFile("/proc/sys/net/ipv4/icmp_echo_ignore_all", "1")) return false;
    PingPlan plan;
    plan.ports = {9};  // refused, as nobody listens
    const auto began = Clock::now();
    const auto pings = ping("127.0.0.1", "lo", plan, longDeadline());
    return pings && pings->byConnecting && pings->answers.size() == 3 && Clock::now() - began < 4s;
  });
  if (status == kNotPossible) GTEST_SKIP() << "no user namespaces here";
  EXPECT_EQ(status, 0);
}

TEST(Ping, IsUnknownWithoutAnAddressOrTheInterface) {
  for (const char* target : {"", "home.test", "127.0.0.1 ", "1.2.3.4.5"}) {
    const auto pings = ping(target, "", kQuick, longDeadline());
    ASSERT_FALSE(pings) << target;
    EXPECT_EQ(pings.error().reason, Reason::failed) << target;
  }
  const auto pings = ping(kHere, "none0", {.ports = {1}}, longDeadline());
  ASSERT_FALSE(pings);
  EXPECT_EQ(pings.error().reason, Reason::failed);
}

TEST(Ping, EndsWhenItIsCalledOff) {
  std::stop_source cancellation;
  std::thread other([&] { cancellation.request_stop(); });
  // The second one is due in an hour.
  const auto pings = ping(kHere, "", {.interval = 1h, .time = 2h, .ports = {1}},
                          {Clock::now() + 3h, cancellation.get_token()});
  other.join();
  ASSERT_FALSE(pings);
  EXPECT_EQ(pings.error().reason, Reason::tookTooLong);
}

TEST(Ping, KnowsWhatWasSentUntilTheDeadline) {
  const auto pings =
      ping(kHere, "", {.interval = 1h, .time = 2h, .ports = {1}}, Deadline::in(300ms));
  ASSERT_TRUE(pings);
  EXPECT_EQ(pings->sent, 1);
}

}  // namespace
}  // namespace wifi_profile::linux::probes
