#include <gtest/gtest.h>
#include <linux/if_link.h>
#include <linux/rtnetlink.h>
#include <net/if.h>

#include "devices/linux/NetlinkBytes.h"
#include "devices/linux/netlink/Carrier.h"

namespace wifi_profile::machine {
namespace {

// One interface of the kernel's list.
struct Listed {
  int index;
  const char* name;
  int master = 0;         // 0: it is no member
  const char* kind = "";  // "": a device
  Octets data = {};       // of its kind
  bool isRunning = true;
};

Message linkOf(const Listed& listed) {
  ifinfomsg fields{};
  fields.ifi_index = listed.index;
  fields.ifi_flags = listed.isRunning ? IFF_UP | IFF_RUNNING : IFF_UP;
  Octets payload = octetsOf(fields) + attribute(IFLA_IFNAME, listed.name);
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

Octets bond(std::uint8_t mode, int active = 0) {
  Octets data = numberAttribute(IFLA_BOND_MODE, mode);
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

TEST(Carrier, SaysWhichOtherMemberTheBondSendsThrough) {
  EXPECT_EQ(carrierOfWlan0(
                {{2, "eth0", 7}, {4, "wlan0", 7}, {7, "bond0", 0, "bond", bond(kActiveBackup, 2)}}),
            (Carrier{7, "bond0", "eth0"}));
}

TEST(Carrier, SaysWhichOtherMemberABondSendsThroughAsWell) {
  const auto beside = [](bool isRunning) {
    return *carrierOfWlan0({{2, "eth0", 7, "", {}, isRunning},
                            {4, "wlan0", 7},
                            {7, "bond0", 0, "bond", bond(kBalance)}});
  };
  EXPECT_EQ(beside(true).otherMember, "eth0");
  EXPECT_EQ(beside(false).otherMember, std::nullopt);
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

class CarrierOfTheKernel : public testing::Test {
 protected:
  const Cancellation never_;
  const Patience patience_{Clock::now() + std::chrono::minutes(1), never_};
  const int loopback_ = static_cast<int>(if_nametoindex("lo"));
};

TEST_F(CarrierOfTheKernel, IsRead) {
  const auto carrier = readCarrier(loopback_, patience_);
  ASSERT_TRUE(carrier) << carrier.why().sentence;
  EXPECT_EQ(*carrier, (Carrier{loopback_, "lo", {}}));
  EXPECT_EQ(readCarrier(1 << 30, patience_).why().reason, checks::Reason::noHardware);
}

TEST_F(CarrierOfTheKernel, InterfaceTowardsAnAddressIsTheOneThatPacketsLeaveBy) {
  EXPECT_EQ(interfaceTowards("127.0.0.1", patience_), loopback_);
  EXPECT_EQ(interfaceTowards("no address", patience_), std::nullopt);
}

}  // namespace
}  // namespace wifi_profile::machine
