// Random scenarios, from seeds, against a model of the diagnostic that is written down a second
// time and works on the scenario's JSON alone.

#include <algorithm>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <random>

#include "app/cli/ScenarioRun.h"
#include "diagnostic/tests/ExpectedTests.h"

namespace wifi_profile::testing {
namespace {

using Json = nlohmann::json;

// --- Random scenarios --------------------------------------------------------------------------

class Dice {
 public:
  explicit Dice(std::uint64_t seed) : random_(seed) {}
  bool chance(int percent) { return number(0, 99) < percent; }
  int number(int least, int most) {
    return std::uniform_int_distribution<int>(least, most)(random_);
  }
  Json plainValue() {
    switch (number(0, 8)) {
      case 0:
        return nullptr;
      case 1:
        return chance(50);
      case 2:
        return number(-5, 5);
      case 3:
        return number(-5, 5) + 0.5;
      case 4:
        return "text";
      case 5:
        return "\x1b[31m\"quoted\\\" \xe2\x80\xae";
      case 6:
        return Json::array({1, "two", nullptr});
      case 7:
        return Json{{"channel", 7}};  // a record under a channel's key only
      default:
        return 18446744073709551615ULL;
    }
  }
  Json networkName() {
    static const Json kNames{nullptr, "Home", "home", "Cafe", "lab_NoMap", "x_nomap", "_nomap", ""};
    return kNames[static_cast<std::size_t>(number(0, static_cast<int>(kNames.size()) - 1))];
  }
  template <class... Choices>
  Json oneOf(Choices... choices) {
    const std::vector<Json> all{Json(choices)...};
    return all[static_cast<std::size_t>(number(0, static_cast<int>(all.size()) - 1))];
  }

