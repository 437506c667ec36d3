// The built-in texts of the screens.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <set>

#include "platform/Text.h"
#include "runtime/BuiltInStringTable.h"

namespace wifi_profile {
namespace {

constexpr const char* kKeys[] = {"PROGRESS_TEXT", "WIFI_DIAGNOSTICS", "WLAN_DIAGNOSTICS"};

TEST(StringTable, HasATextOfItsOwnForEveryKeyInEveryLanguage) {
  for (const std::string_view language : {"en", "de"}) {
    const BuiltInStringTable table(language);
    std::set<std::string> texts;
    for (const char* key : kKeys) {
      const std::string text = table.textForKey(key, "fallback");
      EXPECT_NE(text, "fallback") << key << " in " << language;
      EXPECT_NE(text, key);
      EXPECT_TRUE(isValidUtf8(text));
      texts.insert(text);
    }
    EXPECT_EQ(texts.size(), std::size(kKeys)) << language;
  }
}

TEST(StringTable, DiffersByLanguage) {
  EXPECT_NE(BuiltInStringTable("en").textForKey("PROGRESS_TEXT", ""),
            BuiltInStringTable("de").textForKey("PROGRESS_TEXT", ""));
}

TEST(StringTable, FallsBackForAnUnknownKey) {
  EXPECT_EQ(BuiltInStringTable("en").textForKey("NO_SUCH_KEY", ""), "");
  EXPECT_EQ(BuiltInStringTable("de").textForKey("NO_SUCH_KEY", "else"), "else");
}

TEST(StringTable, SaysTheKeysThemselvesInTheLanguageOfKeys) {
  EXPECT_EQ(BuiltInStringTable("keys").textForKey("PROGRESS_TEXT", ""), "PROGRESS_TEXT");
  EXPECT_EQ(BuiltInStringTable("keys").textForKey("NO_SUCH_KEY", ""), "NO_SUCH_KEY");
}

TEST(StringTable, ListsItsLanguages) {
  EXPECT_THAT(BuiltInStringTable::languages(), ::testing::ElementsAre("en", "de", "keys"));
}

TEST(StringTable, FindsTheLanguageOfALocale) {
  EXPECT_EQ(BuiltInStringTable::languageOfLocale("de_AT.UTF-8"), "de");
  EXPECT_EQ(BuiltInStringTable::languageOfLocale("de"), "de");
  EXPECT_EQ(BuiltInStringTable::languageOfLocale("en-GB"), "en");
  EXPECT_EQ(BuiltInStringTable::languageOfLocale("de@euro"), "de");
  EXPECT_EQ(BuiltInStringTable::languageOfLocale("en.UTF-8"), "en");
}

TEST(StringTable, FindsNoLanguageForOtherLocales) {
  for (const std::string_view locale : {"", "C", "POSIX", "fr_FR.UTF-8", "deu", "keys", "_de"}) {
    EXPECT_EQ(BuiltInStringTable::languageOfLocale(locale), std::nullopt) << locale;
  }
}

TEST(StringTable, AnswersTheInstalledTablesTextOrNothing) {
  const ScopedInstall<StringTable> installed(std::make_shared<BuiltInStringTable>("en"));
  EXPECT_EQ(localizedString("WIFI_DIAGNOSTICS"), "Wi-Fi Diagnostics");
  EXPECT_EQ(localizedString("NO_SUCH_KEY"), "");
}

}  // namespace
}  // namespace wifi_profile
