// Addresses and gateways; and, by the one kernel that every machine has, sockets.

#include <arpa/inet.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/if_addr.h>
#include <linux/rtnetlink.h>
#include <net/if.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>

#include "devices/linux/netlink/Addresses.h"
#include "devices/linux/netlink/NetlinkBytes.h"
#include "devices/linux/netlink/Nl80211.h"
#include "devices/linux/probes/OwnNetwork.h"

namespace wifi_profile::linux::netlink {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

ieee80211::Octets octetsOfAddress(const char* text) {
  in6_addr ipv6{};
  in_addr ipv4{};
  if (inet_pton(AF_INET, text, &ipv4) == 1) return octetsOf(ipv4);
  EXPECT_EQ(inet_pton(AF_INET6, text, &ipv6), 1) << text;
  return octetsOf(ipv6);
}

unsigned char familyOf(const char* text) {
  return std::string_view(text).find(':') == std::string_view::npos ? AF_INET : AF_INET6;
}

Message address(const char* text, std::uint32_t flags = 0, unsigned char scope = 0,
                unsigned interface = 4) {
  const ifaddrmsg fields{.ifa_family = familyOf(text),
                         .ifa_prefixlen = 24,
                         .ifa_flags = 0,
                         .ifa_scope = scope,
                         .ifa_index = interface};
  return {.type = RTM_NEWADDR,
          .payload = octetsOf(fields) + attribute(IFA_ADDRESS, octetsOfAddress(text)) +
                     numberAttribute(IFA_FLAGS, flags)};
}

rtmsg defaultRoute(unsigned char family) {
  rtmsg fields{};
  fields.rtm_family = family;
  fields.rtm_type = RTN_UNICAST;
  fields.rtm_table = RT_TABLE_MAIN;
  return fields;
}

Message route(const char* gateway, std::uint32_t metric, std::uint32_t interface = 4) {
  return {.type = RTM_NEWROUTE,
          .payload = octetsOf(defaultRoute(familyOf(gateway))) +
                     attribute(RTA_GATEWAY, octetsOfAddress(gateway)) +
                     numberAttribute(RTA_OIF, interface) + numberAttribute(RTA_PRIORITY, metric)};
}

TEST(InterfaceAddresses, AreThoseOfTheInterfaceThatCanBeUsed) {
  const auto found = addressesOf(
      4,
      {address("192.168.50.20"), address("10.0.0.1", 0, 0, 5),
       address("2001:db8::1", IFA_F_TENTATIVE), address("2001:db8::2", IFA_F_DEPRECATED),
       address("2001:db8::3", IFA_F_TENTATIVE | IFA_F_DADFAILED),
       address("2001:db8::4", IFA_F_TENTATIVE | IFA_F_OPTIMISTIC),
       address("2001:db8::5", IFA_F_PERMANENT)},
      {});
  EXPECT_THAT(found.ipv4, ElementsAre("192.168.50.20"));
  EXPECT_THAT(found.ipv6, ElementsAre("2001:db8::4", "2001:db8::5"));
  EXPECT_FALSE(found.ipv4Gateway);
}

TEST(InterfaceAddresses, OfWideScopeComeFirst) {
  const auto found =
      addressesOf(4, {address("fe80::1", 0, RT_SCOPE_LINK), address("2001:db8::1")}, {});
  EXPECT_THAT(found.ipv6, ElementsAre("2001:db8::1", "fe80::1"));
}

TEST(InterfaceAddresses, OnALinkWithAPeerAreTheOwnOnes) {
  Message own = address("192.0.2.9");
  own.payload = own.payload + attribute(IFA_LOCAL, octetsOfAddress("192.0.2.8"));
  EXPECT_THAT(addressesOf(4, {own}, {}).ipv4, ElementsAre("192.0.2.8"));
}

TEST(InterfaceAddresses, SayWhatLiesInTheirSubnets) {
  const std::vector<Message> own{address("192.168.50.20"), address("2001:db8::1"),
                                 address("10.0.0.1", 0, 0, 5)};
  for (const char* const neighbour : {"192.168.50.1", "192.168.50.255", "2001:dff::53"}) {
    EXPECT_TRUE(isInOwnSubnet(4, neighbour, own)) << neighbour;
  }
  for (const char* const other : {"192.168.51.1", "10.0.0.2", "2001:e00::53", "router", ""}) {
    EXPECT_FALSE(isInOwnSubnet(4, other, own)) << other;
  }
}

TEST(InterfaceAddresses, OnALinkWithAPeerHaveThePeersSubnet) {
  Message own = address("192.0.2.9");
  own.payload = own.payload + attribute(IFA_LOCAL, octetsOfAddress("198.51.100.8"));
  EXPECT_TRUE(isInOwnSubnet(4, "192.0.2.1", {own}));
  EXPECT_FALSE(isInOwnSubnet(4, "198.51.100.1", {own}));
}

TEST(Gateways, AreThoseOfLowestMetricOverTheInterface) {
  const auto found = addressesOf(4, {},
                                 {route("192.168.50.2", 600), route("192.168.50.1", 100),
                                  route("10.0.0.1", 0, 5), route("fe80::1", 1024)});
  EXPECT_EQ(found.ipv4Gateway, "192.168.50.1");
  EXPECT_EQ(found.ipv6Gateway, "fe80::1");
}

TEST(Gateways, OfARouteWithSeveralWaysIsTheOneOverTheInterface) {
  const auto way = [](int interface, const char* gateway) {
    const ieee80211::Octets inside = attribute(RTA_GATEWAY, octetsOfAddress(gateway));
    rtnexthop fields{};
    fields.rtnh_len = static_cast<unsigned short>(sizeof fields + inside.size());
    fields.rtnh_ifindex = interface;
    return octetsOf(fields) + inside;
  };
  const Message several{
      .type = RTM_NEWROUTE,
      .payload = octetsOf(defaultRoute(AF_INET)) +
                 attribute(RTA_MULTIPATH, way(5, "10.0.0.1") + way(4, "192.168.50.1"))};
  EXPECT_EQ(addressesOf(4, {}, {several}).ipv4Gateway, "192.168.50.1");
}

TEST(Gateways, OfOtherTablesCountWhereTheMainOneHasNone) {
  Message table = route("192.168.50.2", 0);
  table.payload = table.payload + numberAttribute(RTA_TABLE, std::uint32_t{52});
  EXPECT_EQ(addressesOf(4, {}, {table}).ipv4Gateway, "192.168.50.2");
  EXPECT_EQ(addressesOf(4, {}, {table, route("192.168.50.1", 600)}).ipv4Gateway, "192.168.50.1");
}

TEST(Gateways, OfPartsOfTheNetDoNotCount) {
  Message part = route("192.168.50.1", 0);
  part.payload[offsetof(rtmsg, rtm_dst_len)] = 8;
  EXPECT_FALSE(addressesOf(4, {}, {part}).ipv4Gateway);
}

TEST(InterfaceAddresses, OfMessagesThatAreCutOffAreNone) {
  const Message whole = address("192.168.50.20");
  for (std::size_t size = 0; size < sizeof(ifaddrmsg) + 8; ++size) {
    Message cut = whole;
    cut.payload.resize(size);
    EXPECT_THAT(addressesOf(4, {cut}, {cut}).ipv4, IsEmpty()) << size;
  }
}

Deadline deadline(std::chrono::milliseconds time = std::chrono::seconds(20)) {
  return Deadline::in(time);
}

TEST(InterfaceAddresses, OfTheLoopbackAreRead) {
  const auto index = static_cast<int>(if_nametoindex("lo"));
  ASSERT_GT(index, 0);
  const auto found = readAddresses(index, deadline());
  ASSERT_TRUE(found) << found.error().message;
  EXPECT_THAT(found->ipv4, Contains("127.0.0.1"));
  EXPECT_FALSE(found->ipv4Gateway);
}

TEST(InterfaceAddresses, OfAnInterfaceThatIsNotThereAreUnknown) {
  for (const int index : {0, -1, 1 << 30}) {
    const auto found = readAddresses(index, deadline());
    ASSERT_FALSE(found);
    EXPECT_EQ(found.error().reason, Reason::noHardware) << found.error().message;
  }
}

TEST(AddressesOfALink, AreNotKnownWhereItsCarrierIsNot) {
  const Error late{Reason::tookTooLong, "Try again."};
  const auto addresses = readAddressesOfLink(late, deadline());
  ASSERT_FALSE(addresses);
  EXPECT_EQ(addresses.error(), late);
}

TEST(AddressesOfALink, AreNotKnownWhereAnotherMemberSends) {
  const OtherMember other{"eth0", "bond0", "wlan0", true};
  const auto addresses = readAddressesOfLink(Carrier{1, "bond0", other}, deadline());
  ASSERT_FALSE(addresses);
  EXPECT_EQ(addresses.error(), sentByAnother(other));
}

TEST(NetlinkSocket, AsksNothingMoreWhenTheTimeIsOverOrTheWorkCalledOff) {
  std::stop_source cancellation;
  const auto late = readAddresses(1, deadline(std::chrono::milliseconds(-1)));
  ASSERT_FALSE(late);
  EXPECT_EQ(late.error().reason, Reason::tookTooLong);
  cancellation.request_stop();
  const auto cancelled =
      readAddresses(1, Deadline::in(std::chrono::seconds(20), cancellation.get_token()));
  ASSERT_FALSE(cancelled);
  EXPECT_EQ(cancelled.error().reason, Reason::tookTooLong);
}

TEST(NetlinkSocket, IsFreshAfterAQuestionWasCalledOff) {
  NetlinkSocket socket(NETLINK_ROUTE);
  const ifaddrmsg all{};
  const auto question = [&all] {
    return Request(RTM_GETADDR,
                   ieee80211::Bytes(reinterpret_cast<const std::uint8_t*>(&all), sizeof all),
                   Request::Kind::dump);
  };
  std::vector<Message> answers;
  Request first = question();
  EXPECT_EQ(socket.ask(first, deadline(std::chrono::milliseconds(-1)), answers), ETIMEDOUT);
  EXPECT_THAT(answers, IsEmpty());
  Request second = question();
  EXPECT_EQ(socket.ask(second, deadline(), answers), 0);
  EXPECT_FALSE(answers.empty());
}

TEST(NetlinkSocket, WaitsForEventsUntilItIsCalledOff) {
  std::stop_source cancellation;
  NetlinkSocket socket(NETLINK_ROUTE);
  ASSERT_EQ(socket.listen(RTNLGRP_LINK), 0);
  cancellation.request_stop();
  Message event;
  EXPECT_EQ(socket.nextEvent({Clock::time_point::max(), cancellation.get_token()}, event),
            ECANCELED);
}

// Whether so many changes of an interface fit into what the socket keeps unread.
bool keepsEvents(NetlinkSocket& socket, int changes) {
  if (socket.listen(RTNLGRP_LINK) != 0) return false;
  ifreq change{.ifr_ifrn = {"lo"}, .ifr_ifru = {}};
  const int descriptor = ::socket(AF_INET, SOCK_DGRAM, 0);
  bool done = true;
  for (int count = 0; count < changes; ++count) {
    change.ifr_flags = static_cast<short>(count % 2 == 0 ? 0 : IFF_UP);
    done = done && ioctl(descriptor, SIOCSIFFLAGS, &change) == 0;
  }
  close(descriptor);
  std::vector<Message> events;
  return done && socket.takeEvents(events) == 0 && events.size() >= std::size_t(changes);
}

TEST(NetlinkSocket, KeepsAsManyEventsWhereItWasOpenBeforeItListens) {
  constexpr int kChanges = 60;  // more than the system's usual buffer holds
  const int status = probes::inOwnNetwork([] {
    NetlinkSocket fresh(NETLINK_ROUTE);
    NetlinkSocket opened(NETLINK_ROUTE);
    std::vector<Message> none;
    return opened.takeEvents(none) == 0 && keepsEvents(fresh, kChanges) &&
           keepsEvents(opened, kChanges);
  });
  if (status == probes::kNotPossible) GTEST_SKIP() << "no user namespaces here";
  EXPECT_EQ(status, 0);
}

TEST(NetlinkSocket, ForgetsWhatCameBeforeItListensAnew) {
  const int status = probes::inOwnNetwork([] {
    NetlinkSocket socket(NETLINK_ROUTE);
    if (socket.listen(RTNLGRP_LINK) != 0) return false;
    ifreq change{.ifr_ifrn = {"lo"}, .ifr_ifru = {}};
    const int descriptor = ::socket(AF_INET, SOCK_DGRAM, 0);
    for (const int flags : {0, int{IFF_UP}, 0}) {  // each change is an event
      change.ifr_flags = static_cast<short>(flags);
      if (ioctl(descriptor, SIOCSIFFLAGS, &change) != 0) return false;
    }
    close(descriptor);
    Message event;
    if (socket.nextEvent(deadline(), event) != 0) return false;
    if (socket.listen(RTNLGRP_LINK) != 0) return false;
    return socket.nextEvent(deadline(std::chrono::milliseconds(50)), event) == ETIMEDOUT;
  });
  if (status == probes::kNotPossible) GTEST_SKIP() << "no user namespaces here";
  EXPECT_EQ(status, 0);
}

// Most machines that run this have no Wi-Fi; those that do have interfaces.
TEST(Nl80211, OfAMachineWithoutWifiSaysSo) {
  Nl80211 kernel;
  const auto interfaces = kernel.interfaces(deadline());
  if (interfaces) {
    EXPECT_FALSE(interfaces->empty());
    return;
  }
  EXPECT_TRUE(interfaces.error().reason == Reason::noHardware ||
              interfaces.error().reason == Reason::notSupported)
      << interfaces.error().message;
  const WifiInterface none;
  EXPECT_FALSE(kernel.link(none, deadline()));
  EXPECT_FALSE(kernel.scan(none, deadline()));
  EXPECT_FALSE(kernel.surveys(none, deadline()));
  EXPECT_FALSE(kernel.radio(none, deadline()));
  EXPECT_FALSE(kernel.triggerScan(none, deadline()));
  EXPECT_FALSE(kernel.awaitScanResults(none, ScansThat::ended, deadline()));
}

}  // namespace
}  // namespace wifi_profile::linux::netlink