 private:
  std::mt19937_64 random_;
};

Json randomRecord(Dice& dice, Reading reading) {
  switch (reading) {
    case Reading::pingSummary: {
      Json record = Json::object();
      if (dice.chance(70)) record["interfaceName"] = dice.oneOf(nullptr, "wlan0");
      if (dice.chance(70)) record["count"] = dice.number(-3, 9);
      for (const char* key : {"packetLoss", "min", "max", "avg", "stddev"}) {
        if (dice.chance(70)) record[key] = dice.oneOf("NaN", "Infinity", "-Infinity", 2.5, 0.0, 3);
      }
      if (dice.chance(70)) record["timestamp"] = dice.oneOf(0, 86400.75, -0.5, "NaN", "Infinity");
      return record;
    }
    case Reading::preferredSummary: {
      Json record = Json::object();
      if (dice.chance(70)) record["ssid"] = dice.oneOf(nullptr, "Home");
      if (dice.chance(70)) record["security"] = dice.number(-1, 5);
      for (const char* key : {"isPasspoint", "isEnabled", "isCaptive", "isHidden", "isMultiAP"}) {
        if (dice.chance(60)) record[key] = dice.chance(50);
      }
      if (dice.chance(70)) {
        record["lastJoined"] =
            dice.oneOf(nullptr, "2001-01-01T00:00:00Z", "2001-01-01T01:00+01:00");
      }
      return record;
    }
    case Reading::channel:
      return Json{{"channel", dice.number(1, 165)}};
    case Reading::elementCount:
    case Reading::scanList: {
      Json list = Json::array();
      for (int i = dice.number(0, 3); i > 0; --i)
        list.push_back({{"bssid", "02:00"}, {"ssid", nullptr}});
      return list;
    }
    case Reading::unchanged:
      break;
  }
  return dice.plainValue();
}

// A value under an info key of `test`: mostly of the kind it reads, now and then nonsense.
Json randomValue(Dice& dice, const ExpectedTest& test) {
  if (test.reading == Reading::unchanged || dice.chance(80))
    return randomRecord(dice, test.reading);
  return dice.oneOf(nullptr, true, 4, "nonsense");
}

Json randomResult(Dice& dice, const ExpectedTest& test) {
  Json result = Json::object();
  if (dice.chance(80)) result["result"] = dice.chance(50);
  if (dice.chance(80)) result["didPass"] = dice.chance(50);
  if (dice.chance(80)) {
    result["info"] = Json::object();
    for (const ExpectedCopy& copy : test.copies) {
      if (dice.chance(75)) result["info"][copy.infoKey] = randomValue(dice, test);
    }
  } else if (dice.chance(30)) {
    result["info"] = nullptr;
  }
  return result;
}

Json randomAnswer(Dice& dice, const ExpectedTest& test) {
  Json answer = Json::object();
  if (dice.chance(25)) answer["when"] = {{"networkName", dice.networkName()}};
  if (dice.chance(25)) answer["times"] = dice.number(1, 2);
  if (dice.chance(20)) answer["error"] = {{"code", dice.number(-1, 2)}};
  if (dice.chance(10)) answer["delay"] = dice.oneOf(0, 1, 2.5);
  if (dice.chance(10)) {
    answer["results"] = nullptr;
  } else if (dice.chance(20)) {
    answer["results"] = Json::array();
    for (int i = dice.number(0, 2); i > 0; --i) {
      answer["results"].push_back(dice.chance(20) ? Json() : randomResult(dice, test));
    }
  } else {
    answer.update(randomResult(dice, test));
  }
  return answer;
}

Json randomScenario(Dice& dice) {
  Json scenario{{"scenario", 1}, {"status", Json::array()}, {"answers", Json::object()}};
  Json status = Json::object();
  if (dice.chance(85)) status["ssid"] = dice.networkName();
  if (dice.chance(15)) status["error"] = {{"code", dice.number(0, 2)}};
  scenario["status"].push_back(status);
  for (const ExpectedTest& test : expectedTests()) {
    if (dice.chance(5)) continue;
    Json& answers = scenario["answers"][test.member()];
    answers = Json::array();
    for (int i = dice.number(0, 3); i > 0; --i) answers.push_back(randomAnswer(dice, test));
  }
  return scenario;
}

// --- The model ---------------------------------------------------------------------------------

bool endsWithNoMap(const Json& name) {
  if (!name.is_string()) return false;
  std::string lower = name;
  std::transform(lower.begin(), lower.end(), lower.begin(), ::tolower);
  return lower.ends_with("_nomap");
}

Json number(const Json& record, const char* key, bool nanIsMissing) {
  const Json value = record.value(key, Json(0.0));
  if (value == "NaN" && nanIsMissing) return nullptr;
  return value.is_number() ? Json(value.get<double>()) : value;
}

// What is stored for a value found; discarded: it does not count as found.
Json storedFor(Reading reading, const Json& value) {
  const Json notFound(Json::value_t::discarded);
  switch (reading) {
    case Reading::pingSummary: {
      if (!value.is_object()) return notFound;
      static const std::map<std::string, Json> kDates{{"0.0", "2001-01-01T00:00:00Z"},
                                                      {"86400.75", "2001-01-02T00:00:00Z"},
                                                      {"-0.5", "2000-12-31T23:59:59Z"}};
      const Json time = number(value, "timestamp", false);
      const auto date = kDates.find(time.dump());
      return {{"SSID", value.value("interfaceName", Json())},
              {"count", value.value("count", Json(0))},
              {"packetLoss", number(value, "packetLoss", true)},
              {"min", number(value, "min", false)},
              {"max", number(value, "max", false)},
              {"avg", number(value, "avg", true)},
              {"stddev", number(value, "stddev", true)},
              {"timestamp", date == kDates.end() ? Json() : date->second}};
    }
    case Reading::preferredSummary: {
      if (!value.is_object()) return notFound;
      Json summary{{"SSID", value.value("ssid", Json())},
                   {"security", value.value("security", Json(0))}};
      for (const char* key : {"isPasspoint", "isEnabled", "isCaptive", "isHidden", "isMultiAP"}) {
        summary[key] = value.value(key, Json(false));
      }
      const bool joined = value.contains("lastJoined") && !value["lastJoined"].is_null();
      summary["lastJoined"] = joined ? Json("2001-01-01T00:00:00Z") : Json();
      return summary;
    }
    case Reading::channel:
      return value.is_object() ? value["channel"] : notFound;
    case Reading::elementCount:
      return value.is_array() ? Json(value.size()) : notFound;
    case Reading::scanList:
    case Reading::unchanged:
      break;
  }
  return value;
}

class Model {
 public:
  Model(Json scenario, const std::optional<std::string>& networkName)
      : scenario_(std::move(scenario)) {
    const Json& status = scenario_["status"][0];
    const bool failed = status.contains("error") && status["error"]["code"] != 0;
    if (failed) log("Query Status failed with error: error " + status["error"]["code"].dump());
    const Json joined = failed ? Json() : status.value("ssid", Json());
    const Json selected = networkName ? Json(*networkName) : joined;
    Json section = Json::object();
    runBatch(expectedDeviceBatch(), selected, section);
    record["data"]["device"] = section;
    section = Json::object();
    if (!joined.is_null() && !endsWithNoMap(joined))
      runBatch(expectedCurrentBatch(), Json(), section);
    record["data"]["currentNetwork"] = section;
    section = Json::object();
    if (!selected.is_null() && !endsWithNoMap(selected) && selected != joined) {
      runBatch(expectedSelectedBatch(), selected, section);
    }
    record["data"]["selectedNetwork"] = section;
    record["statusCode"] = endsWithNoMap(selected) ? -7 : endsWithNoMap(joined) ? -6 : 0;
  }

