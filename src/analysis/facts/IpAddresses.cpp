#include "analysis/facts/IpAddresses.h"

#include <arpa/inet.h>
#include <array>
#include <charconv>
#include <cstdint>

namespace wifi_profile::facts {
namespace {

template <std::size_t kSize>
std::optional<std::array<std::uint8_t, kSize>> octetsOf(int family, const std::string& address) {
  // inet_pton would stop at a zero byte.
  if (address.find('\0') != std::string::npos) return std::nullopt;
  std::array<std::uint8_t, kSize> octets{};
  if (inet_pton(family, address.c_str(), octets.data()) != 1) return std::nullopt;
  return octets;
}

std::optional<std::uint32_t> ipv4Of(const std::string& address) {
  const auto octets = octetsOf<4>(AF_INET, address);
  if (!octets) return std::nullopt;
  std::uint32_t number = 0;
  for (const std::uint8_t octet : *octets) number = number << 8U | octet;
  return number;
}

constexpr std::uint32_t front(std::uint32_t first, std::uint32_t second = 0) {
  return first << 24U | second << 16U;
}

// `bits`: 0 to 32.
constexpr bool sameFront(std::uint32_t one, std::uint32_t other, unsigned bits) {
  return bits == 0 || (one ^ other) >> (32U - bits) == 0;
}

}  // namespace

std::optional<Ipv4Kind> ipv4KindOf(const std::string& address) {
  const auto number = ipv4Of(address);
  if (!number) return std::nullopt;
  const auto isIn = [&](std::uint32_t net, unsigned bits) { return sameFront(*number, net, bits); };
  if (isIn(front(10), 8) || isIn(front(172, 16), 12) || isIn(front(192, 168), 16)) {
    return Ipv4Kind::privateUse;
  }
  if (isIn(front(100, 64), 10) || isIn(front(192, 0), 24)) return Ipv4Kind::sharedSpace;
  if (isIn(front(169, 254), 16)) return Ipv4Kind::linkLocal;
  if (isIn(front(127), 8)) return Ipv4Kind::loopback;
  if (isIn(front(0), 8) || isIn(front(224), 3)) return Ipv4Kind::noHost;
  return Ipv4Kind::global;
}

bool isBehindTranslation(Ipv4Kind kind) {
  return kind == Ipv4Kind::privateUse || kind == Ipv4Kind::sharedSpace;
}

bool isInSubnet(const std::string& address, const std::string& subnet) {
  const std::size_t slash = subnet.find('/');
  if (slash == std::string::npos) return false;
  unsigned bits = 0;
  const char* const end = subnet.data() + subnet.size();
  const auto [last, error] = std::from_chars(subnet.data() + slash + 1, end, bits);
  if (error != std::errc() || last != end || bits > 32) return false;
  const auto one = ipv4Of(address);
  const auto net = ipv4Of(subnet.substr(0, slash));
  return one && net && sameFront(*one, *net, bits);
}

std::optional<Ipv6Kind> ipv6KindOf(const std::string& address) {
  const auto octets = octetsOf<16>(AF_INET6, address);
  if (!octets) return std::nullopt;
  if ((*octets)[0] >> 5U == 0x20U >> 5U) return Ipv6Kind::global;
  if ((*octets)[0] >> 1U == 0xFCU >> 1U) return Ipv6Kind::uniqueLocal;
  return Ipv6Kind::other;
}

}  // namespace wifi_profile::facts
