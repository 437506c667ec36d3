#include "devices/linux/probes/SecondHop.h"

#include <arpa/inet.h>
#include <array>
#include <cstring>
#include <ctime>
#include <linux/errqueue.h>
#include <netinet/in.h>
#include <netinet/ip_icmp.h>
#include <sys/uio.h>

#include "analysis/facts/IpAddresses.h"
#include "devices/linux/probes/RouterAnswers.h"
#include "devices/linux/probes/Sockets.h"

namespace wifi_profile::linux::probes {
namespace {

constexpr int kHopTries = 3;
constexpr std::chrono::milliseconds kBetweenHopTries{250};
// In total. A slow router can still answer the first packet.
constexpr std::chrono::milliseconds kHopTime{1200};
constexpr std::uint16_t kUnusedPort = 33434;  // by convention no program listens there

// Returns the sender of the ICMP error that the socket received: the router where the packet's time
// to live ended, the target itself, where no program listens, or a router that forbids the packet.
std::optional<std::string> offender(int socket) {
  std::array<char, 64> data{};
  alignas(cmsghdr) std::array<char, 512> control{};
  iovec vector{data.data(), data.size()};
  msghdr message{};
  message.msg_iov = &vector;
  message.msg_iovlen = 1;
  message.msg_control = control.data();
  message.msg_controllen = control.size();
  if (recvmsg(socket, &message, MSG_ERRQUEUE | MSG_DONTWAIT) < 0) return {};
  for (cmsghdr* part = CMSG_FIRSTHDR(&message); part != nullptr;
       part = CMSG_NXTHDR(&message, part)) {
    constexpr std::size_t kLength = sizeof(sock_extended_err) + sizeof(sockaddr_in);
    if (part->cmsg_level != IPPROTO_IP || part->cmsg_type != IP_RECVERR) continue;
    if (part->cmsg_len < CMSG_LEN(kLength)) continue;
    sock_extended_err error{};
    std::memcpy(&error, CMSG_DATA(part), sizeof(error));
    sockaddr_in from{};
    std::memcpy(&from, CMSG_DATA(part) + sizeof(error), sizeof(from));
    if (error.ee_origin != SO_EE_ORIGIN_ICMP) continue;
    if (from.sin_family != AF_INET) continue;
    std::array<char, INET_ADDRSTRLEN> text{};
    inet_ntop(AF_INET, &from.sin_addr, text.data(), text.size());
    if (error.ee_type == ICMP_TIME_EXCEEDED) return hostAddress(text.data());
    // A target inside the network says nothing about the path to the Internet.
    if (error.ee_type == ICMP_DEST_UNREACH &&
        facts::ipv4KindOf(text.data()) == facts::Ipv4Kind::global) {
      return hostAddress(text.data());
    }
  }
  return {};
}

}  // namespace

std::optional<std::string> findSecondHop(const std::string& gateway, const std::string& target,
                                         const std::string& interface, const Deadline& deadline) {
  const auto address = addressOf(target, kUnusedPort, interface);
  if (!address || address->family() != AF_INET) return {};
  const Descriptor socket = openSocket(AF_INET, SOCK_DGRAM, 0, interface);
  if (!socket) return {};
  const int hops = 2;
  const int yes = 1;
  setsockopt(socket.number(), IPPROTO_IP, IP_TTL, &hops, sizeof(hops));
  setsockopt(socket.number(), IPPROTO_IP, IP_RECVERR, &yes, sizeof(yes));
  // A connected socket receives only errors about packets to the target.
  if (connect(socket.number(), address->get(), address->size) != 0) return {};
  const Deadline ours = deadline.atMost(kHopTime);
  for (int tries = 0; !ours.isOver();) {
    const std::array<char, 8> nothing{};
    // May fail with the error of the previous packet.
    if (tries < kHopTries) send(socket.number(), nothing.data(), nothing.size(), MSG_NOSIGNAL);
    ++tries;
    const Deadline next = tries < kHopTries ? ours.atMost(kBetweenHopTries) : ours;
    while (waitFor(socket.number(), 0, next) == Waited::ready && !next.isOver()) {
      auto hop = offender(socket.number());
      if (hop && *hop != gateway) return hop;
      // Clears the socket's error: one without a message in the queue would be reported again and
      // again.
      int error = 0;
      socklen_t size = sizeof(error);
      getsockopt(socket.number(), SOL_SOCKET, SO_ERROR, &error, &size);
    }
  }
  return {};
}

}  // namespace wifi_profile::linux::probes
