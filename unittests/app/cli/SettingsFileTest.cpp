// What the person and the machine's owner set, in files.

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sstream>

#include "app/cli/SettingsFile.h"

// libcurl 7.88 forgets three bytes of an address that it refuses; no more of it is in use here.
extern "C" const char* __lsan_default_suppressions();  // NOLINT: the sanitizer's name
extern "C" const char* __lsan_default_suppressions() { return "leak:libcurl.so"; }

namespace wifi_profile::cli {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

class SettingsFiles : public ::testing::Test {
 protected:
  SettingsFiles() {
    std::string name = (fs::temp_directory_path() / "settings-XXXXXX").string();
    EXPECT_NE(mkdtemp(name.data()), nullptr);
    folder_ = name;
  }
  ~SettingsFiles() override { fs::remove_all(folder_); }

  std::string file(const std::string& name, const std::string& text) const {
    std::ofstream(folder_ / name, std::ios::binary) << text;
    return (folder_ / name).string();
  }
  // The settings that one file of this text makes.
  ToolSettings settings(const std::string& text) const {
    const auto read = readSettingsFiles({file("one", text)});
    EXPECT_TRUE(read) << read.error().message;
    return read ? *read : ToolSettings{};
  }
  // The message about one file of this text, without the folder.
  std::string problem(const std::string& text) const {
    const auto read = readSettingsFiles({file("one", text)});
    if (read) return "no problem";
    const Error& error = read.error();
    EXPECT_TRUE(error.subject.starts_with(folder_.string() + "/")) << error.subject;
    return error.subject.substr(folder_.string().size() + 1) + ": " + error.message;
  }

  fs::path folder_;
};

TEST_F(SettingsFiles, ThatAreNotThereLeaveTheDefaults) {
  const auto read = readSettingsFiles({(folder_ / "none").string(), "/nonexistent/settings.json"});
  ASSERT_TRUE(read);
  EXPECT_EQ(*read, ToolSettings{});
  EXPECT_EQ(ToolSettings{}.checks, checks::defaultSettings());
}

TEST_F(SettingsFiles, MayBeEmptyObjects) { EXPECT_EQ(settings("{}"), ToolSettings{}); }

TEST_F(SettingsFiles, SetWhatTheyNameAndNothingElse) {
  ToolSettings expected;
  expected.checks.poorSignalBelow = -67;
  expected.checks.hotspotSubnets = {"10.0.0.0/8"};
  expected.targets.siteText = "Welcome";
  EXPECT_EQ(settings(R"({"checks":{"poorSignalBelow":-67,"hotspotSubnets":["10.0.0.0/8"]},
                         "site":{"text":"Welcome"}})"),
            expected);
}

TEST_F(SettingsFiles, CanSetEverything) {
  ToolSettings expected;
  expected.checks = {.poorSignalBelow = -1,
                     .longBeaconIntervalAbove = 2,
                     .longDtimPeriodAbove = 3,
                     .largeSavedListAbove = 4,
                     .bluetoothConnectedAbove = 5,
                     .bluetoothPairedAbove = 6,
                     .congestedBusyShare = 0.5,
                     .congestedUtilization = 7,
                     .congestedNeighbours = 8.5,
                     .ambiguousNames = {"a*"},
                     .hotspotSubnets = {},
                     .baseStationMakers = {"b"},
                     .baseStationAddressBlocks = {"02:00:00"}};
  expected.targets = {.pingHost = "192.0.2.1",
                      .name = "name.example",
                      .portalUrl = "http://portal.example/",
                      .portalText = "",
                      .siteUrl = "http://site.example:8080/page?x=1",
                      .siteText = "Hello"};
  EXPECT_EQ(settings(R"({"checks":{"poorSignalBelow":-1,"longBeaconIntervalAbove":2,
      "longDtimPeriodAbove":3,"largeSavedListAbove":4,"bluetoothConnectedAbove":5,
      "bluetoothPairedAbove":6,"congestedBusyShare":0.5,"congestedUtilization":7,
      "congestedNeighbours":8.5,"ambiguousNames":["a*"],"hotspotSubnets":[],
      "baseStationMakers":["b"],"baseStationAddressBlocks":["02:00:00"]},
      "internet":{"pingHost":"192.0.2.1","name":"name.example",
      "portalUrl":"http://portal.example/","portalText":""},
      "site":{"url":"http://site.example:8080/page?x=1","text":"Hello"}})"),
            expected);
}

