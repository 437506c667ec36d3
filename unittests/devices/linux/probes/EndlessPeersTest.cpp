// Peers that never come to an end: silent, slow, or always with more to say. The deadline ends
// each.
#include <array>
#include <atomic>
#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include "devices/linux/probes/HttpServers.h"
#include "devices/linux/probes/Names.h"
#include "devices/linux/probes/NatPmp.h"
#include "devices/linux/probes/Portal.h"
#include "devices/linux/probes/SecondHop.h"
#include "devices/linux/probes/Site.h"
#include "devices/linux/probes/Upnp.h"

namespace wifi_profile::linux::probes {
namespace {

using namespace std::chrono_literals;

constexpr auto kLimit = 100ms;
// Far from the time that the peers would take, and enough for a machine that is busy.
constexpr auto kAtMost = 3s;

template <class Work>
void endsAtItsDeadline(Work work) {
  const auto began = Clock::now();
  work(Deadline{began + kLimit});
  EXPECT_LT(Clock::now() - began, kAtMost);
}

template <class Work>
void endsWhenItIsCalledOff(Work work) {
  std::stop_source cancellation;
  std::thread other([&] {
    std::this_thread::sleep_for(kLimit);
    cancellation.request_stop();
  });
  const auto began = Clock::now();
  work(Deadline{began + 1h, cancellation.get_token()});
  EXPECT_LT(Clock::now() - began, kAtMost);
  other.join();
}

// Repeats `text` without a pause.
TcpServer::Serve endless(const std::string& start, const std::string& text, int times = 4096) {
  std::string many;
  for (int i = 0; i < times; ++i) many += text;
  return [start, many](int connection) {
    std::array<char, 512> question{};
    recv(connection, question.data(), question.size(), 0);
    say(connection, start);
    while (say(connection, many)) {
    }
  };
}

// One byte of `text` after the other, and then again from the start.
TcpServer::Serve dribbling(const std::string& text) {
  return [text](int connection) {
    for (std::size_t i = 0; say(connection, {text[i % text.size()]}); ++i) {
      sleepUntil(Deadline::in(20ms));
    }
  };
}

// TLS 1.2, handshake, four bytes: HelloRequest (RFC 5246, 7.4.1.1), which a client may ignore.
const std::string kHelloRequest("\x16\x03\x03\0\4\0\0\0\0", 9);
// A record that says that 16 KiB of a handshake follow.
const std::string kLongRecord("\x16\x03\x03\x40\x00\x02\x00\x3f\xfc", 9);

std::vector<TcpServer::Serve> httpPeers() {
  return {untilClosed, dribbling("HTTP/1.1 200 OK\r\n\r\nmore and more"),
          endless("HTTP/1.1 200 OK\r\n\r\n", "x"), endless("", "HTTP/1.1 100 Continue\r\n\r\n"),
          endless("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n", "1;a=b\r\nx\r\n")};
}

std::vector<TcpServer::Serve> tlsPeers() {
  return {untilClosed, dribbling(kLongRecord + std::string(0x3ffb, 'x')),
          endless("", kHelloRequest), endless(kLongRecord, "x")};
}

TEST(EndlessPeers, OfTlsAreLeftAtTheDeadline) {
  for (const TcpServer::Serve& serve : tlsPeers()) {
    const TcpServer server(serve);
    const std::string url = urlOf(server, "/", "https");
    endsAtItsDeadline([&](const Deadline& deadline) {
      const auto site = reachSite(url, {}, deadline);
      EXPECT_FALSE(site && site->reached);
    });
    endsAtItsDeadline([&](const Deadline& deadline) {
      const auto page = retrievePage(url, "", {}, deadline);
      EXPECT_FALSE(page && page->retrieved);
    });
    endsAtItsDeadline([&](const Deadline& deadline) {
      const auto portal = probePortal({"http://192.0.2.1/", "", url}, {}, deadline);
      EXPECT_NE(portal ? portal->answer : facts::PortalProbe::Answer::noAnswer,
                facts::PortalProbe::Answer::open);
    });
  }
}

TEST(EndlessPeers, OfTlsAreLeftWhenTheWorkIsCalledOff) {
  for (const TcpServer::Serve& serve : tlsPeers()) {
    const TcpServer server(serve);
    endsWhenItIsCalledOff([&](const Deadline& deadline) {
      const auto site = reachSite(urlOf(server, "/", "https"), {}, deadline);
      EXPECT_FALSE(site && site->reached);
    });
  }
}

TEST(EndlessPeers, OfHttpAreLeftAtTheDeadline) {
  for (const TcpServer::Serve& serve : httpPeers()) {
    const TcpServer server(serve);
    endsAtItsDeadline([&](const Deadline& deadline) {
      const auto page = retrievePage(urlOf(server), "online", {}, deadline);
      EXPECT_FALSE(page && page->retrieved);
    });
    endsAtItsDeadline([&](const Deadline& deadline) {
      const auto portal = probePortal({urlOf(server), "online", ""}, {}, deadline);
      EXPECT_NE(portal ? portal->answer : facts::PortalProbe::Answer::noAnswer,
                facts::PortalProbe::Answer::open);
    });
  }
}

// Answers the first datagram with one after the other, without a pause.
class UdpFlood {
 public:
  // Of port 0: any.
  UdpFlood(const std::string& address, std::uint16_t port, const std::string& text)
      : socket_(boundSocket(address, SOCK_DGRAM, port)), thread_([this, text] { flood(text); }) {}
  ~UdpFlood() {
    ended_.request_stop();
    thread_.join();
  }
  UdpFlood(const UdpFlood&) = delete;
  UdpFlood& operator=(const UdpFlood&) = delete;

