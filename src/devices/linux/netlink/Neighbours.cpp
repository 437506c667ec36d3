#include "devices/linux/netlink/Neighbours.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <cstring>
#include <linux/neighbour.h>
#include <linux/rtnetlink.h>
#include <optional>
#include <sys/socket.h>
#include <unistd.h>

#include "devices/linux/netlink/Attributes.h"

namespace wifi_profile::linux::netlink {
namespace {

using ieee80211::Bytes;

constexpr std::chrono::milliseconds kBetweenLooks{200};

bool isOf(const std::string& address, int family, Bytes octets) {
  std::array<std::uint8_t, sizeof(in6_addr)> expected{};
  if (inet_pton(family, address.c_str(), expected.data()) != 1) return false;
  const std::size_t size = family == AF_INET ? sizeof(in_addr) : sizeof(in6_addr);
  return octets.size() == size && std::equal(octets.begin(), octets.end(), expected.begin());
}

// Returns the time since the neighbour last proved that it answers. Empty: the kernel does not say.
std::optional<std::chrono::milliseconds> sinceConfirmed(const Attributes& attributes) {
  // The first field of nda_cacheinfo is ndm_confirmed.
  const auto ticks = attributes.number<std::uint32_t>(NDA_CACHEINFO);
  if (!ticks) return std::nullopt;
  return std::chrono::milliseconds(std::int64_t{*ticks} * 1000 / sysconf(_SC_CLK_TCK));
}

NeighbourState stateOf(unsigned state, bool isConfirmed) {
  if ((state & NUD_REACHABLE) != 0) {
    return isConfirmed ? NeighbourState::reachable : NeighbourState::unproven;
  }
  if ((state & (NUD_FAILED | NUD_INCOMPLETE)) != 0) return NeighbourState::failed;
  if ((state & (NUD_STALE | NUD_DELAY | NUD_PROBE)) != 0) return NeighbourState::unproven;
  return NeighbourState::unknown;
}

}  // namespace

NeighbourState neighbourStateOf(int interface, const std::string& address,
                                const std::vector<Message>& neighbours,
                                std::chrono::milliseconds oldest) {
  for (const Message& message : neighbours) {
    ndmsg fields{};
    if (message.type != RTM_NEWNEIGH || message.payload.size() < sizeof fields) continue;
    std::memcpy(&fields, message.payload.data(), sizeof fields);
    if (fields.ndm_ifindex != interface) continue;
    const int family = fields.ndm_family;
    if (family != AF_INET && family != AF_INET6) continue;
    const Attributes attributes(Bytes(message.payload).subspan(NLMSG_ALIGN(sizeof fields)));
    if (isOf(address, family, attributes.find(NDA_DST).value_or(Bytes()))) {
      const auto since = sinceConfirmed(attributes);
      return stateOf(fields.ndm_state, since && *since <= oldest);
    }
  }
  return NeighbourState::unknown;
}

NeighbourState awaitNeighbour(int interface, const std::string& address, Clock::time_point begin,
                              const Deadline& deadline) {
  NetlinkSocket socket(NETLINK_ROUTE);
  const ndmsg all{};
  const Bytes fields{reinterpret_cast<const std::uint8_t*>(&all), sizeof all};
  NeighbourState state = NeighbourState::unknown;
  do {
    Request request(RTM_GETNEIGH, fields, Request::Kind::dump);
    std::vector<Message> neighbours;
    if (socket.ask(request, deadline, neighbours) != 0) return NeighbourState::unknown;
    const auto oldest = std::chrono::ceil<std::chrono::milliseconds>(Clock::now() - begin);
    state = neighbourStateOf(interface, address, neighbours, oldest);
    if (state != NeighbourState::unproven) break;
    sleepUntil(deadline.atMost(kBetweenLooks));
  } while (!deadline.isOver());
  return state;
}

}  // namespace wifi_profile::linux::netlink