  Json record;
  std::string lines;
  int tests = 0;

 private:
  void log(const std::string& text) { lines += "[ERROR] - Wi-Fi Profile: " + text + "\n"; }

  void runBatch(const std::vector<int>& order, const Json& name, Json& section) {
    for (const int number : order) {
      const auto test = std::find_if(expectedTests().begin(), expectedTests().end(),
                                     [&](const auto& row) { return row.number == number; });
      run(*test, takeAnswer(*test, name), section);
      ++tests;
    }
  }

  Json takeAnswer(const ExpectedTest& test, const Json& name) {
    if (scenario_["answers"].contains(test.member())) {
      for (Json& answer : scenario_["answers"][test.member()]) {
        if (answer.contains("when") && answer["when"]["networkName"] != name) continue;
        if (answer.contains("times")) {
          if (answer["times"] == 0) continue;
          answer["times"] = answer["times"].get<int>() - 1;
        }
        return answer;
      }
    }
    return {{"error", {{"code", 1}, {"description", "no answer for " + test.member()}}}};
  }

  void run(const ExpectedTest& test, const Json& answer, Json& section) {
    if (answer.contains("error") && answer["error"]["code"] != 0) {
      const Json& error = answer["error"];
      log(test.label +
          " failed with error: " + error.value("description", "error " + error["code"].dump()));
      return;
    }
    const bool isInline =
        answer.contains("result") || answer.contains("didPass") || answer.contains("info");
    const Json results = answer.value("results", isInline ? Json::array({answer}) : Json::array());
    if (results.is_null() || results.empty()) return log("Results not found.");
    if (results[0].is_null()) return log("Test Result not found.");
    section[test.resultKey] = results[0].value("result", false);
    const bool passed = results[0].value("didPass", false);
    if (test.copies.empty()) return;
    if (test.gate == Gate::onlyWhenPassed && !passed) return;
    if (test.gate == Gate::onlyWhenNotPassed && passed) return;
    const Json info = results[0].value("info", Json());
    if (info.is_null()) return log("Info not found.");
    for (const ExpectedCopy& copy : test.copies) {
      const Json stored = info.contains(copy.infoKey) ? storedFor(test.reading, info[copy.infoKey])
                                                      : Json(Json::value_t::discarded);
      if (!stored.is_discarded()) {
        section[copy.outputKey] = stored;
      } else if (!copy.logName.empty()) {
        log(copy.logName + " not found.");
      }
    }
  }

  Json scenario_;
};

// --- The comparison ----------------------------------------------------------------------------

class RandomScenarios : public ::testing::TestWithParam<std::uint64_t> {};

TEST_P(RandomScenarios, GiveTheRecordAndTheLinesOfTheModel) {
  constexpr std::uint64_t kScenariosOfATest = 50;
  for (std::uint64_t i = 0; i < kScenariosOfATest; ++i) {
    const std::uint64_t seed = GetParam() * kScenariosOfATest + i;
    Dice dice(seed);
    const Json scenario = randomScenario(dice);
    const Json name = dice.chance(50) ? dice.networkName() : Json();
    const auto networkName = name.is_null() ? std::nullopt : std::optional(std::string(name));
    const Model model(scenario, networkName);
    const ScenarioResult result = runInVirtualTime(scenario.dump(), seed, networkName);
    ASSERT_EQ(result.ending, cli::Ending::finished) << "seed " << seed;
    // Both as texts of the JSON library: number kinds count, and so does every key.
    ASSERT_EQ(Json::parse(result.record).dump(), model.record.dump()) << "seed " << seed << "\n"
                                                                      << scenario.dump();
    ASSERT_EQ(result.lines, model.lines) << "seed " << seed << "\n" << scenario.dump();
    std::size_t requests = 0;
    for (std::size_t at = result.trace.find("service.request"); at != std::string::npos;
         at = result.trace.find("service.request", at + 1)) {
      ++requests;
    }
    ASSERT_EQ(requests, static_cast<std::size_t>(model.tests)) << "seed " << seed;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomScenarios, ::testing::Range<std::uint64_t>(0, 10));

}  // namespace
}  // namespace wifi_profile::testing
