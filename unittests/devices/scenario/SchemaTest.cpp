// The scenario schema takes every scenario of the project and refuses every spoilt one.
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "diagnostic/platform/DiagnosticsTestID.h"
#include "support/SchemaCheck.h"

namespace wifi_profile::test {
namespace {

using nlohmann::json;
using namespace nlohmann::literals;
using std::filesystem::path;

const path kSource = WIFI_PROFILE_SOURCE_DIR;

json readFile(const path& file) {
  std::ifstream in(file);
  if (!in) throw std::runtime_error("cannot read " + file.string());
  return json::parse(in);
}

std::vector<path> scenariosIn(const path& directory) {
  std::vector<path> files;
  for (const auto& entry : std::filesystem::directory_iterator(kSource / directory)) {
    if (entry.path().extension() == ".json") files.push_back(entry.path());
  }
  return files;
}

const SchemaCheck& scenarioSchema() {
  static const SchemaCheck schema(readFile(kSource / "docs" / "scenario.schema.json"));
  return schema;
}

TEST(ScenarioSchema, TakesEveryScenarioOfTheProject) {
  const auto files = scenariosIn("scenarios");
  EXPECT_FALSE(files.empty());
  for (const path& file : files) {
    const auto fault = scenarioSchema().fault(readFile(file));
    EXPECT_EQ(fault, std::nullopt) << file;
  }
}

TEST(ScenarioSchema, RefusesEveryBadScenario) {
  const auto files = scenariosIn("unittests/devices/scenario/bad-scenarios");
  EXPECT_FALSE(files.empty());
  for (const path& file : files) {
    EXPECT_NE(scenarioSchema().fault(readFile(file)), std::nullopt) << file;
  }
}

TEST(ScenarioSchema, KnowsTheTestsByName) {
  json names = json::array();
  for (const auto& test : kDiagnosticsTestNames) names.push_back(test.name);
  const json schema = readFile(kSource / "docs" / "scenario.schema.json");
  EXPECT_EQ(schema["$defs"]["testName"]["enum"], names);
}

// The names of all fields inside a document.
std::set<std::string> fieldsIn(const json& value) {
  std::set<std::string> names;
  for (const auto& [key, element] : value.items()) {
    if (value.is_object()) names.insert(key);
    if (element.is_structured()) names.merge(fieldsIn(element));
  }
  return names;
}

// The names of all properties that a part of the schema has, whichever definitions it refers to.
void addProperties(const json& schema, const json& part, std::set<std::string>& names) {
  for (const auto& [key, rule] : part.items()) {
    if (key == "$ref" && rule != "#/$defs/testName") {
      const std::string pointer = rule.get<std::string>().substr(1);
      addProperties(schema, schema[json::json_pointer(pointer)], names);
    } else if (rule.is_structured()) {
      if (key == "properties") {
        for (const auto& property : rule.items()) names.insert(property.key());
      }
      addProperties(schema, rule, names);
    }
  }
}

TEST(ScenarioSchema, TakesTheWorldThatHasEveryField) {
  const json full = readFile(kSource / "unittests/devices/scenario/full-world.json");
  EXPECT_EQ(scenarioSchema().fault(full), std::nullopt);
  const json schema = readFile(kSource / "docs" / "scenario.schema.json");
  std::set<std::string> named;
  addProperties(schema, schema["$defs"]["world"], named);
  EXPECT_GT(named.size(), 80U);
  const std::set<std::string> used = fieldsIn(full["world"]);
  for (const std::string& name : named) EXPECT_TRUE(used.contains(name)) << name;
}

TEST(ScenarioSchema, NamesThePlaceOfAFault) {
  const json scenario = R"({"scenario": 1, "answers": {"PingWAN": [{}, {"times": 0}]}})"_json;
  EXPECT_EQ(scenarioSchema().fault(scenario), "/answers/PingWAN/1/times fails minimum 1");
}

// A scenario with one answer that has one piece of information.
json scenarioWithInformation(const std::string& key, const json& value) {
  json scenario = R"({"scenario": 1, "answers": {"BTCoex": [{"info": {}}]}})"_json;
  scenario["answers"]["BTCoex"][0]["info"][key] = value;
  return scenario;
}

TEST(ScenarioSchema, TakesAnythingUnderKeysThatAreNoRecords) {
  for (const json& value : R"([null, true, -1.5, "x", [1], {"channel": "six"}])"_json) {
    const auto fault = scenarioSchema().fault(scenarioWithInformation("Anything", value));
    EXPECT_EQ(fault, std::nullopt) << value;
  }
}

TEST(ScenarioSchema, TakesValuesOfAnotherTypeUnderTheKeysOfRecords) {
  for (const char* key : {"PingResult", "CurrentChannel", "2GHzChannel", "5GHzChannel",
                          "5GHz40MHzChannel", "5GHzNonDFSChannel", "PreferredNetwork"}) {
    for (const json& value : R"([null, true, 11, 0.5, "x", [1]])"_json) {
      const auto fault = scenarioSchema().fault(scenarioWithInformation(key, value));
      EXPECT_EQ(fault, std::nullopt) << key << ' ' << value;
    }
  }
  for (const json& value : R"([null, true, 11, 0.5, "x", {"bssid": 1}])"_json) {
    const auto fault = scenarioSchema().fault(scenarioWithInformation("ScanResults", value));
    EXPECT_EQ(fault, std::nullopt) << value;
  }
}

TEST(SchemaCheck, RefusesASchemaWithRulesItDoesNotKnow) {
  for (const json& schema : R"([
         {"pattern": "a"},
         {"properties": {"a": {"format": "date"}}},
         {"anyOf": [{"type": "text"}]},
         {"items": {"$ref": "#/$defs/none"}},
         {"$ref": "other.json"}
       ])"_json) {
    EXPECT_THROW(SchemaCheck{schema}, std::invalid_argument) << schema;
  }
}

TEST(SchemaCheck, TellsBooleansIntegersAndDoublesApart) {
  const SchemaCheck integer(R"({"type": "integer"})"_json);
  EXPECT_FALSE(integer.fault(1));
  EXPECT_TRUE(integer.fault(true));
  EXPECT_TRUE(integer.fault(1.5));
  const SchemaCheck truth(R"({"const": true})"_json);
  EXPECT_FALSE(truth.fault(true));
  EXPECT_TRUE(truth.fault(1));
}

TEST(SchemaCheck, ComparesIntegersOf64BitsExactly) {
  const SchemaCheck schema(
      R"({"minimum": -9223372036854775808, "maximum": 9223372036854775807})"_json);
  EXPECT_FALSE(schema.fault(INT64_MIN));
  EXPECT_FALSE(schema.fault(INT64_MAX));
  EXPECT_TRUE(schema.fault(static_cast<std::uint64_t>(INT64_MAX) + 1));
}

}  // namespace
}  // namespace wifi_profile::test
