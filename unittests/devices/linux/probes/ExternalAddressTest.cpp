#include <gtest/gtest.h>
#include <unistd.h>

#include "devices/linux/probes/ExternalAddress.h"
#include "devices/linux/probes/HttpServers.h"
#include "devices/linux/probes/NatPmp.h"
#include "devices/linux/probes/SecondHop.h"
#include "devices/linux/probes/Upnp.h"

namespace wifi_profile::linux::probes {
namespace {

using namespace std::chrono_literals;

constexpr std::uint16_t kNatPmpPort = 5351, kDiscoveryPort = 1900;

std::string natPmpAnswer(int code, const std::string& address) {
  return std::string{0, static_cast<char>(128), 0, static_cast<char>(code), 0, 0, 0, 9} + address;
}

std::vector<std::string> toldByNatPmp(const std::string& question) {
  if (question != std::string(2, '\0')) return {};
  return {natPmpAnswer(0, "\xcb\x71\x07\x09")};
}

TEST(NatPmp, TellsTheOuterAddress) {
  const UdpServer router(toldByNatPmp, ownAddress(), kNatPmpPort);
  EXPECT_EQ(askNatPmp(ownAddress(), "", longDeadline()), "203.113.7.9");
  EXPECT_EQ(askNatPmp(ownAddress(), "lo", longDeadline()), "203.113.7.9");
  EXPECT_EQ(askNatPmp(ownAddress(), "none0", longDeadline()), std::nullopt);
}

TEST(NatPmp, IsNotBelievedWithARefusalGarbageOrNoHostsAddress) {
  for (const std::string& text :
       {natPmpAnswer(2, "\xcb\x71\x07\x09"), natPmpAnswer(0, std::string(4, '\0')),
        natPmpAnswer(0, "\xff\xff\xff\xff"), std::string(16, 'x')}) {
    const UdpServer router([&](const std::string&) { return std::vector<std::string>{text}; },
                           ownAddress(), kNatPmpPort);
    EXPECT_EQ(askNatPmp(ownAddress(), "", Deadline::in(100ms)), std::nullopt);
  }
}

TEST(NatPmp, GoesOnAfterAnOddAnswer) {
  const UdpServer router(
      [](const std::string&) {
        return std::vector<std::string>{"", "x", std::string(16, 'x'), natPmpAnswer(3, "1234"),
                                        natPmpAnswer(0, "\xcb\x71\x07\x09")};
      },
      ownAddress(), kNatPmpPort);
  EXPECT_EQ(askNatPmp(ownAddress(), "", longDeadline()), "203.113.7.9");
}

// A router whose services are described at `control`, which answers with `reply`.
class UpnpRouter {
 public:
  explicit UpnpRouter(std::string reply, const std::string& control = "/control",
                      const std::string& location = "")
      : web_(
            [this, reply, control](int connection) {
              const std::string request = hear(connection);
              const bool asked = request.starts_with("POST /control ");
              if (asked) ++questions_;
              say(connection, page("200 OK", asked ? reply : description(control)));
            },
            ownAddress()),
        discovery_(
            [this, location](const std::string& question) {
              const std::string own =
                  "http://" + ownAddress() + ":" + std::to_string(web_.port()) + "/root.xml";
              if (!question.starts_with("M-SEARCH * HTTP/1.1\r\n"))
                return std::vector<std::string>{};
              return std::vector<std::string>{
                  "garbage", "HTTP/1.1 200 OK\r\nLocation: " + (location.empty() ? own : location) +
                                 "\r\n\r\n"};
            },
            ownAddress(), kDiscoveryPort) {}

  int questions() const { return questions_; }

 private:
  static std::string description(const std::string& control) {
    return "<?xml version=\"1.0\"?><root><device><deviceType>urn:schemas-upnp-org:device:"
           "InternetGatewayDevice:1</deviceType><deviceList><device><serviceList><service>"
           "<serviceType>urn:schemas-upnp-org:service:WANIPConnection:1</serviceType><controlURL>" +
           control + "</controlURL></service></serviceList></device></deviceList></device></root>";
  }

