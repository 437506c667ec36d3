#include "runtime/BuiltInStringTable.h"

#include <algorithm>
#include <array>
#include <cassert>

namespace wifi_profile {
namespace {

struct LocalizedText {
  std::string_view key;
  std::string_view language;
  std::string_view text;
};

constexpr std::array<LocalizedText, 6> kTexts{{
    {"PROGRESS_TEXT", "en", "Checking Wi-Fi. This takes a moment."},
    {"PROGRESS_TEXT", "de", "WLAN wird geprüft. Das dauert einen Moment."},
    {"WIFI_DIAGNOSTICS", "en", "Wi-Fi Diagnostics"},
    {"WIFI_DIAGNOSTICS", "de", "Wi-Fi-Diagnose"},
    {"WLAN_DIAGNOSTICS", "en", "WLAN Diagnostics"},
    {"WLAN_DIAGNOSTICS", "de", "WLAN-Diagnose"},
}};

}  // namespace

BuiltInStringTable::BuiltInStringTable(std::string_view language) {
  const auto known = std::find(languages().begin(), languages().end(), language);
  assert(known != languages().end());
  language_ = *known;
}

std::string BuiltInStringTable::textForKey(std::string_view key, std::string_view fallback) const {
  if (language_ == kKeysLanguage) return std::string(key);
  const auto found =
      std::find_if(kTexts.begin(), kTexts.end(), [&](const LocalizedText& candidate) {
        return candidate.key == key && candidate.language == language_;
      });
  return std::string(found == kTexts.end() ? fallback : found->text);
}

const std::vector<std::string_view>& BuiltInStringTable::languages() {
  static const std::vector<std::string_view> known{"en", "de", kKeysLanguage};
  return known;
}

std::optional<std::string_view> BuiltInStringTable::languageOfLocale(std::string_view locale) {
  const std::string_view asked = locale.substr(0, locale.find_first_of("_.@-"));
  const auto known = std::find(languages().begin(), languages().end(), asked);
  if (known == languages().end() || asked == kKeysLanguage) return std::nullopt;
  return *known;
}

}  // namespace wifi_profile
