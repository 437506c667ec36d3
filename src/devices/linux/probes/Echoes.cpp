#include "devices/linux/probes/Echoes.h"

#include <algorithm>
#include <bit>
#include <cerrno>
#include <cstring>
#include <netinet/icmp6.h>
#include <netinet/in.h>
#include <netinet/ip_icmp.h>
#include <span>
#include <sys/random.h>

namespace wifi_profile::linux::probes {
namespace {

using Bytes = std::span<const std::uint8_t>;

// RFC 1071. Only raw IPv4 sockets need it; the kernel computes the others'.
std::uint16_t checksumOf(Bytes bytes) {
  std::uint32_t sum = 0;
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    std::uint16_t word = 0;
    std::memcpy(&word, &bytes[i], sizeof(word));
    sum += word;
  }
  sum = (sum & 0xffffU) + (sum >> 16U);
  sum = (sum & 0xffffU) + (sum >> 16U);
  return static_cast<std::uint16_t>(~sum);
}

// Removes the IP header, which a raw IPv4 socket receives as well.
Bytes withoutHeader(Bytes packet, bool rawIPv4) {
  if (!rawIPv4 || packet.empty()) return packet;
  const std::size_t header = std::size_t{packet[0] & 0x0fU} * 4;
  return packet.subspan(std::min(header, packet.size()));
}

template <class T>
T front(const sockaddr_storage& storage) {
  T result{};
  std::memcpy(&result, &storage, sizeof(T));
  return result;
}

}  // namespace

// ICMP and ICMPv6 echoes have the same layout; only the types differ.
struct Echoes::Echo {
  std::uint8_t type = 0;
  std::uint8_t code = 0;
  std::uint16_t checksum = 0;
  std::uint16_t identifier = 0;
  std::uint16_t sequence = 0;
  Token token{};
};

Echoes::Echoes(const Address& target, const std::string& interface, const PingPlan& plan)
    : target_(target), plan_(plan), ofIPv4_(target.family() == AF_INET) {
  open(interface);
  std::array<std::uint8_t, sizeof(Token) + sizeof(identifier_)> random{};
  if (getrandom(random.data(), random.size(), 0) < 0) {
    // Fails only before the kernel has seeded its generator. The clock is a weak replacement.
    const auto now = Clock::now().time_since_epoch().count();
    std::memcpy(random.data(), &now, sizeof(now));
  }
  std::memcpy(token_.data(), random.data(), token_.size());
  std::memcpy(&identifier_, random.data() + token_.size(), sizeof(identifier_));
}

void Echoes::open(const std::string& interface) {
  const int protocol = ofIPv4_ ? int{IPPROTO_ICMP} : int{IPPROTO_ICMPV6};
  socket_ = openSocket(target_.family(), SOCK_DGRAM, protocol, interface);
  if (!socket_ && (errno == EACCES || errno == EPERM)) {
    socket_ = openSocket(target_.family(), SOCK_RAW, protocol, interface);
    isRaw_ = true;
  }
  if (!socket_) {
    error_ = errno;
  } else if (isRaw_ && !ofIPv4_) {
    icmp6_filter filter{};
    ICMP6_FILTER_SETBLOCKALL(&filter);
    ICMP6_FILTER_SETPASS(ICMP6_ECHO_REPLY, &filter);
    setsockopt(socket_.number(), IPPROTO_ICMPV6, ICMP6_FILTER, &filter, sizeof(filter));
  }
}

std::optional<Clock::time_point> Echoes::next() const {
  if (static_cast<int>(sent_.size()) >= plan_.count) return {};
  return started_ + plan_.interval * static_cast<int>(sent_.size());
}

void Echoes::send() {
  Echo echo;
  echo.type = ofIPv4_ ? ICMP_ECHO : ICMP6_ECHO_REQUEST;
  echo.identifier = identifier_;  // the kernel replaces it on its ping sockets
  echo.sequence = htons(static_cast<std::uint16_t>(sent_.size() + 1));
  echo.token = token_;
  static_assert(sizeof(Echo) == 24);
  std::array<std::uint8_t, sizeof(Echo)> bytes{};
  std::memcpy(bytes.data(), &echo, sizeof(Echo));
  echo.checksum = checksumOf(bytes);
  sent_.push_back(Clock::now());
  roundTrips_.emplace_back();
  // A failure (no route, no neighbour, an earlier error of the socket) counts as an unanswered
  // echo.
  sendto(socket_.number(), &echo, sizeof(echo), MSG_NOSIGNAL, target_.get(), target_.size);
}

void Echoes::receive() {
  std::array<std::uint8_t, 256> buffer{};  // longer packets are not answers to these echoes
  sockaddr_storage from{};
  socklen_t size = sizeof(from);
  const ssize_t length = recvfrom(socket_.number(), buffer.data(), buffer.size(), 0,
                                  reinterpret_cast<sockaddr*>(&from), &size);
  const Clock::time_point now = Clock::now();
  if (length < 0) return;  // a reported error is not an answer
  if (!isFromTarget(from)) return;
  const Bytes bytes =
      withoutHeader(Bytes(buffer).first(static_cast<std::size_t>(length)), isRaw_ && ofIPv4_);
  if (bytes.size() != sizeof(Echo)) return;
  Echo echo;
  std::memcpy(&echo, bytes.data(), sizeof(Echo));
  if (echo.type != (ofIPv4_ ? ICMP_ECHOREPLY : ICMP6_ECHO_REPLY) || echo.code != 0) return;
  if (echo.token != token_) return;
  if (isRaw_ && echo.identifier != identifier_) return;
  const std::size_t index = ntohs(echo.sequence) - std::size_t(1);
  if (index >= sent_.size() || roundTrips_[index]) return;
  roundTrips_[index] = now - sent_[index];
  ++answered_;
}

bool Echoes::isFromTarget(const sockaddr_storage& from) const {
  if (from.ss_family != target_.family()) return false;
  if (ofIPv4_) {
    return std::bit_cast<sockaddr_in>(front<sockaddr_in>(from)).sin_addr.s_addr ==
           front<sockaddr_in>(target_.storage).sin_addr.s_addr;
  }
  const sockaddr_in6 one = front<sockaddr_in6>(from);
  const sockaddr_in6 other = front<sockaddr_in6>(target_.storage);
  return std::memcmp(&one.sin6_addr, &other.sin6_addr, sizeof(in6_addr)) == 0;
}

}  // namespace wifi_profile::linux::probes
