#include <cstdio>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <unistd.h>

#include "BusFixture.h"
#include "Values.h"
#include "devices/linux/bus/SystemNameServers.h"

namespace wifi_profile::linux::bus {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(NameServers, AreTheAddressesOfResolvConf) {
  EXPECT_THAT(nameServersIn("# nameserver 192.0.2.1\nsearch home\nnameserver 192.0.2.53\n"
                            "nameserver\t2001:DB8::53  \r\nnameserver fe80::1%wlan0\n"
                            "nameserver fe80::1\nnameserver home\nnameserver\nnameservers 1.2.3.4"),
              ElementsAre("192.0.2.53", "2001:db8::53"));
  EXPECT_THAT(nameServersIn(""), IsEmpty());
}

TEST(NameServers, OfResolvedAreThoseOfTheLinkAndOfAll) {
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

class SystemNameServers : public BusFixture {
 protected:
  SystemNameServers() { file_ = testing::TempDir() + "resolv.conf." + std::to_string(getpid()); }
  ~SystemNameServers() override { std::remove(file_.c_str()); }

  std::optional<std::vector<std::string>> read(const std::string& resolvConf) {
    std::ofstream(file_) << resolvConf;
    return readSystemNameServers(*bus_, 3, deadline(), file_);
  }

  std::string file_;
};

TEST_F(SystemNameServers, AreThoseThatResolvConfNames) {
  EXPECT_EQ(read("nameserver 192.0.2.53\n"), std::vector<std::string>{"192.0.2.53"});
  EXPECT_EQ(read(""), std::nullopt);
}

TEST_F(SystemNameServers, OfAResolverOnThisMachineAreAskedOfResolvedAlone) {
  EXPECT_EQ(read("nameserver 127.0.0.53\n"), std::nullopt);  // which is not there
  EXPECT_EQ(read("nameserver 127.0.0.1\n"), std::nullopt);   // of another kind
  using Server = sdbus::Struct<std::int32_t, std::int32_t, std::vector<std::uint8_t>>;
  FakeService service(daemon_.address(), "org.freedesktop.resolve1");
  service.property(
      "/org/freedesktop/resolve1", "org.freedesktop.resolve1.Manager", "DNS",
      std::vector<Server>{{3, AF_INET, {192, 0, 2, 53}}, {2, AF_INET, {192, 0, 2, 1}}});
  service.start();
  EXPECT_EQ(read("nameserver 127.0.0.53\n"), std::vector<std::string>{"192.0.2.53"});
  EXPECT_EQ(read("nameserver 127.0.0.1\n"), std::nullopt);
}

std::optional<int> towards(const std::string& server) {
  if (server == "198.51.100.1") return std::nullopt;  // no route
  return server == "10.8.0.1" ? 7 : 4;
}

TEST(NameServers, AreTheLinksWhereTheyAreAskedThroughIt) {
  const std::vector<std::string> servers{"192.0.2.1", "10.8.0.1", "198.51.100.1"};
  const auto isOfLink = [](const std::string&) { return false; };
  EXPECT_THAT(*nameServersThrough(4, servers, isOfLink, towards),
              ElementsAre("192.0.2.1", "198.51.100.1"));
  EXPECT_THAT(*nameServersThrough(7, servers, isOfLink, towards),
              ElementsAre("10.8.0.1", "198.51.100.1"));
  EXPECT_EQ(nameServersThrough(4, {"10.8.0.1"}, isOfLink, towards), std::nullopt);
}

TEST(NameServers, OfTheLinksNetworkAreTheLinksThoughACableLeadsThereToo) {
  const auto isRouter = [](const std::string& server) { return server == "192.0.2.1"; };
  EXPECT_THAT(*nameServersThrough(7, {"192.0.2.1", "192.0.2.2"}, isRouter, towards),
              ElementsAre("192.0.2.1"));
}

}  // namespace
}  // namespace wifi_profile::linux::bus
