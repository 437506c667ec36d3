#include <gtest/gtest.h>

#include "devices/linux/probes/WebAnswers.h"

namespace wifi_profile::linux::probes {
namespace {

using facts::PortalProbe;
using Answer = facts::PortalProbe::Answer;

TEST(WebAnswers, OfANetworkSayWhetherItIsCaptive) {
  EXPECT_EQ(captiveFrom(R"({"captive": true, "seconds-remaining": 9})"), true);
  EXPECT_EQ(captiveFrom(R"({"captive": false})"), false);
  for (const char* const body : {"", "{}", "[true]", "true", R"({"captive": 1})",
                                 R"({"captive": "true"})", R"({"captive": true)"}) {
    EXPECT_EQ(captiveFrom(body), std::nullopt) << body;
  }
}

HttpAnswer answered(long status, const std::string& body) {
  HttpAnswer answer;
  answer.complete = true;
  answer.status = status;
  answer.body = body;
  return answer;
}

Answer portalIn(const HttpAnswer& answer) {
  return portalFrom(answer, "http://page.example/", "expected").answer;
}

TEST(WebAnswers, WithAnotherPageOrARedirectArePortals) {
  EXPECT_EQ(portalIn(answered(200, "as expected")), Answer::open);
  EXPECT_EQ(portalIn(answered(200, "")), Answer::open);
  EXPECT_EQ(portalIn(answered(204, "")), Answer::open);
  EXPECT_EQ(portalIn(answered(200, "sign in")), Answer::portal);
  EXPECT_EQ(portalIn(answered(511, "")), Answer::portal);
  EXPECT_EQ(portalIn(answered(404, "")), Answer::noAnswer);
  HttpAnswer moved = answered(302, "");
  moved.redirect = "http://portal.example/?mac=1";
  const facts::PortalProbe probe = portalFrom(moved, "http://page.example/", "");
  EXPECT_EQ(probe.answer, Answer::portal);
  EXPECT_EQ(probe.detail, "status 302 to http://portal.example/");
  moved.redirect = "https://PAGE.example/";
  EXPECT_EQ(portalIn(moved), Answer::noAnswer);
}

TEST(WebAnswers, AreThePageWithStatus200AndTheText) {
  EXPECT_EQ(*pageFrom(answered(200, "as expected"), "expected"), (facts::SitePage{true, {}}));
  EXPECT_EQ(*pageFrom(answered(200, "other"), "expected"),
            (facts::SitePage{false, "another page"}));
  EXPECT_EQ(*pageFrom(answered(404, "expected"), "expected"),
            (facts::SitePage{false, "status 404"}));
  HttpAnswer begun = answered(200, "other");
  begun.cutOff = true;
  EXPECT_FALSE(pageFrom(begun, "expected"));
}

}  // namespace
}  // namespace wifi_profile::linux::probes