  std::uint16_t port() const { return portOf(socket_); }

 private:
  void flood(const std::string& text) {
    if (waitFor(socket_.number(), POLLIN, longDeadline(ended_.get_token())) != Waited::ready)
      return;
    std::array<char, 2048> question{};
    sockaddr_storage from{};
    socklen_t size = sizeof(from);
    if (recvfrom(socket_.number(), question.data(), question.size(), 0,
                 reinterpret_cast<sockaddr*>(&from), &size) < 0) {
      return;
    }
    while (!ended_.stop_requested()) {
      sendto(socket_.number(), text.data(), text.size(), 0, reinterpret_cast<sockaddr*>(&from),
             size);
    }
  }

  Descriptor socket_;
  std::stop_source ended_;
  std::thread thread_;
};

void isNotResolvedInTime(std::uint16_t port) {
  endsAtItsDeadline([&](const Deadline& deadline) {
    const Route route{"", std::vector{kHere + ":" + std::to_string(port)}};
    const auto answer = resolve("site.test", route, deadline);
    EXPECT_FALSE(answer && answer->resolution.resolved);
  });
}

TEST(EndlessPeers, OfDnsOverUdpAreLeftAtTheDeadline) {
  for (const std::string& text : {std::string(12, '\x7f'), std::string(), std::string(500, 'x')}) {
    const UdpFlood server(kHere, 0, text);
    isNotResolvedInTime(server.port());
  }
}

// A server of names whose answers over UDP are cut off, so that it is asked over TCP.
TEST(EndlessPeers, OfDnsOverTcpAreLeftAtTheDeadline) {
  const auto length = [](int bytes) {
    return std::string{static_cast<char>(bytes >> 8), static_cast<char>(bytes & 0xff)};
  };
  for (const TcpServer::Serve& serve :
       {TcpServer::Serve(untilClosed), dribbling(length(40) + std::string(40, 'x')),
        endless("", length(12) + std::string(12, '\x7f')), endless("", length(0)),
        endless(length(0xffff), "x")}) {
    const TcpServer overTcp(serve);
    std::atomic<int> questions = 0;
    const UdpServer overUdp(
        [&](std::string text) {
          ++questions;
          text[2] = static_cast<char>(0x83);  // an answer, which is cut off
          text[3] = static_cast<char>(0x80);
          return std::vector<std::string>{text};
        },
        kHere, overTcp.port());
    isNotResolvedInTime(overTcp.port());
    EXPECT_GT(questions, 0);
    EXPECT_GT(overTcp.connections(), 0);
  }
}

TEST(EndlessPeers, OfNatPmpAreLeftAtTheDeadline) {
  for (const std::string& text : {std::string(1, 'x'), std::string(12, '\0')}) {
    const UdpFlood router(ownAddress(), 5351, text);
    endsAtItsDeadline([&](const Deadline& deadline) {
      EXPECT_EQ(askNatPmp(ownAddress(), "", deadline), std::nullopt);
    });
  }
}

TEST(EndlessPeers, OfUpnpAreLeftAtTheDeadline) {
  const auto isNotTold = [] {
    endsAtItsDeadline([&](const Deadline& deadline) {
      EXPECT_EQ(askUpnp(ownAddress(), "", deadline), std::nullopt);
    });
  };
  {
    const UdpFlood discovery(ownAddress(), 1900, "HTTP/1.1 200 OK\r\n\r\n");
    isNotTold();
  }
  for (const TcpServer::Serve& serve : httpPeers()) {
    const TcpServer web(serve, ownAddress());
    const UdpServer discovery(
        [&](const std::string&) {
          return std::vector<std::string>{"HTTP/1.1 200 OK\r\nLocation: http://" + ownAddress() +
                                          ":" + std::to_string(web.port()) + "/\r\n\r\n"};
        },
        ownAddress(), 1900);
    isNotTold();
    EXPECT_GT(web.connections(), 0);
  }
}

}  // namespace
}  // namespace wifi_profile::linux::probes
