#include "devices/linux/netlink/Neighbours.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cstring>
#include <linux/neighbour.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>

#include "devices/linux/netlink/Attributes.h"

namespace wifi_profile::machine {
namespace {

using ieee80211::Bytes;

constexpr std::chrono::milliseconds kBetweenLooks{200};

bool isOf(const std::string& address, int family, Bytes octets) {
  std::array<std::uint8_t, sizeof(in6_addr)> expected{};
  if (inet_pton(family, address.c_str(), expected.data()) != 1) return false;
  const std::size_t size = family == AF_INET ? sizeof(in_addr) : sizeof(in6_addr);
  return octets.size() == size && std::equal(octets.begin(), octets.end(), expected.begin());
}

NeighbourState stateOf(unsigned state) {
  if ((state & NUD_REACHABLE) != 0) return NeighbourState::reachable;
  if ((state & (NUD_FAILED | NUD_INCOMPLETE)) != 0) return NeighbourState::failed;
  if ((state & (NUD_STALE | NUD_DELAY | NUD_PROBE)) != 0) return NeighbourState::unproven;
  return NeighbourState::unknown;
}

}  // namespace

NeighbourState neighbourStateOf(int interface, const std::string& address,
                                const std::vector<Message>& neighbours) {
  for (const Message& message : neighbours) {
    ndmsg fields{};
    if (message.type != RTM_NEWNEIGH || message.payload.size() < sizeof fields) continue;
    std::memcpy(&fields, message.payload.data(), sizeof fields);
    if (fields.ndm_ifindex != interface) continue;
    const int family = fields.ndm_family;
    if (family != AF_INET && family != AF_INET6) continue;
    const Attributes attributes(Bytes(message.payload).subspan(NLMSG_ALIGN(sizeof fields)));
    if (isOf(address, family, attributes.find(NDA_DST).value_or(Bytes()))) {
      return stateOf(fields.ndm_state);
    }
  }
  return NeighbourState::unknown;
}

NeighbourState awaitNeighbour(int interface, const std::string& address, const Patience& patience) {
  NetlinkSocket socket(NETLINK_ROUTE);
  const ndmsg all{};
  const Bytes fields{reinterpret_cast<const std::uint8_t*>(&all), sizeof all};
  NeighbourState state = NeighbourState::unknown;
  do {
    Request request(RTM_GETNEIGH, fields, Request::Kind::dump);
    std::vector<Message> neighbours;
    if (socket.ask(request, patience, neighbours) != 0) return NeighbourState::unknown;
    state = neighbourStateOf(interface, address, neighbours);
    if (state != NeighbourState::unproven) break;
    waitFor(-1, 0, patience.atMost(kBetweenLooks));
  } while (!patience.isOver());
  return state;
}

}  // namespace wifi_profile::machine
