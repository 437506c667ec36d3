#include "devices/linux/probes/NatPmp.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <poll.h>
#include <string_view>
#include <sys/socket.h>

#include "devices/linux/probes/RouterAnswers.h"
#include "devices/linux/probes/Sockets.h"

namespace wifi_profile::linux::probes {
namespace {

constexpr std::uint16_t kPort = 5351;
constexpr std::string_view kQuestion("\0\0", 2);  // version 0, opcode 0: the public address
constexpr std::chrono::milliseconds kTime{1000};  // in total; repeats at 250 and 750 ms
constexpr std::chrono::milliseconds kFirstWait{250};

}  // namespace

std::optional<std::string> askNatPmp(const std::string& gateway, const std::string& interface,
                                     const Deadline& deadline) {
  const Deadline ours = deadline.atMost(kTime);
  const auto router = addressOf(gateway, kPort, interface);
  const Descriptor socket = openSocket(AF_INET, SOCK_DGRAM, 0, interface);
  // A connected socket receives only from the router, and reports a closed port as an error.
  if (!router || !socket || connect(socket.number(), router->get(), router->size) != 0) return {};
  for (auto wait = kFirstWait; !ours.isOver(); wait *= 2) {
    if (send(socket.number(), kQuestion.data(), kQuestion.size(), MSG_NOSIGNAL) < 0) return {};
    const Deadline round = ours.atMost(wait);
    while (waitFor(socket.number(), POLLIN, round) == Waited::ready && !round.isOver()) {
      std::array<char, 64> buffer{};
      const ssize_t length = recv(socket.number(), buffer.data(), buffer.size(), 0);
      if (length < 0 && errno != EAGAIN) return {};
      // A valid answer may follow a refusal or a malformed answer.
      const auto size = static_cast<std::size_t>(std::max<ssize_t>(length, 0));
      if (auto address = addressFromNatPmp({buffer.data(), size})) return address;
    }
  }
  return {};
}

}  // namespace wifi_profile::linux::probes
