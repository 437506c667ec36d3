#include "devices/linux/probes/Sockets.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <ifaddrs.h>
#include <net/if.h>
#include <netdb.h>
#include <netinet/in.h>
#include <unistd.h>

namespace wifi_profile::linux::probes {
namespace {

// Binds to the interface's own address, as the source of the socket's packets.
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

using AddressBytes = std::array<std::uint8_t, 16>;

// Returns the bytes of an IPv6 address, or of the mapped address for an IPv4 one, without port and
// zone.
std::optional<AddressBytes> bytesOf(const Address& address) {
  AddressBytes bytes{};
  if (address.family() == AF_INET) {
    bytes[10] = bytes[11] = 0xff;
    std::memcpy(&bytes[12], &reinterpret_cast<const sockaddr_in*>(address.get())->sin_addr, 4);
  } else if (address.family() == AF_INET6) {
    std::memcpy(bytes.data(), &reinterpret_cast<const sockaddr_in6*>(address.get())->sin6_addr,
                bytes.size());
  } else {
    return {};
  }
  return bytes;
}

std::optional<std::uint32_t> ipv4In(const AddressBytes& bytes) {
  constexpr std::array<std::uint8_t, 12> kMapped{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xff, 0xff};
  if (!std::equal(kMapped.begin(), kMapped.end(), bytes.begin())) return {};
  std::uint32_t number = 0;
  for (std::size_t i = kMapped.size(); i < bytes.size(); ++i) number = number << 8U | bytes.at(i);
  return number;
}

bool isLoopbackOrNone(const AddressBytes& bytes) {
  if (const auto ofIPv4 = ipv4In(bytes)) return *ofIPv4 >> 24U == 127 || *ofIPv4 >> 24U == 0;
  return std::all_of(bytes.begin(), bytes.end() - 1, [](std::uint8_t byte) { return byte == 0; }) &&
         bytes.back() <= 1;
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
  setZone(address, interface);
  return address;
}

void setZone(Address& address, const std::string& interface) {
  if (address.family() != AF_INET6 || interface.empty()) return;
  auto& ofIPv6 = reinterpret_cast<sockaddr_in6&>(address.storage);
  if (IN6_IS_ADDR_LINKLOCAL(&ofIPv6.sin6_addr) && ofIPv6.sin6_scope_id == 0) {
    ofIPv6.sin6_scope_id = if_nametoindex(interface.c_str());
  }
}

std::optional<std::vector<Address>> ownAddresses() {
  ifaddrs* first = nullptr;
  if (getifaddrs(&first) != 0) return {};
  std::vector<Address> all;
  for (const ifaddrs* entry = first; entry != nullptr; entry = entry->ifa_next) {
    if (entry->ifa_addr == nullptr) continue;
    const int family = entry->ifa_addr->sa_family;
    if (family != AF_INET && family != AF_INET6) continue;
    Address address;
    address.size = family == AF_INET ? sizeof(sockaddr_in) : sizeof(sockaddr_in6);
    std::memcpy(&address.storage, entry->ifa_addr, address.size);
    all.push_back(address);
  }
  freeifaddrs(first);
  return all;
}

bool staysHere(const Address& address, const std::vector<Address>& own) {
  const auto bytes = bytesOf(address);
  if (!bytes) return false;
  if (isLoopbackOrNone(*bytes)) return true;
  return std::ranges::any_of(own, [&](const Address& one) { return bytesOf(one) == bytes; });
}

bool isHere(const std::string& host, const std::vector<Address>& own) {
  const auto address = addressOf(host, 0, {});
  return address && staysHere(*address, own);
}

bool isOfNoSite(const Address& address) {
  const auto bytes = bytesOf(address);
  if (!bytes || isLoopbackOrNone(*bytes)) return true;
  if (const auto ofIPv4 = ipv4In(*bytes)) {
    return *ofIPv4 >> 16U == 0xa9fe || *ofIPv4 >> 28U >= 14;  // 169.254/16, 224/3
  }
  const auto first = static_cast<unsigned>((*bytes)[0] << 8U | (*bytes)[1]);
  return (first & 0xffc0U) == 0xfe80 || first >> 8U == 0xff;
}

bool bindToInterface(int socket, int family, const std::string& interface) {
  if (interface.empty()) return true;
  if (setsockopt(socket, SOL_SOCKET, SO_BINDTODEVICE, interface.c_str(),
                 static_cast<socklen_t>(interface.size())) == 0) {
    return true;
  }
  if (errno != EPERM) return false;
  // Kernels before 5.7 let only root bind to an interface.
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

bool isExhaustion(int error) {
  return error == EMFILE || error == ENFILE || error == ENOBUFS || error == ENOMEM;
}

Error noSocket(int error, const std::string& interface) {
  if (isExhaustion(error)) {
    return {Reason::failed,
            "This machine has no descriptors or memory left: close other programs, and try again."};
  }
  return {Reason::failed, "No socket could be opened" +
                              (interface.empty() ? "" : " on " + shortText(interface)) +
                              ": look whether the interface is still there and has an "
                              "address of this protocol (IPv4 or IPv6)."};
}

std::string shortText(std::string_view text) {
  std::string result(text.substr(0, 120));
  std::replace_if(
      result.begin(), result.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
  return result;
}

Error cancelled() {
  return {Reason::tookTooLong,
          "It was cancelled, or no time was left for it: run the tests again."};
}

}  // namespace wifi_profile::linux::probes