  std::atomic<int> questions_ = 0;
  TcpServer web_;
  UdpServer discovery_;
};

std::string reply(const std::string& address) {
  return "<s:Envelope><s:Body><u:GetExternalIPAddressResponse><NewExternalIPAddress>" + address +
         "</NewExternalIPAddress></u:GetExternalIPAddressResponse></s:Body></s:Envelope>";
}

TEST(Upnp, TellsTheOuterAddress) {
  const UpnpRouter router(reply("203.0.113.9"));
  EXPECT_EQ(askUpnp(ownAddress(), "", longDeadline()), "203.0.113.9");
  EXPECT_EQ(router.questions(), 1);
}

TEST(Upnp, IsNotBelievedWithoutAnAddress) {
  for (const std::string& text : {reply("0.0.0.0"), reply("home"), reply(std::string(300, '9')),
                                  std::string("<<<<"), std::string()}) {
    const UpnpRouter router(text);
    EXPECT_EQ(askUpnp(ownAddress(), "", longDeadline()), std::nullopt) << text;
  }
}

TEST(Upnp, SendsNothingToWhereTheRouterOnlyPoints) {
  const TcpServer other(answering(page("200 OK", reply("203.0.113.9"))));
  const UpnpRouter router("", urlOf(other, "/control"));
  EXPECT_EQ(askUpnp(ownAddress(), "", longDeadline()), std::nullopt);
  EXPECT_EQ(other.connections(), 0);
}

TEST(Upnp, BelievesNoDescriptionThatIsElsewhere) {
  const TcpServer other(answering(page("200 OK", "")));
  const UpnpRouter router("", "/control", urlOf(other, "/root.xml"));
  EXPECT_EQ(askUpnp(ownAddress(), "", Deadline::in(300ms)), std::nullopt);
  EXPECT_EQ(other.connections(), 0);
}

TEST(Outside, IsKnownWithWhatCouldBeFoundOut) {
  const UdpServer router(toldByNatPmp, ownAddress(), kNatPmpPort);
  const auto told = routerOutside(ownAddress(), kHere, {}, Deadline::in(800ms));
  ASSERT_TRUE(told);
  EXPECT_EQ(told->address, "203.113.7.9");
  EXPECT_EQ(told->secondHop, std::nullopt);  // it is this machine itself
}

TEST(Outside, IsWhatUpnpTellsWhereNatPmpsAddressSaysNothing) {
  const UdpServer natPmp(
      [](const std::string&) { return std::vector<std::string>{natPmpAnswer(0, "\xa9\xfe\1\1")}; },
      ownAddress(), kNatPmpPort);
  EXPECT_EQ(routerOutside(ownAddress(), "", {}, Deadline::in(600ms))->address, "169.254.1.1");
  const UpnpRouter upnp(reply("203.0.113.9"));
  EXPECT_EQ(routerOutside(ownAddress(), "", {}, Deadline::in(600ms))->address, "203.0.113.9");
}

TEST(Outside, IsAskedForWhileANameIsLookedUpInVain) {
  const UdpServer silent([](const std::string&) { return std::vector<std::string>{}; });
  const UdpServer router(toldByNatPmp, ownAddress(), kNatPmpPort);
  const Route route{"", std::vector{kHere + ":" + std::to_string(silent.port())}};
  const auto told = routerOutside(ownAddress(), "site.test", route, Deadline::in(300ms));
  ASSERT_TRUE(told);
  EXPECT_EQ(told->address, "203.113.7.9");
}

TEST(Outside, IsKnownToBeSilent) {
  const auto told = routerOutside(ownAddress(), "", {}, Deadline::in(300ms));
  ASSERT_TRUE(told);
  EXPECT_EQ(*told, facts::RouterOutside{});
}

TEST(Outside, IsWaitedForNoLongerThanASecondWhereTheRouterIsSilent) {
  const UdpServer natPmp([](const std::string&) { return std::vector<std::string>{}; },
                         ownAddress(), kNatPmpPort);
  const UdpServer upnp([](const std::string&) { return std::vector<std::string>{}; }, ownAddress(),
                       kDiscoveryPort);
  const auto began = Clock::now();
  EXPECT_EQ(*routerOutside(ownAddress(), "", {}, longDeadline()), facts::RouterOutside{});
  EXPECT_LT(Clock::now() - began, 1400ms);
  EXPECT_GT(natPmp.questions(), 1);  // packets get lost
  EXPECT_GT(upnp.questions(), 1);
}

TEST(Outside, IsUnknownWithoutARoutersAddress) {
  for (const char* text : {"", "fe80::1", "router", "224.0.0.1"}) {
    const auto told = routerOutside(text, "", {}, longDeadline());
    ASSERT_FALSE(told) << text;
    EXPECT_EQ(told.error().reason, Reason::failed) << text;
  }
}

TEST(Outside, EndsWhenItIsCalledOff) {
  std::stop_source cancellation;
  const UdpServer router(
      [&](const std::string&) {
        cancellation.request_stop();
        return std::vector<std::string>{};
      },
      ownAddress(), kNatPmpPort);
  const auto told = routerOutside(ownAddress(), "", {}, Deadline::in(1h, cancellation.get_token()));
  ASSERT_FALSE(told);
  EXPECT_EQ(told.error().reason, Reason::tookTooLong);
}

}  // namespace
}  // namespace wifi_profile::linux::probes
