#include <cmath>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>

#include "devices/scenario/ScenarioReader.h"
#include "diagnostic/platform/Array.h"
#include "diagnostic/platform/Number.h"
#include "runtime/JsonReader.h"

namespace wifi_profile::scenario {
namespace {

ObjectRef json(const std::string& text) {
  const auto document = runtime::readJson(text);
  EXPECT_TRUE(document) << text;
  return *document;
}

// Returns "POINTER: found FOUND, expected EXPECTED"; empty: the text was read.
std::string faultInText(const std::string& text) {
  const auto read = readScenario(json(text));
  return read ? "" : read.error().subject.substr(3) + ": " + read.error().message;
}

Scenario good(const std::string& text) {
  const auto read = readScenario(json(text));
  EXPECT_TRUE(read) << faultInText(text);
  return read ? *read : Scenario{};
}

// The information of PingLAN's one answer.
DictionaryRef information(const std::string& info) {
  const Scenario scenario = good(R"({"scenario":1,"answers":{"PingLAN":[{"info":)" + info + "}]}}");
  return scenario.answers.at(DiagnosticsTestID::PingLAN).at(0).results->at(0)->info;
}

std::string faultInInformation(const std::string& info) {
  return faultInText(R"({"scenario":1,"answers":{"PingLAN":[{"info":)" + info + "}]}}");
}

TEST(ScenarioReader, NeedsNothingButTheVersion) {
  const Scenario scenario = good(R"({"scenario":1})");
  EXPECT_TRUE(scenario.device.radio);
  EXPECT_TRUE(scenario.device.manager);
  EXPECT_EQ(scenario.device.interfaces, std::vector<std::string>{"wlan0"});
  EXPECT_TRUE(scenario.device.power);
  EXPECT_TRUE(scenario.device.powerOnSucceeds);
  EXPECT_FALSE(scenario.device.wlanWording);
  EXPECT_FALSE(scenario.device.testAutomation);
  ASSERT_EQ(scenario.status.size(), 1U);
  EXPECT_EQ(scenario.status[0].ssid, nullptr);
  EXPECT_FALSE(scenario.user);
}

TEST(ScenarioReader, TellsAnEmptyScriptFromNone) {
  EXPECT_TRUE(good(R"({"scenario":1,"user":[]})").user);
}

TEST(ScenarioReader, GivesAnErrorWithoutADescriptionItsCodeAsText) {
  const Scenario scenario = good(
      R"({"scenario":1,"status":[{"error":{"code":-7}},{"error":{"code":0,"description":"fine"}}]})");
  EXPECT_EQ(scenario.status[0].error->code(), -7);
  EXPECT_EQ(scenario.status[0].error->description(), "error -7");
  EXPECT_EQ(scenario.status[1].error->description(), "fine");
}

TEST(ScenarioReader, TellsNoArrayFromAnEmptyOneAndFromAnEmptySlot) {
  const Scenario scenario = good(R"({"scenario":1,"answers":{"PingLAN":[
      {"results":null},{},{"results":[]},{"results":[null]},{"didPass":true}]}})");
  const auto& answers = scenario.answers.at(DiagnosticsTestID::PingLAN);
  EXPECT_FALSE(answers[0].results);
  EXPECT_TRUE(answers[1].results->empty());
  EXPECT_TRUE(answers[2].results->empty());
  ASSERT_EQ(answers[3].results->size(), 1U);
  EXPECT_EQ(answers[3].results->at(0), nullptr);
  EXPECT_TRUE(answers[4].results->at(0)->didPass);
  EXPECT_FALSE(answers[4].results->at(0)->result);
  EXPECT_EQ(answers[4].results->at(0)->info, nullptr);
}

TEST(ScenarioReader, KeepsNumberKindsApart) {
  const auto info =
      information(R"({"a":true,"b":1,"c":1.0,"d":1e0,"e":-1,"f":18446744073709551615,"g":null})");
  const auto kind = [&](const char* key) -> const Number& {
    return *as<Number>(info->objectForKey(key));  // the dictionary keeps it alive
  };
  EXPECT_EQ(kind("a"), *Number::withBool(true));
  EXPECT_EQ(kind("b"), *Number::withInteger(1));
  EXPECT_EQ(kind("c"), *Number::withDouble(1));
  EXPECT_EQ(kind("d"), *Number::withDouble(1));
  EXPECT_EQ(kind("e"), *Number::withInteger(-1));
  EXPECT_EQ(kind("f"), *Number::withUnsigned(18446744073709551615ULL));
  EXPECT_TRUE(isNullPlaceholder(info->objectForKey("g")));
}

