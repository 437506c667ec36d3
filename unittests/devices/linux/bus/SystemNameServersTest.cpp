#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>

#include "devices/linux/bus/SystemNameServers.h"
#include "devices/linux/bus/Values.h"

namespace wifi_profile::machine {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(SystemNameServers, AreTheAddressesOfResolvConf) {
  EXPECT_THAT(nameServersIn("# nameserver 192.0.2.1\nsearch home\nnameserver 192.0.2.53\n"
                            "nameserver\t2001:DB8::53  \r\nnameserver fe80::1%wlan0\n"
                            "nameserver fe80::1\nnameserver home\nnameserver\nnameservers 1.2.3.4"),
              ElementsAre("192.0.2.53", "2001:db8::53"));
  EXPECT_THAT(nameServersIn(""), IsEmpty());
}

TEST(SystemNameServers, OfResolvedAreThoseOfTheLinkAndOfAll) {
  const auto server = [](int link, int family, const std::string& octets) {
    return list({number(link), number(family), bytes(octets)});
  };
  EXPECT_THAT(
      nameServersOf(
          3, list({server(3, AF_INET, {"\xc0\0\2\x35", 4}), server(2, AF_INET, {"\xc0\0\2\1", 4}),
                   server(0, AF_INET, {"\xc0\0\2\2", 4}), server(3, AF_INET, "short"),
                   server(3, 99, "1234"), flag(true), list({number(3)})})),
      ElementsAre("192.0.2.53", "192.0.2.2"));
  EXPECT_THAT(nameServersOf(3, text("none")), IsEmpty());
}

}  // namespace
}  // namespace wifi_profile::machine
