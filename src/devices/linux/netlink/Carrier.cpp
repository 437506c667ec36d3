#include "devices/linux/netlink/Carrier.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <cstring>
#include <linux/if_link.h>
#include <linux/rtnetlink.h>
#include <net/if.h>
#include <net/if_arp.h>

#include "devices/linux/netlink/Attributes.h"

namespace wifi_profile::linux::netlink {
namespace {

// Limits the chain of masters, which could be circular.
constexpr int kMostLevels = 4;
// Reserved for documentation: only a default route leads there (RFC 5737, RFC 3849).
constexpr std::array kInTheInternet{"203.0.113.1", "2001:db8::1"};

struct Interface {
  int index = 0;
  bool isRunning = false;
  std::string name;
  std::optional<int> master;
  std::string kind;              // such as "bond"; empty: the kernel names no kind
  bool sendsThroughOne = false;  // a bond with one active member
  std::optional<int> activeMember;
};

std::optional<Interface> interfaceOf(const Message& message) {
  ifinfomsg fields{};
  if (message.type != RTM_NEWLINK || message.payload.size() < sizeof fields) return std::nullopt;
  std::memcpy(&fields, message.payload.data(), sizeof fields);
  const Attributes attributes(
      ieee80211::Bytes(message.payload).subspan(NLMSG_ALIGN(sizeof fields)));
  const Attributes information = attributes.nested(IFLA_LINKINFO);
  Interface interface;
  interface.index = fields.ifi_index;
  interface.isRunning = (fields.ifi_flags & IFF_RUNNING) != 0;
  interface.name = attributes.text(IFLA_IFNAME).value_or("");
  interface.master = attributes.number<std::int32_t>(IFLA_MASTER);
  interface.kind = information.text(IFLA_INFO_KIND).value_or("");
  if (interface.kind != "bond") return interface;
  const Attributes bond = information.nested(IFLA_INFO_DATA);
  // Modes 5 and 6 (adaptive balancing) also report an active member, but send through all members.
  constexpr std::uint8_t kActiveBackup = 1;
  interface.sendsThroughOne = bond.number<std::uint8_t>(IFLA_BOND_MODE) == kActiveBackup;
  interface.activeMember = bond.number<std::int32_t>(IFLA_BOND_ACTIVE_SLAVE);
  return interface;
}

// Masters of other kinds, such as a VRF, leave the addresses to their members.
bool takesAddresses(const Interface& master) {
  return master.kind == "bond" || master.kind == "team" || master.kind == "bridge";
}

const Interface* find(const std::vector<Interface>& all, int index) {
  const auto found = std::ranges::find(all, index, &Interface::index);
  return found == all.end() ? nullptr : &*found;
}

// Returns another member that sends. A team, a bridge and most bonds may send through each running
// member.
std::optional<OtherMember> otherMemberOf(const Interface& master, const Interface& member,
                                         const std::vector<Interface>& all) {
  const auto sends = [&](const Interface& one) {
    if (master.sendsThroughOne) return one.index == master.activeMember;
    return one.master == master.index && one.isRunning;
  };
  const auto found = std::ranges::find_if(
      all, [&](const Interface& one) { return one.index != member.index && sends(one); });
  if (found == all.end()) return std::nullopt;
  return OtherMember{found->name, master.name, member.name, master.sendsThroughOne};
}

}  // namespace

std::optional<Carrier> carrierOf(int interface, const std::vector<Message>& links) {
  std::vector<Interface> all;
  for (const Message& message : links) {
    if (auto one = interfaceOf(message)) all.push_back(std::move(*one));
  }
  const Interface* member = find(all, interface);
  if (member == nullptr) return std::nullopt;
  Carrier carrier;
  for (int level = 0; level < kMostLevels && member->master; ++level) {
    const Interface* const master = find(all, *member->master);
    if (master == nullptr || !takesAddresses(*master)) break;
    if (!carrier.otherMember) carrier.otherMember = otherMemberOf(*master, *member, all);
    member = master;
  }
  carrier.index = member->index;
  carrier.name = member->name;
  return carrier;
}

Error sentByAnother(const OtherMember& other) {
  if (other.sendsAlone) {
    return {Reason::notTold, other.master + " sends through its member " + other.name +
                                 ", so what is reached is not reached through Wi-Fi: make " +
                                 other.memberOfLink + " the active member of " + other.master +
                                 ", and try again."};
  }
  return {Reason::notTold,
          other.master + " may send through its member " + other.name +
              ", so what is reached may not be reached through Wi-Fi: take all members but " +
              other.memberOfLink + " out of " + other.master + ", and try again."};
}

Result<Carrier> readCarrier(int interface, const Deadline& deadline) {
  constexpr std::string_view kSubject = "the interfaces";
  NetlinkSocket socket(NETLINK_ROUTE);
  Request request(RTM_GETLINK, octetsIn(ifinfomsg{}), Request::Kind::dump);
  std::vector<Message> links;
  if (const int error = socket.ask(request, deadline, links); error != 0) {
    return unknownFor(error, kSubject);
  }
  const auto carrier = carrierOf(interface, links);
  if (!carrier) return unknownFor(ENODEV, kSubject);
  return *carrier;
}

std::optional<int> interfaceTowards(const std::string& address, const Deadline& deadline) {
  const int family = address.find(':') == std::string::npos ? AF_INET : AF_INET6;
  std::array<std::uint8_t, sizeof(in6_addr)> octets{};
  if (inet_pton(family, address.c_str(), octets.data()) != 1) return std::nullopt;
  const std::size_t count = family == AF_INET ? sizeof(in_addr) : sizeof(in6_addr);
  rtmsg fields{};
  fields.rtm_family = static_cast<unsigned char>(family);
  fields.rtm_dst_len = static_cast<unsigned char>(count * 8);
  Request request(RTM_GETROUTE, octetsIn(fields), Request::Kind::one);
  request.put(RTA_DST, ieee80211::Bytes(octets).first(count));
  NetlinkSocket socket(NETLINK_ROUTE);
  std::vector<Message> answers;
  if (socket.ask(request, deadline, answers) != 0) return std::nullopt;
  for (const Message& answer : answers) {
    if (answer.type != RTM_NEWROUTE || answer.payload.size() < sizeof fields) continue;
    const Attributes route(ieee80211::Bytes(answer.payload).subspan(NLMSG_ALIGN(sizeof fields)));
    if (const auto over = route.number<std::int32_t>(RTA_OIF)) return over;
  }
  return std::nullopt;
}

std::optional<facts::OtherInterface> otherInterfaceOf(const Message& link) {
  const auto interface = interfaceOf(link);
  if (!interface) return std::nullopt;
  ifinfomsg fields{};
  std::memcpy(&fields, link.payload.data(), sizeof fields);
  return facts::OtherInterface{
      .name = interface->name,
      .isTunnel = fields.ifi_type != ARPHRD_ETHER || interface->kind == "tun"};
}

std::optional<facts::OtherInterface> readOtherInterface(int interface, const Deadline& deadline) {
  ifinfomsg fields{};
  fields.ifi_index = interface;
  Request request(RTM_GETLINK, octetsIn(fields), Request::Kind::one);
  NetlinkSocket socket(NETLINK_ROUTE);
  std::vector<Message> links;
  if (socket.ask(request, deadline, links) != 0 || links.empty()) return std::nullopt;
  return otherInterfaceOf(links.front());
}

std::optional<int> otherWayOut(int interface, const std::vector<std::optional<int>>& ways) {
  if (std::ranges::find(ways, std::optional(interface)) != ways.end()) return std::nullopt;
  const auto other = std::ranges::find_if(ways, [](const auto& way) { return way.has_value(); });
  return other == ways.end() ? std::nullopt : *other;
}

std::optional<std::string> otherWayOut(int interface, const Deadline& deadline) {
  std::vector<std::optional<int>> ways;
  ways.reserve(kInTheInternet.size());
  for (const char* const address : kInTheInternet) {
    ways.push_back(interfaceTowards(address, deadline));
  }
  const auto other = otherWayOut(interface, ways);
  std::array<char, IF_NAMESIZE> name{};
  if (!other || if_indextoname(static_cast<unsigned>(*other), name.data()) == nullptr) {
    return std::nullopt;
  }
  return name.data();
}

}  // namespace wifi_profile::linux::netlink