TEST(ScenarioReader, MakesAPingRecord) {
  const auto record = as<PingResultRecord>(
      information(R"({"PingResult":{"interfaceName":"wlan0","count":4,"packetLoss":"NaN",
          "min":"-Infinity","max":"Infinity","avg":2,"timestamp":-1.5}})")
          ->objectForKey("PingResult"));
  ASSERT_TRUE(record);
  EXPECT_EQ(record->interfaceName->string(), "wlan0");
  EXPECT_EQ(record->count, 4);
  EXPECT_TRUE(std::isnan(record->packetLoss));
  EXPECT_EQ(record->min, -INFINITY);
  EXPECT_EQ(record->max, INFINITY);
  EXPECT_EQ(record->avg, 2);
  EXPECT_EQ(record->stddev, 0);
  EXPECT_EQ(record->timestamp, -1.5);
}

TEST(ScenarioReader, MakesAPreferredNetworkRecord) {
  const auto info = information(
      R"({"PreferredNetwork":{"ssid":"Home","security":3,"isMultiAP":true,
          "lastJoined":"2001-01-01T00:00:10Z"}})");
  const auto record = as<PreferredNetworkRecord>(info->objectForKey("PreferredNetwork"));
  ASSERT_TRUE(record);
  EXPECT_EQ(record->ssidString->string(), "Home");
  EXPECT_EQ(record->security, 3);
  EXPECT_TRUE(record->isMultiAP);
  EXPECT_FALSE(record->isCaptive);
  EXPECT_EQ(record->lastJoinedTimestamp, Date{10});
}

TEST(ScenarioReader, MakesChannelAndScanRecords) {
  const auto info = information(R"({"CurrentChannel":{"channel":6},"2GHzChannel":{"channel":1},
      "5GHzChannel":{"channel":36},"5GHz40MHzChannel":{"channel":-1},
      "5GHzNonDFSChannel":{"channel":44},
      "ScanResults":[{"ssid":null,"bssid":"02:00","rssi":-70},{"ssid":"Cafe","bssid":"x"}]})");
  for (const auto* key :
       {"CurrentChannel", "2GHzChannel", "5GHzChannel", "5GHz40MHzChannel", "5GHzNonDFSChannel"}) {
    EXPECT_TRUE(as<ChannelRecord>(info->objectForKey(key))) << key;
  }
  const auto scan = as<Array>(info->objectForKey("ScanResults"));
  ASSERT_EQ(scan->elements().size(), 2U);
  const auto hidden = as<VqWiFiScanResult>(scan->elements()[0]);
  EXPECT_EQ(hidden->ssidString(), nullptr);
  EXPECT_EQ(hidden->rssi(), -70);
  EXPECT_EQ(as<VqWiFiScanResult>(scan->elements()[1])->ssidString()->string(), "Cafe");
}

TEST(ScenarioReader, LeavesOtherKindsUnderARecordsKeyAsTheyAre) {
  const auto info = information(
      R"({"PingResult":"soon","CurrentChannel":6,"PreferredNetwork":null,"ScanResults":{"a":1},
          "deeper":{"PingResult":{"x":1}}})");
  EXPECT_TRUE(as<Text>(info->objectForKey("PingResult")));
  EXPECT_TRUE(as<Number>(info->objectForKey("CurrentChannel")));
  EXPECT_TRUE(isNullPlaceholder(info->objectForKey("PreferredNetwork")));
  EXPECT_TRUE(as<Dictionary>(info->objectForKey("ScanResults")));
  EXPECT_TRUE(
      as<Dictionary>(as<Dictionary>(info->objectForKey("deeper"))->objectForKey("PingResult")));
}

