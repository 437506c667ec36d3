#include "devices/linux/netlink/Carrier.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cerrno>
#include <cstring>
#include <linux/if_link.h>
#include <linux/rtnetlink.h>
#include <net/if.h>

#include "devices/linux/netlink/Attributes.h"

namespace wifi_profile::machine {
namespace {

// Of a bond in a bridge in another bond, and no end.
constexpr int kMostLevels = 4;
// Reserved for documentation: only a default route leads there (RFC 5737, RFC 3849).
constexpr std::array kInTheInternet{"203.0.113.1", "2001:db8::1"};

struct Interface {
  int index = 0;
  bool isRunning = false;
  std::string name;
  std::optional<int> master;
  std::string kind;  // such as "bond"; empty: a device
  std::optional<int> activeMember;
  bool sharesLoad = false;  // a bond that sends through all of its members
};

std::optional<Interface> interfaceOf(const Message& message) {
  ifinfomsg fields{};
  if (message.type != RTM_NEWLINK || message.payload.size() < sizeof fields) return std::nullopt;
  std::memcpy(&fields, message.payload.data(), sizeof fields);
  const Attributes attributes(Bytes(message.payload).subspan(NLMSG_ALIGN(sizeof fields)));
  const Attributes information = attributes.nested(IFLA_LINKINFO);
  Interface interface;
  interface.index = fields.ifi_index;
  interface.isRunning = (fields.ifi_flags & IFF_RUNNING) != 0;
  interface.name = attributes.text(IFLA_IFNAME).value_or("");
  interface.master = attributes.number<std::int32_t>(IFLA_MASTER);
  interface.kind = information.text(IFLA_INFO_KIND).value_or("");
  if (interface.kind != "bond") return interface;
  const Attributes bond = information.nested(IFLA_INFO_DATA);
  interface.activeMember = bond.number<std::int32_t>(IFLA_BOND_ACTIVE_SLAVE);
  // Active-backup and the two that balance by themselves have one active member.
  constexpr std::array<std::uint8_t, 3> kWithActive{1, 5, 6};
  const auto mode = bond.number<std::uint8_t>(IFLA_BOND_MODE);
  interface.sharesLoad = mode && std::ranges::find(kWithActive, *mode) == kWithActive.end();
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

const Interface* otherMemberOf(const Interface& bond, const Interface& member,
                               const std::vector<Interface>& all) {
  if (bond.activeMember && *bond.activeMember != member.index) return find(all, *bond.activeMember);
  if (!bond.sharesLoad) return nullptr;
  const auto found = std::ranges::find_if(all, [&](const Interface& one) {
    return one.master == bond.index && one.index != member.index && one.isRunning;
  });
  return found == all.end() ? nullptr : &*found;
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
    const Interface* const other = otherMemberOf(*master, *member, all);
    if (other != nullptr) carrier.otherMember = other->name;
    member = master;
  }
  carrier.index = member->index;
  carrier.name = member->name;
  return carrier;
}

checks::Known<Carrier> readCarrier(int interface, const Patience& patience) {
  constexpr std::string_view kSubject = "the interfaces";
  NetlinkSocket socket(NETLINK_ROUTE);
  Request request(RTM_GETLINK, octetsIn(ifinfomsg{}), Request::Kind::dump);
  std::vector<Message> links;
  if (const int error = socket.ask(request, patience, links); error != 0) {
    return unknownFor(error, kSubject);
  }
  const auto carrier = carrierOf(interface, links);
  if (!carrier) return unknownFor(ENODEV, kSubject);
  return *carrier;
}

std::optional<int> interfaceTowards(const std::string& address, const Patience& patience) {
  const int family = address.find(':') == std::string::npos ? AF_INET : AF_INET6;
  std::array<std::uint8_t, sizeof(in6_addr)> octets{};
  if (inet_pton(family, address.c_str(), octets.data()) != 1) return std::nullopt;
  const std::size_t count = family == AF_INET ? sizeof(in_addr) : sizeof(in6_addr);
  rtmsg fields{};
  fields.rtm_family = static_cast<unsigned char>(family);
  fields.rtm_dst_len = static_cast<unsigned char>(count * 8);
  Request request(RTM_GETROUTE, octetsIn(fields), Request::Kind::one);
  request.put(RTA_DST, Bytes(octets).first(count));
  NetlinkSocket socket(NETLINK_ROUTE);
  std::vector<Message> answers;
  if (socket.ask(request, patience, answers) != 0) return std::nullopt;
  for (const Message& answer : answers) {
    if (answer.type != RTM_NEWROUTE || answer.payload.size() < sizeof fields) continue;
    const Attributes route(Bytes(answer.payload).subspan(NLMSG_ALIGN(sizeof fields)));
    if (const auto over = route.number<std::int32_t>(RTA_OIF)) return over;
  }
  return std::nullopt;
}

std::optional<std::string> otherWayOut(int interface, const Patience& patience) {
  for (const char* const address : kInTheInternet) {
    const auto leavesBy = interfaceTowards(address, patience);
    if (!leavesBy) continue;
    std::array<char, IF_NAMESIZE> name{};
    if (*leavesBy == interface) return std::nullopt;
    if (if_indextoname(static_cast<unsigned>(*leavesBy), name.data()) == nullptr) continue;
    return name.data();
  }
  return std::nullopt;
}

}  // namespace wifi_profile::machine
