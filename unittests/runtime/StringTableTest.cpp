// The built-in texts of the screens: lookup, languages and locales. StringFilesTest reads the
// texts.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "runtime/BuiltInStringTable.h"

namespace wifi_profile::runtime {
namespace {

TEST(StringTable, DiffersByLanguage) {
  EXPECT_EQ(BuiltInStringTable("en").textForKey("WIFI_DIAGNOSTICS", ""), "Wi-Fi Diagnostics");
  EXPECT_EQ(BuiltInStringTable("de").textForKey("WIFI_DIAGNOSTICS", ""), "Wi-Fi-Diagnose");
  EXPECT_EQ(BuiltInStringTable("zh").textForKey("WIFI_DIAGNOSTICS", ""), "Wi-Fi 诊断");
}

TEST(StringTable, FallsBackForAnUnknownKey) {
  EXPECT_EQ(BuiltInStringTable("en").textForKey("NO_SUCH_KEY", ""), "");
  EXPECT_EQ(BuiltInStringTable("de").textForKey("NO_SUCH_KEY", "else"), "else");
}

TEST(StringTable, DoesNotTakeACommentForAKey) {
  EXPECT_EQ(BuiltInStringTable("en").textForKey("# English", "else"), "else");
  EXPECT_EQ(BuiltInStringTable("en").textForKey("", "else"), "else");
}

TEST(StringTable, SaysTheKeysThemselvesInTheLanguageOfKeys) {
  EXPECT_EQ(BuiltInStringTable("keys").textForKey("PROGRESS_TEXT", ""), "PROGRESS_TEXT");
  EXPECT_EQ(BuiltInStringTable("keys").textForKey("NO_SUCH_KEY", ""), "NO_SUCH_KEY");
}

TEST(StringTable, ListsItsLanguages) {
  EXPECT_THAT(BuiltInStringTable::languages(),
              ::testing::ElementsAre("en", "de", "fr", "es", "ja", "ar", "zh", "keys"));
}

TEST(StringTable, FindsTheLanguageOfALocale) {
  EXPECT_EQ(BuiltInStringTable::languageOfLocale("de_AT.UTF-8"), "de");
  EXPECT_EQ(BuiltInStringTable::languageOfLocale("de"), "de");
  EXPECT_EQ(BuiltInStringTable::languageOfLocale("en-GB"), "en");
  EXPECT_EQ(BuiltInStringTable::languageOfLocale("de@euro"), "de");
  EXPECT_EQ(BuiltInStringTable::languageOfLocale("en.UTF-8"), "en");
  EXPECT_EQ(BuiltInStringTable::languageOfLocale("fr_FR.UTF-8"), "fr");
  EXPECT_EQ(BuiltInStringTable::languageOfLocale("es_MX"), "es");
  EXPECT_EQ(BuiltInStringTable::languageOfLocale("ja_JP.eucJP"), "ja");
  EXPECT_EQ(BuiltInStringTable::languageOfLocale("ar_EG"), "ar");
}

TEST(StringTable, FindsNoLanguageForOtherLocales) {
  for (const std::string_view locale : {"", "C", "POSIX", "it_IT.UTF-8", "deu", "keys", "_de"}) {
    EXPECT_EQ(BuiltInStringTable::languageOfLocale(locale), std::nullopt) << locale;
  }
}

TEST(StringTable, FindsChineseForLocalesOfSimplifiedCharacters) {
  for (const std::string_view locale :
       {"zh", "zh_CN.UTF-8", "zh_SG", "zh.UTF-8", "zh-Hans", "zh_Hans_HK", "zh-Hans-TW"}) {
    EXPECT_EQ(BuiltInStringTable::languageOfLocale(locale), "zh") << locale;
  }
}

TEST(StringTable, FindsNoLanguageForLocalesOfTraditionalCharacters) {
  for (const std::string_view locale :
       {"zh_TW.UTF-8", "zh_TW", "zh_HK", "zh-MO", "zh_Hant", "zh-Hant-TW", "zh_Hant_CN"}) {
    EXPECT_EQ(BuiltInStringTable::languageOfLocale(locale), std::nullopt) << locale;
  }
}

TEST(StringTable, AnswersTheInstalledTablesTextOrNothing) {
  BuiltInStringTable english("en");
  const InstalledPlatform platform({.texts = &english});
  EXPECT_EQ(localizedString("WIFI_DIAGNOSTICS"), "Wi-Fi Diagnostics");
  EXPECT_EQ(localizedString("NO_SUCH_KEY"), "");
}

}  // namespace
}  // namespace wifi_profile::runtime
