#include <arpa/inet.h>
#include <cstring>
#include <gtest/gtest.h>
#include <linux/neighbour.h>
#include <linux/rtnetlink.h>
#include <optional>
#include <sys/socket.h>
#include <unistd.h>

#include "devices/linux/netlink/Neighbours.h"

namespace wifi_profile::linux::netlink {
namespace {

using namespace std::chrono_literals;

constexpr int kWlan = 3;

Message neighbour(const std::string& address, int state, int interface = kWlan,
                  std::optional<std::uint32_t> confirmedTicks = 0) {
  const int family = address.find(':') == std::string::npos ? AF_INET : AF_INET6;
  const std::size_t size = family == AF_INET ? 4 : 16;
  ndmsg fields{};
  fields.ndm_family = static_cast<std::uint8_t>(family);
  fields.ndm_ifindex = interface;
  fields.ndm_state = static_cast<std::uint16_t>(state);
  const rtattr attribute{static_cast<std::uint16_t>(RTA_LENGTH(size)), NDA_DST};
  Message message{.type = RTM_NEWNEIGH, .command = 0, .payload = {}};
  message.payload.resize(sizeof fields + sizeof attribute + size);
  std::memcpy(message.payload.data(), &fields, sizeof fields);
  std::memcpy(message.payload.data() + sizeof fields, &attribute, sizeof attribute);
  inet_pton(family, address.c_str(), message.payload.data() + sizeof fields + sizeof attribute);
  if (confirmedTicks) {
    nda_cacheinfo times{};
    times.ndm_confirmed = *confirmedTicks;
    const rtattr cache{static_cast<std::uint16_t>(RTA_LENGTH(sizeof times)), NDA_CACHEINFO};
    const auto end = message.payload.size();
    message.payload.resize(end + sizeof cache + sizeof times);
    std::memcpy(message.payload.data() + end, &cache, sizeof cache);
    std::memcpy(message.payload.data() + end + sizeof cache, &times, sizeof times);
  }
  return message;
}

NeighbourState stateOf(int state) {
  return neighbourStateOf(kWlan, "192.168.0.1", {neighbour("192.168.0.1", state)}, 4s);
}

TEST(Neighbours, AreThereWhereTheyAnsweredAShortTimeAgo) {
  EXPECT_EQ(stateOf(NUD_REACHABLE), NeighbourState::reachable);
  EXPECT_EQ(stateOf(NUD_STALE), NeighbourState::unproven);
  EXPECT_EQ(stateOf(NUD_DELAY), NeighbourState::unproven);
  EXPECT_EQ(stateOf(NUD_PROBE), NeighbourState::unproven);
  EXPECT_EQ(stateOf(NUD_FAILED), NeighbourState::failed);
  EXPECT_EQ(stateOf(NUD_INCOMPLETE), NeighbourState::failed);
  EXPECT_EQ(stateOf(NUD_NOARP), NeighbourState::unknown);
}

TEST(Neighbours, AreUnprovenWhereTheLastProofIsTooOldOrNotTold) {
  const auto reachable = [](std::optional<std::uint32_t> ticks) {
    return neighbourStateOf(kWlan, "192.168.0.1",
                            {neighbour("192.168.0.1", NUD_REACHABLE, kWlan, ticks)}, 4s);
  };
  const auto ticksPerSecond = static_cast<std::uint32_t>(sysconf(_SC_CLK_TCK));
  EXPECT_EQ(reachable(4 * ticksPerSecond), NeighbourState::reachable);
  EXPECT_EQ(reachable(5 * ticksPerSecond), NeighbourState::unproven);
  EXPECT_EQ(reachable(UINT32_MAX), NeighbourState::unproven);
  EXPECT_EQ(reachable(std::nullopt), NeighbourState::unproven);
}

TEST(Neighbours, AreThoseOfTheAddressAndTheInterface) {
  const std::vector<Message> all{neighbour("192.168.0.1", NUD_FAILED, kWlan + 1),
                                 neighbour("192.168.0.2", NUD_FAILED),
                                 neighbour("fe80::1", NUD_FAILED, kWlan + 1),
                                 neighbour("fe80::1", NUD_REACHABLE),
                                 neighbour("192.168.0.1", NUD_REACHABLE),
                                 {.type = RTM_NEWNEIGH, .command = 0, .payload = {1, 2, 3}}};
  EXPECT_EQ(neighbourStateOf(kWlan, "192.168.0.1", all, 4s), NeighbourState::reachable);
  EXPECT_EQ(neighbourStateOf(kWlan, "fe80::1", all, 4s), NeighbourState::reachable);
  EXPECT_EQ(neighbourStateOf(kWlan, "192.168.0.3", all, 4s), NeighbourState::unknown);
  EXPECT_EQ(neighbourStateOf(kWlan, "router", all, 4s), NeighbourState::unknown);
}

}  // namespace
}  // namespace wifi_profile::linux::netlink
