// The proxies of the session, from its environment and its desktop.

#include "BusFixture.h"
#include "devices/linux/bus/SessionProxies.h"

namespace wifi_profile::linux::bus {
namespace {

std::string sourceIn(std::vector<const char*> environment) {
  environment.push_back(nullptr);
  return proxyInEnvironment(environment.data()).source;
}

TEST(ProxyInTheEnvironment, IsAVariableOfAnyCase) {
  EXPECT_EQ(sourceIn({"PATH=/bin", "http_proxy=http://proxy.test"}),
            "http_proxy in the environment");
  EXPECT_EQ(sourceIn({"HTTPS_PROXY=http://proxy.test"}), "HTTPS_PROXY in the environment");
  EXPECT_EQ(sourceIn({"All_Proxy=socks://proxy.test"}), "All_Proxy in the environment");
}

TEST(ProxyInTheEnvironment, OfPlainHttpIsNamedFirst) {
  EXPECT_EQ(sourceIn({"all_proxy=a", "https_proxy=b", "HTTP_PROXY=c"}),
            "HTTP_PROXY in the environment");
}

TEST(ProxyInTheEnvironment, IsNoneWhereTheVariableIsEmptyOrHasAnotherName) {
  EXPECT_EQ(sourceIn({}), "");
  EXPECT_EQ(
      sourceIn({"http_proxy=", "ftp_proxy=a", "http_proxy_=a", "xhttp_proxy=a", "http_proxy"}), "");
  EXPECT_EQ(proxyInEnvironment(nullptr).source, "");
}

class SessionProxyTest : public BusFixture {
 protected:
  // Of a portal that answers so.
  Result<facts::SessionProxy> answered(const std::vector<std::string>& proxies) {
    FakeService service(daemon_.address(), "org.freedesktop.portal.Desktop");
    service.method("/org/freedesktop/portal/desktop", "org.freedesktop.portal.ProxyResolver",
                   "Lookup", [proxies](const std::string& address) {
                     EXPECT_EQ(address, "http://example.com/");
                     return proxies;
                   });
    service.start();
    return read(deadline());
  }
  Result<facts::SessionProxy> read(const Deadline& deadline, const char* variable = nullptr) {
    const char* const environment[] = {variable, nullptr};
    return readSessionProxy(environment, *bus_, deadline);
  }
  static constexpr const char* kDesktop = "XDG_CURRENT_DESKTOP=GNOME";
  static constexpr const char* kSession = "DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent/socket";
};

TEST_F(SessionProxyTest, OfTheDesktopIsAnythingButADirectConnection) {
  EXPECT_EQ(answered({"http://proxy.test:3128"})->source, "the desktop's settings");
  EXPECT_EQ(answered({"http://proxy.test:3128", "direct://"})->source, "the desktop's settings");
  EXPECT_EQ(answered({"direct://"})->source, "");
  EXPECT_EQ(answered({})->source, "");
}

TEST_F(SessionProxyTest, OfNoSessionIsNoneWithoutAPortalAndWithoutABus) {
  EXPECT_EQ(read(deadline()), Result<facts::SessionProxy>(facts::SessionProxy{}));
  bus_ = Bus::at("unix:path=/nonexistent/socket");
  EXPECT_EQ(read(deadline()), Result<facts::SessionProxy>(facts::SessionProxy{}));
}

TEST_F(SessionProxyTest, IsNoneWhereAPortalWithoutADesktopDoesNotKnowOfProxies) {
  FakeService service(daemon_.address(), "org.freedesktop.portal.Desktop");
  service.start();
  EXPECT_EQ(read(deadline()), Result<facts::SessionProxy>(facts::SessionProxy{}));
  EXPECT_EQ(read(deadline(), kDesktop).error().reason, Reason::notTold);
}

TEST_F(SessionProxyTest, OfADesktopIsUnknownWhereItsPortalIsNotRunning) {
  EXPECT_EQ(read(deadline(), kDesktop).error().reason, Reason::noService);
  EXPECT_TRUE(read(deadline(), kSession)) << "a session without a desktop has no portal";
  EXPECT_TRUE(read(deadline(), "XDG_CURRENT_DESKTOP=")) << "an empty variable says nothing";
}

TEST_F(SessionProxyTest, OfASessionIsUnknownWhereItsBusIsNotThere) {
  bus_ = Bus::at("unix:path=/nonexistent/socket");
  EXPECT_EQ(read(deadline(), kSession).error().reason, Reason::noService);
  EXPECT_EQ(read(deadline(), kDesktop).error().reason, Reason::noService);
}

TEST_F(SessionProxyTest, IsUnknownWhereThePortalDoesNotAnswer) {
  FakeService service(daemon_.address(), "org.freedesktop.portal.Desktop");
  service.silentMethod<std::vector<std::string>, std::string>(
      "/org/freedesktop/portal/desktop", "org.freedesktop.portal.ProxyResolver", "Lookup");
  service.start();
  EXPECT_EQ(read(shortDeadline()).error().reason, Reason::tookTooLong);
}

TEST_F(SessionProxyTest, OfTheEnvironmentAsksNobody) {
  const char* const environment[] = {"http_proxy=http://proxy.test", nullptr};
  const Deadline over{Clock::now(), cancellation_.get_token()};
  EXPECT_EQ(readSessionProxy(environment, *bus_, over)->source, "http_proxy in the environment");
}

}  // namespace
}  // namespace wifi_profile::linux::bus
