#include <array>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include "devices/linux/NoDescriptors.h"
#include "devices/linux/probes/HttpServers.h"
#include "devices/linux/probes/Names.h"
#include "devices/linux/probes/Ping.h"
#include "devices/linux/probes/Portal.h"
#include "devices/linux/probes/Site.h"

namespace wifi_profile::linux::probes {
namespace {

using namespace std::chrono_literals;

using Servers = std::vector<std::string>;

constexpr char kA = 1, kCname = 5, kAaaa = 28;

std::string bytes(std::initializer_list<int> values) {
  std::string text;
  for (const int value : values) text += static_cast<char>(value);
  return text;
}

char typeOf(const std::string& question) { return question[question.size() - 3]; }

std::string record(char type, const std::string& data) {
  return bytes({0xc0, 12, 0, type, 0, 1, 0, 0, 0, 60, 0, static_cast<int>(data.size())}) + data;
}

// The question's own answer: RFC 1035, 4.1.
std::string answer(const std::string& question, int code, const std::string& records = "") {
  std::string text = question;
  text[2] = static_cast<char>(0x81);
  text[3] = static_cast<char>(0x80 | code);
  text[7] = records.empty() ? 0 : 1;
  return text + records;
}

std::vector<std::string> addressesOfBoth(const std::string& question) {
  if (typeOf(question) == kA) return {answer(question, 0, record(kA, bytes({127, 0, 0, 1})))};
  return {answer(question, 0, record(kAaaa, std::string(15, '\0') + '\1'))};
}

Route routeTo(const UdpServer& server) {
  return {"", Servers{kHere + ":" + std::to_string(server.port())}};
}

NameAnswer ask(const UdpServer& server, const std::string& name = "site.test") {
  const auto answer = resolve(name, routeTo(server), longDeadline());
  EXPECT_TRUE(answer);
  return answer ? *answer : NameAnswer{};
}

std::string problemAnswering(const UdpServer::Answer& with) {
  const UdpServer server(with);
  const NameAnswer answer = ask(server);
  EXPECT_FALSE(answer.resolution.resolved);
  EXPECT_TRUE(answer.addresses.empty());
  EXPECT_GT(server.questions(), 0);
  return answer.resolution.problem;
}

TEST(Names, HaveAddressesOfBothProtocols) {
  const UdpServer server(addressesOfBoth);
  const NameAnswer answer = ask(server);
  EXPECT_TRUE(answer.resolution.resolved);
  EXPECT_EQ(answer.resolution.name, "site.test");
  EXPECT_EQ(answer.resolution.problem, "");
  EXPECT_EQ(answer.addresses, (std::vector<std::string>{"127.0.0.1", "::1"}));
}

TEST(Names, HaveTheAddressesOfIpv4FirstAlsoWhereEachAnswerHasThoseOfBoth) {
  const UdpServer server([](const std::string& question) {
    std::string both =
        answer(question, 0,
               record(kA, bytes({127, 0, 0, 1})) + record(kAaaa, std::string(15, '\0') + '\1'));
    both[7] = 2;
    return std::vector<std::string>{both};
  });
  EXPECT_EQ(ask(server).addresses, (std::vector<std::string>{"127.0.0.1", "::1"}));
}

TEST(Names, ResolveWithOneProtocolWhenNothingComesForTheOther) {
  const UdpServer server([](const std::string& question) {
    return typeOf(question) == kA ? addressesOfBoth(question) : std::vector<std::string>{};
  });
  EXPECT_EQ(ask(server).addresses, std::vector<std::string>{"127.0.0.1"});
}

TEST(Names, DoNotResolveWithAnAnswerThatSaysSo) {
  const auto code = [](int number) {
    return [number](const std::string& question) {
      return std::vector<std::string>{answer(question, number)};
    };
  };
  EXPECT_EQ(problemAnswering(code(3)), "no such name");
  EXPECT_EQ(problemAnswering(code(0)), "no address of this name");
  EXPECT_EQ(problemAnswering(code(2)), "server failed");
  EXPECT_EQ(problemAnswering(code(5)), "refused");
}

TEST(Names, WhoseAnswersFitNoDatagramAreAskedByTcp) {
  const UdpServer datagrams([](const std::string& question) {
    std::string cutOff = answer(question, 0);
    cutOff[2] = static_cast<char>(0x83);
    return std::vector<std::string>{cutOff};
  });
  const TcpServer streams(
      [](int connection) {
        // RFC 1035, 4.2.2: two bytes of length before each message.
        std::array<char, 514> buffer{};
        while (recv(connection, buffer.data(), 2, MSG_WAITALL) == 2) {
          const auto size = static_cast<std::size_t>(static_cast<unsigned char>(buffer[1]));
          if (recv(connection, buffer.data(), size, MSG_WAITALL) != static_cast<ssize_t>(size))
            return;
          const std::string told = addressesOfBoth({buffer.data(), size}).front();
          say(connection, bytes({0, static_cast<int>(told.size())}) + told);
        }
      },
      kHere, datagrams.port());
  EXPECT_EQ(ask(datagrams).addresses, (std::vector<std::string>{"127.0.0.1", "::1"}));
  EXPECT_GT(streams.connections(), 0);
}

TEST(Names, DoNotResolveToThemselves) {
  EXPECT_NE(problemAnswering([](const std::string& question) {
              return std::vector<std::string>{answer(question, 0, record(kCname, "\xc0\x0c"))};
            }),
            "");
}

TEST(Names, TimeOutWithSilenceGarbageAndTheAnswersOfOthers) {
  const auto timesOut = [&](const UdpServer::Answer& with) {
    const UdpServer server(with);
    const auto answer = resolve("site.test", routeTo(server), Deadline::in(100ms));
    ASSERT_TRUE(answer);
    EXPECT_FALSE(answer->resolution.resolved);
    EXPECT_EQ(answer->resolution.problem, "timed out");
  };
  timesOut([](const std::string&) { return std::vector<std::string>{}; });
  timesOut([](const std::string& question) {
    auto texts = addressesOfBoth(question);
    texts[0][0] = static_cast<char>(texts[0][0] ^ 0x55);  // another question's number
    return texts;
  });
  timesOut([](const std::string&) {
    return std::vector<std::string>{"", "x", std::string(600, '\xff')};
  });
}

TEST(Names, AreAskedTwiceAndForTheSameTime) {
  const UdpServer silent([](const std::string&) { return std::vector<std::string>{}; });
  const auto began = Clock::now();
  Route route = routeTo(silent);
  route.nameTryTime = 500ms;
  EXPECT_EQ(resolve("site.test", route, longDeadline())->resolution.problem, "timed out");
  EXPECT_EQ(silent.questions(), 4);  // for both protocols' addresses
  EXPECT_GE(Clock::now() - began, 1000ms);
  EXPECT_LT(Clock::now() - began, 1500ms);  // which a second try of 1 s would take
}

TEST(Names, DoNotResolveWithABrokenAnswer) {
  EXPECT_NE(problemAnswering([](const std::string& question) {
              return std::vector<std::string>{
                  answer(question, 0, bytes({0xc0, 12, 0, kA, 0, 1, 0, 0, 0, 60, 0, 40, 1}))};
            }),
            "");
}

TEST(Names, AreNotAskedForWhereThereIsNothingToAsk) {
  const UdpServer server(addressesOfBoth);
  EXPECT_EQ(ask(server, "192.0.2.7").addresses, std::vector<std::string>{"192.0.2.7"});
  EXPECT_EQ(ask(server, "").resolution.problem, "malformed name");
  EXPECT_EQ(ask(server, std::string(300, 'x')).resolution.problem, "malformed name");
  EXPECT_EQ(server.questions(), 0);
  const auto none = resolve("site.test", {"", Servers{"a,b", ""}}, longDeadline());
  ASSERT_TRUE(none);
  EXPECT_EQ(none->resolution.problem, "no name server");
}

TEST(Names, AreNotAskedOfTheSystemsServersWhereTheLinkHasNone) {
  const auto none = resolve("site.test", {"", Servers{}}, longDeadline());
  ASSERT_TRUE(none);
  EXPECT_FALSE(none->resolution.resolved);
  EXPECT_EQ(none->resolution.problem, "no name server");
}

TEST(Names, AreAskedOfTheInterfacesServersAloneWhereOneIsOfThisMachine) {
  const UdpServer own(addressesOfBoth);
  const std::string server = kHere + ":" + std::to_string(own.port());
  EXPECT_FALSE(resolve("site.test", {"lo", Servers{server, "192.0.2.53"}}, Deadline::in(300ms))
                   ->resolution.resolved);
  EXPECT_EQ(own.questions(), 0);
}

TEST(Names, OfAnAliasInThisMachinesHostsFileAreAskedOfTheServer) {
  const UdpServer server(
      [](const std::string& question) { return std::vector<std::string>{answer(question, 3)}; });
  std::string name(256, '\0');
  gethostname(name.data(), name.size());
  name.resize(name.find('\0'));
  EXPECT_FALSE(ask(server, name).resolution.resolved);
  EXPECT_GT(server.questions(), 0);
}

TEST(Names, EndWhenTheyAreCalledOff) {
  std::stop_source cancellation;
  const UdpServer silent([&](const std::string&) {
    cancellation.request_stop();
    return std::vector<std::string>{};
  });
  const auto began = Clock::now();
  EXPECT_FALSE(resolve("site.test", routeTo(silent), Deadline::in(1h, cancellation.get_token())));
  EXPECT_LT(Clock::now() - began, 3s);  // sooner than after the second try
}

TEST(Names, InAddressesOfTheWebAreAskedOfTheLinksServers) {
  const UdpServer server(addressesOfBoth);
  const TcpServer web(answering(page("200 OK", "online")));
  const std::string port = std::to_string(web.port());
  const auto got =
      retrievePage("http://site.test:" + port + "/", "online", routeTo(server), longDeadline());
  ASSERT_TRUE(got);
  EXPECT_TRUE(got->retrieved) << got->problem;
  const auto redirected = [&] {
    const TcpServer first(
        answering(page("302 Found", "", "Location: http://other.test:" + port + "/\r\n")));
    return retrievePage(urlOf(first), "online", routeTo(server), longDeadline());
  }();
  ASSERT_TRUE(redirected);
  EXPECT_TRUE(redirected->retrieved) << redirected->problem;
  const UdpServer empty(
      [](const std::string& question) { return std::vector<std::string>{answer(question, 3)}; });
  const auto site = reachSite("http://site.test/", routeTo(empty), longDeadline());
  ASSERT_TRUE(site);
  EXPECT_EQ(site->problem, "name: no such name");
}

TEST(Names, ThatStandForThisMachineAreNotVisitedThroughAnInterface) {
  const UdpServer server(addressesOfBoth);
  const TcpServer own(answering(page("200 OK", "online")));
  const auto site = reachSite("http://site.test:" + std::to_string(own.port()) + "/",
                              {"lo", routeTo(server).nameServers}, longDeadline());
  ASSERT_TRUE(site);
  EXPECT_EQ(site->problem, "name: blocked: no site has the address 127.0.0.1");
  EXPECT_EQ(own.connections(), 0);
}

// A server that gives every name one address of IPv4.
UdpServer::Answer giving(int a, int b, int c, int d) {
  return [=](const std::string& question) {
    const bool asked = typeOf(question) == kA;
    return std::vector<std::string>{
        answer(question, 0, asked ? record(kA, bytes({a, b, c, d})) : "")};
  };
}

TEST(Names, AreNotResolvedByAnAddressThatNoSiteCanHave) {
  const auto resolved = [&](const UdpServer::Answer& with) {
    const UdpServer server(with);
    const auto answer = resolve("site.test", {"lo", routeTo(server).nameServers}, longDeadline());
    EXPECT_TRUE(answer);
    EXPECT_EQ(answer->resolution.resolved, !answer->addresses.empty());
    EXPECT_EQ(answer->resolution.resolved, answer->resolution.problem.empty());
    return answer->resolution.resolved;
  };
  EXPECT_FALSE(resolved(giving(0, 0, 0, 0)));
  EXPECT_FALSE(resolved(giving(0, 1, 2, 3)));
  EXPECT_FALSE(resolved(giving(127, 0, 0, 1)));
  EXPECT_FALSE(resolved(giving(169, 254, 0, 1)));
  EXPECT_FALSE(resolved(giving(239, 255, 255, 250)));
  EXPECT_FALSE(resolved(giving(255, 255, 255, 255)));
  EXPECT_TRUE(resolved(giving(192, 168, 0, 1)));
  EXPECT_TRUE(resolved(giving(203, 0, 113, 7)));
  const auto ofIPv6 = [](int first, int second, int last) {
    return [=](const std::string& question) {
      const std::string data = bytes({first, second}) + std::string(13, '\0') + bytes({last});
      const bool asked = typeOf(question) == kAaaa;
      return std::vector<std::string>{answer(question, 0, asked ? record(kAaaa, data) : "")};
    };
  };
  EXPECT_FALSE(resolved(ofIPv6(0, 0, 0)));
  EXPECT_FALSE(resolved(ofIPv6(0, 0, 1)));
  EXPECT_FALSE(resolved(ofIPv6(0xfe, 0x80, 1)));
  EXPECT_FALSE(resolved(ofIPv6(0xff, 0x02, 1)));
  EXPECT_TRUE(resolved(ofIPv6(0x20, 0x01, 1)));
}

TEST(Names, AskedOfTheSystemsServersAreNotResolvedByAnAddressThatNoSiteCanHave) {
  const auto resolved = [&](const UdpServer::Answer& with) {
    const UdpServer server(with);
    return resolveAsSystem("site.test", *routeTo(server).nameServers, longDeadline())
        ->resolution.resolved;
  };
  EXPECT_FALSE(resolved(giving(0, 0, 0, 0)));
  EXPECT_FALSE(resolved(giving(127, 0, 0, 1)));
  EXPECT_TRUE(resolved(giving(192, 0, 2, 1)));
}

TEST(Names, ThatNoTimeIsLeftForHaveTimedOut) {
  const UdpServer server(addressesOfBoth);
  const auto answer = resolve("site.test", routeTo(server), {Clock::now()});
  ASSERT_TRUE(answer);
  EXPECT_EQ(answer->resolution.problem, "timed out");
}

TEST(Names, AndSitesAreNotKnownWhereThisMachineHasNoDescriptorsLeft) {
  const Route route{"", Servers{"192.0.2.53"}};
  const NoDescriptors none;
  const auto answer = resolve("site.test", route, longDeadline());
  ASSERT_FALSE(answer);
  EXPECT_NE(answer.error().message.find("no descriptors"), std::string::npos);
  for (const std::string url : {"http://192.0.2.80/", "https://site.test/"}) {
    EXPECT_FALSE(reachSite(url, route, longDeadline()));
    EXPECT_FALSE(retrievePage(url, "", route, longDeadline()));
    EXPECT_FALSE(probePortal({"http://192.0.2.80/", "", url}, route, longDeadline()));
  }
  EXPECT_FALSE(ping("192.0.2.80", "", {}, longDeadline()));
}

TEST(Names, OfTheBroadcastAddressMakeNoSiteReached) {
  const UdpServer server(giving(255, 255, 255, 255));
  for (const std::string interface : {"", "lo"}) {
    const Route route{interface, routeTo(server).nameServers};
    const auto site = reachSite("https://site.test/", route, longDeadline());
    ASSERT_TRUE(site);
    EXPECT_FALSE(site->reached);
    EXPECT_NE(site->problem, "");
    const auto page = retrievePage("http://site.test/", "", route, longDeadline());
    ASSERT_TRUE(page);
    EXPECT_FALSE(page->retrieved);
    EXPECT_NE(page->problem, "");
  }
}

TEST(Names, WithADeadAddressLeaveTimeForTheNext) {
  const TcpServer site([](int) {});
  // A queue of connections that is full: further ones get no answer.
  const std::string dead = "127.0.0.2";
  const Descriptor listener = boundSocket(dead, SOCK_STREAM, site.port());
  ASSERT_EQ(listen(listener.number(), 0), 0);
  const auto address = addressOf(dead, site.port(), "");
  const Descriptor first = openSocket(AF_INET, SOCK_STREAM, 0, "");
  const Descriptor second = openSocket(AF_INET, SOCK_STREAM, 0, "");
  connect(first.number(), address->get(), address->size);
  connect(second.number(), address->get(), address->size);
  const UdpServer server([](const std::string& question) {
    if (typeOf(question) != kA) return std::vector<std::string>{answer(question, 0)};
    std::string both = answer(question, 0, record(kA, bytes({127, 0, 0, 2})));
    both[7] = 2;
    return std::vector<std::string>{both + record(kA, bytes({127, 0, 0, 1}))};
  });
  const std::string url = "http://site.test:" + std::to_string(site.port()) + "/";
  Route route = routeTo(server);
  route.connectTime = 500ms;
  const auto reached = reachSite(url, route, longDeadline());
  ASSERT_TRUE(reached);
  EXPECT_TRUE(reached->reached) << reached->problem;
}

}  // namespace
}  // namespace wifi_profile::linux::probes
