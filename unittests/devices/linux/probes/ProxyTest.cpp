// Pages through a proxy that the environment names.
#include <cstdlib>
#include <gtest/gtest.h>

#include "devices/linux/probes/HttpServers.h"
#include "devices/linux/probes/Portal.h"
#include "devices/linux/probes/Site.h"

namespace wifi_profile::linux::probes {
namespace {

class Proxy : public testing::Test {
 protected:
  Proxy() { setenv("http_proxy", urlOf(proxy_).c_str(), 1); }
  ~Proxy() override {
    unsetenv("http_proxy");
    unsetenv("no_proxy");
  }

  // By the interface of this machine, whose servers know no name.
  facts::SitePage retrieve(const std::string& url) const {
    const Route route{"lo", std::vector{kHere + ":" + std::to_string(names_.port())}};
    const auto page = retrievePage(url, "online", route, longDeadline());
    EXPECT_TRUE(page);
    return page ? *page : facts::SitePage{};
  }

  const TcpServer proxy_{answering(page("200 OK", "online"))};
  const UdpServer names_{[](std::string text) {
    text[2] = static_cast<char>(0x81);
    text[3] = static_cast<char>(0x83);  // no such name: RFC 1035, 4.1.1
    return std::vector<std::string>{text};
  }};
};

TEST_F(Proxy, OfThisMachineIsAskedWithoutTheInterface) {
  EXPECT_EQ(retrieve("http://203.0.113.80/").problem, "");
  EXPECT_EQ(proxy_.connections(), 1);
}

TEST_F(Proxy, MayKnowANameThatTheServersDoNot) {
  EXPECT_EQ(retrieve("http://site.test/").problem, "");
  EXPECT_EQ(proxy_.connections(), 1);
}

TEST_F(Proxy, OfOtherSitesLeavesANameThatTheServersDoNotKnowUnknown) {
  setenv("no_proxy", "localhost,127.0.0.1", 1);
  const TcpServer own(answering(page("200 OK", "online")));
  // Which the system's own resolver would know.
  const auto page = retrieve("http://localhost:" + std::to_string(own.port()) + "/");
  EXPECT_TRUE(page.problem.starts_with("name: ")) << page.problem;
  EXPECT_FALSE(retrieve(urlOf(own)).retrieved);
  EXPECT_EQ(own.connections(), 0);
  EXPECT_EQ(proxy_.connections(), 0);
}

}  // namespace
}  // namespace wifi_profile::linux::probes
