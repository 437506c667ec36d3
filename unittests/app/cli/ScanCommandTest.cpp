// The list of the networks in range: which rows there are, and how they are shown.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <nlohmann/json.hpp>
#include <sstream>

#include "app/cli/ScanCommand.h"
#include "app/cli/ScanRows.h"
#include "support/TextParts.h"

namespace wifi_profile::cli {
namespace {

using facts::AccessPoint;
using facts::Scan;
using ieee80211::Band;
using ieee80211::Extent;
using ieee80211::OperatingChannel;
using ieee80211::PhyModes;
using ieee80211::Security;
using ieee80211::Width;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::Not;

facts::AccessPoint point(const std::string& bssidEnd, std::optional<std::string> ssid,
                         std::optional<int> signal) {
  return {.bssid = "02:00:00:00:00:" + bssidEnd,
          .ssid = std::move(ssid),
          .hidesName = false,
          .signal = signal};
}

// The ends of the rows' BSSIDs, in order.
std::vector<std::string> endsOf(const std::vector<ScanRow>& rows) {
  std::vector<std::string> ends;
  for (const ScanRow& row : rows) ends.push_back(row.accessPoint->bssid.substr(15));
  return ends;
}

TEST(ScanRows, AreTheStrongestOfEachName) {
  const facts::Scan scan{{point("01", "Home", -70), point("02", "Home", -45),
                          point("03", "Cafe", -60), point("04", "Home", std::nullopt)}};
  const auto rows = scanRows(scan, std::nullopt, false);
  EXPECT_THAT(endsOf(rows), ElementsAre("02", "03"));
  EXPECT_EQ(rows[0].accessPoints, 3U);
  EXPECT_EQ(rows[1].accessPoints, 1U);
}

TEST(ScanRows, AreAllAccessPointsWhenAskedFor) {
  const facts::Scan scan{
      {point("01", "Home", -70), point("02", "Home", -45), point("03", "Cafe", -60)}};
  const auto rows = scanRows(scan, "02:00:00:00:00:01", true);
  EXPECT_THAT(endsOf(rows), ElementsAre("02", "03", "01"));
  EXPECT_FALSE(rows[0].joined);
  EXPECT_TRUE(rows[2].joined);
  EXPECT_EQ(rows[0].accessPoints, 2U) << "as many as have the name, in either list";
}

TEST(ScanRows, MarkANameThatAnyOfItsAccessPointsIsJoinedTo) {
  const facts::Scan scan{
      {point("01", "Home", -70), point("02", "Home", -45), point("03", "Cafe", -60)}};
  const auto rows = scanRows(scan, "02:00:00:00:00:01", false);
  ASSERT_THAT(endsOf(rows), ElementsAre("02", "03"));
  EXPECT_TRUE(rows[0].joined);
  EXPECT_FALSE(rows[1].joined);
}

TEST(ScanRows, MarkNothingWhereNothingIsJoined) {
  const facts::Scan scan{{point("01", "Home", -70)}};
  EXPECT_FALSE(scanRows(scan, std::nullopt, false)[0].joined);
  EXPECT_FALSE(scanRows(scan, "02:00:00:00:00:99", false)[0].joined);
}

TEST(ScanRows, KeepAccessPointsWithoutANameApart) {
  const facts::Scan scan{
      {point("01", std::nullopt, -70), point("02", std::nullopt, -50), point("03", "Cafe", -60)}};
  const auto rows = scanRows(scan, std::nullopt, false);
  EXPECT_THAT(endsOf(rows), ElementsAre("02", "03", "01"));
  for (const ScanRow& row : rows) EXPECT_EQ(row.accessPoints, 1U);
}

TEST(ScanRows, StandByStrengthThenNameThenAddress) {
  const facts::Scan scan{{point("05", "b", std::nullopt), point("04", "b", -60),
                          point("03", "a", -60), point("02", std::nullopt, -60),
                          point("01", std::nullopt, -60)}};
  EXPECT_THAT(endsOf(scanRows(scan, std::nullopt, true)),
              ElementsAre("01", "02", "03", "04", "05"));
}

TEST(ScanRows, ReadNamesByteByByte) {
  using namespace std::string_literals;
  const facts::Scan scan{{point("01", "a\0b"s, -60), point("02", "a\0c"s, -61),
                          point("03", "A", -62), point("04", "a", -63)}};
  EXPECT_EQ(scanRows(scan, std::nullopt, false).size(), 4U);
}

TEST(ScanRows, SayBandAndWidthWhereTheChannelIsKnown) {
  facts::AccessPoint one = point("01", "Home", -60);
  EXPECT_EQ(bandText(one), "");
  EXPECT_EQ(widthOf(one), 0);
  one.channel = ieee80211::OperatingChannel{
      .band = ieee80211::Band::ghz2, .primary = 6, .extent = std::nullopt};
  EXPECT_EQ(bandText(one), "2.4 GHz");
  EXPECT_EQ(widthOf(one), 0);
  const std::pair<ieee80211::Width, int> widths[]{
      {ieee80211::Width::mhz20, 20},   {ieee80211::Width::mhz40, 40},
      {ieee80211::Width::mhz80, 80},   {ieee80211::Width::mhz160, 160},
      {ieee80211::Width::mhz320, 320}, {ieee80211::Width::mhz80Plus80, 160}};
  for (const auto& [width, megahertz] : widths) {
    one.channel->extent = ieee80211::Extent{.width = width};
    EXPECT_EQ(widthOf(one), megahertz);
  }
  one.channel->band = ieee80211::Band::ghz5;
  EXPECT_EQ(bandText(one), "5 GHz");
  one.channel->band = ieee80211::Band::ghz6;
  EXPECT_EQ(bandText(one), "6 GHz");
}

TEST(ScanRows, NameTheNewestGeneration) {
  facts::AccessPoint one = point("01", "Home", -60);
  one.channel = ieee80211::OperatingChannel{
      .band = ieee80211::Band::ghz5, .primary = 36, .extent = std::nullopt};
  const auto generation = [&one](const ieee80211::PhyModes& modes) {
    one.modes = modes;
    return std::string(generationOf(one));
  };
  EXPECT_EQ(generation({}), "");
  EXPECT_EQ(generation({.b = true}), "b");
  EXPECT_EQ(generation({.b = true, .g = true}), "g");
  EXPECT_EQ(generation({.a = true}), "a");
  EXPECT_EQ(generation({.a = true, .n = true}), "4");
  EXPECT_EQ(generation({.a = true, .n = true, .ac = true}), "5");
  EXPECT_EQ(generation({.n = true, .ac = true, .ax = true}), "6");
  EXPECT_EQ(generation({.ac = true, .ax = true, .be = true}), "7");
  one.channel->band = ieee80211::Band::ghz6;
  EXPECT_EQ(generation({.ax = true}), "6E");
  EXPECT_EQ(generation({.ax = true, .be = true}), "7");
}

// One access point of which everything is known, another of its name, and one of which nothing is.
NetworksInRange someNetworks() {
  facts::AccessPoint home = point("01", "Home", -45);
  home.channel = ieee80211::OperatingChannel{
      .band = ieee80211::Band::ghz5,
      .primary = 100,
      .extent = ieee80211::Extent{.width = ieee80211::Width::mhz80, .center = 106}};
  home.security = ieee80211::Security::wpa2Wpa3Personal;
  home.modes = {.a = true, .n = true, .ac = true};
  facts::AccessPoint second = point("02", "Home", -71);
  second.channel = ieee80211::OperatingChannel{
      .band = ieee80211::Band::ghz2,
      .primary = 6,
      .extent = ieee80211::Extent{.width = ieee80211::Width::mhz20, .center = 6}};
  second.security = ieee80211::Security::none;
  second.modes = {.b = true, .g = true, .n = true};
  facts::AccessPoint silent = point("03", std::nullopt, std::nullopt);
  silent.hidesName = true;
  return {.scan = {{silent, second, home}}, .joinedBssid = "02:00:00:00:00:02"};
}

TEST(ScanText, AlignsItsColumns) {
  EXPECT_EQ(scanText(someNetworks(), {}),
            "   Signal  Band   Channel   Width  Security            Wi-Fi  Points  Name\n"
            "* -45 dBm  5 GHz      100  80 MHz  WPA2/WPA3 Personal  5           2  Home\n"
            "        -  -            -       -  -                   -           1  (hidden)\n");
}

TEST(ScanText, ShowsEveryAccessPointByItsAddress) {
  EXPECT_EQ(
      scanText(someNetworks(), {.all = true}),
      "   Signal  Band     Channel   Width  Security            Wi-Fi  BSSID              Name\n"
      "  -45 dBm  5 GHz        100  80 MHz  WPA2/WPA3 Personal  5      02:00:00:00:00:01  Home\n"
      "* -71 dBm  2.4 GHz        6  20 MHz  None                4      02:00:00:00:00:02  Home\n"
      "        -  -              -       -  -                   -      02:00:00:00:00:03  "
      "(hidden)\n");
}

TEST(ScanText, ColoursTheSignalAndNothingElse) {
  const NetworksInRange networks{.scan = {{point("01", "a", -60), point("02", "b", -75),
                                           point("03", "c", -76), point("04", "d", std::nullopt)}},
                                 .joinedBssid = std::nullopt};
  const auto lines = linesOf(scanText(networks, {.color = true}));
  ASSERT_EQ(lines.size(), 5U);
  EXPECT_THAT(lines[0], Not(HasSubstr("\033")));
  EXPECT_THAT(lines[1], HasSubstr("\033[32m-60 dBm\033[0m  "));
  EXPECT_THAT(lines[2], HasSubstr("\033[33m-75 dBm\033[0m  "));
  EXPECT_THAT(lines[3], HasSubstr("\033[31m-76 dBm\033[0m  "));
  EXPECT_THAT(lines[4], Not(HasSubstr("\033")));
}

TEST(ScanText, ShowsAHostileNameAndDoesNotObeyIt) {
  using namespace std::string_literals;
  const NetworksInRange networks{
      .scan = {{point("01", "\033[2Ja\nb\0c"s, -60), point("02", "bad\xff", -61)}},
      .joinedBssid = std::nullopt};
  const std::string text = scanText(networks, {});
  EXPECT_EQ(linesOf(text).size(), 3U);
  EXPECT_THAT(text, Not(HasSubstr("\033")));
  EXPECT_EQ(text.find('\0'), std::string::npos);
  EXPECT_THAT(text, HasSubstr("a\\u{A}b\\u{0}c\n"));
  EXPECT_THAT(text, HasSubstr("bad\\xFF\n"));
}

TEST(ScanText, SaysThatThereAreNone) { EXPECT_EQ(scanText({}, {}), "No networks in range.\n"); }

TEST(ScanJson, HasTheRowsInOrderOnOneLine) {
  const std::string text = scanJson(someNetworks(), false);
  EXPECT_EQ(text,
            R"([{"accessPoints":2,"age":null,"band":"5 GHz","basicRates":null,)"
            R"("beaconInterval":null,"bssid":"02:00:00:00:00:01","channel":100,"country":null,)"
            R"("dtimInterval":null,"frequency":5500,"generation":"5","hidden":false,)"
            R"("joined":true,"rates":null,"security":"WPA2/WPA3 Personal",)"
            R"("signal":-45,"ssid":"Home","width":80},)"
            R"({"accessPoints":1,"age":null,"band":null,"basicRates":null,)"
            R"("beaconInterval":null,"bssid":"02:00:00:00:00:03","channel":null,"country":null,)"
            R"("dtimInterval":null,"frequency":null,"generation":null,"hidden":true,)"
            R"("joined":false,"rates":null,"security":null,)"
            R"("signal":null,"ssid":null,"width":null}])"
            "\n");
}

TEST(ScanJson, TellsWhatBeaconsSay) {
  facts::AccessPoint one = point("01", "Home", -45);
  one.beaconInterval = 100;
  one.dtimPeriod = 2;
  one.rates = {2, 11, 12, 108};
  one.basicRates = {2, 11};
  one.country = "DE";
  one.age = std::chrono::milliseconds(1500);
  const auto row =
      nlohmann::json::parse(scanJson({.scan = {{one}}, .joinedBssid = std::nullopt}, false))[0];
  EXPECT_EQ(row["beaconInterval"], 100);
  EXPECT_EQ(row["dtimInterval"], 2);
  EXPECT_EQ(row["rates"], (std::vector{1.0, 5.5, 6.0, 54.0}));
  EXPECT_EQ(row["basicRates"], (std::vector{1.0, 5.5}));
  EXPECT_EQ(row["country"], "DE");
  EXPECT_EQ(row["age"], 1.5);
}

TEST(ScanJson, TakesASignalOf0ForOne) {
  const auto rows = nlohmann::json::parse(scanJson(
      {.scan = {{point("01", "Near", 0), point("02", "Odd", std::numeric_limits<int>::min())}},
       .joinedBssid = std::nullopt},
      false));
  EXPECT_EQ(rows[0]["signal"], 0);
  EXPECT_EQ(rows[1]["signal"], std::numeric_limits<int>::min());
}

TEST(ScanJson, HasEveryAccessPointWhenAskedFor) {
  const auto rows = nlohmann::json::parse(scanJson(someNetworks(), true));
  ASSERT_EQ(rows.size(), 3U);
  EXPECT_EQ(rows[1]["bssid"], "02:00:00:00:00:02");
  EXPECT_EQ(rows[1]["joined"], true);
  EXPECT_EQ(rows[0]["joined"], false);
}

TEST(ScanJson, StaysJsonWhateverTheNamesAre) {
  using namespace std::string_literals;
  const NetworksInRange networks{
      .scan = {{point("01", "\"},{\n\0\033"s, -60), point("02", "bad\xff\\", -61)}},
      .joinedBssid = std::nullopt};
  const std::string text = scanJson(networks, false);
  EXPECT_EQ(linesOf(text).size(), 1U);
  const auto rows = nlohmann::json::parse(text);
  ASSERT_EQ(rows.size(), 2U);
  EXPECT_EQ(rows[0]["ssid"], "\"},{\n\0\033"s);
  EXPECT_EQ(rows[1]["ssid"], R"(bad\xFF\\)");
}

TEST(ScanJson, IsAnEmptyListWhereThereAreNone) { EXPECT_EQ(scanJson({}, true), "[]\n"); }

}  // namespace
}  // namespace wifi_profile::cli