TEST_F(SettingsFiles, ThatComeLaterSayTheLastWord) {
  const std::string first =
      file("first", R"({"checks":{"poorSignalBelow":-60,"largeSavedListAbove":9}})");
  const std::string second = file("second", R"({"checks":{"poorSignalBelow":-65}})");
  const auto read = readSettingsFiles({first, second});
  ASSERT_TRUE(read);
  EXPECT_EQ(read->checks.poorSignalBelow, -65);
  EXPECT_EQ(read->checks.largeSavedListAbove, 9);
}

TEST_F(SettingsFiles, ThatAreNoJsonAreRefusedWithThePlace) {
  EXPECT_THAT(problem("{\n \"checks\": }"), HasSubstr("one:2:12: found "));
  EXPECT_THAT(problem(""), HasSubstr("one:1:1: found "));
}

TEST_F(SettingsFiles, WithAFaultAreRefusedWithItsPointer) {
  EXPECT_THAT(problem("[]"), HasSubstr("one: at the top: found "));
  EXPECT_THAT(problem(R"({"cheks":{}})"), HasSubstr("one: at /cheks: found "));
  EXPECT_THAT(problem(R"({"checks":{"poorSignalBelow":1}})"),
              HasSubstr("one: at /checks/poorSignalBelow: found the number 1"));
  EXPECT_THAT(problem(R"({"checks":{"hotspotSubnets":[7]}})"),
              HasSubstr("one: at /checks/hotspotSubnets/0: found the number 7"));
  EXPECT_THAT(problem(R"({"site":{"url":7}})"), HasSubstr("one: at /site/url: found "));
  EXPECT_THAT(problem(R"({"internet":{"ping":"x"}})"), HasSubstr("one: at /internet/ping: found"));
}

// A name of as many labels, each as long as can be.
std::string labels(int count) {
  std::string name(63, 'a');
  for (int i = 1; i < count; ++i) name += "." + std::string(63, 'a');
  return name;
}

TEST_F(SettingsFiles, NameHostsAsHosts) {
  for (const std::string& host :
       {std::string(), std::string("a b"), std::string("http://x/"), std::string("\\u0007"),
        std::string("b\xc3\xbc"), std::string("example.com:80"), std::string("999.1.1.1"),
        std::string("192.0.2.1."), std::string("1"), std::string("[2001:db8::1]"),
        std::string("2001:db8::12345"), std::string("a..b"), std::string("."), std::string(64, 'a'),
        labels(4) + ".a"}) {
    const std::string text = R"({"internet":{"pingHost":")" + host + "\"}}";
    EXPECT_THAT(problem(text), HasSubstr("one: at /internet/pingHost: found ")) << host;
  }
  const std::string longest = labels(4).substr(2);
  ASSERT_EQ(longest.size(), 253U);
  for (const std::string& host :
       {longest, std::string("192.0.2.1"), std::string("2001:db8::1"), std::string("_a-1.Example."),
        std::string("router"), std::string("1.example")}) {
    EXPECT_EQ(settings(R"({"internet":{"name":")" + host + "\"}}").targets.name, host);
  }
}

