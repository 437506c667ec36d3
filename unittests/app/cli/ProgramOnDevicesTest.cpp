// Which devices the program takes, the networks that it lists, and what the documents say of both.

#include <algorithm>
#include <nlohmann/json.hpp>
#include <regex>

#include "app/cli/ProgramFixture.h"

namespace wifi_profile::testing {
namespace {

using ::testing::AllOf;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

using ProgramOnDevices = Program;

TEST_F(ProgramOnDevices, ListsTheNetworksInRange) {
  const Outcome outcome = run("scan --device demo");
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_THAT(outcome.out, AllOf(StartsWith("   Signal  Band"), HasSubstr("\n* "),
                                 HasSubstr("  Birkenweg 12\n"), Not(HasSubstr("\x1b"))));
  EXPECT_EQ(outcome.err, "");
}

TEST_F(ProgramOnDevices, ListsTheNetworksInRangeForPrograms) {
  const auto rows = nlohmann::json::parse(run("scan --device demo --json").out);
  const auto all = nlohmann::json::parse(run("scan --device demo --json --all").out);
  EXPECT_EQ(std::count_if(rows.begin(), rows.end(), [](const auto& row) { return row["joined"]; }),
            1);
  EXPECT_GT(all.size(), rows.size());
}

TEST_F(ProgramOnDevices, FindsNoNetworksOnADeviceWithoutAir) {
  expectRefusal(run("scan --device " + file("scenario.json", R"({"scenario":1})")), 69,
                "its world has no \"scan\"");
  const std::string off =
      file("off.json", R"({"scenario":1,"world":{"scan":{"unknown":"radioOff"}}})");
  expectRefusal(run("scan --device " + off), 69, "off.json: Wi-Fi is switched off.");
  expectRefusal(run("scan --device /nowhere/x.json"), 65, "/nowhere/x.json");
}

TEST_F(ProgramOnDevices, RefusesAnAgeThatIsNoneInTheSameWordsForEveryCommand) {
  for (const char* command : {"run --device demo", "scan --device demo"}) {
    const std::string age = std::string(command) + " --max-scan-cache-age ";
    for (const char* given : {"x", "-1", "1.5", "''", "7s", "0x10", "+5"}) {
      expectRefusal(run(age + given), 64, "expected a whole number from 0 to 600 (seconds)");
    }
    expectRefusal(run(age + "601"), 64, "from 0 to 600 (seconds)");
  }
  for (const char* age : {"0", "08", "600", "0600"}) {
    EXPECT_EQ(run(std::string("scan --device demo --max-scan-cache-age ") + age).status, 0) << age;
  }
}

TEST_F(ProgramOnDevices, WantsANameWhereOneIsAnnounced) {
  for (const char* command : {"run", "scan"}) {
    expectRefusal(run(std::string(command) + " --device linux:"), 64,
                  "--device: no interface name after \"linux:\"; use linux or linux:wlan0");
  }
}

// No machine has an interface with a name as long as this one.
constexpr const char* kNoInterface = "--device linux:no-such-interface-anywhere";

TEST_F(ProgramOnDevices, SaysThatThisMachineHasNoSuchInterface) {
  // Which of the two sentences it is depends on the machine: it may have no Wi-Fi at all.
  for (const char* command : {"run ", "scan "}) {
    const Outcome outcome = run(std::string(command) + kNoInterface);
    expectRefusal(outcome, 69, "linux:no-such-interface-anywhere: ");
    EXPECT_THAT(outcome.err, HasSubstr(" Use --device demo to run without Wi-Fi.\n"));
  }
}

TEST_F(ProgramOnDevices, TakesASiteForThisMachineOnly) {
  expectRefusal(run("run --device demo --site https://example.com/"), 64,
                "--site is for --device linux only");
  expectRefusal(run(std::string("run --site example.com ") + kNoInterface), 64,
                "--site: found \"example.com\", expected an address such as https://example.com/");
}

TEST_F(ProgramOnDevices, RunsThisMachineInRealTimeOnly) {
  expectRefusal(run(std::string("run --time virtual ") + kNoInterface), 64,
                "--time virtual is for scenarios only");
}

TEST_F(ProgramOnDevices, RefusesSettingsThatCannotBeUsed) {
  std::system(("mkdir -p '" + path("wifi-profile") + "'").c_str());
  file("wifi-profile/settings.json", R"({"checks":{"poorSignalBelow":1}})");
  const std::string config = "XDG_CONFIG_HOME='" + path("") + "'";
  expectRefusal(run(std::string("run ") + kNoInterface, config), 78,
                "wifi-profile/settings.json: at /checks/poorSignalBelow: found the number 1");
  EXPECT_EQ(run("run --device demo --time virtual", config).status, 0) << "they are not for it";
}

TEST_F(ProgramOnDevices, ListsTheNetworksThatTheReadmeShows) {
  std::ifstream readme(WIFI_PROFILE_SOURCE_DIR "/README.md");
  std::string line;
  while (std::getline(readme, line) && line != "    $ wifi-profile scan --device demo") continue;
  std::string shown;
  while (std::getline(readme, line) && !line.empty()) shown += line.substr(4) + "\n";
  EXPECT_EQ(run("scan --device demo").out, shown);
}

TEST_F(ProgramOnDevices, HasItsOptionsAndExitStatusesInEveryDocument) {
  const auto textOf = [](const std::string& file) {
    std::ostringstream text;
    text << std::ifstream(WIFI_PROFILE_SOURCE_DIR + file).rdbuf();
    return text.str();
  };
  const std::string readme = textOf("/README.md");
  const std::string page =
      std::regex_replace(textOf("/docs/wifi-profile.1"), std::regex(R"(\\-)"), "-");
  int options = 0;
  for (const char* command : {"run", "scan", "tests"}) {
    std::istringstream help(run(std::string(command) + " --help").out);
    for (std::string line; std::getline(help, line);) {
      std::smatch option;
      if (!std::regex_search(line, option, std::regex("^ +(--[a-z-]+)"))) continue;
      EXPECT_THAT(page, HasSubstr(option.str(1)));
      EXPECT_THAT(readme, HasSubstr("`" + option.str(1)));
      ++options;
    }
  }
  EXPECT_EQ(options, 16);
  for (const char* status : {"64", "65", "69", "71", "74", "75", "78", "130"}) {
    EXPECT_THAT(page, HasSubstr(std::string(".B ") + status + "\n"));
    EXPECT_THAT(readme, HasSubstr(std::string("\n| ") + status + " | "));
    EXPECT_THAT(run("run --help").out, HasSubstr(status));
  }
}

}  // namespace
}  // namespace wifi_profile::testing