TEST(ScenarioReader, SaysWhereAndWhatAFaultIs) {
  EXPECT_EQ(faultInText("[]"), "the top: found a list, expected an object");
  EXPECT_EQ(faultInText("{}"),
            "the top: found an object without \"scenario\", expected an object with \"scenario\"");
  EXPECT_EQ(faultInText(R"({"scenario":2})"),
            "/scenario: found the number 2, expected 1, the scenario version");
  EXPECT_EQ(faultInText(R"({"scenario":1,"device":{"power":"on"}})"),
            "/device/power: found the text \"on\", expected true or false");
  EXPECT_EQ(faultInText(R"({"scenario":1,"answers":{"PingLAN":[{},{"times":0}]}})"),
            "/answers/PingLAN/1/times: found the number 0, expected an integer from 1 to "
            "9223372036854775807");
  EXPECT_EQ(faultInText(R"({"scenario":1,"answers":{"PingLAN":[{"delay":-1}]}})"),
            "/answers/PingLAN/0/delay: found the number -1, expected a number from 0 to 1000000");
  EXPECT_EQ(faultInText(R"({"scenario":1,"answers":{"PingLAN":[{"result":true,"results":[]}]}})"),
            "/answers/PingLAN/0: found \"results\" beside the fields of a result, expected one or "
            "the other");
  EXPECT_EQ(faultInText(R"({"scenario":1,"user":[{"wait":1,"tapNext":true}]})"),
            "/user/0: found a step with 2 actions, expected a step with one action");
  EXPECT_EQ(faultInText(R"({"scenario":1,"user":[{"tapNext":false}]})"),
            "/user/0/tapNext: found false, expected true");
}

TEST(ScenarioReader, NamesAMisspeltAction) {
  EXPECT_EQ(faultInText(R"({"scenario":1,"user":[{"tapnext":true}]})")
                .find("/user/0/tapnext: found an "
                      "unknown field"),
            0U);
  EXPECT_EQ(faultInText(R"({"scenario":1,"user":[{"duringTest":"PingLAN"}]})"),
            "/user/0: found a step with 0 actions, expected a step with one action");
}

TEST(ScenarioReader, ShowsADoubleAsOne) {
  EXPECT_EQ(faultInText(R"({"scenario":1.0})"),
            "/scenario: found the number 1.0, expected 1, the scenario version");
}

TEST(ScenarioReader, EscapesTheFieldsOfAPlaceAsJsonPointersDo) {
  EXPECT_EQ(faultInText(R"({"scenario":1,"answers":{"a/b~c":[]}})")
                .find("/answers/a~1b~0c: found an "
                      "unknown field"),
            0U);
}

TEST(ScenarioReader, RefusesRecordsThatLackWhatTheyAre) {
  EXPECT_EQ(faultInInformation(R"({"CurrentChannel":{}})"),
            "/answers/PingLAN/0/info/CurrentChannel: found an object without \"channel\", expected "
            "an object with \"channel\"");
  EXPECT_EQ(faultInInformation(R"({"ScanResults":[{"ssid":"a"}]})"),
            "/answers/PingLAN/0/info/ScanResults/0: found an object without \"bssid\", expected an "
            "object with \"bssid\"");
  EXPECT_EQ(faultInInformation(R"({"ScanResults":[null]})"),
            "/answers/PingLAN/0/info/ScanResults/0: found null, expected an object");
  EXPECT_NE(faultInInformation(R"({"PreferredNetwork":{"lastJoined":"yesterday"}})"), "");
  EXPECT_NE(faultInInformation(R"({"PingResult":{"count":1.5}})"), "");
  EXPECT_NE(faultInInformation(R"({"PingResult":{"jitter":1}})"), "");
}

bool isRead(const std::filesystem::path& file) {
  std::ostringstream content;
  content << std::ifstream(file, std::ios::binary).rdbuf();
  const auto document = runtime::readJson(content.str());
  return document && readScenario(*document);
}

// Every file of a folder, read the way the program does. `accepted` is what should come out.
void readAll(const std::string& folder, bool accepted) {
  int files = 0;
  for (const auto& entry :
       std::filesystem::directory_iterator(WIFI_PROFILE_SOURCE_DIR "/" + folder)) {
    EXPECT_EQ(isRead(entry.path()), accepted) << entry.path();
    ++files;
  }
  EXPECT_GE(files, 6) << folder;
}

TEST(ScenarioReader, AcceptsEveryScenarioOfTheProject) { readAll("scenarios", true); }

TEST(ScenarioReader, AcceptsTheWorldThatHasEveryField) {
  EXPECT_TRUE(isRead(WIFI_PROFILE_SOURCE_DIR "/unittests/devices/scenario/full-world.json"));
}

TEST(ScenarioReader, RefusesWhatTheSchemaRefuses) {
  readAll("unittests/devices/scenario/bad-scenarios", false);
}

TEST(ScenarioReader, RefusesWhatNoSchemaCanSee) {
  readAll("unittests/devices/scenario/unreadable-scenarios", false);
}

}  // namespace
}  // namespace wifi_profile::scenario
