#include "WorldTesting.h"

#include <gtest/gtest.h>

#include "runtime/JsonReader.h"

namespace wifi_profile::scenario {

Result<Scenario> read(const std::string& world) {
  const auto document = runtime::readJson(R"({"scenario":1,"world":)" + world + "}");
  EXPECT_TRUE(document) << world;
  return readScenario(*document);
}

World worldOf(const std::string& world) {
  const auto scenario = read(world);
  EXPECT_TRUE(scenario) << faultIn(world);
  return scenario ? scenario->world.value() : World{};
}

facts::Facts facts(const std::string& world) { return worldOf(world).facts; }

std::string faultIn(const std::string& world) {
  const auto scenario = read(world);
  return scenario ? "" : scenario.error().subject.substr(3) + ": " + scenario.error().message;
}

facts::AccessPoint accessPoint(const std::string& fields) {
  const auto all = facts(R"({"scan":[{"bssid":"02:00:00:00:00:01")" + fields + "}]}");
  if (!all.scan || all.scan->accessPoints.size() != 1) return {};
  return all.scan->accessPoints[0];
}

std::string faultInAccessPoint(const std::string& fields) {
  return faultIn(R"({"scan":[{"bssid":"02:00:00:00:00:01")" + fields + "}]}");
}

}  // namespace wifi_profile::scenario
