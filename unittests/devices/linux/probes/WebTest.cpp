#include <gtest/gtest.h>
#include <poll.h>

#include "devices/linux/probes/Http.h"
#include "devices/linux/probes/HttpServers.h"
#include "devices/linux/probes/OwnNetwork.h"
#include "devices/linux/probes/Portal.h"
#include "devices/linux/probes/Site.h"

namespace wifi_profile::linux::probes {
namespace {

using namespace std::chrono_literals;
using Answer = facts::PortalProbe::Answer;

const Route kAnyRoute;

facts::PortalProbe probe(const std::string& url) {
  const auto probed = probePortal({url, "online", ""}, kAnyRoute, longDeadline());
  EXPECT_TRUE(probed);
  return probed ? *probed : facts::PortalProbe{};
}

facts::PortalProbe probeAnswering(const std::string& text) {
  const TcpServer server(answering(text));
  return probe(urlOf(server));
}

facts::SitePage retrieve(const std::string& url) {
  const auto page = retrievePage(url, "online", kAnyRoute, longDeadline());
  EXPECT_TRUE(page);
  return page ? *page : facts::SitePage{};
}

std::string problemAnswering(const TcpServer::Serve& serve) {
  const TcpServer server(serve);
  const facts::SitePage page = retrieve(urlOf(server));
  EXPECT_EQ(page.retrieved, page.problem.empty());
  return page.problem;
}

TEST(Portal, IsNotThereWithTheAnswersThatAreExpected) {
  EXPECT_EQ(probeAnswering(page("204 No Content", "")).answer, Answer::open);
  EXPECT_EQ(probeAnswering(page("200 OK", "")).answer, Answer::open);
  EXPECT_EQ(probeAnswering(page("200 OK", "we are online\n")).answer, Answer::open);
}

TEST(Portal, IsThereWithAnotherBodyARedirectOr511) {
  EXPECT_EQ(probeAnswering(page("200 OK", "please log in")).answer, Answer::portal);
  EXPECT_EQ(probeAnswering(page("511 Network Authentication Required", "log in")).answer,
            Answer::portal);
  const auto redirected =
      probeAnswering(page("302 Found", "online", "Location: http://login.test/\x1b[2J\r\n"));
  EXPECT_EQ(redirected.answer, Answer::portal);
  EXPECT_TRUE(redirected.detail.starts_with("status 302 to http://login.test/"))
      << redirected.detail;
  EXPECT_EQ(redirected.detail.find('\x1b'), std::string::npos);
}

TEST(Portal, IsTheSameSiteByTlsNot) {
  const auto movedTo = [](const std::string& location) {
    return probeAnswering(page("301 Moved", "", "Location: " + location + "\r\n")).answer;
  };
  EXPECT_EQ(movedTo("https://127.0.0.1/login"), Answer::noAnswer);
  EXPECT_EQ(movedTo("https://127.0.0.1:8443/"), Answer::portal);
  EXPECT_EQ(movedTo("https://127.0.0.2/"), Answer::portal);
  EXPECT_EQ(movedTo("http://127.0.0.1/"), Answer::portal);
}

TEST(Portal, IsToldWithoutWhatItsAddressSaysOfTheDevice) {
  const auto told = probeAnswering(
      page("302 Found", "", "Location: http://login.test/in?mac=02:00:00:00:00:01#me\r\n"));
  EXPECT_EQ(told.detail, "status 302 to http://login.test/in");
}

TEST(Portal, IsNotFollowed) {
  const TcpServer login(answering(page("200 OK", "online")));
  EXPECT_EQ(probeAnswering(page("302 Found", "", "Location: " + urlOf(login) + "\r\n")).answer,
            Answer::portal);
  EXPECT_EQ(login.connections(), 0);
}

TEST(Portal, IsNotKnownFromWhatIsNoAnswer) {
  for (const char* text : {"", "\x16\x03\x01\x02", "online", "HTTP/1.1 \r\n\r\n"}) {
    EXPECT_EQ(probeAnswering(text).answer, Answer::noAnswer) << text;
  }
  EXPECT_EQ(probeAnswering(page("404 Not Found", "online")).detail, "status 404");
  EXPECT_EQ(probe("http://127.0.0.1:" + std::to_string(refusedPort())).detail, "refused");
  EXPECT_EQ(probe("https://127.0.0.1/").detail, "no address of http");
  EXPECT_EQ(probe("").detail, "no address of http");
}

TEST(Portal, IsAskedForWhenTheNetworksOwnAnswerCannotBeHad) {
  const TcpServer server(answering(page("204 No Content", "")));
  const TcpServer api(
      [](int connection) { say(connection, page("200 OK", R"({"captive": true})")); });
  for (const std::string scheme : {"http", "https"}) {  // plain text is neither asked nor believed
    const auto probed =
        probePortal({urlOf(server), "", urlOf(api, "/", scheme)}, kAnyRoute, longDeadline());
    ASSERT_TRUE(probed);
    EXPECT_EQ(probed->answer, Answer::open) << scheme;
  }
}

TEST(Page, IsRetrievedWithStatus200AndItsText) {
  EXPECT_EQ(problemAnswering(answering(page("200 OK", "we are online"))), "");
  EXPECT_EQ(problemAnswering(answering(page("200 OK", "we are not"))), "another page");
  EXPECT_EQ(problemAnswering(answering(page("404 Not Found", "online"))), "status 404");
  EXPECT_EQ(problemAnswering(answering("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n"
                                       "6\r\nonline\r\n0\r\n\r\n")),
            "");
}

TEST(Page, AsksAsThisProgram) {
  std::string request;
  {
    const TcpServer server([&](int connection) {
      request = hear(connection);
      say(connection, page("200 OK", "online"));
    });
    EXPECT_TRUE(retrieve(urlOf(server, "/check.txt")).retrieved);
  }
  EXPECT_TRUE(request.starts_with("GET /check.txt HTTP/1.1\r\n")) << request;
  EXPECT_NE(request.find("User-Agent: wifi-profile/"), std::string::npos) << request;
}

TEST(Page, FollowsFiveRedirectsAndNoMore) {
  std::atomic<int> left = 0;
  const TcpServer server([&](int connection) {
    hear(connection);
    const bool there = left-- == 0;
    say(connection,
        there ? page("200 OK", "online") : page("302 Found", "", "Location: /more\r\n"));
  });
  left = 5;
  EXPECT_EQ(retrieve(urlOf(server)).problem, "");
  left = 6;
  EXPECT_EQ(retrieve(urlOf(server)).problem, "too many redirects");
  EXPECT_EQ(server.connections(), 12);
}

TEST(Page, IsLookedForOverHttpOnly) {
  for (const char* url : {"file:///etc/hostname", "ftp://127.0.0.1/", "dict://127.0.0.1:1/", "",
                          "/", "http://", "nonsense"}) {
    EXPECT_EQ(retrieve(url).problem, "no address of http or https") << url;
    EXPECT_EQ(
        problemAnswering(answering(page("302 Found", "", "Location: " + std::string(url) + "\r\n")))
            .empty(),
        false)
        << url;
  }
}

TEST(Page, EndsWhereTooMuchIsSent) {
  const auto flood = [](const std::string& start, const std::string& more) {
    return [=](int connection) {
      hear(connection);
      say(connection, start);
      while (say(connection, more)) {
      }
    };
  };
  const std::string bytes(4096, 'x');
  EXPECT_EQ(problemAnswering(flood("HTTP/1.1 200 OK\r\n\r\nonline", bytes)), "");
  EXPECT_EQ(problemAnswering(flood("HTTP/1.1 404 Not Found\r\n\r\nonline", bytes)), "status 404");
  const TcpServer another(
      flood("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n", "1000\r\n" + bytes + "\r\n"));
  const auto unknown = retrievePage(urlOf(another), "online", kAnyRoute, longDeadline());
  ASSERT_FALSE(unknown);
  EXPECT_NE(unknown.error().message.find("first 64 KiB"), std::string::npos);
  EXPECT_TRUE(retrievePage(urlOf(another), "", kAnyRoute, longDeadline())->retrieved);
  EXPECT_NE(problemAnswering(flood("HTTP/1.1 200 OK\r\n", "A: " + bytes + "\r\n")), "");
  EXPECT_EQ(problemAnswering(flood("HTTP/1.1 200 OK\r\nA: ", bytes)), "header too long");
  EXPECT_NE(problemAnswering(flood("HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n"
                                   "fffffffffffffffffff\r\n",
                                   bytes)),
            "");
}

TEST(Page, IsNotTakenInPart) {
  EXPECT_EQ(problemAnswering(answering("HTTP/1.1 200 OK\r\nContent-Length: 99\r\n\r\nonline")),
            "connection lost");
  EXPECT_EQ(problemAnswering(answering("")), "no answer");
  EXPECT_EQ(problemAnswering(answering("online")), "no HTTP");
}

TEST(Page, TimesOutWhileItDribblesIn) {
  const TcpServer server([](int connection) {
    hear(connection);
    say(connection, "HTTP/1.1 200 OK\r\n\r\n");
    const std::string dribble(1, 'H');
    while (say(connection, dribble) &&
           waitFor(connection, POLLIN, longDeadline().atMost(20ms)) == Waited::deadline) {
    }
  });
  const auto page = retrievePage(urlOf(server), "online", kAnyRoute, Deadline::in(200ms));
  ASSERT_TRUE(page);
  EXPECT_EQ(page->problem, "timed out");
}

TEST(Page, OfASiteThatDoesNotConnectIsGivenUp) {
  // A queue of connections that is full: further ones get no answer.
  const Descriptor listener = boundSocket(kHere, SOCK_STREAM);
  ASSERT_EQ(listen(listener.number(), 0), 0);
  const auto address = addressOf(kHere, portOf(listener), "");
  const Descriptor first = openSocket(AF_INET, SOCK_STREAM, 0, "");
  const Descriptor second = openSocket(AF_INET, SOCK_STREAM, 0, "");
  connect(first.number(), address->get(), address->size);
  connect(second.number(), address->get(), address->size);
  const auto began = Clock::now();
  const auto page = retrievePage("http://127.0.0.1:" + std::to_string(portOf(listener)) + "/", "",
                                 {.connectTime = 200ms}, longDeadline());
  ASSERT_TRUE(page);
  EXPECT_EQ(page->problem, "timed out");
  EXPECT_LT(Clock::now() - began, 5s);  // a page's whole time is 10 s
}

TEST(Web, EndsWhenItIsCalledOff) {
  for (int operation = 0; operation < 3; ++operation) {
    std::stop_source cancellation;
    const TcpServer silent([&](int connection) {
      cancellation.request_stop();
      untilClosed(connection);
    });
    const Deadline deadline{Clock::now() + 1h, cancellation.get_token()};
    const std::string url = urlOf(silent, "/", operation == 2 ? "https" : "http");
    const auto began = Clock::now();
    if (operation == 0) {
      EXPECT_FALSE(probePortal({url, "", ""}, kAnyRoute, deadline));
    } else if (operation == 1) {
      EXPECT_FALSE(retrievePage(url, "", kAnyRoute, deadline));
    } else {
      EXPECT_FALSE(reachSite(url, kAnyRoute, deadline));
    }
    EXPECT_LT(Clock::now() - began, 4s);  // sooner than by its own deadline
  }
}

TEST(Web, IsUnknownWithoutTime) {
  const Deadline none{Clock::now()};
  EXPECT_EQ(probePortal({"http://127.0.0.1/", "", ""}, kAnyRoute, none).error(), cancelled());
  EXPECT_EQ(reachSite("http://127.0.0.1/", kAnyRoute, none).error(), cancelled());
  EXPECT_EQ(retrievePage("http://127.0.0.1/", "", kAnyRoute, none).error(), cancelled());
}

TEST(Site, IsReachedByConnecting) {
  std::atomic<std::size_t> heard = 0;
  const TcpServer server([&](int connection) { heard += hear(connection).size(); });
  const auto site = reachSite(urlOf(server), kAnyRoute, longDeadline());
  ASSERT_TRUE(site);
  EXPECT_TRUE(site->reached) << site->problem;
  EXPECT_EQ(heard, 0U);
}

TEST(Site, IsNotReachedWhereItRefuses) {
  const auto site =
      reachSite("http://127.0.0.1:" + std::to_string(refusedPort()), kAnyRoute, longDeadline());
  ASSERT_TRUE(site);
  EXPECT_EQ(*site, (facts::SiteReach{false, "refused"}));
}

TEST(Web, IsUnknownThroughAnInterfaceThatIsNotThere) {
  const std::string url = "http://203.0.113.80/";
  const Route route{"none0", {}};
  for (const auto& why : {reachSite(url, route, longDeadline()).error(),
                          retrievePage(url, "", route, longDeadline()).error(),
                          probePortal({url, "", ""}, route, longDeadline()).error()}) {
    EXPECT_EQ(why.reason, Reason::failed);
    EXPECT_NE(why.message.find("whether none0 is still there"), std::string::npos) << why.message;
  }
}

TEST(Web, SendsNothingToThisMachineWhereAnInterfaceIsNamed) {
  const TcpServer own(answering(page("200 OK", "online")));
  const std::string port = ":" + std::to_string(own.port()) + "/";
  for (const std::string host : {"127.0.0.1", "0.0.0.0", "[::ffff:127.0.0.1]", "[::1]", "[::]"}) {
    static_cast<void>(retrievePage("http://" + host + port, "", {"lo", {}}, longDeadline()));
    static_cast<void>(probePortal({"http://" + host + port, "", ""}, {"lo", {}}, longDeadline()));
  }
  EXPECT_EQ(own.connections(), 0);
}

TEST(Web, SendsNothingToAnyAddressOfThisMachine) {
  const int status = inOwnNetwork([] {
    const std::string ofIPv4 = "203.0.113.80", ofIPv6 = "2001:db8::80", linkLocal = "fe80::80";
    if (!addAddress(ofIPv4) || !addAddress(ofIPv6) || !addAddress(linkLocal)) return false;
    const TcpServer own(answering(page("200 OK", "online")), "::");
    const std::string port = ":" + std::to_string(own.port()) + "/";
    for (const std::string& host : {ofIPv4, "[::ffff:" + ofIPv4 + "]", "[" + ofIPv6 + "]",
                                    "[" + linkLocal + "]", "[" + linkLocal + "%25lo]"}) {
      const std::string url = "http://" + host + port;
      const Route route{"lo", {}};
      const auto page = retrievePage(url, "online", route, longDeadline());
      const auto site = reachSite(url, route, longDeadline());
      if (!page || page->retrieved || !site || site->reached) return false;
      static_cast<void>(probePortal({url, "", ""}, route, longDeadline()));
    }
    return own.connections() == 0;
  });
  if (status == kNotPossible) GTEST_SKIP() << "no user namespaces here";
  EXPECT_EQ(status, 0);
}

}  // namespace
}  // namespace wifi_profile::linux::probes
