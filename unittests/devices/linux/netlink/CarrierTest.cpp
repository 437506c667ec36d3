#include <gtest/gtest.h>
#include <linux/if_link.h>
#include <linux/rtnetlink.h>
#include <net/if.h>
#include <net/if_arp.h>

#include "devices/linux/netlink/Carrier.h"
#include "devices/linux/netlink/NetlinkBytes.h"

namespace wifi_profile::linux::netlink {
namespace {

// One interface of the kernel's list.
struct Listed {
  int index;
  const char* name;
  int master = 0;               // 0: it is no member
  const char* kind = "";        // "": a device
  ieee80211::Octets data = {};  // of its kind
  bool isRunning = true;
};

Message linkOf(const Listed& listed) {
  ifinfomsg fields{};
  fields.ifi_index = listed.index;
  fields.ifi_flags = listed.isRunning ? IFF_UP | IFF_RUNNING : IFF_UP;
  ieee80211::Octets payload = octetsOf(fields) + attribute(IFLA_IFNAME, listed.name);
  if (listed.master != 0) payload = payload + numberAttribute(IFLA_MASTER, listed.master);
  if (*listed.kind != '\0') {
    payload = payload + attribute(IFLA_LINKINFO, attribute(IFLA_INFO_KIND, listed.kind) +
                                                     attribute(IFLA_INFO_DATA, listed.data));
  }
  return {.type = RTM_NEWLINK, .payload = payload};
}

std::optional<Carrier> carrierOfWlan0(const std::vector<Listed>& listed) {
  std::vector<Message> links;
  for (const Listed& one : listed) links.push_back(linkOf(one));
  return carrierOf(4, links);
}

ieee80211::Octets bond(std::uint8_t mode, int active = 0) {
  ieee80211::Octets data = numberAttribute(IFLA_BOND_MODE, mode);
  if (active != 0) data = data + numberAttribute(IFLA_BOND_ACTIVE_SLAVE, active);
  return data;
}

constexpr std::uint8_t kActiveBackup = 1, kBalance = 0;

TEST(Carrier, IsTheLinksOwnInterfaceWhereThatIsNoMember) {
  EXPECT_EQ(carrierOfWlan0({{1, "lo"}, {4, "wlan0"}}), (Carrier{4, "wlan0", {}}));
  EXPECT_EQ(carrierOfWlan0({{1, "lo"}}), std::nullopt);
}

TEST(Carrier, IsTheBondOrBridgeThatItIsAMemberOf) {
  EXPECT_EQ(carrierOfWlan0({{4, "wlan0", 7}, {7, "bond0", 0, "bond", bond(kActiveBackup, 4)}}),
            (Carrier{7, "bond0", {}}));
  EXPECT_EQ(carrierOfWlan0({{4, "wlan0", 7}, {7, "br0", 0, "bridge"}}), (Carrier{7, "br0", {}}));
  EXPECT_EQ(carrierOfWlan0({{4, "wlan0", 7},
                            {7, "bond0", 8, "bond", bond(kActiveBackup, 4)},
                            {8, "br0", 0, "bridge"}}),
            (Carrier{8, "br0", {}}));
}

TEST(Carrier, OfMastersThatLeaveTheAddressesToTheirMembersIsTheMember) {
  EXPECT_EQ(carrierOfWlan0({{4, "wlan0", 7}, {7, "vrf0", 0, "vrf"}}), (Carrier{4, "wlan0", {}}));
  EXPECT_EQ(carrierOfWlan0({{4, "wlan0", 9}}), (Carrier{4, "wlan0", {}}));
}

TEST(Carrier, SaysWhichMemberABondSendsThroughInstead) {
  EXPECT_EQ(carrierOfWlan0(
                {{2, "eth0", 7}, {4, "wlan0", 7}, {7, "bond0", 0, "bond", bond(kActiveBackup, 2)}}),
            (Carrier{7, "bond0", OtherMember{"eth0", "bond0", "wlan0", true}}));
}

TEST(Carrier, OfAnActiveBackupBondThatSendsThroughTheLinkHasNoOtherMember) {
  EXPECT_EQ(carrierOfWlan0(
                {{2, "eth0", 7}, {4, "wlan0", 7}, {7, "bond0", 0, "bond", bond(kActiveBackup, 4)}}),
            (Carrier{7, "bond0", {}}));
}

TEST(Carrier, SaysWhichRunningMemberMaySendAsWell) {
  const auto beside = [](bool isRunning, const Listed& master) {
    return carrierOfWlan0({{2, "eth0", 7, "", {}, isRunning}, {4, "wlan0", 7}, master})
        ->otherMember;
  };
  // The last two tell an active member, but send through all of them.
  for (const Listed& master :
       {Listed{7, "both", 0, "bridge"}, Listed{7, "both", 0, "team"},
        Listed{7, "both", 0, "bond", bond(kBalance)}, Listed{7, "both", 0, "bond", bond(5, 4)},
        Listed{7, "both", 0, "bond", bond(6, 4)}}) {
    EXPECT_EQ(beside(true, master), (OtherMember{"eth0", "both", "wlan0", false})) << master.kind;
    EXPECT_EQ(beside(false, master), std::nullopt) << master.kind;
  }
}

TEST(Carrier, NamesTheMasterThatHasTheOtherMember) {
  EXPECT_EQ(carrierOfWlan0({{2, "eth0", 7},
                            {4, "wlan0", 7},
                            {7, "bond0", 8, "bond", bond(kActiveBackup, 2)},
                            {8, "br0", 0, "bridge"}}),
            (Carrier{8, "br0", OtherMember{"eth0", "bond0", "wlan0", true}}));
  EXPECT_EQ(carrierOfWlan0({{2, "eth0", 8},
                            {4, "wlan0", 7},
                            {7, "br0", 8, "bridge"},
                            {8, "bond0", 0, "bond", bond(kActiveBackup, 2)}}),
            (Carrier{8, "bond0", OtherMember{"eth0", "bond0", "br0", true}}));
}

TEST(Carrier, ThatAnotherMemberSendsForIsAdvisedWithTheirNames) {
  EXPECT_EQ(sentByAnother({"eth0", "bond0", "wlan0", true}).message,
            "bond0 sends through its member eth0, so what is reached is not reached through Wi-Fi: "
            "make wlan0 the active member of bond0, and try again.");
  EXPECT_EQ(sentByAnother({"eth0", "br0", "wlan0", false}).message,
            "br0 may send through its member eth0, so what is reached may not be reached through "
            "Wi-Fi: take all members but wlan0 out of br0, and try again.");
}

TEST(Carrier, OfMembersThatAreEachOthersIsOneOfThem) {
  EXPECT_TRUE(carrierOfWlan0({{4, "wlan0", 7}, {7, "br0", 8, "bridge"}, {8, "br1", 7, "bridge"}}));
}

TEST(Carrier, OfMessagesThatAreCutOffIsRead) {
  const Message whole = linkOf({4, "wlan0", 7, "bond", bond(kActiveBackup, 2)});
  for (std::size_t size = 0; size < whole.payload.size(); ++size) {
    Message cut = whole;
    cut.payload.resize(size);
    EXPECT_EQ(carrierOf(4, {cut}).has_value(), size >= sizeof(ifinfomsg)) << size;
  }
}

TEST(OtherInterface, IsATunnelUnlessItSendsEthernetFramesByItself) {
  const auto read = [](unsigned short type, const char* kind) {
    Message link = linkOf({2, "other0", 0, kind});
    ifinfomsg fields{};
    std::memcpy(&fields, link.payload.data(), sizeof fields);
    fields.ifi_type = type;
    std::memcpy(link.payload.data(), &fields, sizeof fields);
    return otherInterfaceOf(link);
  };
  EXPECT_EQ(read(ARPHRD_ETHER, ""), (facts::OtherInterface{"other0", false}));
  EXPECT_EQ(read(ARPHRD_ETHER, "bridge"), (facts::OtherInterface{"other0", false}));
  EXPECT_EQ(read(ARPHRD_ETHER, "tun"), (facts::OtherInterface{"other0", true}));
  EXPECT_EQ(read(ARPHRD_NONE, "wireguard"), (facts::OtherInterface{"other0", true}));
  EXPECT_EQ(otherInterfaceOf({.type = RTM_NEWLINK, .payload = {}}), std::nullopt);
}

TEST(OtherWayOut, IsTheOneOfBothProtocolsWhereNeitherLeavesByTheLink) {
  constexpr std::optional<int> kNone, kWlan0 = 4, kTun0 = 7, kEth0 = 2;
  EXPECT_EQ(otherWayOut(4, {kTun0, kTun0}), kTun0);
  EXPECT_EQ(otherWayOut(4, {kTun0, kNone}), kTun0);
  EXPECT_EQ(otherWayOut(4, {kNone, kEth0}), kEth0);
  EXPECT_EQ(otherWayOut(4, {kWlan0, kTun0}), kNone);
  EXPECT_EQ(otherWayOut(4, {kNone, kNone}), kNone);
}

TEST(OtherWayOut, IsNotTheTranslatorOfIPv4OverAnIPv6OnlyLink) {
  constexpr int kClat = 9;
  EXPECT_EQ(otherWayOut(4, {kClat, 4}), std::nullopt);
}

class CarrierOfTheKernel : public testing::Test {
 protected:
  const Deadline deadline_ = Deadline::in(std::chrono::minutes(1));
  const int loopback_ = static_cast<int>(if_nametoindex("lo"));
};

TEST_F(CarrierOfTheKernel, IsRead) {
  const auto carrier = readCarrier(loopback_, deadline_);
  ASSERT_TRUE(carrier) << carrier.error().message;
  EXPECT_EQ(*carrier, (Carrier{loopback_, "lo", {}}));
  EXPECT_EQ(readCarrier(1 << 30, deadline_).error().reason, Reason::noHardware);
}

TEST_F(CarrierOfTheKernel, OtherInterfaceIsRead) {
  EXPECT_EQ(readOtherInterface(loopback_, deadline_).value().name, "lo");
  EXPECT_EQ(readOtherInterface(1 << 30, deadline_), std::nullopt);
}

TEST_F(CarrierOfTheKernel, InterfaceTowardsAnAddressIsTheOneThatPacketsLeaveBy) {
  EXPECT_EQ(interfaceTowards("127.0.0.1", deadline_), loopback_);
  EXPECT_EQ(interfaceTowards("no address", deadline_), std::nullopt);
}

}  // namespace
}  // namespace wifi_profile::linux::netlink
