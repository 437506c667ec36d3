#include "devices/linux/netlink/Addresses.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <cstring>
#include <linux/if_addr.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>
#include <utility>

#include "devices/linux/netlink/Attributes.h"

namespace wifi_profile::linux::netlink {

namespace {

// An answer's fixed fields, and the attributes that follow them.
template <class Fields>
struct Entry {
  Fields fields{};
  Attributes attributes;
};

template <class Fields>
std::optional<Entry<Fields>> entryOf(const Message& message) {
  Entry<Fields> entry;
  if (message.payload.size() < sizeof entry.fields) return std::nullopt;
  std::memcpy(&entry.fields, message.payload.data(), sizeof entry.fields);
  entry.attributes =
      Attributes(ieee80211::Bytes(message.payload).subspan(NLMSG_ALIGN(sizeof entry.fields)));
  return entry;
}

// Returns the address as text; empty if the number of octets is not the family's.
std::string textOf(int family, ieee80211::Bytes octets) {
  if (octets.size() != (family == AF_INET ? sizeof(in_addr) : sizeof(in6_addr))) return {};
  std::array<char, INET6_ADDRSTRLEN> text{};
  if (inet_ntop(family, octets.data(), text.data(), text.size()) == nullptr) return {};
  return text.data();
}

struct InterfaceAddress {
  std::string text;
  int family = AF_UNSPEC;
  int scope = 0;  // a lower number is a wider scope
};

std::optional<InterfaceAddress> interfaceAddressOf(int interface, const Message& message) {
  if (message.type != RTM_NEWADDR) return std::nullopt;
  const auto entry = entryOf<ifaddrmsg>(message);
  if (!entry || static_cast<int>(entry->fields.ifa_index) != interface) return std::nullopt;
  const int family = entry->fields.ifa_family;
  if (family != AF_INET && family != AF_INET6) return std::nullopt;
  constexpr std::uint32_t kUnusable = IFA_F_TENTATIVE | IFA_F_DADFAILED | IFA_F_DEPRECATED;
  // An optimistic address is in use before duplicate address detection has ended (RFC 4429).
  const std::uint32_t flags =
      entry->attributes.number<std::uint32_t>(IFA_FLAGS).value_or(entry->fields.ifa_flags);
  if ((flags & kUnusable) != 0 && (flags & IFA_F_OPTIMISTIC) == 0) return std::nullopt;
  // On a link with a peer, IFA_ADDRESS is the peer's.
  auto octets = entry->attributes.find(IFA_LOCAL);
  if (!octets) octets = entry->attributes.find(IFA_ADDRESS);
  InterfaceAddress address{textOf(family, octets.value_or(ieee80211::Bytes())), family,
                           entry->fields.ifa_scope};
  if (address.text.empty()) return std::nullopt;
  return address;
}

bool isSubnetOf(int interface, int family, ieee80211::Bytes octets, const Message& message) {
  if (message.type != RTM_NEWADDR) return false;
  const auto entry = entryOf<ifaddrmsg>(message);
  if (!entry || static_cast<int>(entry->fields.ifa_index) != interface ||
      entry->fields.ifa_family != family) {
    return false;
  }
  const ieee80211::Bytes subnet = entry->attributes.find(IFA_ADDRESS).value_or(ieee80211::Bytes());
  const unsigned bits = entry->fields.ifa_prefixlen;
  if (subnet.size() != octets.size() || bits > octets.size() * 8) return false;
  for (unsigned bit = 0; bit < bits; ++bit) {
    if (((subnet[bit / 8] ^ octets[bit / 8]) & (0x80U >> bit % 8)) != 0) return false;
  }
  return true;
}

struct DefaultRoute {
  std::string gateway;
  int family = AF_UNSPEC;
  bool inMainTable = false;
  std::uint32_t metric = 0;
};

// Returns the gateway of a route with one next hop, or of the first of several next hops over the
// interface.
std::string gatewayOf(int interface, int family, const Attributes& route) {
  const auto over = route.number<std::int32_t>(RTA_OIF);
  if (over) {
    return *over == interface ? textOf(family, route.find(RTA_GATEWAY).value_or(ieee80211::Bytes()))
                              : "";
  }
  ieee80211::Bytes ways = route.find(RTA_MULTIPATH).value_or(ieee80211::Bytes());
  while (ways.size() >= sizeof(rtnexthop)) {
    rtnexthop way{};
    std::memcpy(&way, ways.data(), sizeof way);
    if (way.rtnh_len < sizeof way || way.rtnh_len > ways.size()) break;
    if (way.rtnh_ifindex == interface) {
      const Attributes inside(ways.subspan(sizeof way, way.rtnh_len - sizeof way));
      return textOf(family, inside.find(RTA_GATEWAY).value_or(ieee80211::Bytes()));
    }
    ways = ways.subspan(std::min<std::size_t>(RTNH_ALIGN(way.rtnh_len), ways.size()));
  }
  return {};
}

std::optional<DefaultRoute> defaultRouteOf(int interface, const Message& message) {
  if (message.type != RTM_NEWROUTE) return std::nullopt;
  const auto entry = entryOf<rtmsg>(message);
  if (!entry || entry->fields.rtm_dst_len != 0 || entry->fields.rtm_type != RTN_UNICAST ||
      (entry->fields.rtm_flags & RTM_F_CLONED) != 0) {
    return std::nullopt;
  }
  const int family = entry->fields.rtm_family;
  if (family != AF_INET && family != AF_INET6) return std::nullopt;
  const std::uint32_t table =
      entry->attributes.number<std::uint32_t>(RTA_TABLE).value_or(entry->fields.rtm_table);
  DefaultRoute route{gatewayOf(interface, family, entry->attributes), family,
                     table == RT_TABLE_MAIN,
                     entry->attributes.number<std::uint32_t>(RTA_PRIORITY).value_or(0)};
  if (route.gateway.empty()) return std::nullopt;
  return route;
}

// Requests the entries of both IP versions in one dump.
int ask(NetlinkSocket& socket, int type, ieee80211::Bytes fields, const Deadline& deadline,
        std::vector<Message>& answers) {
  Request request(type, fields, Request::Kind::dump);
  return socket.ask(request, deadline, answers);
}

}  // namespace

facts::Addresses addressesOf(int interface, const std::vector<Message>& addresses,
                             const std::vector<Message>& routes) {
  std::vector<InterfaceAddress> usable;
  for (const Message& message : addresses) {
    if (auto address = interfaceAddressOf(interface, message))
      usable.push_back(std::move(*address));
  }
  std::ranges::stable_sort(usable, {}, &InterfaceAddress::scope);
  facts::Addresses result;
  for (InterfaceAddress& address : usable) {
    (address.family == AF_INET ? result.ipv4 : result.ipv6).push_back(std::move(address.text));
  }
  std::vector<DefaultRoute> defaults;
  for (const Message& message : routes) {
    if (auto route = defaultRouteOf(interface, message)) defaults.push_back(std::move(*route));
  }
  // Other tables are for packets that rules select: they count only if the main table has no
  // default route.
  std::ranges::stable_sort(defaults, {}, [](const DefaultRoute& route) {
    return std::pair(!route.inMainTable, route.metric);
  });
  for (const DefaultRoute& route : defaults) {
    auto& gateway = route.family == AF_INET ? result.ipv4Gateway : result.ipv6Gateway;
    if (!gateway) gateway = route.gateway;
  }
  return result;
}

bool isInOwnSubnet(int interface, const std::string& address,
                   const std::vector<Message>& addresses) {
  const int family = address.find(':') == std::string::npos ? AF_INET : AF_INET6;
  std::array<std::uint8_t, sizeof(in6_addr)> octets{};
  if (inet_pton(family, address.c_str(), octets.data()) != 1) return false;
  const auto used =
      ieee80211::Bytes(octets).first(family == AF_INET ? sizeof(in_addr) : sizeof(in6_addr));
  return std::ranges::any_of(addresses, [&](const Message& message) {
    return isSubnetOf(interface, family, used, message);
  });
}

bool isInOwnSubnet(int interface, const std::string& address, const Deadline& deadline) {
  NetlinkSocket socket(NETLINK_ROUTE);
  std::vector<Message> addresses;
  return ask(socket, RTM_GETADDR, octetsIn(ifaddrmsg{}), deadline, addresses) == 0 &&
         isInOwnSubnet(interface, address, addresses);
}

Result<facts::Addresses> readAddresses(int interface, const Deadline& deadline) {
  constexpr std::string_view kSubject = "the interface's addresses";
  NetlinkSocket socket(NETLINK_ROUTE);
  ifinfomsg link{};
  link.ifi_index = interface;
  Request exists(RTM_GETLINK, octetsIn(link), Request::Kind::one);
  std::vector<Message> addresses;
  int error = interface > 0 ? socket.ask(exists, deadline, addresses) : ENODEV;
  if (error != 0) return unknownFor(error, kSubject);

  error = ask(socket, RTM_GETADDR, octetsIn(ifaddrmsg{}), deadline, addresses);
  std::vector<Message> routes;
  if (error == 0) error = ask(socket, RTM_GETROUTE, octetsIn(rtmsg{}), deadline, routes);
  if (error != 0) return unknownFor(error, kSubject);
  return addressesOf(interface, addresses, routes);
}

Result<facts::Addresses> readAddressesOfLink(const Result<Carrier>& carrier,
                                             const Deadline& deadline) {
  if (!carrier) return carrier.error();
  if (carrier->otherMember) return sentByAnother(*carrier->otherMember);
  return readAddresses(carrier->index, deadline);
}

}  // namespace wifi_profile::linux::netlink
