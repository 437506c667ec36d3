#include <gtest/gtest.h>

#include "WorldTesting.h"
#include "runtime/JsonReader.h"

namespace wifi_profile::scenario {
namespace {

using namespace std::chrono_literals;

TEST(WorldReader, LeavesAScenarioWithoutAWorldWithoutOne) {
  EXPECT_FALSE(readScenario(*runtime::readJson(R"({"scenario":1})"))->world);
}

TEST(WorldReader, SaysOfEveryFactLeftOutThatItIsNotTold) {
  const facts::Facts all = facts("{}");
  forEachFact(all, [](const facts::FactRow& row, const auto& fact) {
    ASSERT_FALSE(fact) << row.name;
    EXPECT_EQ(fact.error().reason, Reason::notTold);
    EXPECT_EQ(fact.error().message,
              "The scenario's world does not say " + std::string(row.question) + ".");
  });
}

TEST(WorldReader, ReadsWhyAFactIsNotKnown) {
  const auto all = facts(R"({"bluetooth":{"unknown":"noService"},
      "savedNetworks":{"unknown":"notPermitted","sentence":"Ask the owner."}})");
  EXPECT_EQ(all.bluetooth.error().reason, Reason::noService);
  EXPECT_EQ(all.bluetooth.error().message, "The service that knows it is not running.");
  EXPECT_EQ(all.savedNetworks.error().reason, Reason::notPermitted);
  EXPECT_EQ(all.savedNetworks.error().message, "Ask the owner.");
}

TEST(WorldReader, KnowsEveryReasonByNameAndHasASentenceForIt) {
  const std::pair<const char*, Reason> reasons[]{{"notJoined", Reason::notJoined},
                                                 {"notInRange", Reason::notInRange},
                                                 {"notTold", Reason::notTold},
                                                 {"notPermitted", Reason::notPermitted},
                                                 {"notSupported", Reason::notSupported},
                                                 {"noService", Reason::noService},
                                                 {"noHardware", Reason::noHardware},
                                                 {"radioOff", Reason::radioOff},
                                                 {"tookTooLong", Reason::tookTooLong},
                                                 {"failed", Reason::failed},
                                                 {"outsideNetwork", Reason::outsideNetwork},
                                                 {"linkChanged", Reason::linkChanged}};
  for (const auto& [name, reason] : reasons) {
    const auto all = facts(R"({"link":{"unknown":")" + std::string(name) + R"("}})");
    EXPECT_EQ(all.link.error().reason, reason) << name;
    EXPECT_FALSE(all.link.error().message.empty()) << name;
  }
  EXPECT_EQ(faultIn(R"({"link":{"unknown":"shy"}})")
                .find("/world/link/unknown: found the text \"shy\", expected one of \"notJoined\""),
            0U);
  EXPECT_EQ(faultIn(R"({"link":{"unknown":"failed","ssid":"a"}})").find("/world/link/ssid: found "),
            0U);
}

TEST(WorldReader, TakesTheStatusFromTheLinkUnlessTheFileHasOne) {
  const std::string world =
      R"("world":{"link":{"interface":"a","ssid":"Home","bssid":"02:00:00:00:00:01"}})";
  const auto status = [&](const std::string& more) {
    return readScenario(*runtime::readJson(R"({"scenario":1,)" + world + more + "}"))->status;
  };
  ASSERT_EQ(status("").size(), 1U);
  EXPECT_EQ(status("")[0].ssid->string(), "Home");
  EXPECT_EQ(status("")[0].bssid->string(), "02:00:00:00:00:01");
  ASSERT_EQ(status(R"(,"status":[{}])").size(), 1U);
  EXPECT_EQ(status(R"(,"status":[{}])")[0].ssid, nullptr);
  EXPECT_EQ(read(R"({"link":{"unknown":"notJoined"}})")->status[0].ssid, nullptr);
}

TEST(WorldReader, ReadsDelaysOfAllTestsOrOfSome) {
  EXPECT_EQ(worldOf("{}").delayOf(DiagnosticsTestID::PingLAN), 0s);
  EXPECT_EQ(worldOf(R"({"delay":0.5})").delayOf(DiagnosticsTestID::PingLAN), 500ms);
  const World some = worldOf(R"({"delay":{"PingLAN":2}})");
  EXPECT_EQ(some.delayOf(DiagnosticsTestID::PingLAN), 2s);
  EXPECT_EQ(some.delayOf(DiagnosticsTestID::PingWAN), 0s);
  EXPECT_EQ(faultIn(R"({"delay":{"PingLAN":-1}})"),
            "/world/delay/PingLAN: found the number -1, expected a number from 0 to 1000000");
  EXPECT_EQ(faultIn(R"({"delay":{"Ping":1}})").find("/world/delay/Ping: found an unknown"), 0U);
}

TEST(WorldReader, RefusesAWorldOfAnotherShape) {
  EXPECT_EQ(faultIn("[]"), "/world: found a list, expected an object");
  EXPECT_EQ(faultIn(R"({"links":{}})").find("/world/links: found an unknown field"), 0U);
  EXPECT_EQ(faultIn(R"({"scan":{}})"), "/world/scan: found an object, expected a list");
  EXPECT_EQ(faultIn(R"({"radio":null})"), "/world/radio: found null, expected an object");
}

}  // namespace
}  // namespace wifi_profile::scenario
