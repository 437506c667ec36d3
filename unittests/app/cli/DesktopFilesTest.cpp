// The desktop entry, the icon and the AppStream metadata belong together. Whether each is well
// formed, validators of their own say.
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>
#include <string>

#include "support/TextParts.h"

namespace wifi_profile::cli {
namespace {

const std::string kId = "org.wifi_profile.WifiProfile";
const std::string kData = WIFI_PROFILE_SOURCE_DIR "/data/";
// The program's languages, as desktops name them, but for English.
constexpr const char* kLocales[] = {"ar", "de", "es", "fr", "ja", "zh_CN"};

std::string contentOf(const std::string& ending) {
  std::ifstream file(kData + kId + ending);
  std::ostringstream content;
  content << file.rdbuf();
  return content.str();
}

// Key and value of every line; comments and the group's heading have none.
std::map<std::string, std::string> desktopEntry() {
  std::istringstream lines(contentOf(".desktop"));
  std::map<std::string, std::string> entry;
  for (std::string line; std::getline(lines, line);) {
    const auto equals = line.find('=');
    if (equals != std::string::npos) entry[line.substr(0, equals)] = line.substr(equals + 1);
  }
  return entry;
}

TEST(DesktopFiles, NameTheSameIconEntryAndProgram) {
  const auto entry = desktopEntry();
  const std::string metadata = contentOf(".metainfo.xml");
  EXPECT_EQ(entry.at("Icon"), kId);
  EXPECT_TRUE(std::filesystem::exists(kData + kId + ".svg"));
  EXPECT_TRUE(contains(metadata, "<id>" + kId + "</id>"));
  EXPECT_TRUE(contains(metadata, "<icon type=\"stock\">" + kId + "</icon>"));
  EXPECT_TRUE(contains(metadata, ">" + kId + ".desktop</launchable>"));
  EXPECT_TRUE(entry.at("Exec").starts_with("wifi-profile "));
  EXPECT_TRUE(contains(metadata, "<binary>wifi-profile</binary>"));
}

TEST(DesktopFiles, SayTheSameInEveryLanguage) {
  const auto entry = desktopEntry();
  const std::string metadata = contentOf(".metainfo.xml");
  EXPECT_TRUE(contains(metadata, "<name>" + entry.at("Name") + "</name>"));
  EXPECT_TRUE(contains(metadata, "<summary>" + entry.at("Comment") + "</summary>"));
  for (const std::string locale : kLocales) {
    const auto translated = [&](const std::string& key) {
      return entry.at(key + "[" + locale + "]");
    };
    const std::string language = " xml:lang=\"" + locale + "\">";
    EXPECT_TRUE(contains(metadata, "<name" + language + translated("Name") + "</name>"));
    EXPECT_TRUE(contains(metadata, "<summary" + language + translated("Comment") + "</summary>"));
    EXPECT_FALSE(translated("GenericName").empty());
    EXPECT_TRUE(translated("Keywords").ends_with(';'));
  }
}

}  // namespace
}  // namespace wifi_profile::cli