TEST_F(SettingsFiles, LookForSignInPagesOverPlainHttpOnly) {
  EXPECT_THAT(problem(R"({"internet":{"portalUrl":"https://example.com/"}})"),
              HasSubstr("expected an address such as http://example.com/"));
}

TEST_F(SettingsFiles, AreReadWhereAFileIsReadable) {
  fs::create_directory(folder_ / "one");
  const auto read = readSettingsFiles({(folder_ / "one").string()});
  ASSERT_FALSE(read) << "a folder is no file";
  EXPECT_TRUE(read.error().message.starts_with("cannot read ")) << read.error().message;
}

// The fenced block of docs/SETTINGS.md that begins with this line.
std::string blockOfTheDocument(const std::string& first) {
  std::ifstream document(WIFI_PROFILE_SOURCE_DIR "/docs/SETTINGS.md");
  std::string line;
  while (std::getline(document, line) && line != first) continue;
  std::string block;
  while (std::getline(document, line) && line != "```") block += line + "\n";
  return block;
}

TEST_F(SettingsFiles, HaveTheDefaultsThatTheDocumentSays) {
  const std::string text = blockOfTheDocument("```json defaults");
  EXPECT_EQ(settings(text), ToolSettings{});
  // And says all of them: what is left out there would be the default, too.
  const auto said = nlohmann::json::parse(text);
  EXPECT_EQ(said["checks"].size(), 13U);
  EXPECT_EQ(said["internet"].size(), 4U);
  EXPECT_EQ(said["site"].size(), 2U);
}

TEST_F(SettingsFiles, MayLookLikeTheExampleOfTheDocument) {
  const ToolSettings read = settings(blockOfTheDocument("```json"));
  EXPECT_EQ(read.checks.poorSignalBelow, -70);
  EXPECT_EQ(read.targets.siteUrl, "https://intranet.example/");
}

TEST(WebAddress, IsHttpWithAHost) {
  for (const char* address : {"http://a", "https://example.com/", "https://[2001:db8::1]:8443/x",
                              "http://192.0.2.1:80/a?b#c"}) {
    EXPECT_TRUE(isWebAddress(address)) << address;
  }
  for (const char* address :
       {"", "http://", "https:///x", "http://:80/", "ftp://x/", "example.com", "http://a b/",
        "http://a\n", "HTTP//a", "http://\xc3\xbc/", "https://example.com:99999/",
        "https://example.com:0/", "https://[::1", "http://?x", "https://user@/"}) {
    EXPECT_FALSE(isWebAddress(address)) << address;
  }
}

// Sets a variable of the environment, or takes it away, while it lives.
class Variable {
 public:
  Variable(const char* name, const char* value) : name_(name) {
    if (const char* const before = std::getenv(name)) before_ = before;
    set(value);
  }
  ~Variable() { set(before_ ? before_->c_str() : nullptr); }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  void set(const char* value) const { value ? setenv(name_, value, 1) : unsetenv(name_); }

  const char* name_;
  std::optional<std::string> before_;
};

constexpr const char* kMachinesFile = "/etc/wifi-profile/settings.json";

TEST(PlacesOfSettings, AreTheMachinesThenThePersons) {
  const Variable config("XDG_CONFIG_HOME", nullptr);
  const Variable home("HOME", "/home/somebody");
  EXPECT_THAT(settingsFiles(),
              ElementsAre(kMachinesFile, "/home/somebody/.config/wifi-profile/settings.json"));
}

TEST(PlacesOfSettings, FollowTheConfigurationFolder) {
  const Variable config("XDG_CONFIG_HOME", "/elsewhere");
  const Variable home("HOME", "/home/somebody");
  EXPECT_THAT(settingsFiles(), ElementsAre(kMachinesFile, "/elsewhere/wifi-profile/settings.json"));
}

TEST(PlacesOfSettings, IgnoreAConfigurationFolderThatIsNotAbsolute) {
  const Variable home("HOME", "/home/somebody");
  for (const char* folder : {"", "relative", "./x"}) {
    const Variable config("XDG_CONFIG_HOME", folder);
    EXPECT_THAT(settingsFiles(),
                ElementsAre(kMachinesFile, "/home/somebody/.config/wifi-profile/settings.json"));
  }
}

TEST(PlacesOfSettings, AreTheMachinesAloneForWhoHasNoHome) {
  const Variable config("XDG_CONFIG_HOME", nullptr);
  for (const char* folder : {static_cast<const char*>(nullptr), ""}) {
    const Variable home("HOME", folder);
    EXPECT_THAT(settingsFiles(), ElementsAre(kMachinesFile));
  }
}

}  // namespace
}  // namespace wifi_profile::cli
