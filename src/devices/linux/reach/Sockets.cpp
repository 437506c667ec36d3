#include "devices/linux/reach/Sockets.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <ifaddrs.h>
#include <net/if.h>
#include <netdb.h>
#include <netinet/in.h>
#include <unistd.h>

namespace wifi_profile::machine {
namespace {

// The interface's own address, as the source of what a socket sends.
bool bindToAddress(int socket, int family, const std::string& interface) {
  ifaddrs* first = nullptr;
  if (getifaddrs(&first) != 0) return false;
  int result = -1;
  errno = EADDRNOTAVAIL;
  for (const ifaddrs* entry = first; entry != nullptr && result != 0; entry = entry->ifa_next) {
    if (entry->ifa_addr == nullptr || entry->ifa_addr->sa_family != family) continue;
    if (interface != entry->ifa_name) continue;
    const bool ofIPv4 = family == AF_INET;
    result = bind(socket, entry->ifa_addr,
                  ofIPv4 ? socklen_t(sizeof(sockaddr_in)) : sizeof(sockaddr_in6));
  }
  freeifaddrs(first);
  return result == 0;
}

}  // namespace

std::optional<Address> addressOf(const std::string& text, std::uint16_t port,
                                 const std::string& interface) {
  addrinfo hints{};
  hints.ai_flags = AI_NUMERICHOST | AI_NUMERICSERV;
  hints.ai_socktype = SOCK_DGRAM;
  addrinfo* found = nullptr;
  if (getaddrinfo(text.c_str(), std::to_string(port).c_str(), &hints, &found) != 0) return {};
  Address address;
  address.size = found->ai_addrlen;
  std::memcpy(&address.storage, found->ai_addr, found->ai_addrlen);
  freeaddrinfo(found);
  if (address.family() == AF_INET6 && !interface.empty()) {
    auto& ofIPv6 = reinterpret_cast<sockaddr_in6&>(address.storage);
    if (IN6_IS_ADDR_LINKLOCAL(&ofIPv6.sin6_addr)) {
      ofIPv6.sin6_scope_id = if_nametoindex(interface.c_str());
    }
  }
  return address;
}

bool staysHere(const Address& address) {
  const auto isHere = [](const in_addr& ofIPv4) {
    const std::uint32_t first = ntohl(ofIPv4.s_addr) >> 24U;
    return first == 127 || first == 0;
  };
  if (address.family() == AF_INET) {
    return isHere(reinterpret_cast<const sockaddr_in*>(address.get())->sin_addr);
  }
  if (address.family() != AF_INET6) return false;
  const in6_addr& ofIPv6 = reinterpret_cast<const sockaddr_in6*>(address.get())->sin6_addr;
  if (IN6_IS_ADDR_V4MAPPED(&ofIPv6)) {
    in_addr mapped{};
    std::memcpy(&mapped, &ofIPv6.s6_addr[12], sizeof(mapped));
    return isHere(mapped);
  }
  return IN6_IS_ADDR_LOOPBACK(&ofIPv6) || IN6_IS_ADDR_UNSPECIFIED(&ofIPv6);
}

bool bindToInterface(int socket, int family, const std::string& interface) {
  if (interface.empty()) return true;
  if (setsockopt(socket, SOL_SOCKET, SO_BINDTODEVICE, interface.c_str(),
                 static_cast<socklen_t>(interface.size())) == 0) {
    return true;
  }
  if (errno != EPERM) return false;
  // Kernels before 5.7 let only root bind.
  const unsigned index = if_nametoindex(interface.c_str());
  if (index == 0) return false;
  const std::uint32_t number = htonl(index);
  const int level = family == AF_INET ? IPPROTO_IP : IPPROTO_IPV6;
  const int option = family == AF_INET ? IP_UNICAST_IF : IPV6_UNICAST_IF;
  setsockopt(socket, level, option, &number, sizeof(number));
  return bindToAddress(socket, family, interface);
}

Descriptor openSocket(int family, int type, int protocol, const std::string& interface) {
  Descriptor descriptor(socket(family, type | SOCK_NONBLOCK | SOCK_CLOEXEC, protocol));
  if (!descriptor) return descriptor;
  if (!bindToInterface(descriptor.number(), family, interface)) {
    const int why = errno;
    descriptor.reset();
    errno = why;
  }
  return descriptor;
}

std::string shortText(std::string_view text) {
  std::string result(text.substr(0, 120));
  std::replace_if(
      result.begin(), result.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
  return result;
}

checks::Unknown calledOff() {
  return {checks::Reason::tookTooLong,
          "It was called off, or there was no time left for it: run the tests again."};
}

}  // namespace wifi_profile::machine
