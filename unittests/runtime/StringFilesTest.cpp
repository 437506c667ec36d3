// The files of texts, held to one list of keys. What is read here is the files in the tree; that
// the library says the same is tried at the end.

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <string>
#include <vector>

#include "diagnostic/platform/Text.h"
#include "runtime/BuiltInStringTable.h"
#include "runtime/SafeText.h"

namespace wifi_profile::runtime {
namespace {

namespace fs = std::filesystem;
using ::testing::ElementsAreArray;
using ::testing::UnorderedElementsAreArray;

const std::vector<std::string> kLanguages{"ar", "de", "en", "es", "fr", "ja", "zh"};

// In bytewise order.
const std::vector<std::string> kKeys{
    "CANCEL",
    "CHOOSE_FIRST",
    "CHOOSE_NETWORK",
    "CHOSEN",
    "CLOSE",
    "DONE",
    "FIND_NAME",
    "GO_ON",
    "KEYS",
    "KEY_CHOOSE",
    "KEY_ENDS",
    "KEY_EXPLAIN",
    "KEY_FIND",
    "KEY_HELP",
    "KEY_MOVE",
    "KEY_PAGE",
    "KEY_QUIT",
    "KEY_REFRESH",
    "KEY_SWITCH",
    "LIST_BUSY",
    "NAME_NOT_FOUND",
    "NEXT",
    "NO",
    "NO_NETWORKS",
    "NO_OTHER_NETWORKS",
    "ONLY_HIDDEN_NETWORKS",
    "OTHER",
    "OTHER_NETWORK_MESSAGE",
    "OTHER_NETWORK_PLACEHOLDER",
    "POWER_ON_FAILED",
    "POWER_ON_WIFI",
    "POWER_ON_WLAN",
    "PROGRESS_TEXT",
    "PULL_TO_REFRESH",
    "RADIO_OFF",
    "RELEASE_TO_REFRESH",
    "REPORT",
    "SCANNING",
    "SCAN_FAILED",
    "SCREEN_TOO_SMALL",
    "SELECTED_NETWORK",
    "STARTING",
    "STOP",
    "STOPPING",
    "STOP_QUESTION",
    "TESTS_DONE",
    "TEST_RUNNING",
    "TURN_ON",
    "WIFI_DIAGNOSTICS",
    "WLAN_DIAGNOSTICS",
    "YES",
};

const fs::path kFolder = fs::path(WIFI_PROFILE_SOURCE_DIR) / "src/runtime/strings";

class StringFiles : public ::testing::TestWithParam<std::string> {
 protected:
  StringFiles() {
    std::ifstream stream(kFolder / (GetParam() + ".txt"), std::ios::binary);
    content = std::string(std::istreambuf_iterator<char>(stream), {});
    std::string::size_type begin = 0;
    for (auto end = content.find('\n'); end != std::string::npos; end = content.find('\n', begin)) {
      lines.push_back(content.substr(begin, end - begin));
      begin = end + 1;
    }
    hasOpenLine = begin != content.size();
    for (const std::string& line : lines) {
      if (line.empty() || line.front() == '#') continue;
      const auto equals = line.find(" = ");
      if (equals == std::string::npos) {
        strayLines.push_back(line);
      } else {
        texts.emplace(line.substr(0, equals), line.substr(equals + 3));
      }
    }
  }

  std::string content;
  std::vector<std::string> lines;
  bool hasOpenLine = false;  // at the end
  std::vector<std::string> strayLines;
  std::multimap<std::string, std::string> texts;
};

TEST_P(StringFiles, AreUtf8WithoutCharactersThatAreUnsafeToShow) {
  EXPECT_TRUE(isValidUtf8(content));
  for (const std::string& line : lines) EXPECT_EQ(safeText(line), line);
}

TEST_P(StringFiles, HaveCommentsEmptyLinesAndTextsOnly) {
  EXPECT_THAT(strayLines, ::testing::IsEmpty());
  EXPECT_FALSE(hasOpenLine) << "the last line has no end";
}

TEST_P(StringFiles, HaveEveryKeyOnceAndNoOther) {
  std::vector<std::string> keys;
  for (const auto& [key, text] : texts) keys.push_back(key);
  EXPECT_THAT(keys, ElementsAreArray(kKeys));
}

TEST_P(StringFiles, HaveTextsWithoutStrayBlanks) {
  for (const auto& [key, text] : texts) {
    EXPECT_FALSE(text.empty()) << key;
    EXPECT_FALSE(text.starts_with(' ') || text.ends_with(' ')) << key;
    EXPECT_EQ(text.find("  "), std::string::npos) << key;
  }
}

TEST_P(StringFiles, HaveADifferentTextForEveryKey) {
  std::map<std::string, std::string> keyOf;
  for (const auto& [key, text] : texts) {
    const auto [same, isNew] = keyOf.emplace(text, key);
    EXPECT_TRUE(isNew) << key << " is worded as " << same->second;
  }
}

TEST_P(StringFiles, AreWhatTheLibrarySays) {
  const BuiltInStringTable table(GetParam());
  for (const auto& [key, text] : texts) EXPECT_EQ(table.textForKey(key, "fallback"), text);
}

INSTANTIATE_TEST_SUITE_P(Every, StringFiles, ::testing::ValuesIn(kLanguages),
                         [](const auto& test) { return test.param; });

TEST(StringFolder, HasAFileForEveryLanguageAndNoOther) {
  std::vector<std::string> files;
  for (const auto& entry : fs::directory_iterator(kFolder)) files.push_back(entry.path().stem());
  EXPECT_THAT(files, UnorderedElementsAreArray(kLanguages));
}

// From the first letter a screen knows the direction of a text.
TEST(StringFolder, HasArabicTextsThatBeginWithAnArabicLetter) {
  const BuiltInStringTable table("ar");
  for (const std::string& key : kKeys) {
    const std::string text = table.textForKey(key, "fallback");
    const char32_t first = firstCodePoint(text).value;
    EXPECT_TRUE(first >= 0x0621 && first <= 0x064A) << key << ": " << text;
  }
}

}  // namespace
}  // namespace wifi_profile::runtime
