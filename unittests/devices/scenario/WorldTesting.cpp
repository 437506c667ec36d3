#include "WorldTesting.h"

#include <gtest/gtest.h>

#include "runtime/JsonReader.h"

namespace wifi_profile::scenario {

std::variant<Scenario, Fault> read(const std::string& world) {
  const auto document = runtime::readJson(R"({"scenario":1,"world":)" + world + "}");
  EXPECT_TRUE(std::holds_alternative<ObjectRef>(document)) << world;
  return readScenario(std::get<ObjectRef>(document));
}

World worldOf(const std::string& world) {
  const auto scenario = read(world);
  if (const auto* fault = std::get_if<Fault>(&scenario)) {
    ADD_FAILURE() << fault->pointer << ": found " << fault->found << ", expected "
                  << fault->expected;
    return {};
  }
  return std::get<Scenario>(scenario).world.value();
}

facts::Facts facts(const std::string& world) { return worldOf(world).facts; }

std::string faultIn(const std::string& world) {
  const auto scenario = read(world);
  const auto* fault = std::get_if<Fault>(&scenario);
  return fault ? fault->pointer + ": found " + fault->found + ", expected " + fault->expected : "";
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
